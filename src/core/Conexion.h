#pragma once
// Read-only database access over Qt SQL: one connection string opens SQLite,
// PostgreSQL or any ODBC engine; statements come back as recordsets walked
// with Eof/MoveNext and read by field name.

#include "core/Moneda.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <stdexcept>
#include <vector>

class QSqlQuery;

namespace consultas {

// A failed statement, a refused statement or a file failure. Carries the
// engine's (or the system's) message and, for a statement, its text.
class ErrorConsulta : public std::runtime_error {
public:
    explicit ErrorConsulta(const QString& mensaje, const QString& sql = QString())
        : std::runtime_error(mensaje.toStdString()), mensaje_(mensaje), sql_(sql) {}
    const QString& Mensaje() const { return mensaje_; }
    const QString& Sql() const { return sql_; }

private:
    QString mensaje_;
    QString sql_;
};

enum class Motor { Ninguno, SQLite, PostgreSQL, ODBC };

// One value of a field. Null is a state of its own, distinct from an empty
// text or a zero.
class Valor {
public:
    Valor() = default;
    explicit Valor(QVariant v) : v_(std::move(v)) {}

    bool EsNulo() const { return v_.isNull() || !v_.isValid(); }
    // Null gives the empty text; numbers give their shortest decimal text
    // (16.0 gives "16"); dates give ISO text.
    QString Texto() const;
    double Doble() const;
    qint64 Entero() const;
    Moneda Dinero() const;
    // Dates stored as ISO text (SQLite) and as dates (other engines) alike;
    // a time of day, when present, is dropped by Fecha and kept by FechaHora.
    QDate Fecha() const;
    QDateTime FechaHora() const;
    bool Logico() const;
    const QVariant& Variante() const { return v_; }

private:
    QVariant v_;
};

// Field types of a recordset made in memory (export and ranking recordsets).
enum class TipoCampo { Texto, Moneda, Fecha, Doble, Entero };

struct CampoDef {
    QString nombre;
    TipoCampo tipo = TipoCampo::Texto;
    int tamano = 0; // texts: the most characters kept; 0 is no limit
};

// Rows of a statement, or rows made in memory. A statement's rows stream
// forward until the recordset has to sort or rewind, when they are kept in
// memory.
class Recordset {
public:
    // An empty recordset in memory with the given fields.
    explicit Recordset(std::vector<CampoDef> campos);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Eof() const;
    bool Bof() const { return Vacio(); }
    bool Vacio() const; // no row at all
    void MoveNext();
    void MoveFirst();
    // Number of rows; reads a streaming recordset to its end first.
    int RecordCount();

    int CuentaCampos() const { return static_cast<int>(nombres_.size()); }
    QString NombreCampo(int i) const { return nombres_.at(static_cast<size_t>(i)); }
    const std::vector<CampoDef>& Campos() const { return campos_; }
    bool TieneCampo(const QString& nombre) const { return Indice(nombre) >= 0; }

    // Field of the current row by name, without regard to case. An unknown
    // name or a read past the end throws.
    Valor Campo(const QString& nombre) const;
    Valor Campo(int indice) const;
    Valor operator[](const QString& nombre) const { return Campo(nombre); }

    // Rows made in memory: AgregaNuevo appends a row of Nulls and makes it
    // current; Fija sets a field of the current row, converting to the
    // field's declared type (a text cut to its size).
    void AgregaNuevo();
    void Fija(const QString& nombre, const QVariant& valor);

    // Stable sort by a comma list of field names, each optionally followed by
    // ASC or DESC: "COD_SUCU,FEC_DOC,FOL_DOC", "COMXPRO DESC,COD_PROV".
    // Nulls come first in ascending order. Leaves the first row current.
    void Ordena(const QString& claves);

    void Cierra();

private:
    friend class Conexion;
    Recordset(std::unique_ptr<QSqlQuery> consulta, QString sql);
    int Indice(const QString& nombre) const;
    void Materializa();
    void LeeFilaConsulta();

    std::vector<CampoDef> campos_;
    std::vector<QString> nombres_;
    std::vector<QString> clavesMayus_;
    std::unique_ptr<QSqlQuery> consulta_;
    QString sql_;
    bool enMemoria_ = true;
    bool finConsulta_ = false;
    std::vector<QVariant> filaConsulta_;
    std::vector<std::vector<QVariant>> filas_;
    size_t actual_ = 0;
    // Statement log: rows are timed only while a log is being written, so
    // an ordinary walk pays nothing for it.
    bool anotar_ = false;
    double msEjecucion_ = 0;
    qint64 nsLectura_ = 0;
    qint64 filasLeidas_ = 0;
    bool anotado_ = false;
};

using RecordsetPtr = std::unique_ptr<Recordset>;

// The database engine's dialect: the few SQL terms that differ by engine.
// Everything else in the statements is text as the reports write it.
struct Dialecto {
    // Date literal with its own delimiters, by the engine code the host
    // gave: 2 "#2024/03/05#", 3 "'20240305'", any other "'2024-03-05'".
    static QString FechaSQL(const QDate& fecha, int manejador);
    // Length function: "LEN" for codes 2 and below, "LENGTH" above.
    static QString FuncionLong(int manejador);
    // A date plus a number of days: "(FEC_DOC+PLA_PAG)" by default,
    // "(CAST(FEC_DOC AS DATETIME)+PLA_PAG)" with code 3, and SQLite's date()
    // on a SQLite connection, where dates are ISO text.
    static QString FechaMasDias(const QString& fecha, const QString& dias, int manejador,
                                Motor motor);
};

class Conexion {
public:
    Conexion();
    ~Conexion();
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;

    // Opens read-only from a connection string:
    //   PATH or sqlite:PATH                 SQLite file (must exist)
    //   postgresql://user:pw@host:port/db   PostgreSQL
    //   host=... port=... dbname=... user=...  PostgreSQL keyword form
    //   anything with DRIVER= or DSN=       ODBC, as it stands
    // Returns false on any failure, with the reason in UltimoError().
    bool Abrir(const QString& cadena);
    void Cerrar();
    bool EstaAbierta() const;
    Motor MotorActual() const { return motor_; }
    QString UltimoError() const { return ultimoError_; }

    // Runs a SELECT and returns its rows. Anything but a single SELECT is
    // refused before it reaches the engine; an engine failure throws
    // ErrorConsulta with the engine's message and the statement.
    RecordsetPtr Abre(const QString& sql);

    // Which form a connection string has; Ninguno when it names none.
    static Motor MotorDeCadena(const QString& cadena);
    // The file of a SQLite connection string (PATH or sqlite:PATH).
    static QString RutaSqlite(const QString& cadena);
    // Sets host, port, database, user and password of a PostgreSQL
    // connection from a URL or keyword string; other keywords go to
    // *opciones as driver options. False, with the reason, when the string
    // has neither form. The demo generator's writable connection uses it too.
    static bool ConfiguraPostgres(QSqlDatabase& db, const QString& cadena, QStringList* opciones,
                                  QString* error = nullptr);
    // True when the text is one SELECT statement (an optional ";" at its end).
    static bool EsSoloLectura(const QString& sql);

    // Statement log: when a path is set, every statement is appended with
    // the milliseconds it took to execute. The CONSULTAS_BITACORA
    // environment variable sets it at start.
    static void FijaBitacora(const QString& ruta);
    static QString Bitacora();

private:
    QString nombre_;
    Motor motor_ = Motor::Ninguno;
    QString ultimoError_;
};

} // namespace consultas
