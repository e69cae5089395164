#pragma once
// The library's one public class: a host creates it, calls MostrarConsulta
// once per inquiry the user asks for, and destroys it when done.

#include "core/modConCompras.h"

#include <QString>
#include <cstdint>

namespace consultas {

class clsConsultaCompras {
public:
    clsConsultaCompras() = default;
    // Closes the shared connection when this instance's last call left it
    // open; a connection that failed to open is not touched.
    ~clsConsultaCompras();
    clsConsultaCompras(const clsConsultaCompras&) = delete;
    clsConsultaCompras& operator=(const clsConsultaCompras&) = delete;

    // Stores the host's values, opens the shared connection and shows the
    // chosen screen modally; returns when the user closes it. A connection
    // that does not open returns at once, silently. The arguments are not
    // changed.
    void MostrarConsulta(TipoDeConsulta& ConsultaActiva, QString& ConexionBaseDatos,
                         std::uint8_t& ManejadorBaseDatos, std::int16_t& NumeroDeEmpresa,
                         QString& ArchivoDeAyuda, QString& RutaBaseDeDatos);

    bool ConexionAbierta() const { return conexionAbierta_; }

    // The call's first part, for the batch host that drives the screen
    // itself: stores the values, reads the work folder and opens the shared
    // connection. Returns ConexionAbierta.
    bool PreparaConsulta(const QString& ConexionBaseDatos, std::uint8_t ManejadorBaseDatos,
                         std::int16_t NumeroDeEmpresa, const QString& ArchivoDeAyuda,
                         const QString& RutaBaseDeDatos);

private:
    bool conexionAbierta_ = false;
};

} // namespace consultas
