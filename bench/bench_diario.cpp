// Purchase journal benchmark: the Diario de Compras at Detallado level, of
// receipts, over a demo suite, driven as the batch host drives it (the real
// screen offscreen, the settings applied as a user would, F10) to a finished
// document and a PDF.
//   bench_diario SUITE [DESDE HASTA [CONEXION]]
// Dates are YYYY-MM-DD, the whole demo period 2025-01-02..2026-11-30 by
// default. CONEXION is the database when it is not SUITE/suite.db, such as
// the demo loaded into PostgreSQL; SUITE still gives the settings and the
// work folder.
// Prints the wall time of the first pass (the walk, drawing and page files),
// of the numbering pass and of the PDF; the engine's time for the statements
// of the run, from the statement log; their ratio; and the resident memory
// along the first pass, which must not grow with the page count.
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
#include <QSet>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
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

struct Bitacora {
    int sentencias = 0, renglones = 0; // all statements; those of a document's lines
    double msEjecucion = 0, msLectura = 0;
    double msRenglones = 0; // execute + fetch of the lines statements
    double msPrincipal = 0; // execute + fetch of the documents statement
    qint64 filas = 0;
    qint64 filasPrincipal = 0;
};

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
        const qint64 filas = c[2].toLongLong();
        ++b.sentencias;
        b.msEjecucion += ej;
        b.msLectura += le;
        b.filas += std::max<qint64>(filas, 0);
        if (c[3].contains("FROM tblComprasRen LEFT JOIN")) {
            ++b.renglones;
            b.msRenglones += ej + le;
        } else if (c[3].contains("SUM(IMP_ARANCEL)AS ARANCEL")) {
            b.msPrincipal += ej + le;
            b.filasPrincipal = filas;
        }
    }
    return b;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    host::PreparaProcesoQt();
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "uso: bench_diario SUITE [DESDE HASTA [CONEXION]]\n");
        return 2;
    }
    const QString suite = QDir(argv[1]).absolutePath();
    const QString desde = argc > 3 ? argv[2] : "2025-01-02";
    const QString hasta = argc > 3 ? argv[3] : "2026-11-30";
    const QString cadena = argc > 4 ? QString(argv[4]) : suite + "/suite.db";
    QTemporaryDir temporal;
    const QString rutaBitacora = temporal.filePath("bitacora.tsv");
    const QString rutaPdf = temporal.filePath("diario.pdf");

    auto guion = std::make_shared<servicios::GuionServicios>();
    servicios::ServiciosInstalados instalados(servicios::FabricasLote(guion));
    clsConsultaCompras clase;
    if (!clase.PreparaConsulta(cadena, 4, 1, QString(), suite)) {
        std::fprintf(stderr, "bench_diario: no se abrió la base %s\n", qPrintable(cadena));
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

    std::unique_ptr<QDialog> dialogo = modConCompras::CreaPantalla(ConsultasDeCompras);
    auto* pantalla = dynamic_cast<PantallaBase*>(dialogo.get());
    pantalla->show();
    // Diario de Compras, receipts, Detallado, the period asked for.
    pantalla->AplicaAjuste("cmbConsulta", std::nullopt, "0");
    pantalla->AplicaAjuste("optDoc", std::nullopt, "3");
    pantalla->AplicaAjuste("optDetRes", std::nullopt, "0");
    pantalla->AplicaAjuste("dtpFecha", 0, desde);
    pantalla->AplicaAjuste("dtpFecha", 1, hasta);

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
        std::fprintf(stderr, "bench_diario: la consulta no terminó: %s\n",
                     guion->Cuenta("MuestraError") > 0
                         ? qPrintable(guion->De("MuestraError").back().texto)
                         : "sin documento");
        return 1;
    }
    if (observador.nsNumeracion < 0) {
        std::fprintf(stderr, "bench_diario: no se vio el paso a la numeración\n");
        return 1;
    }

    const Bitacora b = LeeBitacora(rutaBitacora);
    const double sPrimera = observador.nsNumeracion / 1e9;
    const double sNumeracion = (nsDocumento - observador.nsNumeracion) / 1e9;
    const double sCorrida = nsDocumento / 1e9;
    const double sMotor = (b.msEjecucion + b.msLectura) / 1e3;

    std::printf("Diario de Compras, recepciones, detallado, %s..%s\n", qPrintable(desde),
                qPrintable(hasta));
    std::printf("páginas %d, elementos %zu; documentos %lld, renglones leídos %lld\n", paginas,
                elementos, b.filasPrincipal, b.filas - b.filasPrincipal);
    std::printf("sentencias %d (%d de renglones de un documento)\n", b.sentencias, b.renglones);
    std::printf("primera pasada:        %8.2f s\n", sPrimera);
    std::printf("pasada de numeración:  %8.2f s\n", sNumeracion);
    std::printf("corrida (las dos):     %8.2f s\n", sCorrida);
    std::printf("PDF:                   %8.2f s  (%lld KB)\n", nsPdf / 1e9,
                QFile(rutaPdf).size() / 1024);
    std::printf("total hasta el PDF:    %8.2f s\n", nsTotal / 1e9);
    std::printf("motor (bitácora):      %8.2f s  = ejecución %.2f + lectura %.2f; "
                "sentencia de documentos %.2f s, renglones %.2f s\n",
                sMotor, b.msEjecucion / 1e3, b.msLectura / 1e3, b.msPrincipal / 1e3,
                b.msRenglones / 1e3);
    std::printf("fuera del motor:       %8.2f s  (primera pasada %.2f s)\n", sCorrida - sMotor,
                sPrimera - sMotor);
    std::printf("corrida / motor:       %8.2f  (meta <= 1.5)\n", sCorrida / sMotor);

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
