#include "surface/Superficie.h"

#include "core/Conexion.h"
#include "surface/Emf.h"
#include "surface/Renderizador.h"

#include <QPrinter>

#include <algorithm>

namespace consultas {

QString NombreFuente(int fontFace) {
    switch (fontFace) {
    case FuenteSerif:
        return QStringLiteral("Liberation Serif");
    case FuenteMono:
        return QStringLiteral("Liberation Mono");
    default:
        return QStringLiteral("Liberation Sans");
    }
}

int FontFaceDeNombre(const QString& nombre) {
    if (nombre.compare(QLatin1String("Liberation Serif"), Qt::CaseInsensitive) == 0)
        return FuenteSerif;
    if (nombre.compare(QLatin1String("Liberation Mono"), Qt::CaseInsensitive) == 0)
        return FuenteMono;
    return FuenteSans;
}

Elemento Elemento::Texto(int x, int y, const QString& texto, const EstadoDibujo& estado) {
    Elemento e;
    e.tipo = TipoElemento::Texto;
    e.x = x;
    e.y = y;
    e.texto = texto;
    e.estado = estado;
    return e;
}

Elemento Elemento::Linea(int x1, int y1, int x2, int y2, Color color) {
    Elemento e;
    e.tipo = TipoElemento::Linea;
    e.x = x1;
    e.y = y1;
    e.x2 = x2;
    e.y2 = y2;
    e.estado.ForeColor = color;
    return e;
}

Elemento Elemento::Banda(int x, int y, int ancho, int alto) {
    Elemento e;
    e.tipo = TipoElemento::Banda;
    e.x = x;
    e.y = y;
    e.ancho = ancho;
    e.alto = alto;
    return e;
}

Superficie::Superficie() {
    StartDoc();
}

void Superficie::StartDoc() {
    doc_.paginas.clear();
    doc_.paginas.emplace_back();
    paginaActual_ = 1;
    terminado_ = false;
}

void Superficie::EndDoc() {
    terminado_ = true;
}

void Superficie::NewPage() {
    doc_.paginas.emplace_back();
}

Pagina& Superficie::PaginaEnMano() {
    // A surface whose document was handed over draws on a fresh one.
    if (doc_.paginas.empty())
        StartDoc();
    return doc_.paginas.back();
}

void Superficie::TextOut(int x, int y, const QString& texto) {
    if (texto.isEmpty())
        return;
    PaginaEnMano().elementos.push_back(Elemento::Texto(x, y, texto, *this));
}

void Superficie::FillBand(int x, int y, int ancho, int alto) {
    PaginaEnMano().elementos.push_back(Elemento::Banda(x, y, ancho, alto));
}

void Superficie::DrawLine(int x1, int y1, int x2, int y2) {
    PaginaEnMano().elementos.push_back(Elemento::Linea(x1, y1, x2, y2, ForeColor));
}

void Superficie::SaveState() {
    pila_.push_back(*this);
}

void Superficie::RestoreState() {
    if (pila_.empty())
        return;
    static_cast<EstadoDibujo&>(*this) = pila_.back();
    pila_.pop_back();
}

void Superficie::SavePage(const QString& ruta, int pagina) const {
    if (pagina < 1 || pagina > PageCount())
        throw ErrorConsulta(QStringLiteral("No se puede grabar la página %1 de un documento de %2 "
                                           "páginas en '%3'")
                                .arg(pagina)
                                .arg(PageCount())
                                .arg(ruta));
    EscribeEmf(ruta, doc_.paginas[static_cast<size_t>(pagina - 1)]);
}

void Superficie::LoadPage(const QString& ruta) {
    Pagina leida = LeeEmf(ruta);
    auto& destino = PaginaEnMano().elementos;
    if (destino.empty())
        destino = std::move(leida.elementos);
    else
        destino.insert(destino.end(), std::make_move_iterator(leida.elementos.begin()),
                       std::make_move_iterator(leida.elementos.end()));
}

void Superficie::Refresh() {
    if (AlRefrescar)
        AlRefrescar();
}

void Superficie::CurrentPage(int pagina) {
    paginaActual_ = std::clamp(pagina, 1, std::max(1, PageCount()));
}

void Superficie::Zoom(int porcentaje) {
    if (porcentaje > 0)
        zoom_ = porcentaje;
}

void Superficie::OutputMode(int modo) {
    modoSalida_ = modo;
    if (modo != 2)
        return;
    if (AlImprimir) {
        AlImprimir(doc_);
        return;
    }
    QPrinter impresora(QPrinter::HighResolution);
    ImprimeDocumento(doc_, impresora);
}

Documento Superficie::TomaDocumento() {
    Documento d = std::move(doc_);
    doc_.paginas.clear();
    paginaActual_ = 1;
    return d;
}

} // namespace consultas
