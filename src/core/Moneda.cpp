#include "core/Moneda.h"

#include <cmath>
#include <limits>

namespace consultas {

Moneda Moneda::DeDoble(double valor) {
    if (!std::isfinite(valor) || std::fabs(valor) >= 9.0e14)
        return Moneda();
    const double escalado = valor * 10000.0;
    const double cercano = std::nearbyint(escalado);
    const double distancia = std::fabs(escalado - cercano);
    // Far from a half the nearest integer is the answer. Near a half decide
    // from the decimal text of the value rather than from its binary
    // expansion: 2.00005 is stored as 2.0000499999... but is written, and
    // meant, as a half.
    if (distancia < 0.4999)
        return DeDiezmilesimos(static_cast<std::int64_t>(cercano));
    return DeTexto(QString::number(valor, 'f', 10));
}

Moneda Moneda::DeTexto(const QString& texto, bool* ok) {
    QString t = texto.trimmed();
    t.remove(',');
    if (ok)
        *ok = false;
    if (t.isEmpty())
        return Moneda();
    bool negativo = false;
    if (t.startsWith('-') || t.startsWith('+')) {
        negativo = t.startsWith('-');
        t = t.mid(1);
    }
    if (t.contains('e', Qt::CaseInsensitive)) {
        bool bien = false;
        const double d = t.toDouble(&bien);
        if (ok)
            *ok = bien;
        return bien ? DeDoble(negativo ? -d : d) : Moneda();
    }
    const int punto = t.indexOf('.');
    QString entero = punto < 0 ? t : t.left(punto);
    QString frac = punto < 0 ? QString() : t.mid(punto + 1);
    if (entero.isEmpty())
        entero = "0";
    for (QChar c : entero + frac)
        if (!c.isDigit())
            return Moneda();
    if (entero.size() > 14)
        return Moneda();
    std::int64_t d = entero.toLongLong() * 10000;
    const QString cuatro = (frac + "0000").left(4);
    d += cuatro.toLongLong();
    if (frac.size() > 4) {
        const QString cola = frac.mid(4);
        const int primero = cola.at(0).digitValue();
        const bool restoCero = cola.mid(1).count('0') == cola.size() - 1;
        if (primero > 5 || (primero == 5 && !restoCero) ||
            (primero == 5 && restoCero && (d % 2) != 0))
            d += 1;
    }
    if (ok)
        *ok = true;
    return DeDiezmilesimos(negativo ? -d : d);
}

QString Moneda::ATexto() const {
    const std::int64_t a = diezmilesimos_ < 0 ? -diezmilesimos_ : diezmilesimos_;
    return QString("%1%2.%3")
        .arg(diezmilesimos_ < 0 ? "-" : "")
        .arg(a / 10000)
        .arg(a % 10000, 4, 10, QChar('0'));
}

} // namespace consultas
