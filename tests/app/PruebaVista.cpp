// consultas vista: a saved dump opens in the preview window.
#include "Subcomandos.h"

#include "surface/SalidaLote.h"
#include "surface/frmPreview.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace consultas;

TEST(Vista, AbreUnVolcadoEnLaVentanaYTerminaAlCerrarla) {
    QTemporaryDir dir;
    Documento d;
    d.paginas.resize(2);
    EstadoDibujo e;
    d.paginas[0].elementos.push_back(Elemento::Texto(0, 0, "primera", e));
    d.paginas[1].elementos.push_back(Elemento::Texto(0, 0, "segunda", e));
    const QString volcado = dir.filePath("doc.jsonl");
    EscribeJsonl(d, volcado);

    QString etiqueta;
    QTimer::singleShot(0, [&] {
        auto* w = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
        ASSERT_NE(w, nullptr);
        etiqueta = w->lblPagina()->text();
        QTest::mouseClick(w->cmdFunciones(FuncionSalir), Qt::LeftButton);
    });
    EXPECT_EQ(host::CmdVista({volcado}), 0);
    EXPECT_EQ(etiqueta, "1/2");
}

TEST(Vista, SinVolcadoLegibleNoAbreNada) {
    EXPECT_ANY_THROW(host::CmdVista({}));
    EXPECT_ANY_THROW(host::CmdVista({"/no/existe.jsonl"}));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
