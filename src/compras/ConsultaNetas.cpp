#include "compras/ReportesCompras.h"

namespace consultas {

// Compras Netas: not drawn yet; a run gives a single page with its number only.
void ConsultaNetas(ReporteCompras&) {}

} // namespace consultas
