// The .xlsx writer behind clsExportaExcel. The sheet is streamed row by row
// (libxlsxwriter's constant-memory mode), so a long export keeps only one row
// in memory besides the recordset itself.

#include "core/Conexion.h"
#include "core/Formato.h"
#include "services/Servicios.h"

#include <QDir>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>

namespace consultas::servicios {

namespace {

const char* const kDosDecimales = "#,##0.00";
const char* const kCuatroDecimales = "#,##0.0000";
const char* const kFecha = "dd/mm/yyyy";
const char* const kFechaHora = "dd/mm/yyyy hh:mm:ss";

// Excel keeps at most this many characters in a cell.
constexpr int kMaxTextoCelda = 32767;

bool EsNumerico(TipoCampo t) {
    return t == TipoCampo::Moneda || t == TipoCampo::Doble;
}

// True when the value shows more than two decimals once kept to four, as
// currency is.
bool PideCuatroDecimales(const Valor& v) {
    return Moneda::DeDoble(v.Doble()).Diezmilesimos() % 100 != 0;
}

// The sheet takes the file's name where Excel allows it.
QString NombreHoja(const QString& archivo) {
    QString n = QFileInfo(archivo).completeBaseName();
    for (QChar c : QStringLiteral("[]:*?/\\"))
        n.remove(c);
    n = n.trimmed().left(31);
    return n.isEmpty() ? QStringLiteral("Hoja1") : n;
}

class Libro {
public:
    explicit Libro(const QString& archivo) : archivo_(archivo) {
        lxw_workbook_options op{};
        op.constant_memory = LXW_TRUE;
        tmpdir_ = QDir::tempPath().toLocal8Bit();
        op.tmpdir = tmpdir_.data();
        const QByteArray ruta = QFile::encodeName(archivo);
        libro_ = workbook_new_opt(ruta.constData(), &op);
        if (!libro_)
            throw ErrorConsulta(QStringLiteral("No se pudo crear el archivo %1.").arg(archivo));
    }
    ~Libro() {
        if (libro_)
            workbook_close(libro_); // only after a failure: the file is left unfinished
    }
    Libro(const Libro&) = delete;
    Libro& operator=(const Libro&) = delete;

    lxw_workbook* operator->() const { return libro_; }
    lxw_workbook* get() const { return libro_; }

    void Cierra() {
        const lxw_error e = workbook_close(libro_);
        libro_ = nullptr;
        if (e != LXW_NO_ERROR)
            throw ErrorConsulta(QStringLiteral("No se pudo grabar el archivo %1: %2")
                                    .arg(archivo_, QString::fromUtf8(lxw_strerror(e))));
    }

private:
    QString archivo_;
    QByteArray tmpdir_;
    lxw_workbook* libro_ = nullptr;
};

void Verifica(lxw_error e, const QString& archivo) {
    if (e != LXW_NO_ERROR)
        throw ErrorConsulta(QStringLiteral("No se pudo escribir el archivo %1: %2")
                                .arg(archivo, QString::fromUtf8(lxw_strerror(e))));
}

} // namespace

int EscribeXlsx(Recordset& rs, const QString& archivo, const clsExportaExcel& opciones) {
    const QString carpeta = QFileInfo(archivo).absolutePath();
    if (!QDir().mkpath(carpeta))
        throw ErrorConsulta(QStringLiteral("No se pudo crear la carpeta %1.").arg(carpeta));

    const std::vector<CampoDef>& campos = rs.Campos();
    const int n = rs.CuentaCampos();
    const bool tipados = static_cast<int>(campos.size()) == n;
    auto tipo = [&](int c) { return tipados ? campos[size_t(c)].tipo : TipoCampo::Texto; };

    // Which numeric columns take four places: by the caller's choice, or, when
    // left to the values, by a first walk over the rows.
    std::vector<bool> cuatro(size_t(n), false);
    std::vector<bool> revisar(size_t(n), false);
    bool hayQueRevisar = false;
    for (int c = 0; c < n; ++c) {
        if (!EsNumerico(tipo(c)))
            continue;
        const DecimalesExcel d = opciones.Decimales(rs.NombreCampo(c));
        cuatro[size_t(c)] = d == DecimalesExcel::Cuatro;
        revisar[size_t(c)] = d == DecimalesExcel::Automatico;
        hayQueRevisar = hayQueRevisar || revisar[size_t(c)];
    }
    if (hayQueRevisar && !rs.Vacio()) {
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
            for (int c = 0; c < n; ++c)
                if (revisar[size_t(c)] && !cuatro[size_t(c)]) {
                    const Valor v = rs.Campo(c);
                    if (!v.EsNulo() && PideCuatroDecimales(v))
                        cuatro[size_t(c)] = true;
                }
    }

    Libro libro(archivo);
    const QByteArray hoja = NombreHoja(archivo).toUtf8();
    lxw_worksheet* ws = workbook_add_worksheet(libro.get(), hoja.constData());
    if (!ws)
        throw ErrorConsulta(QStringLiteral("No se pudo crear la hoja de %1.").arg(archivo));

    lxw_format* negrita = workbook_add_format(libro.get());
    format_set_bold(negrita);
    lxw_format* dos = workbook_add_format(libro.get());
    format_set_num_format(dos, kDosDecimales);
    lxw_format* cuatroDec = workbook_add_format(libro.get());
    format_set_num_format(cuatroDec, kCuatroDecimales);
    lxw_format* fecha = workbook_add_format(libro.get());
    format_set_num_format(fecha, kFecha);
    lxw_format* fechaHora = workbook_add_format(libro.get());
    format_set_num_format(fechaHora, kFechaHora);

    // Widths in characters, started by the header and widened by the values
    // as they are printed.
    std::vector<int> ancho(size_t(n), 0);
    for (int c = 0; c < n; ++c) {
        const QString nombre = rs.NombreCampo(c);
        ancho[size_t(c)] = int(nombre.size());
        Verifica(worksheet_write_string(ws, 0, lxw_col_t(c), nombre.toUtf8().constData(), negrita),
                 archivo);
    }

    int filas = 0;
    if (!rs.Vacio()) {
        QByteArray utf8;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
            const lxw_row_t fila = lxw_row_t(++filas);
            for (int c = 0; c < n; ++c) {
                const Valor v = rs.Campo(c);
                if (v.EsNulo())
                    continue;
                const lxw_col_t col = lxw_col_t(c);
                int largo = 0;
                lxw_error e = LXW_NO_ERROR;
                switch (tipo(c)) {
                case TipoCampo::Moneda:
                case TipoCampo::Doble: {
                    const bool c4 = cuatro[size_t(c)];
                    const double d = v.Doble();
                    e = worksheet_write_number(ws, fila, col, d, c4 ? cuatroDec : dos);
                    largo = int(Formato(d, c4 ? kCuatroDecimales : kDosDecimales).size());
                    break;
                }
                case TipoCampo::Entero: {
                    const qint64 i = v.Entero();
                    e = worksheet_write_number(ws, fila, col, double(i), nullptr);
                    largo = int(QString::number(i).size());
                    break;
                }
                case TipoCampo::Fecha: {
                    // A time of day is kept when there is one (registration
                    // stamps); plain dates show as dates.
                    const QDateTime f = v.FechaHora();
                    if (!f.isValid())
                        continue;
                    const QTime h = f.time();
                    lxw_datetime dt{f.date().year(), f.date().month(),
                                    f.date().day(),  h.hour(),
                                    h.minute(),      h.second() + h.msec() / 1000.0};
                    const bool conHora = h != QTime(0, 0);
                    e = worksheet_write_datetime(ws, fila, col, &dt, conHora ? fechaHora : fecha);
                    largo = conHora ? 19 : 10;
                    break;
                }
                case TipoCampo::Texto: {
                    const QString t = v.Texto().left(kMaxTextoCelda);
                    if (t.isEmpty())
                        continue;
                    utf8 = t.toUtf8();
                    e = worksheet_write_string(ws, fila, col, utf8.constData(), nullptr);
                    largo = int(t.size());
                    break;
                }
                }
                Verifica(e, archivo);
                ancho[size_t(c)] = std::max(ancho[size_t(c)], largo);
            }
        }
        rs.MoveFirst();
    }

    for (int c = 0; c < n; ++c) {
        const double w = std::clamp(ancho[size_t(c)] + 2.0, 6.0, 80.0);
        Verifica(worksheet_set_column(ws, lxw_col_t(c), lxw_col_t(c), w, nullptr), archivo);
    }
    libro.Cierra();
    return filas;
}

} // namespace consultas::servicios
