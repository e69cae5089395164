// Page run benchmark: a synthetic report of N pages (5000 by default) of 60
// items each, through the two-pass run and into a PDF.
//   bench_paginas [paginas] [carpeta]
// Prints the time per page of the first pass (draw and save), of the
// numbering pass and of the PDF, and the resident memory along the first
// pass, which must stay flat whatever the page count.

#include "core/modConCompras.h"
#include "surface/CorridaPaginas.h"
#include "surface/Renderizador.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <fstream>
#include <string>

#include "MemoriaProceso.h"

using namespace consultas;

namespace {

void Encabezado(Superficie& s, int pagina) {
    s.SaveState();
    s.ForeColor = ColorAzul;
    s.FontFace = FuenteSans;
    s.TextAlign = AlineaIzquierda;
    s.FontBold = false;
    s.FontSize = 8;
    s.TextOut(0, 0, "EMPRESA DE DEMOSTRACIÓN, S.A. DE C.V.");
    s.TextOut(0, 240, "Dirección :Av. Reforma 100, Col. Centro");
    s.TextOut(0, 480, "Teléfonos :55 5555 5555");
    s.TextOut(0, 720, "R.F.C. :DEM-010101-AAA");
    s.FillBand(6910, 240, 4700, 200);
    s.TextOut(7000, 0, "Reporte :Diario de Compras");
    s.TextEmphasis = true;
    s.TextOut(7000, 240, QString("Sucursal %1").arg(pagina % 7));
    s.TextEmphasis = false;
    s.TextOut(7000, 480, "Fecha   :23/nov/2026");
    s.DrawLine(0, 960, 10500, 960);
    s.RestoreState();
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const int paginas = argc > 1 ? std::atoi(argv[1]) : 5000;
    QTemporaryDir temporal;
    modConCompras::DirectorioConsultas = (argc > 2 ? QString(argv[2]) : temporal.path()) + "/";

    Superficie superficie;
    CorridaPaginas corrida;
    corrida.Ocupado = [](bool) {};
    corrida.Encabezado = [&](int) { Encabezado(superficie, corrida.PaginaActual); };

    QElapsedTimer reloj;
    qint64 nsPrimera = 0, nsNumeracion = 0;
    long rssMin = -1, rssMax = -1;
    const long rssInicio = MemoriaKb("VmRSS:");

    const auto reporte = [&] {
        Encabezado(superficie, 1);
        corrida.lnLinea = 1200;
        for (int p = 1; p <= paginas; ++p) {
            // 50 body items: 25 rows of a name and a right-aligned amount.
            for (int fila = 0; fila < 25; ++fila) {
                superficie.ForeColor = fila % 9 ? ColorNegro : ColorRojo;
                superficie.TextOut(0, corrida.lnLinea,
                                   QString("Proveedor %1-%2 con ñandú").arg(p).arg(fila));
                superficie.TextAlign = AlineaDerecha;
                superficie.TextOut(10400, corrida.lnLinea,
                                   QString::number(p * 1000 + fila * 37.25, 'f', 2));
                superficie.TextAlign = AlineaIzquierda;
                corrida.lnLinea += 240;
            }
            if (p % 250 == 0) {
                const long rss = MemoriaKb("VmRSS:");
                rssMin = rssMin < 0 ? rss : std::min(rssMin, rss);
                rssMax = std::max(rssMax, rss);
            }
            if (p < paginas) {
                corrida.SaltoPagina(1);
                corrida.lnLinea = 1200;
            }
        }
        nsPrimera = reloj.nsecsElapsed();
    };
    Documento documento;
    corrida.Mostrar = [&](Superficie& s) {
        nsNumeracion = reloj.nsecsElapsed() - nsPrimera;
        documento = s.TomaDocumento();
    };

    reloj.start();
    corrida.EjecutarConsulta(superficie, reporte);
    const long rssDocumento = MemoriaKb("VmRSS:");

    QElapsedTimer relojPdf;
    relojPdf.start();
    const QString pdf = temporal.filePath("bench.pdf");
    EscribePdf(documento, pdf);
    const qint64 nsPdf = relojPdf.nsecsElapsed();

    size_t elementos = 0;
    for (const Pagina& p : documento.paginas)
        elementos += p.elementos.size();
    const double n = paginas;
    std::printf("páginas %d, elementos %zu (%.1f por página)\n", paginas, elementos, elementos / n);
    std::printf("primera pasada (dibujo + grabación): %8.3f ms/página  (%.2f s)\n",
                nsPrimera / 1e6 / n, nsPrimera / 1e9);
    std::printf("pasada de numeración:                %8.3f ms/página  (%.2f s)\n",
                nsNumeracion / 1e6 / n, nsNumeracion / 1e9);
    std::printf("primera + numeración:                %8.3f ms/página\n",
                (nsPrimera + nsNumeracion) / 1e6 / n);
    std::printf("PDF:                                 %8.3f ms/página  (%.2f s, %lld KB)\n",
                nsPdf / 1e6 / n, nsPdf / 1e9, QFile(pdf).size() / 1024);
    std::printf("memoria residente: inicio %ld KB; primera pasada entre %ld y %ld KB; "
                "documento completo %ld KB; pico %ld KB\n",
                rssInicio, rssMin, rssMax, rssDocumento, MemoriaKb("VmHWM:"));
    return 0;
}
