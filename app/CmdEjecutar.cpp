#include "OpcionesHost.h"
#include "Subcomandos.h"

#include "core/clsConsultaCompras.h"
#include "services/PantallaBase.h"
#include "services/Servicios.h"
#include "surface/SalidaLote.h"
#include "surface/VistaPrevia.h"

#include <QDialog>
#include <cstdio>
#include <memory>

namespace consultas::host {

namespace {

// Puts the process-wide hooks back however the run ends.
struct RestauraVista {
    std::function<void(Superficie&)> anterior = vista::MostrarDocumento();
    ~RestauraVista() { vista::MostrarDocumento() = anterior; }
};

void Imprime(const char* prefijo, const QString& texto) {
    std::fprintf(stderr, "consultas: %s%s\n", prefijo, qPrintable(texto.simplified()));
}

} // namespace

// Runs an inquiry in batch: the real screen is made offscreen, each setting
// is applied in order as a user action (so the screen's rules run), F10 is
// pressed, and the finished document goes to the outputs instead of the
// preview.
int CmdEjecutar(const QStringList& args) {
    const OpcionesHost o = LeeOpciones(args, true);
    ValidaConexion(o);
    if (o.pdf.isEmpty() && o.png.isEmpty() && o.emf.isEmpty() && o.jsonl.isEmpty())
        throw ErrorUso("falta una salida: --pdf, --png, --emf o --jsonl");
    if (!o.bitacora.isEmpty())
        Conexion::FijaBitacora(o.bitacora);

    OpcionesSalida salidas;
    salidas.pdf = o.pdf;
    salidas.png = o.png;
    salidas.emf = o.emf;
    salidas.jsonl = o.jsonl;

    // Messages go to standard error and are kept; nothing waits for a user.
    auto guion = std::make_shared<servicios::GuionServicios>();
    servicios::ServiciosInstalados instalados(servicios::FabricasLote(guion));
    // The host prints the one message that decides the exit itself.
    guion->ecoEnStderr = false;
    guion->escribeExcel = true;
    servicios::FijaCarpetaExcel(o.xlsx);

    clsConsultaCompras clase;
    const std::int32_t tipo = TipoDePantalla(o.pantalla);
    if (!clase.PreparaConsulta(o.conexion, static_cast<std::uint8_t>(o.motor),
                               static_cast<std::int16_t>(o.empresa), o.ayuda, o.ruta)) {
        const auto& c = modConCompras::ConexionCompartida;
        Imprime("no se pudo abrir la conexión: ", c ? c->UltimoError() : QString("sin detalle"));
        return SalidaConexion;
    }

    RestauraVista restaura;
    bool hayDocumento = false;
    vista::MostrarDocumento() = [&](Superficie& s) {
        EscribeSalidas(s.Doc(), salidas);
        hayDocumento = true;
    };

    std::unique_ptr<QDialog> dialogo = modConCompras::CreaPantalla(tipo);
    auto* pantalla = dynamic_cast<PantallaBase*>(dialogo.get());
    if (!pantalla) {
        Imprime("", QString("la pantalla '%1' no está disponible en esta versión").arg(o.pantalla));
        return SalidaFallo;
    }
    // Shown offscreen so that focus and visibility behave as for a user.
    pantalla->show();
    for (const Ajuste& a : o.ajustes) {
        try {
            pantalla->AplicaAjuste(a.control, a.indice, a.valor);
        } catch (const ErrorAjuste& e) {
            throw ErrorUso(e.mensaje);
        }
        // A setting whose rule failed (a look-up statement) ends the run.
        if (guion->Cuenta("MuestraError") > 0)
            break;
    }
    if (guion->Cuenta("MuestraError") == 0)
        pantalla->Consultar();
    pantalla->close();

    if (guion->Cuenta("MuestraError") > 0) {
        Imprime("", guion->De("MuestraError").back().texto);
        return SalidaFallo;
    }
    if (!hayDocumento) {
        const auto mensajes = guion->De("Mensaje");
        if (!mensajes.empty()) {
            Imprime("", mensajes.back().texto);
            return SalidaRechazo;
        }
        Imprime("",
                "la consulta no produjo documento (¿faltan datos obligatorios en la pantalla?)");
        return SalidaRechazo;
    }
    return SalidaBien;
}

} // namespace consultas::host
