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

// The amount columns: where each measure is drawn, its spreadsheet field,
// and whether returns carry it (they keep only the last three).
struct Columna {
    int x;
    const char* campo;
    Moneda MedidasCompras::*medida;
    bool enDevolucion;
};
const std::array<Columna, 7> Columnas{{
    {4900, "Importe", &MedidasCompras::Importe, false},
    {5900, "Descto.", &MedidasCompras::Descto, false},
    {6900, "Cargos", &MedidasCompras::Cargos, false},
    {7800, "Arancel", &MedidasCompras::Arancel, false},
    {8800, "SubTotal", &MedidasCompras::SubTotal, true},
    {9600, "Impto", &MedidasCompras::Impto, true},
    {10500, "Total", &MedidasCompras::Total, true},
}};

// A row's amounts as doubles, in the order of Columnas; returns leave the
// first four at zero.
using Importes = std::array<double, 7>;

// One walk, receipts or returns: the two differ only in names, in the
// conversion to base currency and in the measures they carry.
class Diario {
public:
    Diario(ReporteCompras& r, bool totalesDia)
        : r_(r), s_(r.S()), y_(r.lnLinea()), excel_(r),
          recepcion_(r.Sel.DocumentoActual == DocCompRecepcion), global_(r.Pantalla.Global),
          totalesDia_(totalesDia) {}

    void Corre() {
        SeleccionCompras& sel = r_.Sel;
        // Receipts group by status too, so that a folio's status is one
        // value; the statement ends in its GROUP BY, so the column lands there.
        const QString sql = recepcion_ ? sel.SqlConsulta + ",COD_ESTATUS" : sel.SqlConsulta;
        RecordsetPtr rs = AbreOrdenado(r_, sql);
        const QString campoFecha = recepcion_ ? "FEC_DOC" : "FEC_DEV";
        const QString campoFolio = recepcion_ ? "FOL_DOC" : "FOL_DEV";
        for (; !rs->Eof(); rs->MoveNext()) {
            s_.SaveState();
            const QDate fecha = rs->Campo(campoFecha).Fecha();
            if (fecha != ultimaFecha_ && sel.cyDia.Total > Moneda() && totalesDia_)
                TotalDia();
            const Valor sucursal = rs->Campo("COD_SUCU");
            const QString codSucu = sucursal.EsNulo() ? QString() : sucursal.Texto();
            if (codSucu != sel.SucursalAnterior)
                CambioSucursal(*rs, codSucu);
            s_.FontSize = 6;
            nombreSucursal_ = rs->Campo("DES_SUCU").Texto();
            const double tasa = recepcion_ ? rs->Campo("TIP_CAM").Dinero().ADoble() : 1.0;
            const Importes imp = LeeImportes(*rs, tasa);
            if (!global_)
                LineaDocumento(*rs, campoFolio, fecha, imp);
            for (size_t i = 0; i < Columnas.size(); ++i)
                if (recepcion_ || Columnas[i].enDevolucion)
                    Acumula(Columnas[i].medida, imp[i]);
            if (!global_) {
                y_ += 200;
                if (y_ > 14000)
                    r_.SaltoPagina(EncDocumentos);
            }
            if (sel.Detallado)
                Articulos(rs->Campo(campoFolio).Texto(), tasa);
            s_.RestoreState();
            ultimaFecha_ = fecha;
        }
        rs->Cierra();
        s_.SaveState();
        if (totalesDia_ && sel.cyDia.Total > Moneda())
            TotalDia();
        if (sel.cySuc.Total > Moneda())
            TotalSucursal(false);
        s_.ForeColor = ColorAzul;
        s_.FontBold = true;
        s_.DrawLine(4000, y_, 10500, y_);
        y_ += 300;
        if (y_ > 14000)
            r_.SaltoPagina(EncDocumentos);
        s_.SaveState();
        s_.FontSize = 10;
        s_.TextOut(2000, y_, "TOTALES");
        s_.FontSize = 6;
        Medidas(sel.cyGral, "TOTALES");
        s_.RestoreState();
        s_.RestoreState();
        excel_.Termina(recepcion_ ? QString::fromUtf8("DiarioCompras_Recepción")
                                  : QString::fromUtf8("DiarioCompras_Devolución"));
    }

private:
    Importes LeeImportes(const Recordset& rs, double tasa) const {
        Importes imp{};
        auto lee = [&](const char* campo) { return tasa * rs.Campo(campo).Doble(); };
        if (recepcion_) {
            imp = {lee("IMP_DOC"), lee("DES_DOC"), lee("CARGO_TOTAL"), lee("ARANCEL"),
                   lee("SUB_DOC"), lee("IVA_DOC"), lee("TOT_DOC")};
        } else {
            imp[4] = lee("SUB_DEV");
            imp[5] = lee("IVA_DEV");
            imp[6] = lee("TOT_DEV");
        }
        return imp;
    }

    // Each level takes the converted amount in floating point and is
    // rounded back to currency at every addition, as the suite's own
    // journal does.
    void Acumula(Moneda MedidasCompras::*medida, double valor) {
        for (MedidasCompras* m : {&r_.Sel.cyDia, &r_.Sel.cySuc, &r_.Sel.cyGral})
            m->*medida = Moneda::DeDoble((m->*medida).ADoble() + valor);
    }

    bool Lleva(const Columna& c) const { return recepcion_ || c.enDevolucion; }

    // The measures of a level right-aligned at their columns, and a
    // spreadsheet row headed by the text given.
    void Medidas(const MedidasCompras& m, const QString& enSucursal) {
        s_.TextAlign = AlineaDerecha;
        for (const Columna& c : Columnas)
            if (Lleva(c))
                s_.TextOut(c.x, y_, Formato(m.*c.medida, Patron));
        s_.TextAlign = AlineaIzquierda;
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("En Sucursal", enSucursal);
            for (const Columna& c : Columnas)
                if (Lleva(c))
                    excel_.Fija(QString::fromUtf8(c.campo), Formato(m.*c.medida, Patron));
        }
    }

    void TotalDia() {
        if (!global_) {
            s_.FontBold = true;
            s_.DrawLine(4000, y_, 10500, y_);
        }
        s_.FontSize = 6;
        const QString texto = "TOTAL " + FormatoFecha(ultimaFecha_, "DD/MMM/YYYY");
        s_.TextOut(1800, y_, texto);
        Medidas(r_.Sel.cyDia, texto);
        r_.Sel.cyDia = MedidasCompras{};
        y_ += 200;
        if (y_ > 13000)
            r_.SaltoPagina(EncDocumentos);
    }

    // The closing branch total of the report skips the page test.
    void TotalSucursal(bool pruebaPagina) {
        s_.FontSize = 6;
        s_.FontBold = true;
        s_.DrawLine(4000, y_, 10500, y_);
        s_.TextOut(500, y_, "TOTAL EN SUCURSAL :   " + nombreSucursal_);
        Medidas(r_.Sel.cySuc, "TOTAL EN " + nombreSucursal_.left(21));
        r_.Sel.cySuc = MedidasCompras{};
        r_.Sel.cyDia = MedidasCompras{};
        y_ += 200;
        if (pruebaPagina && y_ > 13000)
            r_.SaltoPagina(EncDocumentos);
    }

    void CambioSucursal(const Recordset& rs, const QString& codSucu) {
        SeleccionCompras& sel = r_.Sel;
        sel.SucursalAnterior = codSucu;
        if (sel.cyDia.Total > Moneda() && totalesDia_)
            TotalDia();
        if (sel.cySuc.Total > Moneda())
            TotalSucursal(true);
        y_ += 100;
        const QString nombre = rs.Campo("DES_SUCU").Texto();
        s_.FontBold = true;
        s_.ForeColor = ColorAzul;
        s_.FontSize = 9;
        s_.TextOut(200, y_, nombre);
        s_.FontBold = false;
        s_.ForeColor = ColorNegro;
        y_ += 250;
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("En Sucursal", nombre);
        }
    }

    void LineaDocumento(const Recordset& rs, const QString& campoFolio, const QDate& fecha,
                        const Importes& imp) {
        const QString folio = rs.Campo(campoFolio).Texto();
        const QString fechaTexto = FormatoFecha(fecha, "DD/MM/YYYY");
        const QString prov = rs.Campo("COD_PROV").Texto();
        const QString sucursal = recepcion_ ? rs.Campo("COD_ALM").Texto() : nombreSucursal_;
        r_.Sel.FolioTexto = UltimosDiez(folio);
        s_.FontSize = 6;
        s_.ForeColor = rs.Campo("COD_ESTATUS").Entero() == 2 ? ColorCancelado : ColorAzul;
        s_.TextOut(0, y_, r_.Sel.FolioTexto);
        s_.ForeColor = ColorNegro;
        s_.TextOut(1000, y_, fechaTexto);
        s_.TextOut(1800, y_, prov);
        s_.TextOut(2850, y_, recepcion_ ? sucursal : sucursal.left(10));
        s_.TextAlign = AlineaDerecha;
        for (size_t i = 0; i < Columnas.size(); ++i)
            if (Lleva(Columnas[i]))
                s_.TextOut(Columnas[i].x, y_, Formato(imp[i], Patron));
        s_.TextAlign = AlineaIzquierda;
        if (excel_.EnviarExcel) {
            excel_.AgregaNuevo();
            excel_.Fija("Folio", folio);
            excel_.Fija("Fecha", fechaTexto);
            excel_.Fija("CodProv", prov);
            excel_.Fija("Sucursal", sucursal);
            excel_.Fija("CodUsu", rs.Campo("COD_USU").Texto());
            for (size_t i = 0; i < Columnas.size(); ++i)
                if (Lleva(Columnas[i]))
                    excel_.Fija(QString::fromUtf8(Columnas[i].campo), Formato(imp[i], Patron));
        }
    }

    void Articulos(const QString& folio, double tasa) {
        const QString sql =
            recepcion_
                ? "SELECT tblComprasRen.COD1_ART,CAN_ART,COD_UND,COS_COM,IMP_ARANCEL,DES1_ART FROM "
                  "tblComprasRen LEFT JOIN tblCatArticulos ON "
                  "tblComprasRen.COD1_ART=tblCatArticulos.COD1_ART WHERE FOL_DOC='" +
                      folio + "'"
                : "SELECT tblDevolucionRen.COD1_ART,CAN_ART,COD_UND,COS_UNI,DES1_ART FROM "
                  "tblDevolucionRen LEFT JOIN tblCatArticulos ON "
                  "tblDevolucionRen.COD1_ART=tblCatArticulos.COD1_ART WHERE FOL_DEV='" +
                      folio + "'";
        RecordsetPtr rs = r_.Base.Abre(sql);
        s_.FontSize = 5;
        s_.FontBold = false;
        for (; !rs->Eof(); rs->MoveNext()) {
            const QString art = rs->Campo("COD1_ART").Texto();
            const QString des = rs->Campo("DES1_ART").Texto().left(50);
            const QString und = rs->Campo("COD_UND").Texto();
            const double cantidad = rs->Campo("CAN_ART").Doble();
            const double costo = tasa * rs->Campo(recepcion_ ? "COS_COM" : "COS_UNI").Doble();
            const double arancel = recepcion_ ? tasa * rs->Campo("IMP_ARANCEL").Doble() : 0.0;
            std::vector<CeldaLinea> celdas{{200, false, art, "Cod.Art"},
                                           {1300, false, des, "Descrip.Art"},
                                           {6300, false, und, "Unidad"},
                                           {5500, true, Formato(cantidad, Patron), "Cantidad"}};
            if (recepcion_)
                celdas.push_back({7500, true, Formato(arancel, Patron), "Imp.Arancel"});
            celdas.push_back({8700, true, Formato(costo, Patron), "Costo Unit."});
            celdas.push_back({9900, true, Formato(cantidad * costo, Patron), "Importe Art."});
            LineaConHoja(s_, y_, excel_, celdas);
            y_ += 150;
            if (y_ > 14300) {
                r_.SaltoPagina(EncDocumentos);
                s_.FontSize = 5;
            }
        }
    }

    ReporteCompras& r_;
    Superficie& s_;
    int& y_;
    ExportaCompras excel_;
    const bool recepcion_;
    const bool global_;
    const bool totalesDia_;
    QDate ultimaFecha_;
    QString nombreSucursal_;
};

// The statement of the period with every filter of the screen, in the
// order the conditions are appended.
QString SentenciaDiario(ReporteCompras& r) {
    SeleccionCompras& sel = r.Sel;
    const ControlesCompras& p = r.Pantalla;
    const bool recepcion = sel.DocumentoActual == DocCompRecepcion;
    const bool region = p.RegionHabilitada && p.PorRegion;
    QString sql;
    if (recepcion && region)
        sql = "SELECT tblComprasEnc.FOL_DOC,FEC_DOC,tblComprasEnc.COD_PROV,REF_FACTURA,"
              "tblComprasEnc.COD_ALM,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,SUB_DOC,IVA_DOC,TOT_DOC,"
              "SUM(IMP_ARANCEL)AS ARANCEL,tblSucursales.COD_SUCU,DES_SUCU,COD_ESTATUS,COD_USU "
              "FROM ((tblComprasEnc LEFT JOIN tblCatProveedor ON "
              "tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV) LEFT JOIN tblSucursales ON "
              "tblComprasEnc.COD_SUCU=tblSucursales.COD_SUCU) INNER JOIN tblComprasRen ON "
              "tblComprasEnc.FOL_DOC=tblComprasRen.FOL_DOC WHERE FEC_DOC BETWEEN ";
    else if (recepcion)
        sql = "SELECT tblComprasEnc.FOL_DOC,FEC_DOC,COD_PROV,REF_FACTURA,tblComprasEnc.COD_ALM,"
              "TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,SUB_DOC,IVA_DOC,TOT_DOC,SUM(IMP_ARANCEL)AS "
              "ARANCEL,tblSucursales.COD_SUCU,DES_SUCU,COD_ESTATUS,COD_USU FROM (tblComprasEnc "
              "LEFT JOIN tblSucursales ON tblComprasEnc.COD_SUCU=tblSucursales.COD_SUCU) INNER "
              "JOIN tblComprasRen ON tblComprasEnc.FOL_DOC=tblComprasRen.FOL_DOC WHERE FEC_DOC "
              "BETWEEN ";
    else if (region)
        sql = "SELECT FOL_DEV,FEC_DEV,COD_TIP,SUB_DEV,IVA_DEV,TOT_DEV,COD_ALM,"
              "tblDevolucionEnc.COD_PROV,tblSucursales.COD_SUCU,DES_SUCU,COD_ESTATUS,COD_USU FROM "
              "(tblDevolucionEnc LEFT JOIN tblCatProveedor ON "
              "tblDevolucionEnc.COD_PROV=tblCatProveedor.COD_PROV) LEFT JOIN tblSucursales ON "
              "tblDevolucionEnc.COD_SUCU=tblSucursales.COD_SUCU WHERE FEC_DEV BETWEEN ";
    else
        sql = "SELECT FOL_DEV,FEC_DEV,COD_TIP,SUB_DEV,IVA_DEV,TOT_DEV,COD_ALM,COD_PROV,"
              "tblSucursales.COD_SUCU,DES_SUCU,COD_ESTATUS,COD_USU FROM tblDevolucionEnc LEFT "
              "JOIN tblSucursales ON tblDevolucionEnc.COD_SUCU=tblSucursales.COD_SUCU WHERE "
              "FEC_DEV BETWEEN ";
    sql += sel.FechaIni + " AND " + sel.FechaFin + " AND";

    // A chosen supplier already fixes the region.
    if (region && sel.CodProv.isEmpty()) {
        if (!p.Ciudad.isEmpty())
            sql += " (tblCatProveedor.COD_CID='" + p.CodCiudad + "') AND";
        if (!p.Estado.isEmpty())
            sql += " (tblCatProveedor.COD_EST='" + p.CodEstado + "') AND";
        if (!p.Pais.isEmpty())
            sql += " (tblCatProveedor.COD_PAIS='" + p.CodPais + "') AND";
    }
    if (p.Nacional)
        sql += "(IMPORTACION=0) AND";
    if (p.Importacion)
        sql += "(IMPORTACION=1) AND";
    // Returns get the receipts' column name too; the engine refuses it,
    // which is how the suite has always behaved.
    if (!sel.CodProv.isEmpty())
        sql += " (tblComprasEnc.COD_PROV ='" + sel.CodProv + "') AND";
    if (!sel.ListaAlm.isEmpty())
        sql += " (tblSucursales.COD_SUCU IN(" + sel.ListaAlm + ")) AND";
    if (!p.TipoDocTexto.isEmpty())
        sql += " COD_TIP=" + p.TipoDocCodigo + " AND";

    const bool activos = sel.EstActivos == 1 && sel.EstCancelados == 0;
    const bool cancelados = sel.EstCancelados == 1 && sel.EstActivos == 0;
    if (recepcion) {
        if (activos)
            sql += " (COD_ESTATUS<>2 AND COD_ESTATUS<>7)";
        else if (cancelados)
            sql += " COD_ESTATUS=2";
        else
            sql += " COD_ESTATUS<>7";
        sql += " GROUP BY tblComprasEnc.FOL_DOC,FEC_DOC,tblComprasEnc.COD_PROV,REF_FACTURA,"
               "tblComprasEnc.COD_ALM,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,SUB_DOC,IVA_DOC,TOT_DOC,"
               "tblSucursales.COD_SUCU,DES_SUCU";
        sel.OrdenSql = "COD_SUCU,FEC_DOC,FOL_DOC";
    } else {
        if (activos)
            sql += " COD_ESTATUS=1";
        else if (cancelados)
            sql += " COD_ESTATUS=2";
        else
            sql.chop(4);
        sel.OrdenSql = "COD_SUCU,FEC_DEV,FOL_DEV";
    }
    return sql;
}

void TituloDiario(ReporteCompras& r) {
    Superficie& s = r.S();
    int& y = r.lnLinea();
    const SeleccionCompras& sel = r.Sel;
    const ControlesCompras& p = r.Pantalla;
    s.SaveState();
    s.FontSize = 9;
    s.FontBold = true;
    s.ForeColor = ColorAzul;
    s.TextOut(0, y,
              "Del : " + FormatoFecha(p.Fecha0, "dd/mmm/yyyy") +
                  "   Al :  " + FormatoFecha(p.Fecha1, "dd/mmm/yyyy"));
    if (sel.EstActivos == 1 && sel.EstCancelados == 0)
        s.TextOut(3500, y, "Estatus:  ACTIVO");
    else if (sel.EstActivos == 0 && sel.EstCancelados == 1)
        s.TextOut(3500, y, "Estatus:  CANCELADO");
    if (!p.TipoDocTexto.isEmpty())
        s.TextOut(5500, y, "Tipo de Documento:       " + p.TipoDocTexto);
    if (!sel.CodProv.isEmpty()) {
        y += 250;
        RecordsetPtr rs = r.Base.Abre("SELECT NOM_PROV FROM tblCatProveedor WHERE COD_PROV='" +
                                      sel.CodProv + "';");
        if (!rs->Eof())
            s.TextOut(800, y, "Proveedor:       " + rs->Campo("NOM_PROV").Texto());
    } else {
        LineaRegion(r);
    }
    y += 250;
    s.RestoreState();
}

} // namespace

void ConsultaDiario(ReporteCompras& r) {
    r.Sel.SqlConsulta = SentenciaDiario(r);
    EncabezadoCompras(r, EncDocumentos);
    TituloDiario(r);
    // A single day needs no day totals: the branch total says the same.
    Diario(r, r.Sel.FechaIni != r.Sel.FechaFin).Corre();
}

} // namespace consultas
