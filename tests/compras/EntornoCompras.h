#pragma once
// A demo suite on one engine, the library's shared state pointed at it, and
// scripted services, for the purchasing screen's tests.

#include "compras/ReportesCompras.h"
#include "compras/frmConCompras.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "soporte/Soporte.h"
#include "surface/Superficie.h"
#include "surface/VistaPrevia.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace pruebas {

class EntornoCompras {
public:
    // The demo database of an engine, built once per test program.
    static EntornoCompras& De(const QString& motor);

    // Points the shared state at this suite.
    void Activa();
    BaseDePrueba& Base() { return *base_; }
    QString Carpeta() const { return carpeta_.path(); }

private:
    std::unique_ptr<BaseDePrueba> base_;
    QTemporaryDir carpeta_;
};

// A screen on a suite, with scripted services and the finished document
// captured instead of shown.
class PantallaEnPrueba {
public:
    explicit PantallaEnPrueba(const QString& motor = "sqlite");
    ~PantallaEnPrueba();

    consultas::frmConCompras& P() { return *pantalla; }
    // A batch setting; ADD_FAILURE on refusal.
    void Fija(const QString& control, const QString& valor);
    void Fija(const QString& control, int indice, const QString& valor);
    // The message of a refused setting, empty when it was applied.
    QString Refusa(const QString& control, std::optional<int> indice, const QString& valor);

    std::shared_ptr<consultas::servicios::GuionServicios> guion;
    std::optional<consultas::Documento> documento; // set when a run finished
    std::unique_ptr<consultas::servicios::ServiciosInstalados> servicios;
    std::unique_ptr<consultas::frmConCompras> pantalla;
};

// A purchasing report run straight on a small suite that the test builds on
// one engine (the parameter): the selection and control values are set by
// the test, the report drawn through the page run.
class ReporteEnMotor : public ::testing::TestWithParam<QString> {
protected:
    // Builds the fixture and opens the library's connection; the period is
    // January 2026.
    void Prepara(void (*fixtura)(BaseDePrueba&), std::int16_t consulta, std::int16_t documento);
    void Periodo(const QDate& d0, const QDate& d1);
    // Runs a report with the run's accumulators cleared, as the screen does.
    consultas::Documento Corre(void (*reporte)(consultas::ReporteCompras&));

    std::unique_ptr<BaseDePrueba> base;
    QTemporaryDir carpeta;
    consultas::Conexion conexion;
    consultas::SeleccionCompras sel;
    consultas::ControlesCompras pantalla;
    consultas::CorridaPaginas corrida;
};

// Checks of the drawn items.
bool HayTexto(const consultas::Pagina& p, int x, int y, const QString& texto);
int CuentaTexto(const consultas::Pagina& p, const QString& texto);

} // namespace pruebas
