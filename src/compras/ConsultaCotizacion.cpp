#include "compras/ReportesCompras.h"

namespace consultas {

// Mejor Cotización en base a Requisición: not drawn yet; a run gives a single page with its number
// only.
void ConsultaCotizacion(ReporteCompras&) {}

} // namespace consultas
