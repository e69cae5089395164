#include "core/clsConsultaCompras.h"

namespace consultas {

clsConsultaCompras::~clsConsultaCompras() {
    if (conexionAbierta_)
        modConCompras::CierraConexion();
}

bool clsConsultaCompras::PreparaConsulta(const QString& ConexionBaseDatos,
                                         std::uint8_t ManejadorBaseDatos,
                                         std::int16_t NumeroDeEmpresa,
                                         const QString& ArchivoDeAyuda,
                                         const QString& RutaBaseDeDatos) {
    namespace m = modConCompras;
    m::NumeroDeEmpresa = NumeroDeEmpresa;
    m::ArchivoDeAyuda = ArchivoDeAyuda;
    // The path goes first: the settings file is found through it.
    QString ruta = RutaBaseDeDatos;
    while (ruta.size() > 1 && (ruta.endsWith('/') || ruta.endsWith('\\')))
        ruta.chop(1);
    m::RutaBaseDeDatos = ruta;
    m::DirectorioConsultas = m::LeeDirectorioConsultas();
    // The byte is widened without sign: 255 stays 255.
    m::ManejadorBaseDatos = static_cast<std::int16_t>(ManejadorBaseDatos);
    m::ConexionBaseDatos = ConexionBaseDatos;
    conexionAbierta_ = m::ConectaBase(ConexionBaseDatos);
    return conexionAbierta_;
}

void clsConsultaCompras::MostrarConsulta(TipoDeConsulta& ConsultaActiva, QString& ConexionBaseDatos,
                                         std::uint8_t& ManejadorBaseDatos,
                                         std::int16_t& NumeroDeEmpresa, QString& ArchivoDeAyuda,
                                         QString& RutaBaseDeDatos) {
    if (!PreparaConsulta(ConexionBaseDatos, ManejadorBaseDatos, NumeroDeEmpresa, ArchivoDeAyuda,
                         RutaBaseDeDatos))
        return;
    modConCompras::AbrePantalla(static_cast<std::int32_t>(ConsultaActiva));
}

} // namespace consultas
