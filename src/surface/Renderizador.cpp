#include "surface/Renderizador.h"

#include "core/Conexion.h"

#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

#include <cmath>
#include <optional>

namespace consultas {

namespace {

// Lines are three quarters of a point wide, as in the page files.
constexpr double GrosorLinea = 15.0;

QColor ColorQt(Color c) {
    return QColor(c.r, c.g, c.b);
}

QPageLayout DisposicionCarta() {
    const double margen = double(MargenHoja) / TwipsPorPulgada;
    return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                       QMarginsF(margen, margen, margen, margen), QPageLayout::Inch);
}

// The font of a text item, in twips: the painter works in twips, so a size
// in points is 20 units per point. Hinting is off so that widths measured
// here are the widths the printer and the PDF lay out.
QFont FuenteQt(const EstadoDibujo& e) {
    QFont f(NombreFuente(e.FontFace));
    f.setPixelSize(std::max(1, e.FontSize * 20));
    f.setBold(e.FontBold);
    f.setItalic(e.TextEmphasis);
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setKerning(false);
    return f;
}

struct ClaveFuente {
    int face, size;
    bool bold, italic;
    friend bool operator==(const ClaveFuente&, const ClaveFuente&) = default;
};

} // namespace

void PintaPagina(QPainter& painter, const Pagina& pagina, double escala, QPointF origen) {
    painter.save();
    painter.translate(origen);
    painter.scale(escala, escala);

    std::optional<ClaveFuente> clave;
    std::optional<QFontMetricsF> medidas;
    QColor colorActual;
    bool hayColor = false;

    for (const Elemento& e : pagina.elementos) {
        switch (e.tipo) {
        case TipoElemento::Texto: {
            const ClaveFuente k{e.estado.FontFace, e.estado.FontSize, e.estado.FontBold,
                                e.estado.TextEmphasis};
            if (clave != k) {
                const QFont f = FuenteQt(e.estado);
                painter.setFont(f);
                medidas.emplace(painter.font(), painter.device());
                clave = k;
            }
            const QColor c = ColorQt(e.estado.ForeColor);
            if (!hayColor || c != colorActual) {
                painter.setPen(c);
                colorActual = c;
                hayColor = true;
            }
            double x = e.x;
            if (e.estado.TextAlign == AlineaDerecha)
                x -= medidas->horizontalAdvance(e.texto);
            else if (e.estado.TextAlign == AlineaCentro)
                x -= medidas->horizontalAdvance(e.texto) / 2.0;
            painter.drawText(QPointF(x, e.y + medidas->ascent()), e.texto);
            break;
        }
        case TipoElemento::Linea: {
            QPen pluma(ColorQt(e.estado.ForeColor), GrosorLinea, Qt::SolidLine, Qt::FlatCap);
            painter.setPen(pluma);
            hayColor = false;
            painter.drawLine(QPointF(e.x, e.y), QPointF(e.x2, e.y2));
            break;
        }
        case TipoElemento::Banda:
            painter.fillRect(QRectF(e.x, e.y, e.ancho, e.alto), ColorQt(ColorBanda));
            break;
        }
    }
    painter.restore();
}

double EscalaPantalla(int zoom, double dpi) {
    return dpi / TwipsPorPulgada * zoom / 100.0;
}

void PintaHoja(QPainter& painter, const Pagina& pagina, int zoom, double dpi, QPointF esquina) {
    const double escala = EscalaPantalla(zoom, dpi);
    painter.fillRect(QRectF(esquina, QSizeF(AnchoHoja * escala, AltoHoja * escala)), Qt::white);
    PintaPagina(painter, pagina, escala,
                esquina + QPointF(MargenHoja * escala, MargenHoja * escala));
}

QImage ImagenPagina(const Pagina& pagina, int dpi) {
    const double escala = double(dpi) / TwipsPorPulgada;
    QImage imagen(int(std::ceil(AnchoHoja * escala)), int(std::ceil(AltoHoja * escala)),
                  QImage::Format_RGB32);
    const int puntosPorMetro = int(std::lround(dpi / 0.0254));
    imagen.setDotsPerMeterX(puntosPorMetro);
    imagen.setDotsPerMeterY(puntosPorMetro);
    imagen.fill(Qt::white);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    PintaPagina(p, pagina, escala, QPointF(MargenHoja * escala, MargenHoja * escala));
    return imagen;
}

namespace {

// Printer and PDF alike: the painter's origin is the top left of the area
// inside the margins, which is the surface's origin.
void PintaDocumento(const Documento& documento, QPagedPaintDevice& dispositivo,
                    const QString& destino) {
    QPainter p;
    if (!p.begin(&dispositivo))
        throw ErrorConsulta(QStringLiteral("No se pudo comenzar a imprimir en '%1'").arg(destino));
    const double escala = double(dispositivo.logicalDpiX()) / TwipsPorPulgada;
    bool primera = true;
    for (const Pagina& pagina : documento.paginas) {
        if (!primera)
            dispositivo.newPage();
        primera = false;
        PintaPagina(p, pagina, escala);
    }
    p.end();
}

} // namespace

void ImprimeDocumento(const Documento& documento, QPrinter& impresora) {
    impresora.setFullPage(false);
    impresora.setPageLayout(DisposicionCarta());
    PintaDocumento(documento, impresora, impresora.printerName());
}

void EscribePdf(const Documento& documento, const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw ErrorConsulta(
            QStringLiteral("No se pudo grabar el PDF '%1': %2").arg(ruta, archivo.errorString()));
    {
        QPdfWriter pdf(&archivo);
        // One device unit to the twip.
        pdf.setResolution(TwipsPorPulgada);
        pdf.setPageLayout(DisposicionCarta());
        pdf.setCreator(QStringLiteral("Consultas"));
        PintaDocumento(documento, pdf, ruta);
    }
    if (archivo.error() != QFileDevice::NoError || !archivo.flush())
        throw ErrorConsulta(
            QStringLiteral("No se pudo grabar el PDF '%1': %2").arg(ruta, archivo.errorString()));
}

} // namespace consultas
