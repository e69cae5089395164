// What a run of the purchasing screen gathers into SeleccionCompras, its two
// refusals, and the page the run shows, on both engines.

#include "EntornoCompras.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QTest>
#include <QTreeWidget>

using namespace consultas;
using pruebas::PantallaEnPrueba;

class SeleccionCompras_ : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override {
        if (GetParam() == "postgres")
            REQUIERE_POSTGRES();
        t = std::make_unique<PantallaEnPrueba>(GetParam());
    }
    const SeleccionCompras& S() { return t->P().Seleccion(); }
    void Corre() {
        t->documento.reset();
        QTest::keyClick(&t->P(), Qt::Key_F10);
    }
    std::unique_ptr<PantallaEnPrueba> t;
};

TEST_P(SeleccionCompras_, DiarioReuneFechasSucursalesYDocumento) {
    t->Fija("dtpFecha", 0, "2026-01-01");
    t->Fija("dtpFecha", 1, "2026-01-31");
    t->Fija("optDoc", "4");
    t->Fija("optDetRes", "1");
    t->Fija("tvwAlm", "CS01,CS03");
    t->Fija("txtCodProv", "P0001");
    t->P().txtCCos->setText("0003"); // disabled here: says nothing
    Corre();
    // Returns with a supplier name the receipts' table, which their
    // statement does not join: the engine refuses it and no document comes.
    EXPECT_FALSE(t->documento.has_value());
    EXPECT_EQ(S().ConsultaActual, 0);
    EXPECT_EQ(S().DocumentoActual, 4);
    EXPECT_FALSE(S().Detallado);
    EXPECT_EQ(S().FechaIni, "'2026-01-01'");
    EXPECT_EQ(S().FechaFin, "'2026-01-31'");
    EXPECT_EQ(S().ListaAlm, "'S01','S03'");
    EXPECT_EQ(S().CodProv, "P0001");
    EXPECT_TRUE(S().CodCCos.isEmpty());
    EXPECT_EQ(S().EstActivos, 1);
    EXPECT_EQ(S().EstSurtidos, 0);
    EXPECT_FALSE(S().HayGrupos);
    EXPECT_TRUE(t->P().ControlesCorrida().Resumido);
    EXPECT_EQ(t->P().ControlesCorrida().TipoDocCodigo, "1");
    EXPECT_TRUE(S().SqlConsulta.contains(" (tblComprasEnc.COD_PROV ='P0001') AND"));
}

TEST_P(SeleccionCompras_, UnProveedorEscritoDejaFueraElArbolSalvoEnBackorderConFolio) {
    t->Fija("cmbConsulta", "1");
    t->Fija("optDoc", "2");
    t->Fija("tvwGpos", 0, "G1");
    t->Fija("txtCodProv", "P0001");
    Corre();
    EXPECT_TRUE(S().ListaAgrProv.isEmpty());
    EXPECT_FALSE(S().HayGrupos);
    EXPECT_EQ(S().CodCCos, "");

    t->Fija("txtCodProv", "");
    Corre();
    EXPECT_EQ(S().ListaAgrProv, "1,3,2"); // tree order: by group, then name
    EXPECT_TRUE(S().HayGrupos);
    EXPECT_TRUE(S().SelectGpoProv.startsWith("SELECT tblGpoAgrProveedor.COD_PROV,"));

    // Backorder of purchase orders, detailed: a typed supplier and a folio
    // still read the supplier tree; the article tree gives its list but no
    // group form.
    t->Fija("cmbConsulta", "7");
    t->Fija("optDoc", "2");
    t->Fija("txtCodProv", "P0001");
    t->Fija("txtFolio", "OC0000001");
    t->Fija("tvwGpos", 1, "G2");
    Corre();
    EXPECT_EQ(S().ListaAgrProv, "1,3,2");
    QStringList articulos = S().ListaAgrArt.split(',');
    articulos.sort();
    EXPECT_EQ(articulos.join(','), "4,5");
    EXPECT_TRUE(S().SelectGpoArt.startsWith("SELECT tblGpoArticulos.COD1_ART,"));
    EXPECT_TRUE(S().HayGrupos); // from the supplier tree
    t->Fija("tvwGpos", 0, "G1");
    t->P().tvwGpos[0]->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    Corre();
    EXPECT_TRUE(S().ListaAgrProv.isEmpty());
    EXPECT_FALSE(S().HayGrupos);
    // Not detailed, purchase orders do take the group form.
    t->Fija("optDetRes", "1");
    Corre();
    EXPECT_TRUE(S().HayGrupos);

    // A typed article leaves the article tree out.
    t->Fija("txtArt", "ART-1");
    Corre();
    EXPECT_TRUE(S().ListaAgrArt.isEmpty());
}

TEST_P(SeleccionCompras_, DesglosadoPideUnGrupo) {
    t->Fija("cmbConsulta", "4");
    Corre();
    EXPECT_FALSE(t->documento.has_value());
    ASSERT_EQ(t->guion->Cuenta("Mensaje"), 1);
    EXPECT_EQ(t->guion->De("Mensaje")[0].texto,
              "Es necesario elegir un grupo para la consulta seleccionada");

    // A group checked and its children unchecked lists nothing and still runs.
    {
        QSignalBlocker sinReglas(t->P().tvwGpos[0]);
        t->P().tvwGpos[0]->topLevelItem(2)->setCheckState(0, Qt::Checked);
    }
    Corre();
    EXPECT_TRUE(t->documento.has_value());
    EXPECT_EQ(S().GrupoElegido, 3);
    EXPECT_TRUE(S().ListaAgrProv.isEmpty());

    // Two groups through a child: the last one wins.
    t->Fija("tvwGpos", 0, "G1");
    t->Fija("tvwGpos", 0, "A5");
    Corre();
    EXPECT_EQ(S().GrupoElegido, 2);
    EXPECT_EQ(S().ListaAgrProv, "1,3,2,5");
}

TEST_P(SeleccionCompras_, MejorCotizacionPideFolio) {
    t->Fija("cmbConsulta", "8");
    t->Fija("txtFolio", "   ");
    Corre();
    EXPECT_FALSE(t->documento.has_value());
    ASSERT_EQ(t->guion->Cuenta("Mensaje"), 1);
    EXPECT_EQ(t->guion->De("Mensaje")[0].texto,
              QString::fromUtf8("Es necesario elegir folio de requisición"));
    t->Fija("txtFolio", "RQ0000001");
    Corre();
    ASSERT_TRUE(t->documento.has_value());
    EXPECT_EQ(S().OrdenActual, 0);
    EXPECT_EQ(S().FolioSel, "RQ0000001");

    // Blanks are refused only here; elsewhere they go in as typed.
    t->Fija("cmbConsulta", "5");
    t->Fija("txtFolio", "   ");
    Corre();
    EXPECT_EQ(S().FolioSel, "   ");
}

TEST_P(SeleccionCompras_, AlmacenesCuentanSoloFueraDeDiarioYRelacion) {
    t->Fija("cmbConsulta", "2");
    t->Fija("tvwAlm", "CS01");
    t->Fija("optOrden", "3");
    Corre();
    EXPECT_EQ(S().ListaAlm, "'AL01'");
    EXPECT_EQ(S().OrdenActual, 3);
    t->P().tvwAlm->topLevelItem(0)->child(0)->setCheckState(0, Qt::Unchecked);
    t->P().tvwAlm->topLevelItem(0)->setCheckState(0, Qt::Checked);
    t->P().tvwAlm->topLevelItem(0)->child(0)->setCheckState(0, Qt::Unchecked);
    Corre();
    EXPECT_TRUE(S().ListaAlm.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Motores, SeleccionCompras_, ::testing::Values("sqlite", "postgres"));
