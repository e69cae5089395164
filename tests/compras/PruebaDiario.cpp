// The purchase journal on a small suite whose figures are worked by hand,
// run on every engine through the page run, read back from the document.

#include "EntornoCompras.h"
#include "GeneradorDemo.h"
#include "compras/EncabezadosCompras.h"
#include "compras/ReportesCompras.h"
#include "core/Formato.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "soporte/Soporte.h"
#include "surface/Superficie.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace {

// Branches N NORTE and S SUR; receipts of January 2026, all active:
//   N 05/01 ABCDEFGHIJKL rate 2.5, total 116 -> 290
//   N 05/01 R2           rate 1,   total -300: the day closes at -10
//   N 06/01 R3           rate 1,   total 100: its day prints 90
//   S 06/01 R4           rate 1,   total 7, cancelled (status 2)
// One return, active, in branch S.
void CreaFixtura(pruebas::BaseDePrueba& b) {
    b.Ejecuta(demo::SentenciasEsquema(b.EsPostgres(), false));
    auto recepcion = [&](const char* folio, const char* fecha, const char* suc, const char* tasa,
                         const char* total, int estatus) {
        b.Ejecuta(QString("INSERT INTO tblComprasEnc (FOL_DOC,FEC_DOC,COD_PROV,COD_ALM,COD_SUCU,"
                          "COD_ESTATUS,COD_USU,IMPORTACION,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,"
                          "SUB_DOC,IVA_DOC,TOT_DOC) VALUES ('%1','%2','P1','AL','%3',%4,'ANA',0,"
                          "%5,%6,0,0,%6,0,%6)")
                      .arg(folio, fecha, suc)
                      .arg(estatus)
                      .arg(tasa, total));
        b.Ejecuta(QString("INSERT INTO tblComprasRen (FOL_DOC,COD1_ART,CAN_ART,COD_UND,COS_COM,"
                          "IMP_ARANCEL) VALUES ('%1','A1',2,'PZA',%2/2.0,0)")
                      .arg(folio, total));
    };
    b.Ejecuta({"INSERT INTO tblSucursales VALUES ('N','NORTE')",
               "INSERT INTO tblSucursales VALUES ('S','SUR')",
               "INSERT INTO tblCatProveedor (COD_PROV,NOM_PROV) VALUES ('P1','PROVEEDOR UNO')"});
    recepcion("ABCDEFGHIJKL", "2026-01-05", "N", "2.5", "116", 1);
    recepcion("R2", "2026-01-05", "N", "1", "-300", 1);
    recepcion("R3", "2026-01-06", "N", "1", "100", 1);
    recepcion("R4", "2026-01-06", "S", "1", "7", 2);
    b.Ejecuta("INSERT INTO tblDevolucionEnc (FOL_DEV,FEC_DEV,COD_PROV,COD_ALM,COD_SUCU,COD_TIP,"
              "COD_ESTATUS,COD_USU,SUB_DEV,IVA_DEV,TOT_DEV) VALUES ('D1','2026-01-06','P1','AL',"
              "'S',1,1,'ANA',40,6.4,46.4)");
}

class Diario : public pruebas::ReporteEnMotor {
protected:
    void SetUp() override { Prepara(CreaFixtura, CompDiario, DocCompRecepcion); }
    // The texts of the run, all pages, in drawing order.
    QStringList Textos() {
        QStringList textos;
        for (const auto& p : Corre(ConsultaDiario).paginas)
            for (const auto& e : p.elementos)
                if (e.tipo == TipoElemento::Texto)
                    textos << e.texto;
        return textos;
    }
};

TEST_P(Diario, RecepcionesConTotalesQueSeArrastran) {
    const QStringList t = Textos();
    // The 12-character folio prints its tail; the rate converts the amounts.
    EXPECT_TRUE(t.contains("CDEFGHIJKL"));
    EXPECT_FALSE(t.contains("ABCDEFGHIJKL"));
    EXPECT_TRUE(t.contains("290.00"));
    // The 5th closes at -10 and prints no total; it runs on into the 6th.
    EXPECT_FALSE(t.contains("TOTAL 05/ene/2026"));
    const int dia = t.indexOf("TOTAL 06/ene/2026");
    ASSERT_GE(dia, 0);
    EXPECT_EQ(t.mid(dia + 1, 7),
              QStringList({"90.00", "0.00", "0.00", "0.00", "90.00", "0.00", "90.00"}));
    EXPECT_TRUE(t.contains("TOTAL EN SUCURSAL :   NORTE"));
    EXPECT_TRUE(t.contains("TOTAL EN SUCURSAL :   SUR"));
    EXPECT_EQ(t.value(t.indexOf("TOTALES") + 7), "97.00");
}

TEST_P(Diario, UnSoloDiaNoLlevaTotalesDeDia) {
    Periodo(QDate(2026, 1, 6), QDate(2026, 1, 6));
    for (bool global : {false, true}) {
        pantalla.Global = global;
        const QStringList t = Textos();
        EXPECT_FALSE(t.join("|").contains("TOTAL 06/ene/2026"));
        EXPECT_EQ(t.value(t.indexOf("TOTALES") + 7), "107.00");
        EXPECT_EQ(t.contains("R3"), !global);
    }
}

TEST_P(Diario, SinFilasSoloTituloYTotalesEnCero) {
    Periodo(QDate(2025, 1, 1), QDate(2025, 1, 31));
    const QStringList t = Textos();
    EXPECT_TRUE(t.contains("Del : 01/ene/2025   Al :  31/ene/2025"));
    EXPECT_FALSE(t.join("|").contains("TOTAL EN"));
    EXPECT_EQ(t.mid(t.indexOf("TOTALES") + 1, 7),
              QStringList({"0.00", "0.00", "0.00", "0.00", "0.00", "0.00", "0.00"}));
}

TEST_P(Diario, DevolucionesComoEstanConDetalle) {
    sel.DocumentoActual = DocCompDevolucion;
    sel.Detallado = true;
    const QStringList t = Textos();
    EXPECT_TRUE(t.contains("D1"));
    EXPECT_TRUE(t.contains("SUR"));
    EXPECT_EQ(t.mid(t.indexOf("TOTALES") + 1, 3), QStringList({"40.00", "6.40", "46.40"}));
}

TEST_P(Diario, ProveedorElegidoQuitaLaRegion) {
    pantalla.RegionHabilitada = pantalla.PorRegion = true;
    pantalla.Ciudad = "GUADALAJARA";
    pantalla.CodCiudad = "GDL";
    sel.CodProv = "P1";
    const QStringList t = Textos();
    EXPECT_FALSE(sel.SqlConsulta.contains("COD_CID"));
    EXPECT_TRUE(sel.SqlConsulta.contains(" (tblComprasEnc.COD_PROV ='P1') AND"));
    EXPECT_TRUE(t.contains("Proveedor:       PROVEEDOR UNO"));
    EXPECT_FALSE(t.join("|").contains("Ciudad:"));
}

// Keeps the rows handed to the spreadsheet instead of writing a file.
struct Hoja {
    QString nombre;
    std::vector<QStringList> filas; // "field=value" of the fields set
};
class ExportaEnMemoria : public clsExportaExcel {
public:
    explicit ExportaEnMemoria(Hoja& h) : h_(h) {}
    int Exporta(Recordset& rs, const QString& nombre, const QString&) override {
        h_.nombre = nombre;
        for (; !rs.Eof(); rs.MoveNext()) {
            QStringList fila;
            for (int i = 0; i < rs.CuentaCampos(); ++i)
                if (!rs.Campo(i).EsNulo())
                    fila << rs.NombreCampo(i) + "=" + rs.Campo(i).Texto();
            h_.filas.push_back(fila);
        }
        return static_cast<int>(h_.filas.size());
    }

private:
    Hoja& h_;
};

TEST_P(Diario, HojaConFoliosEnterosYTotales) {
    Hoja hoja;
    servicios::Fabricas f;
    f.exportaExcel = [&hoja] { return std::make_unique<ExportaEnMemoria>(hoja); };
    servicios::ServiciosInstalados instalados(f);
    pantalla.Excel = true;
    Textos();
    EXPECT_EQ(hoja.nombre, QString::fromUtf8("DiarioCompras_Recepción") +
                               FormatoFecha(QDate::currentDate(), "DDMMYYYY"));
    // The folio goes whole, not by its tail as on the page.
    ASSERT_GE(hoja.filas.size(), 2u);
    EXPECT_EQ(hoja.filas[0], QStringList{"En Sucursal=NORTE"});
    EXPECT_TRUE(hoja.filas[1].contains("Folio=ABCDEFGHIJKL"));
    EXPECT_TRUE(hoja.filas[1].contains("Total=290"));
    EXPECT_TRUE(hoja.filas[1].contains("Fecha=05/01/2026"));
    EXPECT_TRUE(hoja.filas.back().contains("En Sucursal=TOTALES"));
    EXPECT_TRUE(hoja.filas.back().contains("Total=97"));
    bool totalSucursal = false;
    for (const auto& fila : hoja.filas)
        totalSucursal |= fila.contains("En Sucursal=TOTAL EN NORTE");
    EXPECT_TRUE(totalSucursal);
}

INSTANTIATE_TEST_SUITE_P(Motores, Diario, ::testing::Values(QString("sqlite"), QString("postgres")),
                         [](const auto& i) { return i.param.toStdString(); });

} // namespace
