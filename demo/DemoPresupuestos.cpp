// Budgets of the demo company: concepts by cost centre, monthly amounts, transfers.

#include "Generador.h"

#include <QDateTime>
#include <tuple>

namespace consultas::demo::gen {

// Budgets of 2025 and 2026, with transfers in tblBitacora.
void Generador::Presupuestos() {
    Azar az(o_.semilla, 1);
    auto& cen = L("tblCentrosCostos", "COD_CCOS,DES_CCOS");
    for (const auto& [c, d] : kCentros)
        cen.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
    auto& cpr = L("tblConDePresu", "COD_CPRE,DES_CPRE,COD_CCOS");
    for (const auto& c : kConceptos)
        cpr.Agrega({Ent(c.cod), Txt(QString::fromUtf8(c.des)), Ent(c.ccos)});

    // Transfers: [concept][year][month] out and in.
    std::map<std::tuple<int, int, int>, Dz> sale, entra;
    auto& bit = L("tblBitacora",
                  "CON_GRL,TIP_OPE,FOL_CON,FOL_GRL,USU_REG,FEC_REG,MA_ORIGEN,MA_DESTINO,IMP_MOV");
    auto transfiere = [&](int c1, int c2, const QDate& dOri, const QDate& dDes,
                          const QDateTime& cuando, const QString& usu, Dz imp, bool cuenta) {
        bit.Agrega({Txt("TRPR"), Ent(2), Txt(QString::number(c1)), Txt(QString::number(c2)),
                    Txt(usu), Txt(cuando.toString("yyyy-MM-dd HH:mm:ss")),
                    Txt(dOri.toString("MM/yyyy")), Txt(dDes.toString("MM/yyyy")), Din(imp)});
        if (cuenta) {
            sale[{c1, dOri.year(), dOri.month()}] += imp;
            entra[{c2, dDes.year(), dDes.month()}] += imp;
        }
    };
    const QDate ini(2025, 1, 1), fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
    for (int i = 0; i < 36; ++i) {
        const QDate d = ini.addDays(az.Entre(0, ini.daysTo(fin)));
        const int c1 = static_cast<int>(az.Entre(1, 12));
        int c2 = static_cast<int>(az.Entre(1, 12));
        if (c2 == c1)
            c2 = c1 % 12 + 1;
        const QDate dDes = az.Prob(0.7) ? d : d.addMonths(1);
        const QDateTime cuando(d, QTime(static_cast<int>(az.Entre(8, 18)),
                                        static_cast<int>(az.Entre(0, 59)),
                                        static_cast<int>(az.Entre(1, 59))));
        transfiere(c1, c2, d, dDes.year() > 2026 ? d : dDes, cuando, Usuario(az),
                   Pesos(az.Entre(50, 600) * 100.0), true);
    }
    // Fixed cases: a time of day on the last day of January 2026 (falls
    // outside BETWEEN '2026-01-01' AND '2026-01-31'); a user that no
    // longer exists; a destination concept that no longer exists.
    transfiere(5, 2, QDate(2026, 1, 31), QDate(2026, 1, 31),
               QDateTime(QDate(2026, 1, 31), QTime(17, 45, 0)), "MGARCIA", Pesos(12500), true);
    transfiere(5, 6, QDate(2026, 1, 15), QDate(2026, 2, 1),
               QDateTime(QDate(2026, 1, 15), QTime(10, 30, 15)), "BAJA01", Pesos(8000), true);
    transfiere(3, 99, QDate(2025, 6, 10), QDate(2025, 6, 10),
               QDateTime(QDate(2025, 6, 10), QTime(9, 5, 0)), "ADMIN", Pesos(1500), false);
    // Log rows that are not transfers.
    bit.Agrega({Txt("TRPR"), Ent(1), Txt("5"), Txt("2"), Txt("JPEREZ"), Txt("2026-01-20 11:00:00"),
                Txt("01/2026"), Txt("01/2026"), Din(Pesos(99999))});
    bit.Agrega({Txt("ACCE"), Ent(2), Txt("5"), Nulo(), Txt("ADMIN"), Txt("2026-01-20 08:00:00"),
                Nulo(), Nulo(), Nulo()});

    auto& enc = L("tblDefPresupuesto", "COD_CPRE,ANO_PRES,IMP_ANUAL");
    auto& ren = L("tblDefPresupuestoRen",
                  "COD_CPRE,ANO_PRES,MES_PRES,IMP_MES,IMP_REC,APLICADO,IMP_TRA,DISPONIBLE");
    for (const auto& c : kConceptos) {
        for (int ano = hechos::AnoInicial; ano <= hechos::AnoFinal; ++ano) {
            if (c.cod == hechos::ConceptoSinPresupuesto2026 && ano == 2026)
                continue;
            Dz anual = Pesos(c.anual * (ano == 2026 ? 1.05 : 1.0));
            if (c.cod == hechos::ConceptoAnualCero2026 && ano == 2026)
                anual = 0;
            enc.Agrega({Ent(c.cod), Ent(ano), Din(anual)});
            const Dz mensual = Redondea(anual, 12 * 100) * 100; // whole cents
            for (int mes = 1; mes <= 12; ++mes) {
                const Dz impMes = mes < 12 ? mensual : anual - mensual * 11;
                const Dz rec = entra[{c.cod, ano, mes}];
                const Dz tra = sale[{c.cod, ano, mes}];
                Dz apl = 0;
                if (QDate(ano, mes, 1) <= fin) {
                    double f = 0.55 + az.Unif() * 0.5;
                    if (c.cod == hechos::ConceptoSobregirado && mes % 3 == 0)
                        f = 1.15 + az.Unif() * 0.15;
                    apl = impMes > 0
                              ? Redondea(static_cast<__int128>(impMes) * static_cast<Dz>(f * 10000),
                                         10000)
                              : (c.cod == hechos::ConceptoAnualCero2026 && mes <= 6 ? Pesos(4200)
                                                                                    : 0);
                }
                ren.Agrega({Ent(c.cod), Ent(ano), Ent(mes), Din(impMes), Din(rec), Din(apl),
                            Din(tra), Din(impMes + rec - apl - tra)});
            }
        }
    }
}

} // namespace consultas::demo::gen
