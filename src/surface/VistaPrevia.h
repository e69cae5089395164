#pragma once
// Where a finished run goes. There is one page surface in the program, the
// one the preview shows; every run draws on it and hands it to whatever shows
// documents: the preview window in a session, the outputs in a batch run.

#include "surface/Superficie.h"

#include <functional>

namespace consultas::vista {

// The program's one page surface.
Superficie& SuperficieCompartida();

// Shows a finished, numbered document and returns when the user is done with
// it. The preview window installs itself here when the library loads; the
// batch host replaces it with its outputs. Unset, the document stays on the
// surface.
std::function<void(Superficie&)>& MostrarDocumento();

// What a screen's page run calls at its end.
void Muestra(Superficie& superficie);

} // namespace consultas::vista
