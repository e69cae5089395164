// The read-only connection and its recordsets, on SQLite and PostgreSQL.
#include "core/Conexion.h"
#include "soporte/Soporte.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace consultas;

namespace {

class ConexionEnMotor : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override {
        if (GetParam() == "postgres")
            REQUIERE_POSTGRES();
        base = pruebas::NuevaBase(GetParam());
        base->Ejecuta({
            "CREATE TABLE tblPrueba (COD_PROV INTEGER, NOM_PROV VARCHAR(40), "
            "IMP_DOC NUMERIC(19,4), FEC_DOC DATE, POR_DES REAL)",
            "INSERT INTO tblPrueba VALUES (1, 'ACME', 100.5, '2024-03-05', 16.0)",
            "INSERT INTO tblPrueba VALUES (2, '', 20, '2024-03-01', 0.5)",
            "INSERT INTO tblPrueba VALUES (3, NULL, NULL, NULL, NULL)",
            "INSERT INTO tblPrueba VALUES (4, 'acme', 100.5, '2024-03-02', 1)",
        });
        ASSERT_TRUE(con.Abrir(base->Cadena())) << con.UltimoError().toStdString();
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    Conexion con;
};

} // namespace

TEST_P(ConexionEnMotor, CamposPorNombreSinMayusculasYNulos) {
    auto rs = con.Abre("SELECT COD_PROV, NOM_PROV, IMP_DOC, FEC_DOC, POR_DES FROM tblPrueba "
                       "ORDER BY COD_PROV;");
    ASSERT_FALSE(rs->Eof());
    EXPECT_EQ(rs->Campo("cod_prov").Entero(), 1);
    EXPECT_EQ(rs->Campo("Nom_Prov").Texto(), "ACME");
    EXPECT_EQ(rs->Campo("IMP_DOC").Dinero().Diezmilesimos(), 1005000);
    EXPECT_EQ(rs->Campo("FEC_DOC").Fecha(), QDate(2024, 3, 5));
    // A percentage divided by 100 must stay a fraction on both engines.
    EXPECT_DOUBLE_EQ(rs->Campo("POR_DES").Doble() / 100, 0.16);
    rs->MoveNext();
    EXPECT_FALSE(rs->Campo("NOM_PROV").EsNulo());
    EXPECT_EQ(rs->Campo("NOM_PROV").Texto(), "");
    rs->MoveNext();
    EXPECT_TRUE(rs->Campo("NOM_PROV").EsNulo());
    EXPECT_TRUE(rs->Campo("IMP_DOC").EsNulo());
    EXPECT_TRUE(rs->Campo("FEC_DOC").EsNulo());
    EXPECT_EQ(rs->Campo("IMP_DOC").Dinero(), Moneda());
    EXPECT_THROW(rs->Campo("NO_EXISTE"), ErrorConsulta);
    rs->MoveNext();
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    EXPECT_THROW(rs->Campo("COD_PROV"), ErrorConsulta);
    EXPECT_THROW(rs->MoveNext(), ErrorConsulta);
    // Rewinding a forward walk reads the statement again.
    rs->MoveFirst();
    EXPECT_EQ(rs->Campo("COD_PROV").Entero(), 1);
    EXPECT_EQ(rs->RecordCount(), 4);
}

TEST_P(ConexionEnMotor, RechazaTodoLoQueNoSeaSelect) {
    const char* prohibidas[] = {
        "DELETE FROM tblPrueba",
        "UPDATE tblPrueba SET COD_PROV=9",
        "INSERT INTO tblPrueba VALUES (9,'x',1,'2024-01-01',1)",
        "DROP TABLE tblPrueba",
        "SELECT 1; DELETE FROM tblPrueba",
        "SELECT * INTO tblCopia FROM tblPrueba",
        "  /* nada */ CREATE TABLE t(x INTEGER)",
        "WITH x AS (DELETE FROM tblPrueba RETURNING *) SELECT * FROM x",
        "SELECTED",
    };
    for (const char* sql : prohibidas)
        EXPECT_THROW(con.Abre(sql), ErrorConsulta) << sql;
    auto rs = con.Abre("SELECT COUNT(*) AS N FROM tblPrueba WHERE NOM_PROV<>'; DELETE' ;  ");
    EXPECT_EQ(rs->Campo("n").Entero(), 3); // the Null name is not different from anything
    EXPECT_TRUE(Conexion::EsSoloLectura(" ( SELECT 1 ) UNION (SELECT 2)"));
    EXPECT_TRUE(Conexion::EsSoloLectura("select [INTO] from t"));
}

TEST_P(ConexionEnMotor, ElMotorTambienRechazaEscrituras) {
    // Even a statement that slipped past the check could not write: the
    // session itself is read-only.
    const QString motor = GetParam();
    if (motor == "postgres") {
        auto rs = con.Abre("SELECT current_setting('transaction_read_only') AS RO");
        EXPECT_EQ(rs->Campo("RO").Texto(), "on");
    } else {
        auto rs = con.Abre("SELECT 1 AS X");
        EXPECT_EQ(rs->Campo("X").Entero(), 1);
    }
}

TEST_P(ConexionEnMotor, FallosDelMotorLlevanMensajeYTexto) {
    try {
        con.Abre("SELECT NO_HAY FROM tblPrueba");
        FAIL();
    } catch (const ErrorConsulta& e) {
        EXPECT_FALSE(e.Mensaje().isEmpty());
        EXPECT_EQ(e.Sql(), "SELECT NO_HAY FROM tblPrueba");
    }
}

TEST_P(ConexionEnMotor, OrdenEstableConClavesDescendentes) {
    auto rs = con.Abre("SELECT COD_PROV, NOM_PROV, IMP_DOC FROM tblPrueba ORDER BY COD_PROV");
    rs->Ordena("IMP_DOC DESC, NOM_PROV");
    // 100.5 twice (ACME and acme compare equal without case: order of
    // arrival kept), then 20, then the Null last in descending order.
    std::vector<qint64> orden;
    for (; !rs->Eof(); rs->MoveNext())
        orden.push_back(rs->Campo("COD_PROV").Entero());
    EXPECT_EQ(orden, (std::vector<qint64>{1, 4, 2, 3}));
    rs->Ordena("NOM_PROV,COD_PROV DESC");
    orden.clear();
    for (; !rs->Eof(); rs->MoveNext())
        orden.push_back(rs->Campo("COD_PROV").Entero());
    EXPECT_EQ(orden, (std::vector<qint64>{3, 2, 4, 1}));
    EXPECT_THROW(rs->Ordena("NO_EXISTE"), ErrorConsulta);
}

TEST_P(ConexionEnMotor, RecordsetsAnidados) {
    // Reports open a lookup inside a walk on the same connection.
    auto externo = con.Abre("SELECT COD_PROV FROM tblPrueba ORDER BY COD_PROV");
    int vistos = 0;
    for (; !externo->Eof(); externo->MoveNext()) {
        auto interno = con.Abre(QString("SELECT COUNT(*) AS N FROM tblPrueba WHERE COD_PROV<=%1")
                                    .arg(externo->Campo("COD_PROV").Entero()));
        EXPECT_EQ(interno->Campo("N").Entero(), ++vistos);
    }
    EXPECT_EQ(vistos, 4);
}

// The statement log: one line per statement in the file in force when the
// statement ends, with the rows read (-1 for a failure); a log set aside is
// whole on disk at once, and taking it up again appends to it.
TEST_P(ConexionEnMotor, BitacoraDeSentencias) {
    struct Restaura {
        QString anterior = Conexion::Bitacora();
        ~Restaura() { Conexion::FijaBitacora(anterior); }
    } restaura;
    QTemporaryDir dir;
    const QString a = dir.filePath("a.tsv"), b = dir.filePath("b.tsv");
    auto lineas = [](const QString& ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly | QIODevice::Text)
                   ? QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts)
                   : QStringList();
    };
    const QString todas = "SELECT COD_PROV FROM tblPrueba ORDER BY COD_PROV";
    const QString una = "SELECT NOM_PROV FROM tblPrueba WHERE COD_PROV=1";

    Conexion::FijaBitacora(a);
    for (auto rs = con.Abre(todas); !rs->Eof(); rs->MoveNext()) {
    }
    EXPECT_THROW(con.Abre("SELECT NO_HAY FROM tblPrueba"), ErrorConsulta);
    Conexion::FijaBitacora(b);
    con.Abre(una);
    const QStringList enA = lineas(a);
    Conexion::FijaBitacora(QString());
    con.Abre(una);
    ASSERT_EQ(enA.size(), 2);
    EXPECT_EQ(enA[0].split('\t').mid(2), (QStringList{"4", todas}));
    EXPECT_EQ(enA[1].split('\t').mid(2), (QStringList{"-1", "SELECT NO_HAY FROM tblPrueba"}));
    const QStringList enB = lineas(b);
    ASSERT_EQ(enB.size(), 1);
    EXPECT_EQ(enB[0].split('\t').mid(2), (QStringList{"1", una}));

    Conexion::FijaBitacora(a);
    con.Abre(una);
    Conexion::FijaBitacora(QString());
    EXPECT_EQ(lineas(a).size(), 3);
}

INSTANTIATE_TEST_SUITE_P(Motores, ConexionEnMotor, ::testing::Values("sqlite", "postgres"),
                         [](const auto& info) { return info.param.toStdString(); });

TEST(Conexion, FormasDeCadena) {
    EXPECT_EQ(Conexion::MotorDeCadena("/datos/suite.db"), Motor::SQLite);
    EXPECT_EQ(Conexion::MotorDeCadena("sqlite:suite.db"), Motor::SQLite);
    EXPECT_EQ(Conexion::MotorDeCadena("postgresql://u@h:5432/db"), Motor::PostgreSQL);
    EXPECT_EQ(Conexion::MotorDeCadena("host=h dbname=d user=u"), Motor::PostgreSQL);
    EXPECT_EQ(Conexion::MotorDeCadena("DRIVER={PostgreSQL Unicode};SERVER=h"), Motor::ODBC);
    EXPECT_EQ(Conexion::MotorDeCadena("DSN=Suite"), Motor::ODBC);
    EXPECT_EQ(Conexion::MotorDeCadena("Provider=SQLOLEDB;Data Source=x"), Motor::Ninguno);
    EXPECT_EQ(Conexion::MotorDeCadena(""), Motor::Ninguno);
    Conexion c;
    EXPECT_FALSE(c.Abrir("/no/existe/suite.db"));
    EXPECT_FALSE(c.EstaAbierta());
    EXPECT_FALSE(c.Abrir("Provider=SQLOLEDB;Data Source=x"));
    EXPECT_FALSE(c.UltimoError().isEmpty());
}

TEST(Conexion, PostgresPorUrlYPorOdbc) {
    REQUIERE_POSTGRES();
    auto base = pruebas::NuevaPostgres();
    base->Ejecuta({"CREATE TABLE tblMoneda (COD_MON INTEGER, DES_MON VARCHAR(20))",
                   "INSERT INTO tblMoneda VALUES (1, 'PESOS'), (2, 'DÓLARES')"});
    // The keyword string of the test server, rewritten as a URL and as ODBC.
    QString host, puerto, usuario, dbname;
    for (const QString& p : base->Cadena().split(' ', Qt::SkipEmptyParts)) {
        const QString k = p.section('=', 0, 0), v = p.section('=', 1);
        if (k == "host")
            host = v;
        else if (k == "port")
            puerto = v;
        else if (k == "user")
            usuario = v;
        else if (k == "dbname")
            dbname = v;
    }
    const QString url = QString("postgresql://%1@%2:%3/%4").arg(usuario, host, puerto, dbname);
    const QString odbc =
        QString("DRIVER={PostgreSQL Unicode};SERVER=%1;PORT=%2;DATABASE=%3;UID=%4;")
            .arg(host, puerto, dbname, usuario);
    for (const QString& cadena : {url, odbc}) {
        Conexion c;
        ASSERT_TRUE(c.Abrir(cadena))
            << cadena.toStdString() << ": " << c.UltimoError().toStdString();
        auto rs = c.Abre("SELECT cod_mon, des_mon FROM tblMoneda ORDER BY COD_MON DESC");
        EXPECT_EQ(rs->Campo("DES_MON").Texto(), "DÓLARES") << cadena.toStdString();
        EXPECT_THROW(c.Abre("DELETE FROM tblMoneda"), ErrorConsulta);
    }
}

TEST(Recordset, EnMemoriaConCamposDeclarados) {
    Recordset rs({{"Folio", TipoCampo::Texto, 5},
                  {"Importe", TipoCampo::Moneda},
                  {"Fecha", TipoCampo::Fecha},
                  {"Tasa", TipoCampo::Doble}});
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.RecordCount(), 0);
    rs.AgregaNuevo();
    rs.Fija("FOLIO", "ABCDEFGH");
    rs.Fija("Importe", "1,234.56785");
    rs.Fija("Fecha", QDate(2024, 3, 5));
    rs.Fija("Tasa", "16.5");
    rs.AgregaNuevo();
    rs.Fija("Folio", "Z");
    rs.Fija("Importe", 0.5);
    EXPECT_THROW(rs.Fija("Importe", "no es número"), ErrorConsulta);
    EXPECT_THROW(rs.Fija("Nada", 1), ErrorConsulta);
    rs.MoveFirst();
    EXPECT_EQ(rs.Campo("folio").Texto(), "ABCDE");
    EXPECT_EQ(rs.Campo("Importe").Dinero().Diezmilesimos(), 12345678);
    EXPECT_EQ(rs.Campo("Fecha").Fecha(), QDate(2024, 3, 5));
    EXPECT_DOUBLE_EQ(rs.Campo("Tasa").Doble(), 16.5);
    rs.MoveNext();
    EXPECT_TRUE(rs.Campo("Fecha").EsNulo());
    rs.Ordena("Importe");
    EXPECT_EQ(rs.Campo("Folio").Texto(), "Z");
    EXPECT_EQ(rs.RecordCount(), 2);
}
