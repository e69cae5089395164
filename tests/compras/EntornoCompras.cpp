#include "EntornoCompras.h"

#include "compras/EncabezadosCompras.h"

#include "GeneradorDemo.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>

#include <map>

namespace pruebas {

namespace m = consultas::modConCompras;

namespace {

std::map<QString, std::unique_ptr<EntornoCompras>>& Suites() {
    static std::map<QString, std::unique_ptr<EntornoCompras>> suites;
    return suites;
}

// The databases go while Qt SQL is still there, after the shared
// connection that reads them.
class Limpieza : public ::testing::Environment {
public:
    void TearDown() override {
        m::CierraConexion();
        Suites().clear();
    }
};

} // namespace

EntornoCompras& EntornoCompras::De(const QString& motor) {
    auto& e = Suites()[motor];
    if (!e) {
        static const bool limpieza = (::testing::AddGlobalTestEnvironment(new Limpieza), true);
        (void)limpieza;
        e = std::make_unique<EntornoCompras>();
        e->base_ = NuevaBase(motor);
        consultas::demo::CargaDemo(QSqlDatabase::database(e->base_->NombreEscritura()));
        QDir(e->Carpeta()).mkpath("Trabajo");
        QDir(e->Carpeta()).mkpath("Temp");
        QFile ini(e->Carpeta() + "/VALMOR.INI");
        EXPECT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write(QString("[VARIOS]\nDIRCONSULTAS=%1/Trabajo\nVER_COLEX=1\n\n[CFGREGIONAL]\n"
                          "CIUDAD=GDL\nESTADO=JAL\nPAIS=MEX\n")
                      .arg(e->Carpeta())
                      .toUtf8());
    }
    return *e;
}

void EntornoCompras::Activa() {
    m::RutaBaseDeDatos = Carpeta();
    m::ConexionBaseDatos = base_->Cadena();
    m::ManejadorBaseDatos = 4;
    m::ArchivoDeAyuda = Carpeta() + "/ayuda.pdf";
    EXPECT_TRUE(m::ConectaBase(base_->Cadena()));
}

PantallaEnPrueba::PantallaEnPrueba(const QString& motor)
    : guion(std::make_shared<consultas::servicios::GuionServicios>()) {
    EntornoCompras::De(motor).Activa();
    servicios = std::make_unique<consultas::servicios::ServiciosInstalados>(
        consultas::servicios::FabricasGuionadas(guion));
    consultas::vista::MostrarDocumento() = [this](consultas::Superficie& s) {
        documento = s.Doc();
    };
    pantalla = std::make_unique<consultas::frmConCompras>();
}

PantallaEnPrueba::~PantallaEnPrueba() {
    pantalla.reset();
    consultas::vista::MostrarDocumento() = nullptr;
}

void PantallaEnPrueba::Fija(const QString& control, const QString& valor) {
    const QString e = Refusa(control, std::nullopt, valor);
    if (!e.isEmpty())
        ADD_FAILURE() << control.toStdString() << ": " << e.toStdString();
}

void PantallaEnPrueba::Fija(const QString& control, int indice, const QString& valor) {
    const QString e = Refusa(control, indice, valor);
    if (!e.isEmpty())
        ADD_FAILURE() << control.toStdString() << "[" << indice << "]: " << e.toStdString();
}

QString PantallaEnPrueba::Refusa(const QString& control, std::optional<int> indice,
                                 const QString& valor) {
    try {
        pantalla->AplicaAjuste(control, indice, valor);
    } catch (const consultas::ErrorAjuste& e) {
        return e.mensaje;
    }
    return QString();
}

void ReporteEnMotor::Prepara(void (*fixtura)(BaseDePrueba&), std::int16_t consulta,
                             std::int16_t documento) {
    if (GetParam() == "postgres")
        REQUIERE_POSTGRES();
    base = NuevaBase(GetParam());
    fixtura(*base);
    consultas::modConCompras::ManejadorBaseDatos = 4;
    consultas::modConCompras::RutaBaseDeDatos = carpeta.path();
    ASSERT_TRUE(conexion.Abrir(base->Cadena())) << conexion.UltimoError().toStdString();
    sel.ConsultaActual = consulta;
    sel.DocumentoActual = documento;
    Periodo(QDate(2026, 1, 1), QDate(2026, 1, 31));
}

void ReporteEnMotor::Periodo(const QDate& d0, const QDate& d1) {
    sel.FechaIni = consultas::modConCompras::FechaSQL(d0);
    sel.FechaFin = consultas::modConCompras::FechaSQL(d1);
    pantalla.Fecha0 = d0;
    pantalla.Fecha1 = d1;
}

consultas::Documento ReporteEnMotor::Corre(void (*reporte)(consultas::ReporteCompras&)) {
    sel.cyDia = sel.cySuc = sel.cyGral = consultas::MedidasCompras{};
    sel.SucursalAnterior.clear();
    consultas::ReporteCompras r{sel, pantalla, corrida, conexion};
    corrida.Encabezado = [&r](int tipo) { consultas::EncabezadoCompras(r, tipo); };
    consultas::Superficie s;
    corrida.EjecutarConsulta(s, [&r, reporte] { reporte(r); });
    return s.Doc();
}

bool HayTexto(const consultas::Pagina& p, int x, int y, const QString& texto) {
    for (const auto& e : p.elementos)
        if (e.tipo == consultas::TipoElemento::Texto && e.x == x && e.y == y && e.texto == texto)
            return true;
    return false;
}

int CuentaTexto(const consultas::Pagina& p, const QString& texto) {
    int n = 0;
    for (const auto& e : p.elementos)
        n += e.tipo == consultas::TipoElemento::Texto && e.texto == texto;
    return n;
}

} // namespace pruebas
