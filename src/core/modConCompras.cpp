#include "core/modConCompras.h"

#include <QCoreApplication>
#include <QDialog>
#include <QFile>
#include <QMap>
#include <QTextStream>
#include <QTime>

namespace consultas::modConCompras {

std::unique_ptr<Conexion> ConexionCompartida;
QString ConexionBaseDatos;
std::int16_t ManejadorBaseDatos = 0;
std::int16_t NumeroDeEmpresa = 0;
QString ArchivoDeAyuda;
QString RutaBaseDeDatos;
QString DirectorioConsultas;

bool ConectaBase(const QString& cadena) {
    if (!ConexionCompartida) {
        ConexionCompartida = std::make_unique<Conexion>();
        // A host that never destroys its instance still gets the connection
        // closed while Qt is alive, not during the process's static teardown.
        static bool rutinaRegistrada = false;
        if (!rutinaRegistrada && QCoreApplication::instance()) {
            rutinaRegistrada = true;
            qAddPostRoutine([] { ConexionCompartida.reset(); });
        }
    }
    return AbreConexion(*ConexionCompartida, cadena);
}

bool AbreConexion(Conexion& conexion, const QString& cadena) {
    if (conexion.EstaAbierta())
        conexion.Cerrar();
    try {
        conexion.Abrir(cadena);
    } catch (...) {
        // A failed open raises nothing: the state below tells the result.
    }
    return conexion.EstaAbierta();
}

void CierraConexion() {
    if (ConexionCompartida)
        ConexionCompartida->Cerrar();
    ConexionCompartida.reset();
}

QString ArchivoIni() {
    return RutaBaseDeDatos + "/VALMOR.INI";
}

QString LeeIniDe(const QString& archivo, const QString& seccion, const QString& clave) {
    QString valor = "(error)";
    QFile f(archivo);
    if (f.open(QIODevice::ReadOnly)) {
        const QByteArray contenido = f.readAll();
        // Settings files of the suite are often written in Windows-1252; take
        // UTF-8 when the bytes are valid UTF-8 and Latin-1 otherwise.
        QString texto = QString::fromUtf8(contenido);
        if (texto.contains(QChar::ReplacementCharacter))
            texto = QString::fromLatin1(contenido);
        bool enSeccion = false;
        bool hallado = false;
        for (QString linea : texto.split('\n')) {
            linea = linea.trimmed();
            if (linea.isEmpty() || linea.startsWith(';'))
                continue;
            if (linea.startsWith('[')) {
                const int fin = linea.indexOf(']');
                const QString nombre = linea.mid(1, fin < 0 ? -1 : fin - 1).trimmed();
                enSeccion = nombre.compare(seccion.trimmed(), Qt::CaseInsensitive) == 0;
                continue;
            }
            if (!enSeccion)
                continue;
            const int igual = linea.indexOf('=');
            if (igual < 0)
                continue;
            if (linea.left(igual).trimmed().compare(clave.trimmed(), Qt::CaseInsensitive) == 0) {
                valor = linea.mid(igual + 1);
                // A value wholly in quotes loses them, as the platform's
                // reader does.
                const QString t = valor.trimmed();
                if (t.size() >= 2 && ((t.startsWith('"') && t.endsWith('"')) ||
                                      (t.startsWith('\'') && t.endsWith('\''))))
                    valor = t.mid(1, t.size() - 2);
                hallado = true;
                break;
            }
        }
        if (!hallado)
            valor = "(error)";
    }
    // The platform's buffer holds 254 characters and a terminator.
    if (valor.size() > 254)
        valor.truncate(254);
    return valor.trimmed();
}

QString LeeIni(const QString& seccion, const QString& clave) {
    return LeeIniDe(ArchivoIni(), seccion, clave);
}

QString LeeDirectorioConsultas() {
    QString dir = LeeIni("VARIOS", "DIRCONSULTAS");
    if (!dir.isEmpty() && !dir.endsWith('/'))
        dir += '/';
    return dir;
}

QString FechaSQL(const QDate& fecha) {
    return Dialecto::FechaSQL(fecha, static_cast<std::uint16_t>(ManejadorBaseDatos));
}

QString FuncionLong() {
    return Dialecto::FuncionLong(ManejadorBaseDatos);
}

QString FechaMasDias(const QString& fecha, const QString& dias) {
    const Motor motor = ConexionCompartida ? ConexionCompartida->MotorActual() : Motor::Ninguno;
    return Dialecto::FechaMasDias(fecha, dias, ManejadorBaseDatos, motor);
}

QString TokenCorrida(const QTime& hora) {
    return QString("%1%2%3%4")
        .arg(hora.hour(), 2, 10, QChar('0'))
        .arg(hora.minute(), 2, 10, QChar('0'))
        .arg(hora.second(), 2, 10, QChar('0'))
        .arg(NumeroDeEmpresa);
}

QString TokenCorrida() {
    return TokenCorrida(QTime::currentTime());
}

namespace {
QMap<std::int32_t, FabricaPantalla>& Fabricas() {
    static QMap<std::int32_t, FabricaPantalla> mapa;
    return mapa;
}
} // namespace

void RegistraPantalla(std::int32_t tipo, FabricaPantalla fabrica) {
    Fabricas()[tipo] = std::move(fabrica);
}

std::unique_ptr<QDialog> CreaPantalla(std::int32_t tipo) {
    const auto it = Fabricas().constFind(tipo);
    if (it == Fabricas().constEnd() || !it.value())
        return nullptr;
    return it.value()();
}

bool AbrePantalla(std::int32_t tipo) {
    std::unique_ptr<QDialog> pantalla = CreaPantalla(tipo);
    if (!pantalla)
        return false;
    // Modal and with no owner: the host's window is not ours to know.
    pantalla->exec();
    return true;
}

} // namespace consultas::modConCompras
