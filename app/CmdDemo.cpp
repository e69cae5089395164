// consultas demo DIR [--escala N] [--semilla N] [--reemplazar] [--postgres CADENA]
// Makes a demo suite folder (DIR/suite.db, VALMOR.INI, Temp, Trabajo) and,
// with --postgres, loads the same data into that PostgreSQL database. The
// last line of output is the connection string to use.
#include "OpcionesHost.h"
#include "Subcomandos.h"

#include "GeneradorDemo.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUuid>

#include <cstdio>

namespace consultas::host {

namespace {

struct OpcionesCmdDemo {
    QString carpeta;
    demo::OpcionesDemo demo;
    bool reemplazar = false;
    QString postgres;
};

OpcionesCmdDemo LeeOpcionesDemo(const QStringList& args) {
    OpcionesCmdDemo o;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto valor = [&](const char* opcion) {
            if (i + 1 >= args.size() || args[i + 1].isEmpty())
                throw ErrorUso(QString("falta el valor de %1").arg(opcion));
            return args[++i];
        };
        if (a == "--escala") {
            bool ok = false;
            const QString v = valor("--escala");
            const int n = v.toInt(&ok);
            if (!ok || n < 1 || n > 100000)
                throw ErrorUso("--escala debe ser un entero entre 1 y 100000, no «" + v + "»");
            o.demo.escala = n;
        } else if (a == "--semilla") {
            bool ok = false;
            const QString v = valor("--semilla");
            const quint64 n = v.toULongLong(&ok);
            if (!ok)
                throw ErrorUso("--semilla debe ser un entero sin signo, no «" + v + "»");
            o.demo.semilla = n;
        } else if (a == "--reemplazar") {
            o.reemplazar = true;
        } else if (a == "--postgres") {
            o.postgres = valor("--postgres");
        } else if (a.startsWith("--")) {
            throw ErrorUso("opción desconocida para demo: " + a);
        } else if (o.carpeta.isEmpty()) {
            o.carpeta = a;
        } else {
            throw ErrorUso("sobra el argumento «" + a + "»: demo recibe una sola carpeta");
        }
    }
    if (o.carpeta.isEmpty())
        throw ErrorUso(
            "falta la carpeta: consultas demo DIR [--escala N] [--semilla N] [--reemplazar] "
            "[--postgres CADENA]");
    return o;
}

void Imprime(const demo::ResumenDemo& r, const char* motor) {
    std::printf("%s: %lld filas en %d tablas, %.1f s\n", motor,
                static_cast<long long>(r.TotalFilas()), static_cast<int>(r.filas.size()),
                r.segundos);
    for (const auto& [tabla, n] : r.filas)
        std::printf("  %-24s %lld\n", qPrintable(tabla), static_cast<long long>(n));
}

// The PostgreSQL side: opened and checked before anything is written, loaded
// after the SQLite suite.
class DestinoPostgres {
public:
    ~DestinoPostgres() {
        if (!nombre_.isEmpty()) {
            QSqlDatabase::database(nombre_, false).close();
            QSqlDatabase::removeDatabase(nombre_);
        }
    }
    // Returns an exit code.
    int Abre(const OpcionesCmdDemo& o) {
        nombre_ = "demo_pg_" + QUuid::createUuid().toString(QUuid::Id128);
        try {
            QSqlDatabase db = demo::AbrePostgresEscritura(o.postgres, nombre_);
            QSqlQuery q(db);
            q.exec("SELECT COUNT(*) FROM information_schema.tables WHERE "
                   "table_schema=current_schema()");
            const int tablas = q.next() ? q.value(0).toInt() : 0;
            if (tablas > 0 && !o.reemplazar) {
                std::fprintf(stderr,
                             "consultas: la base PostgreSQL no está vacía (%d tablas); use "
                             "--reemplazar para "
                             "rehacer las tablas de la demostración\n",
                             tablas);
                return SalidaUso;
            }
        } catch (const demo::ErrorDemo& e) {
            std::fprintf(stderr, "consultas: %s\n", qPrintable(e.mensaje.simplified()));
            return SalidaConexion;
        }
        return SalidaBien;
    }
    int Carga(const OpcionesCmdDemo& o) {
        try {
            QSqlDatabase db = QSqlDatabase::database(nombre_, false);
            if (o.reemplazar)
                demo::BorraTablasDemo(db);
            Imprime(demo::CargaDemo(db, o.demo), "PostgreSQL");
        } catch (const demo::ErrorDemo& e) {
            std::fprintf(stderr, "consultas: %s\n", qPrintable(e.mensaje.simplified()));
            return SalidaFallo;
        }
        return SalidaBien;
    }

private:
    QString nombre_;
};

bool CarpetaOcupada(const QString& carpeta) {
    const QFileInfo info(carpeta);
    return info.exists() &&
           (!info.isDir() || !QDir(carpeta).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot |
                                                    QDir::Hidden | QDir::System));
}

} // namespace

int CmdDemo(const QStringList& args) {
    OpcionesCmdDemo o;
    try {
        o = LeeOpcionesDemo(args);
    } catch (const ErrorUso& e) {
        std::fprintf(stderr, "consultas: %s\n", qPrintable(e.mensaje));
        return SalidaUso;
    }
    if (!o.reemplazar && CarpetaOcupada(o.carpeta)) {
        std::fprintf(stderr,
                     "consultas: la carpeta «%s» no está vacía; use --reemplazar para rehacer la "
                     "suite en ella\n",
                     qPrintable(o.carpeta));
        return SalidaUso;
    }
    DestinoPostgres pg;
    if (!o.postgres.isEmpty()) {
        const int c = pg.Abre(o);
        if (c != SalidaBien)
            return c;
    }
    QString cadena;
    try {
        // Refuse a non-empty folder before anything is written.
        demo::ResumenDemo r;
        cadena = demo::CreaSuiteDemo(o.carpeta, o.demo, &r, o.reemplazar);
        Imprime(r, "SQLite");
    } catch (const demo::ErrorDemo& e) {
        std::fprintf(stderr, "consultas: %s\n", qPrintable(e.mensaje.simplified()));
        // A folder that cannot be used is bad input; a failure while writing is not.
        const bool uso = e.mensaje.contains("no está vacía") ||
                         e.mensaje.contains("no es una carpeta") ||
                         e.mensaje.contains("Falta la carpeta");
        return uso ? SalidaUso : SalidaFallo;
    }
    if (!o.postgres.isEmpty()) {
        const int c = pg.Carga(o);
        if (c != SalidaBien)
            return c;
    }
    std::printf("%s\n", qPrintable(cadena));
    std::fflush(stdout);
    return SalidaBien;
}

} // namespace consultas::host
