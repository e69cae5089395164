#include "core/consultas_c.h"
#include "core/clsConsultaCompras.h"

#include <QApplication>

struct ConsultasInstancia {
    consultas::clsConsultaCompras clase;
};

namespace {
// A host with no Qt application gets one that lives as long as the process;
// its arguments must outlive it.
void AseguraAplicacion() {
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char nombre[] = "consultas";
    static char* argv[] = {nombre, nullptr};
    new QApplication(argc, argv);
}
} // namespace

extern "C" ConsultasInstancia* consultas_crea(void) {
    AseguraAplicacion();
    return new ConsultasInstancia;
}

extern "C" int consultas_mostrar_consulta(ConsultasInstancia* instancia, int32_t consulta_activa,
                                          const char* conexion, uint8_t manejador, int16_t empresa,
                                          const char* archivo_ayuda, const char* ruta_base_datos) {
    if (!instancia)
        return 0;
    AseguraAplicacion();
    auto tipo = static_cast<consultas::TipoDeConsulta>(consulta_activa);
    QString cadena = QString::fromUtf8(conexion ? conexion : "");
    QString ayuda = QString::fromUtf8(archivo_ayuda ? archivo_ayuda : "");
    QString ruta = QString::fromUtf8(ruta_base_datos ? ruta_base_datos : "");
    instancia->clase.MostrarConsulta(tipo, cadena, manejador, empresa, ayuda, ruta);
    return instancia->clase.ConexionAbierta() ? 1 : 0;
}

extern "C" void consultas_destruye(ConsultasInstancia* instancia) {
    delete instancia;
}
