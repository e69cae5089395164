#pragma once
// Page headings of the purchasing reports: the company block, then the
// column captions of each report, leaving lnLinea at the first body line.
// SaltoPagina(kind) of the screen draws them on each new page; a report
// draws its first one itself.

#include "compras/SeleccionCompras.h"

namespace consultas {

// Heading kinds of SaltoPagina.
enum TipoEncabezadoCompras : int {
    EncDocumentos = 1,
    EncArticulo = 2,
    EncDescuentos = 3,
    EncBackorder = 4,
    EncNetas = 5,
    EncDesglosado = 6,
    EncResumen = 7,
    EncDiferencias = 8,
    EncCotizacion = 9,
    EncAnalisis = 10,
};

// Draws the heading of a kind; a kind outside 1 to 10 draws nothing.
void EncabezadoCompras(const ReporteCompras& r, int tipo);

// The company block with the report's title; lnLinea 0 on entry, below the
// double rule on return.
void EncabezadoEmpresa(const ReporteCompras& r, const QString& titulo);
void EncabezadoDocumentos(const ReporteCompras& r);
void EncabezadoArticulo(const ReporteCompras& r);
void EncabezadoDescuentos(const ReporteCompras& r);
void EncabezadoBackorder(const ReporteCompras& r);
void EncabezadoNetas(const ReporteCompras& r);
void EncabezadoDesglosado(const ReporteCompras& r);
void EncabezadoResumen(const ReporteCompras& r);
void EncabezadoDiferencias(const ReporteCompras& r);
void EncabezadoCotizacion(const ReporteCompras& r);
void EncabezadoAnalisis(const ReporteCompras& r);

// The region line under a title block, when "Por Región" is on.
void LineaRegion(const ReporteCompras& r);

// True when the suite keeps the previous purchase step ("Previo de Compra"),
// which Diferencias en Recepción needs.
bool ConsultaPrevioCompra(Conexion& conexion);

} // namespace consultas
