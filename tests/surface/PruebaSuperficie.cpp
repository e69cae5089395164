// The surface's display list and drawing state, and its page files.

#include "PaginasAzar.h"

#include "core/Conexion.h"
#include "surface/Emf.h"
#include "surface/Superficie.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace consultas;

namespace {

const Elemento& Ultimo(const Superficie& s) {
    return s.Doc().paginas.back().elementos.back();
}

TEST(Superficie, CadaElementoGuardaElEstadoVigente) {
    Superficie s;
    s.StartDoc();
    s.TextOut(100, 200, "uno");
    const EstadoDibujo antes = Ultimo(s).estado;

    // A heading brackets its changes; the body's next item must not see them.
    s.SaveState();
    s.FontBold = true;
    s.FontSize = 9;
    s.ForeColor = ColorAzul;
    s.TextAlign = AlineaDerecha;
    s.TextOut(7000, 0, "encabezado");
    EXPECT_TRUE(Ultimo(s).estado.FontBold);
    EXPECT_EQ(Ultimo(s).estado.ForeColor, ColorAzul);
    s.RestoreState();
    s.TextOut(100, 440, "dos");
    EXPECT_EQ(Ultimo(s).estado, antes);

    // A pop with nothing pushed changes nothing.
    s.FontSize = 10;
    s.RestoreState();
    EXPECT_EQ(s.FontSize, 10);

    // Lines keep only their colour, bands nothing: the rest of the state
    // does not draw them.
    s.FontBold = true;
    s.ForeColor = ColorRojo;
    s.DrawLine(0, 960, 10500, 960);
    EXPECT_EQ(Ultimo(s), Elemento::Linea(0, 960, 10500, 960, ColorRojo));
    s.FillBand(6910, 240, 4700, 200);
    EXPECT_EQ(Ultimo(s), Elemento::Banda(6910, 240, 4700, 200));
}

TEST(Superficie, TextoVacioNoDibujaNada) {
    Superficie s;
    s.StartDoc();
    s.TextOut(0, 0, QString());
    s.TextOut(0, 0, "");
    EXPECT_TRUE(s.Doc().paginas.at(0).elementos.empty());
}

TEST(Superficie, StartDocDescartaPaginasYConservaElEstado) {
    Superficie s;
    s.StartDoc();
    s.TextOut(0, 0, "a");
    s.NewPage();
    s.TextOut(0, 0, "b");
    s.EndDoc();
    EXPECT_EQ(s.PageCount(), 2);
    EXPECT_EQ(s.Doc().paginas[1].elementos.at(0).texto, "b");
    s.FontBold = true;
    s.FontFace = FuenteSerif;
    s.StartDoc();
    EXPECT_EQ(s.PageCount(), 1);
    EXPECT_TRUE(s.Doc().paginas[0].elementos.empty());
    EXPECT_TRUE(s.FontBold);
    EXPECT_EQ(s.FontFace, FuenteSerif);
}

TEST(Superficie, PaginaActualYGrabacionFueraDeRango) {
    QTemporaryDir dir;
    Superficie s;
    s.StartDoc();
    s.EndDoc();
    s.CurrentPage(1);
    EXPECT_EQ(s.CurrentPage(), 1);
    s.CurrentPage(7);
    EXPECT_EQ(s.CurrentPage(), 1);
    EXPECT_THROW(s.SavePage(dir.filePath("x.emf"), 2), ErrorConsulta);
    EXPECT_THROW(s.SavePage(dir.filePath("x.emf"), 0), ErrorConsulta);
    EXPECT_FALSE(QFile::exists(dir.filePath("x.emf")));
}

TEST(Superficie, SalidaAImpresoraPasaPorElGancho) {
    Superficie s;
    s.StartDoc();
    s.TextOut(0, 0, "x");
    int impresos = 0;
    s.AlImprimir = [&](const Documento& d) { impresos += int(d.paginas.size()); };
    s.OutputMode(0);
    EXPECT_EQ(impresos, 0);
    s.OutputMode(2);
    EXPECT_EQ(impresos, 1);
}

// The page file gives back item for item what was written, whatever the
// page holds.
TEST(PaginaEmf, IdaYVueltaDePaginasAlAzar) {
    QRandomGenerator g(20261123);
    for (int i = 0; i < 400; ++i) {
        const Pagina p = pruebas::PaginaAzar(g);
        const Pagina leida = DecodificaEmf(CodificaEmf(p));
        ASSERT_EQ(leida.elementos.size(), p.elementos.size()) << "página " << i;
        for (size_t k = 0; k < p.elementos.size(); ++k)
            ASSERT_EQ(leida.elementos[k], p.elementos[k]) << "página " << i << " elemento " << k;
    }
}

// A crowded page makes a file far larger than a usual one; it is whole, and
// says its own size in the header.
TEST(PaginaEmf, PaginaMuyLlenaQuedaEntera) {
    Pagina p;
    EstadoDibujo e;
    for (int i = 0; i < 3000; ++i) {
        e.FontSize = 5 + i % 4;
        e.FontBold = i % 3 == 0;
        e.TextAlign = i % 3;
        p.elementos.push_back(
            Elemento::Texto(i % 10000, i % 14000, QString("Artículo %1 € ñ").arg(i), e));
        if (i % 50 == 0)
            p.elementos.push_back(Elemento::Linea(0, i % 14000, 10500, i % 14000, ColorAzul));
    }
    const QByteArray b = CodificaEmf(p);
    ASSERT_GT(b.size(), 256 * 1024);
    quint32 declarado;
    memcpy(&declarado, b.constData() + 48, 4);
    EXPECT_EQ(declarado, quint32(b.size()));
    EXPECT_EQ(DecodificaEmf(b), p);
}

TEST(PaginaEmf, LoadPageReproduceLaPaginaYLoNuevoVaEncima) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath("p_1.emf");
    QRandomGenerator g(7);
    Superficie s;
    s.StartDoc();
    const Pagina original = pruebas::PaginaAzar(g);
    for (const Elemento& e : original.elementos) {
        static_cast<EstadoDibujo&>(s) = e.estado;
        if (e.tipo == TipoElemento::Texto)
            s.TextOut(e.x, e.y, e.texto);
        else if (e.tipo == TipoElemento::Linea)
            s.DrawLine(e.x, e.y, e.x2, e.y2);
        else
            s.FillBand(e.x, e.y, e.ancho, e.alto);
    }
    s.EndDoc();
    s.SavePage(ruta, 1);
    // A second save replaces the file rather than appending to it.
    s.SavePage(ruta, 1);

    Superficie t;
    t.StartDoc();
    t.LoadPage(ruta);
    t.TextOut(7000, 720, "sello");
    const auto& el = t.Doc().paginas.at(0).elementos;
    ASSERT_EQ(el.size(), original.elementos.size() + 1);
    EXPECT_TRUE(std::equal(original.elementos.begin(), original.elementos.end(), el.begin()));
    EXPECT_EQ(el.back().texto, "sello");
}

TEST(PaginaEmf, ArchivoTruncadoOAjenoFallaConMensajeClaro) {
    QRandomGenerator g(99);
    Pagina p = pruebas::PaginaAzar(g);
    while (p.elementos.size() < 5)
        p = pruebas::PaginaAzar(g);
    const QByteArray bueno = CodificaEmf(p);
    // Every cut of a good file fails cleanly.
    for (qsizetype n = 0; n < bueno.size(); n += (n < 200 ? 1 : 7)) {
        try {
            DecodificaEmf(bueno.left(n), "corto.emf");
            ADD_FAILURE() << "aceptó " << n << " bytes";
        } catch (const ErrorConsulta& e) {
            EXPECT_TRUE(e.Mensaje().contains("corto.emf")) << qPrintable(e.Mensaje());
        }
    }
    // A picture of another kind.
    EXPECT_THROW(DecodificaEmf(QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(200, 'x')),
                 ErrorConsulta);
    // Random bytes in the body of a well-formed header.
    for (int k = 0; k < 300; ++k) {
        QByteArray malo = bueno;
        for (int j = 0; j < 6; ++j) {
            const qsizetype pos = 108 + g.bounded(malo.size() - 108);
            malo[pos] = char(g.bounded(256));
        }
        try {
            DecodificaEmf(malo);
        } catch (const ErrorConsulta&) {
        }
    }
    // A metafile with a record these pages never draw (a polygon).
    QByteArray ajeno = bueno.left(bueno.size() - 20);
    const char poligono[] = {3, 0, 0, 0, 12, 0, 0, 0, 0, 0, 0, 0};
    ajeno.append(poligono, 12);
    ajeno.append(bueno.right(20));
    const quint32 total = quint32(ajeno.size());
    memcpy(ajeno.data() + 48, &total, 4);
    try {
        DecodificaEmf(ajeno, "ajeno.emf");
        ADD_FAILURE() << "aceptó un registro ajeno";
    } catch (const ErrorConsulta& e) {
        EXPECT_TRUE(e.Mensaje().contains("tipo 3")) << qPrintable(e.Mensaje());
    }
}

TEST(PaginaEmf, RutasQueNoSePuedenUsarFallanNombrandoLaRuta) {
    QTemporaryDir dir;
    const QString noHay = dir.filePath("no/existe/p_1.emf");
    try {
        EscribeEmf(noHay, Pagina{});
        ADD_FAILURE();
    } catch (const ErrorConsulta& e) {
        EXPECT_TRUE(e.Mensaje().contains(noHay));
    }
    try {
        LeeEmf(noHay);
        ADD_FAILURE();
    } catch (const ErrorConsulta& e) {
        EXPECT_TRUE(e.Mensaje().contains(noHay));
    }
}

TEST(PaginaEmf, CabeceraDescribeLaHojaCarta) {
    const QByteArray b = CodificaEmf(Pagina{});
    auto u32 = [&](int pos) {
        quint32 v;
        memcpy(&v, b.constData() + pos, 4);
        return v;
    };
    EXPECT_EQ(u32(0), 1u);
    EXPECT_EQ(u32(40), 0x464D4520u);
    EXPECT_EQ(u32(48), quint32(b.size()));
    EXPECT_EQ(u32(32), 21590u); // frame right, hundredths of a millimetre
    EXPECT_EQ(u32(36), 27940u);
    EXPECT_EQ(u32(b.size() - 20), 14u); // ends in EMR_EOF
}

} // namespace
