#include "core/Membrete.h"
#include "presupuestos/ReportesPresupuesto.h"

namespace consultas {

qint64 NumeroDeTexto(const QString& texto) {
    const QString t = texto.trimmed();
    qsizetype i = 0;
    bool negativo = false;
    if (i < t.size() && (t[i] == '-' || t[i] == '+'))
        negativo = t[i++] == '-';
    qint64 n = 0;
    for (; i < t.size() && t[i].isDigit() && n < 100000000000000LL; ++i)
        n = n * 10 + t[i].digitValue();
    return negativo ? -n : n;
}

QString ListaConceptos(const ValoresPresupuesto& v) {
    QString sql = "SELECT COD_CPRE,DES_CPRE,tblConDePresu.COD_CCOS,DES_CCOS FROM tblConDePresu "
                  "INNER JOIN tblCentrosCostos ON "
                  "tblConDePresu.COD_CCOS=tblCentrosCostos.COD_CCOS";
    const qint64 concepto = NumeroDeTexto(v.codConcepto);
    const qint64 centro = NumeroDeTexto(v.codCentro);
    if (concepto != 0)
        sql += " WHERE COD_CPRE=" + QString::number(concepto);
    if (centro != 0)
        sql += (sql.contains("WHERE", Qt::CaseInsensitive) ? " AND tblConDePresu.COD_CCOS="
                                                           : " WHERE tblConDePresu.COD_CCOS=") +
               QString::number(centro);
    return sql + " ORDER BY tblConDePresu.COD_CCOS,COD_CPRE;";
}

QString TituloEncabezado(int tipo) {
    switch (tipo) {
    case EncabezadoRelacion:
        return "Relación de Presupuestos";
    case EncabezadoComparativo:
        return "Comparativo de Presupuestos";
    case EncabezadoTraspasos:
        return "Traspaso de Presupuestos";
    default:
        return {};
    }
}

namespace {

void TitulosRelacion(Superficie& s, int& lnLinea, const ValoresPresupuesto& v) {
    const bool detallado = v.tipo == 0;
    s.TextOut(0, lnLinea, "Concepto");
    s.TextOut(detallado ? 4450 : 3000, lnLinea, "Centro Costo");
    s.TextOut(6500, lnLinea, "Aplicado /");
    const int y2 = lnLinea + 200;
    if (detallado)
        s.TextOut(2600, y2, "Mes");
    s.TextOut(4700, y2, "Importe Anual");
    s.TextOut(6500, y2, "Traspasado");
    s.TextOut(7800, y2, "%");
    s.TextOut(8700, y2, "Disponible");
    s.TextOut(10200, y2, "%");
    s.DrawLine(0, y2 + 240, 10500, y2 + 240);
    lnLinea += 400;
    s.TextOut(200, lnLinea, "AÑO :   " + QString::number(NumeroDeTexto(v.anos[2])));
    lnLinea -= 100;
}

void TitulosComparativo(Superficie& s, int& lnLinea) {
    s.TextOut(0, lnLinea, "Concepto");
    s.TextOut(2300, lnLinea, "Centro Costo");
    const int y2 = lnLinea + 200;
    s.TextOut(4000, y2, "Año");
    s.TextOut(4700, y2, "Importe Anual");
    s.TextOut(6300, y2, "Año");
    s.TextOut(7000, y2, "Importe Anual");
    s.TextOut(8800, y2, "Diferencia");
    s.TextOut(10000, y2, "%");
    s.DrawLine(0, y2 + 240, 10500, y2 + 240);
    lnLinea += 190;
}

void TitulosTraspasos(Superficie& s, int lnLinea) {
    s.TextOut(100, lnLinea, "Fecha");
    s.TextOut(1400, lnLinea, "Usuario");
    s.TextOut(3300, lnLinea, "Presupuesto Origen");
    s.TextOut(5450, lnLinea, "Mes/Año");
    s.TextOut(6300, lnLinea, "Presupuesto Destino");
    s.TextOut(8450, lnLinea, "Mes/Año");
    s.TextOut(9800, lnLinea, "Importe");
    s.DrawLine(0, lnLinea + 240, 10500, lnLinea + 240);
}

} // namespace

void EncabezadoPresup(CorridaPaginas& corrida, const ValoresPresupuesto& v, const QString& titulo) {
    Superficie& s = *corrida.SuperficieActual;
    VarianteMembrete variante;
    variante.xBanda = 6910;
    // The column titles are drawn in the heading's state, so the caller
    // restores it only after them.
    variante.restaurarEstado = false;
    if (v.consulta == RelacionDePresupuestos) {
        const QString ano = QString::number(NumeroDeTexto(v.anos[2]));
        variante.extra = [ano](Superficie& sup, int y) {
            sup.FontBold = true;
            sup.TextOut(7800, y + 240, "AÑO " + ano);
            sup.FontBold = false;
        };
    }
    corrida.lnLinea = DibujaMembrete(s, corrida.lnLinea, titulo, variante);
    s.FontFace = FuenteSerif;
    s.FontBold = true;
    switch (v.consulta) {
    case RelacionDePresupuestos:
        TitulosRelacion(s, corrida.lnLinea, v);
        break;
    case ComparativoDePresupuestos:
        TitulosComparativo(s, corrida.lnLinea);
        break;
    case PresupuestosTraspasados:
        TitulosTraspasos(s, corrida.lnLinea);
        break;
    default:
        break;
    }
    s.RestoreState();
    corrida.lnLinea += 240;
}

void ReportePresupuesto(CorridaPaginas& corrida, Conexion& conexion, const ValoresPresupuesto& v) {
    switch (v.consulta) {
    case RelacionDePresupuestos:
        ReporteRelacionPresupuestos(corrida, conexion, v);
        break;
    case ComparativoDePresupuestos:
        ReporteComparativoPresupuestos(corrida, conexion, v);
        break;
    case PresupuestosTraspasados:
        ReportePresupuestosTraspasados(corrida, conexion, v);
        break;
    default:
        break;
    }
}

} // namespace consultas
