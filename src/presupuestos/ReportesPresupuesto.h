#pragma once
// The three budget reports and what they share: the values of the budget
// screen taken when a run starts, the list of concepts they all walk, and the
// page heading. Plain procedures over the shared connection and the page run;
// nothing here knows the screen's widgets.

#include "core/Conexion.h"
#include "surface/CorridaPaginas.h"

#include <QDate>
#include <QString>

#include <array>

namespace consultas {

// Inquiries of cmbConsulta.
enum ConsultaPresupuesto : int {
    RelacionDePresupuestos = 0,
    ComparativoDePresupuestos = 1,
    PresupuestosTraspasados = 2,
};

// Heading kinds of the budget screen's SaltoPagina.
enum EncabezadoPresupuesto : int {
    EncabezadoRelacion = 1,
    EncabezadoComparativo = 2,
    EncabezadoTraspasos = 3,
};

// The controls the reports read, as they stood when F10 was pressed.
struct ValoresPresupuesto {
    int consulta = RelacionDePresupuestos; // cmbConsulta
    QString codConcepto = "0";             // txtCodCPRE
    QString codCentro = "0";               // txtCodCCOS
    std::array<QString, 3> anos;           // txtAnoRan 0, 1 (Comparativo) and 2 (Relación)
    int tipo = 0;                          // opcTipo: 0 Detallado, 1 Resumido
    bool aplicado = false;                 // chkAplicado
    std::array<QDate, 2> fechas;           // dtpFecha 0 and 1
};

// The leading number of a text as the code and year boxes are read: blanks
// skipped, then an optional sign and digits; anything else reads as 0.
qint64 NumeroDeTexto(const QString& texto);

// The statement of the concepts a report walks, by centre and concept; a
// code box holding 0 means all.
QString ListaConceptos(const ValoresPresupuesto& v);

// Title of a heading kind; empty for a kind the screen does not know.
QString TituloEncabezado(int tipo);

// The page heading: the letterhead (with the year in the band for
// Relación), then the column titles of the selected inquiry, leaving lnLinea
// at the first body line.
void EncabezadoPresup(CorridaPaginas& corrida, const ValoresPresupuesto& v, const QString& titulo);

// The reports. Each finds the run's surface open at page 1 with lnLinea at 0
// and leaves its last page open; a failed statement escapes.
void ReporteRelacionPresupuestos(CorridaPaginas& corrida, Conexion& conexion,
                                 const ValoresPresupuesto& v);
void ReporteComparativoPresupuestos(CorridaPaginas& corrida, Conexion& conexion,
                                    const ValoresPresupuesto& v);
void ReportePresupuestosTraspasados(CorridaPaginas& corrida, Conexion& conexion,
                                    const ValoresPresupuesto& v);

// Runs the selected report.
void ReportePresupuesto(CorridaPaginas& corrida, Conexion& conexion, const ValoresPresupuesto& v);

} // namespace consultas
