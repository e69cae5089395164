#pragma once
// What the three inquiry screens share as Qt dialogs: their colours, the
// catching of failures at the top of an event, and the batch host's way of
// setting a control as a user would.

#include "services/ServiciosQt.h"

#include <QColor>
#include <QDialog>
#include <QString>

#include <functional>
#include <optional>
#include <stdexcept>

class QWidget;

namespace consultas {

// Paints the background of one widget, such as a frame in ColorPanel() or a
// button in ColorBoton() (and, through the palette, of the children that
// inherit it).
void PintaFondo(QWidget* w, const QColor& color);

// A setting the batch host could not apply: unknown, disabled or hidden
// control, or a bad value. The message names the control.
class ErrorAjuste : public std::runtime_error {
public:
    explicit ErrorAjuste(const QString& m) : std::runtime_error(m.toStdString()), mensaje(m) {}
    QString mensaje;
};

class PantallaBase : public QDialog {
    Q_OBJECT
public:
    explicit PantallaBase(QWidget* padre = nullptr);

    // Sets a control as a user action would, so the screen's rules run:
    //   option arrays   NAME=i clicks the option NAME[i] (or NAME[i]=1)
    //   check boxes     0 or 1, as a click when the state changes
    //   text boxes      the text, then leaves the box (editingFinished)
    //   date editors    YYYY-MM-DD
    //   spin boxes      the number
    //   combo boxes     cmbConsulta the index; others the code kept as item
    //                   data (Qt::UserRole), or empty to clear
    //   trees           comma list of node keys (item data, Qt::UserRole, of
    //                   column 0), each checked as a click
    // Controls are found by object name; the items of a control array are
    // named NAME[i]. Throws ErrorAjuste naming the control.
    virtual void AplicaAjuste(const QString& control, std::optional<int> indice,
                              const QString& valor);

    // Presses "CONSULTAR [F10]".
    virtual void Consultar() = 0;

    // Runs an event's work; a failure that escapes it is shown through the
    // message service, as the top of the event loop would.
    static void EjecutaProtegido(const std::function<void()>& trabajo);

protected:
    // The control of a setting, or null.
    QWidget* BuscaControl(const QString& nombre) const;
};

} // namespace consultas
