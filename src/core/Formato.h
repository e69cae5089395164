#pragma once
// Number and date texts as the reports print them: "," groups thousands, "."
// marks decimals, months are Spanish and lower case.

#include "core/Moneda.h"

#include <QDate>
#include <QString>

namespace consultas {

// Number patterns made of '#', '0', ',' and '.': "#,##0.00", "#,##0.0000",
// "#,##0", "0#". Rounds half away from zero. A value that rounds to zero
// prints without a sign.
QString Formato(double valor, const QString& patron);
QString Formato(Moneda valor, const QString& patron);
QString Formato(qint64 valor, const QString& patron);
inline QString Formato(int valor, const QString& patron) {
    return Formato(static_cast<qint64>(valor), patron);
}

// Date patterns: "DD/MM/YYYY", "dd/mmm/yyyy" (05/mar/2024), "DDMMYYYY",
// "YYYY-MM-DD", "YYYY/MM/DD", "YYYYMMDD", "mmmm" (the month's full name),
// "mmm" (its abbreviation). Letters are not case-sensitive except that
// "mmm" and "mmmm" ask for month names where "MM" asks for its number.
QString FormatoFecha(const QDate& fecha, const QString& patron);

// 1..12 to "enero".."diciembre" and "ene".."dic"; anything else, empty.
QString NombreMes(int mes);
QString AbreviaturaMes(int mes);

// The last n characters of a text, whole when shorter (folios and references
// are printed by their tail).
QString Ultimos(const QString& texto, int n);
inline QString UltimosDiez(const QString& texto) {
    return Ultimos(texto, 10);
}

} // namespace consultas
