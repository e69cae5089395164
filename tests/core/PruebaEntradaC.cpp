// The C entry point does what the class does for hosts in other languages.
#include "core/consultas_c.h"
#include "core/modConCompras.h"
#include "soporte/Soporte.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(EntradaC, AbreYCierraComoLaClase) {
    auto base = pruebas::NuevaSqlite();
    base->Ejecuta("CREATE TABLE t (x INTEGER)");
    QTemporaryDir dir;
    ConsultasInstancia* c = consultas_crea();
    ASSERT_NE(c, nullptr);
    const QByteArray cadena = base->Cadena().toUtf8(), ruta = dir.path().toUtf8();
    EXPECT_EQ(consultas_mostrar_consulta(c, 3, cadena.constData(), 4, 1, "", ruta.constData()), 1);
    EXPECT_TRUE(consultas::modConCompras::ConexionCompartida->EstaAbierta());
    EXPECT_EQ(consultas_mostrar_consulta(c, 1, "Provider=Nada", 4, 1, nullptr, nullptr), 0);
    consultas_destruye(c);
    EXPECT_EQ(consultas_mostrar_consulta(nullptr, 1, "", 4, 1, "", ""), 0);
}
