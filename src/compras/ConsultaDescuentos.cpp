#include "compras/ReportesCompras.h"

namespace consultas {

// Descuentos en Compras, by supplier and by article: not drawn yet; a run
// gives a single page with its number only.
void ConsultaDescuentosProveedor(ReporteCompras&) {}
void ConsultaDescuentosArticulo(ReporteCompras&) {}

} // namespace consultas
