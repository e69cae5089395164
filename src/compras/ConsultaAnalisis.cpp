#include "compras/ReportesCompras.h"

namespace consultas {

// Análisis de Compras: not drawn yet; a run gives a single page with its number only.
void ConsultaAnalisis(ReporteCompras&) {}

} // namespace consultas
