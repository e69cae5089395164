#pragma once
// Options of the command-line host, shared by its subcommands.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace consultas::host {

// Exit codes of the host.
enum CodigoSalida : int {
    SalidaBien = 0,
    SalidaUso = 2,      // bad input on the command line
    SalidaConexion = 3, // the connection did not open
    SalidaFallo = 4,    // a failure inside the run: statement, file
    SalidaRechazo = 5,  // the screen refused the run with a message
};

// A bad command line: the message is one line naming what was wrong.
class ErrorUso : public std::runtime_error {
public:
    explicit ErrorUso(const QString& m) : std::runtime_error(m.toStdString()), mensaje(m) {}
    QString mensaje;
};

// NAME=VALUE or NAME[i]=VALUE: a control setting for a screen run in batch.
struct Ajuste {
    QString control;
    std::optional<int> indice;
    QString valor;
    QString textoOriginal;
};

struct OpcionesHost {
    QString conexion;
    int motor = 4;
    int empresa = 1;
    QString ayuda;
    QString ruta;
    QString pantalla; // presupuestos, compras, cxpag
    std::vector<Ajuste> ajustes;
    QString pdf, png, emf, jsonl, xlsx, bitacora;
};

// Parses the words after the subcommand. Connection options (--conexion,
// --motor, --empresa, --ayuda, --ruta), --pantalla, outputs (--pdf, --png,
// --emf, --jsonl, --xlsx), --bitacora, and, when ajustesPermitidos, control
// settings. Throws ErrorUso.
OpcionesHost LeeOpciones(const QStringList& args, bool ajustesPermitidos);

Ajuste LeeAjuste(const QString& texto);

// The TipoDeConsulta of a screen name; throws ErrorUso for an unknown one.
std::int32_t TipoDePantalla(const QString& pantalla);

// Checks that the connection options can work before the library is called:
// a known connection string form, an existing SQLite file, a readable
// settings file. Throws ErrorUso.
void ValidaConexion(const OpcionesHost& o);

// Before the application object: gives Qt a private runtime folder when the
// session has none (a service, a bare root shell), which it would warn about
// on every start, and drops the offscreen platform's warning about window
// hints, which means nothing without a screen.
void PreparaProcesoQt();

} // namespace consultas::host
