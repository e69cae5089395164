#pragma once
// The budget inquiry screen: the user picks one of the three budget reports,
// fills what it asks for and presses F10. The screen holds the controls and
// their rules; the reports read a snapshot of its values taken at the run.

#include "presupuestos/ReportesPresupuesto.h"
#include "services/PantallaBase.h"
#include "surface/CorridaPaginas.h"

#include <array>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace consultas {

class frmConPresup : public PantallaBase {
    Q_OBJECT
public:
    explicit frmConPresup(QWidget* padre = nullptr);

    // Presses "CONSULTAR [F10]"; a failure is shown, not thrown.
    void Consultar() override;

    // The values the reports read, as the controls hold them now.
    ValoresPresupuesto Valores() const;

    // The page run of this screen; its state lives from one run to the next.
    CorridaPaginas& Corrida() { return corrida_; }

    // Codes last taken by a picker.
    int CentroElegido() const { return centroElegido_; }
    int ConceptoElegido() const { return conceptoElegido_; }

    // Heading of a page of the run in hand, by kind: 1 Relación, 2
    // Comparativo, 3 Traspasos; any other kind draws none.
    void SaltoPagina(int tipo) { corrida_.SaltoPagina(tipo); }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void CreaControles();
    void SeleccionaConsulta(int indice);
    void Funcion(int indice);
    void EjecutarConsulta();
    void BuscaConcepto();
    void BuscaCentro();
    void CargaConcepto(const QString& codigo);
    void CargaCentro(const QString& codigo);
    void TecleaConcepto();
    void TecleaCentro();
    void CambiaAno(int indice, int paso);

    QComboBox* cmbConsulta_ = nullptr;
    std::array<QPushButton*, 3> cmdFunciones_{};
    std::array<QPushButton*, 2> cmdBusCon_{};
    QLineEdit* txtCodCPRE_ = nullptr;
    QLineEdit* txtCodCCOS_ = nullptr;
    QLabel* lblConPre_ = nullptr;
    QLabel* lblDesCC_ = nullptr;
    std::array<QGroupBox*, 6> fmeDatos_{}; // 1 to 5 used
    std::array<QLabel*, 6> lblDato_{};     // 1, 2 and 5 used
    std::array<QLabel*, 7> lblDatos_{};    // 3 to 6 used
    std::array<QRadioButton*, 2> opcTipo_{};
    std::array<QLineEdit*, 3> txtAnoRan_{};
    std::array<QWidget*, 3> udnAno_{};
    QCheckBox* chkAplicado_ = nullptr;
    std::array<QDateEdit*, 2> dtpFecha_{};

    int centroElegido_ = 0;
    int conceptoElegido_ = 0;
    ValoresPresupuesto valores_;
    CorridaPaginas corrida_;
};

} // namespace consultas
