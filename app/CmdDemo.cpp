#include "OpcionesHost.h"
#include "Subcomandos.h"

#include <cstdio>

namespace consultas::host {

// Placeholder until the demo generator lands: refuses clearly.
int CmdDemo(const QStringList&) {
    std::fprintf(stderr,
                 "consultas: el generador de la suite de demostración no está disponible\n");
    return SalidaUso;
}

} // namespace consultas::host
