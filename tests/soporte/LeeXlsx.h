#pragma once
// Reads back the first sheet of an .xlsx the exporter wrote: cells by
// reference, widths, and the number format and boldness of each cell style.

#include <QHash>
#include <QString>

#include <vector>

namespace pruebas {

struct Celda {
    QString tipo; // attribute t: "inlineStr", "s", or empty for a number
    int estilo = 0;
    QString valor; // the number, or the text of an inline string
};

struct Hoja {
    QHash<QString, Celda> celdas; // by reference: "A1", "B2"
    QHash<int, double> anchos;    // by column, from 1
    int filas = 0;
    std::vector<QString> formatos; // number format of each cell style
    std::vector<bool> negritas;    // bold font of each cell style
    const Celda* operator()(const QString& ref) const {
        auto it = celdas.constFind(ref);
        return it == celdas.constEnd() ? nullptr : &*it;
    }
    QString Formato(const QString& ref) const {
        const Celda* c = (*this)(ref);
        return c ? formatos.at(size_t(c->estilo)) : QString();
    }
    bool Negrita(const QString& ref) const {
        const Celda* c = (*this)(ref);
        return c && negritas.at(size_t(c->estilo));
    }
};

// Fails the calling test when the sheet is not well-formed XML.
Hoja LeeXlsx(const QString& archivo);

// The texts of a row, from column A on, as the sheet holds them.
std::vector<QString> FilaXlsx(const Hoja& h, int fila);

} // namespace pruebas
