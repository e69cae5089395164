#pragma once
// The interactive services: Qt dialogs with the look of the inquiry screens,
// and the exporter that opens the finished spreadsheet with the desktop's
// program. Screens reach them through servicios::Crea*; only this folder and
// its tests include this header.

#include "services/ListasBusqueda.h"
#include "services/Servicios.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QStandardItemModel;
class QTableView;

namespace consultas {

class FiltroBusqueda;

// Colours of the inquiry screens: panels and buttons.
QColor ColorPanel();
QColor ColorBoton();
// Gives a dialog the screens' panel and button colours.
void AplicaColores(QWidget* w);

// The search window shared by the three pickers: a filter box over a table
// whose first column is the code. Enter or a double click chooses the
// current row (the first one shown when none is current); Esc cancels.
class frmBusqueda : public QDialog {
    Q_OBJECT
public:
    frmBusqueda(const ListaBusqueda& lista, const QString& filtro, const QString& ayuda,
                QWidget* padre = nullptr);
    // The chosen code; empty unless the window was accepted.
    QString Codigo() const { return codigo_; }
    // Rows shown through the filter.
    int FilasVisibles() const;

protected:
    void keyPressEvent(QKeyEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void Filtra(const QString& texto);
    void Elige();

    QLineEdit* txtFiltro_;
    QTableView* grdResultados_;
    QLabel* lblCuenta_;
    QStandardItemModel* modelo_;
    FiltroBusqueda* filtro_;
    QString ayuda_;
    QString codigo_;
};

class MensajesQt : public clsMensajes {
public:
    void Mensaje(int numero, int, const QString& texto, int) override;
    int Pregunta(int numero, int, const QString& texto, int, int) override;
    QString PideTexto(int, int, const QString& indicacion, int, int, int) override;
    void MuestraError(qint64 numero, const QString& descripcion, int) override;
};

class BusquedaQt : public clsBusqueda {
public:
    void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda,
                 const QString& directorio, const QString& catalogo, const QString& filtro,
                 int) override;
    QString Resultado() const override { return resultado_; }

private:
    QString resultado_;
};

class BuscaDocumentoQt : public clsBuscaDocumento {
public:
    void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda,
                 const QString& directorio, int modulo, int tipoDocumento, const QString&,
                 const QString&, bool bandera, const QString&, const QString&) override;
    QString Resultado() const override { return resultado_; }

private:
    QString resultado_;
};

class BuscaArticuloQt : public clsBuscaArticulo {
public:
    void Mostrar(const QString& conexion, std::uint8_t motor, const QString& ayuda, int modo,
                 const QString& texto, const QString& rutaBaseDeDatos,
                 bool verColumnaExtra) override;
    QString Resultado() const override { return resultado_; }

private:
    QString resultado_;
};

// Writes the spreadsheet and opens it with the desktop's default program.
class ExportaExcelQt : public clsExportaExcel {
public:
    int Exporta(Recordset& rs, const QString& nombre, const QString& rutaBaseDeDatos) override;
};

} // namespace consultas
