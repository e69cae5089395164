// Accounts payable of the demo company: the movement tables, credits applied to charges,
// and the creditors' monthly charges.

#include "Generador.h"

namespace consultas::demo::gen {

Lote& Generador::cxpEnc() {
    return L("tblCxPEnc",
             "NUM_MOV,FOL_DOC,FEC_DOC,PLA_PAG,REF_PROV,COD_PROV,COD_CON,CON_GRL,CON_CEP,COD_STS,"
             "COD_SUCU,IMP_DOC,SAL_DOC");
}

Lote& Generador::cxpRen() {
    return L("tblCxPRen",
             "NUM_MOV,FOL_DOC,FOL_REF,FEC_DOC,COD_CON,CON_GRL,COD_STS,IMP_DOC,SAL_DOC,TOT_DOC");
}

// A credit movement applied to one charge; returns the amount applied
// (0 when cancelled).
Dz Generador::Abono(int sts, const char* con, const QString& folio, const QString& ref,
                    const QDate& fecha, Proveedor& p, const char* sucu, const QString& folCargo,
                    Dz importe, Dz saldoCargo, bool cancelado) {
    const qint64 mov = ++nMov_;
    cxpEnc().Agrega({Ent(mov), Txt(folio), Fec(fecha), Ent(0), Txt(ref), Txt(p.cod), Txt(con),
                     Txt("ACXP"), Txt(QString(con) == "PAG" ? "PAGO" : "DEVOLUCION"), Ent(sts),
                     Txt(sucu), Din(importe), Din(0)});
    cxpRen().Agrega({Ent(mov), Txt(folio), Txt(folCargo), Fec(fecha), Txt(con), Txt("ACXP"),
                     Ent(sts), Din(importe), Din(saldoCargo), Din(importe)});
    if (!cancelado && QString(con) == "PAG" && (p.upag.isNull() || fecha > p.upag))
        p.upag = fecha;
    return cancelado ? 0 : importe;
}

// Creditors: monthly rent and services, paid the month after.
void Generador::Acreedores() {
    Azar az(o_.semilla, 5);
    const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
    for (size_t i = 0; i < prov_.size(); ++i) {
        Proveedor& p = prov_[i];
        if (!p.acreedor)
            continue;
        const bool renta = p.cod == hechos::ProvAcreedor;
        for (QDate d(2025, 1, 1); d <= fin; d = d.addMonths(1)) {
            if (!renta && p.cod != hechos::ProvAcreedor2 && az.Prob(0.6))
                continue;
            const QDate f = renta ? d : d.addDays(az.Entre(0, 25));
            const Dz imp = renta ? Pesos(45000 * 1.16) : Pesos(az.Entre(20, 180) * 100.0 * 1.16);
            const QString folio = Folio(renta ? "AR" : "SV", ++nServ_);
            const qint64 mov = ++nMov_;
            Dz saldo = imp;
            const QDate fPago = f.addDays(p.plaCre > 0 ? p.plaCre : 10);
            if (fPago <= fin)
                saldo -= Abono(1, "PAG", Folio("PG", ++nPago_),
                               QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p, "S01",
                               folio, imp, 0, false);
            cxpEnc().Agrega({Ent(mov), Txt(folio), Fec(f), Ent(p.plaCre),
                             Txt(QString("R-%1").arg(az.Entre(1000, 9999))), Txt(p.cod),
                             Txt(renta ? "ARR" : "SER"), Txt("CCXP"),
                             Txt(renta ? "RENTA" : "SERVICIO"), Ent(1), Txt("S01"), Din(imp),
                             Din(saldo)});
            p.saldo += saldo;
        }
    }
}

} // namespace consultas::demo::gen
