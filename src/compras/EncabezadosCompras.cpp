#include "compras/EncabezadosCompras.h"

#include "core/Membrete.h"
#include "surface/Superficie.h"

#include <initializer_list>
#include <utility>

namespace consultas {

namespace {

using Rotulos = std::initializer_list<std::pair<int, const char*>>;

void Rotula(Superficie& s, int y, Rotulos rotulos) {
    for (const auto& [x, texto] : rotulos)
        s.TextOut(x, y, QString::fromUtf8(texto));
}

// Captions are drawn black and bold at their own size; the ending rule is
// blue, and the body goes on at the report's smaller size.
void InicioColumnas(Superficie& s, int tamano) {
    s.TextAlign = AlineaIzquierda;
    s.ForeColor = ColorNegro;
    s.FontBold = true;
    s.FontSize = tamano;
}

void FinColumnas(const ReporteCompras& r, int paso, int tamanoCuerpo) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    y += paso;
    s.ForeColor = ColorAzul;
    s.DrawLine(0, y, 10500, y);
    s.FontSize = tamanoCuerpo;
    s.ForeColor = ColorNegro;
    s.FontBold = false;
    y += paso;
}

// The document names of the band, by optDoc item.
QString NombreDocumento(int documento) {
    static const char* const nombres[] = {"REQUISICIÓN", "COTIZACIÓN", "ORDEN DE COMPRA",
                                          "RECEPCIÓN",   "DEVOLUCIÓN", "REMISIÓN"};
    if (documento < 0 || documento > 5)
        return QString();
    return QString::fromUtf8(nombres[documento]);
}

// The band title in italics, blue, bold, size 8; the caller restores.
void TituloBanda(Superficie& s, const QString& texto) {
    s.SaveState();
    s.TextEmphasis = true;
    s.FontFace = FuenteSans;
    s.ForeColor = ColorAzul;
    s.FontBold = true;
    s.FontSize = 8;
    s.TextOut(7850, 220, texto);
}

void ColumnasDiario(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    const bool recepcion = r.Sel.DocumentoActual == DocCompRecepcion;
    if (r.Pantalla.Global)
        Rotula(s, y, {{1800, "Fecha"}});
    else
        Rotula(s, y, {{0, "Folio"}, {1000, "Fecha"}, {1800, "Proveedor"}, {2900, "Sucursal"}});
    if (recepcion)
        Rotula(s, y, {{4200, "Importe"}, {5200, "Descto."}, {6200, "Cargos"}, {7100, "Arancel"}});
    Rotula(s, y, {{8000, "SubTotal"}, {9050, "Impto"}, {9900, "Total"}});
    if (r.Sel.Detallado) {
        y += 250;
        s.FontSize = 7;
        Rotula(s, y, {{200, "Cod.Art         Descripción"}, {4800, "Cantidad"}, {6100, "Unidad"}});
        if (recepcion)
            Rotula(s, y, {{7000, "Arancel"}});
        Rotula(s, y, {{8000, "Costo Unit."}, {9300, "Importe"}});
    }
}

void ColumnasRelacion(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    const int doc = r.Sel.DocumentoActual;
    Rotula(s, y, {{0, "Folio"}});
    if (r.Pantalla.Global) {
        Rotula(s, y, {{900, "Referencia"}, {2100, "Proveedor"}, {3200, "Fecha"}});
        if (doc > DocCompCotizacion)
            Rotula(s, y, {{4100, "Almacén"}});
        Rotula(s, y, {{5800, "Moneda"}, {7200, "T.C."}, {8300, "Importe"}, {9300, "Importe M.N."}});
    } else if (doc == DocCompRequisicion) {
        Rotula(s, y,
               {{1200, "Fecha"},
                {2300, "Tipo"},
                {3400, "Concepto de Presupuesto"},
                {6150, "Centro de Costo"},
                {8300, "Observaciones"}});
    } else {
        Rotula(s, y, {{1000, "Referencia"}, {2200, "Proveedor"}, {3300, "Fecha"}});
        switch (doc) {
        case DocCompDevolucion:
            Rotula(s, y, {{4000, "Sucursal"}, {5000, "Almacén"}, {6000, "Moneda"}, {7100, "T.C."}});
            break;
        case DocCompCotizacion:
            Rotula(s, y, {{6900, "Moneda"}, {8300, "T.C."}, {9500, "Cargos"}});
            break;
        default: // Orden de Compra, Recepción, Remisión
            Rotula(s, y,
                   {{4200, "Sucursal"},
                    {5400, "Almacén"},
                    {6900, "Moneda"},
                    {8300, "T.C."},
                    {9500, "Cargos"}});
            break;
        }
    }
    if (r.Sel.Detallado) {
        if (doc == DocCompRequisicion) {
            Rotula(s, y + 250,
                   {{300, "Código"}, {1900, "Descripción"}, {6200, "Cantidad"}, {7300, "Unidad"}});
        } else if (doc == DocCompDevolucion) {
            s.FontSize = 7;
            Rotula(s, y + 250,
                   {{0, "Código"},
                    {1000, "Descripción"},
                    {5000, "Unidad"},
                    {6700, "Cantidad"},
                    {8100, "Costo Unit."},
                    {9600, "Importe"}});
        } else {
            s.FontSize = 7;
            Rotula(s, y + 250,
                   {{0, "Código"},
                    {1000, "Descripción"},
                    {2300, "Unidad"},
                    {3100, "Cantidad"},
                    {4100, "Costo Unit."},
                    {5500, "Importe"},
                    {6600, "Dscto."},
                    {7500, "% Arancel"},
                    {8400, "Imp.Arancel"},
                    {9800, "Total"}});
        }
        y += 250;
    } else if (r.Pantalla.Resumido && doc != DocCompRequisicion) {
        if (doc == DocCompDevolucion) {
            Rotula(s, y, {{7600, "Subtotal"}, {8600, "Impuesto"}, {9800, "Total"}});
        } else {
            y += 250;
            s.FontSize = 7;
            Rotula(s, y,
                   {{0, "Importe"},
                    {1000, "Descto."},
                    {2200, "Neto"},
                    {3100, "Impuesto"},
                    {4300, "Cargos"},
                    {5200, "Impto.Cargos"},
                    {6500, "Arancel"},
                    {7600, "Subtotal"},
                    {8600, "Impuesto"},
                    {9800, "Total"}});
        }
    }
}

// Group title and tax captions shared by the breakdown and its accounting
// summary (steps 1 to 3); returns the rate of the chosen tax as text.
QString CabezaDesglosado(const ReporteCompras& r, const QString& titulo) {
    Superficie& s = r.S();
    EncabezadoEmpresa(r, titulo);
    TituloBanda(s, QString());
    {
        auto rs = r.Base.Abre("SELECT DES_GPO FROM tblGpoProveedor WHERE (COD_GPO=" +
                              QString::number(r.Sel.GrupoElegido) + ");");
        if (!rs->Eof())
            s.TextOut(7850, 220, rs->Campo("DES_GPO").Texto());
    }
    s.RestoreState();
    s.SaveState();
    s.ForeColor = ColorAzul;
    s.FontBold = true;
    s.FontSize = 10;
    auto rs = r.Base.Abre(
        "SELECT POR_IMP FROM tblImpuestos WHERE COD_IMP=" + r.Pantalla.ImpuestoCodigo + ";");
    return rs->Eof() ? QString() : rs->Campo("POR_IMP").Texto();
}

// Step 7 of the breakdown: rule, the period, and the state back.
void PieDesglosado(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    y += 250;
    s.DrawLine(0, y, 10500, y);
    y += 200;
    s.TextOut(0, y, "Del:  " + r.Pantalla.TextoFecha0 + " al: " + r.Pantalla.TextoFecha1);
    y += 250;
    s.RestoreState();
}

} // namespace

void EncabezadoEmpresa(const ReporteCompras& r, const QString& titulo) {
    r.lnLinea() = 0;
    VarianteMembrete v;
    v.xBanda = 6900;
    r.lnLinea() = DibujaMembrete(r.S(), 0, titulo, v);
}

void EncabezadoDocumentos(const ReporteCompras& r) {
    Superficie& s = r.S();
    r.lnLinea() = 0;
    const bool diario = r.Sel.ConsultaActual == CompDiario;
    EncabezadoEmpresa(r, diario ? QString("Diario de Compras")
                                : QString::fromUtf8("Relación de Documentos"));
    TituloBanda(s, NombreDocumento(r.Sel.DocumentoActual));
    s.FontSize = 9;
    s.TextEmphasis = false;
    if (diario)
        ColumnasDiario(r);
    else
        ColumnasRelacion(r);
    int& y = r.lnLinea();
    y += 250;
    s.DrawLine(0, y, 10500, y);
    y += 300;
    s.RestoreState();
}

void EncabezadoArticulo(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    y = 0;
    s.TextAlign = AlineaIzquierda;
    EncabezadoEmpresa(r, QString::fromUtf8("Compras por Artículo"));
    InicioColumnas(s, 10);
    if (r.Pantalla.Global) {
        Rotula(s, y, {{3800, "Comprados"}, {6200, "Devueltos"}, {9100, "Neto"}});
        y += 250;
        Rotula(s, y, {{0, "Proveedor"}});
        for (int x : {3400, 5800, 8600})
            s.TextOut(x, y, "Importe         Impto.");
    } else {
        Rotula(s, y, {{2000, "Comprados"}, {5300, "Devueltos"}, {8700, "Neto"}});
        y += 250;
        Rotula(s, y, {{0, "Folio"}});
        for (int x : {1000, 4300, 7700})
            s.TextOut(x, y, "Cantidad     Importe       Impto.");
    }
    FinColumnas(r, 250, 7);
}

void EncabezadoDescuentos(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    EncabezadoEmpresa(r, "Descuentos en Compras");
    InicioColumnas(s, 8);
    if (r.Sel.OrdenActual == 4) {
        if (r.Sel.Detallado) {
            Rotula(s, y, {{100, "Folio"}, {900, "Fecha"}, {2500, "Almacén"}, {4800, "Tipo Dcto"}});
            y += 250;
        }
        Rotula(s, y, {{0, "Código"}, {1000, "Descripción"}, {2300, "Und"}});
    } else if (r.Sel.Detallado) {
        Rotula(s, y, {{100, "Folio"}, {900, "Fecha"}, {1700, "Proveedor"}});
    } else {
        Rotula(s, y, {{0, "Proveedor"}});
    }
    Rotula(s, y, {{2800, "Costo Unit."}});
    for (int i = 1; i <= 6; ++i)
        s.TextOut(2800 + 1000 * i, y, QString("Descto %1").arg(i));
    Rotula(s, y, {{9600, "Costo Neto"}});
    FinColumnas(r, 250, 5);
}

void EncabezadoBackorder(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    EncabezadoEmpresa(r, "Backorder");
    InicioColumnas(s, 8);
    Rotula(s, y, {{0, "Código"}, {900, "Descripción"}});
    if (r.Sel.Detallado && r.Sel.DocumentoActual > 0)
        Rotula(s, y, {{3300, "Unidad"}, {4000, "Folio"}, {4800, "Proveedor"}, {5900, "Fecha"}});
    else if (r.Sel.Detallado)
        Rotula(s, y, {{4300, "Unidad"}, {5000, "Folio"}, {5900, "Fecha"}});
    else
        Rotula(s, y, {{4200, "Unidad"}});
    Rotula(s, y, {{7000, "Cantidad"}, {8400, "Surtido"}, {9500, "Backorder"}});
    FinColumnas(r, 250, 5);
}

void EncabezadoNetas(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    EncabezadoEmpresa(r, "Compras Netas");
    InicioColumnas(s, 8);
    Rotula(s, y, {{0, "Código"}, {1500, "Descripción"}});
    if (r.Sel.Detallado) {
        Rotula(s, y, {{3700, "Costo de"}, {5100, "Costo"}, {7300, "Costo de"}, {9650, "A Costo"}});
        y += 200;
        Rotula(s, y,
               {{100, "Folio"},
                {800, "Fecha"},
                {1500, "Proveedor"},
                {2700, "Cantidad"},
                {3700, "Compra"},
                {5000, "Promedio"},
                {6000, "Devolución"},
                {7200, "Devolución"},
                {8300, "Costo Total"},
                {9600, "Promedio"}});
    } else {
        Rotula(s, y,
               {{5000, "Cantidad"},
                {6400, "Devolución"},
                {7800, "Costo Total"},
                {9200, "A Cos.Promedio"}});
    }
    FinColumnas(r, 250, 5);
}

void EncabezadoDesglosado(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    const QString p = CabezaDesglosado(r, "Compras Desglosado");
    if (r.Pantalla.Global)
        Rotula(s, y, {{0, "Agrupación de Proveedores"}});
    else
        Rotula(s, y, {{0, "Proveedor"}, {1500, "Nombre"}});
    y += 250;
    s.FontSize = 9;
    if (r.Sel.Detallado)
        Rotula(s, y, {{0, "Folio"}, {1000, "Fecha"}});
    if (r.Pantalla.IncluirDescuentos) {
        Rotula(s, y, {{1700, "Compras 0%"}});
        s.TextOut(2900, y, "Compras " + p + "%");
        Rotula(s, y, {{4400, "Desc 0%"}});
        s.TextOut(5400, y, "Desc " + p + "%");
        Rotula(s, y, {{6500, "Imp.Compra"}, {7600, "Imp.Descto"}, {8800, "IEPS"}});
    } else {
        Rotula(s, y, {{2500, "Compras 0%"}});
        s.TextOut(4500, y, "Compras " + p + "%");
        Rotula(s, y, {{6500, "Imp.Compra"}, {8300, "IEPS"}});
    }
    Rotula(s, y, {{10000, "Total"}});
    PieDesglosado(r);
}

void EncabezadoResumen(const ReporteCompras& r) {
    Superficie& s = r.S();
    CabezaDesglosado(r, "Resumen Contable");
    s.FontSize = 10;
    Rotula(s, r.lnLinea(), {{100, "Concepto"}, {8400, "Debe"}, {9900, "Haber"}});
    PieDesglosado(r);
}

void EncabezadoDiferencias(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    EncabezadoEmpresa(r, QString::fromUtf8("Diferencias en Recepción"));
    InicioColumnas(s, 8);
    Rotula(s, y,
           {{0, "Folio de Recepción"},
            {1700, "Fecha"},
            {3700, "Orden de Compra"},
            {5300, "Fecha"},
            {7000, "Proveedor"}});
    y += 200;
    Rotula(s, y,
           {{200, "Código Artículo"},
            {2500, "Descripción"},
            {6000, "Unidad"},
            {7000, "Cantidad Ordenada"},
            {9000, "Cantidad Recibida"}});
    FinColumnas(r, 250, 5);
}

void EncabezadoCotizacion(const ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    EncabezadoEmpresa(r, QString::fromUtf8("Mejor Cotización"));
    InicioColumnas(s, 8);
    Rotula(s, y, {{100, "Cotización"}, {1300, "Proveedor"}, {7100, "Días"}});
    y += 150;
    Rotula(s, y,
           {{0, "Código"},
            {1700, "Descripción"},
            {6300, "Unidad"},
            {7000, "Entrega"},
            {8500, "Cantidad"},
            {9600, "Costo"}});
    FinColumnas(r, 200, 5);
}

void EncabezadoAnalisis(const ReporteCompras& r) {
    Superficie& s = r.S();
    EncabezadoEmpresa(r, QString::fromUtf8("Análisis de Compras"));
    InicioColumnas(s, 8);
    Rotula(s, r.lnLinea(),
           {{100, "O.Compra"},
            {1300, "Fecha O.C."},
            {2300, "Factura"},
            {3500, "Recepción"},
            {4700, "Fec.Recep."},
            {6300, "Subtotal"},
            {7500, "Impuesto"},
            {8700, "Total"},
            {9500, "Cod.Prov."}});
    FinColumnas(r, 200, 5);
}

void EncabezadoCompras(const ReporteCompras& r, int tipo) {
    switch (tipo) {
    case EncDocumentos:
        EncabezadoDocumentos(r);
        break;
    case EncArticulo:
        EncabezadoArticulo(r);
        break;
    case EncDescuentos:
        EncabezadoDescuentos(r);
        break;
    case EncBackorder:
        EncabezadoBackorder(r);
        break;
    case EncNetas:
        EncabezadoNetas(r);
        break;
    case EncDesglosado:
        EncabezadoDesglosado(r);
        break;
    case EncResumen:
        EncabezadoResumen(r);
        break;
    case EncDiferencias:
        EncabezadoDiferencias(r);
        break;
    case EncCotizacion:
        EncabezadoCotizacion(r);
        break;
    case EncAnalisis:
        EncabezadoAnalisis(r);
        break;
    default:
        break;
    }
}

void LineaRegion(const ReporteCompras& r) {
    const ControlesCompras& p = r.Pantalla;
    if (!p.RegionHabilitada || !p.PorRegion)
        return;
    Superficie& s = r.S();
    int& y = r.lnLinea();
    y += 250;
    if (p.Ciudad.isEmpty() && p.Estado.isEmpty() && p.Pais.isEmpty())
        return;
    bool linea = true;
    if (!p.Ciudad.isEmpty() && !p.Estado.isEmpty())
        s.TextOut(300, y, "Ciudad:  " + p.Ciudad + "   Estado:  " + p.Estado);
    else if (!p.Ciudad.isEmpty())
        s.TextOut(300, y, "Ciudad:  " + p.Ciudad);
    else if (!p.Estado.isEmpty())
        s.TextOut(300, y, "Estado:   " + p.Estado);
    else
        linea = false;
    if (!p.Pais.isEmpty()) {
        if (linea)
            y += 250;
        s.TextOut(800, y, QString::fromUtf8("País:   ") + p.Pais);
    }
    y += 250;
}

bool ConsultaPrevioCompra(Conexion& conexion) {
    auto rs = conexion.Abre("SELECT CP_PREVIO FROM tblParametrosGenerales;");
    if (rs->Eof())
        return false;
    const Valor v = rs->Campo("CP_PREVIO");
    return !v.EsNulo() && v.Doble() != 0.0;
}

} // namespace consultas
