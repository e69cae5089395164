#include "compras/ReportesCompras.h"

namespace consultas {

// Diario de Compras: not drawn yet; a run gives a single page with its number only.
void ConsultaDiario(ReporteCompras&) {}

} // namespace consultas
