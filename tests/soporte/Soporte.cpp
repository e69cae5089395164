#include "soporte/Soporte.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <stdexcept>

namespace pruebas {

void BaseDePrueba::EjecutaGuion(const QString& guion) {
    // Statements are split at ';' ending a line; the schema files keep to it.
    QString actual;
    for (const QString& linea : guion.split('\n')) {
        const QString t = linea.trimmed();
        if (t.startsWith("--") && actual.trimmed().isEmpty())
            continue;
        actual += linea + '\n';
        if (t.endsWith(';')) {
            if (!actual.trimmed().isEmpty())
                Ejecuta(actual);
            actual.clear();
        }
    }
    if (!actual.trimmed().isEmpty())
        Ejecuta(actual);
}

namespace {

void EjecutaEn(const QString& conexion, const QString& sql) {
    QSqlQuery q(QSqlDatabase::database(conexion));
    if (!q.exec(sql))
        throw std::runtime_error(QString("%1\n%2").arg(q.lastError().text(), sql).toStdString());
}

class Sqlite : public BaseDePrueba {
public:
    Sqlite() : nombre_("prueba_w_" + QUuid::createUuid().toString(QUuid::Id128)) {
        ruta_ = dir_.filePath("prueba.db");
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", nombre_);
        db.setDatabaseName(ruta_);
        if (!db.open())
            throw std::runtime_error(db.lastError().text().toStdString());
    }
    ~Sqlite() override {
        QSqlDatabase::database(nombre_, false).close();
        QSqlDatabase::removeDatabase(nombre_);
    }
    void Ejecuta(const QString& sql) override { EjecutaEn(nombre_, sql); }
    QString Cadena() const override { return ruta_; }
    QString NombreEscritura() const override { return nombre_; }
    bool EsPostgres() const override { return false; }

private:
    QTemporaryDir dir_;
    QString ruta_;
    QString nombre_;
};

class Postgres : public BaseDePrueba {
public:
    explicit Postgres(const QString& admin) : admin_(admin) {
        base_ = "prueba_" + QUuid::createUuid().toString(QUuid::Id128).left(16);
        nombreAdmin_ = "prueba_a_" + base_;
        nombre_ = "prueba_w_" + base_;
        {
            QSqlDatabase a = Abre(nombreAdmin_, "postgres");
            QSqlQuery q(a);
            if (!q.exec("CREATE DATABASE " + base_))
                throw std::runtime_error(q.lastError().text().toStdString());
        }
        Abre(nombre_, base_);
    }
    ~Postgres() override {
        QSqlDatabase::database(nombre_, false).close();
        QSqlDatabase::removeDatabase(nombre_);
        {
            QSqlQuery q(QSqlDatabase::database(nombreAdmin_));
            q.exec("DROP DATABASE IF EXISTS " + base_ + " WITH (FORCE)");
        }
        QSqlDatabase::database(nombreAdmin_, false).close();
        QSqlDatabase::removeDatabase(nombreAdmin_);
    }
    void Ejecuta(const QString& sql) override { EjecutaEn(nombre_, sql); }
    QString Cadena() const override { return admin_ + " dbname=" + base_; }
    QString NombreEscritura() const override { return nombre_; }
    bool EsPostgres() const override { return true; }

private:
    QSqlDatabase Abre(const QString& nombre, const QString& base) {
        QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", nombre);
        // CONSULTAS_PG_ADMIN is a keyword string: host=... port=... user=...
        QStringList opciones;
        for (const QString& par : admin_.split(' ', Qt::SkipEmptyParts)) {
            const int igual = par.indexOf('=');
            const QString k = par.left(igual), v = par.mid(igual + 1);
            if (k == "host")
                db.setHostName(v);
            else if (k == "port")
                db.setPort(v.toInt());
            else if (k == "user")
                db.setUserName(v);
            else if (k == "password")
                db.setPassword(v);
        }
        db.setDatabaseName(base);
        if (!db.open())
            throw std::runtime_error(db.lastError().text().toStdString());
        QSqlQuery q(db);
        q.exec("SET client_min_messages TO WARNING");
        return db;
    }
    QString admin_;
    QString base_;
    QString nombre_;
    QString nombreAdmin_;
};

} // namespace

std::unique_ptr<BaseDePrueba> NuevaSqlite() {
    return std::make_unique<Sqlite>();
}

bool HayPostgres() {
    return !qEnvironmentVariableIsEmpty("CONSULTAS_PG_ADMIN");
}

std::unique_ptr<BaseDePrueba> NuevaPostgres() {
    if (!HayPostgres())
        return nullptr;
    return std::make_unique<Postgres>(qEnvironmentVariable("CONSULTAS_PG_ADMIN"));
}

QStringList Motores() {
    QStringList m{"sqlite"};
    if (HayPostgres())
        m << "postgres";
    return m;
}

std::unique_ptr<BaseDePrueba> NuevaBase(const QString& motor) {
    return motor == "postgres" ? NuevaPostgres() : NuevaSqlite();
}

QString ProgramaConsultas() {
#ifdef CONSULTAS_BIN
    return QStringLiteral(CONSULTAS_BIN);
#else
    return "consultas";
#endif
}

} // namespace pruebas
