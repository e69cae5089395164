// Presupuestos Traspasados: the transfers between budgets recorded in the
// log for a date range, grouped by centre of cost.

#include "core/Formato.h"
#include "core/modConCompras.h"
#include "presupuestos/ReportesPresupuesto.h"

namespace consultas {

namespace {

constexpr Color ColorCentro = Rgb(47, 47, 128);
constexpr int LimiteTituloCentro = 13000;
constexpr int LimiteTraspasos = 14500;

} // namespace

void ReportePresupuestosTraspasados(CorridaPaginas& c, Conexion& conexion,
                                    const ValoresPresupuesto& v) {
    Superficie& s = *c.SuperficieActual;
    const QString d1 = modConCompras::FechaSQL(v.fechas[0]);
    const QString d2 = modConCompras::FechaSQL(v.fechas[1]);
    EncabezadoPresup(c, v, TituloEncabezado(EncabezadoTraspasos));

    bool hayCentro = false;
    qint64 centro = 0;
    auto rsReporte = conexion.Abre(ListaConceptos(v));
    for (; !rsReporte->Eof(); rsReporte->MoveNext()) {
        const QString concepto = rsReporte->Campo("COD_CPRE").Texto();
        auto rsBitacora = conexion.Abre(
            "SELECT FOL_GRL,USU_REG,FEC_REG,MA_ORIGEN,MA_DESTINO,IMP_MOV FROM tblBitacora WHERE "
            "(CON_GRL='TRPR' AND TIP_OPE=2) AND (FEC_REG BETWEEN " +
            d1 + " AND " + d2 + ") AND FOL_CON='" + concepto + "' ORDER BY FEC_REG;");
        // A concept without transfers shows nothing, not even its centre.
        if (rsBitacora->Eof())
            continue;
        const qint64 centroFila = rsReporte->Campo("COD_CCOS").Entero();
        if (!hayCentro || centroFila != centro) {
            hayCentro = true;
            centro = centroFila;
            c.lnLinea += 240;
            // A lower threshold keeps the centre's title with a row.
            if (c.lnLinea > LimiteTituloCentro)
                c.SaltoPagina(EncabezadoTraspasos);
            s.FontBold = true;
            s.ForeColor = ColorCentro;
            s.TextOut(100, c.lnLinea, rsReporte->Campo("DES_CCOS").Texto());
            c.lnLinea += 240;
            s.ForeColor = ColorNegro;
            s.FontBold = false;
        }
        const QString desConcepto = rsReporte->Campo("DES_CPRE").Texto();
        for (; !rsBitacora->Eof(); rsBitacora->MoveNext()) {
            s.TextOut(100, c.lnLinea,
                      FormatoFecha(rsBitacora->Campo("FEC_REG").Fecha(), "DD/MM/YYYY"));
            {
                auto rsAux = conexion.Abre("SELECT NOM_USU FROM tblUsuarios WHERE COD_USU='" +
                                           rsBitacora->Campo("USU_REG").Texto() + "';");
                s.TextOut(1200, c.lnLinea,
                          rsAux->Eof() ? QString("Usuario Depurado")
                                       : rsAux->Campo("NOM_USU").Texto());
            }
            // Each band is laid over the tail of the column before it, so it
            // cuts a long text there.
            s.FillBand(3100, c.lnLinea, 7000, 200);
            s.TextOut(3300, c.lnLinea, desConcepto);
            s.FillBand(5300, c.lnLinea, 4800, 200);
            s.TextOut(5500, c.lnLinea, rsBitacora->Campo("MA_ORIGEN").Texto());
            {
                auto rsAux = conexion.Abre("SELECT DES_CPRE FROM tblConDePresu WHERE COD_CPRE=" +
                                           rsBitacora->Campo("FOL_GRL").Texto() + ";");
                s.TextOut(6300, c.lnLinea,
                          rsAux->Eof() ? QString("Depurado") : rsAux->Campo("DES_CPRE").Texto());
            }
            s.FillBand(8300, c.lnLinea, 1800, 200);
            s.TextOut(8500, c.lnLinea, rsBitacora->Campo("MA_DESTINO").Texto());
            s.TextAlign = AlineaDerecha;
            s.TextOut(10400, c.lnLinea, Formato(rsBitacora->Campo("IMP_MOV").Dinero(), "#,##0.00"));
            s.TextAlign = AlineaIzquierda;
            c.lnLinea += 240;
            if (c.lnLinea > LimiteTraspasos)
                c.SaltoPagina(EncabezadoTraspasos);
        }
    }
}

} // namespace consultas
