#pragma once
// The purchasing inquiries screen: ten inquiries, each of which opens only
// the controls it uses, and "CONSULTAR [F10]" gathers the choices into
// SeleccionCompras and runs the report of the inquiry.

#include "compras/SeleccionCompras.h"
#include "services/PantallaBase.h"

#include <array>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace consultas {

// Combo boxes whose rows carry their codes (Qt::UserRole item data) beside
// the descriptions they show.
//
// Empties the combo and fills it from a statement of COD_TABLA, DES_TABLA;
// the drop-down is widened to `ancho` pixels when above 0. A failure is
// reported through the message service and leaves the rows read so far.
void CargaCombo(QComboBox* combo, const QString& sql, int ancho);
// The code of the row shown; empty when none is, or when the text of an
// editable combo was changed away from its row.
QString CodigoCombo(const QComboBox* combo);
// Shows the row of a code. Not found: an editable combo shows none, a
// drop-down list its first row.
void UbicaCombo(const QString& codigo, QComboBox* combo);

// Trees whose nodes carry their key ("G12", "A3", "C01") as column 0
// Qt::UserRole data.
QString ClaveNodo(const QTreeWidgetItem* nodo);
// Unchecks every checked group other than the one of the key, with its
// children.
void UnGrupoSolo(QTreeWidget* arbol, const QString& clave);
// Mode 0: every node checked. Otherwise: every child of every checked group
// checked.
bool GposCompletos(const QTreeWidget* arbol, int modo);

class frmConCompras : public PantallaBase {
    Q_OBJECT
public:
    explicit frmConCompras(QWidget* padre = nullptr);
    ~frmConCompras() override;

    void Consultar() override { Funcion(0); }
    // The run behind "CONSULTAR [F10]".
    void EjecutarConsulta();

    // The record of the last run.
    const SeleccionCompras& Seleccion() const { return Sel; }
    const ControlesCompras& ControlesCorrida() const { return Pantalla; }

    // Loads one list of the region, tax and type combos, or all of them with
    // kind 0. A code or statement given replaces the default.
    void ListasRegionales(int tipo, QString codigo, const QString& sql);
    void CargaArbolGrupos(QTreeWidget* arbol, const QString& sql);
    void CargaGposProveedor();
    void CargaGposArticulo();
    void CargaAlmacenes(QTreeWidget* arbol, bool soloSucursales);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void CreaControles();
    void Conecta();
    void Funcion(int indice);
    void Busca(int indice);

    void SeleccionaConsulta(int indice);
    void Reinicia();
    void AplicaPanel(int indice);
    void ReglaDocumento(int d);
    void ReglaNivel(int n);
    void ReglaOrden(int k);
    void ReglaGpos(QTreeWidget* arbol, int item, QTreeWidgetItem* nodo);
    void ReglaAlm(QTreeWidgetItem* nodo);

    // Enabling and showing a box together with its caption and picker.
    void HabilitaProveedor(bool si);
    void HabilitaArticulo(bool si);
    void HabilitaFolio(bool si);
    void HabilitaCCos(bool si);
    void HabilitaTipDoc(bool si);
    void HabilitaGpos(int item, bool si);
    void HabilitaAlm(bool si);
    void HabilitaDocumentos(std::initializer_list<int> items);
    void HabilitaOrden(std::initializer_list<int> items);
    void HabilitaEstatus(bool si);
    void HabilitaTNI(bool si);
    void HabilitaNivel(std::initializer_list<int> items);
    void FijaOpcion(QRadioButton* opcion);
    void PintaBotones();

    void LeeControles();
    ReporteCompras Reporte();

public:
    // Controls, under their object names.
    QComboBox* cmbConsulta = nullptr;
    std::array<QDateEdit*, 2> dtpFecha{};
    std::array<QRadioButton*, 3> optDetRes{};
    std::array<QCheckBox*, 3> chkEstatus{};
    std::array<QRadioButton*, 5> optOrden{};
    std::array<QRadioButton*, 6> optDoc{};
    QLineEdit* txtCCos = nullptr;
    QLineEdit* txtCodProv = nullptr;
    QLineEdit* txtArt = nullptr;
    QLineEdit* txtFolio = nullptr;
    std::array<QPushButton*, 2> cmdBuscar{};
    QComboBox* cmbTipDoc = nullptr;
    QComboBox* cmbImpuesto = nullptr;
    QCheckBox* chkResumen = nullptr;
    QCheckBox* chkIncluirDescuentos = nullptr;
    QCheckBox* chkExcel = nullptr;
    std::array<QRadioButton*, 3> optTNI{};
    std::array<QTreeWidget*, 2> tvwGpos{};
    QTreeWidget* tvwAlm = nullptr;
    QCheckBox* chkRegion = nullptr;
    std::array<QComboBox*, 3> cmbRegion{};
    std::array<QPushButton*, 5> cmdFunciones{};
    std::array<QGroupBox*, 11> Frame{};
    std::array<QLabel*, 10> lblDatos{};

private:
    SeleccionCompras Sel;
    ControlesCompras Pantalla;
    CorridaPaginas corrida_;
    bool enReglaArbol_ = false;
};

} // namespace consultas
