#include "core/Conexion.h"

#include <QElapsedTimer>
#include <QFile>
#include <QMutex>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <atomic>

namespace consultas {

// ---------------------------------------------------------------- Valor

QString Valor::Texto() const {
    if (EsNulo())
        return QString();
    switch (v_.metaType().id()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(v_.toDouble(), 'g', 15);
    case QMetaType::QDate:
        return v_.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return v_.toDateTime().toString("yyyy-MM-dd HH:mm:ss");
    default:
        break;
    }
    if (v_.metaType() == QMetaType::fromType<Moneda>())
        return QString::number(v_.value<Moneda>().ADoble(), 'g', 15);
    return v_.toString();
}

double Valor::Doble() const {
    if (EsNulo())
        return 0.0;
    if (v_.metaType() == QMetaType::fromType<Moneda>())
        return v_.value<Moneda>().ADoble();
    if (v_.metaType().id() == QMetaType::QString) {
        QString t = v_.toString().trimmed();
        t.remove(',');
        return t.toDouble();
    }
    return v_.toDouble();
}

qint64 Valor::Entero() const {
    if (EsNulo())
        return 0;
    switch (v_.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::Bool:
        return v_.toLongLong();
    default:
        break;
    }
    return static_cast<qint64>(std::llround(Doble()));
}

Moneda Valor::Dinero() const {
    if (EsNulo())
        return Moneda();
    if (v_.metaType() == QMetaType::fromType<Moneda>())
        return v_.value<Moneda>();
    switch (v_.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Short:
        return Moneda::DeDiezmilesimos(v_.toLongLong() * 10000);
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return Moneda::DeTexto(v_.toString());
    default:
        return Moneda::DeDoble(v_.toDouble());
    }
}

QDate Valor::Fecha() const {
    if (EsNulo())
        return QDate();
    if (v_.metaType().id() == QMetaType::QDate)
        return v_.toDate();
    if (v_.metaType().id() == QMetaType::QDateTime)
        return v_.toDateTime().date();
    return FechaHora().date();
}

QDateTime Valor::FechaHora() const {
    if (EsNulo())
        return QDateTime();
    if (v_.metaType().id() == QMetaType::QDateTime)
        return v_.toDateTime();
    if (v_.metaType().id() == QMetaType::QDate)
        return QDateTime(v_.toDate(), QTime(0, 0));
    const QString t = v_.toString().trimmed();
    if (t.size() >= 10) {
        const QDate d = QDate::fromString(t.left(10), Qt::ISODate);
        if (d.isValid()) {
            QTime h(0, 0);
            if (t.size() > 10) {
                QString resto = t.mid(11);
                h = QTime::fromString(resto.left(8), "HH:mm:ss");
                if (!h.isValid())
                    h = QTime::fromString(resto.left(5), "HH:mm");
                if (!h.isValid())
                    h = QTime(0, 0);
            }
            return QDateTime(d, h);
        }
        const QDate dm = QDate::fromString(t.left(10), "dd/MM/yyyy");
        if (dm.isValid())
            return QDateTime(dm, QTime(0, 0));
    }
    return QDateTime();
}

bool Valor::Logico() const {
    if (EsNulo())
        return false;
    if (v_.metaType().id() == QMetaType::QString) {
        const QString t = v_.toString().trimmed().toLower();
        return !(t.isEmpty() || t == "0" || t == "false" || t == "f" || t == "no");
    }
    return Doble() != 0.0;
}

// ---------------------------------------------------------------- bitácora

namespace {

QMutex bitacoraMutex;
QString& RutaBitacora() {
    static QString ruta = qEnvironmentVariable("CONSULTAS_BITACORA");
    return ruta;
}

// The log stays open from one statement to the next: a report that sends a
// statement per document would otherwise open and close it tens of thousands
// of times, and that time would show in the run as time outside the engine.
QFile& ArchivoBitacora() {
    static QFile archivo;
    return archivo;
}

// One line per statement: milliseconds to execute, milliseconds spent
// fetching its rows, rows fetched (-1 when it failed), the statement. Each
// line is flushed as it is written, so the log can be followed during a run.
void AnotaEnBitacora(const QString& sql, double msEjecucion, double msLectura, qint64 filas) {
    QMutexLocker candado(&bitacoraMutex);
    const QString& ruta = RutaBitacora();
    if (ruta.isEmpty())
        return;
    QFile& f = ArchivoBitacora();
    if (f.isOpen() && f.fileName() != ruta)
        f.close();
    if (!f.isOpen()) {
        f.setFileName(ruta);
        if (!f.open(QIODevice::Append | QIODevice::Text))
            return;
    }
    QString linea = QString("%1\t%2\t%3\t%4\n")
                        .arg(msEjecucion, 0, 'f', 3)
                        .arg(msLectura, 0, 'f', 3)
                        .arg(filas)
                        .arg(QString(sql).replace('\n', ' ').replace('\r', ' '));
    // A failed write closes the file; the next line tries to open it again.
    if (f.write(linea.toUtf8()) < 0 || !f.flush())
        f.close();
}

bool EsNumerico(const QVariant& v) {
    switch (v.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Bool:
        return true;
    default:
        return v.metaType() == QMetaType::fromType<Moneda>();
    }
}

double ComoDoble(const QVariant& v) {
    if (v.metaType() == QMetaType::fromType<Moneda>())
        return v.value<Moneda>().ADoble();
    return v.toDouble();
}

int Compara(const QVariant& a, const QVariant& b) {
    const bool na = a.isNull() || !a.isValid();
    const bool nb = b.isNull() || !b.isValid();
    if (na || nb)
        return na == nb ? 0 : (na ? -1 : 1);
    if (a.metaType() == QMetaType::fromType<Moneda>() && b.metaType() == a.metaType()) {
        const Moneda x = a.value<Moneda>(), y = b.value<Moneda>();
        return x < y ? -1 : (y < x ? 1 : 0);
    }
    if (EsNumerico(a) && EsNumerico(b)) {
        const double x = ComoDoble(a), y = ComoDoble(b);
        return x < y ? -1 : (y < x ? 1 : 0);
    }
    const int ta = a.metaType().id(), tb = b.metaType().id();
    if ((ta == QMetaType::QDate || ta == QMetaType::QDateTime) &&
        (tb == QMetaType::QDate || tb == QMetaType::QDateTime)) {
        const QDateTime x = Valor(a).FechaHora(), y = Valor(b).FechaHora();
        return x < y ? -1 : (y < x ? 1 : 0);
    }
    const int c = QString::compare(Valor(a).Texto(), Valor(b).Texto(), Qt::CaseInsensitive);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

QVariant Convierte(const CampoDef& campo, const QVariant& valor) {
    if (valor.isNull() || !valor.isValid())
        return QVariant();
    const Valor v(valor);
    switch (campo.tipo) {
    case TipoCampo::Texto: {
        QString t = v.Texto();
        if (campo.tamano > 0 && t.size() > campo.tamano)
            t.truncate(campo.tamano);
        return t;
    }
    case TipoCampo::Moneda: {
        if (valor.metaType().id() == QMetaType::QString) {
            bool ok = false;
            const Moneda m = Moneda::DeTexto(valor.toString(), &ok);
            if (!ok)
                throw ErrorConsulta(QString("Valor no válido para el campo %1: %2")
                                        .arg(campo.nombre, valor.toString()));
            return QVariant::fromValue(m);
        }
        return QVariant::fromValue(v.Dinero());
    }
    case TipoCampo::Fecha: {
        const QDate d = v.Fecha();
        if (!d.isValid())
            throw ErrorConsulta(
                QString("Valor no válido para el campo %1: %2").arg(campo.nombre, v.Texto()));
        return d;
    }
    case TipoCampo::Doble:
        return v.Doble();
    case TipoCampo::Entero:
        return v.Entero();
    }
    return valor;
}

} // namespace

// ---------------------------------------------------------------- Recordset

Recordset::Recordset(std::vector<CampoDef> campos) : campos_(std::move(campos)) {
    for (const CampoDef& c : campos_) {
        nombres_.push_back(c.nombre);
        clavesMayus_.push_back(c.nombre.toUpper());
    }
}

Recordset::Recordset(std::unique_ptr<QSqlQuery> consulta, QString sql)
    : consulta_(std::move(consulta)), sql_(std::move(sql)), enMemoria_(false),
      anotar_(!Conexion::Bitacora().isEmpty()) {
    const QSqlRecord r = consulta_->record();
    for (int i = 0; i < r.count(); ++i) {
        const QSqlField f = r.field(i);
        CampoDef c;
        c.nombre = f.name();
        switch (f.metaType().id()) {
        case QMetaType::Double:
        case QMetaType::Float:
            c.tipo = TipoCampo::Doble;
            break;
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::Short:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
            c.tipo = TipoCampo::Entero;
            break;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            c.tipo = TipoCampo::Fecha;
            break;
        default:
            c.tipo = TipoCampo::Texto;
        }
        campos_.push_back(c);
        nombres_.push_back(c.nombre);
        clavesMayus_.push_back(c.nombre.toUpper());
    }
    LeeFilaConsulta();
}

Recordset::~Recordset() {
    Cierra();
}

void Recordset::LeeFilaConsulta() {
    // The row is copied out so that field reads do not go back to the driver.
    // The time spent in the driver is the engine's share of the walk, which
    // the statement log reports.
    const bool medir = anotar_;
    QElapsedTimer reloj;
    if (medir)
        reloj.start();
    if (!consulta_->next()) {
        finConsulta_ = true;
        filaConsulta_.clear();
        if (medir)
            nsLectura_ += reloj.nsecsElapsed();
        return;
    }
    const size_t n = nombres_.size();
    filaConsulta_.resize(n);
    for (size_t i = 0; i < n; ++i)
        filaConsulta_[i] = consulta_->value(static_cast<int>(i));
    ++filasLeidas_;
    if (medir)
        nsLectura_ += reloj.nsecsElapsed();
}

bool Recordset::Eof() const {
    if (enMemoria_)
        return actual_ >= filas_.size();
    return finConsulta_;
}

bool Recordset::Vacio() const {
    if (enMemoria_)
        return filas_.empty();
    return finConsulta_ && actual_ == 0;
}

void Recordset::MoveNext() {
    if (Eof())
        throw ErrorConsulta("No hay registro actual: el recordset está al final.", sql_);
    ++actual_;
    if (!enMemoria_)
        LeeFilaConsulta();
}

void Recordset::Materializa() {
    if (enMemoria_)
        return;
    const size_t posicion = actual_;
    if (posicion > 0) {
        // Rows already walked past are gone from a forward cursor; the
        // statement is read again, which sees the same data on a read-only
        // connection.
        if (!consulta_->exec(sql_))
            throw ErrorConsulta(consulta_->lastError().text(), sql_);
        finConsulta_ = false;
        LeeFilaConsulta();
    }
    filas_.clear();
    while (!finConsulta_) {
        filas_.push_back(filaConsulta_);
        LeeFilaConsulta();
    }
    consulta_.reset();
    enMemoria_ = true;
    actual_ = std::min(posicion, filas_.size());
}

void Recordset::MoveFirst() {
    if (!enMemoria_ && actual_ == 0)
        return;
    Materializa();
    actual_ = 0;
}

int Recordset::RecordCount() {
    Materializa();
    return static_cast<int>(filas_.size());
}

int Recordset::Indice(const QString& nombre) const {
    const QString clave = nombre.toUpper();
    for (size_t i = 0; i < clavesMayus_.size(); ++i)
        if (clavesMayus_[i] == clave)
            return static_cast<int>(i);
    return -1;
}

Valor Recordset::Campo(int i) const {
    if (i < 0 || i >= CuentaCampos())
        throw ErrorConsulta(QString("Campo %1 fuera de rango.").arg(i), sql_);
    if (Eof())
        throw ErrorConsulta("No hay registro actual: el recordset está al final.", sql_);
    if (enMemoria_)
        return Valor(filas_[actual_][static_cast<size_t>(i)]);
    return Valor(filaConsulta_[static_cast<size_t>(i)]);
}

Valor Recordset::Campo(const QString& nombre) const {
    const int i = Indice(nombre);
    if (i < 0)
        throw ErrorConsulta(QString("No se encontró el campo '%1'.").arg(nombre), sql_);
    return Campo(i);
}

void Recordset::AgregaNuevo() {
    Materializa();
    filas_.emplace_back(nombres_.size());
    actual_ = filas_.size() - 1;
}

void Recordset::Fija(const QString& nombre, const QVariant& valor) {
    const int i = Indice(nombre);
    if (i < 0)
        throw ErrorConsulta(QString("No se encontró el campo '%1'.").arg(nombre), sql_);
    if (!enMemoria_ || actual_ >= filas_.size())
        throw ErrorConsulta("No hay registro actual para escribir.", sql_);
    filas_[actual_][static_cast<size_t>(i)] = Convierte(campos_[static_cast<size_t>(i)], valor);
}

void Recordset::Ordena(const QString& claves) {
    Materializa();
    struct Clave {
        int indice;
        bool descendente;
    };
    std::vector<Clave> lista;
    for (const QString& parte : claves.split(',', Qt::SkipEmptyParts)) {
        const QStringList palabras = parte.simplified().split(' ');
        if (palabras.isEmpty() || palabras[0].isEmpty())
            continue;
        const int i = Indice(palabras[0]);
        if (i < 0)
            throw ErrorConsulta(
                QString("No se encontró el campo '%1' para ordenar.").arg(palabras[0]), sql_);
        const bool desc =
            palabras.size() > 1 && palabras[1].compare("DESC", Qt::CaseInsensitive) == 0;
        lista.push_back({i, desc});
    }
    std::stable_sort(filas_.begin(), filas_.end(),
                     [&](const std::vector<QVariant>& a, const std::vector<QVariant>& b) {
                         for (const Clave& k : lista) {
                             const size_t i = static_cast<size_t>(k.indice);
                             int c = Compara(a[i], b[i]);
                             if (k.descendente)
                                 c = -c;
                             if (c != 0)
                                 return c < 0;
                         }
                         return false;
                     });
    actual_ = 0;
}

void Recordset::Cierra() {
    if (anotar_ && !anotado_) {
        anotado_ = true;
        AnotaEnBitacora(sql_, msEjecucion_, static_cast<double>(nsLectura_) / 1e6, filasLeidas_);
    }
    consulta_.reset();
    filas_.clear();
    filaConsulta_.clear();
    enMemoria_ = true;
    actual_ = 0;
}

// ---------------------------------------------------------------- Dialecto

QString Dialecto::FechaSQL(const QDate& fecha, int manejador) {
    switch (manejador) {
    case 2:
        return "#" + fecha.toString("yyyy/MM/dd") + "#";
    case 3:
        return "'" + fecha.toString("yyyyMMdd") + "'";
    default:
        return "'" + fecha.toString("yyyy-MM-dd") + "'";
    }
}

QString Dialecto::FuncionLong(int manejador) {
    return manejador <= 2 ? "LEN" : "LENGTH";
}

QString Dialecto::FechaMasDias(const QString& fecha, const QString& dias, int manejador,
                               Motor motor) {
    if (motor == Motor::SQLite)
        return "date(" + fecha + ",'+'||" + dias + "||' days')";
    if (manejador == 3)
        return "(CAST(" + fecha + " AS DATETIME)+" + dias + ")";
    return "(" + fecha + "+" + dias + ")";
}

// ---------------------------------------------------------------- Conexion

namespace {

std::atomic<int> contadorConexiones{0};

// Splits "a=1 b='x y'" into pairs, honouring single quotes and backslashes
// as libpq does.
QList<QPair<QString, QString>> ParesClave(const QString& cadena) {
    QList<QPair<QString, QString>> pares;
    int i = 0;
    const int n = cadena.size();
    while (i < n) {
        while (i < n && cadena[i].isSpace())
            ++i;
        int ini = i;
        while (i < n && cadena[i] != '=' && !cadena[i].isSpace())
            ++i;
        const QString clave = cadena.mid(ini, i - ini);
        while (i < n && cadena[i].isSpace())
            ++i;
        if (i >= n || cadena[i] != '=') {
            if (!clave.isEmpty())
                pares.append({clave, QString()});
            continue;
        }
        ++i;
        while (i < n && cadena[i].isSpace())
            ++i;
        QString valor;
        if (i < n && cadena[i] == '\'') {
            ++i;
            while (i < n && cadena[i] != '\'') {
                if (cadena[i] == '\\' && i + 1 < n)
                    ++i;
                valor += cadena[i++];
            }
            ++i;
        } else {
            while (i < n && !cadena[i].isSpace())
                valor += cadena[i++];
        }
        if (!clave.isEmpty())
            pares.append({clave, valor});
    }
    return pares;
}

} // namespace

Conexion::Conexion() : nombre_(QString("consultas_%1").arg(contadorConexiones.fetch_add(1))) {}

Conexion::~Conexion() {
    Cerrar();
}

QString Conexion::RutaSqlite(const QString& cadena) {
    const QString c = cadena.trimmed();
    return c.startsWith("sqlite:", Qt::CaseInsensitive) ? c.mid(7) : c;
}

bool Conexion::ConfiguraPostgres(QSqlDatabase& db, const QString& cadena, QStringList* opciones,
                                 QString* error) {
    const QString c = cadena.trimmed();
    if (c.startsWith("postgres", Qt::CaseInsensitive) && c.contains("://")) {
        const QUrl url(c);
        if (!url.isValid() || url.path().size() < 2) {
            if (error)
                *error = "La dirección de PostgreSQL no es válida.";
            return false;
        }
        db.setHostName(url.host());
        if (url.port() > 0)
            db.setPort(url.port());
        db.setDatabaseName(url.path().mid(1));
        db.setUserName(url.userName());
        db.setPassword(url.password());
        for (const auto& par : QUrlQuery(url).queryItems(QUrl::FullyDecoded))
            *opciones << par.first + "=" + par.second;
        return true;
    }
    const auto pares = ParesClave(c);
    if (pares.isEmpty()) {
        if (error)
            *error = "La cadena de PostgreSQL no tiene la forma clave=valor ni postgresql://.";
        return false;
    }
    for (const auto& par : pares) {
        const QString k = par.first.toLower();
        if (k == "host" || k == "hostaddr")
            db.setHostName(par.second);
        else if (k == "port")
            db.setPort(par.second.toInt());
        else if (k == "dbname")
            db.setDatabaseName(par.second);
        else if (k == "user")
            db.setUserName(par.second);
        else if (k == "password")
            db.setPassword(par.second);
        else
            *opciones << par.first + "=" + par.second;
    }
    return true;
}

Motor Conexion::MotorDeCadena(const QString& cadena) {
    const QString c = cadena.trimmed();
    if (c.isEmpty())
        return Motor::Ninguno;
    if (c.startsWith("postgresql://", Qt::CaseInsensitive) ||
        c.startsWith("postgres://", Qt::CaseInsensitive))
        return Motor::PostgreSQL;
    if (c.startsWith("sqlite:", Qt::CaseInsensitive))
        return Motor::SQLite;
    if (c.contains("DRIVER=", Qt::CaseInsensitive) || c.contains("DSN=", Qt::CaseInsensitive))
        return Motor::ODBC;
    if (c.contains('=')) {
        for (const auto& par : ParesClave(c)) {
            const QString k = par.first.toLower();
            if (k == "dbname" || k == "host" || k == "hostaddr" || k == "service")
                return Motor::PostgreSQL;
        }
        return Motor::Ninguno;
    }
    return Motor::SQLite;
}

bool Conexion::Abrir(const QString& cadena) {
    Cerrar();
    ultimoError_.clear();
    const Motor motor = MotorDeCadena(cadena);
    const QString c = cadena.trimmed();
    QSqlDatabase db;
    switch (motor) {
    case Motor::Ninguno:
        ultimoError_ = "La cadena de conexión no tiene una forma conocida.";
        return false;
    case Motor::SQLite: {
        const QString ruta = RutaSqlite(c);
        db = QSqlDatabase::addDatabase("QSQLITE", nombre_);
        db.setDatabaseName(ruta);
        // Read-only open: a missing file fails here instead of being created.
        db.setConnectOptions("QSQLITE_OPEN_READONLY");
        break;
    }
    case Motor::PostgreSQL: {
        db = QSqlDatabase::addDatabase("QPSQL", nombre_);
        QStringList opciones;
        if (!ConfiguraPostgres(db, c, &opciones, &ultimoError_)) {
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(nombre_);
            return false;
        }
        // Every transaction of this session is read-only on the server too.
        opciones << "options=-cdefault_transaction_read_only=on";
        db.setConnectOptions(opciones.join(';'));
        break;
    }
    case Motor::ODBC:
        db = QSqlDatabase::addDatabase("QODBC", nombre_);
        db.setDatabaseName(c);
        db.setConnectOptions("SQL_ATTR_ACCESS_MODE=SQL_MODE_READ_ONLY");
        break;
    }
    if (!db.isValid()) {
        ultimoError_ = "El controlador de la base de datos no está disponible.";
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre_);
        return false;
    }
    if (!db.open()) {
        ultimoError_ = db.lastError().text();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre_);
        return false;
    }
    if (motor == Motor::SQLite) {
        // A read-only open of a file that is not a database succeeds until the
        // first read; make the first read now so the open means something.
        QSqlQuery prueba(db);
        if (!prueba.exec("SELECT count(*) FROM sqlite_master")) {
            ultimoError_ = prueba.lastError().text();
            prueba = QSqlQuery();
            db.close();
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(nombre_);
            return false;
        }
    }
    motor_ = motor;
    return true;
}

void Conexion::Cerrar() {
    // Touch Qt SQL's registry only when this object registered a connection:
    // a connection that never opened may be destroyed after the registry is.
    if (motor_ == Motor::Ninguno)
        return;
    {
        QSqlDatabase db = QSqlDatabase::database(nombre_, false);
        if (db.isValid())
            db.close();
    }
    QSqlDatabase::removeDatabase(nombre_);
    motor_ = Motor::Ninguno;
}

bool Conexion::EstaAbierta() const {
    if (motor_ == Motor::Ninguno)
        return false;
    return QSqlDatabase::database(nombre_, false).isOpen();
}

bool Conexion::EsSoloLectura(const QString& sql) {
    // Skip blanks, comments and opening parentheses, then demand SELECT.
    int i = 0;
    const int n = sql.size();
    for (;;) {
        while (i < n && (sql[i].isSpace() || sql[i] == '('))
            ++i;
        if (sql.mid(i, 2) == "--") {
            while (i < n && sql[i] != '\n')
                ++i;
            continue;
        }
        if (sql.mid(i, 2) == "/*") {
            const int fin = sql.indexOf("*/", i + 2);
            if (fin < 0)
                return false;
            i = fin + 2;
            continue;
        }
        break;
    }
    if (sql.mid(i, 6).compare("SELECT", Qt::CaseInsensitive) != 0 ||
        (i + 6 < n && (sql[i + 6].isLetterOrNumber() || sql[i + 6] == '_')))
        return false;
    // Outside quotes: one statement only, and no SELECT ... INTO, which makes
    // a table on some engines.
    QChar comilla;
    QString palabra;
    bool terminado = false;
    auto cierraPalabra = [&]() {
        const bool into = palabra.compare("INTO", Qt::CaseInsensitive) == 0;
        palabra.clear();
        return into;
    };
    for (; i < n; ++i) {
        const QChar ch = sql[i];
        if (!comilla.isNull()) {
            if (ch == comilla)
                comilla = QChar();
            continue;
        }
        if (terminado) {
            if (!ch.isSpace() && ch != ';')
                return false;
            continue;
        }
        if (ch == '\'' || ch == '"' || ch == '`') {
            if (cierraPalabra())
                return false;
            comilla = ch;
        } else if (ch == '[') {
            if (cierraPalabra())
                return false;
            comilla = ']';
        } else if (ch.isLetterOrNumber() || ch == '_') {
            palabra += ch;
        } else {
            if (cierraPalabra())
                return false;
            if (ch == ';')
                terminado = true;
        }
    }
    return !cierraPalabra() && comilla.isNull();
}

RecordsetPtr Conexion::Abre(const QString& sql) {
    if (!EsSoloLectura(sql))
        throw ErrorConsulta("Sólo se permiten consultas SELECT: la instrucción fue rechazada.",
                            sql);
    if (!EstaAbierta())
        throw ErrorConsulta("La conexión a la base de datos no está abierta.", sql);
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    auto consulta = std::make_unique<QSqlQuery>(db);
    // Reports open lookups in the middle of a walk. The PostgreSQL driver
    // streams a forward-only result row by row and loses it when a second
    // statement is sent, so there the whole result is taken at once.
    consulta->setForwardOnly(motor_ != Motor::PostgreSQL);
    consulta->setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    QElapsedTimer reloj;
    reloj.start();
    if (!consulta->exec(sql)) {
        const QString mensaje = consulta->lastError().text();
        AnotaEnBitacora(sql, static_cast<double>(reloj.nsecsElapsed()) / 1e6, 0, -1);
        throw ErrorConsulta(mensaje, sql);
    }
    RecordsetPtr rs(new Recordset(std::move(consulta), sql));
    rs->msEjecucion_ = static_cast<double>(reloj.nsecsElapsed()) / 1e6;
    return rs;
}

void Conexion::FijaBitacora(const QString& ruta) {
    QMutexLocker candado(&bitacoraMutex);
    RutaBitacora() = ruta;
    // The log set aside is complete on disk once this returns.
    if (ArchivoBitacora().isOpen() && ArchivoBitacora().fileName() != ruta)
        ArchivoBitacora().close();
}

QString Conexion::Bitacora() {
    QMutexLocker candado(&bitacoraMutex);
    return RutaBitacora();
}

} // namespace consultas
