// consultas: the command-line host of the inquiry library.
//   consultas abrir     --conexion CS [--motor N --empresa N --ayuda F --ruta DIR] --pantalla P
//   consultas ejecutar  (the same) --pantalla P [CONTROL=VALOR ...] [--pdf F --png D --emf D
//   --jsonl F --xlsx D] consultas demo DIR [--escala N] [--semilla N] [--reemplazar] [--postgres
//   CS]

#include "OpcionesHost.h"
#include "Subcomandos.h"

#include "core/Conexion.h"

#include <QApplication>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>

using namespace consultas;
using namespace consultas::host;

namespace {

void Uso() {
    std::fprintf(stderr,
                 "uso: consultas abrir --conexion CADENA --pantalla presupuestos|compras|cxpag\n"
                 "                     [--motor N] [--empresa N] [--ayuda ARCHIVO] [--ruta DIR]\n"
                 "     consultas ejecutar (las mismas opciones) [CONTROL=VALOR ...]\n"
                 "                     [--pdf ARCHIVO] [--png DIR] [--emf DIR] [--jsonl ARCHIVO] "
                 "[--xlsx DIR]\n"
                 "     consultas demo DIR [--escala N] [--semilla N] [--reemplazar] "
                 "[--postgres CADENA]\n");
}

bool NecesitaPantalla(const char* sub) {
    return std::strcmp(sub, "abrir") == 0 || std::strcmp(sub, "vista") == 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        Uso();
        return SalidaUso;
    }
    const char* sub = argv[1];
    // Batch work needs no display: draw offscreen unless told otherwise.
    if (!NecesitaPantalla(sub) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (NecesitaPantalla(sub) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") &&
        qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        std::fprintf(stderr, "consultas: no hay pantalla: defina DISPLAY o QT_QPA_PLATFORM\n");
        return SalidaUso;
    }
    PreparaProcesoQt();
    QApplication app(argc, argv);
    QStringList args = QApplication::arguments().mid(2);

    const std::map<std::string, std::function<int(const QStringList&)>> subcomandos = {
        {"abrir", CmdAbrir},
        {"demo", CmdDemo},
        {"ejecutar", CmdEjecutar},
        {"vista", CmdVista},
    };
    const auto it = subcomandos.find(sub);
    if (it == subcomandos.end()) {
        std::fprintf(stderr,
                     "consultas: subcomando desconocido: '%s' (abrir, ejecutar, vista, demo; sin "
                     "argumentos muestra el uso)\n",
                     sub);
        return SalidaUso;
    }
    try {
        return it->second(args);
    } catch (const ErrorUso& e) {
        std::fprintf(stderr, "consultas: %s\n", qPrintable(e.mensaje));
        return SalidaUso;
    } catch (const ErrorConsulta& e) {
        std::fprintf(stderr, "consultas: %s\n", qPrintable(e.Mensaje().simplified()));
        return SalidaFallo;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "consultas: %s\n", e.what());
        return SalidaFallo;
    }
}
