// Settings file, date literals, run token and the work folder.
#include "core/modConCompras.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTime>
#include <gtest/gtest.h>

using namespace consultas;
namespace m = consultas::modConCompras;

namespace {
void Escribe(const QString& ruta, const QByteArray& texto) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto);
}
} // namespace

TEST(LeeIni, ValoresSeccionesYClavesSinDistinguirMayusculas) {
    QTemporaryDir dir;
    m::RutaBaseDeDatos = dir.path();
    const QString largo(300, 'x');
    Escribe(dir.filePath("VALMOR.INI"),
            "; comentario\n[Varios]\nDirConsultas =   /tmp/consultas  \r\n"
            "VER_COLEX=1\n;VER_COLEX=0\n[PARAMETROS]\nVENCIDO0=30\nLARGO=" +
                largo.toUtf8() + "\n[OTRA]\nVER_COLEX=9\n");
    EXPECT_EQ(m::LeeIni("VARIOS", "DIRCONSULTAS"), "/tmp/consultas");
    EXPECT_EQ(m::LeeIni("varios", "ver_colex"), "1");
    EXPECT_EQ(m::LeeIni("PARAMETROS", "VENCIDO0"), "30");
    EXPECT_EQ(m::LeeIni("PARAMETROS", "VENCIDO1"), "(error)");
    EXPECT_EQ(m::LeeIni("NADA", "VENCIDO0"), "(error)");
    EXPECT_EQ(m::LeeIni("PARAMETROS", "LARGO").size(), 254);
    // Read afresh at every call.
    Escribe(dir.filePath("VALMOR.INI"), "[VARIOS]\nDIRCONSULTAS=/otra/\n");
    EXPECT_EQ(m::LeeIni("VARIOS", "DIRCONSULTAS"), "/otra/");
    EXPECT_EQ(m::LeeDirectorioConsultas(), "/otra/");
    Escribe(dir.filePath("VALMOR.INI"), "[VARIOS]\nDIRCONSULTAS=\n");
    EXPECT_EQ(m::LeeDirectorioConsultas(), "");
}

TEST(LeeIni, ArchivoFaltanteDaError) {
    QTemporaryDir dir;
    m::RutaBaseDeDatos = dir.filePath("no-existe");
    EXPECT_EQ(m::LeeIni("VARIOS", "DIRCONSULTAS"), "(error)");
    EXPECT_EQ(m::LeeDirectorioConsultas(), "(error)/");
}

TEST(Literales, FechaSQLPorMotor) {
    const QDate d(2024, 3, 5);
    const std::pair<int, const char*> casos[] = {{2, "#2024/03/05#"}, {3, "'20240305'"},
                                                 {0, "'2024-03-05'"}, {1, "'2024-03-05'"},
                                                 {4, "'2024-03-05'"}, {255, "'2024-03-05'"}};
    for (auto [motor, esperado] : casos) {
        m::ManejadorBaseDatos = static_cast<std::int16_t>(motor);
        EXPECT_EQ(m::FechaSQL(d), esperado) << motor;
    }
    EXPECT_EQ(Dialecto::FuncionLong(2), "LEN");
    EXPECT_EQ(Dialecto::FuncionLong(4), "LENGTH");
    EXPECT_EQ(Dialecto::FechaMasDias("FEC_DOC", "PLA_PAG", 4, Motor::PostgreSQL),
              "(FEC_DOC+PLA_PAG)");
    EXPECT_EQ(Dialecto::FechaMasDias("FEC_DOC", "PLA_PAG", 3, Motor::ODBC),
              "(CAST(FEC_DOC AS DATETIME)+PLA_PAG)");
    EXPECT_EQ(Dialecto::FechaMasDias("FEC_DOC", "PLA_PAG", 4, Motor::SQLite),
              "date(FEC_DOC,'+'||PLA_PAG||' days')");
}

TEST(Literales, TokenCorrida) {
    m::NumeroDeEmpresa = 12;
    EXPECT_EQ(m::TokenCorrida(QTime(23, 59, 59)), "23595912");
    m::NumeroDeEmpresa = 1;
    EXPECT_EQ(m::TokenCorrida(QTime(9, 5, 7)), "0905071");
    m::NumeroDeEmpresa = -3;
    EXPECT_EQ(m::TokenCorrida(QTime(0, 0, 0)), "000000-3");
}
