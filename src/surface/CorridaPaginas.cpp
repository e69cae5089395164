#include "surface/CorridaPaginas.h"

#include "core/Conexion.h"
#include "core/modConCompras.h"

#include <QCursor>
#include <QFile>
#include <QGuiApplication>

namespace consultas {

QString CorridaPaginas::ArchivoPagina(int pagina) const {
    return modConCompras::DirectorioConsultas + TokenActual + QLatin1Char('_') +
           QString::number(pagina) + QStringLiteral(".emf");
}

void CorridaPaginas::FijaOcupado(bool ocupado) {
    if (Ocupado) {
        Ocupado(ocupado);
        return;
    }
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    if (ocupado)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void CorridaPaginas::SaltoPagina(int tipo) {
    Superficie& s = *SuperficieActual;
    lnLinea = 0;
    s.EndDoc();
    s.SavePage(ArchivoPagina(PaginaActual), 1);
    s.OutputMode(0);
    ++PaginaActual;
    s.StartDoc();
    if (Encabezado)
        Encabezado(tipo);
}

void CorridaPaginas::EjecutarConsulta(Superficie& superficie,
                                      const std::function<void()>& reporte) {
    FijaOcupado(true);
    lnLinea = 0;
    SuperficieActual = &superficie;
    Superficie& s = superficie;
    s.StartDoc();
    PaginaActual = 1;
    TokenActual = modConCompras::TokenCorrida();

    // First pass: the report draws and breaks its pages; each finished page
    // goes to its file.
    if (reporte)
        reporte();
    s.EndDoc();
    s.SavePage(ArchivoPagina(PaginaActual), 1);
    s.OutputMode(0);

    // Second pass: every page back from its file, numbered now that the
    // total is known. The stamp's state is set here so that whatever the
    // report left does not show in it.
    s.StartDoc();
    s.ForeColor = ColorAzul;
    s.FontFace = FuenteSans;
    s.TextAlign = AlineaIzquierda;
    s.FontBold = false;
    s.FontSize = 8;
    s.TextEmphasis = false; // only ever on while a heading band's title is drawn
    const QString total = QString::number(PaginaActual);
    for (int i = 1; i <= PaginaActual; ++i) {
        const QString archivo = ArchivoPagina(i);
        s.LoadPage(archivo);
        s.TextOut(7000, 720,
                  QStringLiteral("Página  : ") + QString::number(i) + QStringLiteral(" / ") +
                      total);
        QFile::remove(archivo);
        if (i < PaginaActual)
            s.NewPage();
    }
    s.EndDoc();
    s.OutputMode(0);
    s.CurrentPage(1);
    s.Refresh();

    FijaOcupado(false);
    if (Mostrar)
        Mostrar(s);
    SuperficieActual = nullptr;
}

} // namespace consultas
