#pragma once
// The demo suite: the schema of the suite's database on SQLite and
// PostgreSQL, and a deterministic generator of believable data of a Mexican
// company. It writes through its own writable QSqlDatabase connection, never
// through the library's read-only Conexion.
//
//   consultas::demo::OpcionesDemo o;                 // escala 1, semilla 20261123
//   QString cadena = consultas::demo::CreaSuiteDemo("/tmp/suite", o);   // SQLite suite folder
//   consultas::demo::CargaDemo(QSqlDatabase::database("mia"), o);       // any open writable db
//
// The data are the same, row for row, for the same seed and scale on both
// engines. Facts that hold for every seed are in the namespace `hechos`.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <map>
#include <stdexcept>

namespace consultas::demo {

struct OpcionesDemo {
    int escala = 1; // 1 builds in about a second; 200 gives over a million receipt lines
    quint64 semilla = 20261123; // same seed and scale, same data
};

// A failure while building: the engine's or the system's message.
class ErrorDemo : public std::runtime_error {
public:
    explicit ErrorDemo(const QString& m) : std::runtime_error(m.toStdString()), mensaje(m) {}
    QString mensaje;
};

struct ResumenDemo {
    std::map<QString, qint64> filas; // rows written per table (all 44 tables are listed)
    double segundos = 0;             // time taken
    qint64 TotalFilas() const;
};

// The schema text of an engine (embedded in the binary with the Qt resource
// system). Statements are separated by ';' at the end of a line; the indexes
// come after the line "-- @indices".
QString EsquemaDemo(bool postgres);
// The schema split into statements: the tables, then (after "-- @indices")
// the indexes.
QStringList SentenciasEsquema(bool postgres, bool conIndices = true);
// Names of the 44 tables, in the schema's order.
QStringList TablasDemo();

// Creates the schema in an open writable database (QSQLITE or QPSQL) that
// holds none of the tables yet, loads the demo data in transactions and
// creates the indexes. Throws ErrorDemo.
ResumenDemo CargaDemo(QSqlDatabase db, const OpcionesDemo& o = {});
// Only the schema (no data, with indexes). Throws ErrorDemo.
void CreaEsquemaDemo(QSqlDatabase db);
// Drops the 44 tables where they exist. Throws ErrorDemo.
void BorraTablasDemo(QSqlDatabase db);

// Makes a suite folder: DIR/suite.db (SQLite), DIR/VALMOR.INI, DIR/Temp and
// DIR/Trabajo (the folder DIRCONSULTAS points to). The folder must not exist
// or be empty, unless reemplazar, which replaces suite.db and VALMOR.INI and
// touches nothing else. Returns the connection string (the path of
// suite.db). Throws ErrorDemo.
QString CreaSuiteDemo(const QString& carpeta, const OpcionesDemo& o = {},
                      ResumenDemo* resumen = nullptr, bool reemplazar = false);

// Opens a writable PostgreSQL connection, under the given Qt connection
// name, from a libpq keyword string ("host=... dbname=...") or a
// postgresql:// URL. Throws ErrorDemo when it does not open.
QSqlDatabase AbrePostgresEscritura(const QString& cadena, const QString& nombreConexion);

// The fixed facts of the demo, true for every seed and scale. Dates are
// within 2025-01-01 .. 2026-11-30; budgets cover 2025 and 2026.
namespace hechos {
inline constexpr int AnoInicial = 2025, AnoFinal = 2026;
inline constexpr const char* FechaInicial = "2025-01-01";
inline constexpr const char* FechaFinal = "2026-11-30"; // also the "today" of balances
// Regional settings of VALMOR.INI, codes that exist in the catalogues.
inline constexpr const char *Ciudad = "GDL", *Estado = "JAL", *Pais = "MEX";
// Suppliers.
inline constexpr const char* ProvNacional = "P0001";        // in two agrupaciones (1 and 2)
inline constexpr const char* ProvImportadorUsa = "P0003";   // USA, dollars, IMPORTACION=1
inline constexpr const char* ProvImportadorChina = "P0004"; // China, dollars, IMPORTACION=1
inline constexpr const char* ProvAcreedor = "P0005";       // ES_ACREED=1, monthly rent charges only
inline constexpr const char* ProvAcreedor2 = "P0006";      // ES_ACREED=1, services
inline constexpr const char* ProvSinMovimientos = "P0007"; // no document and no movement at all
inline constexpr const char* ProvSuspendido = "P0008";     // COD_STS 2
inline constexpr const char* ProvBaja = "P0009";           // COD_STS 3, no movements
inline constexpr const char* ProvSobregiro = "P0010";      // SAL_PROV above LIM_CRE
// Documents.
inline constexpr const char* RecepcionCancelada = "RC0000006";   // COD_ESTATUS 2
inline constexpr const char* Remision = "RC0000009";             // COD_ESTATUS 7
inline constexpr const char* RecepcionDolares = "RC0000004";     // P0003, COD_MON 2, TIP_CAM<>1
inline constexpr const char* OrdenCancelada = "OC0000003";       // COD_ESTATUS 5
inline constexpr const char* RequisicionCancelada = "RQ0000002"; // COD_ESTATUS 2
inline constexpr const char* DevolucionCancelada = "DV0000002";  // COD_ESTATUS 2
// Budget: cost centres 1..5, concepts 1..14 (concept 5 in centre 3);
// concept 13 has no budget for 2026, concept 14 an annual amount of 0 in 2026;
// concept 2 overdraws (negative DISPONIBLE) in some months.
inline constexpr int ConceptoSinPresupuesto2026 = 13;
inline constexpr int ConceptoAnualCero2026 = 14;
inline constexpr int ConceptoSobregirado = 2;
} // namespace hechos

} // namespace consultas::demo
