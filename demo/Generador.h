#pragma once
// Inside the demo generator: the random streams, fixed-point values, batched
// inserts, the fixed catalogues and the generator itself, whose parts are
// written by area of data (DemoCatalogos.cpp, DemoPresupuestos.cpp,
// DemoCompras.cpp, DemoCxPag.cpp). Only the generator's sources include it.
//
// New data keep the old data as they are: a new part takes a random stream
// of its own (Azar's second argument, a number no other part uses) and runs
// after the parts that exist, so the rows the old parts write do not move.

#include "GeneradorDemo.h"

#include <QDate>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace consultas::demo::gen {

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
inline constexpr Dz kUno = 10000;

inline Dz Redondea(__int128 num, __int128 den) {
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
inline Dz Por(Dz a, Dz b) {
    return Redondea(static_cast<__int128>(a) * b, kUno);
}
// a * percentage, the percentage in hundredths of a percent (1600 is 16 %).
inline Dz PorCiento(Dz a, int centesimas) {
    return Redondea(static_cast<__int128>(a) * centesimas, 10000);
}
inline Dz Pesos(double p) {
    return static_cast<Dz>(std::llround(p * kUno));
}

inline QVariant Din(Dz v) {
    const bool neg = v < 0;
    const quint64 a = static_cast<quint64>(neg ? -v : v);
    return QString("%1%2.%3").arg(neg ? "-" : "").arg(a / 10000).arg(a % 10000, 4, 10, QChar('0'));
}
inline QVariant Pct(int centesimas) {
    return static_cast<double>(centesimas) / 100.0;
}
inline QVariant Fec(const QDate& d) {
    return d.toString("yyyy-MM-dd");
}
inline QVariant Txt(const QString& s) {
    return s;
}
inline QVariant Ent(qint64 n) {
    return QVariant::fromValue(static_cast<int>(n));
}
inline QVariant Nulo() {
    return QVariant();
}

inline QString Folio(const char* prefijo, qint64 n) {
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

struct Almacen {
    const char* cod;
    const char* des;
    const char* sucu;
};

struct Impuesto {
    int cod;
    const char* des;
    int centesimas;
    int tipo;
};

struct Agr {
    int cod;
    int gpo;
    const char* des;
};

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

struct Concepto {
    int cod;
    const char* des;
    int ccos;
    double anual;
};

extern const std::vector<Ciudad> kCiudades;
extern const std::vector<std::pair<const char*, const char*>> kEstados;
extern const std::vector<std::pair<const char*, const char*>> kPaises;
extern const std::vector<std::pair<const char*, const char*>> kSucursales;
extern const std::vector<Almacen> kAlmacenes;
extern const std::vector<std::pair<const char*, const char*>> kUsuarios;
extern const std::vector<Impuesto> kImpuestos;
extern const std::vector<std::pair<int, const char*>> kGposProv;
extern const std::vector<Agr> kAgrsProv;
extern const std::vector<std::pair<int, const char*>> kGposArt;
extern const std::vector<Agr> kAgrsArt;
extern const std::vector<std::pair<const char*, const char*>> kUnidades;
extern const std::vector<Familia> kFamilias;
extern const std::vector<const char*> kVariantes;
extern const std::vector<std::pair<int, const char*>> kCentros;
extern const std::vector<Concepto> kConceptos;
extern const std::vector<const char*> kNombres1;
extern const std::vector<const char*> kNombres2;
extern const std::vector<const char*> kSociedades;
extern const std::vector<const char*> kPersonas;
extern const std::vector<const char*> kCalles;
extern const std::vector<const char*> kColonias;

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

    // Catalogues (DemoCatalogos.cpp).
    void Catalogos();
    void Proveedores();
    void Articulos();
    void CierraProveedores();

    // Budgets (DemoPresupuestos.cpp).
    void Presupuestos();

    // Purchasing (DemoCompras.cpp).
    // Exchange rate of a month, ten-thousandths of a peso.
    static Dz Cambio(int moneda, const QDate& d);
    Linea HazLinea(Azar& az, int a, Dz cambio, bool importacion, bool unidadAlterna, Dz cantidad);
    QString Usuario(Azar& az);
    void Documentos();
    void Promedios();

    // Accounts payable (DemoCxPag.cpp).
    Lote& cxpEnc();
    Lote& cxpRen();
    Dz Abono(int sts, const char* con, const QString& folio, const QString& ref, const QDate& fecha,
             Proveedor& p, const char* sucu, const QString& folCargo, Dz importe, Dz saldoCargo,
             bool cancelado);
    void Acreedores();

    QSqlDatabase db_;
    OpcionesDemo o_;
    std::map<QString, std::unique_ptr<Lote>> lotes_;
    std::vector<Proveedor> prov_;
    std::vector<int> compradores_;
    std::vector<Articulo> art_;
    qint64 nMov_ = 0, nPago_ = 0, nAnt_ = 0, nServ_ = 0;
};

} // namespace consultas::demo::gen
