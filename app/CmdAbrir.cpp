#include "OpcionesHost.h"
#include "Subcomandos.h"

#include "core/clsConsultaCompras.h"

#include <QGuiApplication>
#include <cstdio>

namespace consultas::host {

// Calls MostrarConsulta as a host would: the screen shows and the call
// returns when the user closes it.
int CmdAbrir(const QStringList& args) {
    const OpcionesHost o = LeeOpciones(args, false);
    ValidaConexion(o);
    if (QGuiApplication::platformName() == "offscreen" ||
        QGuiApplication::platformName() == "minimal")
        std::fprintf(stderr, "consultas: aviso: sin pantalla (%s), la ventana no será visible\n",
                     qPrintable(QGuiApplication::platformName()));
    clsConsultaCompras clase;
    auto tipo = static_cast<TipoDeConsulta>(TipoDePantalla(o.pantalla));
    QString cadena = o.conexion, ayuda = o.ayuda, ruta = o.ruta;
    auto motor = static_cast<std::uint8_t>(o.motor);
    auto empresa = static_cast<std::int16_t>(o.empresa);
    clase.MostrarConsulta(tipo, cadena, motor, empresa, ayuda, ruta);
    if (!clase.ConexionAbierta()) {
        const auto& c = modConCompras::ConexionCompartida;
        std::fprintf(stderr, "consultas: no se pudo abrir la conexión: %s\n",
                     qPrintable(c ? c->UltimoError().simplified() : QString("sin detalle")));
        return SalidaConexion;
    }
    return SalidaBien;
}

} // namespace consultas::host
