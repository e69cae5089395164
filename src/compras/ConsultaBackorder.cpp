#include "compras/ReportesCompras.h"

namespace consultas {

// Backorder: not drawn yet; a run gives a single page with its number only.
void ConsultaBackorder(ReporteCompras&, bool) {}

} // namespace consultas
