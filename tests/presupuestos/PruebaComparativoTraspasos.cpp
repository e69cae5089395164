// Comparativo de Presupuestos and Presupuestos Traspasados on the hand-worked
// fixture, on both engines.

#include "FixturaPresupuestos.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace presup {
QStringList Fila(const Pagina& p, int y);
const Elemento* Texto(const Pagina& p, const QString& texto);
} // namespace presup

namespace {

using presup::Fila;

class Presupuestos : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        base = pruebas::NuevaBase(GetParam());
        if (!base)
            GTEST_SKIP() << "sin servidor PostgreSQL (CONSULTAS_PG_ADMIN)";
        presup::CreaFixtura(*base);
        ASSERT_TRUE(conexion.Abrir(base->Cadena())) << conexion.UltimoError().toStdString();
        v.anos = {"2025", "2026", "2026"};
        v.fechas = {QDate(2026, 3, 1), QDate(2026, 3, 31)};
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    Conexion conexion;
    ValoresPresupuesto v;
    presup::Ejecutor ejecutor;
};

using Comparativo = Presupuestos;
using Traspasos = Presupuestos;

TEST_P(Comparativo, DetalladoConMesesCentrosYTotalGlobal) {
    v.consulta = ComparativoDePresupuestos;
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 2u);
    const Pagina& p = d.paginas[0];
    EXPECT_EQ(Fila(p, 1000), (QStringList{"0=Concepto", "2300=Centro Costo"}));
    EXPECT_EQ(Fila(p, 1200), (QStringList{"4000=Año", "4700=Importe Anual", "6300=Año",
                                          "7000=Importe Anual", "8800=Diferencia", "10000=%"}));
    EXPECT_EQ(presup::Texto(p, "AÑO 2026"), nullptr);

    EXPECT_EQ(Fila(p, 1430),
              (QStringList{"0=PAPELERIA", "2300=ADMINISTRACION", "4000=2025", "6300=2026",
                           "5800=1,000.00", "8100=1,200.00", "9600=-200.00", "10400=-20.00"}));
    EXPECT_EQ(Fila(p, 1670), (QStringList{"2000=enero", "5800=90.00", "8100=110.00", "9600=-20.00",
                                          "10400=-22.22"}));
    // A month missing in a year prints 0; the percent of a first year of 0 is 0.
    EXPECT_EQ(Fila(p, 1900), (QStringList{"2000=febrero", "5800=0.00", "8100=100.00",
                                          "9600=-100.00", "10400=0.00"}));
    EXPECT_EQ(Fila(p, 4200), (QStringList{"2000=diciembre", "5800=200.00", "8100=0.00",
                                          "9600=200.00", "10400=100.00"}));
    // Concept 11 has no first year and a second of 0, but December's 200 of
    // the concept before is still the first figure: its months print.
    EXPECT_EQ(Fila(p, 4630),
              (QStringList{"0=ENERGIA ELECTRICA", "2300=ADMINISTRACION", "4000=2025", "6300=2026",
                           "5800=0.00", "8100=0.00", "9600=0.00", "10400=0.00"}));
    EXPECT_EQ(Fila(p, 4870).first(), "2000=enero");
    // A first year of 0 against 300: negative difference, percent 0.00, and
    // the months still print.
    EXPECT_EQ(Fila(p, 7830),
              (QStringList{"0=MANTENIMIENTO", "2300=ADMINISTRACION", "4000=2025", "6300=2026",
                           "5800=0.00", "8100=300.00", "9600=-300.00", "10400=0.00"}));
    EXPECT_EQ(Fila(p, 8070).first(), "2000=enero");
    EXPECT_EQ(Fila(p, 11030),
              (QStringList{"100=Total Centro de Costo: ADMINISTRACION", "5800=1,000.00",
                           "8100=1,500.00", "9600=-500.00", "10400=-50.00"}));
    EXPECT_EQ(Fila(p, 11440),
              (QStringList{"0=VIATICOS", "2300=VENTAS", "4000=2025", "6300=2026", "5800=500.00",
                           "8100=1,000.00", "9600=-500.00", "10400=-100.00"}));
    EXPECT_EQ(Fila(p, 12140), (QStringList{"2000=marzo", "5800=400.00", "8100=1,000.00",
                                           "9600=-600.00", "10400=-150.00"}));
    // Concept 21 has neither year: its line is the last of page 1 (14640 is
    // past 14500 only after it) and its months are skipped.
    EXPECT_EQ(Fila(p, 14640).first(), "0=PUBLICIDAD");
    const Pagina& p2 = d.paginas[1];
    EXPECT_EQ(Fila(p2, 1430), QStringList());
    EXPECT_EQ(Fila(p2, 1630), (QStringList{"100=Total Centro de Costo: VENTAS", "5800=500.00",
                                           "8100=1,000.00", "9600=-500.00", "10400=-100.00"}));
    EXPECT_EQ(Fila(p2, 1910), (QStringList{"100=TOTAL GLOBAL: ", "5800=1,500.00", "8100=2,500.00",
                                           "9600=-1,000.00", "10400=-66.67"}));
    EXPECT_NE(presup::Texto(p2, "Reporte :Comparativo de Presupuestos"), nullptr);

    const Elemento* concepto = presup::Texto(p, "PAPELERIA");
    EXPECT_TRUE(concepto->estado.FontBold);
    EXPECT_EQ(concepto->estado.ForeColor, Rgb(47, 47, 128));
    EXPECT_FALSE(presup::Texto(p, "enero")->estado.FontBold);
    EXPECT_EQ(presup::Texto(p, "enero")->estado.ForeColor, ColorNegro);
    EXPECT_EQ(presup::Texto(p2, "TOTAL GLOBAL: ")->estado.ForeColor, ColorAzul);
}

TEST_P(Comparativo, ResumidoArrastraElPrimerAnoDelConceptoAnterior) {
    v.consulta = ComparativoDePresupuestos;
    v.tipo = 1;
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    const Pagina& p = d.paginas[0];
    EXPECT_EQ(Fila(p, 1670), QStringList());
    EXPECT_EQ(Fila(p, 1870).mid(4),
              (QStringList{"5800=0.00", "8100=0.00", "9600=0.00", "10400=0.00"}));
    // Concept 12 has no first year: its percent is of concept 10's 1000.
    EXPECT_EQ(Fila(p, 2310).mid(4),
              (QStringList{"5800=0.00", "8100=300.00", "9600=-300.00", "10400=-30.00"}));
    EXPECT_FALSE(presup::Texto(p, "MANTENIMIENTO")->estado.FontBold);
    EXPECT_EQ(Fila(p, 2750).first(), "100=Total Centro de Costo: ADMINISTRACION");
    EXPECT_EQ(Fila(p, 3160).first(), "0=VIATICOS");
    EXPECT_EQ(Fila(p, 4040).first(), "100=Total Centro de Costo: VENTAS");
    EXPECT_EQ(Fila(p, 4320).first(), "100=TOTAL GLOBAL: ");
}

TEST_P(Comparativo, AplicadoCambiaElPrimerAnoYLosMeses) {
    v.consulta = ComparativoDePresupuestos;
    v.aplicado = true;
    const Documento d = ejecutor.Corre(conexion, v);
    const Pagina& p = d.paginas[0];
    // Applied in 2025 against the 2026 budget.
    EXPECT_EQ(Fila(p, 1430).mid(4),
              (QStringList{"5800=140.00", "8100=1,200.00", "9600=-1,060.00", "10400=-757.14"}));
    // Months: applied against applied.
    EXPECT_EQ(Fila(p, 1670), (QStringList{"2000=enero", "5800=40.00", "8100=50.00", "9600=-10.00",
                                          "10400=-25.00"}));
    // Concept 11's applied sum is Null: 0, and nothing carried over, so no months.
    EXPECT_EQ(Fila(p, 4630).first(), "0=ENERGIA ELECTRICA");
    EXPECT_EQ(Fila(p, 4870), QStringList());
    EXPECT_EQ(Fila(p, 5070).first(), "0=MANTENIMIENTO");
}

TEST_P(Comparativo, MismoAnoEnAmbosDaDiferenciaCero) {
    v.consulta = ComparativoDePresupuestos;
    v.tipo = 1;
    v.anos = {"2026", "2026", "2026"};
    v.codConcepto = "10";
    const Documento d = ejecutor.Corre(conexion, v);
    EXPECT_EQ(Fila(d.paginas[0], 1430).mid(4),
              (QStringList{"5800=1,200.00", "8100=1,200.00", "9600=0.00", "10400=0.00"}));
}

TEST_P(Traspasos, RenglonesDelRangoPorCentro) {
    v.consulta = PresupuestosTraspasados;
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    const Pagina& p = d.paginas[0];
    EXPECT_EQ(Fila(p, 1000),
              (QStringList{"100=Fecha", "1400=Usuario", "3300=Presupuesto Origen", "5450=Mes/Año",
                           "6300=Presupuesto Destino", "8450=Mes/Año", "9800=Importe"}));
    EXPECT_NE(presup::Texto(p, "Reporte :Traspaso de Presupuestos"), nullptr);
    EXPECT_EQ(Fila(p, 1480), QStringList{"100=ADMINISTRACION"});
    EXPECT_EQ(presup::Texto(p, "ADMINISTRACION")->estado.ForeColor, Rgb(47, 47, 128));
    EXPECT_TRUE(presup::Texto(p, "ADMINISTRACION")->estado.FontBold);
    EXPECT_EQ(Fila(p, 1720),
              (QStringList{"100=01/03/2026", "1200=Ana López", "3300=PAPELERIA", "5500=03/2026",
                           "6300=ENERGIA ELECTRICA", "8500=04/2026", "10400=150.50"}));
    // A user and a destination that are gone print fixed texts.
    EXPECT_EQ(Fila(p, 1960),
              (QStringList{"100=10/03/2026", "1200=Usuario Depurado", "3300=PAPELERIA",
                           "5500=03/2026", "6300=Depurado", "8500=05/2026", "10400=1,234.50"}));
    // Concept 12 is of the same centre: no second title.
    EXPECT_EQ(Fila(p, 2200),
              (QStringList{"100=20/03/2026", "1200=Ana López", "3300=MANTENIMIENTO", "5500=03/2026",
                           "6300=VIATICOS", "8500=03/2026", "10400=75.00"}));
    // Nothing else: not the row with a time on the last date, nor centre 2,
    // whose only transfers are outside the range or of another kind.
    EXPECT_EQ(p.elementos.back().texto, "Página  : 1 / 1");
    EXPECT_EQ(p.elementos[p.elementos.size() - 2].texto, "75.00");
    EXPECT_EQ(presup::Texto(p, "VENTAS"), nullptr);

    // The three bands, each laid over the tail of the column before it.
    std::vector<std::pair<TipoElemento, int>> orden;
    for (const Elemento& e : p.elementos)
        if (e.y == 1720)
            orden.emplace_back(e.tipo, e.x);
    const std::vector<std::pair<TipoElemento, int>> esperado = {
        {TipoElemento::Texto, 100},  {TipoElemento::Texto, 1200}, {TipoElemento::Banda, 3100},
        {TipoElemento::Texto, 3300}, {TipoElemento::Banda, 5300}, {TipoElemento::Texto, 5500},
        {TipoElemento::Texto, 6300}, {TipoElemento::Banda, 8300}, {TipoElemento::Texto, 8500},
        {TipoElemento::Texto, 10400}};
    EXPECT_EQ(orden, esperado);
    for (const Elemento& e : p.elementos) {
        if (e.tipo == TipoElemento::Banda && e.y == 1720) {
            EXPECT_EQ(e.ancho, e.x == 3100 ? 7000 : e.x == 5300 ? 4800 : 1800);
        }
    }
}

TEST_P(Traspasos, IncluyeElUltimoDiaSinHoraYSinRenglonesSoloEncabezado) {
    v.consulta = PresupuestosTraspasados;
    // The day of the row at 09:15 as the range's end: a time of day on it
    // falls outside, and only February's row of centre 2 is left.
    v.fechas = {QDate(2026, 2, 1), QDate(2026, 3, 1)};
    Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    EXPECT_EQ(Fila(d.paginas[0], 1480), QStringList{"100=VENTAS"});
    EXPECT_EQ(Fila(d.paginas[0], 1720).first(), "100=28/02/2026");
    EXPECT_EQ(presup::Texto(d.paginas[0], "01/03/2026"), nullptr);
    // The first day of a range is in it whatever the hour.
    v.fechas = {QDate(2026, 3, 10), QDate(2026, 3, 11)};
    d = ejecutor.Corre(conexion, v);
    EXPECT_EQ(Fila(d.paginas[0], 1720).first(), "100=10/03/2026");
    v.fechas = {QDate(2027, 1, 1), QDate(2027, 12, 31)};
    d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    EXPECT_EQ(d.paginas[0].elementos.back().texto, "Página  : 1 / 1");
    for (const Elemento& e : d.paginas[0].elementos)
        EXPECT_LE(e.y, 1240);
}

TEST_P(Traspasos, SaltosDePaginaEnElTituloDeCentroYEnLosRenglones) {
    v.consulta = PresupuestosTraspasados;
    // April: 47 rows of concept 10 bring the cursor to 13000; the title of
    // centre 2 would go past it and opens page 2.
    for (int i = 0; i < 47; ++i)
        base->Ejecuta("INSERT INTO tblBitacora VALUES ('TRPR', 2, '10', '11', 'ANA', "
                      "'2026-04-02 10:00:00', '04/2026', '04/2026', 1)");
    base->Ejecuta("INSERT INTO tblBitacora VALUES ('TRPR', 2, '20', '10', 'ANA', "
                  "'2026-04-03 10:00:00', '04/2026', '04/2026', 2)");
    v.fechas = {QDate(2026, 4, 1), QDate(2026, 4, 30)};
    Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 2u);
    EXPECT_EQ(Fila(d.paginas[0], 1720 + 46 * 240).first(), "100=02/04/2026");
    EXPECT_EQ(Fila(d.paginas[1], 1240), QStringList{"100=VENTAS"});
    EXPECT_EQ(Fila(d.paginas[1], 1480).first(), "100=03/04/2026");

    // May: 54 rows take the cursor past 14500 and the 55th opens page 2
    // at the first body line.
    for (int i = 0; i < 55; ++i)
        base->Ejecuta(QString("INSERT INTO tblBitacora VALUES ('TRPR', 2, '10', '11', 'ANA', "
                              "'2026-05-%1 10:00:00', '05/2026', '05/2026', 1)")
                          .arg(1 + i / 4, 2, 10, QChar('0')));
    v.fechas = {QDate(2026, 5, 1), QDate(2026, 5, 31)};
    d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 2u);
    EXPECT_EQ(Fila(d.paginas[0], 1720 + 53 * 240).first(), "100=14/05/2026");
    EXPECT_EQ(Fila(d.paginas[1], 1240).first(), "100=14/05/2026");
    EXPECT_EQ(Fila(d.paginas[1], 1480), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Motores, Comparativo, ::testing::Values("sqlite", "postgres"));
INSTANTIATE_TEST_SUITE_P(Motores, Traspasos, ::testing::Values("sqlite", "postgres"));

} // namespace
