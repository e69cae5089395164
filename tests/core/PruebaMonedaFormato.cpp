#include "core/Formato.h"
#include "core/Moneda.h"

#include <gtest/gtest.h>

#include <limits>

using namespace consultas;

TEST(Moneda, ConversionDeDobleRedondeaMitadAPar) {
    // Four places kept; a half at the fifth goes to the even neighbour.
    EXPECT_EQ(Moneda::DeDoble(2.00005).Diezmilesimos(), 20000);
    EXPECT_EQ(Moneda::DeDoble(2.00015).Diezmilesimos(), 20002);
    EXPECT_EQ(Moneda::DeDoble(-2.00015).Diezmilesimos(), -20002);
    EXPECT_EQ(Moneda::DeDoble(-2.00005).Diezmilesimos(), -20000);
    EXPECT_EQ(Moneda::DeDoble(1.23456).Diezmilesimos(), 12346);
    EXPECT_EQ(Moneda::DeDoble(0.1 + 0.2).Diezmilesimos(), 3000);
    EXPECT_EQ(Moneda::DeDoble(1e300).Diezmilesimos(), 0);
}

TEST(Moneda, TextoYProductos) {
    bool ok = false;
    EXPECT_EQ(Moneda::DeTexto("1,234.5", &ok).Diezmilesimos(), 12345000);
    EXPECT_TRUE(ok);
    EXPECT_EQ(Moneda::DeTexto("-0.00005").Diezmilesimos(), 0);
    EXPECT_EQ(Moneda::DeTexto("0.00015").Diezmilesimos(), 2);
    EXPECT_EQ(Moneda::DeTexto("12.345651").Diezmilesimos(), 123457);
    Moneda::DeTexto("abc", &ok);
    EXPECT_FALSE(ok);
    // 100.10 * 0.16 = 16.016 exactly; 3.3333 / 2 = 1.66665 goes to even.
    EXPECT_EQ((Moneda::DeTexto("100.10") * 0.16).Diezmilesimos(), 160160);
    EXPECT_EQ((Moneda::DeTexto("3.3333") / 2).Diezmilesimos(), 16666);
    EXPECT_EQ(Moneda::DeTexto("-12.34").ATexto(), "-12.3400");
    // Sums stay exact where doubles drift.
    Moneda s;
    for (int i = 0; i < 1000; ++i)
        s += Moneda::DeDoble(0.1);
    EXPECT_EQ(s.Diezmilesimos(), 1000000);
}

TEST(Formato, NumerosRedondeanMitadLejosDeCero) {
    EXPECT_EQ(Formato(1234567.125, "#,##0.00"), "1,234,567.13");
    EXPECT_EQ(Formato(-1234567.125, "#,##0.00"), "-1,234,567.13");
    EXPECT_EQ(Formato(1.005, "#,##0.00"), "1.01");
    EXPECT_EQ(Formato(2.5, "#,##0"), "3");
    EXPECT_EQ(Formato(-2.5, "#,##0"), "-3");
    EXPECT_EQ(Formato(0.0, "#,##0.00"), "0.00");
    EXPECT_EQ(Formato(-0.001, "#,##0.00"), "0.00");
    EXPECT_EQ(Formato(999.995, "#,##0.00"), "1,000.00");
    EXPECT_EQ(Formato(Moneda::DeTexto("1234.56785"), "#,##0.0000"), "1,234.5678");
    EXPECT_EQ(Formato(Moneda::DeTexto("0.005"), "#,##0.00"), "0.01");
    EXPECT_EQ(Formato(Moneda::DeTexto("-0.005"), "#,##0.00"), "-0.01");
    EXPECT_EQ(Formato(Moneda::DeTexto("-1000000"), "#,##0.00"), "-1,000,000.00");
    EXPECT_EQ(Formato(5, "0#"), "05");
    EXPECT_EQ(Formato(123, "0#"), "123");
    EXPECT_EQ(Formato(0, "0#"), "00");
    EXPECT_EQ(Formato(16.0, "#,##0.00"), "16.00");
}

// Amounts are written digit by digit: the thousands separators, the zeros a
// pattern asks for and the optional decimals at every boundary.
TEST(Formato, GruposCerosYDecimalesOpcionales) {
    EXPECT_EQ(Formato(999.0, "#,##0.00"), "999.00");
    EXPECT_EQ(Formato(1000.0, "#,##0.00"), "1,000.00");
    EXPECT_EQ(Formato(-100000.0, "#,##0.00"), "-100,000.00");
    EXPECT_EQ(Formato(0.5, "#,##0.00"), "0.50");
    EXPECT_EQ(Formato(qint64(7), "0000"), "0007");
    EXPECT_EQ(Formato(qint64(12345), "0000"), "12345");
    EXPECT_EQ(Formato(qint64(7), "#,##0"), "7");
    EXPECT_EQ(Formato(0.4, "#"), "");
    EXPECT_EQ(Formato(1.5, "#,##0.0#"), "1.5");
    EXPECT_EQ(Formato(1.25, "#,##0.0#"), "1.25");
    EXPECT_EQ(Formato(1.0, "#,##0.0#"), "1.0");
    EXPECT_EQ(Formato(std::numeric_limits<qint64>::max(), "#,##0"), "9,223,372,036,854,775,807");
    EXPECT_EQ(Formato(std::numeric_limits<qint64>::min(), "#,##0"), "-9,223,372,036,854,775,808");
    EXPECT_EQ(
        Formato(Moneda::DeDiezmilesimos(std::numeric_limits<std::int64_t>::min()), "#,##0.0000"),
        "-922,337,203,685,477.5808");
}

TEST(Formato, Fechas) {
    const QDate d(2024, 3, 5);
    EXPECT_EQ(FormatoFecha(d, "DD/MM/YYYY"), "05/03/2024");
    EXPECT_EQ(FormatoFecha(d, "dd/mmm/yyyy"), "05/mar/2024");
    EXPECT_EQ(FormatoFecha(d, "DDMMYYYY"), "05032024");
    EXPECT_EQ(FormatoFecha(QDate(2024, 12, 31), "dd/mmm/yyyy"), "31/dic/2024");
    EXPECT_EQ(FormatoFecha(QDate(2024, 9, 1), "mmmm"), "septiembre");
    EXPECT_EQ(FormatoFecha(QDate(), "DD/MM/YYYY"), "");
    EXPECT_EQ(UltimosDiez("ABCDEFGHIJKLMN"), "EFGHIJKLMN");
    EXPECT_EQ(UltimosDiez("ABC"), "ABC");
}
