#include "OpcionesHost.h"
#include "Subcomandos.h"

#include <cstdio>

namespace consultas::host {

int CmdEjecutar(const QStringList&) {
    std::fprintf(stderr, "consultas: ejecutar no está disponible todavía\n");
    return SalidaUso;
}

} // namespace consultas::host
