// Benchmark of one inquiry, driven as the batch host drives it (the real
// screen offscreen, the settings applied as a user would, F10) to a finished
// document and a PDF.
//   bench_consulta SUITE [--conexion CS] --pantalla P [CONTROL=VALOR ...]
// SUITE gives the settings file and the work folder; the database is
// SUITE/suite.db unless --conexion names another, such as the demo loaded
// into PostgreSQL. Settings are those of `consultas ejecutar`.
// Prints the wall time of the first pass (the walk, drawing and page files),
// of the numbering pass and of the PDF; the engine's time for the statements
// of the run, from the statement log, with the statements that took most of
// it; the ratio of the run to the engine; and the resident memory along the
// first pass, which must not grow with the page count.
//
// The run's passes are seen from outside, as the page files come and go: the
// first pass leaves one file per finished page in the work folder, and the
// numbering pass deletes page 1 first. A sampling thread watches for that,
// and reads the resident memory at the same time.

#include "core/clsConsultaCompras.h"
#include "core/modConCompras.h"
#include "services/PantallaBase.h"
#include "services/Servicios.h"
#include "surface/SalidaLote.h"
#include "surface/VistaPrevia.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "MemoriaProceso.h"
#include "OpcionesHost.h"

using namespace consultas;

namespace {

struct Muestra {
    qint64 ns;
    int paginas; // pages saved so far in the first pass
    long rssKb;
};

// Samples resident memory every 10 ms and follows the page files of the run
// in the work folder. Files there before the run are not the run's.
class Observador {
public:
    Observador(QString carpeta, const QElapsedTimer& reloj)
        : carpeta_(std::move(carpeta)), reloj_(reloj) {
        const QStringList previos = QDir(carpeta_).entryList(QStringList{"*_1.emf"}, QDir::Files);
        previos_ = QSet<QString>(previos.begin(), previos.end());
        hilo_ = std::thread([this] { Corre(); });
    }
    ~Observador() { Termina(); }

    void Termina() {
        fin_ = true;
        if (hilo_.joinable())
            hilo_.join();
    }

    // Only read after Termina.
    std::vector<Muestra> muestras;
    qint64 nsNumeracion = -1; // when page 1 went: the numbering pass began
    long hwmPrimeraKb = -1;   // peak resident memory read at that moment

private:
    void Corre() {
        QString prefijo; // work folder + token + "_"
        int paginas = 0;
        while (!fin_) {
            const long rss = MemoriaKb("VmRSS:");
            if (prefijo.isEmpty()) {
                for (const QString& n :
                     QDir(carpeta_).entryList(QStringList{"*_1.emf"}, QDir::Files))
                    if (!previos_.contains(n))
                        prefijo = carpeta_ + n.chopped(5);
            }
            if (!prefijo.isEmpty() && nsNumeracion < 0) {
                while (QFile::exists(prefijo + QString::number(paginas + 1) + ".emf"))
                    ++paginas;
                if (!QFile::exists(prefijo + "1.emf")) {
                    nsNumeracion = reloj_.nsecsElapsed();
                    hwmPrimeraKb = MemoriaKb("VmHWM:");
                }
            }
            if (nsNumeracion < 0)
                muestras.push_back({reloj_.nsecsElapsed(), paginas, rss});
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }

    QString carpeta_;
    const QElapsedTimer& reloj_;
    QSet<QString> previos_;
    std::atomic<bool> fin_{false};
    std::thread hilo_;
};

// The statement log of the run, summed, and by shape: a statement with its
// quoted texts and numbers taken out, so that the per-document statements of
// a walk add up under one line.
struct Forma {
    int veces = 0;
    double ms = 0;
    qint64 filas = 0;
};
struct Bitacora {
    int sentencias = 0;
    double msEjecucion = 0, msLectura = 0;
    qint64 filas = 0;
    std::map<QString, Forma> formas;
};

QString FormaDe(const QByteArray& sentencia) {
    static const QRegularExpression textos("'[^']*'"), numeros(R"(\b\d+(\.\d+)?\b)");
    QString f = QString::fromUtf8(sentencia).trimmed();
    f.replace(textos, "?");
    f.replace(numeros, "#");
    return f;
}

Bitacora LeeBitacora(const QString& ruta) {
    Bitacora b;
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        return b;
    while (!f.atEnd()) {
        const QByteArray linea = f.readLine();
        const QList<QByteArray> c = linea.split('\t');
        if (c.size() < 4)
            continue;
        const double ej = c[0].toDouble(), le = c[1].toDouble();
        const qint64 filas = std::max<qint64>(c[2].toLongLong(), 0);
        ++b.sentencias;
        b.msEjecucion += ej;
        b.msLectura += le;
        b.filas += filas;
        Forma& forma = b.formas[FormaDe(c[3])];
        ++forma.veces;
        forma.ms += ej + le;
        forma.filas += filas;
    }
    return b;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    host::PreparaProcesoQt();
    QApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty() || args[0].startsWith("--")) {
        std::fprintf(
            stderr, "uso: bench_consulta SUITE [--conexion CS] --pantalla P [CONTROL=VALOR ...]\n");
        return 2;
    }
    const QString suite = QDir(args.takeFirst()).absolutePath();
    if (!args.contains("--conexion"))
        args << "--conexion" << suite + "/suite.db";
    host::OpcionesHost o;
    try {
        o = host::LeeOpciones(args, true);
    } catch (const host::ErrorUso& e) {
        std::fprintf(stderr, "bench_consulta: %s\n", qPrintable(e.mensaje));
        return 2;
    }
    const QString cadena = o.conexion;
    QTemporaryDir temporal;
    const QString rutaBitacora = temporal.filePath("bitacora.tsv");
    const QString rutaPdf = temporal.filePath("consulta.pdf");

    auto guion = std::make_shared<servicios::GuionServicios>();
    servicios::ServiciosInstalados instalados(servicios::FabricasLote(guion));
    clsConsultaCompras clase;
    if (!clase.PreparaConsulta(cadena, 4, 1, QString(), suite)) {
        std::fprintf(stderr, "bench_consulta: no se abrió la base %s\n", qPrintable(cadena));
        return 1;
    }

    QElapsedTimer reloj;
    qint64 nsDocumento = 0, nsPdf = 0;
    long rssDocumento = 0;
    size_t elementos = 0;
    int paginas = 0;
    vista::MostrarDocumento() = [&](Superficie& s) {
        nsDocumento = reloj.nsecsElapsed();
        rssDocumento = MemoriaKb("VmRSS:");
        paginas = s.PageCount();
        for (const Pagina& p : s.Doc().paginas)
            elementos += p.elementos.size();
        QElapsedTimer relojPdf;
        relojPdf.start();
        OpcionesSalida salidas;
        salidas.pdf = rutaPdf;
        EscribeSalidas(s.Doc(), salidas);
        nsPdf = relojPdf.nsecsElapsed();
    };

    std::unique_ptr<QDialog> dialogo;
    PantallaBase* pantalla = nullptr;
    try {
        dialogo = modConCompras::CreaPantalla(host::TipoDePantalla(o.pantalla));
        pantalla = dynamic_cast<PantallaBase*>(dialogo.get());
        if (!pantalla)
            throw host::ErrorUso("la pantalla '" + o.pantalla + "' no está disponible");
        pantalla->show();
        for (const host::Ajuste& a : o.ajustes)
            pantalla->AplicaAjuste(a.control, a.indice, a.valor);
    } catch (const host::ErrorUso& e) {
        std::fprintf(stderr, "bench_consulta: %s\n", qPrintable(e.mensaje));
        return 2;
    } catch (const ErrorAjuste& e) {
        std::fprintf(stderr, "bench_consulta: %s\n", qPrintable(e.mensaje));
        return 2;
    }

    // Only the run's own statements go to the log, not the screen's lists.
    Conexion::FijaBitacora(rutaBitacora);
    const long rssInicio = MemoriaKb("VmRSS:");
    reloj.start();
    Observador observador(modConCompras::DirectorioConsultas, reloj);
    pantalla->Consultar();
    const qint64 nsTotal = reloj.nsecsElapsed();
    observador.Termina();
    Conexion::FijaBitacora(QString());
    pantalla->close();

    if (guion->Cuenta("MuestraError") > 0 || paginas == 0) {
        const auto mensajes = guion->De("Mensaje");
        std::fprintf(stderr, "bench_consulta: la consulta no terminó: %s\n",
                     guion->Cuenta("MuestraError") > 0
                         ? qPrintable(guion->De("MuestraError").back().texto)
                     : !mensajes.empty() ? qPrintable(mensajes.back().texto)
                                         : "sin documento");
        return 1;
    }

    const Bitacora b = LeeBitacora(rutaBitacora);
    // A run of a single page deletes its page file before the watcher sees
    // it; the whole run then counts as the first pass.
    const qint64 nsPrimera = observador.nsNumeracion < 0 ? nsDocumento : observador.nsNumeracion;
    const double sPrimera = nsPrimera / 1e9;
    const double sNumeracion = (nsDocumento - nsPrimera) / 1e9;
    const double sCorrida = nsDocumento / 1e9;
    const double sMotor = (b.msEjecucion + b.msLectura) / 1e3;

    std::printf("%s:", qPrintable(o.pantalla));
    for (const host::Ajuste& a : o.ajustes)
        std::printf(" %s", qPrintable(a.textoOriginal));
    std::printf("\npáginas %d, elementos %zu; filas leídas %lld\n", paginas, elementos, b.filas);
    std::printf("sentencias %d\n", b.sentencias);
    std::printf("primera pasada:        %8.2f s\n", sPrimera);
    std::printf("pasada de numeración:  %8.2f s\n", sNumeracion);
    std::printf("corrida (las dos):     %8.2f s\n", sCorrida);
    std::printf("PDF:                   %8.2f s  (%lld KB)\n", nsPdf / 1e9,
                QFile(rutaPdf).size() / 1024);
    std::printf("total hasta el PDF:    %8.2f s\n", nsTotal / 1e9);
    std::printf("motor (bitácora):      %8.2f s  = ejecución %.2f + lectura %.2f\n", sMotor,
                b.msEjecucion / 1e3, b.msLectura / 1e3);
    // The shapes that took most of the engine's time.
    std::vector<std::pair<QString, Forma>> formas(b.formas.begin(), b.formas.end());
    std::sort(formas.begin(), formas.end(),
              [](const auto& x, const auto& y) { return x.second.ms > y.second.ms; });
    for (size_t i = 0; i < std::min<size_t>(3, formas.size()); ++i)
        std::printf("  %8.2f s  %6d veces  %9lld filas  %s\n", formas[i].second.ms / 1e3,
                    formas[i].second.veces, formas[i].second.filas,
                    qPrintable(formas[i].first.left(90)));
    std::printf("fuera del motor:       %8.2f s  (primera pasada %.2f s)\n", sCorrida - sMotor,
                sPrimera - sMotor);
    std::printf("corrida / motor:       %8.2f\n", sMotor > 0 ? sCorrida / sMotor : 0.0);

    // Resident memory along the first pass, at each fifth of its pages.
    const auto& m = observador.muestras;
    long rssMin = -1, rssMax = -1;
    for (const Muestra& x : m) {
        rssMin = rssMin < 0 ? x.rssKb : std::min(rssMin, x.rssKb);
        rssMax = std::max(rssMax, x.rssKb);
    }
    const int paginasPrimera = m.empty() ? 0 : m.back().paginas;
    std::printf("memoria residente: inicio %ld KB; primera pasada entre %ld y %ld KB, pico %ld KB; "
                "documento completo %ld KB; pico final %ld KB\n",
                rssInicio, rssMin, rssMax, observador.hwmPrimeraKb, rssDocumento,
                MemoriaKb("VmHWM:"));
    std::printf("memoria en la primera pasada por páginas grabadas:");
    for (int quinto = 1; quinto <= 5; ++quinto) {
        const int objetivo = paginasPrimera * quinto / 5;
        for (const Muestra& x : m)
            if (x.paginas >= objetivo) {
                std::printf("  %d: %ld KB", x.paginas, x.rssKb);
                break;
            }
    }
    std::printf("\n");
    return 0;
}
