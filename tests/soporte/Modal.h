#pragma once
// Drives a modal window from inside its own event loop: the test's action
// runs once the window of type T is up, and the window is closed if the
// action did not close it, so a failing check cannot leave a test waiting.

#include <QApplication>
#include <QTimer>

namespace pruebas {

template <class T, class F> void AlAbrir(F accion) {
    auto* reloj = new QTimer;
    reloj->setInterval(10);
    QObject::connect(reloj, &QTimer::timeout, [reloj, accion] {
        auto* w = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!w)
            return;
        reloj->stop();
        reloj->deleteLater();
        accion(w);
        if (w->isVisible())
            w->reject();
    });
    reloj->start();
}

} // namespace pruebas
