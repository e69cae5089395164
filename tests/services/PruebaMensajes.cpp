// The message service: the scripted double that other tests rely on, the
// factories that swap services, and the Qt dialogs driven by keys.
#include "services/Servicios.h"
#include "services/ServiciosQt.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "soporte/Modal.h"

#include <gtest/gtest.h>

using namespace consultas;

namespace {

using pruebas::AlAbrir;

} // namespace

TEST(Mensajes, ElGuionRegistraLlamadasYContestaEnOrden) {
    auto guion = std::make_shared<servicios::GuionServicios>();
    guion->respuestasPregunta = {RespuestaSi, 2};
    guion->respuestasTexto = {"pagina1"};
    servicios::ServiciosInstalados s(servicios::FabricasGuionadas(guion));

    // One instance per call, as the screens use them; the script is shared.
    EXPECT_EQ(servicios::CreaMensajes()->Pregunta(MensajeSalirVistaPrevia, 0, "", 0, 0), 6);
    EXPECT_EQ(servicios::CreaMensajes()->Pregunta(MensajeSalirVistaPrevia, 0, "", 0, 0), 2);
    EXPECT_EQ(servicios::CreaMensajes()->Pregunta(0, 0, "¿Otra?", 0, 0), RespuestaNo);
    EXPECT_EQ(servicios::CreaMensajes()->PideTexto(0, 0, "La página se grabará en", 0, 0, 0),
              "pagina1");
    EXPECT_EQ(servicios::CreaMensajes()->PideTexto(0, 0, "otra vez", 0, 0, 0), "");
    servicios::CreaMensajes()->Mensaje(MensajePaginaGrabada, 0, " 3\n/suite/Temp/p.png", 0);
    servicios::CreaMensajes()->Mensaje(0, 0, "Es necesario elegir folio de requisición", 0);
    servicios::CreaMensajes()->MuestraError(3021, "No hay registro actual", 0);

    ASSERT_EQ(guion->llamadas.size(), 8u);
    EXPECT_EQ(guion->Cuenta("Pregunta"), 3);
    const auto preguntas = guion->De("Pregunta");
    EXPECT_EQ(preguntas[0].numero, 129);
    EXPECT_TRUE(preguntas[0].texto.contains("vista preliminar"));
    EXPECT_EQ(preguntas[1].resultado.toInt(), 2);

    const auto mensajes = guion->De("Mensaje");
    ASSERT_EQ(mensajes.size(), 2u);
    EXPECT_TRUE(mensajes[0].texto.startsWith(TextoMensaje(130, QString())));
    EXPECT_TRUE(mensajes[0].texto.endsWith(" 3\n/suite/Temp/p.png"));
    EXPECT_EQ(mensajes[1].texto, "Es necesario elegir folio de requisición");

    const auto errores = guion->De("MuestraError");
    ASSERT_EQ(errores.size(), 1u);
    EXPECT_EQ(errores[0].numero, 3021);
    EXPECT_EQ(errores[0].texto, "No hay registro actual");
}

TEST(Mensajes, LotePickersVaciosYFabricasRestauradas) {
    auto guion = std::make_shared<servicios::GuionServicios>();
    {
        servicios::ServiciosInstalados s(servicios::FabricasLote(guion));
        auto b = servicios::CreaBusqueda();
        b->Mostrar("x", 4, "", "", "PROVEEDORES", "ACME", 0);
        EXPECT_EQ(b->Resultado(), "");
        auto d = servicios::CreaBuscaDocumento();
        d->Mostrar("x", 4, "", "", 1, DocRecepcion, "", "", false, "", "");
        EXPECT_EQ(d->Resultado(), "");
        EXPECT_EQ(servicios::CreaMensajes()->Pregunta(129, 0, "", 0, 0), RespuestaNo);
        EXPECT_TRUE(guion->ecoEnStderr);
        EXPECT_EQ(guion->De("Mostrar").at(1).numero, 29);
    }
    // Out of the scope the interactive services are back.
    EXPECT_TRUE(dynamic_cast<MensajesQt*>(servicios::CreaMensajes().get()));
    EXPECT_TRUE(dynamic_cast<BusquedaQt*>(servicios::CreaBusqueda().get()));
    EXPECT_TRUE(dynamic_cast<ExportaExcelQt*>(servicios::CreaExportaExcel().get()));
}

TEST(Mensajes, TextosGuardados) {
    EXPECT_EQ(TextoMensaje(0, "hola"), "hola");
    EXPECT_EQ(TextoMensaje(129, ""), "¿Desea salir de la vista preliminar?");
    EXPECT_EQ(TextoMensaje(130, " 2"), "La página se grabó correctamente. 2");
}

TEST(MensajesQt, PreguntaSiConEnterYNoConEsc) {
    MensajesQt m;
    QString visto;
    AlAbrir<QMessageBox>([&](QMessageBox* w) {
        visto = w->text();
        QTest::keyClick(w, Qt::Key_Return);
    });
    EXPECT_EQ(m.Pregunta(129, 0, "", 0, 0), RespuestaSi);
    EXPECT_EQ(visto, TextoMensaje(129, ""));

    AlAbrir<QMessageBox>([](QMessageBox* w) { QTest::keyClick(w, Qt::Key_Escape); });
    EXPECT_EQ(m.Pregunta(129, 0, "", 0, 0), RespuestaNo);
}

TEST(MensajesQt, PideTextoDevuelveLoEscritoOVacio) {
    MensajesQt m;
    AlAbrir<QInputDialog>([](QInputDialog* w) {
        QLineEdit* e = w->findChild<QLineEdit*>();
        ASSERT_TRUE(e);
        QTest::keyClicks(e, "pagina uno");
        QTest::keyClick(e, Qt::Key_Return);
    });
    EXPECT_EQ(m.PideTexto(0, 0, "La página se grabará en el directorio /x/Temp", 0, 0, 0),
              "pagina uno");

    AlAbrir<QInputDialog>([](QInputDialog* w) {
        QTest::keyClicks(w->findChild<QLineEdit*>(), "nada");
        QTest::keyClick(w->findChild<QLineEdit*>(), Qt::Key_Escape);
    });
    EXPECT_EQ(m.PideTexto(0, 0, "otra", 0, 0, 0), "");
}
