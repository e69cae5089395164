#pragma once
// The ten purchasing reports, one source each. A report finds the surface
// open at page 1 with lnLinea 0; it draws its own heading (EncabezadosCompras.h),
// walks its rows, calls r.SaltoPagina(kind) when lnLinea passes its
// threshold, sends its rows to a spreadsheet through ExportaCompras when
// r.Pantalla.Excel is set, and returns leaving the last page open.

#include "compras/SeleccionCompras.h"

namespace consultas {

void ConsultaDiario(ReporteCompras& r);
void ConsultaRelacion(ReporteCompras& r, bool hayGrupos);
void ConsultaArticulo(ReporteCompras& r);
void ConsultaNetas(ReporteCompras& r);
void ConsultaDesglosado(ReporteCompras& r);
void ConsultaDiferencias(ReporteCompras& r);
// Descuentos en Compras: by supplier when OrdenActual is 4, else by article.
void ConsultaDescuentosProveedor(ReporteCompras& r);
void ConsultaDescuentosArticulo(ReporteCompras& r);
void ConsultaBackorder(ReporteCompras& r, bool hayGrupos);
void ConsultaCotizacion(ReporteCompras& r);
void ConsultaAnalisis(ReporteCompras& r);

// Calls the report of the inquiry in r.Sel.ConsultaActual; an index outside
// 0 to 9 calls none.
void DespachaReporteCompras(ReporteCompras& r);

} // namespace consultas
