// The spreadsheet exporter, read back from the .xlsx it writes: header, cell
// types, number formats, widths, and the folder the file goes to.
#include "core/Conexion.h"
#include "services/Servicios.h"
#include "soporte/LeeXlsx.h"
#include "soporte/Soporte.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace consultas;
using pruebas::Hoja;
using pruebas::LeeXlsx;

namespace {

std::vector<CampoDef> CamposDePrueba() {
    return {{"FOLIO", TipoCampo::Texto, 20},    {"IMPORTE", TipoCampo::Moneda, 0},
            {"FECHA", TipoCampo::Fecha, 0},     {"TIPO_CAMBIO", TipoCampo::Doble, 0},
            {"PARTIDAS", TipoCampo::Entero, 0}, {"DESCRIPCION", TipoCampo::Texto, 60}};
}

class ExportaXlsx : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        guion->escribeExcel = true;
    }
    void TearDown() override { servicios::FijaCarpetaExcel(QString()); }

    int Exporta(Recordset& rs, const QString& nombre, DecimalesExcel d = DecimalesExcel::Dos,
                const QString& campo4 = QString()) {
        servicios::ServiciosInstalados s(servicios::FabricasGuionadas(guion));
        auto ex = servicios::CreaExportaExcel();
        ex->FijaDecimales(d);
        if (!campo4.isEmpty())
            ex->FijaDecimales(campo4, DecimalesExcel::Cuatro);
        return ex->Exporta(rs, nombre, dir.path());
    }
    QString Archivo(const QString& nombre) const {
        return dir.filePath("Temp/" + nombre + ".xlsx");
    }

    QTemporaryDir dir;
    std::shared_ptr<servicios::GuionServicios> guion =
        std::make_shared<servicios::GuionServicios>();
};

} // namespace

TEST_F(ExportaXlsx, CeldasTipadasConFormatoYEncabezadoEnNegrita) {
    Recordset rs(CamposDePrueba());
    rs.AgregaNuevo();
    rs.Fija("FOLIO", "F-001");
    rs.Fija("IMPORTE", "1,234.50"); // reports hand amounts as printed text
    rs.Fija("FECHA", QDate(2024, 3, 5));
    rs.Fija("TIPO_CAMBIO", 17.1234);
    rs.Fija("PARTIDAS", 3);
    rs.Fija("DESCRIPCION", "Tornillo cabeza hexagonal de acero inoxidable");
    rs.AgregaNuevo(); // a row with Nulls but its folio leaves those cells empty
    rs.Fija("FOLIO", "F-002");
    rs.Fija("IMPORTE", "-0.50");

    EXPECT_EQ(Exporta(rs, "DiarioCompras_Recepción23112026"), 2);
    const QString archivo = Archivo("DiarioCompras_Recepción23112026");
    ASSERT_TRUE(QFile::exists(archivo));
    const Hoja h = LeeXlsx(archivo);

    EXPECT_EQ(h.filas, 3);
    const QStringList encabezado{"FOLIO",       "IMPORTE",  "FECHA",
                                 "TIPO_CAMBIO", "PARTIDAS", "DESCRIPCION"};
    for (int c = 0; c < encabezado.size(); ++c) {
        const QString ref = QString(QChar('A' + c)) + "1";
        ASSERT_TRUE(h(ref)) << ref.toStdString();
        EXPECT_EQ(h(ref)->valor, encabezado[c]);
        EXPECT_TRUE(h.Negrita(ref)) << ref.toStdString();
    }
    EXPECT_FALSE(h.Negrita("A2"));

    EXPECT_EQ(h("A2")->tipo, "inlineStr");
    EXPECT_EQ(h("A2")->valor, "F-001");
    EXPECT_TRUE(h("B2")->tipo.isEmpty()); // a number, not a text
    EXPECT_DOUBLE_EQ(h("B2")->valor.toDouble(), 1234.5);
    EXPECT_EQ(h.Formato("B2"), "#,##0.00");
    EXPECT_EQ(h("C2")->valor, "45356"); // 2024-03-05 as a day number
    EXPECT_EQ(h.Formato("C2"), "dd/mm/yyyy");
    EXPECT_DOUBLE_EQ(h("D2")->valor.toDouble(), 17.1234);
    EXPECT_EQ(h.Formato("D2"), "#,##0.00");
    EXPECT_EQ(h("E2")->valor, "3");
    EXPECT_EQ(h.Formato("E2"), "General");
    EXPECT_DOUBLE_EQ(h("B3")->valor.toDouble(), -0.5);
    EXPECT_FALSE(h("C3"));
    EXPECT_FALSE(h("F3"));

    // Widths follow the contents: the long description is wider than the
    // date, and nothing is left at the default.
    ASSERT_EQ(h.anchos.size(), 6);
    EXPECT_GT(h.anchos[6], 40.0);
    EXPECT_LT(h.anchos[3], 20.0);

    ASSERT_EQ(guion->Cuenta("Exporta"), 1);
    EXPECT_EQ(guion->llamadas.back().texto, archivo);
}

TEST_F(ExportaXlsx, CuatroDecimalesPorCampoOAutomaticos) {
    Recordset rs(CamposDePrueba());
    rs.AgregaNuevo();
    rs.Fija("IMPORTE", "10.25");
    rs.Fija("TIPO_CAMBIO", 17.5);
    rs.AgregaNuevo();
    rs.Fija("IMPORTE", "10.1234");
    rs.Fija("TIPO_CAMBIO", 18.0);

    Exporta(rs, "porcampo", DecimalesExcel::Dos, "tipo_cambio");
    Hoja h = LeeXlsx(Archivo("porcampo"));
    EXPECT_EQ(h.Formato("B2"), "#,##0.00");
    EXPECT_EQ(h.Formato("D2"), "#,##0.0000");
    EXPECT_DOUBLE_EQ(h("B3")->valor.toDouble(), 10.1234); // the value is whole whatever the format

    // Left to the values: only the column that carries more than two
    // decimals takes four places.
    Exporta(rs, "automatico", DecimalesExcel::Automatico);
    h = LeeXlsx(Archivo("automatico"));
    EXPECT_EQ(h.Formato("B2"), "#,##0.0000");
    EXPECT_EQ(h.Formato("B3"), "#,##0.0000");
    EXPECT_EQ(h.Formato("D2"), "#,##0.00");
}

TEST_F(ExportaXlsx, RecordsetVacioEscribeElEncabezado) {
    Recordset rs(CamposDePrueba());
    EXPECT_EQ(Exporta(rs, "Compras Netas 23112026"), 0);
    const Hoja h = LeeXlsx(Archivo("Compras Netas 23112026"));
    EXPECT_EQ(h.filas, 1);
    EXPECT_EQ(h.celdas.size(), 6);
    EXPECT_EQ(h("F1")->valor, "DESCRIPCION");
}

TEST_F(ExportaXlsx, CarpetaDelHostEnLugarDeTemp) {
    QTemporaryDir otra;
    servicios::FijaCarpetaExcel(otra.filePath("salida"));
    EXPECT_EQ(servicios::RutaExcel("x", "/suite"), otra.filePath("salida/x.xlsx"));
    Recordset rs(CamposDePrueba());
    Exporta(rs, "Análisis Compras 23112026");
    EXPECT_TRUE(QFile::exists(otra.filePath("salida/Análisis Compras 23112026.xlsx")));
    EXPECT_FALSE(QDir(dir.filePath("Temp")).exists());

    servicios::FijaCarpetaExcel(QString());
    EXPECT_EQ(servicios::RutaExcel("x", "/suite"), "/suite/Temp/x.xlsx");
}

// A statement's own recordset carries the engine's types: dates stay dates,
// a registration stamp keeps its time of day.
TEST_F(ExportaXlsx, RecordsetDeUnaConsultaEnPostgres) {
    REQUIERE_POSTGRES();
    auto base = pruebas::NuevaPostgres();
    Conexion cn;
    ASSERT_TRUE(cn.Abrir(base->Cadena())) << cn.UltimoError().toStdString();
    auto rs = cn.Abre("SELECT 'Año' AS TEXTO, CAST(1.5 AS DOUBLE PRECISION) AS DOBLE, "
                      "DATE '2024-03-05' AS FECHA, TIMESTAMP '2024-03-05 12:00:00' AS FEC_REG, "
                      "7 AS ENTERO");
    EXPECT_EQ(Exporta(*rs, "consulta"), 1);
    const Hoja h = LeeXlsx(Archivo("consulta"));
    EXPECT_EQ(h("A2")->valor, "Año");
    EXPECT_EQ(h.Formato("B2"), "#,##0.00");
    EXPECT_EQ(h("C2")->valor, "45356");
    EXPECT_EQ(h.Formato("C2"), "dd/mm/yyyy");
    EXPECT_DOUBLE_EQ(h("D2")->valor.toDouble(), 45356.5);
    EXPECT_EQ(h.Formato("D2"), "dd/mm/yyyy hh:mm:ss");
    EXPECT_EQ(h("E2")->valor, "7");
}
