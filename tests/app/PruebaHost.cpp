// The command-line host: bad input gets one line naming the problem and a
// non-zero exit; settings parse the way batch runs need.
#include "OpcionesHost.h"
#include "soporte/Soporte.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace consultas::host;

namespace {

struct Resultado {
    int codigo;
    QString error;
};

Resultado Corre(const QStringList& args) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    p.setProcessEnvironment(env);
    p.start(pruebas::ProgramaConsultas(), args);
    EXPECT_TRUE(p.waitForFinished(30000));
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardError())};
}

} // namespace

TEST(Host, EntradaMalaDaUnaLineaYCodigoDistintoDeCero) {
    QTemporaryDir dir;
    const QString db = dir.filePath("suite.db");
    const struct {
        QStringList args;
        int codigo;
        const char* dice;
    } casos[] = {
        {{}, 2, "uso:"},
        {{"nada"}, 2, "subcomando desconocido"},
        {{"abrir", "--pantalla", "compras"}, 2, "--conexion"},
        {{"abrir", "--conexion", db, "--pantalla", "ventas"}, 2, "pantalla desconocida"},
        {{"abrir", "--conexion", "Provider=X;Data Source=y", "--pantalla", "compras"},
         2,
         "forma conocida"},
        {{"abrir", "--conexion", db, "--pantalla", "compras"}, 2, "no existe la base de datos"},
        {{"abrir", "--conexion", db, "--pantalla", "compras", "--motor", "300"}, 2, "--motor"},
        {{"abrir", "--conexion", db, "--pantalla", "compras", "--bogus", "1"},
         2,
         "opción desconocida"},
        {{"abrir", "--conexion", db, "--pantalla", "compras", "chkExcel=1"},
         2,
         "argumento inesperado"},
    };
    for (const auto& c : casos) {
        const Resultado r = Corre(c.args);
        EXPECT_EQ(r.codigo, c.codigo) << c.args.join(' ').toStdString();
        EXPECT_TRUE(r.error.contains(QString::fromUtf8(c.dice)))
            << c.args.join(' ').toStdString() << " -> " << r.error.toStdString();
        if (!c.args.isEmpty()) {
            EXPECT_EQ(r.error.trimmed().count('\n'), 0) << r.error.toStdString();
        }
    }
}

TEST(Host, SinAjustesOConexionQueNoAbre) {
    QTemporaryDir dir;
    // A file that exists but is no database, and then a good database with
    // no settings file beside it.
    QFile basura(dir.filePath("basura.db"));
    ASSERT_TRUE(basura.open(QIODevice::WriteOnly));
    basura.write("esto no es una base de datos, es texto suficientemente largo para fallar");
    basura.close();
    QFile ini(dir.filePath("VALMOR.INI"));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[VARIOS]\nDIRCONSULTAS=\n");
    ini.close();
    Resultado r = Corre({"abrir", "--conexion", basura.fileName(), "--pantalla", "compras"});
    EXPECT_EQ(r.codigo, 3) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains("no se pudo abrir la conexión")) << r.error.toStdString();

    auto base = pruebas::NuevaSqlite();
    base->Ejecuta("CREATE TABLE t (x INTEGER)");
    QTemporaryDir vacio;
    r = Corre(
        {"abrir", "--conexion", base->Cadena(), "--ruta", vacio.path(), "--pantalla", "compras"});
    EXPECT_EQ(r.codigo, 2);
    EXPECT_TRUE(r.error.contains("archivo de configuración")) << r.error.toStdString();
}

TEST(Host, AjustesDeControles) {
    Ajuste a = LeeAjuste("txtAnoRan[1]=2026");
    EXPECT_EQ(a.control, "txtAnoRan");
    ASSERT_TRUE(a.indice.has_value());
    EXPECT_EQ(*a.indice, 1);
    EXPECT_EQ(a.valor, "2026");
    a = LeeAjuste("tvwAlm=C01,C02");
    EXPECT_FALSE(a.indice.has_value());
    EXPECT_EQ(a.valor, "C01,C02");
    a = LeeAjuste("cmbTipDoc=");
    EXPECT_EQ(a.valor, "");
    a = LeeAjuste("txtFolio=A=B");
    EXPECT_EQ(a.valor, "A=B");
    EXPECT_THROW(LeeAjuste("=3"), ErrorUso);
    EXPECT_THROW(LeeAjuste("chk Excel=1"), ErrorUso);
    EXPECT_THROW(LeeAjuste("txt[x]=1"), ErrorUso);

    const OpcionesHost o = LeeOpciones({"--conexion", "/a/b/suite.db", "--pantalla", "compras",
                                        "optDoc=3", "--pdf=/tmp/x.pdf", "chkExcel=1"},
                                       true);
    EXPECT_EQ(o.ruta, "/a/b");
    EXPECT_EQ(o.motor, 4);
    EXPECT_EQ(o.pdf, "/tmp/x.pdf");
    ASSERT_EQ(o.ajustes.size(), 2u);
    EXPECT_EQ(o.ajustes[0].control, "optDoc");
    EXPECT_EQ(o.ajustes[1].control, "chkExcel");
}
