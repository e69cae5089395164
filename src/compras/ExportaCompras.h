#pragma once
// Spreadsheet output of the purchasing reports and their client-side sort.
//
// A report that can send its rows to a spreadsheet does:
//
//   ExportaCompras excel(r);                    // fields of the inquiry when chkExcel is ticked
//   ...
//   if (excel.EnviarExcel) {
//       excel.AgregaNuevo();
//       excel.Fija("Folio", folio);              // amounts as printed text: "1,234.50"
//   }
//   ...
//   excel.Termina("DiarioCompras_Recepción");    // base + DDMMYYYY to clsExportaExcel
//
// and a report whose order the database cannot give sorts its main
// recordset in memory: AbreOrdenado(r, sql) with r.Sel.OrdenSql set.

#include "compras/SeleccionCompras.h"

#include <QDate>

#include <vector>

namespace consultas {

// The empty export recordset of the inquiry in r.Sel.ConsultaActual, with
// the Resumen Contable columns when resumenContable and the group columns
// when hayGrupos. Inquiries without a field list give a recordset with no
// fields.
RecordsetPtr CamposExcel(const ReporteCompras& r, bool resumenContable, bool hayGrupos);

// File name of a spreadsheet: the base and the date as DDMMYYYY.
QString NombreExcel(const QString& base, const QDate& fecha = QDate::currentDate());

class ExportaCompras {
public:
    // Makes the export recordset when the screen's chkExcel was ticked.
    explicit ExportaCompras(const ReporteCompras& r, bool resumenContable = false);
    ExportaCompras(const ReporteCompras& r, bool resumenContable, bool hayGrupos);

    bool EnviarExcel = false;

    // A new row; its fields are set by name. Does nothing when not sending.
    void AgregaNuevo();
    void Fija(const QString& campo, const QVariant& valor);
    // Hands the rows to the spreadsheet exporter under base + DDMMYYYY and
    // releases them. Nothing when not sending. Returns the rows written.
    int Termina(const QString& base);

    Recordset* Filas() const { return rs_.get(); }

private:
    RecordsetPtr rs_;
};

// One cell of a printed line: drawn at x, right-aligned when derecha, and
// set in the line's spreadsheet row under campo when it names one.
struct CeldaLinea {
    int x;
    bool derecha;
    QString texto;
    const char* campo = nullptr;
};

// Draws a line of cells at y with the surface's current font and colour,
// and, when the spreadsheet is on, adds a row with the cells that name a
// field. The alignment is left as it was found.
void LineaConHoja(Superficie& s, int y, ExportaCompras& excel,
                  const std::vector<CeldaLinea>& celdas);

// Runs a statement and sorts its rows in memory by r.Sel.OrdenSql (stable,
// column names with optional DESC), leaving nothing on disk.
RecordsetPtr AbreOrdenado(const ReporteCompras& r, const QString& sql);

} // namespace consultas
