// consultas ejecutar over a stand-in screen: settings applied as user
// actions, refusals, failures and the outputs of the finished document.
#include "OpcionesHost.h"
#include "Subcomandos.h"
#include "core/modConCompras.h"
#include "services/PantallaBase.h"
#include "services/Servicios.h"
#include "soporte/Soporte.h"
#include "surface/CorridaPaginas.h"
#include "surface/SalidaLote.h"
#include "surface/VistaPrevia.h"

#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace consultas;
namespace m = consultas::modConCompras;

namespace {

class PantallaPrueba : public PantallaBase {
public:
    PantallaPrueba() {
        auto* chk = new QCheckBox(this);
        chk->setObjectName("chkExcel");
        folio = new QLineEdit(this);
        folio->setObjectName("txtFolio");
        // Leaving the box upper-cases it, as a screen's rule would.
        connect(folio, &QLineEdit::editingFinished, this,
                [this] { folio->setText(folio->text().toUpper()); });
        for (int i = 0; i < 3; ++i) {
            opciones[i] = new QRadioButton(this);
            opciones[i]->setObjectName(QString("optDoc[%1]").arg(i));
        }
        opciones[0]->setChecked(true);
        opciones[2]->setEnabled(false);
        auto* oculto = new QLineEdit(this);
        oculto->setObjectName("txtOculto");
        oculto->hide();
        excel = chk;
    }
    void Consultar() override {
        EjecutaProtegido([this] {
            if (folio->text().isEmpty()) {
                servicios::CreaMensajes()->Mensaje(0, 0, "Es necesario elegir folio", 0);
                return;
            }
            CorridaPaginas corrida;
            corrida.Mostrar = vista::Muestra;
            corrida.EjecutarConsulta(vista::SuperficieCompartida(), [&] {
                if (folio->text() == "FALLA")
                    m::ConexionCompartida->Abre("SELECT NO_HAY FROM tblNada");
                Superficie& s = *corrida.SuperficieActual;
                s.TextOut(0, 0, "Folio " + folio->text());
                s.TextOut(0, 240,
                          QString("Excel %1 opción %2")
                              .arg(excel->isChecked())
                              .arg(opciones[1]->isChecked() ? 1 : 0));
            });
        });
    }
    QLineEdit* folio;
    QCheckBox* excel;
    QRadioButton* opciones[3];
};

class Ejecutar : public ::testing::Test {
protected:
    void SetUp() override {
        m::RegistraPantalla(ConsultasDeCuentasPorPagar,
                            [] { return std::make_unique<PantallaPrueba>(); });
        base = pruebas::NuevaSqlite();
        base->Ejecuta("CREATE TABLE t (x INTEGER)");
        QFile ini(dir.filePath("VALMOR.INI"));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[VARIOS]\nDIRCONSULTAS=" + dir.path().toUtf8() + "\n");
    }
    void TearDown() override { m::RegistraPantalla(ConsultasDeCuentasPorPagar, nullptr); }
    int Corre(QStringList ajustes) {
        QStringList args{"--conexion", base->Cadena(), "--ruta",  dir.path(),
                         "--pantalla", "cxpag",        "--jsonl", dir.filePath("salida.jsonl")};
        args += ajustes;
        try {
            return host::CmdEjecutar(args);
        } catch (const host::ErrorUso& e) {
            error = e.mensaje;
            return host::SalidaUso;
        }
    }
    QString Dump() {
        QFile f(dir.filePath("salida.jsonl"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    QTemporaryDir dir;
    std::unique_ptr<pruebas::BaseDePrueba> base;
    QString error;
};

} // namespace

TEST_F(Ejecutar, AjustesComoAccionesDelUsuarioYDocumentoALasSalidas) {
    ASSERT_EQ(Corre({"txtFolio=abc", "chkExcel=1", "optDoc=1"}), 0) << error.toStdString();
    const QString dump = Dump();
    EXPECT_TRUE(dump.contains("\"text\":\"Folio ABC\"")) << dump.toStdString();
    EXPECT_TRUE(dump.contains("\"text\":\"Excel 1 opción 1\"")) << dump.toStdString();
    EXPECT_TRUE(dump.contains("\"text\":\"Página  : 1 / 1\"")) << dump.toStdString();
    // Nothing is left in the work folder.
    EXPECT_EQ(QDir(dir.path()).entryList({"*.emf"}, QDir::Files).size(), 0);
}

TEST_F(Ejecutar, AjustesRechazadosNombranElControl) {
    EXPECT_EQ(Corre({"txtFolio=1", "optDoc=2"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("optDoc[2]")) << error.toStdString();
    EXPECT_EQ(Corre({"txtOculto=1"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("txtOculto")) << error.toStdString();
    EXPECT_EQ(Corre({"chkNada=1"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("chkNada")) << error.toStdString();
    EXPECT_EQ(Corre({"chkExcel=2"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("chkExcel")) << error.toStdString();
    EXPECT_TRUE(Dump().isEmpty());
}

TEST_F(Ejecutar, RechazoDeLaPantallaYFalloDeLaCorrida) {
    EXPECT_EQ(Corre({}), host::SalidaRechazo);
    EXPECT_EQ(Corre({"txtFolio=falla"}), host::SalidaFallo);
    EXPECT_TRUE(Dump().isEmpty());
}
