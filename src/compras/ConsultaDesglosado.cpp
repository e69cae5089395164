#include "compras/ReportesCompras.h"

namespace consultas {

// Compras Desglosado: not drawn yet; a run gives a single page with its number only.
void ConsultaDesglosado(ReporteCompras&) {}

} // namespace consultas
