// The document listing on a small suite whose figures are worked by hand,
// run on every engine through the page run and read back from the document
// and from the spreadsheet file.

#include "EntornoCompras.h"
#include "GeneradorDemo.h"
#include "compras/EncabezadosCompras.h"
#include "compras/ExportaCompras.h"
#include "compras/ReportesCompras.h"
#include "core/Formato.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "soporte/LeeXlsx.h"
#include "soporte/Soporte.h"
#include "surface/Superficie.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace {

// Quotations of January 2026 (supplier, rate, total -> in base currency):
//   C1 05/01 P1 2.5 x 10.01 = 25.025 -> 25.03   active
//   C2 06/01 P1 2.5 x 10.01 = 25.025 -> 25.03   cancelled
//   C3 07/01 P2 0   x 50    = 0                 active (status 4)
//   C4 08/01 P3 1   x -5    = -5
//   C5 09/01 P4 1   x 1     = 1
// Rounded per document the five make 46.06; unrounded they would be 46.05.
// Supplier groups: 1 {10: P3}, 2 {20: P1, P2; 21: P2}, 3 {30: P4}.
// C1 has two lines, the first with six discounts of 10% in cascade.
// One receipt with a folio of 16 characters, a branch that is not in the
// catalogue, budget concept 50 and two lines with taxes and duty.
void CreaFixtura(pruebas::BaseDePrueba& b) {
    b.Ejecuta(demo::SentenciasEsquema(b.EsPostgres(), false));
    b.Ejecuta({
        "INSERT INTO tblMonedas VALUES (1,'PESOS',1)",
        "INSERT INTO tblMonedas VALUES (2,'DOLARES',0)",
        "INSERT INTO tblSucursales VALUES ('N','NORTE')",
        "INSERT INTO tblCatAlmacenes VALUES ('AL','ALMACEN CENTRAL','N')",
        "INSERT INTO tblGpoProveedor VALUES (1,'GRUPO UNO')",
        "INSERT INTO tblGpoProveedor VALUES (2,'GRUPO DOS')",
        "INSERT INTO tblGpoProveedor VALUES (3,'GRUPO TRES')",
        "INSERT INTO tblAgrProveedor VALUES (10,1,'AGR DIEZ')",
        "INSERT INTO tblAgrProveedor VALUES (20,2,'AGR VEINTE')",
        "INSERT INTO tblAgrProveedor VALUES (21,2,'AGR VEINTIUNO')",
        "INSERT INTO tblAgrProveedor VALUES (30,3,'AGR TREINTA')",
        "INSERT INTO tblGpoAgrProveedor VALUES (1,10,'P3')",
        "INSERT INTO tblGpoAgrProveedor VALUES (2,20,'P1')",
        "INSERT INTO tblGpoAgrProveedor VALUES (2,20,'P2')",
        "INSERT INTO tblGpoAgrProveedor VALUES (2,21,'P2')",
        "INSERT INTO tblGpoAgrProveedor VALUES (3,30,'P4')",
        "INSERT INTO tblImpuestos VALUES (1,'IVA',16,1)",
        "INSERT INTO tblImpuestos VALUES (2,'IEPS',8,2)",
        "INSERT INTO tblCentrosCostos VALUES (5,'VENTAS')",
        "INSERT INTO tblCentrosCostos VALUES (6,'SIN CONCEPTOS')",
        "INSERT INTO tblConDePresu VALUES (50,'PAPELERIA',5)",
        "INSERT INTO tblConDePresu VALUES (51,'VIATICOS',5)",
        "INSERT INTO tblCatArticulos VALUES ('A1','TORNILLO HEXAGONAL DE ACERO')",
        "INSERT INTO tblCatArticulos VALUES ('A2','TUERCA')",
        "INSERT INTO tblCatProveedor (COD_PROV,NOM_PROV) VALUES ('P1','PROVEEDOR UNO')",
    });
    auto cotizacion = [&](const char* folio, const char* fecha, const char* prov, const char* tasa,
                          const char* total, int estatus) {
        b.Ejecuta(QString("INSERT INTO tblCotizacionesEnc (FOL_COTI,FEC_COTI,COD_PROV,FOL_REQ,"
                          "COD_MON,COD_SUCU,IMPORTACION,COD_ESTATUS,COD_USU,TIP_CAM,IMP_COTI,"
                          "DES_COTI,CARGO_TOT,CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI) VALUES "
                          "('%1','%2','%3','REQ-%1',2,'N',0,%4,'ANA',%5,%6,0,1.5,0.24,%6,0,%6)")
                      .arg(folio, fecha, prov)
                      .arg(estatus)
                      .arg(tasa, total));
    };
    cotizacion("C1", "2026-01-05", "P1", "2.5", "10.01", 1);
    cotizacion("C2", "2026-01-06", "P1", "2.5", "10.01", 2);
    cotizacion("C3", "2026-01-07", "P2", "0", "50", 4);
    cotizacion("C4", "2026-01-08", "P3", "1", "-5", 1);
    cotizacion("C5", "2026-01-09", "P4", "1", "1", 1);
    b.Ejecuta({
        "INSERT INTO tblCotizacionesRen (FOL_COTI,COD1_ART,CAN_ART,COD_UND,COS_UNI,POR_ARAN,"
        "IMP_ARAN,REN_DES1,REN_DES2,REN_DES3,REN_DES4,REN_DES5,REN_DES6) VALUES "
        "('C1','A1',3,'PZA',100.01,5,2,10,10,10,10,10,10)",
        "INSERT INTO tblCotizacionesRen (FOL_COTI,COD1_ART,CAN_ART,COD_UND,COS_UNI,POR_ARAN,"
        "IMP_ARAN,REN_DES1,REN_DES2,REN_DES3,REN_DES4,REN_DES5,REN_DES6) VALUES "
        "('C1','A2',1,'PZA',10,0,0,0,0,0,0,0,0)",
        "INSERT INTO tblComprasEnc (FOL_DOC,FEC_DOC,COD_PROV,REF_FACTURA,COD_ALM,COD_SUCU,COD_MON,"
        "COD_CPRE,COD_ESTATUS,COD_USU,IMPORTACION,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,"
        "CARGO_IMPTO,SUB_DOC,IVA_DOC,TOT_DOC) VALUES ('REC-000000000001','2026-01-10','P1',"
        "'FACTURA-0000000077','AL','X',1,50,1,'ANA',0,1,100,10,5,0.8,95.8,15.33,111.13)",
        "INSERT INTO tblComprasRen (FOL_DOC,COD1_ART,CAN_ART,COD_UND,COS_UNI,IMPORTE,IMP_ARANCEL,"
        "IMP1_ART,IMP2_ART) VALUES ('REC-000000000001','A1',1,'PZA',50,50,1.5,1,2)",
        "INSERT INTO tblComprasRen (FOL_DOC,COD1_ART,CAN_ART,COD_UND,COS_UNI,IMPORTE,IMP_ARANCEL,"
        "IMP1_ART) VALUES ('REC-000000000001','A2',1,'PZA',25,25,2.5,1)",
    });
}

struct Texto {
    int x, y;
    QString texto;
    Color color;
};

class Relacion : public pruebas::ReporteEnMotor {
protected:
    void SetUp() override { Prepara(CreaFixtura, CompRelacion, DocCompCotizacion); }
    void Grupos() {
        sel.HayGrupos = true;
        sel.ListaAgrProv = "10,20,21,30";
        sel.SelectGpoProv = "SELECT tblGpoAgrProveedor.COD_PROV,tblGpoAgrProveedor.COD_AGR,DES_AGR,"
                            "tblGpoAgrProveedor.COD_GPO,DES_GPO,";
    }
    // The texts of the run, all pages, in drawing order.
    std::vector<Texto> Textos() {
        const Documento d = Corre([](ReporteCompras& r) { ConsultaRelacion(r, r.Sel.HayGrupos); });
        std::vector<Texto> textos;
        for (const auto& p : d.paginas)
            for (const auto& e : p.elementos)
                if (e.tipo == TipoElemento::Texto)
                    textos.push_back({e.x, e.y, e.texto, e.estado.ForeColor});
        return textos;
    }
    // The texts alone, without the page numbers stamped at the end.
    static QStringList Solo(const std::vector<Texto>& t) {
        QStringList l;
        for (const auto& e : t)
            if (!e.texto.startsWith(QString::fromUtf8("Página")))
                l << e.texto;
        return l;
    }
    // The texts drawn on the line of the first item with the given text.
    static std::map<int, QString> Linea(const std::vector<Texto>& t, const QString& ancla,
                                        int desplazamiento = 0) {
        std::map<int, QString> linea;
        for (const auto& a : t)
            if (a.texto == ancla) {
                for (const auto& e : t)
                    if (e.y == a.y + desplazamiento)
                        linea[e.x] = e.texto;
                break;
            }
        return linea;
    }
};

TEST_P(Relacion, TotalEnMonedaBaseRedondeadoPorDocumento) {
    pantalla.Global = true;
    const std::vector<Texto> t = Textos();
    const QStringList l = Solo(t);
    // No status box ticked: every status, and the title says so.
    EXPECT_TRUE(l.contains("Estatus: TODOS"));
    EXPECT_FALSE(sel.SqlConsulta.contains("COD_ESTATUS="));
    const auto c1 = Linea(t, "C1");
    EXPECT_EQ(c1.at(1000), "REQ-C1");
    EXPECT_EQ(c1.at(5600), "DOLARES");
    EXPECT_EQ(c1.at(7700), "2.50");
    EXPECT_EQ(c1.at(9100), "10.01");
    EXPECT_EQ(c1.at(10400), "25.03");
    // A rate of 0 gives 0 in base currency.
    EXPECT_EQ(Linea(t, "C3").at(10400), "0.00");
    ASSERT_EQ(l.count("TOTAL EN MONEDA BASE:"), 1);
    EXPECT_EQ(l.last(), "46.06");
    // Folio colours: cancelled red, the rest blue.
    for (const auto& e : t) {
        if (e.texto == "C2") {
            EXPECT_EQ(e.color, Color::DesdeEntero(192));
        } else if (e.texto == "C1") {
            EXPECT_EQ(e.color, ColorAzul);
        }
    }
}

TEST_P(Relacion, GruposArrastranTotalesNoPositivosYRepitenProveedores) {
    Grupos();
    const QStringList l = Solo(Textos());
    // Quotations join the branches only in this form.
    EXPECT_TRUE(sel.SqlConsulta.contains("LEFT JOIN tblSucursales"));
    EXPECT_EQ(sel.OrdenSql, "COD_GPO,COD_AGR,FEC_COTI,FOL_COTI");
    const int g1 = l.indexOf("GRUPO UNO   (1)");
    const int g2 = l.indexOf("GRUPO DOS   (2)");
    const int g3 = l.indexOf("GRUPO TRES   (3)");
    ASSERT_TRUE(g1 >= 0 && g2 > g1 && g3 > g2);
    // Group 1 closes at -5: nothing printed, carried into group 2, which
    // closes at -5 + 25.03 + 25.03 + 0 + 0 = 45.06, printed before group 3.
    EXPECT_FALSE(l.mid(g1, g2 - g1).contains("TOTAL EN MONEDA BASE:"));
    const int total = l.indexOf("TOTAL EN MONEDA BASE:", g2);
    ASSERT_GT(total, g2);
    EXPECT_LT(total, g3);
    EXPECT_EQ(l.value(total + 1), "45.06");
    EXPECT_EQ(l.last(), "1.00");
    // P2 is in two agrupaciones: its quotation is listed under both.
    EXPECT_EQ(l.count("C3"), 2);
    EXPECT_TRUE(l.contains("AGR VEINTIUNO   (21)"));
}

TEST_P(Relacion, RenglonesConDescuentosEnCascada) {
    Periodo(QDate(2026, 1, 5), QDate(2026, 1, 5));
    sel.Detallado = true;
    const std::vector<Texto> t = Textos();
    // 100.01 less six discounts of 10%, each on what the last left, at four
    // decimals: 10.001, 9.0009, 8.1008, 7.2907, 6.5617, 5.9055 -> 53.1494.
    // Three pieces: 300.03, discount 140.5818, net 159.4482 + duty 2.
    const auto a1 = Linea(t, "A1");
    EXPECT_EQ(a1.at(1000), "TORNILLO HEXAGONAL");
    EXPECT_EQ(a1.at(3700), "3.00");
    EXPECT_EQ(a1.at(5000), "100.01");
    EXPECT_EQ(a1.at(6100), "300.03");
    EXPECT_EQ(a1.at(7100), "140.58");
    EXPECT_EQ(a1.at(8100), "5.00");
    EXPECT_EQ(a1.at(9300), "2.00");
    EXPECT_EQ(a1.at(10500), "161.45");
    // The sums under the lines, one line below the last article.
    const auto suma = Linea(t, "A2", 200);
    EXPECT_EQ(suma.at(6100), "310.03");
    EXPECT_EQ(suma.at(7100), "140.58");
    EXPECT_EQ(suma.at(9300), "2.00");
    EXPECT_EQ(suma.at(10500), "171.45");
}

TEST_P(Relacion, ResumidoConImpuestosYArancelDeLosRenglones) {
    sel.DocumentoActual = DocCompRecepcion;
    pantalla.Resumido = true;
    const std::vector<Texto> t = Textos();
    const QStringList l = Solo(t);
    // The folio and the reference print their last ten characters.
    EXPECT_TRUE(l.contains("0000000001"));
    EXPECT_TRUE(l.contains("0000000077"));
    EXPECT_TRUE(l.contains("SUCURSAL NO DEFINIDA"));
    EXPECT_EQ(sel.OrdenSql, "COD_SUCU,FEC_DOC,FOL_DOC");
    // Tax: (50 + 25) x 16% + 50 x 8% = 16; duty 1.5 + 2.5.
    const auto r = Linea(t, "0000000001", 200);
    EXPECT_EQ(r.at(900), "100.00");
    EXPECT_EQ(r.at(1800), "10.00");
    EXPECT_EQ(r.at(2900), "90.00");
    EXPECT_EQ(r.at(4000), "16.00");
    EXPECT_EQ(r.at(5000), "5.00");
    EXPECT_EQ(r.at(6100), "0.80");
    EXPECT_EQ(r.at(7300), "4.00");
    EXPECT_EQ(r.at(8300), "95.80");
    EXPECT_EQ(r.at(9350), "15.33");
    EXPECT_EQ(r.at(10400), "111.13");
}

TEST_P(Relacion, CentroDeCostoYEstatus) {
    sel.DocumentoActual = DocCompRecepcion;
    sel.CodCCos = "5";
    sel.EstActivos = 1;
    QStringList l = Solo(Textos());
    EXPECT_TRUE(sel.SqlConsulta.contains(" (COD_CPRE IN(50,51)) AND (COD_ESTATUS=4 OR "
                                         "COD_ESTATUS=1)"));
    EXPECT_TRUE(l.contains("0000000001"));
    EXPECT_TRUE(l.contains("Estatus: ACTIVO"));

    // A centre without budget concepts ends after the period line.
    sel.CodCCos = "6";
    l = Solo(Textos());
    EXPECT_EQ(l.last(), "Del : 01/ene/2026   Al :  31/ene/2026");
    EXPECT_FALSE(l.join('|').contains("Estatus"));

    // Orders count Surtidos even where its box is off; the title does not.
    sel.CodCCos.clear();
    sel.DocumentoActual = DocCompOrdenCompra;
    sel.EstCancelados = sel.EstSurtidos = 1;
    sel.EstActivos = 0;
    l = Solo(Textos());
    EXPECT_TRUE(sel.SqlConsulta.endsWith(" AND (COD_ESTATUS=5 OR COD_ESTATUS=3)"));
    EXPECT_TRUE(l.contains("Estatus: CANCELADO"));

    // All three ticked is no condition at all; Remisión is always status 7,
    // with no status line.
    sel.EstActivos = 1;
    Textos();
    EXPECT_FALSE(sel.SqlConsulta.contains("COD_ESTATUS="));
    sel.DocumentoActual = DocCompRemision;
    l = Solo(Textos());
    EXPECT_TRUE(sel.SqlConsulta.endsWith(" AND (COD_ESTATUS=7)"));
    EXPECT_FALSE(l.join('|').contains("Estatus"));
}

TEST_P(Relacion, HojaLeidaDelArchivo) {
    auto guion = std::make_shared<servicios::GuionServicios>();
    guion->escribeExcel = true;
    servicios::ServiciosInstalados instalados(servicios::FabricasGuionadas(guion));
    pantalla.Excel = true;
    sel.DocumentoActual = DocCompRecepcion;
    sel.Detallado = true;
    Textos();
    const QString archivo = carpeta.filePath(
        "Temp/" + NombreExcel(QString::fromUtf8("RelaciónDocumentos_Recepción")) + ".xlsx");
    ASSERT_TRUE(QFile::exists(archivo)) << archivo.toStdString();
    const pruebas::Hoja h = pruebas::LeeXlsx(archivo);
    const auto cabeza = pruebas::FilaXlsx(h, 1);
    ASSERT_GE(cabeza.size(), 3u);
    EXPECT_EQ(cabeza[0], "Sucursal");
    EXPECT_EQ(cabeza[1], "Folio");
    EXPECT_EQ(pruebas::FilaXlsx(h, 2), std::vector<QString>{"SUCURSAL NO DEFINIDA"});
    // The whole folio and reference, then the lines and their sums, and the
    // base-currency total last.
    const auto doc = pruebas::FilaXlsx(h, 3);
    ASSERT_GE(doc.size(), 3u);
    EXPECT_EQ(doc[1], "REC-000000000001");
    EXPECT_EQ(doc[2], "FACTURA-0000000077");
    EXPECT_EQ(pruebas::FilaXlsx(h, 4).at(static_cast<size_t>(cabeza.size() - 10)), "A1");
    EXPECT_EQ(pruebas::FilaXlsx(h, 6).at(1), "TOTAL");
    const auto ultima = pruebas::FilaXlsx(h, 7);
    EXPECT_EQ(ultima.at(1), "TOTAL MONEDA BASE");
    EXPECT_EQ(ultima.back(), "111.13");
    EXPECT_EQ(h.filas, 7);
}

INSTANTIATE_TEST_SUITE_P(Motores, Relacion,
                         ::testing::Values(QString("sqlite"), QString("postgres")),
                         [](const auto& i) { return i.param.toStdString(); });

} // namespace
