// The two-pass page run: page files, numbering stamp, failures.

#include "core/Conexion.h"
#include "core/modConCompras.h"
#include "surface/CorridaPaginas.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace consultas;

namespace {

class Corrida : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        anterior_ = modConCompras::DirectorioConsultas;
        modConCompras::DirectorioConsultas = dir_.path() + "/";
        corrida_.Ocupado = [this](bool o) { ocupado_ = o; };
        corrida_.Encabezado = [this](int tipo) {
            tipos_.push_back(tipo);
            // What is on disk when the heading of a page is drawn: every
            // earlier page, and no later one.
            std::vector<bool> hay;
            for (int i = 1; i <= corrida_.PaginaActual; ++i)
                hay.push_back(QFile::exists(corrida_.ArchivoPagina(i)));
            enDisco_.push_back(hay);
            if (tipo == 1)
                corrida_.SuperficieActual->TextOut(0, 0, "ENCABEZADO");
        };
        corrida_.Mostrar = [this](Superficie& s) {
            documento_ = s.Doc();
            restantes_ = QDir(dir_.path()).entryList(QDir::Files).size();
            mostrado_ = true;
        };
    }
    void TearDown() override { modConCompras::DirectorioConsultas = anterior_; }

    // A report of `paginas` pages that leaves a state of its own behind.
    std::function<void()> Reporte(int paginas) {
        return [this, paginas] {
            Superficie& s = *corrida_.SuperficieActual;
            EXPECT_EQ(corrida_.PaginaActual, 1);
            EXPECT_EQ(corrida_.lnLinea, 0);
            for (int p = 1; p <= paginas; ++p) {
                s.TextOut(0, 1200, QString("cuerpo %1").arg(p));
                if (p < paginas)
                    corrida_.SaltoPagina(1);
            }
            s.ForeColor = ColorRojo;
            s.FontBold = true;
            s.FontSize = 10;
            s.TextAlign = AlineaDerecha;
            s.FontFace = FuenteSerif;
        };
    }

    QTemporaryDir dir_;
    QString anterior_;
    CorridaPaginas corrida_;
    Superficie superficie_;
    std::vector<int> tipos_;
    std::vector<std::vector<bool>> enDisco_;
    Documento documento_;
    qsizetype restantes_ = -1;
    bool mostrado_ = false;
    bool ocupado_ = false;
};

void EsperaSello(const Elemento& e, int i, int n) {
    EXPECT_EQ(e.tipo, TipoElemento::Texto);
    EXPECT_EQ(e.x, 7000);
    EXPECT_EQ(e.y, 720);
    EXPECT_EQ(e.texto, QString("Página  : %1 / %2").arg(i).arg(n));
    EXPECT_EQ(e.estado.ForeColor, ColorAzul);
    EXPECT_EQ(e.estado.FontSize, 8);
    EXPECT_FALSE(e.estado.FontBold);
    EXPECT_EQ(e.estado.TextAlign, AlineaIzquierda);
    EXPECT_EQ(e.estado.FontFace, FuenteSans);
}

TEST_F(Corrida, TresPaginasEnOrdenNumeradasYSinArchivos) {
    corrida_.EjecutarConsulta(superficie_, Reporte(3));
    ASSERT_TRUE(mostrado_);
    EXPECT_FALSE(ocupado_);
    EXPECT_EQ(corrida_.PaginaActual, 3);
    EXPECT_EQ(corrida_.SuperficieActual, nullptr);
    EXPECT_EQ(tipos_, (std::vector<int>{1, 1}));
    // Written in order: page 2's heading finds _1 only, page 3's _1 and _2.
    EXPECT_EQ(enDisco_, (std::vector<std::vector<bool>>{{true, false}, {true, true, false}}));
    EXPECT_EQ(restantes_, 0);

    ASSERT_EQ(documento_.paginas.size(), 3u);
    for (int i = 1; i <= 3; ++i) {
        const auto& el = documento_.paginas[size_t(i - 1)].elementos;
        // Read back in order: page i holds its own body, then the stamp.
        const QStringList esperado = i == 1
                                         ? QStringList{"cuerpo 1"}
                                         : QStringList{"ENCABEZADO", QString("cuerpo %1").arg(i)};
        ASSERT_EQ(el.size(), size_t(esperado.size() + 1));
        for (int k = 0; k < esperado.size(); ++k)
            EXPECT_EQ(el[size_t(k)].texto, esperado[k]);
        EsperaSello(el.back(), i, 3);
    }
    EXPECT_EQ(superficie_.CurrentPage(), 1);
    EXPECT_TRUE(superficie_.Terminado());
}

TEST_F(Corrida, UnaPaginaSinSaltoYReporteVacio) {
    corrida_.EjecutarConsulta(superficie_, Reporte(1));
    ASSERT_EQ(documento_.paginas.size(), 1u);
    EXPECT_TRUE(tipos_.empty());
    ASSERT_EQ(documento_.paginas[0].elementos.size(), 2u);
    EsperaSello(documento_.paginas[0].elementos[1], 1, 1);

    // An inquiry that draws nothing: one page with the stamp alone.
    corrida_.EjecutarConsulta(superficie_, [] {});
    ASSERT_EQ(documento_.paginas.size(), 1u);
    ASSERT_EQ(documento_.paginas[0].elementos.size(), 1u);
    EsperaSello(documento_.paginas[0].elementos[0], 1, 1);
    EXPECT_EQ(restantes_, 0);
}

TEST_F(Corrida, TipoDesconocidoNoDibujaEncabezado) {
    corrida_.Encabezado = [this](int tipo) {
        if (tipo == 1)
            corrida_.SuperficieActual->TextOut(0, 0, "ENCABEZADO");
    };
    corrida_.EjecutarConsulta(superficie_, [this] { corrida_.SaltoPagina(99); });
    ASSERT_EQ(documento_.paginas.size(), 2u);
    EXPECT_EQ(documento_.paginas[1].elementos.size(), 1u); // the stamp
}

TEST_F(Corrida, CarpetaInexistenteTerminaEnLaPrimeraGrabacion) {
    modConCompras::DirectorioConsultas = dir_.filePath("no/existe/");
    int paginasDibujadas = 0;
    const auto reporte = [&] {
        for (int p = 1; p <= 3; ++p) {
            ++paginasDibujadas;
            corrida_.SaltoPagina(1);
        }
    };
    EXPECT_THROW(corrida_.EjecutarConsulta(superficie_, reporte), ErrorConsulta);
    EXPECT_EQ(paginasDibujadas, 1);
    EXPECT_FALSE(mostrado_);
    EXPECT_TRUE(ocupado_); // the busy indicator stays on after a failure
}

TEST_F(Corrida, LosArchivosGrabadosAntesDeUnaFallaSeQuedan) {
    // The third page's file cannot be written: a folder stands in its way.
    corrida_.Encabezado = [this](int) {
        if (corrida_.PaginaActual == 2)
            QDir().mkpath(corrida_.ArchivoPagina(3));
    };
    EXPECT_THROW(corrida_.EjecutarConsulta(superficie_, Reporte(4)), ErrorConsulta);
    EXPECT_TRUE(QFile::exists(corrida_.ArchivoPagina(1)));
    EXPECT_TRUE(QFile::exists(corrida_.ArchivoPagina(2)));
    EXPECT_FALSE(mostrado_);
}

TEST_F(Corrida, NombreDeArchivoDePagina) {
    modConCompras::DirectorioConsultas = "/tmp/";
    corrida_.TokenActual = "0905071";
    EXPECT_EQ(corrida_.ArchivoPagina(3), "/tmp/0905071_3.emf");
    EXPECT_EQ(corrida_.ArchivoPagina(12), "/tmp/0905071_12.emf");
}

} // namespace
