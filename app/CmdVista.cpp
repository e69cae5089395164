#include "OpcionesHost.h"
#include "Subcomandos.h"

#include <cstdio>

namespace consultas::host {

// Placeholder until the preview window lands.
int CmdVista(const QStringList&) {
    std::fprintf(stderr, "consultas: la vista preliminar no está disponible todavía\n");
    return SalidaUso;
}

} // namespace consultas::host
