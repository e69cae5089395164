#pragma once
// The page surface every report draws on. It records a display list: each
// drawn item keeps the drawing state in force when it was drawn, so that the
// renderers (screen, printer, PDF, PNG) and the page files reproduce it. The
// surface never measures text: right and centred texts are placed by the
// renderer from its own font metrics.
//
// Units are twips (1440 to the inch). The page is US Letter, 12240 x 15840,
// with margins of 720; (0, 0) is the top left of the printable area.

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace consultas {

// Page geometry in twips.
inline constexpr int AnchoHoja = 12240;
inline constexpr int AltoHoja = 15840;
inline constexpr int MargenHoja = 720;
inline constexpr int TwipsPorPulgada = 1440;

// A colour as red, green, blue.
struct Color {
    std::uint8_t r = 0, g = 0, b = 0;
    friend bool operator==(const Color&, const Color&) = default;

    // The packed form of the suite: red in the low byte, blue in the high
    // one (16711680 is pure blue).
    static constexpr Color DesdeEntero(std::uint32_t v) {
        return Color{std::uint8_t(v & 0xFF), std::uint8_t((v >> 8) & 0xFF),
                     std::uint8_t((v >> 16) & 0xFF)};
    }
    constexpr std::uint32_t Entero() const {
        return std::uint32_t(r) | (std::uint32_t(g) << 8) | (std::uint32_t(b) << 16);
    }
};

constexpr Color Rgb(int r, int g, int b) {
    return Color{std::uint8_t(r), std::uint8_t(g), std::uint8_t(b)};
}
inline constexpr Color ColorNegro = Rgb(0, 0, 0);
inline constexpr Color ColorAzul = Rgb(0, 0, 255);
inline constexpr Color ColorRojo = Rgb(255, 0, 0);
// The fill of FillBand: light enough for black body text to stay legible on
// it, dark enough to read as the heading band.
inline constexpr Color ColorBanda = Rgb(208, 208, 208);

// TextAlign values.
enum AlineacionTexto : int { AlineaIzquierda = 0, AlineaCentro = 1, AlineaDerecha = 2 };

// FontFace values with a typeface: 1 Liberation Serif, 2 Liberation Mono,
// 3 Liberation Sans. Any other number draws with Liberation Sans.
inline constexpr int FuenteSerif = 1;
inline constexpr int FuenteMono = 2;
inline constexpr int FuenteSans = 3;
QString NombreFuente(int fontFace);
// The FontFace of a face name (as stored in a page file); 3 for any other.
int FontFaceDeNombre(const QString& nombre);

// The drawing state: applies to everything drawn after it is set.
struct EstadoDibujo {
    Color ForeColor = ColorNegro;
    int TextAlign = AlineaIzquierda;
    bool FontBold = false;
    int FontSize = 8; // points
    int FontFace = FuenteSans;
    bool TextEmphasis = false; // drawn in italics
    friend bool operator==(const EstadoDibujo&, const EstadoDibujo&) = default;
};

enum class TipoElemento : std::uint8_t { Texto, Linea, Banda };

// One drawn item. Texts keep the whole state; a line keeps only its colour
// and a band nothing (the rest of the state is the default), so that two
// items that draw the same compare equal however they were made.
struct Elemento {
    TipoElemento tipo = TipoElemento::Texto;
    int x = 0, y = 0;        // text: anchor by TextAlign, y the top of the line;
                             // line: first end; band: top left corner
    int x2 = 0, y2 = 0;      // line: second end
    int ancho = 0, alto = 0; // band
    QString texto;
    EstadoDibujo estado;
    friend bool operator==(const Elemento&, const Elemento&) = default;

    static Elemento Texto(int x, int y, const QString& texto, const EstadoDibujo& estado);
    static Elemento Linea(int x1, int y1, int x2, int y2, Color color);
    static Elemento Banda(int x, int y, int ancho, int alto);
};

struct Pagina {
    std::vector<Elemento> elementos;
    friend bool operator==(const Pagina&, const Pagina&) = default;
};

// A finished document: its pages in order.
struct Documento {
    std::vector<Pagina> paginas;
    friend bool operator==(const Documento&, const Documento&) = default;
};

// The surface. The drawing state is public under the names the reports use
// (ForeColor, TextAlign, FontBold, FontSize, FontFace, TextEmphasis).
// Failures of the calls (a bad page number, a path that cannot be written or
// read) throw ErrorConsulta with the system's message.
class Superficie : public EstadoDibujo {
public:
    Superficie();

    // Discards what the surface holds and begins a document with one empty
    // page. The drawing state is left as it stands.
    void StartDoc();
    // Finishes the document; its pages can then be saved, shown or printed.
    void EndDoc();
    // Closes the page in hand and begins the next, empty.
    void NewPage();

    // Items go on the last page of the document. An empty text draws nothing.
    void TextOut(int x, int y, const QString& texto);
    void FillBand(int x, int y, int ancho, int alto);
    void DrawLine(int x1, int y1, int x2, int y2);

    // Push and pop the drawing state. A RestoreState with nothing pushed
    // leaves the state as it is.
    void SaveState();
    void RestoreState();

    // Writes page `pagina` (from 1) as an enhanced metafile at `ruta`,
    // replacing any file of that name.
    void SavePage(const QString& ruta, int pagina) const;
    // Lays the items of a page file on the page in hand, before whatever is
    // drawn afterwards.
    void LoadPage(const QString& ruta);

    // Redraws the view of the current page: calls AlRefrescar when set.
    void Refresh();

    int CurrentPage() const { return paginaActual_; }
    // Values outside 1..PageCount are kept within it.
    void CurrentPage(int pagina);
    int PageCount() const { return static_cast<int>(doc_.paginas.size()); }
    int Zoom() const { return zoom_; }
    void Zoom(int porcentaje);
    // 0: the document goes to the screen; 2: to the printer, at once (through
    // AlImprimir, or the default printer when none is set).
    int OutputMode() const { return modoSalida_; }
    void OutputMode(int modo);

    bool Terminado() const { return terminado_; }
    const Documento& Doc() const { return doc_; }
    // Hands the document over; the surface is left with an empty document.
    Documento TomaDocumento();

    // Hooks of the preview window that shows the surface.
    std::function<void()> AlRefrescar;
    std::function<void(const Documento&)> AlImprimir;

private:
    Pagina& PaginaEnMano();

    Documento doc_;
    std::vector<EstadoDibujo> pila_;
    int paginaActual_ = 1;
    int zoom_ = 100;
    int modoSalida_ = 0;
    bool terminado_ = false;
};

} // namespace consultas
