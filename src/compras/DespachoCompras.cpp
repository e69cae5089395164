#include "compras/ReportesCompras.h"

namespace consultas {

void DespachaReporteCompras(ReporteCompras& r) {
    switch (r.Sel.ConsultaActual) {
    case CompDiario:
        ConsultaDiario(r);
        break;
    case CompRelacion:
        ConsultaRelacion(r, r.Sel.HayGrupos);
        break;
    case CompArticulo:
        ConsultaArticulo(r);
        break;
    case CompNetas:
        ConsultaNetas(r);
        break;
    case CompDesglosado:
        ConsultaDesglosado(r);
        break;
    case CompDiferencias:
        ConsultaDiferencias(r);
        break;
    case CompDescuentos:
        if (r.Sel.OrdenActual == 4)
            ConsultaDescuentosProveedor(r);
        else
            ConsultaDescuentosArticulo(r);
        break;
    case CompBackorder:
        ConsultaBackorder(r, r.Sel.HayGrupos);
        break;
    case CompCotizacion:
        ConsultaCotizacion(r);
        break;
    case CompAnalisis:
        ConsultaAnalisis(r);
        break;
    default:
        break;
    }
}

} // namespace consultas
