#pragma once
// The two-pass page run shared by the inquiry screens and the batch host.
//
// First pass: the report draws one page at a time; every finished page is
// written to a page file and forgotten, so the surface holds one page however
// long the report. Second pass: the files are laid back on the surface in
// order, each gets "Página  : i / n" stamped on it, and is deleted.
//
// A screen owns one CorridaPaginas: it sets the heading procedure by kind and
// what to do with the finished document (show the preview, or write the batch
// outputs), and its report procedures read and write the run state below.

#include "surface/Superficie.h"

#include <QString>

#include <functional>

namespace consultas {

class CorridaPaginas {
public:
    // Per-run state, reset by every run.
    Superficie* SuperficieActual = nullptr;
    int lnLinea = 0;      // vertical cursor of the page in hand, twips
    int PaginaActual = 0; // page being drawn; at the end, the total
    QString TokenActual;  // TokenCorrida, taken once per run

    // The screen's heading procedure by kind; a kind it does not know draws
    // nothing. Called by SaltoPagina on the fresh page.
    std::function<void(int tipo)> Encabezado;
    // Receives the finished, numbered document (steps of the preview: label,
    // modal show). The run waits for it to return. Unset, the document stays
    // on the surface.
    std::function<void(Superficie& superficie)> Mostrar;
    // Busy indicator, on from the start of the run until the document is
    // handed over; a failure leaves it on. Unset, the application's override
    // cursor is used when there is a GUI application.
    std::function<void(bool ocupado)> Ocupado;

    // The run driver: resets the state, opens the surface, calls the report
    // (which finds page 1 open and lnLinea at 0, and returns leaving the last
    // page open), saves the last page, runs the numbering pass and hands the
    // document to Mostrar. A failure (a statement, an unwritable work folder,
    // a missing page file) escapes at once: the files saved so far stay.
    void EjecutarConsulta(Superficie& superficie, const std::function<void()>& reporte);

    // Closes the page in hand into its page file and opens the next one with
    // the heading of kind `tipo`.
    void SaltoPagina(int tipo);

    // DirectorioConsultas + TokenActual + "_" + pagina + ".emf".
    QString ArchivoPagina(int pagina) const;

private:
    void FijaOcupado(bool ocupado);
};

} // namespace consultas
