#include "GeneradorDemo.h"
#include "Generador.h"
#include "core/Conexion.h"

#include <QDate>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>

#include <algorithm>
#include <memory>
#include <vector>

namespace consultas::demo {

qint64 ResumenDemo::TotalFilas() const {
    qint64 t = 0;
    for (const auto& [k, v] : filas)
        t += v;
    return t;
}

// ---------------------------------------------------------------- schema

QString EsquemaDemo(bool postgres) {
    QFile f(postgres ? ":/demo/esquema_postgres.sql" : ":/demo/esquema_sqlite.sql");
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDemo("No se encontró el esquema de demostración en los recursos.");
    return QString::fromUtf8(f.readAll());
}

QStringList SentenciasEsquema(bool postgres, bool conIndices) {
    QStringList tablas, indices;
    QStringList* destino = &tablas;
    QString actual;
    for (const QString& linea : EsquemaDemo(postgres).split('\n')) {
        const QString t = linea.trimmed();
        if (t == "-- @indices") {
            destino = &indices;
            continue;
        }
        if (t.startsWith("--") && actual.trimmed().isEmpty())
            continue;
        actual += linea + '\n';
        if (t.endsWith(';')) {
            if (!actual.trimmed().isEmpty())
                destino->append(actual.trimmed());
            actual.clear();
        }
    }
    if (conIndices)
        tablas += indices;
    return tablas;
}

QStringList TablasDemo() {
    static const QRegularExpression re(R"(CREATE TABLE (\w+))");
    QStringList r;
    for (const QString& s : SentenciasEsquema(false, false)) {
        const auto m = re.match(s);
        if (m.hasMatch())
            r << m.captured(1);
    }
    return r;
}

namespace {

void Ejecuta(QSqlDatabase& db, const QString& sql) {
    QSqlQuery q(db);
    if (!q.exec(sql))
        throw ErrorDemo(q.lastError().text() + " [" + sql.left(200) + "]");
}

bool EsPostgres(const QSqlDatabase& db) {
    return db.driverName() == "QPSQL";
}

} // namespace

// ---------------------------------------------------------------- public

void CreaEsquemaDemo(QSqlDatabase db) {
    for (const QString& s : SentenciasEsquema(EsPostgres(db), true))
        Ejecuta(db, s);
}

void BorraTablasDemo(QSqlDatabase db) {
    for (const QString& t : TablasDemo())
        Ejecuta(db, "DROP TABLE IF EXISTS " + t);
}

ResumenDemo CargaDemo(QSqlDatabase db, const OpcionesDemo& o) {
    QElapsedTimer reloj;
    reloj.start();
    if (!db.isOpen())
        throw ErrorDemo("La base de datos no está abierta.");
    const bool pg = EsPostgres(db);
    if (!pg) {
        // Building a new file: a crash leaves a useless demo anyway.
        QSqlQuery q(db);
        q.exec("PRAGMA synchronous=OFF");
        q.exec("PRAGMA journal_mode=MEMORY");
    }
    if (!db.transaction())
        throw ErrorDemo(db.lastError().text());
    ResumenDemo r;
    try {
        for (const QString& s : SentenciasEsquema(pg, false))
            Ejecuta(db, s);
        gen::Generador g(db, o);
        g.Genera();
        r.filas = g.Filas();
        QStringList todas = SentenciasEsquema(pg, true);
        const QStringList tablas = SentenciasEsquema(pg, false);
        for (int i = static_cast<int>(tablas.size()); i < todas.size(); ++i)
            Ejecuta(db, todas[i]);
        if (!db.commit())
            throw ErrorDemo(db.lastError().text());
    } catch (...) {
        db.rollback();
        throw;
    }
    if (pg) {
        QSqlQuery q(db);
        q.exec("ANALYZE");
    }
    for (const QString& t : TablasDemo())
        r.filas.try_emplace(t, 0);
    r.segundos = static_cast<double>(reloj.elapsed()) / 1000.0;
    return r;
}

QString CreaSuiteDemo(const QString& carpeta, const OpcionesDemo& o, ResumenDemo* resumen,
                      bool reemplazar) {
    if (carpeta.trimmed().isEmpty())
        throw ErrorDemo("Falta la carpeta de la suite de demostración.");
    QFileInfo info(carpeta);
    if (info.exists() && !info.isDir())
        throw ErrorDemo("«" + carpeta + "» existe y no es una carpeta.");
    QDir dir(carpeta);
    if (info.exists() &&
        !dir.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System) &&
        !reemplazar)
        throw ErrorDemo("La carpeta «" + carpeta +
                        "» no está vacía; use --reemplazar para rehacer la suite en ella.");
    if (!dir.mkpath("."))
        throw ErrorDemo("No se pudo crear la carpeta «" + carpeta + "».");
    const QString absoluta = QDir(dir.absolutePath()).canonicalPath();
    dir = QDir(absoluta);
    if (!dir.mkpath("Temp") || !dir.mkpath("Trabajo"))
        throw ErrorDemo("No se pudieron crear las carpetas Temp y Trabajo en «" + absoluta + "».");
    const QString ruta = dir.filePath("suite.db");
    for (const QString& f : {ruta, ruta + "-journal", ruta + "-wal", ruta + "-shm"})
        if (QFile::exists(f) && !QFile::remove(f))
            throw ErrorDemo("No se pudo reemplazar «" + f + "».");

    const QString nombre = "demo_escritura_" + QUuid::createUuid().toString(QUuid::Id128);
    try {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", nombre);
        db.setDatabaseName(ruta);
        if (!db.open())
            throw ErrorDemo("No se pudo crear «" + ruta + "»: " + db.lastError().text());
        ResumenDemo r = CargaDemo(db, o);
        db.close();
        if (resumen)
            *resumen = r;
    } catch (...) {
        QSqlDatabase::removeDatabase(nombre);
        throw;
    }
    QSqlDatabase::removeDatabase(nombre);

    // VALMOR.INI, written by hand: an INI with backslash-free paths and the
    // key order a person expects.
    QFile ini(dir.filePath("VALMOR.INI"));
    if (!ini.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        throw ErrorDemo("No se pudo escribir «" + ini.fileName() + "».");
    QTextStream t(&ini);
    t << "[VARIOS]\n"
      << "DIRCONSULTAS=" << dir.filePath("Trabajo") << "\n"
      << "VER_COLEX=1\n\n"
      << "[PARAMETROS]\n"
      << "VENCIDO0=30\nVENCIDO1=60\nVENCIDO2=90\n\n"
      << "[CFGREGIONAL]\n"
      << "CIUDAD=" << hechos::Ciudad << "\nESTADO=" << hechos::Estado << "\nPAIS=" << hechos::Pais
      << "\n";
    t.flush();
    if (ini.error() != QFile::NoError)
        throw ErrorDemo("No se pudo escribir «" + ini.fileName() + "».");
    return ruta;
}

QSqlDatabase AbrePostgresEscritura(const QString& cadena, const QString& nombreConexion) {
    QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", nombreConexion);
    QStringList opciones;
    QString error;
    if (!Conexion::ConfiguraPostgres(db, cadena, &opciones, &error))
        throw ErrorDemo(error + " " + cadena.trimmed());
    if (!opciones.isEmpty())
        db.setConnectOptions(opciones.join(';'));
    if (!db.open()) {
        const QString e = db.lastError().text();
        throw ErrorDemo("No se pudo abrir la base PostgreSQL: " + e.simplified());
    }
    QSqlQuery q(db);
    q.exec("SET client_min_messages TO WARNING");
    return db;
}

} // namespace consultas::demo
