// The purchasing screen run by the batch host: the inquiry first, then the
// controls its panel opens, and refusals that name the control.

#include "EntornoCompras.h"

#include "OpcionesHost.h"
#include "Subcomandos.h"

#include <QFile>

using namespace consultas;

namespace {

class LoteCompras : public ::testing::Test {
protected:
    int Corre(const QStringList& ajustes) {
        auto& suite = pruebas::EntornoCompras::De("sqlite");
        salida = suite.Carpeta() + "/salida.jsonl";
        QFile::remove(salida);
        QStringList args{"--conexion",    suite.Base().Cadena(), "--motor", "4",       "--ruta",
                         suite.Carpeta(), "--pantalla",          "compras", "--jsonl", salida};
        args += ajustes;
        try {
            return host::CmdEjecutar(args);
        } catch (const host::ErrorUso& e) {
            error = e.mensaje;
            return host::SalidaUso;
        }
    }
    QString Dump() {
        QFile f(salida);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    QString salida, error;
};

} // namespace

TEST_F(LoteCompras, ConsultaPrimeroYLuegoSuPanel) {
    EXPECT_EQ(Corre({"cmbConsulta=1", "optDoc=2", "optDetRes=2", "optOrden=4", "tvwGpos[0]=G2",
                     "txtCCos=0001", "dtpFecha[0]=2026-01-01", "chkExcel=1"}),
              host::SalidaBien);
    EXPECT_TRUE(Dump().contains(QString::fromUtf8("Página  : 1 / 1")));

    // Requisitions leave out the national or imported choice.
    EXPECT_EQ(Corre({"cmbConsulta=1", "optDoc=0", "optTNI=1"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("optTNI[1]"));
    EXPECT_TRUE(Dump().isEmpty());
    EXPECT_EQ(Corre({"cmbConsulta=4", "cmbTipDoc=2"}), host::SalidaUso);
    EXPECT_TRUE(error.contains("cmbTipDoc"));

    // The two refusals of the run.
    EXPECT_EQ(Corre({"cmbConsulta=4"}), host::SalidaRechazo);
    EXPECT_EQ(Corre({"cmbConsulta=8"}), host::SalidaRechazo);
    EXPECT_EQ(Corre({"cmbConsulta=8", "txtFolio=RQ0000001"}), host::SalidaBien);
}
