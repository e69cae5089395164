#include "core/Formato.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <limits>

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

// A report formats every amount of every row with the same one or two
// patterns, so the last one read is kept.
const Patron& PatronDe(const QString& patron) {
    thread_local QString ultimo;
    thread_local Patron leido;
    if (ultimo.isNull() || ultimo != patron) {
        leido = LeePatron(patron);
        ultimo = patron;
    }
    return leido;
}

// Writes a non-negative scaled integer (value * 10^escala) with the pattern.
// The text is assembled in place: a report writes millions of amounts.
QString Escribe(bool negativo, quint64 escalado, int escala, const Patron& p) {
    quint64 potencia = 1;
    for (int i = 0; i < escala; ++i)
        potencia *= 10;
    const quint64 entero = escalado / potencia;
    quint64 frac = escalado % potencia;

    // The integer digits, least significant first.
    char enteroInv[20];
    int nEntero = 0;
    for (quint64 e = entero; e != 0; e /= 10)
        enteroInv[nEntero++] = static_cast<char>('0' + e % 10);
    const int nDigitos = std::max(nEntero, p.minEnteros);
    const int nComas = p.miles && nDigitos > 3 ? (nDigitos - 1) / 3 : 0;

    // The decimals, padded to the scale, then the optional zeros dropped.
    QVarLengthArray<char, 24> decimales(std::max(escala, 0));
    for (int i = escala - 1; i >= 0; --i) {
        decimales[i] = static_cast<char>('0' + frac % 10);
        frac /= 10;
    }
    int nDecimales = escala > 0 ? escala : 0;
    while (nDecimales > p.decimalesFijos && decimales[nDecimales - 1] == '0')
        --nDecimales;

    const bool signo = negativo && escalado != 0;
    const qsizetype largo =
        (signo ? 1 : 0) + nDigitos + nComas + (nDecimales > 0 ? 1 + nDecimales : 0);
    QString r(largo, Qt::Uninitialized);
    QChar* c = r.data();
    if (signo)
        *c++ = QLatin1Char('-');
    for (int i = 0; i < nDigitos; ++i) {
        const int desdeLaDerecha = nDigitos - i; // digits left, this one included
        if (i > 0 && nComas > 0 && desdeLaDerecha % 3 == 0)
            *c++ = QLatin1Char(',');
        const int k = desdeLaDerecha - 1;
        *c++ = QLatin1Char(k < nEntero ? enteroInv[k] : '0');
    }
    if (nDecimales > 0) {
        *c++ = QLatin1Char('.');
        for (int i = 0; i < nDecimales; ++i)
            *c++ = QLatin1Char(decimales[i]);
    }
    return r;
}

} // namespace

QString Formato(Moneda valor, const QString& patron) {
    const Patron& p = PatronDe(patron);
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
    const Patron& p = PatronDe(patron);
    const int escala = std::min(p.decimalesFijos + p.decimalesOpcionales, 10);
    const bool negativo = valor < 0;
    // The decimal text of the value decides the half (1.005 is written so,
    // though stored a hair below it); one digit beyond the scale is enough
    // once the text itself is exact to 15 significant digits.
    const int enteros = static_cast<int>(std::log10(std::fabs(valor) + 1)) + 1;
    const QString txt = QString::number(std::fabs(valor), 'f', std::max(escala + 1, 15 - enteros));
    const QChar* t = txt.constData();
    const qsizetype n = txt.size();
    qsizetype punto = 0;
    while (punto < n && t[punto] != QLatin1Char('.'))
        ++punto;
    // The integer part; past the range of 64 bits it reads as zero.
    quint64 a = 0;
    for (qsizetype i = 0; i < punto; ++i) {
        const quint64 digito = static_cast<quint64>(t[i].unicode() - '0');
        if (a > (std::numeric_limits<quint64>::max() - digito) / 10) {
            a = 0;
            break;
        }
        a = a * 10 + digito;
    }
    // Decimal i of the text, zero past its end.
    const auto decimal = [&](int i) -> quint64 {
        const qsizetype k = punto + 1 + i;
        return k < n ? static_cast<quint64>(t[k].unicode() - '0') : 0;
    };
    for (int i = 0; i < escala; ++i)
        a = a * 10 + decimal(i);
    if (decimal(escala) >= 5)
        ++a;
    return Escribe(negativo, a, escala, p);
}

QString Formato(qint64 valor, const QString& patron) {
    const Patron& p = PatronDe(patron);
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
