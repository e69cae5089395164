#include "compras/EncabezadosCompras.h"
#include "compras/ExportaCompras.h"
#include "compras/ReportesCompras.h"

#include "core/Formato.h"
#include "surface/Superficie.h"

#include <array>

namespace consultas {

namespace {

const QString Patron = QStringLiteral("#,##0.00");
constexpr Color ColorCancelado = Color::DesdeEntero(192);
constexpr Color ColorSurtido = Color::DesdeEntero(32768);

// What tells one document kind from another: its tables, the names of its
// columns, and the parts of the walk it has. Remisión is Recepción read with
// status 7 only.
struct Documento {
    int tipo;
    const char* tabla;
    const char* folio;
    const char* fecha;
    const char* referencia; // printed beside the folio; none for requisitions
    const char* total;
    // Select list of the plain statement; the group form takes the
    // supplier from the group table instead.
    const char* lista;
    const char* listaGrupos;
    // Joins after the header table, in order; {T} is the header table.
    std::array<const char*, 3> uniones;
    // Resumido line: amount, discount, charges, tax on charges, subtotal, tax,
    // and the x of the duty.
    std::array<const char*, 6> resumen;
    int xArancel;
    // Line table and its columns.
    const char* renglones;
    const char* arancel;
    const char* porArancel;
    const char* impuesto1;
    const char* impuesto2;
    const char* descuento; // prefix of the six discount percentages
    const char* equivalencia;
    const char* importe; // stored line amount, or none when worked out
    const char* nombreExcel;
};

const char* const UneAlmacen = "LEFT JOIN tblCatAlmacenes ON {T}.COD_ALM=tblCatAlmacenes.COD_ALM";
const char* const UneSucursal = "LEFT JOIN tblSucursales ON {T}.COD_SUCU=tblSucursales.COD_SUCU";
const char* const UneMoneda = "LEFT JOIN tblMonedas ON {T}.COD_MON=tblMonedas.COD_MON";

const Documento Requisicion{
    DocCompRequisicion,
    "tblRequisicionesEnc",
    "FOL_REQ",
    "FEC_REQ",
    "",
    "",
    "FOL_REQ,FEC_REQ,DES_TIP,NOTA,DES_CPRE,DES_CCOS,COD_ESTATUS,COD_USU",
    "",
    {"INNER JOIN tblCentrosCostos ON {T}.COD_CCOS=tblCentrosCostos.COD_CCOS",
     "INNER JOIN tblConDePresu ON {T}.COD_CPRE=tblConDePresu.COD_CPRE",
     "INNER JOIN tblTipoRequisicion ON {T}.COD_TIP=tblTipoRequisicion.COD_TIP"},
    {},
    0,
    "tblRequisicionesRen",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "RelaciónDocumentos_Requisición"};

const Documento Cotizacion{
    DocCompCotizacion,
    "tblCotizacionesEnc",
    "FOL_COTI",
    "FEC_COTI",
    "FOL_REQ",
    "TOT_COTI",
    "FOL_COTI,FEC_COTI,COD_PROV,FOL_REQ,DES_MON,tblCotizacionesEnc.TIP_CAM,IMP_COTI,DES_COTI,"
    "DES_TOT,CARGO_TOT,CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI,COD_ESTATUS,COD_USU",
    "FOL_COTI,FEC_COTI,FOL_REQ,DES_MON,tblCotizacionesEnc.TIP_CAM,IMP_COTI,DES_COTI,DES_TOT,"
    "CARGO_TOT,CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI,tblCotizacionesEnc.COD_SUCU,DES_SUCU,"
    "COD_ESTATUS,COD_USU",
    {UneMoneda, nullptr, nullptr},
    {"IMP_COTI", "DES_COTI", "CARGO_TOT", "CARGO_IVA", "SUB_COTI", "IVA_COTI"},
    7200,
    "tblCotizacionesRen",
    "IMP_ARAN",
    "POR_ARAN",
    "REN_IMP1",
    "REN_IMP2",
    "REN_DES",
    "EQV_ART",
    "",
    "RelaciónDocumentos_Cotización"};

const Documento OrdenCompra{
    DocCompOrdenCompra,
    "tblOCOMEnc",
    "FOL_OCOM",
    "FEC_OCOM",
    "FOL_REQS",
    "TOT_OCOM",
    "FOL_OCOM,FEC_OCOM,COD_PROV,FOL_REQS,DES_ALM,DES_MON,tblOCOMEnc.TIP_CAM,IMP_OCOM,DES_OCOM,"
    "CARGOS_TOT,CARGOS_IMP,SUB_OCOM,IVA_OCOM,TOT_OCOM,tblOCOMEnc.COD_SUCU,DES_SUCU,COD_ESTATUS,"
    "COD_USU",
    "",
    {UneAlmacen, UneSucursal, UneMoneda},
    {"IMP_OCOM", "DES_OCOM", "CARGOS_TOT", "CARGOS_IMP", "SUB_OCOM", "IVA_OCOM"},
    7200,
    "tblOCOMRen",
    "IMP_ARANCEL",
    "POR_ARANCEL",
    "IMP1_REG",
    "IMP2_REG",
    "DESCUENTO",
    "EQV_UND",
    "IMPORTE",
    "RelaciónDocumentos_OrdenCompra"};

const Documento Recepcion{
    DocCompRecepcion,
    "tblComprasEnc",
    "FOL_DOC",
    "FEC_DOC",
    "REF_FACTURA",
    "TOT_DOC",
    "FOL_DOC,FEC_DOC,COD_PROV,REF_FACTURA,DES_ALM,DES_MON,tblComprasEnc.TIP_CAM,IMP_DOC,DES_DOC,"
    "CARGO_TOTAL,CARGO_IMPTO,SUB_DOC,IVA_DOC,TOT_DOC,tblComprasEnc.COD_SUCU,DES_SUCU,COD_ESTATUS,"
    "COD_USU",
    "",
    {UneAlmacen, UneSucursal, UneMoneda},
    {"IMP_DOC", "DES_DOC", "CARGO_TOTAL", "CARGO_IMPTO", "SUB_DOC", "IVA_DOC"},
    7300,
    "tblComprasRen",
    "IMP_ARANCEL",
    "POR_ARANCEL",
    "IMP1_ART",
    "IMP2_ART",
    "DESCUENTO",
    "EQV_UND",
    "IMPORTE",
    "RelaciónDocumentos_Recepción"};

const Documento Devolucion{
    DocCompDevolucion,
    "tblDevolucionEnc",
    "FOL_DEV",
    "FEC_DEV",
    "FOL_REC",
    "TOT_DEV",
    "FOL_DEV,FEC_DEV,FOL_REC,COD_PROV,SUB_DEV,IVA_DEV,TOT_DEV,DES_ALM,DES_MON,"
    "tblDevolucionEnc.TIP_CAM,tblDevolucionEnc.COD_SUCU,DES_SUCU,COD_ESTATUS,COD_USU",
    "",
    {UneAlmacen, UneSucursal, UneMoneda},
    {},
    0,
    "tblDevolucionRen",
    "",
    "",
    "",
    "",
    "",
    "EQV_UND",
    "",
    "RelaciónDocumentos_Devolución"};

const Documento& DocumentoDe(int tipo) {
    switch (tipo) {
    case DocCompRequisicion:
        return Requisicion;
    case DocCompCotizacion:
        return Cotizacion;
    case DocCompOrdenCompra:
        return OrdenCompra;
    case DocCompDevolucion:
        return Devolucion;
    default: // Recepción and Remisión
        return Recepcion;
    }
}

QString Texto(const char* t) {
    return QString::fromUtf8(t);
}

QString ConTabla(const char* plantilla, const QString& tabla) {
    return Texto(plantilla).replace("{T}", tabla);
}

// FROM clause: every join but the last closes a parenthesis opened in front
// of the header table.
QString Une(const QString& tabla, const QStringList& uniones) {
    QString from(qMax<qsizetype>(uniones.size() - 1, 0), '(');
    from += tabla;
    for (qsizetype i = 0; i < uniones.size(); ++i) {
        from += ' ' + uniones[i];
        if (i + 1 < uniones.size())
            from += ')';
    }
    return from;
}

// The status terms of a kind, in the order Activos, Cancelados, Surtidos.
struct Estatus {
    QString activos, cancelados, surtidos;
};
Estatus EstatusDe(int tipo) {
    if (tipo == DocCompOrdenCompra)
        return {"COD_ESTATUS=4", "COD_ESTATUS=5", "COD_ESTATUS=3"};
    return {"COD_ESTATUS=4 OR COD_ESTATUS=1", "COD_ESTATUS=2", "COD_ESTATUS=3"};
}

Color ColorFolio(int tipo, int estatus) {
    const int cancelado = tipo == DocCompOrdenCompra ? 5 : 2;
    if (estatus == cancelado)
        return ColorCancelado;
    if (estatus == 3 && (tipo == DocCompRequisicion || tipo == DocCompOrdenCompra))
        return ColorSurtido;
    return ColorAzul;
}

// The statement, its filters in the order the suite appends them, the
// status condition and the sort. Returns false when a cost centre with no
// budget concepts leaves nothing to look for.
bool SentenciaRelacion(ReporteCompras& r, bool grupos, QString& sql, QString& estatusTitulo) {
    SeleccionCompras& sel = r.Sel;
    const ControlesCompras& p = r.Pantalla;
    const int tipo = sel.DocumentoActual;
    const Documento& d = DocumentoDe(tipo);
    const QString t = Texto(d.tabla);

    QStringList uniones;
    if (grupos) {
        uniones << "INNER JOIN tblGpoAgrProveedor ON " + t + ".COD_PROV=tblGpoAgrProveedor.COD_PROV"
                << "LEFT JOIN tblAgrProveedor ON "
                   "tblGpoAgrProveedor.COD_AGR=tblAgrProveedor.COD_AGR"
                << "LEFT JOIN tblGpoProveedor ON "
                   "tblGpoAgrProveedor.COD_GPO=tblGpoProveedor.COD_GPO";
        // Quotations name their branch only when grouped.
        if (tipo == DocCompCotizacion)
            uniones << ConTabla(UneSucursal, t);
    }
    for (const char* u : d.uniones)
        if (u)
            uniones << ConTabla(u, t);

    QString lista = Texto(d.lista);
    if (grupos)
        lista = sel.SelectGpoProv +
                (*d.listaGrupos ? Texto(d.listaGrupos) : QString(lista).remove("COD_PROV,"));
    else
        lista = "SELECT " + lista;
    sql = lista + " FROM " + Une(t, uniones) + " WHERE " + d.fecha + " BETWEEN " + sel.FechaIni +
          " AND " + sel.FechaFin + " AND";
    if (grupos)
        sql += " tblGpoAgrProveedor.COD_AGR IN(" + sel.ListaAgrProv + ") AND";

    if (tipo != DocCompRequisicion) {
        if (!sel.CodProv.isEmpty())
            sql += grupos ? " (tblGpoAgrProveedor.COD_PROV ='" + sel.CodProv + "') AND"
                          : " (" + t + ".COD_PROV ='" + sel.CodProv + "') AND";
        if (tipo != DocCompRemision) {
            if (p.Nacional)
                sql += "(IMPORTACION=0) AND";
            if (p.Importacion)
                sql += "(IMPORTACION=1) AND";
        }
        if ((tipo == DocCompOrdenCompra || tipo == DocCompRecepcion) && !sel.CodCCos.isEmpty()) {
            RecordsetPtr rs = r.Base.Abre(
                "SELECT COD_CPRE FROM tblConDePresu WHERE COD_CCOS=" + sel.CodCCos + ";");
            QStringList conceptos;
            for (; !rs->Eof(); rs->MoveNext())
                conceptos << rs->Campo("COD_CPRE").Texto();
            if (conceptos.isEmpty())
                return false;
            sql += " (COD_CPRE IN(" + conceptos.join(',') + ")) AND";
        }
    } else if (!sel.CodCCos.isEmpty()) {
        sql += " (tblRequisicionesEnc.COD_CCOS=" + sel.CodCCos + ") AND ";
    }
    if (!sel.ListaAlm.isEmpty())
        sql += " (" + t + ".COD_SUCU IN(" + sel.ListaAlm + ")) AND";
    if (!p.TipoDocTexto.isEmpty())
        sql += " (" + t + ".COD_TIP=" + p.TipoDocCodigo + ") AND";

    // Surtidos is a choice only where its box can be ticked, except for
    // orders, whose filled status is always a choice.
    const Estatus e = EstatusDe(tipo);
    const bool activos = sel.EstActivos == 1;
    const bool cancelados = sel.EstCancelados == 1;
    const bool surtidos =
        sel.EstSurtidos == 1 && (tipo == DocCompOrdenCompra || p.SurtidosHabilitado);
    QStringList condicion;
    if (tipo == DocCompRemision) {
        condicion << "COD_ESTATUS=7";
    } else if (!(activos && cancelados && sel.EstSurtidos == 1)) {
        if (activos)
            condicion << e.activos;
        if (cancelados)
            condicion << e.cancelados;
        if (surtidos)
            condicion << e.surtidos;
    }
    sql.chop(4);
    if (!condicion.isEmpty())
        sql += " AND (" + condicion.join(" OR ") + ")";

    QStringList etiqueta;
    if (activos)
        etiqueta << "ACTIVO";
    if (sel.EstSurtidos == 1 && p.SurtidosHabilitado)
        etiqueta << "SURTIDO";
    if (cancelados)
        etiqueta << "CANCELADO";
    estatusTitulo = condicion.isEmpty() ? QString("TODOS") : etiqueta.join(", ");

    QString orden =
        sel.OrdenActual == 0 ? QString(d.fecha) + ',' + d.folio : QString(d.folio) + ',' + d.fecha;
    if (tipo >= DocCompOrdenCompra)
        orden = "COD_SUCU," + orden;
    if (grupos)
        orden = "COD_GPO,COD_AGR," + orden;
    sel.OrdenSql = orden;
    return true;
}

void LineaPeriodo(ReporteCompras& r) {
    r.S().TextOut(0, r.lnLinea(),
                  "Del : " + FormatoFecha(r.Pantalla.Fecha0, "dd/mmm/yyyy") +
                      "   Al :  " + FormatoFecha(r.Pantalla.Fecha1, "dd/mmm/yyyy"));
}

void TituloRelacion(ReporteCompras& r, const QString& estatus) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    s.SaveState();
    s.FontSize = 9;
    s.FontBold = true;
    s.ForeColor = ColorAzul;
    LineaPeriodo(r);
    if (r.Sel.DocumentoActual != DocCompRemision)
        s.TextOut(3500, y, "Estatus: " + estatus);
    if (!r.Pantalla.TipoDocTexto.isEmpty())
        s.TextOut(5500, y, "Tipo de Documento:       " + r.Pantalla.TipoDocTexto);
    if (!r.Sel.CodProv.isEmpty()) {
        y += 250;
        RecordsetPtr rs = r.Base.Abre("SELECT NOM_PROV FROM tblCatProveedor WHERE COD_PROV='" +
                                      r.Sel.CodProv + "';");
        if (!rs->Eof())
            s.TextOut(800, y, "Proveedor:       " + rs->Campo("NOM_PROV").Texto());
    }
    y += 250;
    s.RestoreState();
}

// The walk shared by the six kinds; where they differ it asks the kind.
class Relacion {
public:
    Relacion(ReporteCompras& r, bool grupos)
        : r_(r), s_(r.S()), y_(r.lnLinea()), d_(DocumentoDe(r.Sel.DocumentoActual)),
          tipo_(r.Sel.DocumentoActual), grupos_(grupos), excel_(r, false, grupos),
          global_(r.Pantalla.Global), resumido_(r.Pantalla.Resumido), detallado_(r.Sel.Detallado) {}

    void Corre() {
        SeleccionCompras& sel = r_.Sel;
        RecordsetPtr rs = AbreOrdenado(r_, sel.SqlConsulta);
        if (grupos_)
            y_ -= 200;
        const bool requisicion = tipo_ == DocCompRequisicion;
        for (; !rs->Eof(); rs->MoveNext()) {
            s_.SaveState();
            if (grupos_) {
                const QString gpo = rs->Campo("COD_GPO").Texto();
                if (gpo != grupo_ || primero_)
                    CambioGrupo(*rs, gpo);
                const QString agr = rs->Campo("COD_AGR").Texto();
                if (agr != agrupacion_ || primero_)
                    CambioAgrupacion(*rs, agr);
            }
            primero_ = false;
            if (LlevaSucursal()) {
                const Valor suc = rs->Campo("COD_SUCU");
                const QString codigo = suc.EsNulo() ? QString() : suc.Texto();
                if (codigo != sel.SucursalAnterior)
                    CambioSucursal(*rs, codigo);
            }
            LineaDocumento(*rs);
            const QString folio = rs->Campo(d_.folio).Texto();
            if (resumido_ && !requisicion) {
                if (tipo_ != DocCompDevolucion)
                    LineaResumen(*rs, folio);
            } else if (detallado_) {
                Articulos(folio);
            }
            s_.TextAlign = AlineaIzquierda;
            Avanza(200);
            s_.RestoreState();
        }
        rs->Cierra();
        if (!requisicion && (!grupos_ || totalBase_ > Moneda()))
            TotalBase();
        s_.SaveState();
        excel_.Termina(Texto(d_.nombreExcel));
    }

private:
    bool LlevaSucursal() const { return tipo_ >= DocCompOrdenCompra; }

    void Avanza(int paso, int limite = 14000) {
        y_ += paso;
        if (y_ > limite)
            r_.SaltoPagina(EncDocumentos);
    }

    // Where the base-currency total goes in the spreadsheet: a global list
    // has no "Total", and a detailed return list ends at "Importe".
    QString CampoTotalBase() const {
        if (global_)
            return QString("Importe M.N.");
        if (excel_.Filas() && !excel_.Filas()->TieneCampo("Total"))
            return QString("Importe");
        return QString("Total");
    }

    void TotalBase() {
        s_.SaveState();
        s_.ForeColor = ColorAzul;
        s_.FontBold = true;
        s_.FontSize = 9;
        s_.TextOut(500, y_, "TOTAL EN MONEDA BASE:");
        s_.TextAlign = AlineaDerecha;
        s_.TextOut(10500, y_, Formato(totalBase_, Patron));
        s_.RestoreState();
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Folio", "TOTAL MONEDA BASE");
            excel_.Fija(CampoTotalBase(), Formato(totalBase_, Patron));
        }
        totalBase_ = Moneda();
    }

    // A new supplier group: the base total of the previous one when it is
    // above zero, then the group's name. A total of zero or less runs on.
    void CambioGrupo(const Recordset& rs, const QString& codigo) {
        grupo_ = codigo;
        y_ += 150;
        if (totalBase_ > Moneda())
            TotalBase();
        Avanza(250, 13000);
        const QString texto = rs.Campo("DES_GPO").Texto() + "   (" + codigo + ")";
        s_.FontSize = 9;
        s_.FontBold = true;
        s_.ForeColor = ColorAzul;
        s_.TextOut(100, y_, texto);
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Grupo", texto);
        }
        s_.FontSize = 8;
        y_ += LlevaSucursal() ? 150 : 250;
        r_.Sel.SucursalAnterior.clear();
    }

    void CambioAgrupacion(const Recordset& rs, const QString& codigo) {
        agrupacion_ = codigo;
        if (LlevaSucursal()) {
            y_ += 200;
            s_.FontSize = 9;
        } else {
            s_.FontSize = 8;
        }
        const QString texto = rs.Campo("DES_AGR").Texto() + "   (" + codigo + ")";
        s_.FontBold = true;
        s_.ForeColor = ColorAzul;
        s_.TextOut(500, y_, texto);
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Agrup.", texto);
        }
        s_.FontBold = false;
        s_.ForeColor = ColorNegro;
        y_ += 250;
        r_.Sel.SucursalAnterior.clear();
    }

    void CambioSucursal(const Recordset& rs, const QString& codigo) {
        r_.Sel.SucursalAnterior = codigo;
        y_ += 100;
        const Valor nombre = rs.Campo("DES_SUCU");
        const QString texto = nombre.EsNulo() ? QString("SUCURSAL NO DEFINIDA") : nombre.Texto();
        s_.FontBold = true;
        s_.ForeColor = ColorAzul;
        s_.FontSize = 9;
        s_.TextOut(200, y_, texto);
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Sucursal", texto);
        }
        s_.ForeColor = ColorNegro;
        y_ += 250;
    }

    void Derecha(int x, const QString& texto) {
        s_.TextAlign = AlineaDerecha;
        s_.TextOut(x, y_, texto);
        s_.TextAlign = AlineaIzquierda;
    }
    void Derecha(int x, Moneda valor) { Derecha(x, Formato(valor, Patron)); }

    void LineaDocumento(const Recordset& rs) {
        const QString folio = rs.Campo(d_.folio).Texto();
        const QString fecha = FormatoFecha(rs.Campo(d_.fecha).Fecha(), "DD/MM/YYYY");
        r_.Sel.FolioTexto = UltimosDiez(folio);
        s_.FontSize = 7;
        s_.FontBold = detallado_;
        s_.ForeColor = ColorFolio(tipo_, rs.Campo("COD_ESTATUS").Entero());
        s_.TextOut(0, y_, r_.Sel.FolioTexto);
        s_.ForeColor = ColorNegro;
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Folio", folio);
            excel_.Fija("Fecha", fecha);
            excel_.Fija("CodUsu", rs.Campo("COD_USU").Texto());
        }
        if (tipo_ == DocCompRequisicion) {
            LineaRequisicion(rs, fecha);
            return;
        }
        const QString referencia = rs.Campo(d_.referencia).Texto();
        const QString proveedor = rs.Campo("COD_PROV").Texto();
        const bool devolucion = tipo_ == DocCompDevolucion;
        s_.TextOut(1000, y_, UltimosDiez(referencia));
        s_.TextOut(2200, y_, proveedor);
        s_.TextOut(devolucion ? 3200 : 3300, y_, fecha);

        const QString moneda = rs.Campo("DES_MON").Texto();
        const QString almacen = LlevaSucursal() ? rs.Campo("DES_ALM").Texto() : QString();
        const Moneda cambio = rs.Campo("TIP_CAM").Dinero();
        const Moneda total = rs.Campo(d_.total).Dinero();
        const Moneda enBase = cambio * total;
        if (excel_.EnviarExcel) {
            excel_.Fija("Referencia", referencia);
            excel_.Fija("CodProv", proveedor);
            excel_.Fija("Moneda", moneda);
            excel_.Fija("T.C.", Formato(cambio, Patron));
        }
        if (global_) {
            if (LlevaSucursal())
                s_.TextOut(4100, y_, almacen.left(15));
            s_.TextOut(5600, y_, moneda.left(10));
            Derecha(7700, cambio);
            Derecha(9100, total);
            Derecha(10400, enBase);
            if (excel_.EnviarExcel) {
                if (LlevaSucursal())
                    excel_.Fija("Alm", almacen);
                excel_.Fija("Importe", Formato(total, Patron));
                excel_.Fija("Importe M.N.", Formato(enBase, Patron));
            }
        } else if (devolucion) {
            const QString sucursal = rs.Campo("DES_SUCU").Texto();
            s_.TextOut(4100, y_, sucursal.left(10));
            s_.TextOut(5000, y_, almacen);
            s_.TextOut(6000, y_, moneda);
            Derecha(7500, cambio);
            const std::array<std::pair<int, const char*>, 3> importes{
                {{8500, "SUB_DEV"}, {9450, "IVA_DEV"}, {10500, "TOT_DEV"}}};
            for (const auto& [x, campo] : importes)
                Derecha(x, rs.Campo(campo).Dinero());
            if (excel_.EnviarExcel) {
                excel_.Fija("Cod.Suc", rs.Campo("COD_SUCU").Texto());
                excel_.Fija("Almac", almacen);
                // The summary list carries the three amounts the line shows.
                if (resumido_) {
                    excel_.Fija("Subtotal", Formato(rs.Campo("SUB_DEV").Dinero(), Patron));
                    excel_.Fija("Impuestos", Formato(rs.Campo("IVA_DEV").Dinero(), Patron));
                    excel_.Fija("Total", Formato(total, Patron));
                }
            }
        } else {
            if (LlevaSucursal()) {
                s_.TextOut(4200, y_, rs.Campo("DES_SUCU").Texto().left(10));
                s_.TextOut(5300, y_, almacen.left(15));
            }
            s_.TextOut(6900, y_, moneda.left(10));
            Derecha(8900, cambio);
            const Moneda cargos =
                rs.Campo(d_.resumen[2]).Dinero() + rs.Campo(d_.resumen[3]).Dinero();
            Derecha(10400, cargos);
            if (excel_.EnviarExcel) {
                if (LlevaSucursal()) {
                    excel_.Fija("Cod.Suc", rs.Campo("COD_SUCU").Texto());
                    excel_.Fija("Almac", almacen);
                }
                excel_.Fija("Cargos", Formato(cargos, Patron));
            }
        }
        // The base total takes each document as printed, to the cent.
        totalBase_ += Moneda::DeTexto(Formato(enBase, Patron));
    }

    void LineaRequisicion(const Recordset& rs, const QString& fecha) {
        const QString tipoReq = rs.Campo("DES_TIP").Texto();
        const QString concepto = rs.Campo("DES_CPRE").Texto();
        const QString centro = rs.Campo("DES_CCOS").Texto();
        const QString nota = rs.Campo("NOTA").Texto();
        s_.TextOut(1150, y_, fecha);
        s_.TextOut(2150, y_, tipoReq);
        s_.TextOut(3400, y_, concepto.left(25));
        s_.TextOut(6100, y_, centro.left(20));
        s_.TextOut(8300, y_, nota.left(23));
        if (excel_.EnviarExcel) {
            excel_.Fija("Tipo", tipoReq);
            excel_.Fija("Concepto de Presupuesto", concepto);
            excel_.Fija("Centro de Costo", centro);
            excel_.Fija("Observaciones", nota.left(255));
        }
    }

    Moneda Suma(const QString& sql, const QString& campo) {
        RecordsetPtr rs = r_.Base.Abre(sql);
        if (rs->Eof())
            return Moneda();
        const Valor v = rs->Campo(campo);
        return v.EsNulo() ? Moneda() : v.Dinero();
    }

    // The second line of a summary: the document's amounts with the duty and
    // the tax of its lines, looked up.
    void LineaResumen(const Recordset& rs, const QString& folio) {
        Avanza(200);
        const QString donde = " WHERE " + QString(d_.folio) + "='" + folio + "'";
        const QString ren = Texto(d_.renglones);
        const Moneda arancel = Suma(
            "SELECT SUM(" + QString(d_.arancel) + ")AS ARANCEL FROM " + ren + donde, "ARANCEL");
        Moneda impuesto;
        int n = 1;
        for (const char* columna : {d_.impuesto1, d_.impuesto2}) {
            const QString alias = "IMPTO" + QString::number(n++);
            impuesto += Suma("SELECT SUM(COS_UNI *(POR_IMP/100))AS " + alias + " FROM " + ren +
                                 " INNER JOIN tblImpuestos ON " + ren + '.' + columna +
                                 "=tblImpuestos.COD_IMP" + donde,
                             alias);
        }
        const Moneda importe = rs.Campo(d_.resumen[0]).Dinero();
        const Moneda descuento = rs.Campo(d_.resumen[1]).Dinero();
        struct Columna {
            int x;
            Moneda valor;
            const char* campo;
        };
        const std::array<Columna, 10> columnas{{
            {900, importe, "Importe"},
            {1800, descuento, "Descto."},
            {2900, importe - descuento, "Neto"},
            {4000, impuesto, "Impuesto"},
            {5000, rs.Campo(d_.resumen[2]).Dinero(), "Cargo"},
            {6100, rs.Campo(d_.resumen[3]).Dinero(), "Impto.Cargo"},
            {d_.xArancel, arancel, "Arancel"},
            {8300, rs.Campo(d_.resumen[4]).Dinero(), "Subtotal"},
            {9350, rs.Campo(d_.resumen[5]).Dinero(), "Impuestos"},
            {10400, rs.Campo(d_.total).Dinero(), "Total"},
        }};
        for (const Columna& c : columnas) {
            Derecha(c.x, c.valor);
            excel_.Fija(Texto(c.campo), Formato(c.valor, Patron));
        }
    }

    QString SentenciaArticulos(const QString& folio) const {
        const QString ren = Texto(d_.renglones);
        const QString une = " LEFT JOIN tblCatArticulos ON " + ren +
                            ".COD1_ART=tblCatArticulos.COD1_ART WHERE " + d_.folio + "='" + folio +
                            "'";
        switch (tipo_) {
        case DocCompRequisicion:
            return "SELECT " + ren + ".COD1_ART,DES1_ART,CAN_ART,COD_UND FROM " + ren + une;
        case DocCompDevolucion:
            return "SELECT " + ren + ".COD1_ART,DES1_ART,CAN_ART,COD_UND,EQV_UND,COS_UNI FROM " +
                   ren + " INNER JOIN tblCatArticulos ON " + ren +
                   ".COD1_ART=tblCatArticulos.COD1_ART WHERE " + d_.folio + "='" + folio + "'";
        default: {
            QString sql = "SELECT " + ren + ".COD1_ART,DES1_ART,CAN_ART,COD_UND," +
                          d_.equivalencia + ",COS_UNI," + (*d_.importe ? d_.importe : "COS_COM") +
                          ',' + d_.porArancel + ',' + d_.arancel;
            for (int i = 1; i <= 6; ++i)
                sql += QString(",(%1%2/100)AS DESC%2").arg(d_.descuento).arg(i);
            return sql + " FROM " + ren + une;
        }
        }
    }

    void Articulos(const QString& folio) {
        s_.FontSize = 6;
        s_.FontBold = false;
        RecordsetPtr rs = r_.Base.Abre(SentenciaArticulos(folio));
        // The sums under the lines: Importe, Descto, SubTotal (the duty) and
        // Total of the general measures, zeroed for each document.
        MedidasCompras& suma = r_.Sel.cyGral;
        for (; !rs->Eof(); rs->MoveNext()) {
            Avanza(200);
            s_.FontSize = 6;
            switch (tipo_) {
            case DocCompRequisicion:
                ArticuloRequisicion(*rs);
                break;
            case DocCompDevolucion:
                suma.Total += ArticuloDevolucion(*rs);
                break;
            default:
                ArticuloCompra(*rs, suma);
                break;
            }
        }
        rs->Cierra();
        if (tipo_ == DocCompRequisicion)
            return;
        Avanza(200);
        s_.FontSize = 6;
        s_.DrawLine(5200, y_, 10500, y_);
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Folio", "TOTAL");
        }
        if (tipo_ == DocCompDevolucion) {
            Derecha(10400, suma.Total);
            excel_.Fija("Importe", Formato(suma.Total, Patron));
            suma = MedidasCompras{};
            return;
        }
        const std::array<std::tuple<int, Moneda, const char*>, 4> sumas{{
            {6100, suma.Importe, "Importe"},
            {7100, suma.Descto, "Descto."},
            {9300, suma.SubTotal, "Imp.Arancel"},
            {10500, suma.Total, "Total"},
        }};
        for (const auto& [x, valor, campo] : sumas) {
            Derecha(x, valor);
            excel_.Fija(Texto(campo), Formato(valor, Patron));
        }
        suma = MedidasCompras{};
    }

    QString M(Moneda m) const { return Formato(m, Patron); }

    void ArticuloRequisicion(const Recordset& rs) {
        LineaConHoja(s_, y_, excel_,
                     {{300, false, rs.Campo("COD1_ART").Texto(), "Cod.Art"},
                      {1900, false, rs.Campo("DES1_ART").Texto().left(50), "Descrip.Art"},
                      {7400, false, rs.Campo("COD_UND").Texto(), "Unidad"},
                      {7000, true, M(rs.Campo("CAN_ART").Dinero()), "Cantidad"}});
    }

    Moneda ArticuloDevolucion(const Recordset& rs) {
        const Moneda cantidad = rs.Campo("CAN_ART").Dinero();
        const Moneda costo = rs.Campo("COS_UNI").Dinero();
        const Moneda importe = cantidad * costo;
        LineaConHoja(s_, y_, excel_,
                     {{0, false, rs.Campo("COD1_ART").Texto(), "Cod.Art"},
                      {1000, false, rs.Campo("DES1_ART").Texto().left(18), "Descrip.Art"},
                      {5100, false, rs.Campo("COD_UND").Texto(), "Unidad"},
                      {7400, true, M(cantidad), "Cantidad"},
                      {8900, true, M(costo), "Costo Unit."},
                      {10400, true, M(importe), "Importe"}});
        return importe;
    }

    // A quotation, order or receipt line: the six discounts apply one after
    // another, each on the cost the previous ones left, rounded to currency.
    void ArticuloCompra(const Recordset& rs, MedidasCompras& suma) {
        const Moneda cantidad = rs.Campo("CAN_ART").Dinero();
        const Moneda costo = rs.Campo("COS_UNI").Dinero();
        Moneda neto = costo;
        Moneda descuento;
        for (int i = 1; i <= 6; ++i) {
            const Moneda paso = neto * rs.Campo("DESC" + QString::number(i)).Doble();
            descuento += paso;
            neto -= paso;
        }
        const Moneda importe = *d_.importe ? rs.Campo(d_.importe).Dinero() : cantidad * costo;
        const Moneda descLinea = cantidad * descuento;
        const Moneda arancel = rs.Campo(d_.arancel).Dinero();
        const Moneda total = cantidad * neto + arancel;
        LineaConHoja(s_, y_, excel_,
                     {{0, false, rs.Campo("COD1_ART").Texto(), "Cod.Art"},
                      {1000, false, rs.Campo("DES1_ART").Texto().left(18), "Descrip.Art"},
                      {2500, false, rs.Campo("COD_UND").Texto(), "Unidad"},
                      {3700, true, M(cantidad), "Cantidad"},
                      {5000, true, M(costo), "Costo Unit."},
                      {6100, true, M(importe), "Importe"},
                      {7100, true, M(descLinea), "Descto."},
                      {8100, true, M(rs.Campo(d_.porArancel).Dinero()), "Porc.Arancel"},
                      {9300, true, M(arancel), "Imp.Arancel"},
                      {10500, true, M(total), "Total"}});
        suma.Importe += importe;
        suma.Descto += descLinea;
        suma.SubTotal += arancel;
        suma.Total += total;
    }

    ReporteCompras& r_;
    Superficie& s_;
    int& y_;
    const Documento& d_;
    const int tipo_;
    const bool grupos_;
    ExportaCompras excel_;
    const bool global_;
    const bool resumido_;
    const bool detallado_;
    QString grupo_, agrupacion_;
    bool primero_ = true;
    Moneda totalBase_;
};

} // namespace

void ConsultaRelacion(ReporteCompras& r, bool hayGrupos) {
    // Requisitions have no group form: their supplier tree is off.
    const bool grupos = hayGrupos && r.Sel.DocumentoActual != DocCompRequisicion;
    QString sql, estatus;
    const bool hayConceptos = SentenciaRelacion(r, grupos, sql, estatus);
    EncabezadoCompras(r, EncDocumentos);
    if (!hayConceptos) {
        // A cost centre with no budget concepts can match nothing.
        Superficie& s = r.S();
        s.SaveState();
        s.FontSize = 9;
        s.FontBold = true;
        s.ForeColor = ColorAzul;
        LineaPeriodo(r);
        s.RestoreState();
        return;
    }
    r.Sel.SqlConsulta = sql;
    TituloRelacion(r, estatus);
    Relacion(r, grupos).Corre();
}

} // namespace consultas
