// The preview window driven as a user would: buttons, keys, zoom, printing
// and keeping a page as a picture.

#include "core/Membrete.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "surface/Renderizador.h"
#include "surface/SalidaLote.h"
#include "surface/VistaPrevia.h"
#include "surface/frmPreview.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace consultas;

namespace {

constexpr int kPaginas = 5;

void LlenaDocumento(Superficie& s, int paginas) {
    s.StartDoc();
    for (int p = 1; p <= paginas; ++p) {
        if (p > 1)
            s.NewPage();
        s.TextOut(0, 1200, QString("cuerpo de la página %1").arg(p));
        s.DrawLine(0, 960, 10500, 960);
    }
    s.EndDoc();
    s.CurrentPage(1);
}

class VistaPrevia : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        ASSERT_TRUE(QDir(dir_.path()).mkdir("Temp"));
        rutaAnterior_ = modConCompras::RutaBaseDeDatos;
        modConCompras::RutaBaseDeDatos = dir_.path();
        LlenaDocumento(superficie_, kPaginas);
        ventana_ = std::make_unique<frmPreview>(superficie_);
        ventana_->lblPagina()->setText(QString("1/%1").arg(kPaginas));
        ventana_->show();
    }
    void TearDown() override {
        ventana_.reset();
        modConCompras::RutaBaseDeDatos = rutaAnterior_;
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
    }

    QPushButton* Boton(int i) { return ventana_->cmdFunciones(i); }
    void Pulsa(int i) { QTest::mouseClick(Boton(i), Qt::LeftButton); }
    QString Etiqueta() { return ventana_->lblPagina()->text(); }
    void VeA(int pagina) {
        superficie_.CurrentPage(pagina);
        superficie_.Refresh();
    }
    QString Temp(const QString& nombre) { return dir_.path() + "/Temp/" + nombre; }

    QTemporaryDir dir_;
    QString rutaAnterior_;
    Superficie superficie_;
    std::unique_ptr<frmPreview> ventana_;
    std::shared_ptr<servicios::GuionServicios> guion_ =
        std::make_shared<servicios::GuionServicios>();
    servicios::ServiciosInstalados servicios_{servicios::FabricasGuionadas(guion_)};
};

TEST_F(VistaPrevia, AspectoControlesYColores) {
    EXPECT_EQ(ventana_->windowTitle(), "VISTA PRELIMINAR");
    EXPECT_TRUE(ventana_->isModal());
    const QStringList captions{"IMPRIMIR [ALT+P]",
                               "PRIMERA PÁGINA [INI]",
                               "PÁGINA ANTERIOR [RE PÁG]",
                               "PÁGINA SIGUIENTE [AV PÁG]",
                               "ÚLTIMA PÁGINA [FIN]",
                               "GRABAR EN FORMATO EMF [F10]",
                               "SALIR [ESC]"};
    for (int i = 0; i < 7; ++i) {
        auto* b = ventana_->findChild<QPushButton*>(QString("cmdFunciones[%1]").arg(i));
        ASSERT_NE(b, nullptr) << i;
        EXPECT_EQ(b->text(), captions[i]);
        EXPECT_EQ(b->palette().color(QPalette::Button), QColor(245, 255, 255));
    }
    EXPECT_EQ(ventana_->palette().color(QPalette::Window), QColor(210, 230, 245));
    EXPECT_EQ(ventana_->findChild<QLabel*>("lblEtiqueta[0]")->text(), "Página");
    EXPECT_EQ(ventana_->findChild<QLabel*>("lblEtiqueta[1]")->text(), "Zoom");
    EXPECT_NE(ventana_->findChild<QScrollArea*>("Preview"), nullptr);

    auto* zoom = ventana_->findChild<QComboBox*>("cmbZoom");
    ASSERT_NE(zoom, nullptr);
    QStringList textos;
    for (int i = 0; i < zoom->count(); ++i)
        textos << zoom->itemText(i);
    EXPECT_EQ(textos.join(' '), "30% 50% 70% 80% 90% 100% 130% 150% 200%");
    EXPECT_EQ(zoom->currentIndex(), 5);
    EXPECT_EQ(superficie_.Zoom(), 100);
}

// Each move from the first, a middle and the last page, by button and by its
// key; a move that cannot go on still rewrites the label.
TEST_F(VistaPrevia, MovimientosPorBotonYPorTecla) {
    struct Caso {
        int desde, funcion;
        Qt::Key tecla;
        int hasta;
    };
    const Caso casos[] = {
        {1, FuncionPrimera, Qt::Key_Home, 1},       {1, FuncionAnterior, Qt::Key_PageUp, 1},
        {1, FuncionSiguiente, Qt::Key_PageDown, 2}, {1, FuncionUltima, Qt::Key_End, 5},
        {3, FuncionPrimera, Qt::Key_Home, 1},       {3, FuncionAnterior, Qt::Key_PageUp, 2},
        {3, FuncionSiguiente, Qt::Key_PageDown, 4}, {3, FuncionUltima, Qt::Key_End, 5},
        {5, FuncionPrimera, Qt::Key_Home, 1},       {5, FuncionAnterior, Qt::Key_PageUp, 4},
        {5, FuncionSiguiente, Qt::Key_PageDown, 5}, {5, FuncionUltima, Qt::Key_End, 5},
    };
    for (const Caso& c : casos) {
        for (bool porTecla : {false, true}) {
            VeA(c.desde);
            ventana_->lblPagina()->setText("?");
            if (porTecla)
                QTest::keyClick(ventana_.get(), c.tecla);
            else
                Pulsa(c.funcion);
            const QString donde = QString("desde %1, función %2, %3")
                                      .arg(c.desde)
                                      .arg(c.funcion)
                                      .arg(porTecla ? "tecla" : "botón");
            EXPECT_EQ(superficie_.CurrentPage(), c.hasta) << qPrintable(donde);
            EXPECT_EQ(ventana_->PaginaVista(), c.hasta) << qPrintable(donde);
            EXPECT_EQ(Etiqueta(), QString("%1/%2").arg(c.hasta).arg(kPaginas)) << qPrintable(donde);
        }
    }
}

// The window sees the keys before its controls: End on the zoom list goes
// to the last page and leaves the zoom alone; Page Down on the page view
// turns the page instead of scrolling.
TEST_F(VistaPrevia, LasTeclasLlegananLaVentanaAntesQueALosControles) {
    QTest::keyClick(ventana_->cmbZoom(), Qt::Key_End);
    EXPECT_EQ(superficie_.CurrentPage(), kPaginas);
    EXPECT_EQ(ventana_->cmbZoom()->currentIndex(), 5);

    ventana_->cmbZoom()->setCurrentIndex(8); // 200%: the page is taller than the view
    VeA(1);
    QScrollBar* barra = ventana_->Preview()->verticalScrollBar();
    ASSERT_GT(barra->maximum(), 0);
    QTest::keyClick(ventana_->Preview(), Qt::Key_PageDown);
    EXPECT_EQ(superficie_.CurrentPage(), 2);
    EXPECT_EQ(barra->value(), 0);
    EXPECT_EQ(Etiqueta(), "2/5");
}

TEST_F(VistaPrevia, EscPreguntaYSoloCierraConSi) {
    guion_->respuestasPregunta = {RespuestaNo, RespuestaSi};
    QTest::keyClick(ventana_.get(), Qt::Key_Escape);
    ASSERT_EQ(guion_->Cuenta("Pregunta"), 1);
    EXPECT_EQ(guion_->De("Pregunta")[0].numero, 129);
    EXPECT_TRUE(ventana_->isVisible());
    EXPECT_EQ(Etiqueta(), "1/5");

    QTest::keyClick(Boton(FuncionSiguiente), Qt::Key_Escape);
    EXPECT_EQ(guion_->Cuenta("Pregunta"), 2);
    EXPECT_FALSE(ventana_->isVisible());
}

TEST_F(VistaPrevia, SalirCierraSinPreguntar) {
    Pulsa(FuncionSalir);
    EXPECT_FALSE(ventana_->isVisible());
    EXPECT_EQ(guion_->Cuenta("Pregunta"), 0);
}

TEST_F(VistaPrevia, AltPImprimeYNingunaOtraTeclaLoHace) {
    int elecciones = 0;
    auto anterior = frmPreview::EligeImpresora();
    frmPreview::EligeImpresora() = [&](QPrinter&, int, QWidget*) {
        ++elecciones;
        return false;
    };
    QTest::keyClick(ventana_.get(), Qt::Key_P);
    QTest::keyClick(ventana_.get(), Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(ventana_.get(), Qt::Key_P, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(elecciones, 0);
    QTest::keyClick(ventana_->cmbZoom(), Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(elecciones, 1);
    EXPECT_EQ(superficie_.OutputMode(), 2);
    frmPreview::EligeImpresora() = anterior;
}

TEST_F(VistaPrevia, ImprimeElDocumentoEnteroOElRangoElegido) {
    if (QProcess::execute("pdfinfo", {"-v"}) < 0)
        GTEST_SKIP() << "sin pdfinfo";
    auto paginasPdf = [](const QString& ruta) {
        QProcess p;
        p.start("pdfinfo", {ruta});
        p.waitForFinished();
        const auto m = QRegularExpression(R"(Pages:\s+(\d+))").match(p.readAllStandardOutput());
        return m.hasMatch() ? m.captured(1).toInt() : -1;
    };
    auto anterior = frmPreview::EligeImpresora();
    QString salida;
    bool rango = false;
    frmPreview::EligeImpresora() = [&](QPrinter& impresora, int paginas, QWidget*) {
        EXPECT_EQ(paginas, kPaginas);
        impresora.setOutputFormat(QPrinter::PdfFormat);
        impresora.setOutputFileName(salida);
        if (rango) {
            impresora.setPrintRange(QPrinter::PageRange);
            impresora.setFromTo(2, 3);
        }
        return true;
    };
    VeA(3);
    salida = dir_.path() + "/todo.pdf";
    Pulsa(FuncionImprimir);
    EXPECT_EQ(paginasPdf(salida), kPaginas);
    EXPECT_EQ(Etiqueta(), "1/5"); // printing leaves the label alone
    EXPECT_EQ(superficie_.CurrentPage(), 3);

    rango = true;
    salida = dir_.path() + "/rango.pdf";
    Pulsa(FuncionImprimir);
    EXPECT_EQ(paginasPdf(salida), 2);
    EXPECT_EQ(guion_->Cuenta("MuestraError"), 0);
    frmPreview::EligeImpresora() = anterior;
}

// F10 is no key of this window; the button of that caption saves the page
// on show, replacing a file of the same name, and says where.
TEST_F(VistaPrevia, GrabaLaPaginaConElBotonYNoConF10) {
    guion_->respuestasTexto = {"hoja"};
    QFile viejo(Temp("hoja.emf"));
    ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
    viejo.write("no es una página");
    viejo.close();

    VeA(3);
    QTest::keyClick(ventana_.get(), Qt::Key_F10);
    EXPECT_EQ(guion_->Cuenta("PideTexto"), 0);

    Pulsa(FuncionGrabar);
    ASSERT_EQ(guion_->Cuenta("PideTexto"), 1);
    EXPECT_EQ(guion_->De("PideTexto")[0].texto,
              "La página se grabará en el directorio " + dir_.path() + "/Temp");
    Superficie leida;
    leida.LoadPage(Temp("hoja.emf"));
    EXPECT_EQ(leida.Doc().paginas.at(0), superficie_.Doc().paginas.at(2));

    const auto mensajes = guion_->De("Mensaje");
    ASSERT_EQ(mensajes.size(), 1u);
    EXPECT_EQ(mensajes[0].numero, 130);
    EXPECT_TRUE(mensajes[0].texto.endsWith(" 3\n" + Temp("hoja.emf")));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(VistaPrevia, SinNombreNoGrabaNiDiceNada) {
    Pulsa(FuncionGrabar); // the script cancels the entry
    EXPECT_EQ(guion_->Cuenta("PideTexto"), 1);
    EXPECT_EQ(guion_->Cuenta("Mensaje"), 0);
    EXPECT_TRUE(QDir(dir_.path() + "/Temp").isEmpty());
}

// A name the file system cannot hold ends the action: the failure is shown,
// nothing is saved or announced, and the window goes on working.
TEST_F(VistaPrevia, UnNombreImposibleFallaSinRomperLaVentana) {
    guion_->respuestasTexto = {"sin/carpeta", QString("nulo") + QChar(0) + "x"};
    Pulsa(FuncionGrabar);
    Pulsa(FuncionGrabar);
    EXPECT_EQ(guion_->Cuenta("MuestraError"), 2);
    EXPECT_EQ(guion_->Cuenta("Mensaje"), 0);
    EXPECT_TRUE(QDir(dir_.path() + "/Temp").isEmpty());
    EXPECT_TRUE(ventana_->isVisible());
    Pulsa(FuncionSiguiente);
    EXPECT_EQ(Etiqueta(), "2/5");
}

TEST_F(VistaPrevia, ZoomYTamanoDeLaVista) {
    ventana_->resize(1100, 900);
    const double dpi = ventana_->logicalDpiX();
    const QRect vista = ventana_->Preview()->geometry();
    EXPECT_EQ(vista.width(), 1100 - qRound(100 * dpi / 1440));
    EXPECT_EQ(vista.height(), 900 - qRound(1600 * dpi / 1440));

    QWidget* hoja = ventana_->Preview()->widget();
    const int ancho100 = hoja->width();
    ventana_->cmbZoom()->setCurrentIndex(1);
    EXPECT_EQ(superficie_.Zoom(), 50);
    EXPECT_LT(hoja->width(), ancho100 * 0.6);
    EXPECT_EQ(ventana_->Preview()->verticalScrollBar()->maximum(), 0);
    ventana_->cmbZoom()->setCurrentIndex(8);
    EXPECT_EQ(superficie_.Zoom(), 200);
    EXPECT_GT(ventana_->Preview()->verticalScrollBar()->maximum(), 0);
    EXPECT_GT(ventana_->Preview()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(VistaPrevia, CerrarDevuelveLosGanchosDeLaSuperficie) {
    ventana_.reset();
    EXPECT_FALSE(superficie_.AlRefrescar);
    EXPECT_FALSE(superficie_.AlImprimir);
}

// Every run ends in vista::Muestra: the window opens modally from page 1 with
// its label set, and the call returns when it closes.
TEST(VistaPreviaRegistrada, MuestraAbreLaVentanaModalYVuelveAlCerrar) {
    ASSERT_TRUE(vista::MostrarDocumento());
    Superficie s;
    LlenaDocumento(s, 3);
    QString etiqueta, titulo;
    QTimer::singleShot(0, [&] {
        auto* w = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
        ASSERT_NE(w, nullptr);
        titulo = w->windowTitle();
        etiqueta = w->lblPagina()->text();
        QTest::mouseClick(w->cmdFunciones(FuncionSalir), Qt::LeftButton);
    });
    vista::Muestra(s);
    EXPECT_EQ(titulo, "VISTA PRELIMINAR");
    EXPECT_EQ(etiqueta, "1/3");
}

TEST(VistaPreviaRegistrada, CargaDocumentoReproduceUnVolcado) {
    Superficie origen;
    origen.StartDoc();
    origen.FontBold = true;
    origen.ForeColor = ColorAzul;
    origen.TextOut(7000, 720, "Página  : 1 / 2");
    origen.FillBand(6910, 240, 4700, 200);
    origen.NewPage();
    origen.TextAlign = AlineaDerecha;
    origen.DrawLine(0, 960, 10500, 960);
    origen.TextOut(10400, 1200, "1,234.00");
    origen.EndDoc();

    Superficie s;
    s.FontSize = 11;
    CargaDocumento(s, DocumentoDeJsonl(DocumentoJsonl(origen.Doc())));
    EXPECT_EQ(s.Doc(), origen.Doc());
    EXPECT_EQ(s.PageCount(), 2);
    EXPECT_EQ(s.CurrentPage(), 1);
    EXPECT_EQ(s.FontSize, 11); // the drawing state is left as it was
}

// Pictures of the window for the documentation: set CONSULTAS_CAPTURAS to a
// folder to write vista-100.png and vista-50.png there.
TEST(VistaPreviaRegistrada, Capturas) {
    const QString carpeta = qEnvironmentVariable("CONSULTAS_CAPTURAS");
    if (carpeta.isEmpty())
        GTEST_SKIP() << "CONSULTAS_CAPTURAS sin definir";
    modConCompras::EmpNombre = "COMERCIALIZADORA DEL NORTE, S.A. DE C.V.";
    modConCompras::EmpComercial = "DISTRIBUIDORA NORTE";
    modConCompras::VerNombreEmpresa = true;
    modConCompras::EmpDireccion = "AV. REFORMA 1200, COL. CENTRO, C.P. 64000";
    modConCompras::EmpRfc1 = "RFC: CNO850101AB1";
    modConCompras::EmpTelefonos = "81 8340 1200, 81 8340 1201";
    modConCompras::EmpCiudadEstado = "MONTERREY, NUEVO LEÓN";
    Superficie s;
    s.StartDoc();
    for (int p = 1; p <= 2; ++p) {
        if (p > 1)
            s.NewPage();
        int y = DibujaMembrete(s, 0, "DIARIO DE COMPRAS");
        s.SaveState();
        s.ForeColor = ColorAzul;
        s.TextOut(7000, 720, QString("Página  : %1 / 2").arg(p));
        s.RestoreState();
        s.SaveState();
        s.ForeColor = ColorAzul;
        s.FontBold = true;
        s.TextOut(0, y, "FOLIO");
        s.TextOut(1300, y, "FECHA");
        s.TextOut(2500, y, "PROVEEDOR");
        s.TextAlign = AlineaDerecha;
        s.TextOut(8500, y, "SUBTOTAL");
        s.TextOut(10400, y, "TOTAL");
        s.RestoreState();
        y += 300;
        for (int i = 0; i < 40; ++i, y += 240) {
            s.TextOut(0, y, QString("CP-%1").arg(1000 + p * 40 + i));
            s.TextOut(1300, y, QString("%1/03/2026").arg(1 + i % 28, 2, 10, QChar('0')));
            s.TextOut(2500, y, i % 3 ? "ACEROS Y LÁMINAS DEL BAJÍO" : "PAPELERÍA LA ESTRELLA");
            s.TextAlign = AlineaDerecha;
            s.TextOut(8500, y, QString("%L1.00").arg(1250 * (i + 3)));
            s.TextOut(10400, y, QString("%L1.00").arg(1450 * (i + 3)));
            s.TextAlign = AlineaIzquierda;
        }
    }
    s.EndDoc();
    s.CurrentPage(1);
    frmPreview w(s);
    w.lblPagina()->setText("1/2");
    w.resize(1000, 760);
    w.show();
    QApplication::processEvents();
    ASSERT_TRUE(w.grab().save(carpeta + "/vista-100.png"));
    w.cmbZoom()->setCurrentIndex(1);
    QApplication::processEvents();
    ASSERT_TRUE(w.grab().save(carpeta + "/vista-50.png"));
}

} // namespace
