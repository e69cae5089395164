#include "compras/ExportaCompras.h"

#include "core/Formato.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "surface/Superficie.h"

namespace consultas {

namespace {

// Field lists of the export recordsets. Folios, and the references that are
// folios of other documents, are declared without a limit: the page prints
// only their last ten characters, so the spreadsheet is where a longer one
// can still be read whole.
class ListaCampos {
public:
    ListaCampos& T(std::initializer_list<const char*> nombres, int tamano) {
        for (const char* n : nombres)
            campos.push_back({QString::fromUtf8(n), TipoCampo::Texto, tamano});
        return *this;
    }
    ListaCampos& M(std::initializer_list<const char*> nombres) {
        for (const char* n : nombres)
            campos.push_back({QString::fromUtf8(n), TipoCampo::Moneda, 0});
        return *this;
    }
    ListaCampos& M(const QString& nombre) {
        campos.push_back({nombre, TipoCampo::Moneda, 0});
        return *this;
    }
    ListaCampos& E(const char* nombre) {
        campos.push_back({QString::fromUtf8(nombre), TipoCampo::Entero, 0});
        return *this;
    }
    std::vector<CampoDef> campos;
};

void CamposDiario(const ReporteCompras& r, ListaCampos& c) {
    const bool recepcion = r.Sel.DocumentoActual == DocCompRecepcion;
    c.T({"En Sucursal"}, 30);
    if (!r.Pantalla.Global)
        c.T({"Folio"}, 0).T({"Fecha", "CodProv"}, 10).T({"Sucursal"}, 30).T({"CodUsu"}, 10);
    if (recepcion)
        c.M({"Importe", "Descto.", "Cargos", "Arancel"});
    c.M({"SubTotal", "Impto", "Total"});
    if (r.Sel.Detallado) {
        c.T({"Cod.Art"}, 20).T({"Descrip.Art"}, 60).M({"Cantidad"}).T({"Unidad"}, 10);
        if (recepcion)
            c.M({"Imp.Arancel"});
        c.M({"Costo Unit.", "Importe Art."});
    }
}

void CamposRelacion(const ReporteCompras& r, bool hayGrupos, ListaCampos& c) {
    const int doc = r.Sel.DocumentoActual;
    const bool desdeOrden = doc >= DocCompOrdenCompra;
    if (hayGrupos)
        c.T({"Grupo", "Agrup."}, 70);
    if (desdeOrden)
        c.T({"Sucursal"}, 30);
    c.T({"Folio"}, 0);
    if (r.Pantalla.Global) {
        c.T({"Referencia"}, 0).T({"CodProv", "Fecha", "CodUsu"}, 10);
        if (desdeOrden)
            c.T({"Alm"}, 30);
        c.T({"Moneda"}, 30).M({"T.C.", "Importe", "Importe M.N."});
    } else if (doc != DocCompRequisicion) {
        c.T({"Referencia"}, 0).T({"CodProv", "Fecha", "CodUsu"}, 10);
        if (desdeOrden)
            c.T({"Cod.Suc"}, 10).T({"Almac"}, 30);
        c.T({"Moneda"}, 30).M({"T.C."});
        if (doc != DocCompDevolucion)
            c.M({"Cargos"});
    } else {
        c.T({"Fecha", "CodUsu"}, 10)
            .T({"Tipo"}, 20)
            .T({"Concepto de Presupuesto", "Centro de Costo"}, 50)
            .T({"Observaciones"}, 255);
    }
    if (r.Sel.Detallado) {
        c.T({"Cod.Art"}, 20).T({"Descrip.Art"}, 60);
        if (doc == DocCompRequisicion) {
            c.M({"Cantidad"}).T({"Unidad"}, 10);
        } else {
            c.T({"Unidad"}, 10).M({"Cantidad", "Costo Unit.", "Importe"});
            if (doc != DocCompDevolucion)
                c.M({"Descto.", "Porc.Arancel", "Imp.Arancel", "Total"});
        }
    } else if (r.Pantalla.Resumido && doc != DocCompRequisicion) {
        if (doc != DocCompDevolucion)
            c.M({"Importe", "Descto.", "Neto", "Impuesto", "Cargo", "Impto.Cargo", "Arancel"});
        c.M({"Subtotal", "Impuestos", "Total"});
    }
}

void CamposNetas(const ReporteCompras& r, ListaCampos& c) {
    const bool det = r.Sel.Detallado;
    c.T({"Codigo"}, 20).T({"Descripcion"}, 60);
    if (det)
        c.T({"Folio"}, 0).T({"Fecha", "CodProv"}, 10).T({"NomProv"}, 120);
    c.M({"Cantidad"});
    if (det)
        c.M({"CosCompra", "CosPromedio"});
    c.M({"Devolucion"});
    if (det)
        c.M({"CostoDev"});
    c.M({"CostoTotal", "ACostoProm"});
}

void CamposDesglosado(const ReporteCompras& r, bool resumenContable, ListaCampos& c) {
    if (resumenContable) {
        c.T({"Concepto"}, 100).M({"Debe", "Haber"});
        return;
    }
    // The columns carry the name of the chosen tax, so they follow the list.
    const QString i = r.Pantalla.ImpuestoTexto.trimmed();
    const bool descuentos = r.Pantalla.IncluirDescuentos;
    c.T({"Proveedor"}, 10).T({"Nombre"}, 254);
    if (r.Sel.Detallado)
        c.T({"Folio"}, 0).T({"Fecha"}, 10);
    c.M({"Compra 0%"}).M("Compra " + i);
    if (descuentos)
        c.M({"Desc 0%"}).M("Desc " + i);
    c.M("Impto. Compra " + i);
    if (descuentos)
        c.M("Impto. Descto. " + i);
    c.M({"IEPS", "Total"});
}

} // namespace

RecordsetPtr CamposExcel(const ReporteCompras& r, bool resumenContable, bool hayGrupos) {
    ListaCampos c;
    switch (r.Sel.ConsultaActual) {
    case CompDiario:
        CamposDiario(r, c);
        break;
    case CompRelacion:
        CamposRelacion(r, hayGrupos, c);
        break;
    case CompNetas:
        CamposNetas(r, c);
        break;
    case CompDesglosado:
        CamposDesglosado(r, resumenContable, c);
        break;
    case CompCotizacion:
        c.T({"Cotización", "Proveedor"}, 10)
            .E("DiasEntrega")
            .T({"Código"}, 20)
            .T({"Descripción"}, 60)
            .T({"Unidad"}, 10)
            .M({"Cantidad", "Costo"});
        break;
    case CompAnalisis:
        c.T({"O.C.", "Fecha O.C.", "Factura", "RECEPCIÓN", "Fecha Recep."}, 10)
            .M({"SUBTOTAL", "IMPUESTO", "TOTAL"})
            .T({"Cod.Prov."}, 10)
            .T({"Proveedor"}, 254);
        break;
    default:
        break; // inquiries that never send a spreadsheet
    }
    return std::make_unique<Recordset>(std::move(c.campos));
}

QString NombreExcel(const QString& base, const QDate& fecha) {
    return base + FormatoFecha(fecha, "DDMMYYYY");
}

ExportaCompras::ExportaCompras(const ReporteCompras& r, bool resumenContable)
    : ExportaCompras(r, resumenContable, r.Sel.HayGrupos) {}

ExportaCompras::ExportaCompras(const ReporteCompras& r, bool resumenContable, bool hayGrupos) {
    EnviarExcel = r.Pantalla.Excel;
    if (EnviarExcel)
        rs_ = CamposExcel(r, resumenContable, hayGrupos);
}

void ExportaCompras::AgregaNuevo() {
    if (rs_)
        rs_->AgregaNuevo();
}

void ExportaCompras::Fija(const QString& campo, const QVariant& valor) {
    if (rs_)
        rs_->Fija(campo, valor);
}

int ExportaCompras::Termina(const QString& base) {
    if (!EnviarExcel || !rs_)
        return 0;
    if (!rs_->Vacio())
        rs_->MoveFirst();
    const int filas = servicios::CreaExportaExcel()->Exporta(*rs_, NombreExcel(base),
                                                             modConCompras::RutaBaseDeDatos);
    rs_.reset();
    EnviarExcel = false;
    return filas;
}

void LineaConHoja(Superficie& s, int y, ExportaCompras& excel,
                  const std::vector<CeldaLinea>& celdas) {
    const int alineacion = s.TextAlign;
    for (const CeldaLinea& c : celdas) {
        s.TextAlign = c.derecha ? AlineaDerecha : AlineaIzquierda;
        s.TextOut(c.x, y, c.texto);
    }
    s.TextAlign = alineacion;
    if (!excel.EnviarExcel)
        return;
    excel.AgregaNuevo();
    for (const CeldaLinea& c : celdas)
        if (c.campo)
            excel.Fija(QString::fromUtf8(c.campo), c.texto);
}

RecordsetPtr AbreOrdenado(const ReporteCompras& r, const QString& sql) {
    RecordsetPtr rs = r.Base.Abre(sql);
    if (!r.Sel.OrdenSql.isEmpty())
        rs->Ordena(r.Sel.OrdenSql);
    return rs;
}

} // namespace consultas
