#include "GeneradorDemo.h"
#include "core/Conexion.h"

#include <QDate>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace consultas::demo {

qint64 ResumenDemo::TotalFilas() const {
    qint64 t = 0;
    for (const auto& [k, v] : filas)
        t += v;
    return t;
}

// ---------------------------------------------------------------- schema

QString EsquemaDemo(bool postgres) {
    QFile f(postgres ? ":/demo/esquema_postgres.sql" : ":/demo/esquema_sqlite.sql");
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDemo("No se encontró el esquema de demostración en los recursos.");
    return QString::fromUtf8(f.readAll());
}

QStringList SentenciasEsquema(bool postgres, bool conIndices) {
    QStringList tablas, indices;
    QStringList* destino = &tablas;
    QString actual;
    for (const QString& linea : EsquemaDemo(postgres).split('\n')) {
        const QString t = linea.trimmed();
        if (t == "-- @indices") {
            destino = &indices;
            continue;
        }
        if (t.startsWith("--") && actual.trimmed().isEmpty())
            continue;
        actual += linea + '\n';
        if (t.endsWith(';')) {
            if (!actual.trimmed().isEmpty())
                destino->append(actual.trimmed());
            actual.clear();
        }
    }
    if (conIndices)
        tablas += indices;
    return tablas;
}

QStringList TablasDemo() {
    static const QRegularExpression re(R"(CREATE TABLE (\w+))");
    QStringList r;
    for (const QString& s : SentenciasEsquema(false, false)) {
        const auto m = re.match(s);
        if (m.hasMatch())
            r << m.captured(1);
    }
    return r;
}

namespace {

void Ejecuta(QSqlDatabase& db, const QString& sql) {
    QSqlQuery q(db);
    if (!q.exec(sql))
        throw ErrorDemo(q.lastError().text() + " [" + sql.left(200) + "]");
}

bool EsPostgres(const QSqlDatabase& db) {
    return db.driverName() == "QPSQL";
}

// ---------------------------------------------------------------- randomness

// A stream of its own per part of the data, so that one part does not shift
// another. Ranges are computed here, not by the library's distributions, so
// the data do not depend on the standard library's implementation.
class Azar {
public:
    Azar(quint64 semilla, quint64 flujo)
        : g_(semilla * 0x9E3779B97F4A7C15ULL + flujo * 0xD1B54A32D192ED03ULL + 1) {}
    quint64 Sig() { return g_(); }
    // Whole number in [a, b].
    qint64 Entre(qint64 a, qint64 b) {
        return a + static_cast<qint64>(Sig() % static_cast<quint64>(b - a + 1));
    }
    // Real in [0, 1).
    double Unif() { return static_cast<double>(Sig() >> 11) * (1.0 / 9007199254740992.0); }
    bool Prob(double p) { return Unif() < p; }
    template <class T> const T& De(const std::vector<T>& v) {
        return v[static_cast<size_t>(Entre(0, static_cast<qint64>(v.size()) - 1))];
    }

private:
    std::mt19937_64 g_;
};

// ---------------------------------------------------------------- values

// Money and quantities: ten-thousandths in a 64-bit integer.
using Dz = qint64;
constexpr Dz kUno = 10000;

Dz Redondea(__int128 num, __int128 den) {
    // Half away from zero.
    const bool neg = (num < 0) != (den < 0);
    if (num < 0)
        num = -num;
    if (den < 0)
        den = -den;
    const __int128 q = (num * 2 + den) / (den * 2);
    return static_cast<Dz>(neg ? -q : q);
}
// a * b, both in ten-thousandths.
Dz Por(Dz a, Dz b) {
    return Redondea(static_cast<__int128>(a) * b, kUno);
}
// a * percentage, the percentage in hundredths of a percent (1600 is 16 %).
Dz PorCiento(Dz a, int centesimas) {
    return Redondea(static_cast<__int128>(a) * centesimas, 10000);
}
Dz Pesos(double p) {
    return static_cast<Dz>(std::llround(p * kUno));
}

QVariant Din(Dz v) {
    const bool neg = v < 0;
    const quint64 a = static_cast<quint64>(neg ? -v : v);
    return QString("%1%2.%3").arg(neg ? "-" : "").arg(a / 10000).arg(a % 10000, 4, 10, QChar('0'));
}
QVariant Pct(int centesimas) {
    return static_cast<double>(centesimas) / 100.0;
}
QVariant Fec(const QDate& d) {
    return d.toString("yyyy-MM-dd");
}
QVariant Txt(const QString& s) {
    return s;
}
QVariant Ent(qint64 n) {
    return QVariant::fromValue(static_cast<int>(n));
}
QVariant Nulo() {
    return QVariant();
}

QString Folio(const char* prefijo, qint64 n) {
    return QString("%1%2").arg(prefijo).arg(n, 7, 10, QChar('0'));
}

// ---------------------------------------------------------------- batched inserts

// Rows of one table, sent as multi-row prepared INSERTs.
class Lote {
public:
    Lote(QSqlDatabase db, QString tabla, const QString& columnas)
        : db_(std::move(db)), tabla_(std::move(tabla)), columnas_(columnas.split(',')) {
        for (QString& c : columnas_)
            c = c.trimmed();
        porLote_ = std::max(1, 1800 / static_cast<int>(columnas_.size()));
    }
    void Agrega(std::initializer_list<QVariant> fila) {
        if (static_cast<int>(fila.size()) != columnas_.size())
            throw ErrorDemo("Fila con " + QString::number(fila.size()) + " valores para " + tabla_);
        for (const QVariant& v : fila)
            pendientes_.push_back(v);
        ++filas_;
        if (static_cast<int>(pendientes_.size()) >= porLote_ * columnas_.size())
            Envia();
    }
    void Vacia() {
        if (!pendientes_.empty())
            Envia();
    }
    qint64 Filas() const { return filas_; }
    const QString& Tabla() const { return tabla_; }

private:
    QString Texto(int n) const {
        QString fila = "(" + QString("?,").repeated(static_cast<int>(columnas_.size()) - 1) + "?)";
        QStringList filas;
        for (int i = 0; i < n; ++i)
            filas << fila;
        return "INSERT INTO " + tabla_ + " (" + columnas_.join(',') + ") VALUES " + filas.join(',');
    }
    void Envia() {
        const int n = static_cast<int>(pendientes_.size() / static_cast<size_t>(columnas_.size()));
        QSqlQuery* q;
        std::unique_ptr<QSqlQuery> resto;
        if (n == porLote_) {
            if (!completa_) {
                completa_ = std::make_unique<QSqlQuery>(db_);
                if (!completa_->prepare(Texto(n)))
                    throw ErrorDemo(completa_->lastError().text() + " [" + tabla_ + "]");
            }
            q = completa_.get();
        } else {
            resto = std::make_unique<QSqlQuery>(db_);
            if (!resto->prepare(Texto(n)))
                throw ErrorDemo(resto->lastError().text() + " [" + tabla_ + "]");
            q = resto.get();
        }
        for (size_t i = 0; i < pendientes_.size(); ++i)
            q->bindValue(static_cast<int>(i), pendientes_[i]);
        if (!q->exec())
            throw ErrorDemo(q->lastError().text() + " [INSERT INTO " + tabla_ + "]");
        pendientes_.clear();
    }

    QSqlDatabase db_;
    QString tabla_;
    QStringList columnas_;
    int porLote_ = 1;
    std::vector<QVariant> pendientes_;
    std::unique_ptr<QSqlQuery> completa_;
    qint64 filas_ = 0;
};

// ---------------------------------------------------------------- catalogues

struct Ciudad {
    const char* cod;
    const char* des;
    const char* est;
    const char* pais;
};
const std::vector<Ciudad> kCiudades = {
    {"GDL", "Guadalajara", "JAL", "MEX"},
    {"ZAP", "Zapopan", "JAL", "MEX"},
    {"TLQ", "Tlaquepaque", "JAL", "MEX"},
    {"MTY", "Monterrey", "NL", "MEX"},
    {"SPG", "San Pedro Garza García", "NL", "MEX"},
    {"CDMX", "Ciudad de México", "CDMX", "MEX"},
    {"PUE", "Puebla", "PUE", "MEX"},
    {"QRO", "Querétaro", "QRO", "MEX"},
    {"LEO", "León", "GTO", "MEX"},
    {"CEL", "Celaya", "GTO", "MEX"},
    {"TIJ", "Tijuana", "BC", "MEX"},
    {"MER", "Mérida", "YUC", "MEX"},
    {"HOU", "Houston", "TX", "USA"},
    {"LAX", "Los Ángeles", "CA", "USA"},
    {"SHA", "Shanghái", "SH", "CHN"},
    {"SZX", "Shenzhen", "GD", "CHN"},
    {"HAM", "Hamburgo", "HH", "DEU"},
};
const std::vector<std::pair<const char*, const char*>> kEstados = {
    {"JAL", "Jalisco"},   {"NL", "Nuevo León"},  {"CDMX", "Ciudad de México"}, {"PUE", "Puebla"},
    {"QRO", "Querétaro"}, {"GTO", "Guanajuato"}, {"BC", "Baja California"},    {"YUC", "Yucatán"},
    {"TX", "Texas"},      {"CA", "California"},  {"SH", "Shanghái"},           {"GD", "Cantón"},
    {"HH", "Hamburgo"},
};
const std::vector<std::pair<const char*, const char*>> kPaises = {
    {"MEX", "México"}, {"USA", "Estados Unidos"}, {"CHN", "China"}, {"DEU", "Alemania"}};

const std::vector<std::pair<const char*, const char*>> kSucursales = {
    {"S01", "Matriz Guadalajara"},
    {"S02", "Sucursal Monterrey"},
    {"S03", "Sucursal Ciudad de México"}};
struct Almacen {
    const char* cod;
    const char* des;
    const char* sucu;
};
const std::vector<Almacen> kAlmacenes = {{"AL01", "Almacén general Guadalajara", "S01"},
                                         {"AL02", "Almacén de refacciones", "S01"},
                                         {"AL03", "Almacén Monterrey", "S02"},
                                         {"AL04", "Almacén Ciudad de México", "S03"}};

const std::vector<std::pair<const char*, const char*>> kUsuarios = {
    {"ADMIN", "Administrador del sistema"}, {"JPEREZ", "Juan Pérez López"},
    {"MGARCIA", "María García Ruiz"},       {"LHERNANDEZ", "Luis Hernández Soto"},
    {"ATORRES", "Ana Torres Medina"},       {"RCRUZ", "Roberto Cruz Villalobos"}};

struct Impuesto {
    int cod;
    const char* des;
    int centesimas;
    int tipo;
};
const std::vector<Impuesto> kImpuestos = {{1, "IVA 16%", 1600, 1},
                                          {2, "IVA 0%", 0, 1},
                                          {3, "IEPS 8%", 800, 2},
                                          {4, "IVA 8% región fronteriza", 800, 1},
                                          {5, "IEPS 26.5%", 2650, 2}};

// Supplier groups and agrupaciones.
const std::vector<std::pair<int, const char*>> kGposProv = {
    {1, "Proveedores nacionales"}, {2, "Proveedores extranjeros"}, {3, "Acreedores diversos"}};
struct Agr {
    int cod;
    int gpo;
    const char* des;
};
const std::vector<Agr> kAgrsProv = {{1, 1, "Materias primas"},
                                    {2, 1, "Refacciones y mantenimiento"},
                                    {3, 1, "Papelería y oficina"},
                                    {4, 2, "Importación Asia"},
                                    {5, 2, "Importación Norteamérica"},
                                    {6, 3, "Servicios"},
                                    {7, 3, "Arrendamiento"},
                                    {8, 2, "Importación Europa"}};
// Article groups and agrupaciones.
const std::vector<std::pair<int, const char*>> kGposArt = {
    {1, "Materia prima"}, {2, "Refacciones"}, {3, "Consumibles"}};
const std::vector<Agr> kAgrsArt = {{1, 1, "Aceros"},
                                   {2, 1, "Plásticos y resinas"},
                                   {3, 1, "Químicos"},
                                   {4, 2, "Rodamientos y transmisión"},
                                   {5, 2, "Material eléctrico"},
                                   {6, 3, "Papelería"},
                                   {7, 3, "Limpieza y cafetería"}};
const std::vector<std::pair<const char*, const char*>> kUnidades = {{"PZA", "Pieza"},
                                                                    {"KG", "Kilogramo"},
                                                                    {"TON", "Tonelada"},
                                                                    {"LT", "Litro"},
                                                                    {"CUB", "Cubeta 19 litros"},
                                                                    {"MT", "Metro"},
                                                                    {"ROL", "Rollo 100 metros"},
                                                                    {"CJA", "Caja"},
                                                                    {"PAQ", "Paquete"},
                                                                    {"TAM", "Tambor 200 litros"}};

// An article family: the articles are its sizes or models.
struct Familia {
    const char* des;
    int agr;
    const char* und;    // base unit (EQV_UND 1)
    const char* undAlt; // second unit, or nullptr
    int factorAlt;      // base units per second unit
    double precio;      // pesos per base unit
    int imp1, imp2;     // tax codes (imp2 0: none)
};
const std::vector<Familia> kFamilias = {
    {"Lámina de acero rolada en frío", 1, "KG", "TON", 1000, 24.5, 1, 0},
    {"Solera de acero", 1, "KG", "TON", 1000, 27.8, 1, 0},
    {"Tubo PTR", 1, "PZA", nullptr, 1, 685.0, 1, 0},
    {"Ángulo de acero", 1, "PZA", nullptr, 1, 412.0, 1, 0},
    {"Resina PET", 2, "KG", "TON", 1000, 31.2, 1, 0},
    {"Polietileno de alta densidad", 2, "KG", "TON", 1000, 29.9, 1, 0},
    {"Ácido sulfúrico", 3, "LT", "TAM", 200, 18.4, 1, 0},
    {"Sosa cáustica", 3, "KG", nullptr, 1, 22.0, 1, 0},
    {"Rodamiento", 4, "PZA", "CJA", 10, 189.0, 1, 0},
    {"Banda de transmisión", 4, "PZA", nullptr, 1, 356.0, 1, 0},
    {"Cable THW", 5, "MT", "ROL", 100, 14.6, 1, 0},
    {"Contactor", 5, "PZA", nullptr, 1, 1240.0, 1, 0},
    {"Hojas bond", 6, "PAQ", "CJA", 10, 115.0, 1, 0},
    {"Tóner", 6, "PZA", nullptr, 1, 1890.0, 1, 0},
    {"Detergente industrial", 7, "LT", "CUB", 19, 38.0, 1, 0},
    {"Guantes de nitrilo", 7, "CJA", nullptr, 1, 245.0, 1, 0},
    {"Galletas surtidas para cafetería", 7, "PAQ", "CJA", 12, 42.0, 3, 1},
    {"Vino de mesa para obsequio", 7, "PZA", "CJA", 12, 210.0, 5, 1},
    {"Azúcar estándar", 7, "KG", nullptr, 1, 28.0, 2, 0},
};
const std::vector<const char*> kVariantes = {
    "cal. 10",  "cal. 12",   "cal. 14", "cal. 16",       "1/2\"",
    "3/4\"",    "1\"",       "2\"",     "modelo A",      "modelo B",
    "modelo C", "6205-2RS",  "6206-ZZ", "grado técnico", "grado industrial",
    "premium",  "económico", "negro",   "blanco",        "azul"};

struct Concepto {
    int cod;
    const char* des;
    int ccos;
    double anual;
};
const std::vector<std::pair<int, const char*>> kCentros = {{1, "Dirección General"},
                                                           {2, "Producción"},
                                                           {3, "Mantenimiento"},
                                                           {4, "Administración"},
                                                           {5, "Ventas"}};
const std::vector<Concepto> kConceptos = {{1, "Materia prima", 2, 2400000},
                                          {2, "Refacciones", 3, 480000},
                                          {3, "Papelería y artículos de oficina", 4, 96000},
                                          {4, "Combustibles y lubricantes", 2, 360000},
                                          {5, "Mantenimiento de maquinaria", 3, 540000},
                                          {6, "Mantenimiento de edificios", 3, 220000},
                                          {7, "Honorarios profesionales", 1, 300000},
                                          {8, "Arrendamiento de inmuebles", 1, 660000},
                                          {9, "Viáticos y gastos de viaje", 5, 180000},
                                          {10, "Publicidad y promoción", 5, 420000},
                                          {11, "Equipo de cómputo", 4, 250000},
                                          {12, "Capacitación", 1, 120000},
                                          {13, "Proyecto planta nueva (sólo 2025)", 2, 900000},
                                          {14, "Eventos corporativos", 5, 80000}};

const std::vector<const char*> kNombres1 = {
    "Aceros",      "Plásticos",    "Químicos",   "Rodamientos",     "Ferretería", "Distribuidora",
    "Papelería",   "Suministros",  "Materiales", "Tornillería",     "Eléctrica",  "Empaques",
    "Lubricantes", "Herramientas", "Maquinados", "Comercializadora"};
const std::vector<const char*> kNombres2 = {
    "del Norte",  "del Bajío",  "de Occidente",   "Industriales", "Regiomontanos",
    "Tapatíos",   "Azteca",     "Continental",    "del Pacífico", "Modernos",
    "Nacionales", "del Centro", "Especializados", "Unidos"};
const std::vector<const char*> kSociedades = {" S.A. de C.V.", " S. de R.L. de C.V.",
                                              " S.A.P.I. de C.V."};
const std::vector<const char*> kPersonas = {
    "Jorge Ramírez",  "Patricia Gómez", "Fernando Castillo", "Lucía Morales",  "Ricardo Flores",
    "Gabriela Ortiz", "Héctor Navarro", "Silvia Aguilar",    "Alejandro Vega", "Mónica Herrera"};
const std::vector<const char*> kCalles = {
    "Av. Vallarta",           "Calle Industria", "Blvd. Díaz Ordaz", "Av. Constitución",
    "Calle Hidalgo",          "Periférico Sur",  "Av. Juárez",       "Calle Morelos",
    "Carretera a Chapala km", "Av. Insurgentes"};
const std::vector<const char*> kColonias = {
    "Col. Industrial", "Col. Centro",     "Parque Industrial El Salto",
    "Col. Moderna",    "Col. del Valle",  "Zona Industrial",
    "Col. Americana",  "Col. Las Águilas"};

// ---------------------------------------------------------------- the generator

struct Proveedor {
    QString cod;
    int ciudad = 0;
    bool importador = false;
    bool acreedor = false;
    int sts = 1;
    int plaCre = 30;
    int moneda = 1;     // 1 pesos, 2 dollars, 3 euros
    bool compra = true; // takes part in purchases
    // Accumulated from the documents.
    Dz saldo = 0;
    QDate ucom, upag;
};

struct Articulo {
    QString cod;
    int familia = 0;
    Dz precio = 0; // pesos per base unit
};

// A document line as the generator builds it.
struct Linea {
    int art = 0;
    QString und;
    int eqv = 1;
    Dz can = 0, cosUni = 0, cosCom = 0, importe = 0, bruto = 0, arancel = 0, imp1 = 0, imp2 = 0;
    int d1 = 0, d2 = 0, porAran = 0;
    int cod1 = 0, cod2 = 0, por1 = 0, por2 = 0, grava = 0;
};

class Generador {
public:
    Generador(QSqlDatabase db, const OpcionesDemo& o) : db_(std::move(db)), o_(o) {
        if (o_.escala < 1)
            throw ErrorDemo("La escala debe ser un entero mayor que cero.");
    }

    void Genera() {
        Catalogos();
        Presupuestos();
        Proveedores();
        Articulos();
        Documentos();
        Acreedores();
        Promedios();
        CierraProveedores();
        for (auto& [n, l] : lotes_)
            l->Vacia();
    }

    std::map<QString, qint64> Filas() const {
        std::map<QString, qint64> r;
        for (const auto& [n, l] : lotes_)
            r[n] = l->Filas();
        return r;
    }

private:
    Lote& L(const QString& tabla, const char* columnas) {
        auto& p = lotes_[tabla];
        if (!p)
            p = std::make_unique<Lote>(db_, tabla, columnas);
        return *p;
    }

    // Exchange rate of a month, ten-thousandths of a peso.
    static Dz Cambio(int moneda, const QDate& d) {
        if (moneda == 1)
            return kUno;
        const int mes = (d.year() - 2025) * 12 + d.month() - 1;
        const Dz usd = 172000 + (mes * 3731) % 27000 + (d.day() * 37) % 900;
        return moneda == 2 ? usd : Redondea(static_cast<__int128>(usd) * 108, 100);
    }

    void Catalogos() {
        L("tblParametrosGenerales", "REP_NOMEMP,REP_NOMCOM,CP_PREVIO")
            .Agrega({Ent(1), Ent(1), Ent(1)});
        auto& emp = L(
            "tblEmpresa",
            "COD_EMPRESA,NOM_EMP,NOM_COM,DIR1_EMP,EXT_EMP,INT_EMP,COL_EMP,CP_EMP,DESCRIP1,RFC1_EMP,"
            "DESCRIP2,RFC2_EMP,DESCRIP3,RFC3_EMP,TEL1_EMP,TEL2_EMP,COD_CD,COD_EDO");
        emp.Agrega({Ent(1), Txt("Industrias Valmor del Occidente, S.A. de C.V."),
                    Txt("VALMOR INDUSTRIAL"), Txt("Av. Lázaro Cárdenas"), Txt("3450"), Txt("B"),
                    Txt("Col. Chapalita"), Txt("44500"), Txt("R.F.C."), Txt("IVO950612AB3"),
                    Txt("Reg. IMSS"), Txt("Y5412345100"), Txt("Reg. Estatal"), Txt("JAL-0451-22"),
                    Txt("(33) 3121-4500"), Txt("(33) 3121-4501"), Txt(hechos::Ciudad),
                    Txt(hechos::Estado)});
        emp.Agrega({Ent(2), Txt("Valmor Servicios Administrativos, S.C."), Txt("VALMOR SERVICIOS"),
                    Txt("Av. Constitución"), Txt("1200"), Nulo(), Txt("Col. Centro"), Txt("64000"),
                    Txt("R.F.C."), Txt("VSA100301KL9"), Txt(""), Txt(""), Txt(""), Txt(""),
                    Txt("(81) 8340-1100"), Nulo(), Txt("MTY"), Txt("NL")});
        auto& cid = L("tblCiudad", "COD_CID,DES_CID");
        for (const auto& c : kCiudades)
            cid.Agrega({Txt(c.cod), Txt(QString::fromUtf8(c.des))});
        auto& est = L("tblEstado", "COD_EST,DES_EST,NOM_EST");
        for (const auto& [c, d] : kEstados)
            est.Agrega({Txt(c), Txt(QString::fromUtf8(d)), Txt(QString::fromUtf8(d))});
        auto& pais = L("tblPais", "COD_PAIS,DES_PAIS");
        for (const auto& [c, d] : kPaises)
            pais.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
        auto& suc = L("tblSucursales", "COD_SUCU,DES_SUCU");
        for (const auto& [c, d] : kSucursales)
            suc.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
        auto& alm = L("tblCatAlmacenes", "COD_ALM,DES_ALM,COD_SUCU");
        for (const auto& a : kAlmacenes)
            alm.Agrega({Txt(a.cod), Txt(QString::fromUtf8(a.des)), Txt(a.sucu)});
        auto& usu = L("tblUsuarios", "COD_USU,NOM_USU");
        for (const auto& [c, d] : kUsuarios)
            usu.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
        auto& imp = L("tblImpuestos", "COD_IMP,DES_IMP,POR_IMP,TIPO_IMP");
        for (const auto& i : kImpuestos)
            imp.Agrega({Ent(i.cod), Txt(QString::fromUtf8(i.des)), Pct(i.centesimas), Ent(i.tipo)});
        auto& tip = L("tblTipoRequisicion", "COD_TIP,DES_TIP");
        tip.Agrega({Ent(1), Txt("Compra normal")});
        tip.Agrega({Ent(2), Txt("Compra urgente")});
        tip.Agrega({Ent(3), Txt("Importación")});
        tip.Agrega({Ent(4), Txt("Servicios")});
        auto& mon = L("tblMonedas", "COD_MON,DES_MON,TIP_CAM");
        const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        mon.Agrega({Ent(1), Txt("Pesos mexicanos"), Din(kUno)});
        mon.Agrega({Ent(2), Txt("Dólares estadounidenses"), Din(Cambio(2, fin))});
        mon.Agrega({Ent(3), Txt("Euros"), Din(Cambio(3, fin))});
        auto& sts = L("tblEstatusProv", "COD_STS,DES_STS");
        sts.Agrega({Ent(1), Txt("Activo")});
        sts.Agrega({Ent(2), Txt("Suspendido")});
        sts.Agrega({Ent(3), Txt("Baja")});
        auto& gp = L("tblGpoProveedor", "COD_GPO,DES_GPO");
        for (const auto& [c, d] : kGposProv)
            gp.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
        auto& ap = L("tblAgrProveedor", "COD_AGR,COD_GPO,DES_AGR");
        for (const auto& a : kAgrsProv)
            ap.Agrega({Ent(a.cod), Ent(a.gpo), Txt(QString::fromUtf8(a.des))});
        auto& con = L("tblConceptosCom", "COD_CON,DES_CON,COD_FOL");
        con.Agrega({Txt("FAC"), Txt("Factura de compra"), Txt("CCXP")});
        con.Agrega({Txt("NCA"), Txt("Nota de cargo"), Txt("CCXP")});
        con.Agrega({Txt("ARR"), Txt("Arrendamiento"), Txt("CCXP")});
        con.Agrega({Txt("SER"), Txt("Servicios"), Txt("CCXP")});
        con.Agrega({Txt("PAG"), Txt("Pago a proveedor"), Txt("ACXP")});
        con.Agrega({Txt("DEV"), Txt("Devolución sobre compra"), Txt("ACXP")});
        con.Agrega({Txt("NCR"), Txt("Nota de crédito"), Txt("ACXP")});
        con.Agrega({Txt("ANT"), Txt("Anticipo a proveedor"), Txt("ACXP")});
        auto& fol = L("tblFolioGralesCom", "COD_FOL,DES_FOL");
        fol.Agrega({Txt("CCXP"), Txt("Cargos a proveedores")});
        fol.Agrega({Txt("ACXP"), Txt("Abonos a proveedores")});
        auto& cxs = L("tblCxPEstatus", "COD_STS,DES_STS");
        cxs.Agrega({Ent(1), Txt("Aplicado")});
        cxs.Agrega({Ent(2), Txt("Cancelado")});
        cxs.Agrega({Ent(3), Txt("Sin Aplicar")});
        auto& und = L("tblCatUnidades", "COD_UND,DES_UND");
        for (const auto& [c, d] : kUnidades)
            und.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
        auto& ga = L("tblAgrupacionArt", "COD_GPO,DES_GPO");
        for (const auto& [c, d] : kGposArt)
            ga.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
        auto& aa = L("tblCatAgrupacionArt", "COD_AGR,COD_GPO,DES_AGR");
        for (const auto& a : kAgrsArt)
            aa.Agrega({Ent(a.cod), Ent(a.gpo), Txt(QString::fromUtf8(a.des))});
    }

    // Budgets of 2025 and 2026, with transfers in tblBitacora.
    void Presupuestos() {
        Azar az(o_.semilla, 1);
        auto& cen = L("tblCentrosCostos", "COD_CCOS,DES_CCOS");
        for (const auto& [c, d] : kCentros)
            cen.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
        auto& cpr = L("tblConDePresu", "COD_CPRE,DES_CPRE,COD_CCOS");
        for (const auto& c : kConceptos)
            cpr.Agrega({Ent(c.cod), Txt(QString::fromUtf8(c.des)), Ent(c.ccos)});

        // Transfers: [concept][year][month] out and in.
        std::map<std::tuple<int, int, int>, Dz> sale, entra;
        auto& bit =
            L("tblBitacora",
              "CON_GRL,TIP_OPE,FOL_CON,FOL_GRL,USU_REG,FEC_REG,MA_ORIGEN,MA_DESTINO,IMP_MOV");
        auto transfiere = [&](int c1, int c2, const QDate& dOri, const QDate& dDes,
                              const QDateTime& cuando, const QString& usu, Dz imp, bool cuenta) {
            bit.Agrega({Txt("TRPR"), Ent(2), Txt(QString::number(c1)), Txt(QString::number(c2)),
                        Txt(usu), Txt(cuando.toString("yyyy-MM-dd HH:mm:ss")),
                        Txt(dOri.toString("MM/yyyy")), Txt(dDes.toString("MM/yyyy")), Din(imp)});
            if (cuenta) {
                sale[{c1, dOri.year(), dOri.month()}] += imp;
                entra[{c2, dDes.year(), dDes.month()}] += imp;
            }
        };
        const QDate ini(2025, 1, 1), fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        for (int i = 0; i < 36; ++i) {
            const QDate d = ini.addDays(az.Entre(0, ini.daysTo(fin)));
            const int c1 = static_cast<int>(az.Entre(1, 12));
            int c2 = static_cast<int>(az.Entre(1, 12));
            if (c2 == c1)
                c2 = c1 % 12 + 1;
            const QDate dDes = az.Prob(0.7) ? d : d.addMonths(1);
            const QDateTime cuando(d, QTime(static_cast<int>(az.Entre(8, 18)),
                                            static_cast<int>(az.Entre(0, 59)),
                                            static_cast<int>(az.Entre(1, 59))));
            transfiere(c1, c2, d, dDes.year() > 2026 ? d : dDes, cuando, Usuario(az),
                       Pesos(az.Entre(50, 600) * 100.0), true);
        }
        // Fixed cases: a time of day on the last day of January 2026 (falls
        // outside BETWEEN '2026-01-01' AND '2026-01-31'); a user that no
        // longer exists; a destination concept that no longer exists.
        transfiere(5, 2, QDate(2026, 1, 31), QDate(2026, 1, 31),
                   QDateTime(QDate(2026, 1, 31), QTime(17, 45, 0)), "MGARCIA", Pesos(12500), true);
        transfiere(5, 6, QDate(2026, 1, 15), QDate(2026, 2, 1),
                   QDateTime(QDate(2026, 1, 15), QTime(10, 30, 15)), "BAJA01", Pesos(8000), true);
        transfiere(3, 99, QDate(2025, 6, 10), QDate(2025, 6, 10),
                   QDateTime(QDate(2025, 6, 10), QTime(9, 5, 0)), "ADMIN", Pesos(1500), false);
        // Log rows that are not transfers.
        bit.Agrega({Txt("TRPR"), Ent(1), Txt("5"), Txt("2"), Txt("JPEREZ"),
                    Txt("2026-01-20 11:00:00"), Txt("01/2026"), Txt("01/2026"), Din(Pesos(99999))});
        bit.Agrega({Txt("ACCE"), Ent(2), Txt("5"), Nulo(), Txt("ADMIN"), Txt("2026-01-20 08:00:00"),
                    Nulo(), Nulo(), Nulo()});

        auto& enc = L("tblDefPresupuesto", "COD_CPRE,ANO_PRES,IMP_ANUAL");
        auto& ren = L("tblDefPresupuestoRen",
                      "COD_CPRE,ANO_PRES,MES_PRES,IMP_MES,IMP_REC,APLICADO,IMP_TRA,DISPONIBLE");
        for (const auto& c : kConceptos) {
            for (int ano = hechos::AnoInicial; ano <= hechos::AnoFinal; ++ano) {
                if (c.cod == hechos::ConceptoSinPresupuesto2026 && ano == 2026)
                    continue;
                Dz anual = Pesos(c.anual * (ano == 2026 ? 1.05 : 1.0));
                if (c.cod == hechos::ConceptoAnualCero2026 && ano == 2026)
                    anual = 0;
                enc.Agrega({Ent(c.cod), Ent(ano), Din(anual)});
                const Dz mensual = Redondea(anual, 12 * 100) * 100; // whole cents
                for (int mes = 1; mes <= 12; ++mes) {
                    const Dz impMes = mes < 12 ? mensual : anual - mensual * 11;
                    const Dz rec = entra[{c.cod, ano, mes}];
                    const Dz tra = sale[{c.cod, ano, mes}];
                    Dz apl = 0;
                    if (QDate(ano, mes, 1) <= fin) {
                        double f = 0.55 + az.Unif() * 0.5;
                        if (c.cod == hechos::ConceptoSobregirado && mes % 3 == 0)
                            f = 1.15 + az.Unif() * 0.15;
                        apl = impMes > 0 ? Redondea(static_cast<__int128>(impMes) *
                                                        static_cast<Dz>(f * 10000),
                                                    10000)
                                         : (c.cod == hechos::ConceptoAnualCero2026 && mes <= 6
                                                ? Pesos(4200)
                                                : 0);
                    }
                    ren.Agrega({Ent(c.cod), Ent(ano), Ent(mes), Din(impMes), Din(rec), Din(apl),
                                Din(tra), Din(impMes + rec - apl - tra)});
                }
            }
        }
    }

    void Proveedores() {
        Azar az(o_.semilla, 2);
        const int n = std::min(3000, 30 + 10 * o_.escala);
        for (int i = 0; i < n; ++i) {
            Proveedor p;
            p.cod = QString("P%1").arg(i + 1, 4, 10, QChar('0'));
            p.ciudad = static_cast<int>(az.Entre(0, 11));
            const int k = i + 1;
            if (k == 3 || k == 4 || (k > 10 && az.Prob(0.10))) {
                p.importador = true;
                p.ciudad = k == 3 ? 12 : k == 4 ? 14 : static_cast<int>(az.Entre(12, 16));
                p.moneda =
                    kCiudades[static_cast<size_t>(p.ciudad)].pais == std::string("DEU") ? 3 : 2;
            }
            if (k == 5 || k == 6 || (k > 10 && !p.importador && az.Prob(0.08))) {
                p.acreedor = true;
                p.compra = false;
            }
            p.sts = k == 8                      ? 2
                    : k == 9                    ? 3
                    : (k > 10 && az.Prob(0.06)) ? 2
                    : (k > 10 && az.Prob(0.03)) ? 3
                                                : 1;
            if (k == 7 || p.sts == 3)
                p.compra = false;
            p.plaCre = std::array<int, 5>{0, 15, 30, 45, 60}[static_cast<size_t>(az.Entre(0, 4))];
            if (p.importador)
                p.plaCre = 60;
            if (k == 10)
                p.plaCre = 30;
            prov_.push_back(p);
            if (p.compra)
                compradores_.push_back(i);
        }
    }

    void Articulos() {
        Azar az(o_.semilla, 3);
        const int n = std::min(6000, 80 + 20 * o_.escala);
        auto& art = L("tblCatArticulos", "COD1_ART,DES1_ART");
        auto& uca = L("tblUndCosPreArt", "COD1_ART,COD_UND,EQV_UND");
        auto& gpa = L("tblGpoArticulos", "COD_GPO,COD_AGR,COD1_ART");
        const int nf = static_cast<int>(kFamilias.size());
        for (int i = 0; i < n; ++i) {
            Articulo a;
            a.cod = QString("A%1").arg(i + 1, 5, 10, QChar('0'));
            a.familia = i % nf;
            const Familia& f = kFamilias[static_cast<size_t>(a.familia)];
            const int v = (i / nf) % static_cast<int>(kVariantes.size());
            const int serie = i / (nf * static_cast<int>(kVariantes.size()));
            QString des = QString::fromUtf8(f.des) + " " +
                          QString::fromUtf8(kVariantes[static_cast<size_t>(v)]);
            if (serie > 0)
                des += QString(" serie %1").arg(serie + 1);
            a.precio = Pesos(f.precio * (0.8 + az.Unif() * 0.6));
            art.Agrega({Txt(a.cod), Txt(des)});
            uca.Agrega({Txt(a.cod), Txt(f.und), 1.0});
            if (f.undAlt)
                uca.Agrega({Txt(a.cod), Txt(f.undAlt), static_cast<double>(f.factorAlt)});
            const Agr& agr = kAgrsArt[static_cast<size_t>(f.agr - 1)];
            gpa.Agrega({Ent(agr.gpo), Ent(agr.cod), Txt(a.cod)});
            art_.push_back(a);
        }
    }

    // A line of article a, quantity in its unit, prices in the document's currency.
    Linea HazLinea(Azar& az, int a, Dz cambio, bool importacion, bool unidadAlterna, Dz cantidad) {
        const Articulo& ar = art_[static_cast<size_t>(a)];
        const Familia& f = kFamilias[static_cast<size_t>(ar.familia)];
        Linea l;
        l.art = a;
        const bool alt = unidadAlterna && f.undAlt;
        l.und = alt ? f.undAlt : f.und;
        l.eqv = alt ? f.factorAlt : 1;
        l.can = cantidad;
        const Dz precioPesos = Redondea(static_cast<__int128>(ar.precio) * l.eqv *
                                            static_cast<Dz>((0.92 + az.Unif() * 0.16) * 10000),
                                        10000);
        l.cosUni = Redondea(static_cast<__int128>(precioPesos) * kUno, cambio);
        static const int descuentos[] = {0, 0, 0, 250, 500, 500, 1000};
        l.d1 = descuentos[az.Entre(0, 6)];
        l.d2 = az.Prob(0.15) ? 200 : 0;
        l.cosCom = PorCiento(PorCiento(l.cosUni, 10000 - l.d1), 10000 - l.d2);
        l.bruto = Por(l.can, l.cosUni);
        l.importe = Por(l.can, l.cosCom);
        if (importacion) {
            static const int aranceles[] = {500, 1000, 1500};
            l.porAran = aranceles[az.Entre(0, 2)];
            l.arancel = PorCiento(l.importe, l.porAran);
        }
        // Taxes: an IEPS family has IEPS first and VAT second, over cost plus IEPS.
        const Impuesto& t1 = kImpuestos[static_cast<size_t>(f.imp1 - 1)];
        l.cod1 = t1.cod;
        l.por1 = t1.centesimas;
        if (f.imp2) {
            const Impuesto& t2 = kImpuestos[static_cast<size_t>(f.imp2 - 1)];
            l.cod2 = t2.cod;
            l.por2 = t2.centesimas;
            l.grava = 1;
        }
        l.imp1 = PorCiento(l.importe, l.por1);
        l.imp2 = PorCiento(l.importe + (l.grava ? l.imp1 : 0), l.por2);
        return l;
    }

    QString Usuario(Azar& az) {
        return QString::fromUtf8(kUsuarios[static_cast<size_t>(az.Entre(1, 5))].first);
    }

    // Receipts, with their orders, requisitions, quotations, returns,
    // reception differences and accounts-payable movements.
    void Documentos() {
        Azar az(o_.semilla, 4);
        const int n = 640 * o_.escala;
        const QDate ini(2025, 1, 2), fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        const qint64 dias = ini.daysTo(fin);

        auto& cEnc =
            L("tblComprasEnc",
              "FOL_DOC,FEC_DOC,COD_PROV,REF_FACTURA,COD_ALM,COD_SUCU,COD_TIP,COD_MON,COD_CPRE,"
              "COD_ESTATUS,COD_USU,IMPORTACION,FOL_OCOM,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,"
              "CARGO_IMPTO,SUB_DOC,IVA_DOC,TOT_DOC,TOT_PROV");
        auto& cRen =
            L("tblComprasRen",
              "FOL_DOC,COD1_ART,CAN_ART,COD_UND,EQV_UND,COS_UNI,COS_COM,IMPORTE,IMP_ARANCEL,"
              "POR_ARANCEL,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,DESCUENTO5,DESCUENTO6,"
              "IMP1_ART,IMP2_ART,COD1_IMP,COD2_IMP,GRAVA_IMP1");
        auto& oEnc =
            L("tblOCOMEnc",
              "FOL_OCOM,FEC_OCOM,COD_PROV,FOL_REQS,COD_ALM,COD_SUCU,COD_MON,COD_TIP,COD_CPRE,"
              "IMPORTACION,COD_ESTATUS,COD_USU,TIP_CAM,IMP_OCOM,DES_OCOM,CARGOS_TOT,CARGOS_IMP,"
              "SUB_OCOM,IVA_OCOM,TOT_OCOM");
        auto& oRen =
            L("tblOCOMRen",
              "FOL_OCOM,COD1_ART,CAN_ART,COD_UND,EQV_UND,CAN_SURT,BACKORDER,COS_UNI,COS_COM,"
              "IMPORTE,POR_ARANCEL,IMP_ARANCEL,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,"
              "DESCUENTO5,DESCUENTO6,IMP1_REG,IMP2_REG");
        auto& rEnc =
            L("tblRequisicionesEnc",
              "FOL_REQ,FEC_REQ,COD_TIP,COD_CCOS,COD_CPRE,COD_SUCU,NOTA,COD_ESTATUS,COD_USU");
        auto& rRen = L("tblRequisicionesRen", "FOL_REQ,COD1_ART,CAN_ART,COD_UND,CAN_SURT,CAN_BACK");
        auto& qEnc =
            L("tblCotizacionesEnc",
              "FOL_COTI,FEC_COTI,COD_PROV,FOL_REQ,COD_MON,COD_SUCU,COD_TIP,IMPORTACION,"
              "COD_ESTATUS,COD_USU,TIM_ENTREGA,TIP_CAM,IMP_COTI,DES_COTI,DES_TOT,CARGO_TOT,"
              "CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI");
        auto& qRen =
            L("tblCotizacionesRen",
              "FOL_COTI,COD1_ART,CAN_ART,COD_UND,EQV_ART,COS_UNI,COS_COM,POR_ARAN,IMP_ARAN,"
              "REN_DES1,REN_DES2,REN_DES3,REN_DES4,REN_DES5,REN_DES6,REN_IMP1,REN_IMP2");
        auto& dEnc =
            L("tblDevolucionEnc",
              "FOL_DEV,FEC_DEV,FOL_REC,COD_PROV,COD_TIP,COD_ALM,COD_SUCU,COD_MON,COD_ESTATUS,"
              "COD_USU,TIP_CAM,SUB_DEV,IVA_DEV,TOT_DEV");
        auto& dRen =
            L("tblDevolucionRen",
              "FOL_DEV,COD1_ART,CAN_ART,COD_UND,EQV_UND,COS_UNI,IMP1_REN,IMP2_REN,IMP1_IMP,"
              "IMP2_IMP,COD1_IMP,COD2_IMP,GRAVA_IMP1");
        auto& dif = L("tblDifRecepcion", "REF_OC,COD_ART,COD_UND,CAN_OC,CAN_REC");

        qint64 nOc = 0, nReq = 0, nCot = 0, nDev = 0;
        const int nArt = static_cast<int>(art_.size());

        auto requisicion = [&](const QDate& fecha, const std::vector<Linea>& lineas, int estatus,
                               const std::vector<Dz>& surtido, int cpre) {
            const QString folio = Folio("RQ", ++nReq);
            const Concepto& c = kConceptos[static_cast<size_t>(cpre - 1)];
            rEnc.Agrega(
                {Txt(folio), Fec(fecha), Ent(az.Entre(1, 2)), Ent(c.ccos), Ent(cpre),
                 Txt(kAlmacenes[static_cast<size_t>(az.Entre(0, 3))].sucu),
                 Txt(az.Prob(0.3)
                         ? QString("Surtir a la brevedad; entregar en almacén de %1.")
                               .arg(QString::fromUtf8(
                                        kCentros[static_cast<size_t>(c.ccos - 1)].second)
                                        .toLower())
                         : QString("Requisición de %1").arg(QString::fromUtf8(c.des).toLower())),
                 Ent(estatus), Txt(Usuario(az))});
            for (size_t k = 0; k < lineas.size(); ++k) {
                const Dz s = estatus == 2 ? 0 : surtido[k];
                rRen.Agrega({Txt(folio), Txt(art_[static_cast<size_t>(lineas[k].art)].cod),
                             Din(lineas[k].can), Txt(lineas[k].und), Din(s),
                             Din(estatus == 2 ? 0 : lineas[k].can - s)});
            }
            return folio;
        };

        for (int i = 0; i < n; ++i) {
            const QDate fecha = ini.addDays(static_cast<qint64>(i) * dias / n);
            const int k = i + 1; // receipt number, RC000000k
            // Supplier.
            int ip;
            if (k == 1)
                ip = 0;
            else if (k == 4)
                ip = 2;
            else if (az.Prob(0.04))
                ip = 9; // the overdrawn supplier buys often
            else
                ip = az.De(compradores_);
            Proveedor& p = prov_[static_cast<size_t>(ip)];
            const bool imp = p.importador;
            const int moneda = imp ? p.moneda : 1;
            const Dz cambio = Cambio(moneda, fecha);
            const Almacen& alm = kAlmacenes[static_cast<size_t>(az.Entre(0, 3))];
            const int cpre = imp ? 1 : static_cast<int>(az.Entre(1, 12));
            const int tip = imp ? 3 : static_cast<int>(az.Entre(1, 4) == 4 ? 2 : 1);
            const QString usu = Usuario(az);

            // The lines.
            const int nLin = static_cast<int>(az.Entre(3, 14));
            std::vector<Linea> lineas;
            std::vector<int> usados;
            for (int j = 0; j < nLin; ++j) {
                int a = static_cast<int>(az.Entre(0, nArt - 1));
                while (std::find(usados.begin(), usados.end(), a) != usados.end())
                    a = (a + 1) % nArt;
                usados.push_back(a);
                lineas.push_back(
                    HazLinea(az, a, cambio, imp, az.Prob(0.25), az.Entre(1, 120) * kUno));
            }

            // Every second receipt answers a purchase order made for it.
            QString folOc;
            std::vector<Dz> pedido(lineas.size());
            if (k % 2 == 1) {
                const qint64 nro = ++nOc;
                const QDate fOc = fecha.addDays(-az.Entre(2, 15)) < QDate(2025, 1, 1)
                                      ? QDate(2025, 1, 1)
                                      : fecha.addDays(-az.Entre(2, 15));
                const bool cancelada = nro == 3 || az.Prob(0.03);
                folOc = Folio("OC", nro);
                bool backorder = false;
                for (size_t j = 0; j < lineas.size(); ++j) {
                    pedido[j] = lineas[j].can;
                    if (!cancelada && az.Prob(0.18)) {
                        pedido[j] = lineas[j].can + az.Entre(1, 30) * kUno;
                        backorder = true;
                    }
                }
                // A requisition for one order in three, with quotations.
                QString folReq;
                if (nro % 3 == 1) {
                    std::vector<Linea> pedidas = lineas;
                    for (size_t j = 0; j < pedidas.size(); ++j)
                        pedidas[j].can = pedido[j];
                    std::vector<Dz> surt(lineas.size());
                    for (size_t j = 0; j < lineas.size(); ++j)
                        surt[j] = cancelada ? 0 : lineas[j].can;
                    folReq = requisicion(fOc.addDays(-3) < QDate(2025, 1, 1) ? QDate(2025, 1, 1)
                                                                             : fOc.addDays(-3),
                                         pedidas, cancelada ? 4 : (backorder ? 4 : 3), surt, cpre);
                    // Quotations: the chosen supplier and one or two others.
                    const int nq = static_cast<int>(az.Entre(2, 3));
                    for (int q = 0; q < nq; ++q) {
                        const int iq = q == 0 ? ip : az.De(compradores_);
                        const Proveedor& pq = prov_[static_cast<size_t>(iq)];
                        const int monQ = pq.importador ? pq.moneda : 1;
                        const Dz camQ = Cambio(monQ, fOc);
                        const QString folQ = Folio("CT", ++nCot);
                        Dz impQ = 0, desQ = 0, ivaQ = 0, arQ = 0;
                        for (size_t j = 0; j < pedidas.size(); ++j) {
                            Linea l = HazLinea(az, pedidas[j].art, camQ, pq.importador,
                                               pedidas[j].eqv > 1, pedidas[j].can);
                            l.und = pedidas[j].und;
                            l.eqv = pedidas[j].eqv;
                            impQ += l.bruto;
                            desQ += l.bruto - l.importe;
                            ivaQ += l.imp1 + l.imp2;
                            arQ += l.arancel;
                            qRen.Agrega({Txt(folQ), Txt(art_[static_cast<size_t>(l.art)].cod),
                                         Din(l.can), Txt(l.und), static_cast<double>(l.eqv),
                                         Din(l.cosUni), Din(l.cosCom), Pct(l.porAran),
                                         Din(l.arancel), Pct(l.d1), Pct(l.d2), Pct(0), Pct(0),
                                         Pct(0), Pct(0), Ent(l.cod1), Ent(l.cod2)});
                        }
                        const Dz cargo = az.Prob(0.3) ? Pesos(az.Entre(2, 30) * 100.0) : 0;
                        const Dz sub = impQ - desQ + cargo + arQ;
                        const Dz iva = ivaQ + PorCiento(cargo, 1600);
                        const int stsQ =
                            q == 0 ? 1
                                   : std::array<int, 4>{1, 4, 2,
                                                        3}[static_cast<size_t>(az.Entre(0, 3))];
                        qEnc.Agrega({Txt(folQ),
                                     Fec(fOc.addDays(-1) < QDate(2025, 1, 1) ? QDate(2025, 1, 1)
                                                                             : fOc.addDays(-1)),
                                     Txt(pq.cod),
                                     Txt(folReq),
                                     Ent(monQ),
                                     Txt(alm.sucu),
                                     Ent(tip),
                                     Ent(pq.importador ? 1 : 0),
                                     Ent(stsQ),
                                     Txt(Usuario(az)),
                                     Ent(az.Entre(1, 45)),
                                     Din(camQ),
                                     Din(impQ),
                                     Din(desQ),
                                     Din(desQ),
                                     Din(cargo),
                                     Din(PorCiento(cargo, 1600)),
                                     Din(sub),
                                     Din(iva),
                                     Din(sub + iva)});
                    }
                }
                Dz impO = 0, desO = 0, ivaO = 0, arO = 0;
                for (size_t j = 0; j < lineas.size(); ++j) {
                    const Linea& l = lineas[j];
                    const Dz bruto = Por(pedido[j], l.cosUni), importe = Por(pedido[j], l.cosCom);
                    const Dz ar = PorCiento(importe, l.porAran);
                    const Dz i1 = PorCiento(importe, l.por1),
                             i2 = PorCiento(importe + (l.grava ? i1 : 0), l.por2);
                    impO += bruto;
                    desO += bruto - importe;
                    ivaO += i1 + i2;
                    arO += ar;
                    const Dz surt = cancelada ? 0 : l.can;
                    oRen.Agrega({Txt(folOc),
                                 Txt(art_[static_cast<size_t>(l.art)].cod),
                                 Din(pedido[j]),
                                 Txt(l.und),
                                 static_cast<double>(l.eqv),
                                 Din(surt),
                                 Din(pedido[j] - surt),
                                 Din(l.cosUni),
                                 Din(l.cosCom),
                                 Din(importe),
                                 Pct(l.porAran),
                                 Din(ar),
                                 Pct(l.d1),
                                 Pct(l.d2),
                                 Pct(0),
                                 Pct(0),
                                 Pct(0),
                                 Pct(0),
                                 Ent(l.cod1),
                                 Ent(l.cod2)});
                    if (!cancelada && pedido[j] != l.can)
                        dif.Agrega({Txt(folOc), Txt(art_[static_cast<size_t>(l.art)].cod),
                                    Txt(l.und), Din(pedido[j]), Din(l.can)});
                }
                const Dz sub = impO - desO + arO;
                oEnc.Agrega({Txt(folOc),
                             Fec(fOc),
                             Txt(p.cod),
                             folReq.isEmpty() ? Nulo() : Txt(folReq),
                             Txt(alm.cod),
                             Txt(alm.sucu),
                             Ent(moneda),
                             Ent(tip),
                             Ent(cpre),
                             Ent(imp ? 1 : 0),
                             Ent(cancelada ? 5 : (backorder ? 4 : 3)),
                             Txt(usu),
                             Din(cambio),
                             Din(impO),
                             Din(desO),
                             Din(0),
                             Din(0),
                             Din(sub),
                             Din(ivaO),
                             Din(sub + ivaO)});
                if (cancelada)
                    folOc.clear(); // the receipt stands on its own
            }
            // Standalone requisitions, in all statuses.
            if (k % 5 == 2) {
                std::vector<Linea> rl;
                std::vector<Dz> surt;
                const int nr = static_cast<int>(az.Entre(2, 6));
                for (int j = 0; j < nr; ++j) {
                    const int a = static_cast<int>((az.Entre(0, nArt - 1) + j) % nArt);
                    Linea l;
                    l.art = a;
                    l.und = QString::fromUtf8(
                        kFamilias[static_cast<size_t>(art_[static_cast<size_t>(a)].familia)].und);
                    l.can = az.Entre(1, 50) * kUno;
                    rl.push_back(l);
                }
                const int sts =
                    nReq == 1
                        ? 2
                        : std::array<int, 6>{4, 4, 1, 3, 2, 4}[static_cast<size_t>(az.Entre(0, 5))];
                for (const Linea& l : rl)
                    surt.push_back(sts == 3   ? l.can
                                   : sts == 2 ? 0
                                              : Redondea(l.can * az.Entre(0, 2), 2 * kUno) * kUno);
                requisicion(fecha, rl, sts, surt, static_cast<int>(az.Entre(1, 12)));
            }

            // The receipt.
            const QString folio = Folio("RC", k);
            int sts;
            if (k == 6)
                sts = 2;
            else if (k == 9)
                sts = 7;
            else if (k == 1 || k == 4)
                sts = 4;
            else {
                const double u = az.Unif();
                sts = u < 0.03 ? 2 : u < 0.07 ? 7 : u < 0.20 ? 3 : u < 0.30 ? 1 : 4;
            }
            Dz impD = 0, desD = 0, ivaD = 0, arD = 0;
            for (const Linea& l : lineas) {
                impD += l.bruto;
                desD += l.bruto - l.importe;
                ivaD += l.imp1 + l.imp2;
                arD += l.arancel;
                cRen.Agrega({Txt(folio),
                             Txt(art_[static_cast<size_t>(l.art)].cod),
                             Din(l.can),
                             Txt(l.und),
                             static_cast<double>(l.eqv),
                             Din(l.cosUni),
                             Din(l.cosCom),
                             Din(l.importe),
                             Din(l.arancel),
                             Pct(l.porAran),
                             Pct(l.d1),
                             Pct(l.d2),
                             Pct(0),
                             Pct(0),
                             Pct(0),
                             Pct(0),
                             Pct(l.por1),
                             Pct(l.por2),
                             Ent(l.cod1),
                             Ent(l.cod2),
                             Ent(l.grava)});
            }
            const Dz cargo = az.Prob(0.2) ? Pesos(az.Entre(3, 35) * 100.0) : 0;
            const Dz cargoImp = PorCiento(cargo, 1600);
            const Dz sub = impD - desD + cargo + arD;
            const Dz iva = ivaD + cargoImp;
            const Dz tot = sub + iva;
            const QString factura =
                imp ? QString("INV-%1-%2").arg(fecha.year()).arg(az.Entre(1000, 9999))
                    : QString("F-%1").arg(az.Entre(10000, 99999));
            cEnc.Agrega({Txt(folio),
                         Fec(fecha),
                         Txt(p.cod),
                         Txt(factura),
                         Txt(alm.cod),
                         Txt(alm.sucu),
                         Ent(tip),
                         Ent(moneda),
                         Ent(cpre),
                         Ent(sts),
                         Txt(usu),
                         Ent(imp ? 1 : 0),
                         folOc.isEmpty() ? Nulo() : Txt(folOc),
                         Din(cambio),
                         Din(impD),
                         Din(desD),
                         Din(cargo),
                         Din(cargoImp),
                         Din(sub),
                         Din(iva),
                         Din(tot),
                         Din(tot)});
            if (sts == 7)
                continue; // a remission has no charge yet
            if (sts != 2 && (p.ucom.isNull() || fecha > p.ucom))
                p.ucom = fecha;

            // Accounts payable: the charge of the receipt, in pesos.
            const Dz cargoPesos = Por(tot, cambio);
            Dz saldo = sts == 2 ? 0 : cargoPesos;
            const qint64 movCargo = ++nMov_;
            // A return against one receipt in twenty.
            if (sts != 2 && (k == 10 || k == 12 || az.Prob(0.05))) {
                const QString folDev = Folio("DV", ++nDev);
                const bool devCancelada = nDev == 2 || az.Prob(0.08);
                const QDate fDev = std::min(fin, fecha.addDays(az.Entre(2, 20)));
                Dz subDev = 0, ivaDev = 0;
                const size_t nl =
                    std::min<size_t>(lineas.size(), static_cast<size_t>(az.Entre(1, 2)));
                for (size_t j = 0; j < nl; ++j) {
                    const Linea& l = lineas[j];
                    const Dz can = std::max<Dz>(kUno, Redondea(l.can, 3 * kUno) * kUno);
                    const Dz base = Por(can, l.cosCom);
                    const Dz i1 = PorCiento(base, l.por1),
                             i2 = PorCiento(base + (l.grava ? i1 : 0), l.por2);
                    subDev += base;
                    ivaDev += i1 + i2;
                    dRen.Agrega({Txt(folDev), Txt(art_[static_cast<size_t>(l.art)].cod), Din(can),
                                 Txt(l.und), static_cast<double>(l.eqv), Din(l.cosCom), Pct(l.por1),
                                 Pct(l.por2), Din(i1), Din(i2), Ent(l.cod1), Ent(l.cod2),
                                 Ent(l.grava)});
                }
                dEnc.Agrega({Txt(folDev), Fec(fDev), Txt(folio), Txt(p.cod), Ent(tip), Txt(alm.cod),
                             Txt(alm.sucu), Ent(moneda), Ent(devCancelada ? 2 : 1),
                             Txt(Usuario(az)), Din(cambio), Din(subDev), Din(ivaDev),
                             Din(subDev + ivaDev)});
                const Dz credito = std::min(saldo, Por(subDev + ivaDev, cambio));
                if (credito > 0)
                    saldo -=
                        Abono(devCancelada ? 2 : 1, "DEV", folDev, folDev, fDev, p, alm.sucu, folio,
                              credito, saldo - (devCancelada ? 0 : credito), devCancelada);
            }
            // The payment: on time mostly; the overdrawn supplier rarely pays.
            if (sts != 2 && saldo > 0) {
                const QDate vence = fecha.addDays(p.plaCre);
                const QDate fPago = vence.addDays(az.Entre(-10, 20));
                const double paga = ip == 9 ? 0.25 : 0.88;
                if (fPago <= fin && az.Prob(paga)) {
                    if (nPago_ == 1) // one cancelled payment, PG0000002, that paid nothing
                        Abono(2, "PAG", Folio("PG", ++nPago_),
                              QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p, alm.sucu,
                              folio, saldo, saldo, true);
                    saldo -= Abono(1, "PAG", Folio("PG", ++nPago_),
                                   QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p,
                                   alm.sucu, folio, saldo, 0, false);
                } else if (fecha.addDays(15) <= fin && az.Prob(0.3)) {
                    const Dz parte = Redondea(saldo * az.Entre(30, 60), 100 * 100) * 100;
                    saldo -=
                        Abono(1, "PAG", Folio("PG", ++nPago_),
                              QString("TRF-%1").arg(az.Entre(100000, 999999)), fecha.addDays(15), p,
                              alm.sucu, folio, parte, saldo - parte, false);
                }
            }
            const int stsCargo = sts == 2 ? 2 : (saldo > 0 && az.Prob(0.04)) ? 3 : 1;
            cxpEnc().Agrega({Ent(movCargo), Txt(folio), Fec(fecha), Ent(p.plaCre), Txt(factura),
                             Txt(p.cod), Txt("FAC"), Txt("CCXP"), Txt("COMPRA"), Ent(stsCargo),
                             Txt(alm.sucu), Din(cargoPesos), Din(saldo)});
            p.saldo += saldo;
            // An advance not yet applied, now and then.
            if (sts != 2 && az.Prob(0.01)) {
                const Dz ant = Pesos(az.Entre(5, 50) * 1000.0);
                cxpEnc().Agrega({Ent(++nMov_), Txt(Folio("AN", ++nAnt_)), Fec(fecha), Ent(0),
                                 Txt(QString("ANT-%1").arg(nAnt_)), Txt(p.cod), Txt("ANT"),
                                 Txt("ACXP"), Txt("ANTICIPO"), Ent(3), Txt(alm.sucu), Din(ant),
                                 Din(ant)});
                p.saldo -= ant;
            }
        }
    }

    Lote& cxpEnc() {
        return L(
            "tblCxPEnc",
            "NUM_MOV,FOL_DOC,FEC_DOC,PLA_PAG,REF_PROV,COD_PROV,COD_CON,CON_GRL,CON_CEP,COD_STS,"
            "COD_SUCU,IMP_DOC,SAL_DOC");
    }
    Lote& cxpRen() {
        return L("tblCxPRen",
                 "NUM_MOV,FOL_DOC,FOL_REF,FEC_DOC,COD_CON,CON_GRL,COD_STS,IMP_DOC,SAL_DOC,TOT_DOC");
    }

    // A credit movement applied to one charge; returns the amount applied
    // (0 when cancelled).
    Dz Abono(int sts, const char* con, const QString& folio, const QString& ref, const QDate& fecha,
             Proveedor& p, const char* sucu, const QString& folCargo, Dz importe, Dz saldoCargo,
             bool cancelado) {
        const qint64 mov = ++nMov_;
        cxpEnc().Agrega({Ent(mov), Txt(folio), Fec(fecha), Ent(0), Txt(ref), Txt(p.cod), Txt(con),
                         Txt("ACXP"), Txt(QString(con) == "PAG" ? "PAGO" : "DEVOLUCION"), Ent(sts),
                         Txt(sucu), Din(importe), Din(0)});
        cxpRen().Agrega({Ent(mov), Txt(folio), Txt(folCargo), Fec(fecha), Txt(con), Txt("ACXP"),
                         Ent(sts), Din(importe), Din(saldoCargo), Din(importe)});
        if (!cancelado && QString(con) == "PAG" && (p.upag.isNull() || fecha > p.upag))
            p.upag = fecha;
        return cancelado ? 0 : importe;
    }

    // Creditors: monthly rent and services, paid the month after.
    void Acreedores() {
        Azar az(o_.semilla, 5);
        const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        for (size_t i = 0; i < prov_.size(); ++i) {
            Proveedor& p = prov_[i];
            if (!p.acreedor)
                continue;
            const bool renta = p.cod == hechos::ProvAcreedor;
            for (QDate d(2025, 1, 1); d <= fin; d = d.addMonths(1)) {
                if (!renta && p.cod != hechos::ProvAcreedor2 && az.Prob(0.6))
                    continue;
                const QDate f = renta ? d : d.addDays(az.Entre(0, 25));
                const Dz imp =
                    renta ? Pesos(45000 * 1.16) : Pesos(az.Entre(20, 180) * 100.0 * 1.16);
                const QString folio = Folio(renta ? "AR" : "SV", ++nServ_);
                const qint64 mov = ++nMov_;
                Dz saldo = imp;
                const QDate fPago = f.addDays(p.plaCre > 0 ? p.plaCre : 10);
                if (fPago <= fin)
                    saldo -= Abono(1, "PAG", Folio("PG", ++nPago_),
                                   QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p, "S01",
                                   folio, imp, 0, false);
                cxpEnc().Agrega({Ent(mov), Txt(folio), Fec(f), Ent(p.plaCre),
                                 Txt(QString("R-%1").arg(az.Entre(1000, 9999))), Txt(p.cod),
                                 Txt(renta ? "ARR" : "SER"), Txt("CCXP"),
                                 Txt(renta ? "RENTA" : "SERVICIO"), Ent(1), Txt("S01"), Din(imp),
                                 Din(saldo)});
                p.saldo += saldo;
            }
        }
    }

    // Monthly average cost of every article.
    void Promedios() {
        Azar az(o_.semilla, 6);
        auto& pr = L("tblPromedios", "COD1_ART,FEC_PROM,COS_PROM");
        const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        for (const Articulo& a : art_) {
            Dz c = a.precio;
            for (QDate d(2025, 1, 31); d <= fin;
                 d = QDate(d.year(), d.month(), 1).addMonths(2).addDays(-1)) {
                c = Redondea(static_cast<__int128>(c) * (9900 + az.Entre(0, 300)), 10000);
                pr.Agrega({Txt(a.cod), Fec(d), Din(c)});
            }
        }
    }

    void CierraProveedores() {
        Azar az(o_.semilla, 7);
        auto& cat = L("tblCatProveedor",
                      "COD_PROV,NOM_PROV,CALL_NUM,COL_PROV,COP_PROV,COD_CID,COD_EST,COD_PAIS,TEL1_"
                      "PROV,TEL2_PROV,"
                      "RFC_PROV,MAIL_PROV,CONTACTO1,CONTACTO2,COD_STS,ES_ACREED,FEC_UCOM,FEC_UPAG,"
                      "PLA_CRE,PORC_DES1,"
                      "PORC_DES2,PORC_DES3,PORC_DES4,PORC_DES5,PORC_DES6,LIM_CRE,SAL_PROV");
        auto& gap = L("tblGpoAgrProveedor", "COD_GPO,COD_AGR,COD_PROV");
        for (size_t i = 0; i < prov_.size(); ++i) {
            const Proveedor& p = prov_[i];
            const int k = static_cast<int>(i) + 1;
            const Ciudad& c = kCiudades[static_cast<size_t>(p.ciudad)];
            QString nombre;
            if (k == 1)
                nombre = "Aceros del Bajío, S.A. de C.V.";
            else if (k == 3)
                nombre = "Gulf Coast Steel Supply, Inc.";
            else if (k == 4)
                nombre = "Shenzhen Precision Bearings Co., Ltd.";
            else if (k == 5)
                nombre = "Inmobiliaria Chapalita, S.A. de C.V.";
            else if (k == 6)
                nombre = "Servicios Integrales de Limpieza del Occidente, S.C.";
            else if (k == 7)
                nombre = "Tornillería Industrial Tapatía, S.A. de C.V.";
            else if (p.importador)
                nombre = QString("%1 %2 Trading %3")
                             .arg(QString::fromUtf8(c.des))
                             .arg(k)
                             .arg(c.pais == std::string("DEU") ? "GmbH" : "Ltd.");
            else
                nombre = QString::fromUtf8(az.De(kNombres1)) + " " +
                         QString::fromUtf8(az.De(kNombres2)) +
                         QString::fromUtf8(az.De(kSociedades));
            // Credit limits above the balance, but for the overdrawn supplier
            // and one in twenty others.
            Dz lim = p.acreedor ? Pesos(100000) : Pesos(az.Entre(1, 40) * 25000.0);
            const Dz holgado =
                Redondea(static_cast<__int128>(p.saldo) * 13, 10 * Pesos(25000)) * Pesos(25000);
            if (k == 10)
                lim = Pesos(50000);
            else if (!(k > 10 && az.Prob(0.05)) && lim < holgado)
                lim = holgado + Pesos(25000);
            static const int des[] = {0, 0, 0, 250, 500, 750, 1000};
            const int d1 = des[az.Entre(0, 6)];
            const int d2 = d1 > 0 && az.Prob(0.3) ? 200 : 0;
            const QString rfc = p.importador ? QString("XEXX010101000")
                                             : QString("%1%2%3")
                                                   .arg(nombre.left(3).toUpper())
                                                   .arg(az.Entre(700101, 991231))
                                                   .arg(QString("A%1").arg(az.Entre(10, 99)));
            cat.Agrega({Txt(p.cod),
                        Txt(nombre),
                        Txt(QString("%1 %2")
                                .arg(QString::fromUtf8(az.De(kCalles)))
                                .arg(az.Entre(10, 4999))),
                        p.importador ? Nulo() : Txt(QString::fromUtf8(az.De(kColonias))),
                        Txt(QString::number(az.Entre(20000, 99999))),
                        Txt(c.cod),
                        Txt(c.est),
                        Txt(c.pais),
                        Txt(QString("(%1) %2-%3")
                                .arg(az.Entre(33, 99))
                                .arg(az.Entre(1000, 9999))
                                .arg(az.Entre(1000, 9999))),
                        az.Prob(0.5) ? Txt(QString("(%1) %2-%3")
                                               .arg(az.Entre(33, 99))
                                               .arg(az.Entre(1000, 9999))
                                               .arg(az.Entre(1000, 9999)))
                                     : Nulo(),
                        Txt(rfc.left(13)),
                        Txt(QString("compras%1@proveedor%1.com.mx").arg(k)),
                        Txt(QString::fromUtf8(az.De(kPersonas))),
                        az.Prob(0.4) ? Txt(QString::fromUtf8(az.De(kPersonas))) : Nulo(),
                        Ent(p.sts),
                        Ent(p.acreedor ? 1 : 0),
                        p.ucom.isNull() ? Nulo() : Fec(p.ucom),
                        p.upag.isNull() ? Nulo() : Fec(p.upag),
                        Ent(p.plaCre),
                        Pct(d1),
                        Pct(d2),
                        Pct(0),
                        Pct(0),
                        Pct(0),
                        Pct(k == 1 ? 150 : 0),
                        Din(lim),
                        Din(p.saldo)});
            // Memberships: by kind; P0001 is in two agrupaciones.
            int gpo = 1, agr = static_cast<int>(az.Entre(1, 3));
            if (p.importador) {
                gpo = 2;
                agr = c.pais == std::string("CHN") ? 4 : c.pais == std::string("DEU") ? 8 : 5;
            } else if (p.acreedor) {
                gpo = 3;
                agr = k == 5 ? 7 : 6;
            }
            if (k == 1)
                agr = 1;
            gap.Agrega({Ent(gpo), Ent(agr), Txt(p.cod)});
            if (k == 1)
                gap.Agrega({Ent(1), Ent(2), Txt(p.cod)});
        }
    }

    QSqlDatabase db_;
    OpcionesDemo o_;
    std::map<QString, std::unique_ptr<Lote>> lotes_;
    std::vector<Proveedor> prov_;
    std::vector<int> compradores_;
    std::vector<Articulo> art_;
    qint64 nMov_ = 0, nPago_ = 0, nAnt_ = 0, nServ_ = 0;
};

} // namespace

// ---------------------------------------------------------------- public

void CreaEsquemaDemo(QSqlDatabase db) {
    for (const QString& s : SentenciasEsquema(EsPostgres(db), true))
        Ejecuta(db, s);
}

void BorraTablasDemo(QSqlDatabase db) {
    for (const QString& t : TablasDemo())
        Ejecuta(db, "DROP TABLE IF EXISTS " + t);
}

ResumenDemo CargaDemo(QSqlDatabase db, const OpcionesDemo& o) {
    QElapsedTimer reloj;
    reloj.start();
    if (!db.isOpen())
        throw ErrorDemo("La base de datos no está abierta.");
    const bool pg = EsPostgres(db);
    if (!pg) {
        // Building a new file: a crash leaves a useless demo anyway.
        QSqlQuery q(db);
        q.exec("PRAGMA synchronous=OFF");
        q.exec("PRAGMA journal_mode=MEMORY");
    }
    if (!db.transaction())
        throw ErrorDemo(db.lastError().text());
    ResumenDemo r;
    try {
        for (const QString& s : SentenciasEsquema(pg, false))
            Ejecuta(db, s);
        Generador g(db, o);
        g.Genera();
        r.filas = g.Filas();
        QStringList todas = SentenciasEsquema(pg, true);
        const QStringList tablas = SentenciasEsquema(pg, false);
        for (int i = static_cast<int>(tablas.size()); i < todas.size(); ++i)
            Ejecuta(db, todas[i]);
        if (!db.commit())
            throw ErrorDemo(db.lastError().text());
    } catch (...) {
        db.rollback();
        throw;
    }
    if (pg) {
        QSqlQuery q(db);
        q.exec("ANALYZE");
    }
    for (const QString& t : TablasDemo())
        r.filas.try_emplace(t, 0);
    r.segundos = static_cast<double>(reloj.elapsed()) / 1000.0;
    return r;
}

QString CreaSuiteDemo(const QString& carpeta, const OpcionesDemo& o, ResumenDemo* resumen,
                      bool reemplazar) {
    if (carpeta.trimmed().isEmpty())
        throw ErrorDemo("Falta la carpeta de la suite de demostración.");
    QFileInfo info(carpeta);
    if (info.exists() && !info.isDir())
        throw ErrorDemo("«" + carpeta + "» existe y no es una carpeta.");
    QDir dir(carpeta);
    if (info.exists() &&
        !dir.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System) &&
        !reemplazar)
        throw ErrorDemo("La carpeta «" + carpeta +
                        "» no está vacía; use --reemplazar para rehacer la suite en ella.");
    if (!dir.mkpath("."))
        throw ErrorDemo("No se pudo crear la carpeta «" + carpeta + "».");
    const QString absoluta = QDir(dir.absolutePath()).canonicalPath();
    dir = QDir(absoluta);
    if (!dir.mkpath("Temp") || !dir.mkpath("Trabajo"))
        throw ErrorDemo("No se pudieron crear las carpetas Temp y Trabajo en «" + absoluta + "».");
    const QString ruta = dir.filePath("suite.db");
    for (const QString& f : {ruta, ruta + "-journal", ruta + "-wal", ruta + "-shm"})
        if (QFile::exists(f) && !QFile::remove(f))
            throw ErrorDemo("No se pudo reemplazar «" + f + "».");

    const QString nombre = "demo_escritura_" + QUuid::createUuid().toString(QUuid::Id128);
    try {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", nombre);
        db.setDatabaseName(ruta);
        if (!db.open())
            throw ErrorDemo("No se pudo crear «" + ruta + "»: " + db.lastError().text());
        ResumenDemo r = CargaDemo(db, o);
        db.close();
        if (resumen)
            *resumen = r;
    } catch (...) {
        QSqlDatabase::removeDatabase(nombre);
        throw;
    }
    QSqlDatabase::removeDatabase(nombre);

    // VALMOR.INI, written by hand: an INI with backslash-free paths and the
    // key order a person expects.
    QFile ini(dir.filePath("VALMOR.INI"));
    if (!ini.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        throw ErrorDemo("No se pudo escribir «" + ini.fileName() + "».");
    QTextStream t(&ini);
    t << "[VARIOS]\n"
      << "DIRCONSULTAS=" << dir.filePath("Trabajo") << "\n"
      << "VER_COLEX=1\n\n"
      << "[PARAMETROS]\n"
      << "VENCIDO0=30\nVENCIDO1=60\nVENCIDO2=90\n\n"
      << "[CFGREGIONAL]\n"
      << "CIUDAD=" << hechos::Ciudad << "\nESTADO=" << hechos::Estado << "\nPAIS=" << hechos::Pais
      << "\n";
    t.flush();
    if (ini.error() != QFile::NoError)
        throw ErrorDemo("No se pudo escribir «" + ini.fileName() + "».");
    return ruta;
}

QSqlDatabase AbrePostgresEscritura(const QString& cadena, const QString& nombreConexion) {
    QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", nombreConexion);
    QStringList opciones;
    QString error;
    if (!Conexion::ConfiguraPostgres(db, cadena, &opciones, &error))
        throw ErrorDemo(error + " " + cadena.trimmed());
    if (!opciones.isEmpty())
        db.setConnectOptions(opciones.join(';'));
    if (!db.open()) {
        const QString e = db.lastError().text();
        throw ErrorDemo("No se pudo abrir la base PostgreSQL: " + e.simplified());
    }
    QSqlQuery q(db);
    q.exec("SET client_min_messages TO WARNING");
    return db;
}

} // namespace consultas::demo
