// Comparativo de Presupuestos: two years of each budget concept side by
// side, with their difference and its percent of the first year; the
// detailed form adds the twelve months under each concept.

#include "core/Formato.h"
#include "presupuestos/ReportesPresupuesto.h"

namespace consultas {

namespace {

constexpr Color ColorConcepto = Rgb(47, 47, 128);
constexpr int LimiteComparativo = 14500;

QString Importe(Moneda m) {
    return Formato(m, "#,##0.00");
}

QString Porcentaje(Moneda parte, Moneda base) {
    const double p = base > Moneda() ? parte.ADoble() / base.ADoble() * 100.0 : 0.0;
    return Formato(p, "#,##0.00");
}

// An annual amount is printed from "0" + its text, so a Null prints 0.
QString ImporteLeido(const Valor& v) {
    return Formato(Moneda::DeTexto("0" + v.Texto()), "#,##0.00");
}

QString SqlAnual(const QString& concepto, const QString& ano, bool aplicado) {
    if (aplicado)
        return "SELECT SUM(APLICADO)AS IMP_ANUAL FROM tblDefPresupuestoRen WHERE COD_CPRE=" +
               concepto + " AND (ANO_PRES=" + ano + ");";
    return "SELECT IMP_ANUAL FROM tblDefPresupuesto WHERE COD_CPRE=" + concepto +
           " AND (ANO_PRES=" + ano + ");";
}

QString SqlMes(const QString& concepto, const QString& ano, int mes) {
    return "SELECT IMP_MES,IMP_REC,APLICADO FROM tblDefPresupuesto INNER JOIN "
           "tblDefPresupuestoRen ON tblDefPresupuesto.COD_CPRE=tblDefPresupuestoRen.COD_CPRE "
           "WHERE tblDefPresupuesto.COD_CPRE=" +
           concepto + " AND ((tblDefPresupuesto.ANO_PRES=" + ano +
           " AND tblDefPresupuestoRen.ANO_PRES=" + ano + ") AND (MES_PRES=" + QString::number(mes) +
           ")) ORDER BY MES_PRES,tblDefPresupuesto.ANO_PRES;";
}

// A month's figure: budget plus additions, or what was applied.
Moneda ImporteMes(const Recordset& rs, bool aplicado) {
    if (aplicado)
        return rs.Campo("APLICADO").Dinero();
    return rs.Campo("IMP_MES").Dinero() + rs.Campo("IMP_REC").Dinero();
}

} // namespace

void ReporteComparativoPresupuestos(CorridaPaginas& c, Conexion& conexion,
                                    const ValoresPresupuesto& v) {
    Superficie& s = *c.SuperficieActual;
    const bool detallado = v.tipo == 0;
    const QString ano1 = QString::number(NumeroDeTexto(v.anos[0]));
    const QString ano2 = QString::number(NumeroDeTexto(v.anos[1]));
    EncabezadoPresup(c, v, TituloEncabezado(EncabezadoComparativo));

    // cyPrimero is not reset per concept: a concept without a first year
    // row keeps the figure of the one before for its percent.
    Moneda cyPrimero, cyDiferencia;
    Moneda cyCentro1, cyCentro2, cyCentroDif;
    Moneda cyGlobal1, cyGlobal2, cyGlobalDif;
    bool hayCentro = false;
    qint64 centro = 0;
    QString desCentro;

    auto rsReporte = conexion.Abre(ListaConceptos(v));
    while (!rsReporte->Eof()) {
        const qint64 centroFila = rsReporte->Campo("COD_CCOS").Entero();
        if (!hayCentro || centroFila != centro) {
            cyPrimero = cyDiferencia = Moneda();
            cyCentro1 = cyCentro2 = cyCentroDif = Moneda();
        }
        hayCentro = true;
        centro = centroFila;
        const QString concepto = rsReporte->Campo("COD_CPRE").Texto();
        desCentro = rsReporte->Campo("DES_CCOS").Texto();

        if (detallado)
            s.FontBold = true;
        s.TextAlign = AlineaIzquierda;
        s.ForeColor = ColorConcepto;
        s.TextOut(0, c.lnLinea, rsReporte->Campo("DES_CPRE").Texto());
        s.FillBand(2200, c.lnLinea, 8000, 200);
        s.TextOut(2300, c.lnLinea, desCentro);
        s.TextOut(4000, c.lnLinea, v.anos[0]);
        s.TextOut(6300, c.lnLinea, v.anos[1]);
        cyDiferencia = Moneda();
        s.TextAlign = AlineaDerecha;

        {
            auto rs = conexion.Abre(SqlAnual(concepto, ano1, v.aplicado));
            if (!rs->Eof()) {
                const Valor importe = rs->Campo("IMP_ANUAL");
                s.TextOut(5800, c.lnLinea, ImporteLeido(importe));
                cyPrimero = importe.Dinero();
                cyCentro1 += cyPrimero;
                cyGlobal1 += cyPrimero;
                cyDiferencia += cyPrimero;
            } else {
                s.TextOut(5800, c.lnLinea, Importe(Moneda()));
            }
        }
        {
            // The second year is always the budget, whatever chkAplicado says.
            auto rs = conexion.Abre(SqlAnual(concepto, ano2, false));
            if (!rs->Eof()) {
                const Valor importe = rs->Campo("IMP_ANUAL");
                s.TextOut(8100, c.lnLinea, ImporteLeido(importe));
                cyDiferencia -= importe.Dinero();
                cyCentro2 += importe.Dinero();
                cyGlobal2 += importe.Dinero();
            } else {
                s.TextOut(8100, c.lnLinea, Importe(Moneda()));
            }
        }
        cyCentroDif += cyDiferencia;
        cyGlobalDif += cyDiferencia;
        s.TextOut(9600, c.lnLinea, Importe(cyDiferencia));
        s.TextOut(10400, c.lnLinea, Porcentaje(cyDiferencia, cyPrimero));
        s.TextAlign = AlineaIzquierda;
        s.ForeColor = ColorNegro;
        c.lnLinea += 240;
        if (c.lnLinea > LimiteComparativo)
            c.SaltoPagina(EncabezadoComparativo);
        s.FontBold = false;

        if (detallado && (cyPrimero > Moneda() || cyDiferencia != Moneda())) {
            for (int mes = 1; mes <= 12; ++mes) {
                cyDiferencia = cyPrimero = Moneda();
                s.TextAlign = AlineaIzquierda;
                s.TextOut(2000, c.lnLinea, NombreMes(mes));
                s.TextAlign = AlineaDerecha;
                {
                    auto rs = conexion.Abre(SqlMes(concepto, ano1, mes));
                    if (!rs->Eof()) {
                        cyPrimero = ImporteMes(*rs, v.aplicado);
                        cyDiferencia = cyPrimero;
                        s.TextOut(5800, c.lnLinea, Importe(cyPrimero));
                    } else {
                        s.TextOut(5800, c.lnLinea, Importe(Moneda()));
                    }
                }
                {
                    auto rs = conexion.Abre(SqlMes(concepto, ano2, mes));
                    if (!rs->Eof()) {
                        const Moneda segundo = ImporteMes(*rs, v.aplicado);
                        cyDiferencia -= segundo;
                        s.TextOut(8100, c.lnLinea, Importe(segundo));
                    } else {
                        s.TextOut(8100, c.lnLinea, Importe(Moneda()));
                    }
                }
                s.TextOut(9600, c.lnLinea, Importe(cyDiferencia));
                s.TextOut(10400, c.lnLinea, Porcentaje(cyDiferencia, cyPrimero));
                c.lnLinea += 230;
                if (c.lnLinea > LimiteComparativo)
                    c.SaltoPagina(EncabezadoComparativo);
            }
        }
        c.lnLinea += 200;
        s.TextAlign = AlineaIzquierda;

        rsReporte->MoveNext();
        const bool fin = rsReporte->Eof();
        if (fin || rsReporte->Campo("COD_CCOS").Entero() != centro) {
            s.FontBold = true;
            s.ForeColor = ColorAzul;
            s.TextOut(100, c.lnLinea, "Total Centro de Costo: " + desCentro);
            s.TextAlign = AlineaDerecha;
            s.TextOut(5800, c.lnLinea, Importe(cyCentro1));
            s.TextOut(8100, c.lnLinea, Importe(cyCentro2));
            s.TextOut(9600, c.lnLinea, Importe(cyCentroDif));
            s.TextOut(10400, c.lnLinea, Porcentaje(cyCentroDif, cyCentro1));
            if (!fin) {
                c.lnLinea += 410;
                if (c.lnLinea > LimiteComparativo)
                    c.SaltoPagina(EncabezadoComparativo);
            }
        }
        s.TextAlign = AlineaIzquierda;
        s.FontBold = false;
        s.ForeColor = ColorNegro;
    }

    c.lnLinea += 280;
    s.FontBold = true;
    s.ForeColor = ColorAzul;
    s.TextOut(100, c.lnLinea, "TOTAL GLOBAL: ");
    s.TextAlign = AlineaDerecha;
    s.TextOut(5800, c.lnLinea, Importe(cyGlobal1));
    s.TextOut(8100, c.lnLinea, Importe(cyGlobal2));
    s.TextOut(9600, c.lnLinea, Importe(cyGlobalDif));
    s.TextOut(10400, c.lnLinea, Porcentaje(cyGlobalDif, cyGlobal1));
    s.TextAlign = AlineaIzquierda;
    s.FontBold = false;
    s.ForeColor = ColorNegro;
}

} // namespace consultas
