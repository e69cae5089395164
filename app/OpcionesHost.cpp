#include "OpcionesHost.h"

#include "core/Conexion.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtGlobal>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace consultas::host {

Ajuste LeeAjuste(const QString& texto) {
    static const QRegularExpression forma(R"(^([A-Za-z_][A-Za-z0-9_]*)(?:\[(-?\d+)\])?=(.*)$)",
                                          QRegularExpression::DotMatchesEverythingOption);
    const auto m = forma.match(texto);
    if (!m.hasMatch())
        throw ErrorUso(
            QString("ajuste no válido: '%1' (se espera CONTROL=VALOR o CONTROL[i]=VALOR)")
                .arg(texto));
    Ajuste a;
    a.control = m.captured(1);
    if (!m.captured(2).isEmpty())
        a.indice = m.captured(2).toInt();
    a.valor = m.captured(3);
    a.textoOriginal = texto;
    return a;
}

namespace {
int Entero(const QString& opcion, const QString& valor, int minimo, int maximo) {
    bool ok = false;
    const int n = valor.toInt(&ok);
    if (!ok || n < minimo || n > maximo)
        throw ErrorUso(QString("%1 necesita un número entre %2 y %3, no '%4'")
                           .arg(opcion)
                           .arg(minimo)
                           .arg(maximo)
                           .arg(valor));
    return n;
}
} // namespace

OpcionesHost LeeOpciones(const QStringList& args, bool ajustesPermitidos) {
    OpcionesHost o;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a.startsWith("--")) {
            QString nombre = a;
            QString valor;
            const int igual = a.indexOf('=');
            if (igual > 0) {
                nombre = a.left(igual);
                valor = a.mid(igual + 1);
            } else {
                if (i + 1 >= args.size())
                    throw ErrorUso(QString("a %1 le falta su valor").arg(nombre));
                valor = args[++i];
            }
            if (nombre == "--conexion")
                o.conexion = valor;
            else if (nombre == "--motor")
                o.motor = Entero(nombre, valor, 0, 255);
            else if (nombre == "--empresa")
                o.empresa = Entero(nombre, valor, -32768, 32767);
            else if (nombre == "--ayuda")
                o.ayuda = valor;
            else if (nombre == "--ruta")
                o.ruta = valor;
            else if (nombre == "--pantalla")
                o.pantalla = valor;
            else if (nombre == "--pdf")
                o.pdf = valor;
            else if (nombre == "--png")
                o.png = valor;
            else if (nombre == "--emf")
                o.emf = valor;
            else if (nombre == "--jsonl")
                o.jsonl = valor;
            else if (nombre == "--xlsx")
                o.xlsx = valor;
            else if (nombre == "--bitacora")
                o.bitacora = valor;
            else
                throw ErrorUso(QString("opción desconocida: %1").arg(nombre));
            continue;
        }
        if (!ajustesPermitidos)
            throw ErrorUso(QString("argumento inesperado: '%1'").arg(a));
        o.ajustes.push_back(LeeAjuste(a));
    }
    if (o.conexion.isEmpty())
        throw ErrorUso("falta --conexion con la cadena de conexión");
    if (o.pantalla.isEmpty())
        throw ErrorUso("falta --pantalla (presupuestos, compras o cxpag)");
    TipoDePantalla(o.pantalla);
    if (o.ruta.isEmpty()) {
        // A SQLite suite keeps its database in its own folder.
        if (Conexion::MotorDeCadena(o.conexion) == Motor::SQLite) {
            o.ruta = QFileInfo(Conexion::RutaSqlite(o.conexion)).absolutePath();
        } else {
            o.ruta = QDir::currentPath();
        }
    }
    return o;
}

std::int32_t TipoDePantalla(const QString& pantalla) {
    if (pantalla == "presupuestos")
        return 0;
    if (pantalla == "compras")
        return 1;
    if (pantalla == "cxpag")
        return 2;
    throw ErrorUso(
        QString("pantalla desconocida: '%1' (presupuestos, compras o cxpag)").arg(pantalla));
}

void ValidaConexion(const OpcionesHost& o) {
    const Motor motor = Conexion::MotorDeCadena(o.conexion);
    if (motor == Motor::Ninguno)
        throw ErrorUso(
            QString("la cadena de conexión no tiene una forma conocida: '%1'").arg(o.conexion));
    if (motor == Motor::SQLite) {
        const QString ruta = Conexion::RutaSqlite(o.conexion);
        if (!QFileInfo(ruta).isFile())
            throw ErrorUso(QString("no existe la base de datos '%1'").arg(ruta));
    }
    if (!QFileInfo(o.ruta).isDir())
        throw ErrorUso(QString("no existe el directorio de datos '%1'").arg(o.ruta));
    const QFileInfo ini(o.ruta + "/VALMOR.INI");
    if (!ini.isFile() || !ini.isReadable())
        throw ErrorUso(
            QString("no se puede leer el archivo de configuración '%1'").arg(ini.filePath()));
}

namespace {
void FiltraMensajesQt(QtMsgType tipo, const QMessageLogContext& contexto, const QString& texto) {
    if (texto.contains("propagateSizeHints"))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(tipo, contexto, texto)));
}
} // namespace

void PreparaProcesoQt() {
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QByteArray dir = QByteArray("/tmp/consultas-runtime-") + QByteArray::number(getuid());
        mkdir(dir.constData(), 0700);
        qputenv("XDG_RUNTIME_DIR", dir);
    }
    qInstallMessageHandler(FiltraMensajesQt);
}

} // namespace consultas::host
