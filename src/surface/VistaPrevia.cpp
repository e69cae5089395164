#include "surface/VistaPrevia.h"

namespace consultas::vista {

Superficie& SuperficieCompartida() {
    static Superficie superficie;
    return superficie;
}

std::function<void(Superficie&)>& MostrarDocumento() {
    static std::function<void(Superficie&)> mostrar;
    return mostrar;
}

void Muestra(Superficie& superficie) {
    if (MostrarDocumento())
        MostrarDocumento()(superficie);
}

} // namespace consultas::vista
