#include "compras/ReportesCompras.h"

namespace consultas {

// Relación de Documentos: not drawn yet; a run gives a single page with its number only.
void ConsultaRelacion(ReporteCompras&, bool) {}

} // namespace consultas
