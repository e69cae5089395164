// The purchasing screen driven as a user (and the batch host) would: the
// panel of each inquiry, the rules of documents, levels and orders, the
// trees' check rules, the lists, keys and pickers.

#include "EntornoCompras.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <map>

using namespace consultas;
using pruebas::PantallaEnPrueba;

namespace {

// 'E' enabled, 'D' disabled (shown), 'H' hidden.
char Estado(QDialog& d, const QString& nombre) {
    auto* w = d.findChild<QWidget*>(nombre);
    if (!w) {
        ADD_FAILURE() << "sin control " << nombre.toStdString();
        return '?';
    }
    if (!w->isVisibleTo(&d))
        return 'H';
    return w->isEnabled() ? 'E' : 'D';
}

bool Marcada(QDialog& d, const QString& nombre) {
    auto* b = d.findChild<QAbstractButton*>(nombre);
    return b && b->isChecked();
}

QTreeWidgetItem* Nodo(QTreeWidget* a, const QString& clave) {
    for (QTreeWidgetItemIterator it(a); *it; ++it)
        if (ClaveNodo(*it) == clave)
            return *it;
    return nullptr;
}

bool Marcado(QTreeWidget* a, const QString& clave) {
    QTreeWidgetItem* n = Nodo(a, clave);
    return n && n->checkState(0) == Qt::Checked;
}

struct Panel {
    int consulta;
    std::map<QString, char> estados;
    std::vector<QString> marcadas;
};

// The inquiries chosen one after the other, as a user going down the list.
const std::vector<Panel> Paneles = {
    {0,
     {{"chkExcel", 'E'},       {"dtpFecha[0]", 'E'}, {"optDetRes[2]", 'E'},
      {"optDoc[0]", 'D'},      {"optDoc[3]", 'E'},   {"optDoc[4]", 'E'},
      {"chkEstatus[0]", 'E'},  {"optOrden[0]", 'D'}, {"optTNI[1]", 'E'},
      {"txtCodProv", 'E'},     {"tvwGpos[0]", 'D'},  {"txtArt", 'D'},
      {"tvwGpos[1]", 'D'},     {"txtCCos", 'D'},     {"txtFolio", 'D'},
      {"cmbTipDoc", 'E'},      {"cmbImpuesto", 'H'}, {"chkResumen", 'D'},
      {"chkRegion", 'E'},      {"tvwAlm", 'E'},      {"cmdFunciones[1]", 'E'},
      {"cmdFunciones[2]", 'D'}},
     {"optDoc[3]", "optDetRes[0]", "optOrden[0]", "optTNI[0]", "chkEstatus[0]"}},
    {1,
     {{"chkExcel", 'E'},
      {"optDetRes[2]", 'E'},
      {"optDoc[0]", 'E'},
      {"optDoc[5]", 'E'},
      {"chkEstatus[0]", 'E'},
      {"optOrden[0]", 'E'},
      {"optOrden[1]", 'E'},
      {"optOrden[2]", 'D'},
      {"optOrden[4]", 'D'},
      {"optTNI[1]", 'E'},
      {"txtCodProv", 'E'},
      {"tvwGpos[0]", 'E'},
      {"txtArt", 'D'},
      {"tvwGpos[1]", 'D'},
      {"txtCCos", 'D'},
      {"txtFolio", 'D'},
      {"cmbTipDoc", 'E'},
      {"chkRegion", 'D'},
      {"tvwAlm", 'E'}},
     {"optDoc[1]", "optOrden[0]"}},
    {2,
     {{"chkExcel", 'H'},
      {"optDetRes[2]", 'E'},
      {"optDoc[1]", 'D'},
      {"chkEstatus[0]", 'D'},
      {"optOrden[0]", 'D'},
      {"optOrden[2]", 'E'},
      {"optOrden[3]", 'E'},
      {"optOrden[4]", 'D'},
      {"optTNI[0]", 'D'},
      {"txtCodProv", 'E'},
      {"tvwGpos[0]", 'D'},
      {"txtArt", 'E'},
      {"tvwGpos[1]", 'E'},
      {"txtCCos", 'D'},
      {"txtFolio", 'D'},
      {"cmbTipDoc", 'E'},
      {"tvwAlm", 'E'},
      {"cmdFunciones[2]", 'E'}},
     {"optOrden[2]"}},
    {3,
     {{"chkExcel", 'E'},
      {"optDetRes[1]", 'E'},
      {"optDetRes[2]", 'D'},
      {"optDoc[1]", 'D'},
      {"optOrden[0]", 'D'},
      {"optTNI[0]", 'D'},
      {"txtCodProv", 'D'},
      {"tvwGpos[0]", 'D'},
      {"txtArt", 'D'},
      {"tvwGpos[1]", 'D'},
      {"txtCCos", 'D'},
      {"txtFolio", 'D'},
      {"cmbTipDoc", 'D'},
      {"tvwAlm", 'D'},
      {"cmdFunciones[1]", 'D'}},
     {"optOrden[0]"}},
    {4,
     {{"chkExcel", 'E'},
      {"optDetRes[2]", 'E'},
      {"optOrden[0]", 'D'},
      {"txtCodProv", 'D'},
      {"tvwGpos[0]", 'E'},
      {"tvwGpos[1]", 'D'},
      {"txtFolio", 'H'},
      {"cmdBuscar[1]", 'H'},
      {"lblDatos[0]", 'H'},
      {"cmbTipDoc", 'H'},
      {"lblDatos[7]", 'H'},
      {"cmbImpuesto", 'E'},
      {"lblDatos[9]", 'E'},
      {"chkResumen", 'E'},
      {"chkIncluirDescuentos", 'E'},
      {"chkRegion", 'D'},
      {"tvwAlm", 'D'}},
     {}},
    {5,
     {{"chkExcel", 'H'},
      {"dtpFecha[1]", 'E'},
      {"optDetRes[0]", 'D'},
      {"optOrden[0]", 'E'},
      {"optOrden[1]", 'D'},
      {"optOrden[4]", 'E'},
      {"txtCodProv", 'E'},
      {"tvwGpos[0]", 'D'},
      {"txtArt", 'E'},
      {"txtFolio", 'E'},
      {"cmbTipDoc", 'D'},
      {"cmbImpuesto", 'H'}},
     {"optOrden[0]"}},
    {6,
     {{"chkExcel", 'H'},
      {"optDetRes[0]", 'E'},
      {"optDetRes[2]", 'D'},
      {"optOrden[1]", 'D'},
      {"optOrden[2]", 'E'},
      {"optOrden[4]", 'E'},
      {"txtCodProv", 'E'},
      {"tvwGpos[0]", 'E'},
      {"txtArt", 'D'},
      {"tvwGpos[1]", 'D'},
      {"txtFolio", 'D'},
      {"cmbTipDoc", 'E'}},
     {"optOrden[4]", "optDetRes[0]"}},
    {7,
     {{"chkExcel", 'H'},
      {"optDetRes[2]", 'D'},
      {"optDoc[0]", 'E'},
      {"optDoc[2]", 'E'},
      {"optDoc[3]", 'D'},
      {"chkEstatus[0]", 'E'},
      {"optOrden[0]", 'E'},
      {"optOrden[2]", 'E'},
      {"optOrden[4]", 'D'},
      {"optTNI[0]", 'D'},
      {"txtCodProv", 'D'},
      {"tvwGpos[0]", 'D'},
      {"txtArt", 'E'},
      {"tvwGpos[1]", 'E'},
      {"txtFolio", 'E'},
      {"cmbTipDoc", 'E'}},
     {"optDoc[0]", "optOrden[0]", "optDetRes[0]", "chkEstatus[0]"}},
    {8,
     {{"chkExcel", 'E'},
      {"dtpFecha[0]", 'D'},
      {"optDetRes[0]", 'D'},
      {"optOrden[0]", 'D'},
      {"txtCodProv", 'D'},
      {"txtArt", 'D'},
      {"txtFolio", 'E'},
      {"cmbTipDoc", 'D'}},
     {}},
    {9,
     {{"chkExcel", 'E'},
      {"dtpFecha[0]", 'E'},
      {"optDetRes[1]", 'D'},
      {"optOrden[0]", 'D'},
      {"txtCodProv", 'E'},
      {"tvwGpos[0]", 'D'},
      {"txtFolio", 'D'},
      {"cmbTipDoc", 'E'},
      {"tvwAlm", 'D'}},
     {"optOrden[0]"}},
};

} // namespace

TEST(PantallaCompras, CadaConsultaAbreSuPanel) {
    PantallaEnPrueba t;
    QDialog& d = t.P();
    EXPECT_EQ(d.windowTitle(), "CONSULTAS DE COMPRAS");
    EXPECT_EQ(t.P().cmbConsulta->count(), 10);
    for (const Panel& p : Paneles) {
        t.Fija("cmbConsulta", QString::number(p.consulta));
        SCOPED_TRACE("consulta " + std::to_string(p.consulta));
        for (const auto& [nombre, estado] : p.estados)
            EXPECT_EQ(Estado(d, nombre), estado) << nombre.toStdString();
        for (const QString& nombre : p.marcadas)
            EXPECT_TRUE(Marcada(d, nombre)) << nombre.toStdString();
        // Mejor Cotización asks for no order at all.
        for (int i = 0; p.consulta == 8 && i < 5; ++i)
            EXPECT_FALSE(t.P().optOrden[static_cast<size_t>(i)]->isChecked());
    }
    EXPECT_TRUE(t.guion->llamadas.empty());
}

TEST(PantallaCompras, AjustesDeControlesQueLaConsultaApagaSeRechazan) {
    PantallaEnPrueba t;
    t.Fija("cmbConsulta", "1");
    t.Fija("optDoc", "0"); // Requisición: no supplier, no national/imported choice
    EXPECT_TRUE(t.Refusa("optTNI", std::nullopt, "1").contains("optTNI[1]"));
    EXPECT_TRUE(t.Refusa("txtCodProv", std::nullopt, "P0001").contains("txtCodProv"));
    EXPECT_TRUE(t.Refusa("tvwGpos", 0, "G1").contains("tvwGpos[0]"));
    t.Fija("cmbConsulta", "4");
    EXPECT_TRUE(t.Refusa("txtFolio", std::nullopt, "X").contains("txtFolio"));
    t.Fija("cmbImpuesto", "3");
    EXPECT_EQ(CodigoCombo(t.P().cmbImpuesto), "3");
}

TEST(PantallaCompras, SinPrevioDeCompraDiferenciasQuedaConElPanelDeDiferencias) {
    auto& suite = pruebas::EntornoCompras::De("sqlite");
    suite.Base().Ejecuta("UPDATE tblParametrosGenerales SET CP_PREVIO=0");
    {
        PantallaEnPrueba t;
        t.Fija("cmbConsulta", "5");
        ASSERT_EQ(t.guion->Cuenta("Mensaje"), 1);
        EXPECT_EQ(t.guion->De("Mensaje")[0].texto,
                  QString::fromUtf8("La consulta 'Diferencias en Recepción' está disponible "
                                    "cuando está activado 'Previo de Compra'"));
        // The list shows Descuentos, the controls are those of Diferencias.
        EXPECT_EQ(t.P().cmbConsulta->currentIndex(), 6);
        EXPECT_EQ(Estado(t.P(), "txtFolio"), 'E');
        EXPECT_EQ(Estado(t.P(), "optDetRes[0]"), 'D');
        EXPECT_EQ(Estado(t.P(), "txtArt"), 'E');
    }
    suite.Base().Ejecuta("UPDATE tblParametrosGenerales SET CP_PREVIO=1");
}

TEST(PantallaCompras, ReglasDeDocumentoYNivel) {
    PantallaEnPrueba t;
    auto& p = t.P();
    // Diario: a return is always of all origins.
    t.Fija("optTNI", "2");
    t.Fija("optDoc", "4");
    EXPECT_TRUE(p.optTNI[0]->isChecked());
    EXPECT_FALSE(p.optTNI[1]->isEnabled());
    t.Fija("optDoc", "3");
    EXPECT_TRUE(p.optTNI[2]->isEnabled());

    // Relación: cost centres for requisitions, orders and receipts only;
    // a delivery note has no status.
    t.Fija("cmbConsulta", "1");
    t.Fija("optDoc", "2");
    EXPECT_TRUE(p.txtCCos->isEnabled());
    t.Fija("optDoc", "5");
    EXPECT_FALSE(p.txtCCos->isEnabled());
    EXPECT_FALSE(p.chkEstatus[0]->isEnabled());
    EXPECT_FALSE(p.optTNI[0]->isEnabled());
    // Global orders by supplier only.
    t.Fija("optDetRes", "2");
    EXPECT_TRUE(p.optOrden[4]->isChecked());
    EXPECT_FALSE(p.optOrden[0]->isEnabled());
    t.Fija("optDetRes", "1");
    EXPECT_TRUE(p.optOrden[0]->isChecked());
    EXPECT_FALSE(p.optOrden[4]->isEnabled());

    // Backorder straight after a requisition list: optDoc 0 is already set,
    // so its rule does not run and the status boxes stay off.
    t.Fija("optDoc", "0");
    t.Fija("cmbConsulta", "7");
    EXPECT_TRUE(p.optDoc[0]->isChecked());
    EXPECT_FALSE(p.chkEstatus[0]->isEnabled());
    t.Fija("optDoc", "2");
    EXPECT_TRUE(p.chkEstatus[0]->isEnabled());
    EXPECT_TRUE(p.txtCodProv->isEnabled());
    t.Fija("optDetRes", "1");
    EXPECT_TRUE(p.optOrden[2]->isChecked());
    EXPECT_FALSE(p.txtCodProv->isEnabled());
    EXPECT_FALSE(p.tvwGpos[0]->isEnabled());

    // Descuentos: by supplier or by article.
    t.Fija("cmbConsulta", "6");
    t.Fija("optOrden", "2");
    EXPECT_TRUE(p.txtArt->isEnabled());
    EXPECT_FALSE(p.txtCodProv->isEnabled());
    t.Fija("optOrden", "4");
    EXPECT_FALSE(p.tvwGpos[1]->isEnabled());
    EXPECT_TRUE(p.tvwGpos[0]->isEnabled());
}

TEST(PantallaCompras, ReglasDeLosArboles) {
    PantallaEnPrueba t;
    auto& p = t.P();
    QTreeWidget* prov = p.tvwGpos[0];
    // Compras Desglosado: a group checks its children and unchecks the
    // other groups, but a child of another group brings its group back.
    t.Fija("cmbConsulta", "4");
    t.Fija("tvwGpos", 0, "G1");
    EXPECT_TRUE(Marcado(prov, "A1") && Marcado(prov, "A3"));
    t.Fija("tvwGpos", 0, "G2");
    EXPECT_FALSE(Marcado(prov, "G1"));
    EXPECT_FALSE(Marcado(prov, "A1"));
    t.Fija("tvwGpos", 0, "A2");
    EXPECT_TRUE(Marcado(prov, "G1"));
    EXPECT_TRUE(Marcado(prov, "G2"));
    // Unchecking the last checked child drops its group.
    Nodo(prov, "A2")->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(Marcado(prov, "G1"));
    Nodo(prov, "A4")->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(Marcado(prov, "G2"));
    EXPECT_FALSE(GposCompletos(prov, 1));

    // Elsewhere groups add up; checks survive a change of inquiry.
    t.Fija("cmbConsulta", "1");
    t.Fija("tvwGpos", 0, "G3");
    EXPECT_TRUE(Marcado(prov, "G2") && Marcado(prov, "G3"));

    // Two-level warehouses: a branch brings its first warehouse only.
    t.Fija("cmbConsulta", "2");
    QTreeWidget* alm = p.tvwAlm;
    EXPECT_EQ(alm->topLevelItemCount(), 3);
    t.Fija("tvwAlm", "CS01");
    EXPECT_TRUE(Marcado(alm, "AAL01"));
    EXPECT_FALSE(Marcado(alm, "AAL02"));
    Nodo(alm, "CS01")->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(Marcado(alm, "AAL01"));
    // A new panel reloads the tree without its checks, branches only.
    t.Fija("tvwAlm", "CS02");
    t.Fija("cmbConsulta", "0");
    EXPECT_EQ(Nodo(alm, "CS02")->childCount(), 0);
    EXPECT_FALSE(Marcado(alm, "CS02"));
}

TEST(PantallaCompras, ListasConSusCodigos) {
    PantallaEnPrueba t;
    auto& p = t.P();
    // Defaults: the regional settings, and code 1 of the tax and type lists.
    EXPECT_EQ(CodigoCombo(p.cmbRegion[0]), "GDL");
    EXPECT_EQ(CodigoCombo(p.cmbRegion[2]), "MEX");
    EXPECT_EQ(CodigoCombo(p.cmbTipDoc), "1");
    EXPECT_EQ(CodigoCombo(p.cmbImpuesto), "1");
    // The region lists open with "Por Región".
    EXPECT_FALSE(p.cmbRegion[0]->isEnabled());
    t.Fija("chkRegion", "1");
    EXPECT_TRUE(p.cmbRegion[0]->isEnabled());

    // Type lists refuse typing but can be emptied, which drops the filter.
    p.cmbTipDoc->lineEdit()->setFocus();
    p.cmbTipDoc->lineEdit()->selectAll();
    QTest::keyClicks(p.cmbTipDoc->lineEdit(), "xyz");
    EXPECT_EQ(p.cmbTipDoc->currentText(), "Compra normal");
    QTest::keyClick(p.cmbTipDoc->lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(p.cmbTipDoc->currentText(), "");
    EXPECT_EQ(CodigoCombo(p.cmbTipDoc), "");

    // An unknown code: an editable list shows nothing, a fixed one its first row.
    UbicaCombo("ZZZ", p.cmbRegion[1]);
    EXPECT_EQ(p.cmbRegion[1]->currentIndex(), -1);
    UbicaCombo("ZZZ", p.cmbImpuesto);
    EXPECT_EQ(p.cmbImpuesto->currentIndex(), 0);

    // Code boxes drop the apostrophe.
    p.txtCodProv->setFocus();
    QTest::keyClicks(p.txtCodProv, "P0'1");
    EXPECT_EQ(p.txtCodProv->text(), "P01");

    // The period never runs backwards.
    p.dtpFecha[0]->setDate(QDate(2025, 1, 1));
    p.dtpFecha[1]->setDate(QDate(2025, 3, 1));
    p.dtpFecha[0]->setDate(QDate(2025, 4, 1));
    EXPECT_EQ(p.dtpFecha[1]->date(), QDate(2025, 4, 1));
}

TEST(PantallaCompras, TeclasYBuscadoresAunConCajasApagadas) {
    PantallaEnPrueba t;
    auto& p = t.P();
    t.Fija("cmbConsulta", "3"); // Compras Netas: no supplier, no article
    t.guion->resultadosBusqueda = {"P0003", "ART-9", "RQ0000001"};
    QTest::keyClick(&p, Qt::Key_F6);
    QTest::keyClick(&p, Qt::Key_F7);
    EXPECT_EQ(p.txtCodProv->text(), "P0003");
    EXPECT_EQ(p.txtArt->text(), "ART-9");
    ASSERT_EQ(t.guion->Cuenta("Mostrar"), 2);
    EXPECT_EQ(t.guion->De("Mostrar")[0].texto, "PROVEEDORES");
    // The run ignores what the disabled boxes hold.
    QTest::keyClick(&p, Qt::Key_F10);
    ASSERT_TRUE(t.documento.has_value());
    EXPECT_TRUE(p.Seleccion().CodProv.isEmpty());
    EXPECT_TRUE(p.Seleccion().CodArt.isEmpty());

    // The folio picker asks for requisitions in Mejor Cotización.
    t.Fija("cmbConsulta", "8");
    p.cmdBuscar[1]->click();
    EXPECT_EQ(p.txtFolio->text(), "RQ0000001");
    EXPECT_EQ(t.guion->De("Mostrar").back().numero, DocRequisicion);
}
