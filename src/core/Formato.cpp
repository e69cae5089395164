#include "core/Formato.h"

#include <cmath>

namespace consultas {
namespace {

struct Patron {
    bool miles = false;
    int minEnteros = 1;
    int decimalesFijos = 0;      // '0' after the point
    int decimalesOpcionales = 0; // '#' after the point
};

Patron LeePatron(const QString& patron) {
    Patron p;
    const int punto = patron.indexOf('.');
    const QString entero = punto < 0 ? patron : patron.left(punto);
    const QString frac = punto < 0 ? QString() : patron.mid(punto + 1);
    p.miles = entero.contains(',');
    const QString digitos = QString(entero).remove(',');
    const int primerCero = digitos.indexOf('0');
    p.minEnteros = primerCero < 0 ? 0 : digitos.size() - primerCero;
    for (QChar c : frac) {
        if (c == '0')
            ++p.decimalesFijos;
        else if (c == '#')
            ++p.decimalesOpcionales;
    }
    return p;
}

// Writes a non-negative scaled integer (value * 10^escala) with the pattern.
QString Escribe(bool negativo, quint64 escalado, int escala, const Patron& p) {
    quint64 potencia = 1;
    for (int i = 0; i < escala; ++i)
        potencia *= 10;
    const quint64 entero = escalado / potencia;
    const quint64 frac = escalado % potencia;

    QString digitos = entero == 0 ? QString() : QString::number(entero);
    while (digitos.size() < p.minEnteros)
        digitos.prepend('0');
    if (p.miles && digitos.size() > 3) {
        QString agrupado;
        const int n = digitos.size();
        for (int i = 0; i < n; ++i) {
            if (i > 0 && (n - i) % 3 == 0)
                agrupado += ',';
            agrupado += digitos[i];
        }
        digitos = agrupado;
    }
    QString decimales;
    if (escala > 0) {
        decimales = QString("%1").arg(frac, escala, 10, QChar('0'));
        while (decimales.size() > p.decimalesFijos && decimales.endsWith('0'))
            decimales.chop(1);
    }
    QString r = digitos;
    if (!decimales.isEmpty())
        r += '.' + decimales;
    if (negativo && escalado != 0)
        r.prepend('-');
    return r;
}

} // namespace

QString Formato(Moneda valor, const QString& patron) {
    const Patron p = LeePatron(patron);
    const int escala = p.decimalesFijos + p.decimalesOpcionales;
    const std::int64_t d = valor.Diezmilesimos();
    const bool negativo = d < 0;
    quint64 a = negativo ? static_cast<quint64>(-(d + 1)) + 1 : static_cast<quint64>(d);
    if (escala < 4) {
        quint64 divisor = 1;
        for (int i = escala; i < 4; ++i)
            divisor *= 10;
        const quint64 resto = a % divisor;
        a /= divisor;
        if (resto * 2 >= divisor)
            ++a; // half away from zero
        return Escribe(negativo, a, escala, p);
    }
    for (int i = 4; i < escala; ++i)
        a *= 10;
    return Escribe(negativo, a, escala, p);
}

QString Formato(double valor, const QString& patron) {
    if (!std::isfinite(valor))
        return QString();
    const Patron p = LeePatron(patron);
    const int escala = std::min(p.decimalesFijos + p.decimalesOpcionales, 10);
    const bool negativo = valor < 0;
    // The decimal text of the value decides the half (1.005 is written so,
    // though stored a hair below it); one digit beyond the scale is enough
    // once the text itself is exact to 15 significant digits.
    const int enteros = static_cast<int>(std::log10(std::fabs(valor) + 1)) + 1;
    const QString txt = QString::number(std::fabs(valor), 'f', std::max(escala + 1, 15 - enteros));
    const int punto = txt.indexOf('.');
    const QString ent = punto < 0 ? txt : txt.left(punto);
    QString frac = punto < 0 ? QString() : txt.mid(punto + 1);
    frac = (frac + QString(escala + 1, '0')).left(escala + 1);
    quint64 a = ent.toULongLong();
    for (int i = 0; i < escala; ++i)
        a = a * 10 + static_cast<quint64>(frac.at(i).digitValue());
    if (frac.at(escala).digitValue() >= 5)
        ++a;
    return Escribe(negativo, a, escala, p);
}

QString Formato(qint64 valor, const QString& patron) {
    const Patron p = LeePatron(patron);
    const int escala = p.decimalesFijos + p.decimalesOpcionales;
    const bool negativo = valor < 0;
    quint64 a = negativo ? static_cast<quint64>(-(valor + 1)) + 1 : static_cast<quint64>(valor);
    for (int i = 0; i < escala; ++i)
        a *= 10;
    return Escribe(negativo, a, escala, p);
}

QString NombreMes(int mes) {
    static const char* const nombres[] = {"enero",      "febrero", "marzo",     "abril",
                                          "mayo",       "junio",   "julio",     "agosto",
                                          "septiembre", "octubre", "noviembre", "diciembre"};
    return mes >= 1 && mes <= 12 ? QString::fromUtf8(nombres[mes - 1]) : QString();
}

QString AbreviaturaMes(int mes) {
    static const char* const abrev[] = {"ene", "feb", "mar", "abr", "may", "jun",
                                        "jul", "ago", "sep", "oct", "nov", "dic"};
    return mes >= 1 && mes <= 12 ? QString::fromUtf8(abrev[mes - 1]) : QString();
}

QString FormatoFecha(const QDate& fecha, const QString& patron) {
    if (!fecha.isValid())
        return QString();
    QString r;
    int i = 0;
    const int n = patron.size();
    auto corre = [&](QChar c) {
        int k = 0;
        while (i + k < n && patron[i + k].toLower() == c)
            ++k;
        return k;
    };
    while (i < n) {
        const QChar c = patron[i];
        const QChar l = c.toLower();
        if (l == 'd') {
            const int k = corre('d');
            r += k >= 2 ? QString("%1").arg(fecha.day(), 2, 10, QChar('0'))
                        : QString::number(fecha.day());
            i += k;
        } else if (l == 'y') {
            const int k = corre('y');
            r += k >= 4 ? QString("%1").arg(fecha.year(), 4, 10, QChar('0'))
                        : QString("%1").arg(fecha.year() % 100, 2, 10, QChar('0'));
            i += k;
        } else if (l == 'm') {
            const int k = corre('m');
            if (k >= 4)
                r += NombreMes(fecha.month());
            else if (k == 3)
                r += AbreviaturaMes(fecha.month());
            else
                r += k == 2 ? QString("%1").arg(fecha.month(), 2, 10, QChar('0'))
                            : QString::number(fecha.month());
            i += k;
        } else {
            r += c;
            ++i;
        }
    }
    return r;
}

QString Ultimos(const QString& texto, int n) {
    return texto.size() <= n ? texto : texto.right(n);
}

} // namespace consultas
