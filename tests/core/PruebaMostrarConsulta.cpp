// The host's call: stored values, the shared connection and the screen choice.
#include "core/clsConsultaCompras.h"
#include "soporte/Soporte.h"

#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace consultas;
namespace m = consultas::modConCompras;

namespace {

struct Llamada {
    int veces = 0;
    bool abierta = false;
    QString valor;
};

// A stand-in screen that, when shown, reads one value through the shared
// connection, so the test sees which database the call opened.
class PantallaFalsa : public QDialog {
public:
    explicit PantallaFalsa(Llamada& l) : llamada(l) {}
    int exec() override {
        ++llamada.veces;
        llamada.abierta = m::ConexionCompartida && m::ConexionCompartida->EstaAbierta();
        auto rs = m::ConexionCompartida->Abre("SELECT NOMBRE FROM tblCual");
        llamada.valor = rs->Campo("NOMBRE").Texto();
        return 0;
    }
    Llamada& llamada;
};

void RegistraFalsa(TipoDeConsulta tipo, Llamada& llamada) {
    m::RegistraPantalla(tipo, [&llamada]() { return std::make_unique<PantallaFalsa>(llamada); });
}

class MostrarConsulta : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* nombre : {"uno", "dos"}) {
            auto b = pruebas::NuevaSqlite();
            b->Ejecuta({"CREATE TABLE tblCual (NOMBRE TEXT)",
                        QString("INSERT INTO tblCual VALUES ('%1')").arg(nombre)});
            bases.push_back(std::move(b));
        }
        QFile ini(dir.filePath("VALMOR.INI"));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write("[VARIOS]\nDIRCONSULTAS=" + dir.filePath("trabajo").toUtf8() + "\n");
    }
    void Llama(clsConsultaCompras& c, std::int32_t tipo, const QString& cadena,
               std::uint8_t motor = 4, std::int16_t empresa = 1) {
        auto t = static_cast<TipoDeConsulta>(tipo);
        QString cs = cadena, ayuda = "/ayuda.pdf", ruta = dir.path();
        c.MostrarConsulta(t, cs, motor, empresa, ayuda, ruta);
        // The call changes none of its arguments.
        EXPECT_EQ(cs, cadena);
        EXPECT_EQ(ruta, dir.path());
        EXPECT_EQ(static_cast<std::int32_t>(t), tipo);
    }
    QTemporaryDir dir;
    std::vector<std::unique_ptr<pruebas::BaseDePrueba>> bases;
};

} // namespace

TEST_F(MostrarConsulta, GuardaValoresYAbreLaPantallaElegida) {
    Llamada compras;
    RegistraFalsa(ConsultasDeCompras, compras);
    {
        clsConsultaCompras c;
        Llama(c, ConsultasDeCompras, bases[0]->Cadena(), 255, 7);
        EXPECT_TRUE(c.ConexionAbierta());
        EXPECT_EQ(compras.veces, 1);
        EXPECT_TRUE(compras.abierta);
        EXPECT_EQ(compras.valor, "uno");
        EXPECT_EQ(m::ManejadorBaseDatos, 255);
        EXPECT_EQ(m::NumeroDeEmpresa, 7);
        EXPECT_EQ(m::ArchivoDeAyuda, "/ayuda.pdf");
        EXPECT_EQ(m::RutaBaseDeDatos, dir.path());
        EXPECT_EQ(m::DirectorioConsultas, dir.filePath("trabajo") + "/");
        // Engine code 255 is only "not 2 and not 3".
        EXPECT_EQ(m::FechaSQL(QDate(2024, 3, 5)), "'2024-03-05'");

        // A second call on the same instance reopens from the new string.
        Llama(c, ConsultasDeCompras, bases[1]->Cadena());
        EXPECT_EQ(compras.veces, 2);
        EXPECT_EQ(compras.valor, "dos");

        // A kind with no screen opens the connection and shows nothing.
        Llama(c, 3, bases[0]->Cadena());
        EXPECT_EQ(compras.veces, 2);
        EXPECT_TRUE(m::ConexionCompartida->EstaAbierta());
    }
    // The instance's end closes the connection it left open.
    EXPECT_EQ(m::ConexionCompartida, nullptr);
    m::RegistraPantalla(ConsultasDeCompras, nullptr);
}

TEST_F(MostrarConsulta, ConexionInvalidaVuelveSinPantallaYSinCerrar) {
    Llamada compras;
    RegistraFalsa(ConsultasDeCompras, compras);
    clsConsultaCompras abierta;
    Llama(abierta, 3, bases[0]->Cadena());
    ASSERT_TRUE(abierta.ConexionAbierta());
    {
        clsConsultaCompras fallida;
        Llama(fallida, ConsultasDeCompras, "Provider=Nada;Data Source=x");
        EXPECT_FALSE(fallida.ConexionAbierta());
        EXPECT_EQ(compras.veces, 0);
        Llama(fallida, ConsultasDeCompras, dir.filePath("no-existe.db"));
        EXPECT_FALSE(fallida.ConexionAbierta());
        EXPECT_EQ(compras.veces, 0);
    }
    // The failed instance's end did not touch the shared connection.
    EXPECT_NE(m::ConexionCompartida, nullptr);
    m::RegistraPantalla(ConsultasDeCompras, nullptr);
}

TEST_F(MostrarConsulta, SinArchivoDeAjustesLaCarpetaEsError) {
    QFile::remove(dir.filePath("VALMOR.INI"));
    clsConsultaCompras c;
    Llama(c, 3, bases[0]->Cadena());
    EXPECT_TRUE(c.ConexionAbierta());
    EXPECT_EQ(m::DirectorioConsultas, "(error)/");
}
