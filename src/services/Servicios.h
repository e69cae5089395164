#pragma once
// The suite's outside services as the screens and reports see them: message
// dialogs, catalogue, document and article pickers, and the spreadsheet
// exporter. Only QtCore types appear here, so report procedures can include
// this header without pulling in Qt Widgets; the windows live in the *Qt
// sources of this folder.
//
// Each service is created for one call (or one Mostrar/Resultado pair) and
// released at once, through the factories at the end of this header. Hosts
// and tests replace the factories: batch runs answer without windows, tests
// script the answers and read back the calls.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace consultas {

class Recordset;

// Answers of Pregunta.
constexpr int RespuestaSi = 6;
constexpr int RespuestaNo = 7;

// Stored messages that the library asks for by number.
constexpr int MensajeSalirVistaPrevia = 129;
constexpr int MensajePaginaGrabada = 130;

// Modal message, question and text-entry dialogs, and the display of a
// run-time failure. The zero arguments are fixed by the suite's calling
// convention and are not read.
class clsMensajes {
public:
    virtual ~clsMensajes() = default;
    // Number 0 shows the text alone; a number above 0 shows that stored
    // message with the text added after it.
    virtual void Mensaje(int numero, int, const QString& texto, int) = 0;
    // A yes or no question worded as Mensaje; RespuestaSi (6) is yes, any
    // other answer is no.
    virtual int Pregunta(int numero, int, const QString& texto, int, int) = 0;
    // A line of text typed by the user; empty when cancelled.
    virtual QString PideTexto(int, int, const QString& indicacion, int, int, int) = 0;
    virtual void MuestraError(qint64 numero, const QString& descripcion, int) = 0;
};

// The text a message shows: the stored message of the number (none for 0)
// followed by the added text. An unknown number shows its number, so a
// missing text is noticed rather than silently dropped.
QString TextoMensaje(int numero, const QString& texto);

// Catalogue picker. Catalogues: "PROVEEDORES", "CCOSTOS", "CONPRESUPUESTOS".
class clsBusqueda {
public:
    virtual ~clsBusqueda() = default;
    // Opens its own connection from the connection string and shows the
    // search window modally, with the filter box holding `filtro`.
    virtual void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda,
                         const QString& directorio, const QString& catalogo, const QString& filtro,
                         int) = 0;
    // The chosen code as text; empty when the user cancelled.
    virtual QString Resultado() const = 0;
};

// Document kinds of the document picker.
enum TipoDocumento : int {
    DocRequisicion = 20,
    DocCotizacion = 23,
    DocOrdenCompra = 24,
    DocRecepcion = 29,
    DocDevolucion = 30,
    DocCuentasPorPagar = 34,
};

// Document picker over the documents of one kind; the result is the folio.
class clsBuscaDocumento {
public:
    virtual ~clsBuscaDocumento() = default;
    virtual void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda,
                         const QString& directorio, int modulo, int tipoDocumento, const QString&,
                         const QString&, bool bandera, const QString&, const QString&) = 0;
    virtual QString Resultado() const = 0;
};

// Article picker; the result is the article code. `verColumnaExtra` (the
// VER_COLEX setting) adds the column of the article's units.
class clsBuscaArticulo {
public:
    virtual ~clsBuscaArticulo() = default;
    virtual void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda,
                         int modo, const QString& texto, const QString& rutaBaseDeDatos,
                         bool verColumnaExtra) = 0;
    virtual QString Resultado() const = 0;
};

// How numbers are written to the spreadsheet: "#,##0.00" by default,
// "#,##0.0000" with four places, or four places only for the columns whose
// values carry more than two decimals.
enum class DecimalesExcel { Dos, Cuatro, Automatico };

// Delivers a finished recordset as a spreadsheet.
class clsExportaExcel {
public:
    virtual ~clsExportaExcel() = default;
    // Writes the recordset as it stands (from its first row) to
    // `nombre` + ".xlsx" and returns the number of rows written. The file
    // goes to the host's spreadsheet folder when one is set, else to
    // rutaBaseDeDatos + "/Temp". A file failure throws ErrorConsulta.
    virtual int Exporta(Recordset& rs, const QString& nombre, const QString& rutaBaseDeDatos) = 0;

    // Number format of currency and double fields, for all of them or for
    // one field by name. Set before Exporta.
    void FijaDecimales(DecimalesExcel d) { decimales_ = d; }
    void FijaDecimales(const QString& campo, DecimalesExcel d) { porCampo_[campo.toUpper()] = d; }
    DecimalesExcel Decimales(const QString& campo) const {
        return porCampo_.value(campo.toUpper(), decimales_);
    }

private:
    DecimalesExcel decimales_ = DecimalesExcel::Dos;
    QHash<QString, DecimalesExcel> porCampo_;
};

namespace servicios {

// ------------------------------------------------------------- factories

struct Fabricas {
    std::function<std::unique_ptr<clsMensajes>()> mensajes;
    std::function<std::unique_ptr<clsBusqueda>()> busqueda;
    std::function<std::unique_ptr<clsBuscaDocumento>()> buscaDocumento;
    std::function<std::unique_ptr<clsBuscaArticulo>()> buscaArticulo;
    std::function<std::unique_ptr<clsExportaExcel>()> exportaExcel;
};

// What the screens call. Each returns a fresh instance from the installed
// factory; the Qt windows unless a host or a test installed others.
std::unique_ptr<clsMensajes> CreaMensajes();
std::unique_ptr<clsBusqueda> CreaBusqueda();
std::unique_ptr<clsBuscaDocumento> CreaBuscaDocumento();
std::unique_ptr<clsBuscaArticulo> CreaBuscaArticulo();
std::unique_ptr<clsExportaExcel> CreaExportaExcel();

// Installs a set of factories and returns the set it replaces. A factory
// left empty keeps the one installed before.
Fabricas Instala(Fabricas nuevas);
// The interactive set: Qt dialogs, and spreadsheets opened with the
// desktop's program after they are written.
Fabricas FabricasQt();

// Folder the spreadsheets are written to instead of RutaBaseDeDatos/Temp;
// empty restores the default. Set by the host (--xlsx).
void FijaCarpetaExcel(const QString& carpeta);
QString CarpetaExcel();
// Full path of a spreadsheet by the rule above.
QString RutaExcel(const QString& nombre, const QString& rutaBaseDeDatos);

// Writes a recordset to an .xlsx file: one sheet, a bold header row of the
// field names, typed cells, columns fitted to their contents. Returns the
// rows written; throws ErrorConsulta when the file cannot be written.
int EscribeXlsx(Recordset& rs, const QString& archivo, const clsExportaExcel& opciones);

// ------------------------------------------------------- scripted services

// One call made to a scripted service.
struct LlamadaServicio {
    QString servicio;  // "clsMensajes", "clsBusqueda", ...
    QString operacion; // "Mensaje", "Pregunta", "Mostrar", "Exporta", ...
    int numero = 0;    // message or error number, document kind
    QString texto;     // message text shown, catalogue, file written
    QVariant resultado;
};

// The answers and the record shared by the scripted services of a run. The
// services are created per call, so they all point at one script.
class GuionServicios {
public:
    // Answers, taken in order; when a queue runs dry a question is answered
    // no, a text entry is cancelled and a picker is cancelled.
    std::deque<int> respuestasPregunta;
    std::deque<QString> respuestasTexto;
    std::deque<QString> resultadosBusqueda; // all three pickers, in call order

    // Every call, in order.
    std::vector<LlamadaServicio> llamadas;

    // Messages and errors also go to standard error (batch runs).
    bool ecoEnStderr = false;
    // Exporta writes the file (to CarpetaExcel() or the Temp folder); off,
    // it only records the call.
    bool escribeExcel = false;

    int Cuenta(const QString& operacion) const;
    // The calls of one operation, in order.
    std::vector<LlamadaServicio> De(const QString& operacion) const;
};

// Services that follow a script and never show a window.
Fabricas FabricasGuionadas(std::shared_ptr<GuionServicios> guion);
// The batch set: messages to standard error and recorded, questions answered
// no, pickers empty, spreadsheets written but never opened.
Fabricas FabricasLote(std::shared_ptr<GuionServicios> guion);

// Installs a set for the life of a scope and puts the previous one back.
class ServiciosInstalados {
public:
    explicit ServiciosInstalados(Fabricas f) : anteriores_(Instala(std::move(f))) {}
    ~ServiciosInstalados() { Instala(anteriores_); }
    ServiciosInstalados(const ServiciosInstalados&) = delete;
    ServiciosInstalados& operator=(const ServiciosInstalados&) = delete;

private:
    Fabricas anteriores_;
};

} // namespace servicios
} // namespace consultas
