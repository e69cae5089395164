#pragma once
// Painting of pages over QPainter: the same code for the screen, the printer,
// PDF and PNG. Right and centred texts are placed with the metrics of the
// device painted on, so they end or centre exactly at their x.

#include "surface/Superficie.h"

#include <QImage>
#include <QPointF>
#include <QString>

class QPainter;
class QPrinter;

namespace consultas {

// Paints the items of a page. `escala` is device units per twip; `origen`
// is where the top left of the printable area (twip 0, 0) lands on the
// device. The painter's state is restored on return.
void PintaPagina(QPainter& painter, const Pagina& pagina, double escala,
                 QPointF origen = QPointF());

// Device units per twip for the screen at a zoom percent and a resolution.
double EscalaPantalla(int zoom, double dpi);
// The on-screen page: the white sheet with its items, its top left corner at
// `esquina`, at a zoom percent on a device of `dpi`.
void PintaHoja(QPainter& painter, const Pagina& pagina, int zoom, double dpi,
               QPointF esquina = QPointF());

// A page as a picture of the whole sheet at `dpi`.
QImage ImagenPagina(const Pagina& pagina, int dpi = 150);

// Every page of the document on a printer already chosen: Letter, portrait,
// margins of 720 twips.
void ImprimeDocumento(const Documento& documento, QPrinter& impresora);
// The whole document as a PDF: Letter, margins of 720 twips, fonts embedded.
// Throws ErrorConsulta when the file cannot be written.
void EscribePdf(const Documento& documento, const QString& ruta);

} // namespace consultas
