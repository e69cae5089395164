#pragma once
// Helpers shared by the tests: throwaway databases on both engines, built by
// the tests themselves, and temporary folders.

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <ostream>

// Test failures show texts as text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace pruebas {

// A database the test writes its fixture into, then reads through the
// library's read-only connection string.
class BaseDePrueba {
public:
    virtual ~BaseDePrueba() = default;
    // Runs statements that build the fixture (CREATE, INSERT); throws on
    // failure with the engine's message.
    virtual void Ejecuta(const QString& sql) = 0;
    void Ejecuta(const QStringList& sqls) {
        for (const QString& s : sqls)
            Ejecuta(s);
    }
    // Runs a statement made of ';'-separated parts, as in a schema file.
    void EjecutaGuion(const QString& guion);
    // The connection string for the library.
    virtual QString Cadena() const = 0;
    // The QSqlDatabase connection name for writing, for code that needs one.
    virtual QString NombreEscritura() const = 0;
    virtual bool EsPostgres() const = 0;
};

// A SQLite file in a temporary folder.
std::unique_ptr<BaseDePrueba> NuevaSqlite();
// A fresh database on the test PostgreSQL server, dropped at the end; null
// when no server was given (CONSULTAS_PG_ADMIN unset).
std::unique_ptr<BaseDePrueba> NuevaPostgres();
// True when the test script started a PostgreSQL server.
bool HayPostgres();
// Both engines: SQLite always, PostgreSQL when there is one.
QStringList Motores();
std::unique_ptr<BaseDePrueba> NuevaBase(const QString& motor);

// Path of the consultas program that the build made.
QString ProgramaConsultas();

} // namespace pruebas

// Skips the test when no PostgreSQL server is there; the test script always
// starts one, so in CI this never skips.
#define REQUIERE_POSTGRES()                                                                        \
    do {                                                                                           \
        if (!pruebas::HayPostgres())                                                               \
            GTEST_SKIP() << "sin servidor PostgreSQL (CONSULTAS_PG_ADMIN)";                        \
    } while (0)
