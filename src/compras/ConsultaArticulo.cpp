#include "compras/ReportesCompras.h"

namespace consultas {

// Compras por Artículo: not drawn yet; a run gives a single page with its number only.
void ConsultaArticulo(ReporteCompras&) {}

} // namespace consultas
