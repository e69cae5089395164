// Purchasing documents of the demo company: receipts with their orders, requisitions,
// quotations, returns and reception differences, each receipt with its charge in accounts
// payable; and the monthly average costs.

#include "Generador.h"

namespace consultas::demo::gen {

// Exchange rate of a month, ten-thousandths of a peso.
Dz Generador::Cambio(int moneda, const QDate& d) {
    if (moneda == 1)
        return kUno;
    const int mes = (d.year() - 2025) * 12 + d.month() - 1;
    const Dz usd = 172000 + (mes * 3731) % 27000 + (d.day() * 37) % 900;
    return moneda == 2 ? usd : Redondea(static_cast<__int128>(usd) * 108, 100);
}

// A line of article a, quantity in its unit, prices in the document's currency.
Linea Generador::HazLinea(Azar& az, int a, Dz cambio, bool importacion, bool unidadAlterna,
                          Dz cantidad) {
    const Articulo& ar = art_[static_cast<size_t>(a)];
    const Familia& f = kFamilias[static_cast<size_t>(ar.familia)];
    Linea l;
    l.art = a;
    const bool alt = unidadAlterna && f.undAlt;
    l.und = alt ? f.undAlt : f.und;
    l.eqv = alt ? f.factorAlt : 1;
    l.can = cantidad;
    const Dz precioPesos = Redondea(static_cast<__int128>(ar.precio) * l.eqv *
                                        static_cast<Dz>((0.92 + az.Unif() * 0.16) * 10000),
                                    10000);
    l.cosUni = Redondea(static_cast<__int128>(precioPesos) * kUno, cambio);
    static const int descuentos[] = {0, 0, 0, 250, 500, 500, 1000};
    l.d1 = descuentos[az.Entre(0, 6)];
    l.d2 = az.Prob(0.15) ? 200 : 0;
    l.cosCom = PorCiento(PorCiento(l.cosUni, 10000 - l.d1), 10000 - l.d2);
    l.bruto = Por(l.can, l.cosUni);
    l.importe = Por(l.can, l.cosCom);
    if (importacion) {
        static const int aranceles[] = {500, 1000, 1500};
        l.porAran = aranceles[az.Entre(0, 2)];
        l.arancel = PorCiento(l.importe, l.porAran);
    }
    // Taxes: an IEPS family has IEPS first and VAT second, over cost plus IEPS.
    const Impuesto& t1 = kImpuestos[static_cast<size_t>(f.imp1 - 1)];
    l.cod1 = t1.cod;
    l.por1 = t1.centesimas;
    if (f.imp2) {
        const Impuesto& t2 = kImpuestos[static_cast<size_t>(f.imp2 - 1)];
        l.cod2 = t2.cod;
        l.por2 = t2.centesimas;
        l.grava = 1;
    }
    l.imp1 = PorCiento(l.importe, l.por1);
    l.imp2 = PorCiento(l.importe + (l.grava ? l.imp1 : 0), l.por2);
    return l;
}

QString Generador::Usuario(Azar& az) {
    return QString::fromUtf8(kUsuarios[static_cast<size_t>(az.Entre(1, 5))].first);
}

// Receipts, with their orders, requisitions, quotations, returns,
// reception differences and accounts-payable movements.
void Generador::Documentos() {
    Azar az(o_.semilla, 4);
    const int n = 640 * o_.escala;
    const QDate ini(2025, 1, 2), fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
    const qint64 dias = ini.daysTo(fin);

    auto& cEnc = L("tblComprasEnc",
                   "FOL_DOC,FEC_DOC,COD_PROV,REF_FACTURA,COD_ALM,COD_SUCU,COD_TIP,COD_MON,COD_CPRE,"
                   "COD_ESTATUS,COD_USU,IMPORTACION,FOL_OCOM,TIP_CAM,IMP_DOC,DES_DOC,CARGO_TOTAL,"
                   "CARGO_IMPTO,SUB_DOC,IVA_DOC,TOT_DOC,TOT_PROV");
    auto& cRen = L("tblComprasRen",
                   "FOL_DOC,COD1_ART,CAN_ART,COD_UND,EQV_UND,COS_UNI,COS_COM,IMPORTE,IMP_ARANCEL,"
                   "POR_ARANCEL,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,DESCUENTO5,DESCUENTO6,"
                   "IMP1_ART,IMP2_ART,COD1_IMP,COD2_IMP,GRAVA_IMP1");
    auto& oEnc =
        L("tblOCOMEnc",
          "FOL_OCOM,FEC_OCOM,COD_PROV,FOL_REQS,COD_ALM,COD_SUCU,COD_MON,COD_TIP,COD_CPRE,"
          "IMPORTACION,COD_ESTATUS,COD_USU,TIP_CAM,IMP_OCOM,DES_OCOM,CARGOS_TOT,CARGOS_IMP,"
          "SUB_OCOM,IVA_OCOM,TOT_OCOM");
    auto& oRen = L("tblOCOMRen",
                   "FOL_OCOM,COD1_ART,CAN_ART,COD_UND,EQV_UND,CAN_SURT,BACKORDER,COS_UNI,COS_COM,"
                   "IMPORTE,POR_ARANCEL,IMP_ARANCEL,DESCUENTO1,DESCUENTO2,DESCUENTO3,DESCUENTO4,"
                   "DESCUENTO5,DESCUENTO6,IMP1_REG,IMP2_REG");
    auto& rEnc = L("tblRequisicionesEnc",
                   "FOL_REQ,FEC_REQ,COD_TIP,COD_CCOS,COD_CPRE,COD_SUCU,NOTA,COD_ESTATUS,COD_USU");
    auto& rRen = L("tblRequisicionesRen", "FOL_REQ,COD1_ART,CAN_ART,COD_UND,CAN_SURT,CAN_BACK");
    auto& qEnc = L("tblCotizacionesEnc",
                   "FOL_COTI,FEC_COTI,COD_PROV,FOL_REQ,COD_MON,COD_SUCU,COD_TIP,IMPORTACION,"
                   "COD_ESTATUS,COD_USU,TIM_ENTREGA,TIP_CAM,IMP_COTI,DES_COTI,DES_TOT,CARGO_TOT,"
                   "CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI");
    auto& qRen = L("tblCotizacionesRen",
                   "FOL_COTI,COD1_ART,CAN_ART,COD_UND,EQV_ART,COS_UNI,COS_COM,POR_ARAN,IMP_ARAN,"
                   "REN_DES1,REN_DES2,REN_DES3,REN_DES4,REN_DES5,REN_DES6,REN_IMP1,REN_IMP2");
    auto& dEnc = L("tblDevolucionEnc",
                   "FOL_DEV,FEC_DEV,FOL_REC,COD_PROV,COD_TIP,COD_ALM,COD_SUCU,COD_MON,COD_ESTATUS,"
                   "COD_USU,TIP_CAM,SUB_DEV,IVA_DEV,TOT_DEV");
    auto& dRen = L("tblDevolucionRen",
                   "FOL_DEV,COD1_ART,CAN_ART,COD_UND,EQV_UND,COS_UNI,IMP1_REN,IMP2_REN,IMP1_IMP,"
                   "IMP2_IMP,COD1_IMP,COD2_IMP,GRAVA_IMP1");
    auto& dif = L("tblDifRecepcion", "REF_OC,COD_ART,COD_UND,CAN_OC,CAN_REC");

    qint64 nOc = 0, nReq = 0, nCot = 0, nDev = 0;
    const int nArt = static_cast<int>(art_.size());

    auto requisicion = [&](const QDate& fecha, const std::vector<Linea>& lineas, int estatus,
                           const std::vector<Dz>& surtido, int cpre) {
        const QString folio = Folio("RQ", ++nReq);
        const Concepto& c = kConceptos[static_cast<size_t>(cpre - 1)];
        rEnc.Agrega(
            {Txt(folio), Fec(fecha), Ent(az.Entre(1, 2)), Ent(c.ccos), Ent(cpre),
             Txt(kAlmacenes[static_cast<size_t>(az.Entre(0, 3))].sucu),
             Txt(az.Prob(0.3)
                     ? QString("Surtir a la brevedad; entregar en almacén de %1.")
                           .arg(QString::fromUtf8(kCentros[static_cast<size_t>(c.ccos - 1)].second)
                                    .toLower())
                     : QString("Requisición de %1").arg(QString::fromUtf8(c.des).toLower())),
             Ent(estatus), Txt(Usuario(az))});
        for (size_t k = 0; k < lineas.size(); ++k) {
            const Dz s = estatus == 2 ? 0 : surtido[k];
            rRen.Agrega({Txt(folio), Txt(art_[static_cast<size_t>(lineas[k].art)].cod),
                         Din(lineas[k].can), Txt(lineas[k].und), Din(s),
                         Din(estatus == 2 ? 0 : lineas[k].can - s)});
        }
        return folio;
    };

    for (int i = 0; i < n; ++i) {
        const QDate fecha = ini.addDays(static_cast<qint64>(i) * dias / n);
        const int k = i + 1; // receipt number, RC000000k
        // Supplier.
        int ip;
        if (k == 1)
            ip = 0;
        else if (k == 4)
            ip = 2;
        else if (az.Prob(0.04))
            ip = 9; // the overdrawn supplier buys often
        else
            ip = az.De(compradores_);
        Proveedor& p = prov_[static_cast<size_t>(ip)];
        const bool imp = p.importador;
        const int moneda = imp ? p.moneda : 1;
        const Dz cambio = Cambio(moneda, fecha);
        const Almacen& alm = kAlmacenes[static_cast<size_t>(az.Entre(0, 3))];
        const int cpre = imp ? 1 : static_cast<int>(az.Entre(1, 12));
        const int tip = imp ? 3 : static_cast<int>(az.Entre(1, 4) == 4 ? 2 : 1);
        const QString usu = Usuario(az);

        // The lines.
        const int nLin = static_cast<int>(az.Entre(3, 14));
        std::vector<Linea> lineas;
        std::vector<int> usados;
        for (int j = 0; j < nLin; ++j) {
            int a = static_cast<int>(az.Entre(0, nArt - 1));
            while (std::find(usados.begin(), usados.end(), a) != usados.end())
                a = (a + 1) % nArt;
            usados.push_back(a);
            lineas.push_back(HazLinea(az, a, cambio, imp, az.Prob(0.25), az.Entre(1, 120) * kUno));
        }

        // Every second receipt answers a purchase order made for it.
        QString folOc;
        std::vector<Dz> pedido(lineas.size());
        if (k % 2 == 1) {
            const qint64 nro = ++nOc;
            const QDate fOc = fecha.addDays(-az.Entre(2, 15)) < QDate(2025, 1, 1)
                                  ? QDate(2025, 1, 1)
                                  : fecha.addDays(-az.Entre(2, 15));
            const bool cancelada = nro == 3 || az.Prob(0.03);
            folOc = Folio("OC", nro);
            bool backorder = false;
            for (size_t j = 0; j < lineas.size(); ++j) {
                pedido[j] = lineas[j].can;
                if (!cancelada && az.Prob(0.18)) {
                    pedido[j] = lineas[j].can + az.Entre(1, 30) * kUno;
                    backorder = true;
                }
            }
            // A requisition for one order in three, with quotations.
            QString folReq;
            if (nro % 3 == 1) {
                std::vector<Linea> pedidas = lineas;
                for (size_t j = 0; j < pedidas.size(); ++j)
                    pedidas[j].can = pedido[j];
                std::vector<Dz> surt(lineas.size());
                for (size_t j = 0; j < lineas.size(); ++j)
                    surt[j] = cancelada ? 0 : lineas[j].can;
                folReq = requisicion(fOc.addDays(-3) < QDate(2025, 1, 1) ? QDate(2025, 1, 1)
                                                                         : fOc.addDays(-3),
                                     pedidas, cancelada ? 4 : (backorder ? 4 : 3), surt, cpre);
                // Quotations: the chosen supplier and one or two others.
                const int nq = static_cast<int>(az.Entre(2, 3));
                for (int q = 0; q < nq; ++q) {
                    const int iq = q == 0 ? ip : az.De(compradores_);
                    const Proveedor& pq = prov_[static_cast<size_t>(iq)];
                    const int monQ = pq.importador ? pq.moneda : 1;
                    const Dz camQ = Cambio(monQ, fOc);
                    const QString folQ = Folio("CT", ++nCot);
                    Dz impQ = 0, desQ = 0, ivaQ = 0, arQ = 0;
                    for (size_t j = 0; j < pedidas.size(); ++j) {
                        Linea l = HazLinea(az, pedidas[j].art, camQ, pq.importador,
                                           pedidas[j].eqv > 1, pedidas[j].can);
                        l.und = pedidas[j].und;
                        l.eqv = pedidas[j].eqv;
                        impQ += l.bruto;
                        desQ += l.bruto - l.importe;
                        ivaQ += l.imp1 + l.imp2;
                        arQ += l.arancel;
                        qRen.Agrega({Txt(folQ), Txt(art_[static_cast<size_t>(l.art)].cod),
                                     Din(l.can), Txt(l.und), static_cast<double>(l.eqv),
                                     Din(l.cosUni), Din(l.cosCom), Pct(l.porAran), Din(l.arancel),
                                     Pct(l.d1), Pct(l.d2), Pct(0), Pct(0), Pct(0), Pct(0),
                                     Ent(l.cod1), Ent(l.cod2)});
                    }
                    const Dz cargo = az.Prob(0.3) ? Pesos(az.Entre(2, 30) * 100.0) : 0;
                    const Dz sub = impQ - desQ + cargo + arQ;
                    const Dz iva = ivaQ + PorCiento(cargo, 1600);
                    const int stsQ =
                        q == 0
                            ? 1
                            : std::array<int, 4>{1, 4, 2, 3}[static_cast<size_t>(az.Entre(0, 3))];
                    qEnc.Agrega({Txt(folQ),
                                 Fec(fOc.addDays(-1) < QDate(2025, 1, 1) ? QDate(2025, 1, 1)
                                                                         : fOc.addDays(-1)),
                                 Txt(pq.cod),
                                 Txt(folReq),
                                 Ent(monQ),
                                 Txt(alm.sucu),
                                 Ent(tip),
                                 Ent(pq.importador ? 1 : 0),
                                 Ent(stsQ),
                                 Txt(Usuario(az)),
                                 Ent(az.Entre(1, 45)),
                                 Din(camQ),
                                 Din(impQ),
                                 Din(desQ),
                                 Din(desQ),
                                 Din(cargo),
                                 Din(PorCiento(cargo, 1600)),
                                 Din(sub),
                                 Din(iva),
                                 Din(sub + iva)});
                }
            }
            Dz impO = 0, desO = 0, ivaO = 0, arO = 0;
            for (size_t j = 0; j < lineas.size(); ++j) {
                const Linea& l = lineas[j];
                const Dz bruto = Por(pedido[j], l.cosUni), importe = Por(pedido[j], l.cosCom);
                const Dz ar = PorCiento(importe, l.porAran);
                const Dz i1 = PorCiento(importe, l.por1),
                         i2 = PorCiento(importe + (l.grava ? i1 : 0), l.por2);
                impO += bruto;
                desO += bruto - importe;
                ivaO += i1 + i2;
                arO += ar;
                const Dz surt = cancelada ? 0 : l.can;
                oRen.Agrega({Txt(folOc),
                             Txt(art_[static_cast<size_t>(l.art)].cod),
                             Din(pedido[j]),
                             Txt(l.und),
                             static_cast<double>(l.eqv),
                             Din(surt),
                             Din(pedido[j] - surt),
                             Din(l.cosUni),
                             Din(l.cosCom),
                             Din(importe),
                             Pct(l.porAran),
                             Din(ar),
                             Pct(l.d1),
                             Pct(l.d2),
                             Pct(0),
                             Pct(0),
                             Pct(0),
                             Pct(0),
                             Ent(l.cod1),
                             Ent(l.cod2)});
                if (!cancelada && pedido[j] != l.can)
                    dif.Agrega({Txt(folOc), Txt(art_[static_cast<size_t>(l.art)].cod), Txt(l.und),
                                Din(pedido[j]), Din(l.can)});
            }
            const Dz sub = impO - desO + arO;
            oEnc.Agrega({Txt(folOc),
                         Fec(fOc),
                         Txt(p.cod),
                         folReq.isEmpty() ? Nulo() : Txt(folReq),
                         Txt(alm.cod),
                         Txt(alm.sucu),
                         Ent(moneda),
                         Ent(tip),
                         Ent(cpre),
                         Ent(imp ? 1 : 0),
                         Ent(cancelada ? 5 : (backorder ? 4 : 3)),
                         Txt(usu),
                         Din(cambio),
                         Din(impO),
                         Din(desO),
                         Din(0),
                         Din(0),
                         Din(sub),
                         Din(ivaO),
                         Din(sub + ivaO)});
            if (cancelada)
                folOc.clear(); // the receipt stands on its own
        }
        // Standalone requisitions, in all statuses.
        if (k % 5 == 2) {
            std::vector<Linea> rl;
            std::vector<Dz> surt;
            const int nr = static_cast<int>(az.Entre(2, 6));
            for (int j = 0; j < nr; ++j) {
                const int a = static_cast<int>((az.Entre(0, nArt - 1) + j) % nArt);
                Linea l;
                l.art = a;
                l.und = QString::fromUtf8(
                    kFamilias[static_cast<size_t>(art_[static_cast<size_t>(a)].familia)].und);
                l.can = az.Entre(1, 50) * kUno;
                rl.push_back(l);
            }
            const int sts =
                nReq == 1
                    ? 2
                    : std::array<int, 6>{4, 4, 1, 3, 2, 4}[static_cast<size_t>(az.Entre(0, 5))];
            for (const Linea& l : rl)
                surt.push_back(sts == 3   ? l.can
                               : sts == 2 ? 0
                                          : Redondea(l.can * az.Entre(0, 2), 2 * kUno) * kUno);
            requisicion(fecha, rl, sts, surt, static_cast<int>(az.Entre(1, 12)));
        }

        // The receipt.
        const QString folio = Folio("RC", k);
        int sts;
        if (k == 6)
            sts = 2;
        else if (k == 9)
            sts = 7;
        else if (k == 1 || k == 4)
            sts = 4;
        else {
            const double u = az.Unif();
            sts = u < 0.03 ? 2 : u < 0.07 ? 7 : u < 0.20 ? 3 : u < 0.30 ? 1 : 4;
        }
        Dz impD = 0, desD = 0, ivaD = 0, arD = 0;
        for (const Linea& l : lineas) {
            impD += l.bruto;
            desD += l.bruto - l.importe;
            ivaD += l.imp1 + l.imp2;
            arD += l.arancel;
            cRen.Agrega({Txt(folio),
                         Txt(art_[static_cast<size_t>(l.art)].cod),
                         Din(l.can),
                         Txt(l.und),
                         static_cast<double>(l.eqv),
                         Din(l.cosUni),
                         Din(l.cosCom),
                         Din(l.importe),
                         Din(l.arancel),
                         Pct(l.porAran),
                         Pct(l.d1),
                         Pct(l.d2),
                         Pct(0),
                         Pct(0),
                         Pct(0),
                         Pct(0),
                         Pct(l.por1),
                         Pct(l.por2),
                         Ent(l.cod1),
                         Ent(l.cod2),
                         Ent(l.grava)});
        }
        const Dz cargo = az.Prob(0.2) ? Pesos(az.Entre(3, 35) * 100.0) : 0;
        const Dz cargoImp = PorCiento(cargo, 1600);
        const Dz sub = impD - desD + cargo + arD;
        const Dz iva = ivaD + cargoImp;
        const Dz tot = sub + iva;
        const QString factura =
            imp ? QString("INV-%1-%2").arg(fecha.year()).arg(az.Entre(1000, 9999))
                : QString("F-%1").arg(az.Entre(10000, 99999));
        cEnc.Agrega({Txt(folio),
                     Fec(fecha),
                     Txt(p.cod),
                     Txt(factura),
                     Txt(alm.cod),
                     Txt(alm.sucu),
                     Ent(tip),
                     Ent(moneda),
                     Ent(cpre),
                     Ent(sts),
                     Txt(usu),
                     Ent(imp ? 1 : 0),
                     folOc.isEmpty() ? Nulo() : Txt(folOc),
                     Din(cambio),
                     Din(impD),
                     Din(desD),
                     Din(cargo),
                     Din(cargoImp),
                     Din(sub),
                     Din(iva),
                     Din(tot),
                     Din(tot)});
        if (sts == 7)
            continue; // a remission has no charge yet
        if (sts != 2 && (p.ucom.isNull() || fecha > p.ucom))
            p.ucom = fecha;

        // Accounts payable: the charge of the receipt, in pesos.
        const Dz cargoPesos = Por(tot, cambio);
        Dz saldo = sts == 2 ? 0 : cargoPesos;
        const qint64 movCargo = ++nMov_;
        // A return against one receipt in twenty.
        if (sts != 2 && (k == 10 || k == 12 || az.Prob(0.05))) {
            const QString folDev = Folio("DV", ++nDev);
            const bool devCancelada = nDev == 2 || az.Prob(0.08);
            const QDate fDev = std::min(fin, fecha.addDays(az.Entre(2, 20)));
            Dz subDev = 0, ivaDev = 0;
            const size_t nl = std::min<size_t>(lineas.size(), static_cast<size_t>(az.Entre(1, 2)));
            for (size_t j = 0; j < nl; ++j) {
                const Linea& l = lineas[j];
                const Dz can = std::max<Dz>(kUno, Redondea(l.can, 3 * kUno) * kUno);
                const Dz base = Por(can, l.cosCom);
                const Dz i1 = PorCiento(base, l.por1),
                         i2 = PorCiento(base + (l.grava ? i1 : 0), l.por2);
                subDev += base;
                ivaDev += i1 + i2;
                dRen.Agrega({Txt(folDev), Txt(art_[static_cast<size_t>(l.art)].cod), Din(can),
                             Txt(l.und), static_cast<double>(l.eqv), Din(l.cosCom), Pct(l.por1),
                             Pct(l.por2), Din(i1), Din(i2), Ent(l.cod1), Ent(l.cod2),
                             Ent(l.grava)});
            }
            dEnc.Agrega({Txt(folDev), Fec(fDev), Txt(folio), Txt(p.cod), Ent(tip), Txt(alm.cod),
                         Txt(alm.sucu), Ent(moneda), Ent(devCancelada ? 2 : 1), Txt(Usuario(az)),
                         Din(cambio), Din(subDev), Din(ivaDev), Din(subDev + ivaDev)});
            const Dz credito = std::min(saldo, Por(subDev + ivaDev, cambio));
            if (credito > 0)
                saldo -= Abono(devCancelada ? 2 : 1, "DEV", folDev, folDev, fDev, p, alm.sucu,
                               folio, credito, saldo - (devCancelada ? 0 : credito), devCancelada);
        }
        // The payment: on time mostly; the overdrawn supplier rarely pays.
        if (sts != 2 && saldo > 0) {
            const QDate vence = fecha.addDays(p.plaCre);
            const QDate fPago = vence.addDays(az.Entre(-10, 20));
            const double paga = ip == 9 ? 0.25 : 0.88;
            if (fPago <= fin && az.Prob(paga)) {
                if (nPago_ == 1) // one cancelled payment, PG0000002, that paid nothing
                    Abono(2, "PAG", Folio("PG", ++nPago_),
                          QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p, alm.sucu,
                          folio, saldo, saldo, true);
                saldo -= Abono(1, "PAG", Folio("PG", ++nPago_),
                               QString("TRF-%1").arg(az.Entre(100000, 999999)), fPago, p, alm.sucu,
                               folio, saldo, 0, false);
            } else if (fecha.addDays(15) <= fin && az.Prob(0.3)) {
                const Dz parte = Redondea(saldo * az.Entre(30, 60), 100 * 100) * 100;
                saldo -= Abono(1, "PAG", Folio("PG", ++nPago_),
                               QString("TRF-%1").arg(az.Entre(100000, 999999)), fecha.addDays(15),
                               p, alm.sucu, folio, parte, saldo - parte, false);
            }
        }
        const int stsCargo = sts == 2 ? 2 : (saldo > 0 && az.Prob(0.04)) ? 3 : 1;
        cxpEnc().Agrega({Ent(movCargo), Txt(folio), Fec(fecha), Ent(p.plaCre), Txt(factura),
                         Txt(p.cod), Txt("FAC"), Txt("CCXP"), Txt("COMPRA"), Ent(stsCargo),
                         Txt(alm.sucu), Din(cargoPesos), Din(saldo)});
        p.saldo += saldo;
        // An advance not yet applied, now and then.
        if (sts != 2 && az.Prob(0.01)) {
            const Dz ant = Pesos(az.Entre(5, 50) * 1000.0);
            cxpEnc().Agrega({Ent(++nMov_), Txt(Folio("AN", ++nAnt_)), Fec(fecha), Ent(0),
                             Txt(QString("ANT-%1").arg(nAnt_)), Txt(p.cod), Txt("ANT"), Txt("ACXP"),
                             Txt("ANTICIPO"), Ent(3), Txt(alm.sucu), Din(ant), Din(ant)});
            p.saldo -= ant;
        }
    }
}

// Monthly average cost of every article.
void Generador::Promedios() {
    Azar az(o_.semilla, 6);
    auto& pr = L("tblPromedios", "COD1_ART,FEC_PROM,COS_PROM");
    const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
    for (const Articulo& a : art_) {
        Dz c = a.precio;
        for (QDate d(2025, 1, 31); d <= fin;
             d = QDate(d.year(), d.month(), 1).addMonths(2).addDays(-1)) {
            c = Redondea(static_cast<__int128>(c) * (9900 + az.Entre(0, 300)), 10000);
            pr.Agrega({Txt(a.cod), Fec(d), Din(c)});
        }
    }
}

} // namespace consultas::demo::gen
