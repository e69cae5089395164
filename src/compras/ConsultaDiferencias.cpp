#include "compras/ReportesCompras.h"

namespace consultas {

// Diferencias en Recepción: not drawn yet; a run gives a single page with its number only.
void ConsultaDiferencias(ReporteCompras&) {}

} // namespace consultas
