// The budget reports over the demo database: the same document on both
// engines, and the demo's known budget facts where they show. With
// CONSULTAS_MUESTRAS set to a folder, the documents are also written there as
// PDF and PNG for a look.

#include "FixturaPresupuestos.h"

#include "surface/SalidaLote.h"

#include <QSqlDatabase>
#include <gtest/gtest.h>

using namespace consultas;
namespace hechos = consultas::demo::hechos;

namespace presup {
QStringList Fila(const Pagina& p, int y);
const Elemento* Texto(const Pagina& p, const QString& texto);
} // namespace presup

namespace {

struct Consulta {
    const char* nombre;
    ValoresPresupuesto valores;
};

std::vector<Consulta> Consultas() {
    ValoresPresupuesto v;
    v.anos = {QString::number(hechos::AnoInicial), QString::number(hechos::AnoFinal),
              QString::number(hechos::AnoFinal)};
    v.fechas = {QDate::fromString(hechos::FechaInicial, Qt::ISODate),
                QDate::fromString(hechos::FechaFinal, Qt::ISODate)};
    std::vector<Consulta> r;
    v.consulta = RelacionDePresupuestos;
    r.push_back({"relacion", v});
    v.tipo = 1;
    r.push_back({"relacion_resumida", v});
    v.consulta = ComparativoDePresupuestos;
    v.tipo = 0;
    v.aplicado = true;
    r.push_back({"comparativo_aplicado", v});
    v.consulta = PresupuestosTraspasados;
    r.push_back({"traspasados", v});
    return r;
}

std::vector<Documento> CorreDemo(const QString& motor) {
    auto b = pruebas::NuevaBase(motor);
    demo::CargaDemo(QSqlDatabase::database(b->NombreEscritura()));
    Conexion cx;
    EXPECT_TRUE(cx.Abrir(b->Cadena()));
    presup::Ejecutor e;
    std::vector<Documento> docs;
    for (const Consulta& c : Consultas())
        docs.push_back(e.Corre(cx, c.valores));
    return docs;
}

TEST(PresupuestosDemo, MismosDocumentosEnAmbosMotoresYHechosDelDemo) {
    const std::vector<Documento> sqlite = CorreDemo("sqlite");
    const Documento& relacion = sqlite[0];
    // Concept 13 has no budget for the last year and 14 an annual amount of
    // 0: both concept lines print 0.00 in the percent columns.
    int totalesEnCero = 0;
    for (const Pagina& p : relacion.paginas)
        for (const Elemento& e : p.elementos)
            if (e.texto == "Total:" &&
                presup::Fila(p, e.y).mid(1) ==
                    QStringList({"5800=0.00", "7200=0.00", "8000=0.00", "9600=0.00", "10400=0.00"}))
                ++totalesEnCero;
    EXPECT_GE(totalesEnCero, 1);
    for (const Documento& d : sqlite) {
        EXPECT_GE(d.paginas.size(), 1u);
        // Nothing below the body's lowest row plus its pitch.
        for (const Pagina& p : d.paginas)
            for (const Elemento& e : p.elementos)
                EXPECT_LE(e.y, 14880);
    }
    EXPECT_GT(sqlite[3].paginas[0].elementos.size(), 40u);

    const QString muestras = qEnvironmentVariable("CONSULTAS_MUESTRAS");
    if (!muestras.isEmpty()) {
        const auto consultas = Consultas();
        for (size_t i = 0; i < sqlite.size(); ++i) {
            OpcionesSalida o;
            o.pdf = muestras + "/" + consultas[i].nombre + ".pdf";
            o.png = muestras + "/" + consultas[i].nombre;
            o.jsonl = muestras + "/" + consultas[i].nombre + ".jsonl";
            EscribeSalidas(sqlite[i], o);
        }
    }

    if (!pruebas::HayPostgres())
        GTEST_SKIP() << "sin servidor PostgreSQL (CONSULTAS_PG_ADMIN)";
    const std::vector<Documento> postgres = CorreDemo("postgres");
    ASSERT_EQ(postgres.size(), sqlite.size());
    for (size_t i = 0; i < sqlite.size(); ++i)
        EXPECT_EQ(DocumentoJsonl(sqlite[i]), DocumentoJsonl(postgres[i])) << i;
}

} // namespace
