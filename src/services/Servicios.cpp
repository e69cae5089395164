#include "services/Servicios.h"

#include "core/Conexion.h"

#include <QDir>
#include <QMutex>

#include <cstdio>

namespace consultas {

QString TextoMensaje(int numero, const QString& texto) {
    switch (numero) {
    case 0:
        return texto;
    case MensajeSalirVistaPrevia:
        return QStringLiteral("¿Desea salir de la vista preliminar?") + texto;
    case MensajePaginaGrabada:
        return QStringLiteral("La página se grabó correctamente.") + texto;
    default:
        return QStringLiteral("Mensaje %1").arg(numero) + texto;
    }
}

namespace servicios {

Fabricas FabricasQtInternas(); // ServiciosQt.cpp

namespace {

QMutex candado;
QString carpetaExcel;

Fabricas& Actuales() {
    static Fabricas f = FabricasQtInternas();
    return f;
}

template <class T> std::unique_ptr<T> Crea(std::function<std::unique_ptr<T>()> Fabricas::*m) {
    std::function<std::unique_ptr<T>()> f;
    {
        QMutexLocker l(&candado);
        f = Actuales().*m;
    }
    return f();
}

} // namespace

std::unique_ptr<clsMensajes> CreaMensajes() {
    return Crea(&Fabricas::mensajes);
}
std::unique_ptr<clsBusqueda> CreaBusqueda() {
    return Crea(&Fabricas::busqueda);
}
std::unique_ptr<clsBuscaDocumento> CreaBuscaDocumento() {
    return Crea(&Fabricas::buscaDocumento);
}
std::unique_ptr<clsBuscaArticulo> CreaBuscaArticulo() {
    return Crea(&Fabricas::buscaArticulo);
}
std::unique_ptr<clsExportaExcel> CreaExportaExcel() {
    return Crea(&Fabricas::exportaExcel);
}

Fabricas Instala(Fabricas nuevas) {
    QMutexLocker l(&candado);
    Fabricas& a = Actuales();
    Fabricas anteriores = a;
    if (nuevas.mensajes)
        a.mensajes = std::move(nuevas.mensajes);
    if (nuevas.busqueda)
        a.busqueda = std::move(nuevas.busqueda);
    if (nuevas.buscaDocumento)
        a.buscaDocumento = std::move(nuevas.buscaDocumento);
    if (nuevas.buscaArticulo)
        a.buscaArticulo = std::move(nuevas.buscaArticulo);
    if (nuevas.exportaExcel)
        a.exportaExcel = std::move(nuevas.exportaExcel);
    return anteriores;
}

Fabricas FabricasQt() {
    return FabricasQtInternas();
}

void FijaCarpetaExcel(const QString& carpeta) {
    QMutexLocker l(&candado);
    carpetaExcel = carpeta;
}

QString CarpetaExcel() {
    QMutexLocker l(&candado);
    return carpetaExcel;
}

QString RutaExcel(const QString& nombre, const QString& rutaBaseDeDatos) {
    QString carpeta = CarpetaExcel();
    if (carpeta.isEmpty())
        carpeta = QDir(rutaBaseDeDatos).filePath("Temp");
    return QDir(carpeta).filePath(nombre + ".xlsx");
}

// ------------------------------------------------------- scripted services

int GuionServicios::Cuenta(const QString& operacion) const {
    int n = 0;
    for (const LlamadaServicio& l : llamadas)
        n += l.operacion == operacion ? 1 : 0;
    return n;
}

std::vector<LlamadaServicio> GuionServicios::De(const QString& operacion) const {
    std::vector<LlamadaServicio> r;
    for (const LlamadaServicio& l : llamadas)
        if (l.operacion == operacion)
            r.push_back(l);
    return r;
}

namespace {

using GuionPtr = std::shared_ptr<GuionServicios>;

void Eco(const GuionServicios& g, const QString& texto) {
    if (g.ecoEnStderr)
        std::fprintf(stderr, "%s\n", texto.toUtf8().constData());
}

class MensajesGuionados : public clsMensajes {
public:
    explicit MensajesGuionados(GuionPtr g) : g_(std::move(g)) {}

    void Mensaje(int numero, int, const QString& texto, int) override {
        const QString mostrado = TextoMensaje(numero, texto);
        g_->llamadas.push_back({"clsMensajes", "Mensaje", numero, mostrado, {}});
        Eco(*g_, mostrado);
    }
    int Pregunta(int numero, int, const QString& texto, int, int) override {
        int r = RespuestaNo;
        if (!g_->respuestasPregunta.empty()) {
            r = g_->respuestasPregunta.front();
            g_->respuestasPregunta.pop_front();
        }
        const QString mostrado = TextoMensaje(numero, texto);
        g_->llamadas.push_back({"clsMensajes", "Pregunta", numero, mostrado, r});
        Eco(*g_, mostrado + (r == RespuestaSi ? " [Sí]" : " [No]"));
        return r;
    }
    QString PideTexto(int, int, const QString& indicacion, int, int, int) override {
        QString r;
        if (!g_->respuestasTexto.empty()) {
            r = g_->respuestasTexto.front();
            g_->respuestasTexto.pop_front();
        }
        g_->llamadas.push_back({"clsMensajes", "PideTexto", 0, indicacion, r});
        return r;
    }
    void MuestraError(qint64 numero, const QString& descripcion, int) override {
        g_->llamadas.push_back(
            {"clsMensajes", "MuestraError", static_cast<int>(numero), descripcion, {}});
        Eco(*g_, QStringLiteral("Error %1: %2").arg(numero).arg(descripcion));
    }

private:
    GuionPtr g_;
};

QString SiguienteResultado(GuionServicios& g) {
    if (g.resultadosBusqueda.empty())
        return QString();
    QString r = g.resultadosBusqueda.front();
    g.resultadosBusqueda.pop_front();
    return r;
}

class BusquedaGuionada : public clsBusqueda {
public:
    explicit BusquedaGuionada(GuionPtr g) : g_(std::move(g)) {}
    void Mostrar(const QString&, std::uint8_t, const QString&, const QString&,
                 const QString& catalogo, const QString&, int) override {
        r_ = SiguienteResultado(*g_);
        g_->llamadas.push_back({"clsBusqueda", "Mostrar", 0, catalogo, r_});
    }
    QString Resultado() const override { return r_; }

private:
    GuionPtr g_;
    QString r_;
};

class BuscaDocumentoGuionada : public clsBuscaDocumento {
public:
    explicit BuscaDocumentoGuionada(GuionPtr g) : g_(std::move(g)) {}
    void Mostrar(const QString&, std::uint8_t, const QString&, const QString&, int,
                 int tipoDocumento, const QString&, const QString&, bool, const QString&,
                 const QString&) override {
        r_ = SiguienteResultado(*g_);
        g_->llamadas.push_back({"clsBuscaDocumento", "Mostrar", tipoDocumento, QString(), r_});
    }
    QString Resultado() const override { return r_; }

private:
    GuionPtr g_;
    QString r_;
};

class BuscaArticuloGuionada : public clsBuscaArticulo {
public:
    explicit BuscaArticuloGuionada(GuionPtr g) : g_(std::move(g)) {}
    void Mostrar(const QString&, std::uint8_t, const QString&, int modo, const QString&,
                 const QString&, bool verColumnaExtra) override {
        r_ = SiguienteResultado(*g_);
        g_->llamadas.push_back(
            {"clsBuscaArticulo", "Mostrar", modo, verColumnaExtra ? "VER_COLEX" : QString(), r_});
    }
    QString Resultado() const override { return r_; }

private:
    GuionPtr g_;
    QString r_;
};

class ExportaGuionada : public clsExportaExcel {
public:
    explicit ExportaGuionada(GuionPtr g) : g_(std::move(g)) {}
    int Exporta(Recordset& rs, const QString& nombre, const QString& rutaBaseDeDatos) override {
        int filas = 0;
        QString archivo = nombre;
        if (g_->escribeExcel) {
            archivo = RutaExcel(nombre, rutaBaseDeDatos);
            filas = EscribeXlsx(rs, archivo, *this);
        } else {
            filas = rs.RecordCount();
        }
        g_->llamadas.push_back({"clsExportaExcel", "Exporta", filas, archivo, filas});
        return filas;
    }

private:
    GuionPtr g_;
};

} // namespace

Fabricas FabricasGuionadas(std::shared_ptr<GuionServicios> guion) {
    Fabricas f;
    f.mensajes = [guion] { return std::make_unique<MensajesGuionados>(guion); };
    f.busqueda = [guion] { return std::make_unique<BusquedaGuionada>(guion); };
    f.buscaDocumento = [guion] { return std::make_unique<BuscaDocumentoGuionada>(guion); };
    f.buscaArticulo = [guion] { return std::make_unique<BuscaArticuloGuionada>(guion); };
    f.exportaExcel = [guion] { return std::make_unique<ExportaGuionada>(guion); };
    return f;
}

Fabricas FabricasLote(std::shared_ptr<GuionServicios> guion) {
    guion->ecoEnStderr = true;
    guion->escribeExcel = true;
    return FabricasGuionadas(std::move(guion));
}

} // namespace servicios
} // namespace consultas
