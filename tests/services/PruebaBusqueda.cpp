// The pickers over a fixture database on SQLite and PostgreSQL: what each
// lists, and the search window driven by keys and the mouse.
#include "core/Conexion.h"
#include "services/ListasBusqueda.h"
#include "services/ServiciosQt.h"
#include "soporte/Soporte.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "soporte/Modal.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace {

void CreaFixture(pruebas::BaseDePrueba& b) {
    b.Ejecuta({
        "CREATE TABLE tblCatProveedor (COD_PROV VARCHAR(20) PRIMARY KEY, NOM_PROV VARCHAR(254))",
        "INSERT INTO tblCatProveedor VALUES ('P001', 'ACME DEL NORTE')",
        "INSERT INTO tblCatProveedor VALUES ('P002', 'Acme Sur')",
        "INSERT INTO tblCatProveedor VALUES ('P003', 'Papelería Núñez')",
        "INSERT INTO tblCatProveedor VALUES ('P010', 'Herramientas López')",
        "CREATE TABLE tblCentrosCostos (COD_CCOS INTEGER PRIMARY KEY, DES_CCOS VARCHAR(60))",
        "INSERT INTO tblCentrosCostos VALUES (1, 'ADMINISTRACIÓN')",
        "INSERT INTO tblCentrosCostos VALUES (2, 'PRODUCCIÓN')",
        "INSERT INTO tblCentrosCostos VALUES (12, 'VENTAS')",
        "CREATE TABLE tblConDePresu (COD_CPRE INTEGER PRIMARY KEY, DES_CPRE VARCHAR(60), "
        "COD_CCOS INTEGER)",
        "INSERT INTO tblConDePresu VALUES (5, 'PAPELERÍA', 1)",
        "INSERT INTO tblConDePresu VALUES (7, 'MANTENIMIENTO', 2)",
        "INSERT INTO tblConDePresu VALUES (9, 'SIN CENTRO', NULL)",
        "CREATE TABLE tblRequisicionesEnc (FOL_REQ VARCHAR(20) PRIMARY KEY, FEC_REQ DATE)",
        "INSERT INTO tblRequisicionesEnc VALUES ('REQ-1', '2024-03-01')",
        "INSERT INTO tblRequisicionesEnc VALUES ('REQ-2', '2024-03-05')",
        "CREATE TABLE tblCatArticulos (COD1_ART VARCHAR(20) PRIMARY KEY, DES1_ART VARCHAR(100))",
        "INSERT INTO tblCatArticulos VALUES ('A-10', 'TORNILLO 1/4')",
        "INSERT INTO tblCatArticulos VALUES ('B-20', 'Cañería de cobre')",
        "CREATE TABLE tblUndCosPreArt (COD1_ART VARCHAR(20), COD_UND VARCHAR(10), EQV_UND REAL)",
        "INSERT INTO tblUndCosPreArt VALUES ('A-10', 'PZA', 1)",
        "INSERT INTO tblUndCosPreArt VALUES ('A-10', 'CJA', 100)",
    });
    // The supplier documents share a shape: folio, date, supplier.
    const char* tablas[][3] = {{"tblCotizacionesEnc", "FOL_COTI", "FEC_COTI"},
                               {"tblOCOMEnc", "FOL_OCOM", "FEC_OCOM"},
                               {"tblComprasEnc", "FOL_DOC", "FEC_DOC"},
                               {"tblDevolucionEnc", "FOL_DEV", "FEC_DEV"}};
    for (auto& t : tablas) {
        b.Ejecuta(QString("CREATE TABLE %1 (%2 VARCHAR(20) PRIMARY KEY, %3 DATE, "
                          "COD_PROV VARCHAR(20))")
                      .arg(t[0], t[1], t[2]));
        b.Ejecuta(QString("INSERT INTO %1 VALUES ('%2-1', '2024-02-10', 'P001')").arg(t[0], t[1]));
        b.Ejecuta(QString("INSERT INTO %1 VALUES ('%2-2', '2024-02-20', 'P999')").arg(t[0], t[1]));
    }
    b.Ejecuta({"CREATE TABLE tblCxPEnc (NUM_MOV INTEGER PRIMARY KEY, FOL_DOC VARCHAR(20), "
               "FEC_DOC DATE, COD_PROV VARCHAR(20))",
               "INSERT INTO tblCxPEnc VALUES (1, 'FAC-77', '2024-01-31', 'P003')"});
}

template <class F> void AlAbrir(F accion) {
    pruebas::AlAbrir<frmBusqueda>(accion);
}

QLineEdit* Filtro(frmBusqueda* w) {
    return w->findChild<QLineEdit*>("txtFiltro");
}

class Busqueda : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override {
        if (GetParam() == "postgres")
            REQUIERE_POSTGRES();
        base = pruebas::NuevaBase(GetParam());
        CreaFixture(*base);
        ASSERT_TRUE(cn.Abrir(base->Cadena())) << cn.UltimoError().toStdString();
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    Conexion cn;
};

} // namespace

TEST_P(Busqueda, CatalogosListanCodigoYDescripcion) {
    ListaBusqueda l = ListaCatalogo(cn, "PROVEEDORES");
    ASSERT_EQ(l.filas.size(), 4u);
    EXPECT_EQ(l.filas[2], QStringList({"P003", "Papelería Núñez"}));

    // Numeric codes come back as plain integers, which the budget screen
    // converts.
    l = ListaCatalogo(cn, "ccostos");
    ASSERT_EQ(l.filas.size(), 3u);
    EXPECT_EQ(l.filas[2], QStringList({"12", "VENTAS"}));

    l = ListaCatalogo(cn, "CONPRESUPUESTOS");
    ASSERT_EQ(l.filas.size(), 3u);
    EXPECT_EQ(l.filas[0], QStringList({"5", "PAPELERÍA", "ADMINISTRACIÓN"}));
    EXPECT_EQ(l.filas[2], QStringList({"9", "SIN CENTRO", ""}));

    EXPECT_THROW(ListaCatalogo(cn, "CLIENTES"), ErrorConsulta);
}

TEST_P(Busqueda, DocumentosDeCadaTipoRecientesPrimero) {
    const std::pair<int, QString> tipos[] = {{DocCotizacion, "FOL_COTI"},
                                             {DocOrdenCompra, "FOL_OCOM"},
                                             {DocRecepcion, "FOL_DOC"},
                                             {DocDevolucion, "FOL_DEV"}};
    for (const auto& [tipo, folio] : tipos) {
        const ListaBusqueda l = ListaDocumentos(cn, tipo);
        ASSERT_EQ(l.filas.size(), 2u) << tipo;
        EXPECT_EQ(l.filas[0], QStringList({folio + "-2", "20/02/2024", "P999", ""}));
        EXPECT_EQ(l.filas[1], QStringList({folio + "-1", "10/02/2024", "P001", "ACME DEL NORTE"}));
    }
    ListaBusqueda l = ListaDocumentos(cn, DocRequisicion);
    ASSERT_EQ(l.filas.size(), 2u);
    EXPECT_EQ(l.filas[0], QStringList({"REQ-2", "05/03/2024"}));
    l = ListaDocumentos(cn, DocCuentasPorPagar);
    ASSERT_EQ(l.filas.size(), 1u);
    EXPECT_EQ(l.filas[0], QStringList({"FAC-77", "31/01/2024", "P003", "Papelería Núñez"}));
    EXPECT_THROW(ListaDocumentos(cn, 99), ErrorConsulta);
}

TEST_P(Busqueda, ArticulosConYSinColumnaDeUnidades) {
    ListaBusqueda l = ListaArticulos(cn, false);
    ASSERT_EQ(l.filas.size(), 2u);
    EXPECT_EQ(l.encabezados.size(), 2);
    l = ListaArticulos(cn, true);
    EXPECT_EQ(l.encabezados.size(), 3);
    EXPECT_EQ(l.filas[0], QStringList({"A-10", "TORNILLO 1/4", "CJA, PZA"}));
    EXPECT_EQ(l.filas[1], QStringList({"B-20", "Cañería de cobre", ""}));
}

TEST_P(Busqueda, ElFiltroAcotaYEnterEligeElCodigo) {
    BusquedaQt b;
    int antes = -1, conAcme = -1, conNorte = -1;
    AlAbrir([&](frmBusqueda* w) {
        antes = w->FilasVisibles();
        QTest::keyClicks(Filtro(w), "acme");
        conAcme = w->FilasVisibles();
        QTest::keyClicks(Filtro(w), " norte");
        conNorte = w->FilasVisibles();
        QTest::keyClick(Filtro(w), Qt::Key_Return);
    });
    b.Mostrar(base->Cadena(), 4, "", "", "PROVEEDORES", "", 0);
    EXPECT_EQ(antes, 4);
    EXPECT_EQ(conAcme, 2);
    EXPECT_EQ(conNorte, 1);
    EXPECT_EQ(b.Resultado(), "P001");
}

INSTANTIATE_TEST_SUITE_P(Motores, Busqueda, ::testing::Values("sqlite", "postgres"));

// The window itself is the same on every engine: SQLite is enough.
class VentanaBusqueda : public ::testing::Test {
protected:
    void SetUp() override {
        base = pruebas::NuevaSqlite();
        CreaFixture(*base);
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
};

TEST_F(VentanaBusqueda, EscCancelaConResultadoVacio) {
    BusquedaQt b;
    AlAbrir([](frmBusqueda* w) {
        QTest::keyClicks(Filtro(w), "P0");
        QTest::keyClick(Filtro(w), Qt::Key_Escape);
    });
    b.Mostrar(base->Cadena(), 4, "", "", "CCOSTOS", "", 0);
    EXPECT_EQ(b.Resultado(), "");
}

TEST_F(VentanaBusqueda, FiltroInicialSinAcentosYFlechasEnLaTabla) {
    BusquedaQt b;
    int inicial = -1, todas = -1;
    AlAbrir([&](frmBusqueda* w) {
        inicial = w->FilasVisibles();
        // Emptied, the filter shows all again; the arrows pass from the
        // filter box to the table.
        QTest::keyClick(Filtro(w), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(Filtro(w), Qt::Key_Delete);
        todas = w->FilasVisibles();
        QTest::keyClick(Filtro(w), Qt::Key_Down);
        QTest::keyClick(Filtro(w), Qt::Key_Down);
        QTest::keyClick(Filtro(w), Qt::Key_Return);
    });
    b.Mostrar(base->Cadena(), 4, "", "", "PROVEEDORES", "papeleria nunez", 0);
    EXPECT_EQ(inicial, 1);
    EXPECT_EQ(todas, 4);
    EXPECT_EQ(b.Resultado(), "P003"); // third row after two steps down from the first
}

TEST_F(VentanaBusqueda, DobleClicEligeUnDocumento) {
    BuscaDocumentoQt d;
    AlAbrir([](frmBusqueda* w) {
        auto* t = w->findChild<QTableView*>("grdResultados");
        ASSERT_TRUE(t);
        const QRect r = t->visualRect(t->model()->index(1, 0));
        // The view takes a double click only on the row that was pressed.
        QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, r.center());
        QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, r.center());
    });
    d.Mostrar(base->Cadena(), 4, "", "", 1, DocRecepcion, "", "", false, "", "");
    EXPECT_EQ(d.Resultado(), "FOL_DOC-1");
}

TEST_F(VentanaBusqueda, EnterSinFilasNoCierraYArticuloSeElige) {
    BuscaArticuloQt a;
    bool abiertaSinFilas = false;
    AlAbrir([&](frmBusqueda* w) {
        QTest::keyClicks(Filtro(w), "zzz");
        QTest::keyClick(Filtro(w), Qt::Key_Return);
        abiertaSinFilas = w->isVisible() && w->FilasVisibles() == 0;
        Filtro(w)->setText("cañeria");
        QTest::keyClick(Filtro(w), Qt::Key_Return);
    });
    a.Mostrar(base->Cadena(), 4, "", 2, "", "/suite", true);
    EXPECT_TRUE(abiertaSinFilas);
    EXPECT_EQ(a.Resultado(), "B-20");
}

TEST_F(VentanaBusqueda, ConexionQueNoAbreEsUnFallo) {
    BusquedaQt b;
    EXPECT_THROW(b.Mostrar("/no/existe.db", 4, "", "", "PROVEEDORES", "", 0), ErrorConsulta);
    EXPECT_EQ(b.Resultado(), "");
}
