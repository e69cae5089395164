#pragma once
// The preview window: shows a finished report on the page surface, moves
// through its pages, changes the zoom, prints it, and keeps a page as a
// picture in the Temp folder of the suite's data directory.
//
// The window draws nothing of the report itself: the page run fills the
// surface and the page label, and the window shows what the surface holds.
// While it is open it owns the surface's hooks, so a Refresh redraws the view
// and OutputMode 2 goes through the print dialog.

#include "surface/Superficie.h"

#include <QDialog>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>

class QComboBox;
class QLabel;
class QPrinter;
class QPushButton;
class QScrollArea;
class QWidget;

namespace consultas {

class HojaPantalla;

// Indexes of cmdFunciones.
enum FuncionVista : int {
    FuncionImprimir = 0,
    FuncionPrimera = 1,
    FuncionAnterior = 2,
    FuncionSiguiente = 3,
    FuncionUltima = 4,
    FuncionGrabar = 5,
    FuncionSalir = 6,
};

class frmPreview : public QDialog {
    Q_OBJECT
public:
    explicit frmPreview(Superficie& superficie, QWidget* padre = nullptr);
    ~frmPreview() override;

    // The page label, as "3/12". The page run sets it before showing.
    QLabel* lblPagina() const { return lblPagina_; }
    QComboBox* cmbZoom() const { return cmbZoom_; }
    QPushButton* cmdFunciones(int indice) const { return cmdFunciones_.at(size_t(indice)); }
    // The scrolled view of the current page (object name "Preview").
    QScrollArea* Preview() const { return preview_; }

    // The page on show, as the last button action read it.
    std::int16_t PaginaVista() const { return paginaVista_; }

    // Runs the action of a button, as its click does.
    void Funcion(int indice);

    // Chooses the printer before printing: true to print. The default opens
    // the platform's print dialog (printer, copies, range); tests put a
    // PDF printer in its place.
    static std::function<bool(QPrinter&, int paginas, QWidget* padre)>& EligeImpresora();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    bool Tecla(QKeyEvent* evento);
    void Salir();
    void EtiquetaPagina();
    void Imprime(const Documento& documento);
    void GrabaPagina();
    void SeleccionaZoom(int indice);
    int Pixeles(int twips) const;

    Superficie& superficie_;
    std::function<void()> refrescoAnterior_;
    std::function<void(const Documento&)> impresionAnterior_;

    QWidget* fmeControles_;
    QScrollArea* preview_;
    HojaPantalla* hoja_;
    QLabel* lblPagina_;
    QComboBox* cmbZoom_;
    std::array<QPushButton*, 7> cmdFunciones_{};

    std::int16_t paginaVista_ = 1;
};

// Lays a document on a surface as a finished one, item by item with the
// drawing state each was drawn with (the preview of a saved dump).
void CargaDocumento(Superficie& superficie, const Documento& documento);

} // namespace consultas
