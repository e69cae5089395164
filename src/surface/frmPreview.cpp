#include "surface/frmPreview.h"

#include "core/Conexion.h"
#include "core/modConCompras.h"
#include "services/PantallaBase.h"
#include "services/Servicios.h"
#include "services/ServiciosQt.h"
#include "surface/Renderizador.h"
#include "surface/VistaPrevia.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPageRanges>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <cmath>

namespace consultas {

namespace {

struct ValorZoom {
    const char* texto;
    int zoom;
};
constexpr std::array<ValorZoom, 9> kZoom{{{"30%", 30},
                                          {"50%", 50},
                                          {"70%", 70},
                                          {"80%", 80},
                                          {"90%", 90},
                                          {"100%", 100},
                                          {"130%", 130},
                                          {"150%", 150},
                                          {"200%", 200}}};
constexpr int kZoomInicial = 5;

const std::array<const char*, 7> kCaptions{"IMPRIMIR [ALT+P]",
                                           "PRIMERA PÁGINA [INI]",
                                           "PÁGINA ANTERIOR [RE PÁG]",
                                           "PÁGINA SIGUIENTE [AV PÁG]",
                                           "ÚLTIMA PÁGINA [FIN]",
                                           "GRABAR EN FORMATO EMF [F10]",
                                           "SALIR [ESC]"};

// The desk the sheet lies on, and the shadow the sheet casts on it.
const QColor kColorMesa(128, 128, 128);
const QColor kColorSombra(64, 64, 64);

// The busy pointer is one state of the application, as the suite's pointer
// was: setting it twice needs one reset, and a reset clears it whatever was
// left on before (such as by a failed save).
void PunteroOcupado(bool ocupado) {
    if (ocupado && !QApplication::overrideCursor())
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!ocupado && QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

} // namespace

// The page on show, as a sheet of paper on the desk: white, with a shadow and
// a border of desk around it, at the surface's zoom. Its size is the sheet's,
// so the scroll area around it scrolls when the sheet is larger than the
// window.
class HojaPantalla : public QWidget {
public:
    static constexpr int Borde = 16;
    static constexpr int Sombra = 5;

    HojaPantalla(const Superficie& superficie, QWidget* padre)
        : QWidget(padre), superficie_(superficie) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    QSizeF TamanoHoja() const {
        const double escala = EscalaPantalla(superficie_.Zoom(), logicalDpiX());
        return QSizeF(AnchoHoja * escala, AltoHoja * escala);
    }

    QSize sizeHint() const override {
        const QSizeF hoja = TamanoHoja();
        return QSize(int(std::ceil(hoja.width())) + 2 * Borde + Sombra,
                     int(std::ceil(hoja.height())) + 2 * Borde + Sombra);
    }

    void Actualiza() {
        resize(sizeHint());
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), kColorMesa);
        const QSizeF hoja = TamanoHoja();
        p.fillRect(QRectF(QPointF(Borde + Sombra, Borde + Sombra), hoja), kColorSombra);
        p.setRenderHint(QPainter::Antialiasing);
        p.setRenderHint(QPainter::TextAntialiasing);
        static const Pagina vacia;
        const int actual = superficie_.CurrentPage();
        const Pagina& pagina = actual >= 1 && actual <= superficie_.PageCount()
                                   ? superficie_.Doc().paginas[size_t(actual - 1)]
                                   : vacia;
        // Bands may run past the edge of the paper; the paper cuts them.
        p.setClipRect(QRectF(QPointF(Borde, Borde), hoja));
        PintaHoja(p, pagina, superficie_.Zoom(), logicalDpiX(), QPointF(Borde, Borde));
    }

private:
    const Superficie& superficie_;
};

frmPreview::frmPreview(Superficie& superficie, QWidget* padre)
    : QDialog(padre), superficie_(superficie) {
    setObjectName("frmPreview");
    setWindowTitle(QStringLiteral("VISTA PRELIMINAR"));
    setModal(true);
    PintaFondo(this, ColorPanel());

    // The controls sit in a strip across the top; the page view takes the
    // rest of the window by the resize rule.
    fmeControles_ = new QWidget(this);
    auto* etiquetaPagina = new QLabel(QStringLiteral("Página"), fmeControles_);
    etiquetaPagina->setObjectName("lblEtiqueta[0]");
    auto* etiquetaZoom = new QLabel(QStringLiteral("Zoom"), fmeControles_);
    etiquetaZoom->setObjectName("lblEtiqueta[1]");
    lblPagina_ = new QLabel(fmeControles_);
    lblPagina_->setObjectName("lblPagina");
    lblPagina_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000/0000")));
    lblPagina_->setFrameShape(QFrame::Panel);
    lblPagina_->setFrameShadow(QFrame::Sunken);
    lblPagina_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    cmbZoom_ = new QComboBox(fmeControles_);
    cmbZoom_->setObjectName("cmbZoom");
    for (const ValorZoom& z : kZoom)
        cmbZoom_->addItem(QString::fromUtf8(z.texto), z.zoom);

    lblPagina_->setFixedHeight(cmbZoom_->sizeHint().height());
    auto* datos = new QGridLayout;
    datos->addWidget(etiquetaPagina, 0, 0);
    datos->addWidget(lblPagina_, 0, 1);
    datos->addWidget(etiquetaZoom, 1, 0);
    datos->addWidget(cmbZoom_, 1, 1);

    auto* botones = new QGridLayout;
    for (int i = 0; i < int(kCaptions.size()); ++i) {
        auto* b = new QPushButton(QString::fromUtf8(kCaptions[size_t(i)]), fmeControles_);
        b->setObjectName(QString("cmdFunciones[%1]").arg(i));
        b->setAutoDefault(false);
        PintaFondo(b, ColorBoton());
        connect(b, &QPushButton::clicked, this, [this, i] { Funcion(i); });
        botones->addWidget(b, i / 4, i % 4);
        cmdFunciones_[size_t(i)] = b;
    }

    auto* tira = new QHBoxLayout(fmeControles_);
    tira->setContentsMargins(6, 4, 6, 4);
    tira->addLayout(datos);
    tira->addSpacing(12);
    tira->addLayout(botones, 1);

    preview_ = new QScrollArea(this);
    preview_->setObjectName("Preview");
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setWidgetResizable(false);
    QPalette mesa = preview_->palette();
    mesa.setColor(QPalette::Window, kColorMesa);
    preview_->setPalette(mesa);
    preview_->viewport()->setAutoFillBackground(true);
    hoja_ = new HojaPantalla(superficie_, preview_);
    preview_->setWidget(hoja_);

    // While the window is open it shows and prints the surface.
    refrescoAnterior_ = std::move(superficie_.AlRefrescar);
    impresionAnterior_ = std::move(superficie_.AlImprimir);
    superficie_.AlRefrescar = [this, mostrada = 0]() mutable {
        hoja_->Actualiza();
        if (superficie_.CurrentPage() != mostrada) {
            // A new page is read from its top.
            preview_->verticalScrollBar()->setValue(0);
            mostrada = superficie_.CurrentPage();
        }
    };
    superficie_.AlImprimir = [this](const Documento& d) { Imprime(d); };

    paginaVista_ = 1;
    connect(cmbZoom_, &QComboBox::currentIndexChanged, this, &frmPreview::SeleccionaZoom);
    cmbZoom_->setCurrentIndex(kZoomInicial);
    SeleccionaZoom(kZoomInicial);

    // The window sees every key before its controls do.
    for (QWidget* w : findChildren<QWidget*>())
        w->installEventFilter(this);

    const int altoTira = Pixeles(1600);
    setMinimumSize(fmeControles_->sizeHint().width(), altoTira + Pixeles(1600));
    QSize inicial(std::max(minimumWidth(), hoja_->sizeHint().width() + Pixeles(400)),
                  altoTira + hoja_->sizeHint().height());
    if (const QScreen* pantalla = screen())
        inicial = inicial.boundedTo(pantalla->availableGeometry().size() * 0.92)
                      .expandedTo(minimumSize());
    resize(inicial);
}

frmPreview::~frmPreview() {
    superficie_.AlRefrescar = std::move(refrescoAnterior_);
    superficie_.AlImprimir = std::move(impresionAnterior_);
}

int frmPreview::Pixeles(int twips) const {
    return int(std::lround(double(twips) * logicalDpiX() / TwipsPorPulgada));
}

void frmPreview::resizeEvent(QResizeEvent* evento) {
    QDialog::resizeEvent(evento);
    // The page view keeps a border of 50 twips at the sides and the foot,
    // and leaves the top 1550 to the controls. A window too small for that
    // keeps the layout it had.
    const int ancho = width() - Pixeles(100);
    const int alto = height() - Pixeles(1600);
    if (ancho <= 0 || alto <= 0)
        return;
    fmeControles_->setGeometry(0, 0, width(), Pixeles(1550));
    preview_->setGeometry(Pixeles(50), Pixeles(1550), ancho, alto);
}

bool frmPreview::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress)
        return Tecla(static_cast<QKeyEvent*>(evento));
    return QDialog::eventFilter(objeto, evento);
}

void frmPreview::keyPressEvent(QKeyEvent* evento) {
    if (!Tecla(evento))
        QDialog::keyPressEvent(evento);
}

// The keys of the window. A key acts by the table of the buttons and is then
// swallowed, acted on or not, so that no control sees Home, End or the page
// keys (the zoom list and the scroll area would take them). Tab still moves
// between the controls. F10 is not a key of this window, whatever the save
// button's caption says.
bool frmPreview::Tecla(QKeyEvent* evento) {
    const Qt::KeyboardModifiers mods =
        evento->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    switch (evento->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    case Qt::Key_P:
        if (mods == Qt::AltModifier)
            Funcion(FuncionImprimir);
        break;
    case Qt::Key_Home:
        Funcion(FuncionPrimera);
        break;
    case Qt::Key_PageUp:
        Funcion(FuncionAnterior);
        break;
    case Qt::Key_PageDown:
        Funcion(FuncionSiguiente);
        break;
    case Qt::Key_End:
        Funcion(FuncionUltima);
        break;
    case Qt::Key_Escape:
        Salir();
        break;
    default:
        break;
    }
    evento->accept();
    return true;
}

void frmPreview::Salir() {
    if (servicios::CreaMensajes()->Pregunta(MensajeSalirVistaPrevia, 0, QString(), 0, 0) ==
        RespuestaSi)
        accept();
}

void frmPreview::EtiquetaPagina() {
    const int paginas = superficie_.PageCount();
    lblPagina_->setText(paginas > 0 ? QString("%1/%2").arg(paginaVista_).arg(paginas)
                                    : QStringLiteral("1"));
}

void frmPreview::SeleccionaZoom(int indice) {
    if (indice < 0 || indice >= int(kZoom.size()))
        return;
    superficie_.Zoom(kZoom[size_t(indice)].zoom);
    hoja_->Actualiza();
}

void frmPreview::Funcion(int indice) {
    PantallaBase::EjecutaProtegido([this, indice] {
        paginaVista_ = std::int16_t(superficie_.CurrentPage());
        const int paginas = superficie_.PageCount();
        switch (indice) {
        case FuncionImprimir:
            superficie_.OutputMode(2);
            return;
        case FuncionPrimera:
            paginaVista_ = 1;
            superficie_.CurrentPage(1);
            superficie_.Refresh();
            break;
        case FuncionAnterior:
            if (paginaVista_ > 1 && paginas >= paginaVista_) {
                --paginaVista_;
                superficie_.CurrentPage(paginaVista_);
                superficie_.Refresh();
            }
            break;
        case FuncionSiguiente:
            if (paginas > paginaVista_) {
                ++paginaVista_;
                superficie_.CurrentPage(paginaVista_);
                superficie_.Refresh();
            }
            break;
        case FuncionUltima:
            paginaVista_ = std::int16_t(paginas);
            superficie_.CurrentPage(paginaVista_);
            superficie_.Refresh();
            break;
        case FuncionGrabar:
            GrabaPagina();
            return;
        case FuncionSalir:
            accept();
            return;
        default:
            return;
        }
        EtiquetaPagina();
    });
}

void frmPreview::GrabaPagina() {
    const QString carpeta = modConCompras::RutaBaseDeDatos + QStringLiteral("/Temp");
    const QString nombre = servicios::CreaMensajes()->PideTexto(
        0, 0, QStringLiteral("La página se grabará en el directorio ") + carpeta, 0, 0, 0);
    if (nombre.isEmpty())
        return;
    const QString ruta = carpeta + QLatin1Char('/') + nombre + QStringLiteral(".emf");
    // A failed save leaves the busy pointer on until the next action that
    // sets it; the failure itself is shown by the caller.
    PunteroOcupado(true);
    // The system's file calls end a name at a NUL and would write under a
    // shorter name than the one asked for; no file can have it.
    if (nombre.contains(QChar(0)))
        throw ErrorConsulta(
            QStringLiteral("No se pudo grabar la página en '%1': el nombre tiene caracteres que "
                           "un archivo no admite")
                .arg(QString(ruta).replace(QChar(0), QChar(0xFFFD))));
    superficie_.SavePage(ruta, superficie_.CurrentPage());
    PunteroOcupado(false);
    servicios::CreaMensajes()->Mensaje(
        MensajePaginaGrabada, 0, QStringLiteral(" %1\n%2").arg(superficie_.CurrentPage()).arg(ruta),
        0);
}

std::function<bool(QPrinter&, int, QWidget*)>& frmPreview::EligeImpresora() {
    static std::function<bool(QPrinter&, int, QWidget*)> elige = [](QPrinter& impresora,
                                                                    int paginas, QWidget* padre) {
        QPrintDialog dialogo(&impresora, padre);
        dialogo.setWindowTitle(QStringLiteral("Imprimir"));
        dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
        dialogo.setOption(QAbstractPrintDialog::PrintCurrentPage);
        dialogo.setOption(QAbstractPrintDialog::PrintToFile);
        dialogo.setMinMax(1, std::max(1, paginas));
        return dialogo.exec() == QDialog::Accepted;
    };
    return elige;
}

// Prints at true size on the chosen printer, every page or the range the
// user chose. Copies and collation are the printer's own business.
void frmPreview::Imprime(const Documento& documento) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setPageSize(QPageSize(QPageSize::Letter));
    impresora.setPageOrientation(QPageLayout::Portrait);
    impresora.setDocName(windowTitle());
    if (!EligeImpresora()(impresora, int(documento.paginas.size()), this))
        return;

    Documento elegidas;
    const int paginas = int(documento.paginas.size());
    for (int i = 1; i <= paginas; ++i) {
        bool entra = true;
        if (impresora.printRange() == QPrinter::CurrentPage)
            entra = i == superficie_.CurrentPage();
        else if (impresora.printRange() == QPrinter::PageRange && !impresora.pageRanges().isEmpty())
            entra = impresora.pageRanges().contains(i);
        if (entra)
            elegidas.paginas.push_back(documento.paginas[size_t(i - 1)]);
    }
    if (elegidas.paginas.empty())
        return;
    PunteroOcupado(true);
    struct Restaura {
        ~Restaura() { PunteroOcupado(false); }
    } restaura;
    ImprimeDocumento(elegidas, impresora);
}

void CargaDocumento(Superficie& superficie, const Documento& documento) {
    const EstadoDibujo anterior = superficie;
    superficie.StartDoc();
    for (size_t p = 0; p < documento.paginas.size(); ++p) {
        if (p > 0)
            superficie.NewPage();
        for (const Elemento& e : documento.paginas[p].elementos) {
            switch (e.tipo) {
            case TipoElemento::Texto:
                static_cast<EstadoDibujo&>(superficie) = e.estado;
                superficie.TextOut(e.x, e.y, e.texto);
                break;
            case TipoElemento::Linea:
                superficie.ForeColor = e.estado.ForeColor;
                superficie.DrawLine(e.x, e.y, e.x2, e.y2);
                break;
            case TipoElemento::Banda:
                superficie.FillBand(e.x, e.y, e.ancho, e.alto);
                break;
            }
        }
    }
    superficie.EndDoc();
    superficie.OutputMode(0);
    superficie.CurrentPage(1);
    static_cast<EstadoDibujo&>(superficie) = anterior;
}

namespace {

// Every finished run shows in this window, modally, from its first page.
void MuestraEnVentana(Superficie& superficie) {
    frmPreview ventana(superficie, QApplication::activeWindow());
    ventana.lblPagina()->setText(QStringLiteral("1/%1").arg(superficie.PageCount()));
    ventana.exec();
}

[[maybe_unused]] const bool kVentanaRegistrada = [] {
    vista::MostrarDocumento() = MuestraEnVentana;
    return true;
}();

} // namespace

} // namespace consultas
