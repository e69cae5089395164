// Relación de Presupuestos: for a year, what each budget concept has applied
// and has left, by centre of cost; one row per month (detailed) or per
// concept (summary), with a total per concept and per centre.

#include "core/Formato.h"
#include "presupuestos/ReportesPresupuesto.h"

namespace consultas {

namespace {

constexpr Color ColorConcepto = Rgb(47, 47, 128);
constexpr Color ColorCentro = Rgb(8, 11, 151);
constexpr int LimiteRelacion = 14000;

QString Importe(Moneda m) {
    return Formato(m, "#,##0.00");
}

// Percent of the annual amount; an annual amount of 0 or below gives 0
// rather than a division.
QString Porcentaje(Moneda parte, Moneda anual) {
    const double p = anual > Moneda() ? parte.ADoble() / anual.ADoble() * 100.0 : 0.0;
    return Formato(p, "#,##0.00");
}

// The five figures of a row, a concept or a centre, right-aligned.
void Cifras(Superficie& s, int y, Moneda anual, Moneda aplicado, Moneda disponible) {
    s.TextOut(5800, y, Importe(anual));
    s.TextOut(7200, y, Importe(aplicado));
    s.TextOut(8000, y, Porcentaje(aplicado, anual));
    s.TextOut(9600, y, Importe(disponible));
    s.TextOut(10400, y, Porcentaje(disponible, anual));
}

QString SqlConcepto(bool detallado, const QString& concepto, const QString& ano) {
    if (detallado)
        return "SELECT tblDefPresupuesto.ANO_PRES,IMP_ANUAL,(APLICADO+IMP_TRA)AS "
               "TOT_APL,(DISPONIBLE)AS TOT_DIS,MES_PRES,IMP_MES,IMP_REC FROM tblDefPresupuesto "
               "INNER JOIN tblDefPresupuestoRen ON "
               "tblDefPresupuesto.COD_CPRE=tblDefPresupuestoRen.COD_CPRE WHERE "
               "tblDefPresupuesto.COD_CPRE=" +
               concepto + " AND tblDefPresupuesto.ANO_PRES=" + ano +
               " AND tblDefPresupuestoRen.ANO_PRES=" + ano + " ORDER BY MES_PRES;";
    return "SELECT IMP_ANUAL,SUM(APLICADO+IMP_TRA)AS TOT_APL,SUM(DISPONIBLE)AS TOT_DIS FROM "
           "tblDefPresupuesto INNER JOIN tblDefPresupuestoRen ON "
           "tblDefPresupuesto.COD_CPRE=tblDefPresupuestoRen.COD_CPRE WHERE "
           "tblDefPresupuesto.COD_CPRE=" +
           concepto + " AND tblDefPresupuesto.ANO_PRES=" + ano +
           " AND tblDefPresupuestoRen.ANO_PRES=" + ano + "  GROUP BY IMP_ANUAL;";
}

} // namespace

void ReporteRelacionPresupuestos(CorridaPaginas& c, Conexion& conexion,
                                 const ValoresPresupuesto& v) {
    Superficie& s = *c.SuperficieActual;
    const bool detallado = v.tipo == 0;
    const QString ano = QString::number(NumeroDeTexto(v.anos[2]));
    EncabezadoPresup(c, v, TituloEncabezado(EncabezadoRelacion));

    Moneda cyCentroAnual, cyCentroAplicado, cyCentroDisponible;
    QString desCentro;
    // The centre's total line, drawn where the centre ends.
    const auto lineaCentro = [&] {
        if (!detallado)
            c.lnLinea += 50;
        s.FontBold = true;
        s.ForeColor = ColorAzul;
        s.TextOut(100, c.lnLinea, "Total Centro de Costo: " + desCentro);
        s.TextAlign = AlineaDerecha;
        Cifras(s, c.lnLinea, cyCentroAnual, cyCentroAplicado, cyCentroDisponible);
        s.TextAlign = AlineaIzquierda;
        s.FontBold = false;
        s.ForeColor = ColorNegro;
    };

    auto rsReporte = conexion.Abre(ListaConceptos(v));
    while (!rsReporte->Eof()) {
        c.lnLinea += detallado ? 240 : 100;
        const qint64 centro = rsReporte->Campo("COD_CCOS").Entero();
        desCentro = rsReporte->Campo("DES_CCOS").Texto();
        const QString concepto = rsReporte->Campo("COD_CPRE").Texto();
        if (detallado) {
            s.FontBold = true;
            s.ForeColor = ColorConcepto;
            s.TextOut(0, c.lnLinea, rsReporte->Campo("DES_CPRE").Texto());
            s.ForeColor = ColorCentro;
            s.FillBand(4350, c.lnLinea, 7000, 200);
            s.TextOut(4500, c.lnLinea, desCentro);
            c.lnLinea += 240;
        } else {
            s.TextOut(0, c.lnLinea, rsReporte->Campo("DES_CPRE").Texto());
            s.FillBand(2750, c.lnLinea, 7000, 200);
            s.TextOut(2900, c.lnLinea, desCentro);
        }
        s.FontBold = false;
        s.ForeColor = ColorNegro;
        Moneda cyAnual, cyAplicado, cyDisponible;

        auto rs = conexion.Abre(SqlConcepto(detallado, concepto, ano));
        for (; !rs->Eof(); rs->MoveNext()) {
            if (detallado)
                s.TextOut(2000, c.lnLinea, NombreMes(int(rs->Campo("MES_PRES").Entero())));
            cyAnual = rs->Campo("IMP_ANUAL").Dinero();
            const Moneda aplicado = rs->Campo("TOT_APL").Dinero();
            const Moneda disponible = rs->Campo("TOT_DIS").Dinero();
            s.TextAlign = AlineaDerecha;
            if (detallado)
                s.TextOut(5800, c.lnLinea,
                          Importe(rs->Campo("IMP_MES").Dinero() + rs->Campo("IMP_REC").Dinero()));
            s.TextOut(7200, c.lnLinea, Importe(aplicado));
            s.TextOut(8000, c.lnLinea, Porcentaje(aplicado, cyAnual));
            s.TextOut(9600, c.lnLinea, Importe(disponible));
            s.TextOut(10400, c.lnLinea, Porcentaje(disponible, cyAnual));
            s.TextAlign = AlineaIzquierda;
            // The summary's one row does not advance: the concept line below
            // prints the same figures over it.
            if (detallado)
                c.lnLinea += 240;
            if (c.lnLinea > LimiteRelacion)
                c.SaltoPagina(EncabezadoRelacion);
            cyAplicado += aplicado;
            cyDisponible += disponible;
        }
        rs.reset();

        s.TextAlign = AlineaDerecha;
        if (detallado) {
            s.FontBold = true;
            s.TextOut(4300, c.lnLinea, "Total:");
        }
        Cifras(s, c.lnLinea, cyAnual, cyAplicado, cyDisponible);
        s.FontBold = false;
        s.TextAlign = AlineaIzquierda;
        cyCentroAnual += cyAnual;
        cyCentroAplicado += cyAplicado;
        cyCentroDisponible += cyDisponible;
        c.lnLinea += detallado ? 240 : 180;
        if (c.lnLinea > LimiteRelacion)
            c.SaltoPagina(EncabezadoRelacion);

        rsReporte->MoveNext();
        if (rsReporte->Eof()) {
            // The last centre's total closes the report, with no page test.
            lineaCentro();
            break;
        }
        if (rsReporte->Campo("COD_CCOS").Entero() != centro) {
            lineaCentro();
            cyCentroAnual = cyCentroAplicado = cyCentroDisponible = Moneda();
            c.lnLinea += 200;
        }
    }
}

} // namespace consultas
