// The letterhead: what LeeEmpresa composes and where the heading block
// puts it.
#include "GeneradorDemo.h"
#include "core/Membrete.h"
#include "soporte/Soporte.h"
#include "surface/Superficie.h"

#include <gtest/gtest.h>

using namespace consultas;
namespace m = consultas::modConCompras;

namespace {

class Membrete : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override {
        if (GetParam() == "postgres")
            REQUIERE_POSTGRES();
        base = pruebas::NuevaBase(GetParam());
        base->Ejecuta(demo::SentenciasEsquema(base->EsPostgres(), false));
        base->Ejecuta(
            {"INSERT INTO tblCiudad (COD_CID, DES_CID) VALUES ('GDL', 'GUADALAJARA')",
             "INSERT INTO tblEstado (COD_EST, DES_EST, NOM_EST) VALUES ('JAL', 'JALISCO', "
             "'JALISCO')"});
        ASSERT_TRUE(con.Abrir(base->Cadena()));
    }
    void Empresa(const QString& valores) {
        base->Ejecuta("DELETE FROM tblEmpresa");
        base->Ejecuta("INSERT INTO tblEmpresa (COD_EMPRESA, NOM_EMP, NOM_COM, DIR1_EMP, EXT_EMP, "
                      "INT_EMP, COL_EMP, CP_EMP, DESCRIP1, RFC1_EMP, DESCRIP2, RFC2_EMP, DESCRIP3, "
                      "RFC3_EMP, TEL1_EMP, TEL2_EMP, COD_CD, COD_EDO) VALUES (" +
                      valores + ")");
    }
    void Parametros(const QString& nomemp, const QString& nomcom) {
        base->Ejecuta("DELETE FROM tblParametrosGenerales");
        base->Ejecuta(QString("INSERT INTO tblParametrosGenerales (REP_NOMEMP, REP_NOMCOM, "
                              "CP_PREVIO) VALUES (%1, %2, 1)")
                          .arg(nomemp, nomcom));
    }
    std::vector<Elemento> Dibuja(int* fin) {
        Superficie s;
        s.StartDoc();
        s.ForeColor = ColorRojo;
        s.FontSize = 10;
        *fin = DibujaMembrete(s, 0, "Prueba");
        // The caller's state comes back untouched.
        EXPECT_EQ(s.ForeColor, ColorRojo);
        EXPECT_EQ(s.FontSize, 10);
        return s.Doc().paginas.at(0).elementos;
    }
    static const Elemento* Texto(const std::vector<Elemento>& v, const QString& inicio) {
        for (const Elemento& e : v)
            if (e.tipo == TipoElemento::Texto && e.texto.startsWith(inicio))
                return &e;
        return nullptr;
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    Conexion con;
};

} // namespace

TEST_P(Membrete, BloqueCompletoYMinimo) {
    Parametros("1", "1");
    Empresa("1, 'COMERCIAL DEL BAJIO SA DE CV', 'EL BAJIO', 'AV. JUAREZ', '120', 'B', 'CENTRO', "
            "'44100', 'RFC', 'CBA010101AB1', 'CURP', 'X2', NULL, 'Y3', '33 3614 0000', "
            "'33 3614 0001', 'GDL', 'JAL'");
    m::LeeEmpresa(con, 0);
    EXPECT_TRUE(m::VerNombreEmpresa);
    EXPECT_EQ(m::EmpDireccion, "AV. JUAREZ 120 - B CENTRO CP 44100");
    EXPECT_EQ(m::EmpRfc1, "RFC: CBA010101AB1");
    EXPECT_EQ(m::EmpRfc3, "Y3");
    EXPECT_EQ(m::EmpTelefonos, "33 3614 0000, 33 3614 0001");
    EXPECT_EQ(m::EmpCiudadEstado, "GUADALAJARA, JALISCO");
    int fin = 0;
    auto items = Dibuja(&fin);
    // Five lines on the left: the rules at 1200 and 1240.
    EXPECT_EQ(fin, 1240);
    ASSERT_NE(Texto(items, "Dirección :"), nullptr);
    EXPECT_EQ(Texto(items, "Dirección :")->y, 480);
    EXPECT_EQ(Texto(items, "Teléfonos :")->y, 960);
    const Elemento* fecha = Texto(items, "Fecha   :");
    ASSERT_NE(fecha, nullptr);
    EXPECT_EQ(fecha->x, 7000);
    EXPECT_EQ(fecha->y, 480);
    EXPECT_EQ(fecha->estado.ForeColor, ColorAzul);
    EXPECT_EQ(fecha->estado.FontSize, 8);
    EXPECT_EQ(Texto(items, "Reporte :")->texto, "Reporte :Prueba");
    int bandas = 0, lineas = 0;
    for (const Elemento& e : items) {
        if (e.tipo == TipoElemento::Banda) {
            ++bandas;
            EXPECT_EQ(e.x, 6910);
            EXPECT_EQ(e.y, 240);
            EXPECT_EQ(e.ancho, 4700);
        } else if (e.tipo == TipoElemento::Linea) {
            EXPECT_EQ(e.y, lineas == 0 ? 1200 : 1240);
            EXPECT_EQ(e.x2, 10500);
            ++lineas;
        }
    }
    EXPECT_EQ(bandas, 1);
    EXPECT_EQ(lineas, 2);

    // No names shown, no identifiers, no telephone: one line, still 960 high.
    Parametros("0", "NULL");
    Empresa("1, 'A', 'B', NULL, NULL, '', NULL, NULL, NULL, '', NULL, '', NULL, '', '', NULL, "
            "'NOHAY', NULL");
    m::LeeEmpresa(con, 1);
    EXPECT_FALSE(m::VerNombreEmpresa);
    EXPECT_FALSE(m::VerNombreComercial);
    EXPECT_EQ(m::EmpCiudadEstado, "");
    items = Dibuja(&fin);
    EXPECT_EQ(fin, 1000);
    EXPECT_EQ(Texto(items, "Dirección :")->texto, "Dirección :");
    EXPECT_EQ(Texto(items, "Dirección :")->y, 0);
    EXPECT_EQ(Texto(items, "Teléfonos"), nullptr);
}

TEST_P(Membrete, SegundoIdentificadorSinPrimeroYEmpresaFaltante) {
    Parametros("1", "0");
    Empresa("1, 'A', 'B', 'CALLE', NULL, NULL, NULL, NULL, NULL, '', 'IMSS', 'Z9', NULL, '', "
            "'555', NULL, NULL, NULL");
    m::LeeEmpresa(con, 1);
    int fin = 0;
    auto items = Dibuja(&fin);
    const Elemento* rfc = Texto(items, "  IMSS");
    ASSERT_NE(rfc, nullptr);
    EXPECT_EQ(rfc->texto, "  IMSS: Z9  ");
    EXPECT_EQ(fin, 1000);

    // The company asked for has no row: the name says so, the rest is empty.
    m::LeeEmpresa(con, 7);
    EXPECT_EQ(m::EmpNombre, "NO ENCONTRADA");
    EXPECT_EQ(m::EmpDireccion, "");
    items = Dibuja(&fin);
    EXPECT_NE(Texto(items, "NO ENCONTRADA"), nullptr);

    // A Null legal name is not guarded.
    Empresa("1, NULL, 'B', 'CALLE', NULL, NULL, NULL, NULL, NULL, '', NULL, '', NULL, '', '555', "
            "NULL, NULL, NULL");
    EXPECT_THROW(m::LeeEmpresa(con, 1), ErrorConsulta);
}

INSTANTIATE_TEST_SUITE_P(Motores, Membrete, ::testing::Values("sqlite", "postgres"),
                         [](const auto& info) { return info.param.toStdString(); });
