// The page headings of the purchasing reports, read back through the JSON
// Lines dump, and the spreadsheet field lists.

#include "EntornoCompras.h"

#include "compras/EncabezadosCompras.h"
#include "compras/ExportaCompras.h"
#include "core/Formato.h"
#include "core/Membrete.h"
#include "surface/SalidaLote.h"

using namespace consultas;

namespace {

// A heading drawn on a fresh page, with a selection and a screen snapshot
// that each test shapes.
class Encabezados : public ::testing::Test {
protected:
    void SetUp() override {
        pruebas::EntornoCompras::De("sqlite").Activa();
        corrida.SuperficieActual = &s;
        s.StartDoc();
        pantalla.TextoFecha0 = "01/01/2026";
        pantalla.TextoFecha1 = "31/01/2026";
        pantalla.ImpuestoCodigo = "1";
        pantalla.ImpuestoTexto = "IVA 16%";
    }
    ReporteCompras R() {
        return ReporteCompras{sel, pantalla, corrida, *modConCompras::ConexionCompartida};
    }
    // The page as the dump gives it back.
    Pagina Dibuja(int tipo) {
        s.StartDoc();
        corrida.lnLinea = 0;
        EncabezadoCompras(R(), tipo);
        s.EndDoc();
        return DocumentoDeJsonl(DocumentoJsonl(s.Doc())).paginas.at(0);
    }
    Superficie s;
    CorridaPaginas corrida;
    SeleccionCompras sel;
    ControlesCompras pantalla;
};

// Where the company block of the demo company ends: captions start there.
int AltoMembrete() {
    Superficie aparte;
    aparte.StartDoc();
    VarianteMembrete v;
    v.xBanda = 6900;
    return DibujaMembrete(aparte, 0, "x", v);
}

using pruebas::CuentaTexto;
using pruebas::HayTexto;

} // namespace

TEST_F(Encabezados, DocumentosDiarioYRelacion) {
    sel.ConsultaActual = CompDiario;
    sel.DocumentoActual = DocCompRecepcion;
    sel.Detallado = true;
    Pagina p = Dibuja(EncDocumentos);
    const int y = AltoMembrete();
    EXPECT_TRUE(HayTexto(p, 7000, 0, "Reporte :Diario de Compras"));
    EXPECT_TRUE(HayTexto(p, 7850, 220, QString::fromUtf8("RECEPCIÓN")));
    EXPECT_TRUE(HayTexto(p, 4200, y, "Importe"));
    EXPECT_TRUE(HayTexto(p, 9900, y, "Total"));
    EXPECT_TRUE(HayTexto(p, 7000, y + 250, "Arancel"));
    EXPECT_EQ(corrida.lnLinea, y + 250 + 250 + 300);
    for (const auto& e : p.elementos)
        if (e.texto == QString::fromUtf8("RECEPCIÓN")) {
            EXPECT_TRUE(e.estado.TextEmphasis);
            EXPECT_EQ(e.estado.FontSize, 8);
        } else if (e.texto == "Importe" && e.x == 4200) {
            EXPECT_EQ(e.estado.FontSize, 9);
            EXPECT_TRUE(e.estado.FontBold);
            EXPECT_EQ(e.estado.ForeColor, ColorAzul);
        }
    // The state is handed back as it was.
    EXPECT_FALSE(s.TextEmphasis);

    // Relación, global list of purchase orders.
    sel.ConsultaActual = CompRelacion;
    sel.DocumentoActual = DocCompOrdenCompra;
    sel.Detallado = false;
    pantalla.Global = true;
    p = Dibuja(EncDocumentos);
    EXPECT_TRUE(HayTexto(p, 7000, 0, QString::fromUtf8("Reporte :Relación de Documentos")));
    EXPECT_TRUE(HayTexto(p, 4100, y, QString::fromUtf8("Almacén")));
    EXPECT_TRUE(HayTexto(p, 9300, y, "Importe M.N."));
    EXPECT_EQ(CuentaTexto(p, "Cargos"), 0);
    // Summary of returns: the totals on the caption line itself.
    pantalla.Global = false;
    pantalla.Resumido = true;
    sel.DocumentoActual = DocCompDevolucion;
    p = Dibuja(EncDocumentos);
    EXPECT_TRUE(HayTexto(p, 7600, y, "Subtotal"));
    EXPECT_TRUE(HayTexto(p, 4000, y, "Sucursal"));
    EXPECT_EQ(corrida.lnLinea, y + 250 + 300);
}

TEST_F(Encabezados, ColumnasConSuFinComun) {
    const int y = AltoMembrete();
    sel.Detallado = true;
    Pagina p = Dibuja(EncNetas);
    EXPECT_TRUE(HayTexto(p, 7000, 0, "Reporte :Compras Netas"));
    EXPECT_TRUE(HayTexto(p, 3700, y, "Costo de"));
    EXPECT_TRUE(HayTexto(p, 9600, y + 200, "Promedio"));
    EXPECT_EQ(corrida.lnLinea, y + 200 + 500);
    EXPECT_EQ(s.FontSize, 5);
    EXPECT_FALSE(s.FontBold);

    pantalla.Global = true;
    p = Dibuja(EncArticulo);
    EXPECT_TRUE(HayTexto(p, 5800, y + 250, "Importe         Impto."));
    EXPECT_EQ(s.FontSize, 7);

    sel.OrdenActual = 4;
    p = Dibuja(EncDescuentos);
    EXPECT_TRUE(HayTexto(p, 4800, y, "Tipo Dcto"));
    EXPECT_TRUE(HayTexto(p, 2300, y + 250, "Und"));
    EXPECT_TRUE(HayTexto(p, 8800, y + 250, "Descto 6"));

    sel.DocumentoActual = 0;
    p = Dibuja(EncBackorder);
    EXPECT_TRUE(HayTexto(p, 4300, y, "Unidad"));
    EXPECT_TRUE(HayTexto(p, 9500, y, "Backorder"));

    p = Dibuja(EncDiferencias);
    EXPECT_TRUE(HayTexto(p, 9000, y + 200, "Cantidad Recibida"));
    p = Dibuja(EncCotizacion);
    EXPECT_TRUE(HayTexto(p, 9600, y + 150, "Costo"));
    EXPECT_EQ(corrida.lnLinea, y + 150 + 400);
    p = Dibuja(EncAnalisis);
    EXPECT_TRUE(HayTexto(p, 9500, y, "Cod.Prov."));
    EXPECT_EQ(corrida.lnLinea, y + 400);
    // The rule under the captions is blue, the captions black.
    bool regla = false;
    for (const auto& e : p.elementos)
        regla = regla || (e.tipo == TipoElemento::Linea && e.y == y + 200 &&
                          e.estado.ForeColor == ColorAzul);
    EXPECT_TRUE(regla);

    // An unknown kind draws nothing.
    s.StartDoc();
    EncabezadoCompras(R(), 11);
    EXPECT_TRUE(s.Doc().paginas.at(0).elementos.empty());
}

TEST_F(Encabezados, DesglosadoConGrupoImpuestoYPeriodo) {
    const int y = AltoMembrete();
    sel.GrupoElegido = 2;
    sel.Detallado = true;
    pantalla.IncluirDescuentos = true;
    Pagina p = Dibuja(EncDesglosado);
    EXPECT_TRUE(HayTexto(p, 7850, 220, "Proveedores extranjeros"));
    EXPECT_TRUE(HayTexto(p, 1500, y, "Nombre"));
    EXPECT_TRUE(HayTexto(p, 2900, y + 250, "Compras 16%"));
    EXPECT_TRUE(HayTexto(p, 5400, y + 250, "Desc 16%"));
    EXPECT_TRUE(HayTexto(p, 0, y + 700, "Del:  01/01/2026 al: 31/01/2026"));
    EXPECT_EQ(corrida.lnLinea, y + 950);

    // Global, an unknown group: no names, no folio, an empty band.
    sel.GrupoElegido = 99;
    sel.Detallado = false;
    pantalla.Global = true;
    p = Dibuja(EncDesglosado);
    EXPECT_TRUE(HayTexto(p, 0, y, QString::fromUtf8("Agrupación de Proveedores")));
    EXPECT_EQ(CuentaTexto(p, "Proveedor") + CuentaTexto(p, "Folio"), 0);

    p = Dibuja(EncResumen);
    EXPECT_TRUE(HayTexto(p, 7000, 0, "Reporte :Resumen Contable"));
    EXPECT_TRUE(HayTexto(p, 9900, y, "Haber"));
}

TEST_F(Encabezados, LineaRegionYSaltoDePagina) {
    const auto r = R();
    corrida.lnLinea = 2000;
    pantalla.RegionHabilitada = true;
    pantalla.PorRegion = true;
    pantalla.Estado = "Jalisco";
    pantalla.Pais = QString::fromUtf8("México");
    s.StartDoc();
    LineaRegion(r);
    EXPECT_EQ(corrida.lnLinea, 2000 + 250 + 250 + 250);
    EXPECT_TRUE(HayTexto(s.Doc().paginas[0], 300, 2250, "Estado:   Jalisco"));
    EXPECT_TRUE(HayTexto(s.Doc().paginas[0], 800, 2500, QString::fromUtf8("País:   México")));
    pantalla.RegionHabilitada = false;
    LineaRegion(r);
    EXPECT_EQ(corrida.lnLinea, 2750);

    // SaltoPagina draws the heading of its kind on the new page.
    corrida.Encabezado = [this](int tipo) { EncabezadoCompras(R(), tipo); };
    corrida.EjecutarConsulta(s, [&] { corrida.SaltoPagina(EncAnalisis); });
    ASSERT_EQ(s.Doc().paginas.size(), 2u);
    EXPECT_TRUE(HayTexto(s.Doc().paginas[1], 7000, 720, "Página  : 2 / 2"));
    EXPECT_TRUE(HayTexto(s.Doc().paginas[1], 100, AltoMembrete(), "O.Compra"));
    EXPECT_EQ(CuentaTexto(s.Doc().paginas[0], "O.Compra"), 0);

    EXPECT_TRUE(ConsultaPrevioCompra(*modConCompras::ConexionCompartida));
}

TEST_F(Encabezados, CamposDeExcelPorConsulta) {
    auto nombres = [](const Recordset& rs) {
        QStringList n;
        for (const auto& c : rs.Campos())
            n << c.nombre;
        return n.join('|');
    };
    sel.ConsultaActual = CompDiario;
    sel.DocumentoActual = DocCompRecepcion;
    sel.Detallado = true;
    EXPECT_EQ(nombres(*CamposExcel(R(), false, false)),
              "En Sucursal|Folio|Fecha|CodProv|Sucursal|CodUsu|Importe|Descto.|Cargos|Arancel|"
              "SubTotal|Impto|Total|Cod.Art|Descrip.Art|Cantidad|Unidad|Imp.Arancel|Costo Unit.|"
              "Importe Art.");
    sel.ConsultaActual = CompRelacion;
    sel.DocumentoActual = DocCompOrdenCompra;
    sel.Detallado = false;
    pantalla.Global = true;
    EXPECT_EQ(nombres(*CamposExcel(R(), false, true)),
              "Grupo|Agrup.|Sucursal|Folio|Referencia|CodProv|Fecha|CodUsu|Alm|Moneda|T.C.|"
              "Importe|Importe M.N.");
    sel.ConsultaActual = CompDesglosado;
    pantalla.ImpuestoTexto = " IEPS 8% ";
    pantalla.IncluirDescuentos = false;
    EXPECT_EQ(nombres(*CamposExcel(R(), false, false)),
              "Proveedor|Nombre|Compra 0%|Compra IEPS 8%|Impto. Compra IEPS 8%|IEPS|Total");
    EXPECT_EQ(nombres(*CamposExcel(R(), true, false)), "Concepto|Debe|Haber");
    sel.ConsultaActual = CompArticulo;
    EXPECT_EQ(CamposExcel(R(), false, false)->CuentaCampos(), 0);

    // Not ticked: nothing is made or sent.
    auto guion = std::make_shared<servicios::GuionServicios>();
    servicios::ServiciosInstalados instalados(servicios::FabricasGuionadas(guion));
    sel.ConsultaActual = CompAnalisis;
    ExportaCompras sin(R());
    EXPECT_FALSE(sin.EnviarExcel);
    EXPECT_EQ(sin.Termina(QString::fromUtf8("Análisis Compras ")), 0);
    EXPECT_EQ(guion->Cuenta("Exporta"), 0);
    // Ticked: amounts arrive as printed text and become currency.
    pantalla.Excel = true;
    ExportaCompras con(R());
    ASSERT_TRUE(con.EnviarExcel);
    con.AgregaNuevo();
    con.Fija("TOTAL", "1,234.50");
    EXPECT_EQ(con.Filas()->Campo("TOTAL").Dinero(), Moneda::DeTexto("1234.50"));
    EXPECT_EQ(con.Termina(QString::fromUtf8("Análisis Compras ")), 1);
    ASSERT_EQ(guion->Cuenta("Exporta"), 1);
    EXPECT_EQ(guion->De("Exporta")[0].texto, QString::fromUtf8("Análisis Compras ") +
                                                 FormatoFecha(QDate::currentDate(), "DDMMYYYY"));
}

TEST_F(Encabezados, OrdenEnMemoria) {
    sel.OrdenSql = "COD_SUCU DESC,COD_ALM";
    auto rs = AbreOrdenado(R(), "SELECT COD_ALM,COD_SUCU FROM tblCatAlmacenes");
    QStringList orden;
    for (; !rs->Eof(); rs->MoveNext())
        orden << rs->Campo("COD_ALM").Texto();
    EXPECT_EQ(orden.join(','), "AL04,AL03,AL01,AL02");
}
