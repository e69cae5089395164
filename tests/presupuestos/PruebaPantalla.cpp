// The budget screen driven as a user would: panels by inquiry, pickers with
// scripted services, typed codes, keys, and a run that reaches the preview.

#include "FixturaPresupuestos.h"

#include "presupuestos/frmConPresup.h"
#include "services/Servicios.h"
#include "surface/VistaPrevia.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDesktopServices>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <gtest/gtest.h>

using namespace consultas;
namespace m = consultas::modConCompras;

namespace presup {
QStringList Fila(const Pagina& p, int y);
const Elemento* Texto(const Pagina& p, const QString& texto);
} // namespace presup

// Receives what the screen asks the desktop to open.
class ReceptorUrl : public QObject {
    Q_OBJECT
public:
    QList<QUrl> abiertas;
public slots:
    void Abre(const QUrl& url) { abiertas << url; }
};

namespace {

class Pantalla : public ::testing::Test {
protected:
    void SetUp() override {
        base = pruebas::NuevaSqlite();
        presup::CreaFixtura(*base);
        QFile ini(dir.filePath("VALMOR.INI"));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[VARIOS]\nDIRCONSULTAS=" + dir.path().toUtf8() + "\n");
        ini.close();
        rutaAnterior = m::RutaBaseDeDatos;
        m::RutaBaseDeDatos = dir.path();
        m::ConexionBaseDatos = base->Cadena();
        m::ArchivoDeAyuda = dir.filePath("ayuda.pdf");
        ASSERT_TRUE(m::ConectaBase(base->Cadena()));
        guion = std::make_shared<servicios::GuionServicios>();
        servicios_ =
            std::make_unique<servicios::ServiciosInstalados>(servicios::FabricasGuionadas(guion));
        mostrarAnterior = vista::MostrarDocumento();
        vista::MostrarDocumento() = [this](Superficie& s) {
            ++mostrados;
            documento = s.Doc();
        };
        f = std::make_unique<frmConPresup>();
    }
    void TearDown() override {
        f.reset();
        vista::MostrarDocumento() = mostrarAnterior;
        servicios_.reset();
        m::CierraConexion();
        m::RutaBaseDeDatos = rutaAnterior;
    }
    template <class T> T* C(const QString& nombre) {
        T* w = f->findChild<T*>(nombre);
        EXPECT_NE(w, nullptr) << nombre.toStdString();
        return w;
    }
    bool Activo(const QString& nombre) {
        QWidget* w = C<QWidget>(nombre);
        return w->isVisibleTo(f.get()) && w->isEnabled();
    }
    void Teclea(const QString& caja, const QString& texto) {
        QLineEdit* t = C<QLineEdit>(caja);
        t->setFocus();
        t->clear();
        QTest::keyClicks(t, texto);
        QTest::keyClick(t, Qt::Key_Return);
    }

    QTemporaryDir dir;
    std::unique_ptr<pruebas::BaseDePrueba> base;
    std::shared_ptr<servicios::GuionServicios> guion;
    std::unique_ptr<servicios::ServiciosInstalados> servicios_;
    std::function<void(Superficie&)> mostrarAnterior;
    QString rutaAnterior;
    std::unique_ptr<frmConPresup> f;
    int mostrados = 0;
    Documento documento;
};

TEST_F(Pantalla, ArranqueYGruposPorConsulta) {
    EXPECT_EQ(f->windowTitle(), "CONSULTAS DE PRESUPUESTOS");
    EXPECT_EQ(m::DirectorioConsultas, dir.path() + "/");
    auto* cmb = C<QComboBox>("cmbConsulta");
    ASSERT_EQ(cmb->count(), 3);
    EXPECT_EQ(cmb->itemText(1), "Comparativo");
    EXPECT_EQ(cmb->currentIndex(), 0);
    const QString ano = QString::number(QDate::currentDate().year());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(C<QLineEdit>(QString("txtAnoRan[%1]").arg(i))->text(), ano);
    EXPECT_EQ(C<QDateEdit>("dtpFecha[1]")->date(), QDate::currentDate());
    EXPECT_EQ(C<QLineEdit>("txtCodCPRE")->text(), "0");
    EXPECT_EQ(C<QLineEdit>("txtCodCCOS")->text(), "0");
    EXPECT_TRUE(C<QRadioButton>("opcTipo[0]")->isChecked());
    EXPECT_EQ(C<QPushButton>("cmdFunciones[0]")->text(), "CONSULTAR [F10]");
    EXPECT_EQ(f->palette().color(QPalette::Window), QColor(210, 230, 245));
    EXPECT_EQ(C<QPushButton>("cmdBusCon[1]")->palette().color(QPalette::Button),
              QColor(245, 255, 255));

    // Relación: its year only.
    EXPECT_TRUE(Activo("txtAnoRan[2]"));
    EXPECT_TRUE(Activo("udnAno[2]"));
    EXPECT_FALSE(Activo("txtAnoRan[0]"));
    EXPECT_FALSE(Activo("chkAplicado"));
    EXPECT_FALSE(Activo("dtpFecha[0]"));
    EXPECT_TRUE(Activo("opcTipo[1]"));

    f->AplicaAjuste("cmbConsulta", std::nullopt, "1");
    for (const char* n : {"txtAnoRan[0]", "txtAnoRan[1]", "udnAno[0]", "chkAplicado", "lblDatos[5]",
                          "lblDato[5]", "opcTipo[0]"})
        EXPECT_TRUE(Activo(n)) << n;
    EXPECT_FALSE(Activo("txtAnoRan[2]"));
    EXPECT_FALSE(Activo("dtpFecha[1]"));
    EXPECT_THROW(f->AplicaAjuste("txtAnoRan", 2, "2020"), ErrorAjuste);

    // Traspasados hides "Tipo", and the option keeps its value.
    f->AplicaAjuste("opcTipo", std::nullopt, "1");
    cmb->setCurrentIndex(2);
    EXPECT_TRUE(Activo("dtpFecha[0]"));
    EXPECT_TRUE(Activo("lblDatos[4]"));
    EXPECT_FALSE(Activo("opcTipo[0]"));
    EXPECT_FALSE(C<QGroupBox>("fmeDatos[2]")->isVisibleTo(f.get()));
    EXPECT_FALSE(Activo("txtAnoRan[0]"));
    EXPECT_TRUE(C<QGroupBox>("fmeDatos[3]")->isVisibleTo(f.get()));
    cmb->setCurrentIndex(0);
    EXPECT_TRUE(C<QRadioButton>("opcTipo[1]")->isChecked());
    EXPECT_EQ(f->Valores().tipo, 1);
}

TEST_F(Pantalla, FlechasDelAnoSinLimite) {
    auto* ano = C<QLineEdit>("txtAnoRan[2]");
    ano->setText("2026");
    QWidget* udn = C<QWidget>("udnAno[2]");
    QTest::mouseClick(udn->findChild<QToolButton*>("arriba"), Qt::LeftButton);
    EXPECT_EQ(ano->text(), "2027");
    QTest::mouseClick(udn->findChild<QToolButton*>("abajo"), Qt::LeftButton);
    QTest::mouseClick(udn->findChild<QToolButton*>("abajo"), Qt::LeftButton);
    EXPECT_EQ(ano->text(), "2025");
    ano->setText("0");
    QTest::mouseClick(udn->findChild<QToolButton*>("abajo"), Qt::LeftButton);
    EXPECT_EQ(ano->text(), "-1");
}

TEST_F(Pantalla, BuscadoresDeConceptoYCentro) {
    auto* concepto = C<QLineEdit>("txtCodCPRE");
    auto* centro = C<QLineEdit>("txtCodCCOS");
    // A picked concept fixes its centre.
    guion->resultadosBusqueda = {"11"};
    QTest::mouseClick(C<QPushButton>("cmdBusCon[0]"), Qt::LeftButton);
    ASSERT_EQ(guion->Cuenta("Mostrar"), 1);
    EXPECT_EQ(guion->De("Mostrar")[0].texto, "CONPRESUPUESTOS");
    EXPECT_EQ(concepto->text(), "11");
    EXPECT_EQ(C<QLabel>("lblConPre")->text(), "ENERGIA ELECTRICA");
    EXPECT_EQ(centro->text(), "1");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "ADMINISTRACION");
    EXPECT_FALSE(centro->isEnabled());
    EXPECT_FALSE(C<QPushButton>("cmdBusCon[1]")->isEnabled());
    EXPECT_EQ(f->ConceptoElegido(), 11);
    EXPECT_EQ(f->CentroElegido(), 1);

    // A cancelled picker changes nothing.
    QTest::mouseClick(C<QPushButton>("cmdBusCon[0]"), Qt::LeftButton);
    EXPECT_EQ(concepto->text(), "11");

    // A typed concept with no row frees the centre, which keeps its values.
    Teclea("txtCodCPRE", "99");
    EXPECT_EQ(C<QLabel>("lblConPre")->text(), "");
    EXPECT_TRUE(centro->isEnabled());
    EXPECT_TRUE(C<QPushButton>("cmdBusCon[1]")->isEnabled());
    EXPECT_EQ(centro->text(), "1");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "ADMINISTRACION");

    // Picking a centre resets the concept.
    guion->resultadosBusqueda = {"2"};
    QTest::mouseClick(C<QPushButton>("cmdBusCon[1]"), Qt::LeftButton);
    EXPECT_EQ(guion->De("Mostrar").back().texto, "CCOSTOS");
    EXPECT_EQ(concepto->text(), "0");
    EXPECT_EQ(C<QLabel>("lblConPre")->text(), "");
    EXPECT_EQ(centro->text(), "2");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "VENTAS");
    EXPECT_EQ(f->CentroElegido(), 2);
    EXPECT_EQ(f->ConceptoElegido(), 0);
}

TEST_F(Pantalla, CodigosTecleados) {
    auto* centro = C<QLineEdit>("txtCodCCOS");
    Teclea("txtCodCCOS", "2");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "VENTAS");
    Teclea("txtCodCCOS", "7");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "");
    // An emptied box is refilled with "0" when left.
    f->AplicaAjuste("txtCodCCOS", std::nullopt, "");
    EXPECT_EQ(centro->text(), "0");
    f->AplicaAjuste("txtCodCPRE", std::nullopt, "");
    EXPECT_EQ(C<QLineEdit>("txtCodCPRE")->text(), "0");

    Teclea("txtCodCPRE", "20");
    EXPECT_EQ(C<QLabel>("lblConPre")->text(), "VIATICOS");
    EXPECT_EQ(C<QLabel>("lblDesCC")->text(), "VENTAS");
    EXPECT_EQ(centro->text(), "2");
    EXPECT_FALSE(centro->isEnabled());
    EXPECT_EQ(guion->Cuenta("MuestraError"), 0);

    // A letter makes the look-up fail; the failure is shown.
    Teclea("txtCodCPRE", "A");
    EXPECT_EQ(guion->Cuenta("MuestraError"), 1);
}

TEST_F(Pantalla, F10EjecutaLaConsultaElegida) {
    f->AplicaAjuste("cmbConsulta", std::nullopt, "1");
    f->AplicaAjuste("txtAnoRan", 0, "2025");
    f->AplicaAjuste("txtAnoRan", 1, "2026");
    f->AplicaAjuste("opcTipo", std::nullopt, "1");
    f->AplicaAjuste("chkAplicado", std::nullopt, "0");
    QTest::keyClick(C<QLineEdit>("txtAnoRan[1]"), Qt::Key_F10);
    ASSERT_EQ(mostrados, 1);
    ASSERT_EQ(documento.paginas.size(), 1u);
    const Pagina& p = documento.paginas[0];
    EXPECT_NE(presup::Texto(p, "Reporte :Comparativo de Presupuestos"), nullptr);
    EXPECT_EQ(presup::Fila(p, 2310).mid(4),
              (QStringList{"5800=0.00", "8100=300.00", "9600=-300.00", "10400=-30.00"}));
    // No page file is left behind.
    EXPECT_TRUE(QDir(dir.path()).entryList({"*.emf"}).isEmpty());

    // The batch host's way: settings, then Consultar.
    f->AplicaAjuste("cmbConsulta", std::nullopt, "2");
    f->AplicaAjuste("dtpFecha", 0, "2026-03-01");
    f->AplicaAjuste("dtpFecha", 1, "2026-03-31");
    f->Consultar();
    ASSERT_EQ(mostrados, 2);
    EXPECT_EQ(presup::Fila(documento.paginas[0], 2200).first(), "100=20/03/2026");
    // F10 acts wherever the focus is, the screen itself included.
    QTest::keyClick(f.get(), Qt::Key_F10);
    ASSERT_EQ(mostrados, 3);

    // An empty code box refuses the run silently.
    C<QLineEdit>("txtCodCCOS")->setText("");
    f->Consultar();
    EXPECT_EQ(mostrados, 3);
    EXPECT_EQ(guion->llamadas.size(), 0u);
}

TEST_F(Pantalla, TeclasDeAyudaYSalida) {
    ReceptorUrl receptor;
    QDesktopServices::setUrlHandler("file", &receptor, "Abre");
    QTest::keyClick(C<QLineEdit>("txtCodCPRE"), Qt::Key_F1);
    QDesktopServices::unsetUrlHandler("file");
    ASSERT_EQ(receptor.abiertas.size(), 1);
    EXPECT_EQ(receptor.abiertas[0].toLocalFile(), m::ArchivoDeAyuda);

    f->show();
    QTest::keyClick(C<QLineEdit>("txtCodCCOS"), Qt::Key_Escape);
    EXPECT_FALSE(f->isVisible());
    EXPECT_EQ(f->result(), QDialog::Rejected);
}

TEST_F(Pantalla, LaPantallaSeRegistraPorSuTipo) {
    auto p = m::CreaPantalla(ConsultasDePresupuestos);
    ASSERT_NE(p, nullptr);
    EXPECT_NE(dynamic_cast<frmConPresup*>(p.get()), nullptr);
}

} // namespace

#include "PruebaPantalla.moc"
