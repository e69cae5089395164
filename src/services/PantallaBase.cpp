#include "services/PantallaBase.h"

#include "core/Conexion.h"
#include "services/Servicios.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace consultas {

void PintaFondo(QWidget* w, const QColor& color) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, color);
    p.setColor(QPalette::Button, color);
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

PantallaBase::PantallaBase(QWidget* padre) : QDialog(padre) {}

QWidget* PantallaBase::BuscaControl(const QString& nombre) const {
    return findChild<QWidget*>(nombre);
}

namespace {

QString Nombre(const QString& control, std::optional<int> indice) {
    return indice ? QString("%1[%2]").arg(control).arg(*indice) : control;
}

QTreeWidgetItem* NodoDeClave(QTreeWidget* arbol, const QString& clave) {
    for (QTreeWidgetItemIterator it(arbol); *it; ++it)
        if ((*it)->data(0, Qt::UserRole).toString() == clave)
            return *it;
    return nullptr;
}

} // namespace

void PantallaBase::AplicaAjuste(const QString& control, std::optional<int> indice,
                                const QString& valor) {
    QString nombre = Nombre(control, indice);
    QWidget* w = BuscaControl(nombre);
    bool opcionPorValor = false;
    if (!w && !indice) {
        // NAME=i on an option array: the item to choose.
        bool ok = false;
        const int i = valor.toInt(&ok);
        if (ok) {
            nombre = Nombre(control, i);
            w = BuscaControl(nombre);
            opcionPorValor = qobject_cast<QRadioButton*>(w) != nullptr;
            if (!opcionPorValor)
                w = nullptr;
        }
    }
    if (!w)
        throw ErrorAjuste(QString("control desconocido: %1").arg(Nombre(control, indice)));
    if (!w->isVisibleTo(this))
        throw ErrorAjuste(QString("el control %1 está oculto en esta consulta").arg(nombre));
    if (!w->isEnabled())
        throw ErrorAjuste(QString("el control %1 está deshabilitado en esta consulta").arg(nombre));
    auto valorMalo = [&](const QString& esperado) {
        return ErrorAjuste(
            QString("valor no válido para %1: '%2' (%3)").arg(nombre, valor, esperado));
    };

    if (auto* opcion = qobject_cast<QRadioButton*>(w)) {
        if (!opcionPorValor && valor != "1")
            throw valorMalo("una opción se elige con 1");
        if (!opcion->isChecked())
            opcion->click();
        return;
    }
    if (auto* casilla = qobject_cast<QCheckBox*>(w)) {
        if (valor != "0" && valor != "1")
            throw valorMalo("0 o 1");
        if (casilla->isChecked() != (valor == "1"))
            casilla->click();
        return;
    }
    if (auto* fecha = qobject_cast<QDateEdit*>(w)) {
        const QDate d = QDate::fromString(valor, Qt::ISODate);
        if (!d.isValid())
            throw valorMalo("una fecha AAAA-MM-DD");
        fecha->setDate(d);
        return;
    }
    if (auto* giro = qobject_cast<QSpinBox*>(w)) {
        bool ok = false;
        const int n = valor.toInt(&ok);
        if (!ok || n < giro->minimum() || n > giro->maximum())
            throw valorMalo("un número");
        giro->setValue(n);
        return;
    }
    if (auto* texto = qobject_cast<QLineEdit*>(w)) {
        if (texto->isReadOnly())
            throw ErrorAjuste(QString("el control %1 es de sólo lectura").arg(nombre));
        texto->setFocus();
        texto->setText(valor);
        emit texto->textEdited(valor);
        emit texto->editingFinished();
        return;
    }
    if (auto* combo = qobject_cast<QComboBox*>(w)) {
        int i = -1;
        if (control == "cmbConsulta") {
            bool ok = false;
            i = valor.toInt(&ok);
            if (!ok || i < 0 || i >= combo->count())
                throw valorMalo(QString("un índice de 0 a %1").arg(combo->count() - 1));
        } else if (!valor.isEmpty()) {
            i = combo->findData(valor, Qt::UserRole);
            if (i < 0)
                i = combo->findData(valor.toLongLong(), Qt::UserRole);
            if (i < 0)
                throw valorMalo("un código de la lista");
        }
        combo->setCurrentIndex(i);
        if (i >= 0)
            emit combo->activated(i);
        return;
    }
    if (auto* arbol = qobject_cast<QTreeWidget*>(w)) {
        for (const QString& clave : valor.split(',', Qt::SkipEmptyParts)) {
            QTreeWidgetItem* nodo = NodoDeClave(arbol, clave.trimmed());
            if (!nodo)
                throw valorMalo(QString("no hay nodo con la clave %1").arg(clave.trimmed()));
            if (nodo->isDisabled())
                throw ErrorAjuste(
                    QString("el nodo %1 de %2 está deshabilitado").arg(clave.trimmed(), nombre));
            arbol->setCurrentItem(nodo);
            if (nodo->checkState(0) != Qt::Checked)
                nodo->setCheckState(0, Qt::Checked);
        }
        return;
    }
    if (auto* boton = qobject_cast<QAbstractButton*>(w)) {
        if (valor != "1")
            throw valorMalo("un botón se pulsa con 1");
        boton->click();
        return;
    }
    throw ErrorAjuste(
        QString("el control %1 no se puede fijar desde la línea de órdenes").arg(nombre));
}

void PantallaBase::EjecutaProtegido(const std::function<void()>& trabajo) {
    try {
        trabajo();
    } catch (const ErrorConsulta& e) {
        servicios::CreaMensajes()->MuestraError(-1, e.Mensaje(), 0);
    } catch (const std::exception& e) {
        servicios::CreaMensajes()->MuestraError(-1, QString::fromUtf8(e.what()), 0);
    }
}

} // namespace consultas
