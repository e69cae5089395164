// Renderers and batch outputs: alignment measured in the PDF, the JSON Lines
// dump and its reader, the files of each output.

#include "PaginasAzar.h"

#include "core/Conexion.h"
#include "surface/Emf.h"
#include "surface/Renderizador.h"
#include "surface/SalidaLote.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

using namespace consultas;

namespace {

// Words of a PDF with their boxes in points, through pdftotext -bbox.
struct Palabra {
    QString texto;
    double xMin, yMin, xMax, yMax;
};

std::vector<Palabra> PalabrasPdf(const QString& pdf) {
    QProcess p;
    p.start("pdftotext", {"-bbox", pdf, "-"});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return {};
    const QString html = QString::fromUtf8(p.readAllStandardOutput());
    static const QRegularExpression re(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)</word>)re");
    std::vector<Palabra> r;
    for (auto it = re.globalMatch(html); it.hasNext();) {
        const auto m = it.next();
        r.push_back({m.captured(5), m.captured(1).toDouble(), m.captured(2).toDouble(),
                     m.captured(3).toDouble(), m.captured(4).toDouble()});
    }
    return r;
}

TEST(Renderizado, DerechaYCentroCaenExactamenteEnSuXEnElPdf) {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "sin pdftotext";
    QTemporaryDir dir;
    Documento doc;
    Pagina p;
    EstadoDibujo e;
    const QStringList anchos = {"1", "22,222.22", "1,234,567,890.99", "WWWWWWWW"};
    int y = 0;
    for (int tam : {6, 8, 10}) {
        for (bool negrita : {false, true}) {
            e.FontSize = tam;
            e.FontBold = negrita;
            for (const QString& t : anchos) {
                e.TextAlign = AlineaDerecha;
                p.elementos.push_back(Elemento::Texto(10400, y, t, e));
                e.TextAlign = AlineaCentro;
                p.elementos.push_back(Elemento::Texto(5000, y, t, e));
                y += 240;
            }
        }
    }
    doc.paginas.push_back(p);
    const QString pdf = dir.filePath("a.pdf");
    EscribePdf(doc, pdf);
    const auto palabras = PalabrasPdf(pdf);
    ASSERT_EQ(palabras.size(), p.elementos.size());
    // Twips to points, with the left margin.
    const double derecha = (10400 + MargenHoja) / 20.0, centro = (5000 + MargenHoja) / 20.0;
    // Each line holds a centred text on the left and a right-aligned one.
    auto ordenadas = palabras;
    std::sort(ordenadas.begin(), ordenadas.end(), [](const Palabra& a, const Palabra& b) {
        return std::tie(a.yMin, a.xMin) < std::tie(b.yMin, b.xMin);
    });
    for (size_t i = 0; i + 1 < ordenadas.size(); i += 2) {
        const Palabra& c = ordenadas[i];
        const Palabra& d = ordenadas[i + 1];
        EXPECT_EQ(c.texto, d.texto);
        EXPECT_NEAR(d.xMax, derecha, 0.05) << qPrintable(d.texto);
        EXPECT_NEAR((c.xMin + c.xMax) / 2, centro, 0.05) << qPrintable(c.texto);
    }
    // y is the top of the line: the first line's box starts at the top margin.
    EXPECT_NEAR(palabras.front().yMin, MargenHoja / 20.0, 1.0);
}

TEST(Renderizado, PdfConUnaHojaCartaPorPagina) {
    if (QStandardPaths::findExecutable("pdfinfo").isEmpty())
        GTEST_SKIP() << "sin pdfinfo";
    QTemporaryDir dir;
    QRandomGenerator g(3);
    Documento doc;
    for (int i = 0; i < 4; ++i)
        doc.paginas.push_back(pruebas::PaginaAzar(g));
    const QString pdf = dir.filePath("d.pdf");
    EscribePdf(doc, pdf);
    QProcess p;
    p.start("pdfinfo", {pdf});
    ASSERT_TRUE(p.waitForFinished(30000));
    const QString info = QString::fromUtf8(p.readAllStandardOutput());
    EXPECT_TRUE(info.contains(QRegularExpression("Pages:\\s+4\\b"))) << qPrintable(info);
    EXPECT_TRUE(info.contains("612 x 792")) << qPrintable(info);
    EXPECT_THROW(EscribePdf(doc, dir.filePath("no/hay/d.pdf")), ErrorConsulta);
}

TEST(Renderizado, BandaTapaLoDibujadoAntesYNoLoDeDespues) {
    Pagina p;
    EstadoDibujo e;
    e.FontSize = 10;
    p.elementos.push_back(Elemento::Texto(0, 0, QString(80, QChar(u'█')), e));
    p.elementos.push_back(Elemento::Banda(3000, 0, 4000, 200));
    e.ForeColor = ColorRojo;
    p.elementos.push_back(Elemento::Texto(5000, 0, "XXXX", e));
    const QImage img = ImagenPagina(p, 144); // a tenth of a pixel per twip
    auto px = [&](int xTwip, int yTwip) {
        return QColor(img.pixel((xTwip + MargenHoja) / 10, (yTwip + MargenHoja) / 10));
    };
    EXPECT_EQ(img.width(), 1224);
    EXPECT_EQ(px(1000, 100), QColor(Qt::black));
    EXPECT_EQ(px(4000, 100), QColor(208, 208, 208));
    EXPECT_GT(px(5050, 100).red(), 200); // red text stays on top of the band
    EXPECT_LT(px(5050, 100).green(), 100);
}

TEST(Volcado, FormatoExactoDeCadaLinea) {
    EstadoDibujo e;
    e.ForeColor = ColorAzul;
    EXPECT_EQ(LineaJsonl(1, Elemento::Texto(7000, 720, "Página  : 1 / 3", e)),
              QByteArray(R"({"page":1,"op":"text","x":7000,"y":720,"text":"Página  : 1 / 3",)"
                         R"("align":0,"face":3,"size":8,"bold":false,"emphasis":false,)"
                         R"("color":[0,0,255]})"
                         "\n"));
    EXPECT_EQ(LineaJsonl(1, Elemento::Linea(0, 960, 10500, 960, ColorAzul)),
              QByteArray(R"({"page":1,"op":"line","x1":0,"y1":960,"x2":10500,"y2":960,)"
                         R"("color":[0,0,255]})"
                         "\n"));
    EXPECT_EQ(LineaJsonl(2, Elemento::Banda(6910, 240, 4700, 200)),
              QByteArray(R"({"page":2,"op":"band","x":6910,"y":240,"w":4700,"h":200})"
                         "\n"));
    e.FontBold = true;
    e.TextEmphasis = true;
    e.TextAlign = 2;
    e.FontFace = 1;
    e.FontSize = 10;
    e.ForeColor = Rgb(47, 47, 128);
    EXPECT_EQ(LineaJsonl(3, Elemento::Texto(-5, 0, "a\"b\\c\td\x01", e)),
              QByteArray(R"({"page":3,"op":"text","x":-5,"y":0,"text":"a\"b\\c\td\u0001",)"
                         R"("align":2,"face":1,"size":10,"bold":true,"emphasis":true,)"
                         R"("color":[47,47,128]})"
                         "\n"));
}

TEST(Volcado, IdaYVueltaConPaginasVacias) {
    QRandomGenerator g(11);
    Documento doc;
    for (int i = 0; i < 40; ++i)
        doc.paginas.push_back(pruebas::PaginaAzar(g));
    // Pages with no item are kept by their number, except trailing ones.
    doc.paginas.back().elementos.push_back(Elemento::Banda(0, 0, 1, 1));
    const Documento leido = DocumentoDeJsonl(DocumentoJsonl(doc));
    ASSERT_EQ(leido.paginas.size(), doc.paginas.size());
    for (size_t i = 0; i < doc.paginas.size(); ++i)
        EXPECT_EQ(leido.paginas[i], doc.paginas[i]) << "página " << i + 1;
}

TEST(Volcado, LineaMalFormadaFallaNombrandoLaLinea) {
    const QByteArray bueno = R"({"page":1,"op":"band","x":1,"y":2,"w":3,"h":4})"
                             "\n";
    for (const QByteArray& malo :
         {QByteArray("{\"page\":1,\"op\":\"circle\"}"), QByteArray("{\"page\":1,\"op\":\"text\"}"),
          QByteArray("no es json"),
          QByteArray(R"({"page":0,"op":"band","x":1,"y":2,"w":3,"h":4})")}) {
        try {
            DocumentoDeJsonl(bueno + malo, "v.jsonl");
            ADD_FAILURE() << malo.constData();
        } catch (const ErrorConsulta& e) {
            EXPECT_TRUE(e.Mensaje().contains("v.jsonl")) << qPrintable(e.Mensaje());
            EXPECT_TRUE(e.Mensaje().contains("línea 2")) << qPrintable(e.Mensaje());
        }
    }
}

TEST(SalidasLote, EscribeCadaSalidaPedida) {
    QTemporaryDir dir;
    QRandomGenerator g(5);
    Documento doc;
    for (int i = 0; i < 3; ++i)
        doc.paginas.push_back(pruebas::PaginaAzar(g));
    OpcionesSalida o;
    o.pdf = dir.filePath("r.pdf");
    o.png = dir.filePath("png");
    o.emf = dir.filePath("emf/sub");
    o.jsonl = dir.filePath("r.jsonl");
    o.dpiPng = 50;
    EscribeSalidas(doc, o);
    EXPECT_TRUE(QFile::exists(o.pdf));
    EXPECT_EQ(LeeJsonl(o.jsonl), doc);
    for (int i = 1; i <= 3; ++i) {
        const QImage img(QDir(o.png).filePath(QString("pagina_%1.png").arg(i)));
        EXPECT_EQ(img.size(), QSize(425, 550));
        EXPECT_EQ(LeeEmf(QDir(o.emf).filePath(QString("pagina_%1.emf").arg(i))),
                  doc.paginas[size_t(i - 1)]);
    }
    EXPECT_FALSE(QFile::exists(QDir(o.png).filePath("pagina_4.png")));

    OpcionesSalida solo;
    solo.jsonl = dir.filePath("no/hay/r.jsonl");
    EXPECT_THROW(EscribeSalidas(doc, solo), ErrorConsulta);
}

} // namespace
