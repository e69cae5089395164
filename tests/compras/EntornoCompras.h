#pragma once
// A demo suite on one engine, the library's shared state pointed at it, and
// scripted services, for the purchasing screen's tests.

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

// Checks of the drawn items.
bool HayTexto(const consultas::Pagina& p, int x, int y, const QString& texto);
int CuentaTexto(const consultas::Pagina& p, const QString& texto);

} // namespace pruebas
