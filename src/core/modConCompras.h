#pragma once
// Shared state of the library: one set for the whole process, read directly
// by the screens and their reports, plus the small shared procedures for
// settings, date literals and run tokens.

#include "core/Conexion.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

class QDialog;

namespace consultas {

// Which inquiry screen the host asks for.
enum TipoDeConsulta : std::int32_t {
    ConsultasDePresupuestos = 0,
    ConsultasDeCompras = 1,
    ConsultasDeCuentasPorPagar = 2,
};

namespace modConCompras {

// The one connection through which every statement of every screen goes.
extern std::unique_ptr<Conexion> ConexionCompartida;
extern QString ConexionBaseDatos;
extern std::int16_t ManejadorBaseDatos;
extern std::int16_t NumeroDeEmpresa;
extern QString ArchivoDeAyuda;
extern QString RutaBaseDeDatos;
extern QString DirectorioConsultas;

// Creates the shared connection when missing and opens it from the string.
bool ConectaBase(const QString& cadena);
// Closes an open connection first, so a second call reopens from the new
// string. Never throws: a failed open is a false result.
bool AbreConexion(Conexion& conexion, const QString& cadena);
void CierraConexion();

// A value of the settings file RutaBaseDeDatos + "/VALMOR.INI", read afresh
// at every call. Missing file, section or key give "(error)"; the result is
// at most 254 characters, trimmed.
QString LeeIni(const QString& seccion, const QString& clave);
// The same over any file; the shared procedure reads VALMOR.INI with it.
QString LeeIniDe(const QString& archivo, const QString& seccion, const QString& clave);
// Path of the settings file for the current RutaBaseDeDatos.
QString ArchivoIni();

// Work folder of the page files: DIRCONSULTAS of VARIOS, with "/" appended
// when the text is not empty and does not end in one.
QString LeeDirectorioConsultas();

// Date literal for the connected engine (ManejadorBaseDatos).
QString FechaSQL(const QDate& fecha);
// "LEN" or "LENGTH" for the connected engine.
QString FuncionLong();
// A date column plus a number of days, for the connected engine.
QString FechaMasDias(const QString& fecha = "FEC_DOC", const QString& dias = "PLA_PAG");

// Hour, minute and second as two digits each, then the company number:
// 0905071 at 09:05:07 for company 1.
QString TokenCorrida();
QString TokenCorrida(const QTime& hora);

// The screens of the inquiries. Each screen registers its maker when the
// library loads; the host's call makes it and shows it modally, the batch host
// makes it and drives it. A kind with no screen is reached and returns.
using FabricaPantalla = std::function<std::unique_ptr<QDialog>()>;
void RegistraPantalla(std::int32_t tipo, FabricaPantalla fabrica);
// A new screen of the kind, or null when there is none.
std::unique_ptr<QDialog> CreaPantalla(std::int32_t tipo);
// Makes the screen and shows it modally; false when the kind has none.
bool AbrePantalla(std::int32_t tipo);

} // namespace modConCompras
} // namespace consultas
