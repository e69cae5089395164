// Relación de Presupuestos on a fixture worked out by hand, on both engines.

#include "FixturaPresupuestos.h"

#include "surface/SalidaLote.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace presup {

// The texts of one line of a page, as "x=text" in drawing order.
QStringList Fila(const Pagina& p, int y) {
    QStringList r;
    for (const Elemento& e : p.elementos)
        if (e.tipo == TipoElemento::Texto && e.y == y)
            r << QString("%1=%2").arg(e.x).arg(e.texto);
    return r;
}

const Elemento* Texto(const Pagina& p, const QString& texto) {
    for (const Elemento& e : p.elementos)
        if (e.tipo == TipoElemento::Texto && e.texto == texto)
            return &e;
    return nullptr;
}

} // namespace presup

namespace {

using presup::Fila;

class Relacion : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        base = pruebas::NuevaBase(GetParam());
        if (!base)
            GTEST_SKIP() << "sin servidor PostgreSQL (CONSULTAS_PG_ADMIN)";
        presup::CreaFixtura(*base);
        ASSERT_TRUE(conexion.Abrir(base->Cadena())) << conexion.UltimoError().toStdString();
        v.consulta = RelacionDePresupuestos;
        v.anos[2] = "2026";
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    Conexion conexion;
    ValoresPresupuesto v;
    presup::Ejecutor ejecutor;
};

TEST_P(Relacion, DetalladoPorMesConTotalesDeConceptoYCentro) {
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    const Pagina& p = d.paginas[0];

    // Heading: the year in the band and under the column titles, which are
    // bold serif in the heading's blue.
    const Elemento* ano = presup::Texto(p, "AÑO 2026");
    ASSERT_NE(ano, nullptr);
    EXPECT_EQ(ano->x, 7800);
    EXPECT_EQ(ano->y, 240);
    EXPECT_TRUE(ano->estado.FontBold);
    EXPECT_EQ(Fila(p, 1000), (QStringList{"0=Concepto", "4450=Centro Costo", "6500=Aplicado /"}));
    EXPECT_EQ(Fila(p, 1200), (QStringList{"2600=Mes", "4700=Importe Anual", "6500=Traspasado",
                                          "7800=%", "8700=Disponible", "10200=%"}));
    EXPECT_EQ(Fila(p, 1400), QStringList{"200=AÑO :   2026"});
    const Elemento* titulo = presup::Texto(p, "Concepto");
    EXPECT_EQ(titulo->estado.FontFace, FuenteSerif);
    EXPECT_TRUE(titulo->estado.FontBold);
    EXPECT_EQ(titulo->estado.ForeColor, ColorAzul);

    // Concept 10: title, two months, its total.
    EXPECT_EQ(Fila(p, 1780), (QStringList{"0=PAPELERIA", "4500=ADMINISTRACION"}));
    EXPECT_EQ(Fila(p, 2020), (QStringList{"2000=enero", "5800=110.00", "7200=55.00", "8000=4.58",
                                          "9600=55.00", "10400=4.58"}));
    EXPECT_EQ(Fila(p, 2260), (QStringList{"2000=febrero", "5800=100.00", "7200=80.00", "8000=6.67",
                                          "9600=20.00", "10400=1.67"}));
    EXPECT_EQ(Fila(p, 2500), (QStringList{"4300=Total:", "5800=1,200.00", "7200=135.00",
                                          "8000=11.25", "9600=75.00", "10400=6.25"}));
    // Concept 11 has an annual amount of 0: no division, 0.00 in both.
    EXPECT_EQ(Fila(p, 3220), (QStringList{"2000=enero", "5800=0.00", "7200=30.00", "8000=0.00",
                                          "9600=-30.00", "10400=0.00"}));
    // Concept 12 has a budget and no months: its line is all zeros.
    EXPECT_EQ(Fila(p, 3940), (QStringList{"0=MANTENIMIENTO", "4500=ADMINISTRACION"}));
    EXPECT_EQ(Fila(p, 4180), (QStringList{"4300=Total:", "5800=0.00", "7200=0.00", "8000=0.00",
                                          "9600=0.00", "10400=0.00"}));
    // The centre closes when the next concept is of another one.
    EXPECT_EQ(Fila(p, 4420),
              (QStringList{"100=Total Centro de Costo: ADMINISTRACION", "5800=1,200.00",
                           "7200=165.00", "8000=13.75", "9600=45.00", "10400=3.75"}));
    EXPECT_EQ(Fila(p, 5100), (QStringList{"2000=marzo", "5800=1,000.00", "7200=250.00",
                                          "8000=25.00", "9600=750.00", "10400=75.00"}));
    // Concept 21 has no budget for the year.
    EXPECT_EQ(Fila(p, 6060), (QStringList{"4300=Total:", "5800=0.00", "7200=0.00", "8000=0.00",
                                          "9600=0.00", "10400=0.00"}));
    // The last centre's total ends the report: nothing is drawn after it
    // but the page stamp.
    EXPECT_EQ(Fila(p, 6300),
              (QStringList{"100=Total Centro de Costo: VENTAS", "5800=1,000.00", "7200=250.00",
                           "8000=25.00", "9600=750.00", "10400=75.00"}));
    const Elemento& ultimo = p.elementos[p.elementos.size() - 2];
    EXPECT_EQ(ultimo.texto, "75.00");
    EXPECT_EQ(ultimo.y, 6300);
    EXPECT_EQ(p.elementos.back().texto, "Página  : 1 / 1");

    // Colours and weights of the lines.
    const Elemento* concepto = presup::Texto(p, "PAPELERIA");
    EXPECT_EQ(concepto->estado.ForeColor, Rgb(47, 47, 128));
    EXPECT_TRUE(concepto->estado.FontBold);
    const Elemento* centro = presup::Texto(p, "Total Centro de Costo: VENTAS");
    EXPECT_EQ(centro->estado.ForeColor, ColorAzul);
    EXPECT_TRUE(centro->estado.FontBold);
    const Elemento* mes = presup::Texto(p, "febrero");
    EXPECT_EQ(mes->estado.ForeColor, ColorNegro);
    EXPECT_FALSE(mes->estado.FontBold);
    EXPECT_EQ(presup::Texto(p, "80.00")->estado.TextAlign, AlineaDerecha);
    int bandas = 0;
    for (const Elemento& e : p.elementos)
        if (e.tipo == TipoElemento::Banda && e.x == 4350 && e.ancho == 7000 && e.alto == 200)
            ++bandas;
    EXPECT_EQ(bandas, 5);
}

TEST_P(Relacion, ResumidoDibujaLaFilaYElTotalDelConceptoEnLaMismaLinea) {
    v.tipo = 1;
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 1u);
    const Pagina& p = d.paginas[0];
    EXPECT_EQ(Fila(p, 1000), (QStringList{"0=Concepto", "3000=Centro Costo", "6500=Aplicado /"}));
    EXPECT_EQ(Fila(p, 1200).first(), "4700=Importe Anual");
    // The one row of the concept, then its total over it at the same y.
    EXPECT_EQ(Fila(p, 1640),
              (QStringList{"0=PAPELERIA", "2900=ADMINISTRACION", "7200=135.00", "8000=11.25",
                           "9600=75.00", "10400=6.25", "5800=1,200.00", "7200=135.00", "8000=11.25",
                           "9600=75.00", "10400=6.25"}));
    EXPECT_EQ(Fila(p, 1920),
              (QStringList{"0=ENERGIA ELECTRICA", "2900=ADMINISTRACION", "7200=30.00", "8000=0.00",
                           "9600=-30.00", "10400=0.00", "5800=0.00", "7200=30.00", "8000=0.00",
                           "9600=-30.00", "10400=0.00"}));
    EXPECT_EQ(Fila(p, 2200), (QStringList{"0=MANTENIMIENTO", "2900=ADMINISTRACION", "5800=0.00",
                                          "7200=0.00", "8000=0.00", "9600=0.00", "10400=0.00"}));
    EXPECT_EQ(Fila(p, 2430).first(), "100=Total Centro de Costo: ADMINISTRACION");
    EXPECT_EQ(Fila(p, 2730).first(), "0=VIATICOS");
    EXPECT_EQ(Fila(p, 3240),
              (QStringList{"100=Total Centro de Costo: VENTAS", "5800=1,000.00", "7200=250.00",
                           "8000=25.00", "9600=750.00", "10400=75.00"}));
    EXPECT_EQ(presup::Texto(p, "MANTENIMIENTO")->estado.ForeColor, ColorNegro);
}

TEST_P(Relacion, FiltrosDeConceptoYCentro) {
    v.codCentro = "2";
    Documento d = ejecutor.Corre(conexion, v);
    EXPECT_EQ(presup::Texto(d.paginas[0], "PAPELERIA"), nullptr);
    EXPECT_NE(presup::Texto(d.paginas[0], "VIATICOS"), nullptr);
    EXPECT_NE(presup::Texto(d.paginas[0], "PUBLICIDAD"), nullptr);
    v.codConcepto = "20";
    d = ejecutor.Corre(conexion, v);
    EXPECT_EQ(presup::Texto(d.paginas[0], "PUBLICIDAD"), nullptr);
    EXPECT_EQ(Fila(d.paginas[0], 2500).first(), "100=Total Centro de Costo: VENTAS");
    // A concept of another centre finds nothing: the heading alone.
    v.codConcepto = "10";
    d = ejecutor.Corre(conexion, v);
    EXPECT_EQ(Fila(d.paginas[0], 1780), QStringList());
}

// Six concepts of twelve months each: the fourth one's months cross 14000
// and go on on page 2 with no concept title, under a new heading.
TEST_P(Relacion, SaltoDePaginaDentroDeUnConcepto) {
    for (int c = 40; c < 46; ++c) {
        base->Ejecuta(QString("INSERT INTO tblConDePresu VALUES (%1, 'CONCEPTO %1', 3)").arg(c));
        base->Ejecuta(QString("INSERT INTO tblDefPresupuesto VALUES (%1, 2027, 1200)").arg(c));
        for (int mes = 1; mes <= 12; ++mes)
            base->Ejecuta(
                QString("INSERT INTO tblDefPresupuestoRen VALUES (%1, 2027, %2, 100, 0, 10, 0, 90)")
                    .arg(c)
                    .arg(mes));
    }
    base->Ejecuta("INSERT INTO tblCentrosCostos VALUES (3, 'PRODUCCION')");
    v.anos[2] = "2027";
    v.codCentro = "3";
    const Documento d = ejecutor.Corre(conexion, v);
    ASSERT_EQ(d.paginas.size(), 2u);
    const Pagina& p1 = d.paginas[0];
    const Pagina& p2 = d.paginas[1];
    EXPECT_EQ(Fila(p1, 12580), (QStringList{"0=CONCEPTO 43", "4500=PRODUCCION"}));
    // mayo lands at 13780; the cursor goes to 14020, past 14000.
    EXPECT_EQ(Fila(p1, 13780).first(), "2000=mayo");
    int maximo = 0;
    for (const Elemento& e : p1.elementos)
        maximo = std::max(maximo, e.y);
    EXPECT_EQ(maximo, 13780);
    EXPECT_EQ(Fila(p2, 1540).first(), "2000=junio");
    EXPECT_EQ(Fila(p2, 1520), QStringList());
    EXPECT_NE(presup::Texto(p2, "AÑO 2027"), nullptr);
    EXPECT_NE(presup::Texto(p2, "Reporte :Relación de Presupuestos"), nullptr);
    EXPECT_EQ(presup::Texto(p2, "Página  : 2 / 2")->y, 720);
}

// The same document on both engines.
TEST(RelacionMotores, MismaSalidaEnSqliteYPostgres) {
    REQUIERE_POSTGRES();
    std::vector<QByteArray> salidas;
    for (const char* motor : {"sqlite", "postgres"}) {
        auto b = pruebas::NuevaBase(motor);
        presup::CreaFixtura(*b);
        Conexion cx;
        ASSERT_TRUE(cx.Abrir(b->Cadena()));
        presup::Ejecutor e;
        QByteArray todo;
        ValoresPresupuesto v;
        v.anos = {"2025", "2026", "2026"};
        v.fechas = {QDate(2026, 3, 1), QDate(2026, 3, 31)};
        for (int consulta = 0; consulta < 3; ++consulta)
            for (int tipo = 0; tipo < 2; ++tipo)
                for (bool aplicado : {false, true}) {
                    v.consulta = consulta;
                    v.tipo = tipo;
                    v.aplicado = aplicado;
                    todo += DocumentoJsonl(e.Corre(cx, v));
                }
        salidas.push_back(todo);
    }
    EXPECT_EQ(salidas[0], salidas[1]);
}

INSTANTIATE_TEST_SUITE_P(Motores, Relacion, ::testing::Values("sqlite", "postgres"));

} // namespace
