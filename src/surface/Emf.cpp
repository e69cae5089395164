#include "surface/Emf.h"

#include "core/Conexion.h"

#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <tuple>

namespace consultas {

namespace {

// Record types of [MS-EMF] that the page files use.
enum TipoRegistro : std::uint32_t {
    EMR_HEADER = 1,
    EMR_EOF = 14,
    EMR_SETMAPMODE = 17,
    EMR_SETBKMODE = 18,
    EMR_SETTEXTALIGN = 22,
    EMR_SETTEXTCOLOR = 24,
    EMR_MOVETOEX = 27,
    EMR_SELECTOBJECT = 37,
    EMR_CREATEPEN = 38,
    EMR_CREATEBRUSHINDIRECT = 39,
    EMR_DELETEOBJECT = 40,
    EMR_RECTANGLE = 43,
    EMR_LINETO = 54,
    EMR_EXTCREATEFONTINDIRECTW = 82,
    EMR_EXTTEXTOUTW = 84,
};

constexpr std::uint32_t FirmaEmf = 0x464D4520; // " EMF"
constexpr std::uint32_t StockNullPen = 0x80000008;
constexpr std::uint32_t MM_TEXT = 1;
constexpr std::uint32_t TRANSPARENT = 1;
constexpr std::uint32_t TA_TOP = 0, TA_RIGHT = 2, TA_CENTER = 6;
constexpr std::uint32_t GM_COMPATIBLE = 1;
constexpr int TamanoCabecera = 108;
constexpr int TamanoLogFont = 92;
constexpr int CaracteresNombreFuente = 32;
// Lines are drawn 15 twips wide (three quarters of a point): thin on paper,
// still one pixel on the screen at 100%.
constexpr int GrosorLinea = 15;

// Handle slots: the font and the pen alternate between two slots each, so a
// new one is selected before the old one is deleted; the band brush is made
// once.
constexpr std::uint32_t SlotFuente[2] = {1, 2};
constexpr std::uint32_t SlotPluma[2] = {3, 4};
constexpr std::uint32_t SlotBrocha = 5;
constexpr std::uint32_t NumeroHandles = 6;

// The description names the program and the picture, each ended by a null,
// the whole by two.
QString DescripcionEmf() {
    return QStringLiteral("Consultas") + QChar(0) + QStringLiteral("Página") + QChar(0) + QChar(0);
}

std::uint32_t AlineaEmf(int textAlign) {
    switch (textAlign) {
    case AlineaDerecha:
        return TA_TOP | TA_RIGHT;
    case AlineaCentro:
        return TA_TOP | TA_CENTER;
    default:
        return TA_TOP;
    }
}

int AlineaDeEmf(std::uint32_t modo) {
    switch (modo & TA_CENTER) {
    case TA_CENTER:
        return AlineaCentro;
    case TA_RIGHT:
        return AlineaDerecha;
    default:
        return AlineaIzquierda;
    }
}

struct Fuente {
    int face = FuenteSans, size = 8;
    bool bold = false, italic = false;
    friend bool operator==(const Fuente&, const Fuente&) = default;
};

Fuente FuenteDe(const EstadoDibujo& e) {
    return {e.FontFace, e.FontSize, e.FontBold, e.TextEmphasis};
}

// Writes the records in place into a buffer that grows as needed: a page
// of the journal is some hundreds of records, and a long report writes
// thousands of pages.
class Escritor {
public:
    Escritor() { b_.resize(64 * 1024); }

    void U32(std::uint32_t v) { qToLittleEndian(v, Lugar(4)); }
    void I32(std::int32_t v) { U32(static_cast<std::uint32_t>(v)); }
    void U16(std::uint16_t v) { qToLittleEndian(v, Lugar(2)); }
    void F32(float f) {
        std::uint32_t v;
        std::memcpy(&v, &f, 4);
        U32(v);
    }
    void Datos(const char* d, qsizetype n) { std::memcpy(Lugar(n), d, static_cast<size_t>(n)); }
    void Registro(std::uint32_t tipo, std::uint32_t tamano) {
        U32(tipo);
        U32(tamano);
        ++registros_;
    }
    void Simple(std::uint32_t tipo, std::uint32_t valor) {
        Registro(tipo, 12);
        U32(valor);
    }
    void Rellena() {
        while (n_ % 4)
            *Lugar(1) = '\0';
    }
    // Room for n bytes at the end, to be filled by the caller.
    char* Lugar(qsizetype n) {
        if (n_ + n > b_.size())
            b_.resize(std::max(b_.size() * 2, n_ + n));
        char* p = b_.data() + n_;
        n_ += n;
        return p;
    }
    qsizetype Tamano() const { return n_; }
    std::uint32_t Registros() const { return registros_; }
    // The bytes written; the writer is spent.
    QByteArray Toma() {
        b_.truncate(n_);
        return std::move(b_);
    }

private:
    QByteArray b_;
    qsizetype n_ = 0;
    std::uint32_t registros_ = 0;
};

void EscribeCabecera(Escritor& w) {
    const QString descripcion = DescripcionEmf();
    const int bytesDescripcion = static_cast<int>(descripcion.size()) * 2;
    const int tamano = TamanoCabecera + ((bytesDescripcion + 3) / 4) * 4;
    w.Registro(EMR_HEADER, static_cast<std::uint32_t>(tamano));
    // Bounds in device units (a twip each) and frame in hundredths of a
    // millimetre: the whole Letter sheet, both inclusive.
    for (int v : {0, 0, AnchoHoja - 1, AltoHoja - 1})
        w.I32(v);
    for (int v : {0, 0, 21590, 27940})
        w.I32(v);
    w.U32(FirmaEmf);
    w.U32(0x10000);
    w.U32(0); // bytes, set at the end
    w.U32(0); // records, set at the end
    w.U16(NumeroHandles);
    w.U16(0);
    w.U32(static_cast<std::uint32_t>(descripcion.size()));
    w.U32(TamanoCabecera);
    w.U32(0);         // palette entries
    w.I32(AnchoHoja); // reference device in pixels: one per twip
    w.I32(AltoHoja);
    w.I32(216); // and in millimetres
    w.I32(279);
    w.U32(0); // no pixel format
    w.U32(0);
    w.U32(0);      // not OpenGL
    w.I32(215900); // micrometres
    w.I32(279400);
    for (QChar c : descripcion)
        w.U16(c.unicode());
    w.Rellena();
}

void EscribeFuente(Escritor& w, std::uint32_t slot, const Fuente& f) {
    w.Registro(EMR_EXTCREATEFONTINDIRECTW, 12 + TamanoLogFont);
    w.U32(slot);
    w.I32(-f.size * 20); // character height in twips (points x 20)
    w.I32(0);
    w.I32(0);
    w.I32(0);
    w.I32(f.bold ? 700 : 400);
    // italic, underline, strike-out, charset (default), out precision,
    // clip precision, quality, pitch and family
    const char bytes[8] = {char(f.italic ? 1 : 0), 0, 0, 1, 0, 0, 0, 0};
    w.Datos(bytes, 8);
    const QString nombre = NombreFuente(f.face).left(CaracteresNombreFuente - 1);
    for (int i = 0; i < CaracteresNombreFuente; ++i)
        w.U16(i < nombre.size() ? nombre.at(i).unicode() : 0);
}

void EscribePluma(Escritor& w, std::uint32_t slot, Color c) {
    w.Registro(EMR_CREATEPEN, 28);
    w.U32(slot);
    w.U32(0); // PS_SOLID
    w.I32(GrosorLinea);
    w.I32(0);
    w.U32(c.Entero());
}

// Advances of the characters of one font, in twips, kept for the life of the
// program: a page file carries the spacing of its texts because drawing
// programs refuse text records without it. The spacing only shapes the
// picture; reading a page back ignores it, so layout stays the renderer's.
class Avances {
public:
    explicit Avances(const Fuente& f) {
        if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
            return; // no font database: a plain estimate below
        QFont q(NombreFuente(f.face));
        q.setPixelSize(std::max(1, f.size * 20));
        q.setBold(f.bold);
        q.setItalic(f.italic);
        q.setHintingPreference(QFont::PreferNoHinting);
        q.setKerning(false);
        medidas_.emplace(q);
        alto_ = f.size * 20;
    }
    double De(char16_t c) {
        if (!medidas_)
            return alto_ * 0.55;
        // Reports write Latin-1 text almost always: those advances sit in a
        // table, the rest in a hash.
        if (c < latin1_.size()) {
            double& a = latin1_[c];
            if (a < 0)
                a = medidas_->horizontalAdvance(QChar(c));
            return a;
        }
        auto it = cache_.constFind(c);
        if (it == cache_.cend())
            it = cache_.insert(c, medidas_->horizontalAdvance(QChar(c)));
        return *it;
    }

private:
    std::optional<QFontMetricsF> medidas_;
    std::array<double, 256> latin1_ = MedidasPorLeer();
    QHash<char16_t, double> cache_;
    int alto_ = 160;

    static std::array<double, 256> MedidasPorLeer() {
        std::array<double, 256> a;
        a.fill(-1);
        return a;
    }
};

using TablaAvances = std::map<std::tuple<int, int, bool, bool>, Avances>;
TablaAvances& Tabla() {
    static TablaAvances tabla;
    return tabla;
}
// Font metrics must not outlive the application that owns the fonts.
void VaciaTabla() {
    Tabla().clear();
}

Avances& AvancesDe(const Fuente& f) {
    TablaAvances& tabla = Tabla();
    if (tabla.empty() && QCoreApplication::instance())
        qAddPostRoutine(VaciaTabla);
    const auto clave = std::make_tuple(f.face, f.size, f.bold, f.italic);
    auto it = tabla.find(clave);
    if (it == tabla.end())
        it = tabla.emplace(clave, Avances(f)).first;
    return it->second;
}

void EscribeTexto(Escritor& w, int x, int y, const QString& texto, Avances& avances) {
    const std::uint32_t n = static_cast<std::uint32_t>(texto.size());
    const std::uint32_t bytesTexto = ((n * 2 + 3) / 4) * 4;
    const std::uint32_t offDx = 76 + bytesTexto;
    w.Registro(EMR_EXTTEXTOUTW, offDx + n * 4);
    for (int v : {0, 0, -1, -1}) // bounds not computed
        w.I32(v);
    w.U32(GM_COMPATIBLE);
    // Twips to hundredths of a millimetre.
    w.F32(2540.0f / TwipsPorPulgada);
    w.F32(2540.0f / TwipsPorPulgada);
    w.I32(x);
    w.I32(y);
    w.U32(n);
    w.U32(76); // string right after the record's fixed part
    w.U32(0);  // no options: not opaque, not clipped
    for (int v : {0, 0, -1, -1})
        w.I32(v);
    w.U32(offDx);
    qToLittleEndian<char16_t>(texto.constData(), texto.size(), w.Lugar(2 * texto.size()));
    w.Rellena();
    // Rounded from the running sum, so the rounding does not add up along a
    // long text.
    double suma = 0;
    long anterior = 0;
    for (QChar c : texto) {
        suma += avances.De(c.unicode());
        const long hasta = std::lround(suma);
        w.I32(static_cast<std::int32_t>(hasta - anterior));
        anterior = hasta;
    }
}

} // namespace

QByteArray CodificaEmf(const Pagina& pagina) {
    Escritor w;
    EscribeCabecera(w);
    w.Simple(EMR_SETMAPMODE, MM_TEXT);
    w.Simple(EMR_SETBKMODE, TRANSPARENT);

    std::optional<Fuente> fuente;
    Avances* avances = nullptr; // of the font selected
    int slotFuente = 0;
    std::optional<Color> colorTexto;
    std::optional<std::uint32_t> alinea;
    std::optional<Color> colorPluma; // pen made, whether selected or not
    int slotPluma = 0;
    bool plumaSeleccionada = false; // ours, rather than the null pen
    bool nulaSeleccionada = false;
    bool brocha = false;

    // Everything is placed inside the margins of the sheet.
    for (const Elemento& e : pagina.elementos) {
        switch (e.tipo) {
        case TipoElemento::Texto: {
            const Fuente f = FuenteDe(e.estado);
            if (fuente != f) {
                const int nuevo = fuente ? 1 - slotFuente : 0;
                EscribeFuente(w, SlotFuente[nuevo], f);
                w.Simple(EMR_SELECTOBJECT, SlotFuente[nuevo]);
                if (fuente)
                    w.Simple(EMR_DELETEOBJECT, SlotFuente[slotFuente]);
                slotFuente = nuevo;
                fuente = f;
                avances = &AvancesDe(f);
            }
            if (colorTexto != e.estado.ForeColor) {
                w.Simple(EMR_SETTEXTCOLOR, e.estado.ForeColor.Entero());
                colorTexto = e.estado.ForeColor;
            }
            const std::uint32_t a = AlineaEmf(e.estado.TextAlign);
            if (alinea != a) {
                w.Simple(EMR_SETTEXTALIGN, a);
                alinea = a;
            }
            EscribeTexto(w, e.x + MargenHoja, e.y + MargenHoja, e.texto, *avances);
            break;
        }
        case TipoElemento::Linea: {
            const Color c = e.estado.ForeColor;
            if (colorPluma != c) {
                const int nuevo = colorPluma ? 1 - slotPluma : 0;
                EscribePluma(w, SlotPluma[nuevo], c);
                w.Simple(EMR_SELECTOBJECT, SlotPluma[nuevo]);
                if (colorPluma)
                    w.Simple(EMR_DELETEOBJECT, SlotPluma[slotPluma]);
                slotPluma = nuevo;
                colorPluma = c;
            } else if (!plumaSeleccionada) {
                w.Simple(EMR_SELECTOBJECT, SlotPluma[slotPluma]);
            }
            plumaSeleccionada = true;
            nulaSeleccionada = false;
            w.Registro(EMR_MOVETOEX, 16);
            w.I32(e.x + MargenHoja);
            w.I32(e.y + MargenHoja);
            w.Registro(EMR_LINETO, 16);
            w.I32(e.x2 + MargenHoja);
            w.I32(e.y2 + MargenHoja);
            break;
        }
        case TipoElemento::Banda: {
            if (!brocha) {
                w.Registro(EMR_CREATEBRUSHINDIRECT, 24);
                w.U32(SlotBrocha);
                w.U32(0); // BS_SOLID
                w.U32(ColorBanda.Entero());
                w.U32(0);
                w.Simple(EMR_SELECTOBJECT, SlotBrocha);
                brocha = true;
            }
            if (!nulaSeleccionada) {
                // A band has no outline.
                w.Simple(EMR_SELECTOBJECT, StockNullPen);
                nulaSeleccionada = true;
                plumaSeleccionada = false;
            }
            w.Registro(EMR_RECTANGLE, 24);
            w.I32(e.x + MargenHoja);
            w.I32(e.y + MargenHoja);
            w.I32(e.x + e.ancho + MargenHoja);
            w.I32(e.y + e.alto + MargenHoja);
            break;
        }
        }
    }

    w.Registro(EMR_EOF, 20);
    w.U32(0);
    w.U32(16);
    w.U32(20);

    const auto tamano = static_cast<std::uint32_t>(w.Tamano());
    const std::uint32_t registros = w.Registros();
    QByteArray b = w.Toma();
    qToLittleEndian(tamano, b.data() + 48);
    qToLittleEndian(registros, b.data() + 52);
    return b;
}

namespace {

class Lector {
public:
    Lector(const QByteArray& datos, const QString& origen)
        : p_(reinterpret_cast<const unsigned char*>(datos.constData())), n_(datos.size()),
          origen_(origen) {}

    [[noreturn]] void Falla(const QString& motivo) const {
        throw ErrorConsulta(
            QStringLiteral("El archivo '%1' no es una página válida: %2").arg(origen_, motivo));
    }
    std::uint32_t U32(qsizetype pos) const {
        if (pos < 0 || pos + 4 > n_)
            Falla(QStringLiteral("archivo truncado"));
        const unsigned char* q = p_ + pos;
        return std::uint32_t(q[0]) | (std::uint32_t(q[1]) << 8) | (std::uint32_t(q[2]) << 16) |
               (std::uint32_t(q[3]) << 24);
    }
    std::int32_t I32(qsizetype pos) const { return static_cast<std::int32_t>(U32(pos)); }
    std::uint16_t U16(qsizetype pos) const {
        if (pos < 0 || pos + 2 > n_)
            Falla(QStringLiteral("archivo truncado"));
        return std::uint16_t(p_[pos] | (p_[pos + 1] << 8));
    }
    std::uint8_t U8(qsizetype pos) const {
        if (pos < 0 || pos >= n_)
            Falla(QStringLiteral("archivo truncado"));
        return p_[pos];
    }
    // `n` UTF-16 code units from `pos`, which the caller has bounded.
    void Utf16(qsizetype pos, qsizetype n, QChar* destino) const {
        if (pos < 0 || pos + 2 * n > n_)
            Falla(QStringLiteral("archivo truncado"));
        qFromLittleEndian<char16_t>(p_ + pos, n, destino);
    }

private:
    const unsigned char* p_;
    qsizetype n_;
    QString origen_;
};

struct Objeto {
    enum Clase { Fuente_, Pluma, Brocha } clase;
    Fuente fuente;
    Color color;
};

} // namespace

Pagina DecodificaEmf(const QByteArray& datos, const QString& origen) {
    const Lector r(datos, origen.isEmpty() ? QStringLiteral("(memoria)") : origen);
    if (datos.size() < 88 || r.U32(0) != EMR_HEADER || r.U32(40) != FirmaEmf)
        r.Falla(QStringLiteral("no es un metarchivo mejorado (EMF)"));
    const std::uint32_t declarado = r.U32(48);
    if (declarado != static_cast<std::uint32_t>(datos.size()))
        r.Falla(QStringLiteral("archivo truncado o alterado (%1 bytes de %2)")
                    .arg(datos.size())
                    .arg(declarado));

    Pagina pagina;
    std::map<std::uint32_t, Objeto> objetos;
    std::optional<Fuente> fuente;
    Color colorTexto = ColorNegro;
    std::uint32_t alinea = TA_TOP;
    std::optional<Color> pluma; // none: the null pen
    int cx = 0, cy = 0;         // current position

    auto Objetivo = [&](std::uint32_t h) -> const Objeto& {
        const auto it = objetos.find(h);
        if (it == objetos.end())
            r.Falla(QStringLiteral("usa el objeto %1, que no existe").arg(h));
        return it->second;
    };

    qsizetype pos = 0;
    bool fin = false;
    while (!fin) {
        if (pos + 8 > datos.size())
            r.Falla(QStringLiteral("archivo truncado: falta el registro final"));
        const std::uint32_t tipo = r.U32(pos);
        const std::uint32_t tamano = r.U32(pos + 4);
        if (tamano < 8 || tamano % 4 || tamano > static_cast<std::uint64_t>(datos.size() - pos))
            r.Falla(QStringLiteral("registro de tamaño %1 en el byte %2").arg(tamano).arg(pos));
        auto Minimo = [&](std::uint32_t n) {
            if (tamano < n)
                r.Falla(QStringLiteral("registro %1 corto en el byte %2").arg(tipo).arg(pos));
        };
        const qsizetype p = pos;
        switch (tipo) {
        case EMR_HEADER:
            if (p != 0)
                r.Falla(QStringLiteral("cabecera repetida"));
            break;
        case EMR_EOF:
            fin = true;
            break;
        case EMR_SETMAPMODE:
        case EMR_SETBKMODE:
            break;
        case EMR_SETTEXTALIGN:
            Minimo(12);
            alinea = r.U32(p + 8);
            break;
        case EMR_SETTEXTCOLOR:
            Minimo(12);
            colorTexto = Color::DesdeEntero(r.U32(p + 8));
            break;
        case EMR_EXTCREATEFONTINDIRECTW: {
            Minimo(12 + TamanoLogFont);
            Objeto o{Objeto::Fuente_, {}, {}};
            const std::int32_t alto = r.I32(p + 12);
            o.fuente.size = (alto < 0 ? -alto : alto) / 20;
            o.fuente.bold = r.I32(p + 28) >= 600;
            o.fuente.italic = r.U8(p + 32) != 0;
            QString nombre;
            for (int i = 0; i < CaracteresNombreFuente; ++i) {
                const std::uint16_t c = r.U16(p + 40 + 2 * i);
                if (c == 0)
                    break;
                nombre.append(QChar(c));
            }
            o.fuente.face = FontFaceDeNombre(nombre);
            objetos[r.U32(p + 8)] = o;
            break;
        }
        case EMR_CREATEPEN:
            Minimo(28);
            objetos[r.U32(p + 8)] = Objeto{Objeto::Pluma, {}, Color::DesdeEntero(r.U32(p + 24))};
            break;
        case EMR_CREATEBRUSHINDIRECT:
            Minimo(24);
            objetos[r.U32(p + 8)] = Objeto{Objeto::Brocha, {}, Color::DesdeEntero(r.U32(p + 16))};
            break;
        case EMR_SELECTOBJECT: {
            Minimo(12);
            const std::uint32_t h = r.U32(p + 8);
            if (h == StockNullPen) {
                pluma.reset();
                break;
            }
            const Objeto& o = Objetivo(h);
            if (o.clase == Objeto::Fuente_)
                fuente = o.fuente;
            else if (o.clase == Objeto::Pluma)
                pluma = o.color;
            break;
        }
        case EMR_DELETEOBJECT:
            Minimo(12);
            objetos.erase(r.U32(p + 8));
            break;
        case EMR_MOVETOEX:
            Minimo(16);
            cx = r.I32(p + 8);
            cy = r.I32(p + 12);
            break;
        case EMR_LINETO: {
            Minimo(16);
            const int x = r.I32(p + 8), y = r.I32(p + 12);
            if (!pluma)
                r.Falla(QStringLiteral("línea sin pluma en el byte %1").arg(p));
            pagina.elementos.push_back(Elemento::Linea(cx - MargenHoja, cy - MargenHoja,
                                                       x - MargenHoja, y - MargenHoja, *pluma));
            cx = x;
            cy = y;
            break;
        }
        case EMR_RECTANGLE: {
            Minimo(24);
            const int x1 = r.I32(p + 8), y1 = r.I32(p + 12);
            const int x2 = r.I32(p + 16), y2 = r.I32(p + 20);
            pagina.elementos.push_back(
                Elemento::Banda(x1 - MargenHoja, y1 - MargenHoja, x2 - x1, y2 - y1));
            break;
        }
        case EMR_EXTTEXTOUTW: {
            Minimo(76);
            if (!fuente)
                r.Falla(QStringLiteral("texto sin fuente en el byte %1").arg(p));
            const int x = r.I32(p + 36), y = r.I32(p + 40);
            const std::uint32_t n = r.U32(p + 44);
            const std::uint32_t off = r.U32(p + 48);
            if (off < 76 || off > tamano || n > (tamano - off) / 2)
                r.Falla(QStringLiteral("texto fuera de su registro en el byte %1").arg(p));
            QString texto(static_cast<qsizetype>(n), Qt::Uninitialized);
            r.Utf16(p + off, static_cast<qsizetype>(n), texto.data());
            EstadoDibujo e;
            e.FontFace = fuente->face;
            e.FontSize = fuente->size;
            e.FontBold = fuente->bold;
            e.TextEmphasis = fuente->italic;
            e.ForeColor = colorTexto;
            e.TextAlign = AlineaDeEmf(alinea);
            pagina.elementos.push_back(Elemento::Texto(x - MargenHoja, y - MargenHoja, texto, e));
            break;
        }
        default:
            r.Falla(QStringLiteral("registro EMF de tipo %1, que estas páginas no usan").arg(tipo));
        }
        pos += tamano;
    }
    return pagina;
}

void EscribeEmf(const QString& ruta, const Pagina& pagina) {
    const QByteArray datos = CodificaEmf(pagina);
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(datos) != datos.size() ||
        !f.flush())
        throw ErrorConsulta(
            QStringLiteral("No se pudo grabar la página en '%1': %2").arg(ruta, f.errorString()));
    f.close();
}

Pagina LeeEmf(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorConsulta(
            QStringLiteral("No se pudo leer la página '%1': %2").arg(ruta, f.errorString()));
    const QByteArray datos = f.readAll();
    if (f.error() != QFileDevice::NoError)
        throw ErrorConsulta(
            QStringLiteral("No se pudo leer la página '%1': %2").arg(ruta, f.errorString()));
    return DecodificaEmf(datos, ruta);
}

} // namespace consultas
