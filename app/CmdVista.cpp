#include "OpcionesHost.h"
#include "Subcomandos.h"

#include "surface/SalidaLote.h"
#include "surface/VistaPrevia.h"
#include "surface/frmPreview.h"

namespace consultas::host {

// consultas vista ARCHIVO.jsonl: a saved dump in the preview window, as a run
// would show it, so a document can be read, printed or kept as a picture
// again without running its inquiry.
int CmdVista(const QStringList& args) {
    if (args.size() != 1)
        throw ErrorUso(QStringLiteral("vista necesita un solo argumento: el archivo .jsonl"));
    const Documento documento = LeeJsonl(args.front());
    Superficie& superficie = vista::SuperficieCompartida();
    CargaDocumento(superficie, documento);
    superficie.Refresh();
    vista::Muestra(superficie);
    return SalidaBien;
}

} // namespace consultas::host
