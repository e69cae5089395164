// The fixed catalogues of the demo company, its suppliers and its articles.

#include "Generador.h"

namespace consultas::demo::gen {

const std::vector<Ciudad> kCiudades = {
    {"GDL", "Guadalajara", "JAL", "MEX"},
    {"ZAP", "Zapopan", "JAL", "MEX"},
    {"TLQ", "Tlaquepaque", "JAL", "MEX"},
    {"MTY", "Monterrey", "NL", "MEX"},
    {"SPG", "San Pedro Garza García", "NL", "MEX"},
    {"CDMX", "Ciudad de México", "CDMX", "MEX"},
    {"PUE", "Puebla", "PUE", "MEX"},
    {"QRO", "Querétaro", "QRO", "MEX"},
    {"LEO", "León", "GTO", "MEX"},
    {"CEL", "Celaya", "GTO", "MEX"},
    {"TIJ", "Tijuana", "BC", "MEX"},
    {"MER", "Mérida", "YUC", "MEX"},
    {"HOU", "Houston", "TX", "USA"},
    {"LAX", "Los Ángeles", "CA", "USA"},
    {"SHA", "Shanghái", "SH", "CHN"},
    {"SZX", "Shenzhen", "GD", "CHN"},
    {"HAM", "Hamburgo", "HH", "DEU"},
};
const std::vector<std::pair<const char*, const char*>> kEstados = {
    {"JAL", "Jalisco"},   {"NL", "Nuevo León"},  {"CDMX", "Ciudad de México"}, {"PUE", "Puebla"},
    {"QRO", "Querétaro"}, {"GTO", "Guanajuato"}, {"BC", "Baja California"},    {"YUC", "Yucatán"},
    {"TX", "Texas"},      {"CA", "California"},  {"SH", "Shanghái"},           {"GD", "Cantón"},
    {"HH", "Hamburgo"},
};
const std::vector<std::pair<const char*, const char*>> kPaises = {
    {"MEX", "México"}, {"USA", "Estados Unidos"}, {"CHN", "China"}, {"DEU", "Alemania"}};

const std::vector<std::pair<const char*, const char*>> kSucursales = {
    {"S01", "Matriz Guadalajara"},
    {"S02", "Sucursal Monterrey"},
    {"S03", "Sucursal Ciudad de México"}};
const std::vector<Almacen> kAlmacenes = {{"AL01", "Almacén general Guadalajara", "S01"},
                                         {"AL02", "Almacén de refacciones", "S01"},
                                         {"AL03", "Almacén Monterrey", "S02"},
                                         {"AL04", "Almacén Ciudad de México", "S03"}};

const std::vector<std::pair<const char*, const char*>> kUsuarios = {
    {"ADMIN", "Administrador del sistema"}, {"JPEREZ", "Juan Pérez López"},
    {"MGARCIA", "María García Ruiz"},       {"LHERNANDEZ", "Luis Hernández Soto"},
    {"ATORRES", "Ana Torres Medina"},       {"RCRUZ", "Roberto Cruz Villalobos"}};

const std::vector<Impuesto> kImpuestos = {{1, "IVA 16%", 1600, 1},
                                          {2, "IVA 0%", 0, 1},
                                          {3, "IEPS 8%", 800, 2},
                                          {4, "IVA 8% región fronteriza", 800, 1},
                                          {5, "IEPS 26.5%", 2650, 2}};

// Supplier groups and agrupaciones.
const std::vector<std::pair<int, const char*>> kGposProv = {
    {1, "Proveedores nacionales"}, {2, "Proveedores extranjeros"}, {3, "Acreedores diversos"}};
const std::vector<Agr> kAgrsProv = {{1, 1, "Materias primas"},
                                    {2, 1, "Refacciones y mantenimiento"},
                                    {3, 1, "Papelería y oficina"},
                                    {4, 2, "Importación Asia"},
                                    {5, 2, "Importación Norteamérica"},
                                    {6, 3, "Servicios"},
                                    {7, 3, "Arrendamiento"},
                                    {8, 2, "Importación Europa"}};
// Article groups and agrupaciones.
const std::vector<std::pair<int, const char*>> kGposArt = {
    {1, "Materia prima"}, {2, "Refacciones"}, {3, "Consumibles"}};
const std::vector<Agr> kAgrsArt = {{1, 1, "Aceros"},
                                   {2, 1, "Plásticos y resinas"},
                                   {3, 1, "Químicos"},
                                   {4, 2, "Rodamientos y transmisión"},
                                   {5, 2, "Material eléctrico"},
                                   {6, 3, "Papelería"},
                                   {7, 3, "Limpieza y cafetería"}};
const std::vector<std::pair<const char*, const char*>> kUnidades = {{"PZA", "Pieza"},
                                                                    {"KG", "Kilogramo"},
                                                                    {"TON", "Tonelada"},
                                                                    {"LT", "Litro"},
                                                                    {"CUB", "Cubeta 19 litros"},
                                                                    {"MT", "Metro"},
                                                                    {"ROL", "Rollo 100 metros"},
                                                                    {"CJA", "Caja"},
                                                                    {"PAQ", "Paquete"},
                                                                    {"TAM", "Tambor 200 litros"}};

const std::vector<Familia> kFamilias = {
    {"Lámina de acero rolada en frío", 1, "KG", "TON", 1000, 24.5, 1, 0},
    {"Solera de acero", 1, "KG", "TON", 1000, 27.8, 1, 0},
    {"Tubo PTR", 1, "PZA", nullptr, 1, 685.0, 1, 0},
    {"Ángulo de acero", 1, "PZA", nullptr, 1, 412.0, 1, 0},
    {"Resina PET", 2, "KG", "TON", 1000, 31.2, 1, 0},
    {"Polietileno de alta densidad", 2, "KG", "TON", 1000, 29.9, 1, 0},
    {"Ácido sulfúrico", 3, "LT", "TAM", 200, 18.4, 1, 0},
    {"Sosa cáustica", 3, "KG", nullptr, 1, 22.0, 1, 0},
    {"Rodamiento", 4, "PZA", "CJA", 10, 189.0, 1, 0},
    {"Banda de transmisión", 4, "PZA", nullptr, 1, 356.0, 1, 0},
    {"Cable THW", 5, "MT", "ROL", 100, 14.6, 1, 0},
    {"Contactor", 5, "PZA", nullptr, 1, 1240.0, 1, 0},
    {"Hojas bond", 6, "PAQ", "CJA", 10, 115.0, 1, 0},
    {"Tóner", 6, "PZA", nullptr, 1, 1890.0, 1, 0},
    {"Detergente industrial", 7, "LT", "CUB", 19, 38.0, 1, 0},
    {"Guantes de nitrilo", 7, "CJA", nullptr, 1, 245.0, 1, 0},
    {"Galletas surtidas para cafetería", 7, "PAQ", "CJA", 12, 42.0, 3, 1},
    {"Vino de mesa para obsequio", 7, "PZA", "CJA", 12, 210.0, 5, 1},
    {"Azúcar estándar", 7, "KG", nullptr, 1, 28.0, 2, 0},
};
const std::vector<const char*> kVariantes = {
    "cal. 10",  "cal. 12",   "cal. 14", "cal. 16",       "1/2\"",
    "3/4\"",    "1\"",       "2\"",     "modelo A",      "modelo B",
    "modelo C", "6205-2RS",  "6206-ZZ", "grado técnico", "grado industrial",
    "premium",  "económico", "negro",   "blanco",        "azul"};

const std::vector<std::pair<int, const char*>> kCentros = {{1, "Dirección General"},
                                                           {2, "Producción"},
                                                           {3, "Mantenimiento"},
                                                           {4, "Administración"},
                                                           {5, "Ventas"}};
const std::vector<Concepto> kConceptos = {{1, "Materia prima", 2, 2400000},
                                          {2, "Refacciones", 3, 480000},
                                          {3, "Papelería y artículos de oficina", 4, 96000},
                                          {4, "Combustibles y lubricantes", 2, 360000},
                                          {5, "Mantenimiento de maquinaria", 3, 540000},
                                          {6, "Mantenimiento de edificios", 3, 220000},
                                          {7, "Honorarios profesionales", 1, 300000},
                                          {8, "Arrendamiento de inmuebles", 1, 660000},
                                          {9, "Viáticos y gastos de viaje", 5, 180000},
                                          {10, "Publicidad y promoción", 5, 420000},
                                          {11, "Equipo de cómputo", 4, 250000},
                                          {12, "Capacitación", 1, 120000},
                                          {13, "Proyecto planta nueva (sólo 2025)", 2, 900000},
                                          {14, "Eventos corporativos", 5, 80000}};

const std::vector<const char*> kNombres1 = {
    "Aceros",      "Plásticos",    "Químicos",   "Rodamientos",     "Ferretería", "Distribuidora",
    "Papelería",   "Suministros",  "Materiales", "Tornillería",     "Eléctrica",  "Empaques",
    "Lubricantes", "Herramientas", "Maquinados", "Comercializadora"};
const std::vector<const char*> kNombres2 = {
    "del Norte",  "del Bajío",  "de Occidente",   "Industriales", "Regiomontanos",
    "Tapatíos",   "Azteca",     "Continental",    "del Pacífico", "Modernos",
    "Nacionales", "del Centro", "Especializados", "Unidos"};
const std::vector<const char*> kSociedades = {" S.A. de C.V.", " S. de R.L. de C.V.",
                                              " S.A.P.I. de C.V."};
const std::vector<const char*> kPersonas = {
    "Jorge Ramírez",  "Patricia Gómez", "Fernando Castillo", "Lucía Morales",  "Ricardo Flores",
    "Gabriela Ortiz", "Héctor Navarro", "Silvia Aguilar",    "Alejandro Vega", "Mónica Herrera"};
const std::vector<const char*> kCalles = {
    "Av. Vallarta",           "Calle Industria", "Blvd. Díaz Ordaz", "Av. Constitución",
    "Calle Hidalgo",          "Periférico Sur",  "Av. Juárez",       "Calle Morelos",
    "Carretera a Chapala km", "Av. Insurgentes"};
const std::vector<const char*> kColonias = {
    "Col. Industrial", "Col. Centro",     "Parque Industrial El Salto",
    "Col. Moderna",    "Col. del Valle",  "Zona Industrial",
    "Col. Americana",  "Col. Las Águilas"};

// ---------------------------------------------------------------- the generator

void Generador::Catalogos() {
    L("tblParametrosGenerales", "REP_NOMEMP,REP_NOMCOM,CP_PREVIO").Agrega({Ent(1), Ent(1), Ent(1)});
    auto& emp =
        L("tblEmpresa",
          "COD_EMPRESA,NOM_EMP,NOM_COM,DIR1_EMP,EXT_EMP,INT_EMP,COL_EMP,CP_EMP,DESCRIP1,RFC1_EMP,"
          "DESCRIP2,RFC2_EMP,DESCRIP3,RFC3_EMP,TEL1_EMP,TEL2_EMP,COD_CD,COD_EDO");
    emp.Agrega({Ent(1), Txt("Industrias Valmor del Occidente, S.A. de C.V."),
                Txt("VALMOR INDUSTRIAL"), Txt("Av. Lázaro Cárdenas"), Txt("3450"), Txt("B"),
                Txt("Col. Chapalita"), Txt("44500"), Txt("R.F.C."), Txt("IVO950612AB3"),
                Txt("Reg. IMSS"), Txt("Y5412345100"), Txt("Reg. Estatal"), Txt("JAL-0451-22"),
                Txt("(33) 3121-4500"), Txt("(33) 3121-4501"), Txt(hechos::Ciudad),
                Txt(hechos::Estado)});
    emp.Agrega({Ent(2), Txt("Valmor Servicios Administrativos, S.C."), Txt("VALMOR SERVICIOS"),
                Txt("Av. Constitución"), Txt("1200"), Nulo(), Txt("Col. Centro"), Txt("64000"),
                Txt("R.F.C."), Txt("VSA100301KL9"), Txt(""), Txt(""), Txt(""), Txt(""),
                Txt("(81) 8340-1100"), Nulo(), Txt("MTY"), Txt("NL")});
    auto& cid = L("tblCiudad", "COD_CID,DES_CID");
    for (const auto& c : kCiudades)
        cid.Agrega({Txt(c.cod), Txt(QString::fromUtf8(c.des))});
    auto& est = L("tblEstado", "COD_EST,DES_EST,NOM_EST");
    for (const auto& [c, d] : kEstados)
        est.Agrega({Txt(c), Txt(QString::fromUtf8(d)), Txt(QString::fromUtf8(d))});
    auto& pais = L("tblPais", "COD_PAIS,DES_PAIS");
    for (const auto& [c, d] : kPaises)
        pais.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
    auto& suc = L("tblSucursales", "COD_SUCU,DES_SUCU");
    for (const auto& [c, d] : kSucursales)
        suc.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
    auto& alm = L("tblCatAlmacenes", "COD_ALM,DES_ALM,COD_SUCU");
    for (const auto& a : kAlmacenes)
        alm.Agrega({Txt(a.cod), Txt(QString::fromUtf8(a.des)), Txt(a.sucu)});
    auto& usu = L("tblUsuarios", "COD_USU,NOM_USU");
    for (const auto& [c, d] : kUsuarios)
        usu.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
    auto& imp = L("tblImpuestos", "COD_IMP,DES_IMP,POR_IMP,TIPO_IMP");
    for (const auto& i : kImpuestos)
        imp.Agrega({Ent(i.cod), Txt(QString::fromUtf8(i.des)), Pct(i.centesimas), Ent(i.tipo)});
    auto& tip = L("tblTipoRequisicion", "COD_TIP,DES_TIP");
    tip.Agrega({Ent(1), Txt("Compra normal")});
    tip.Agrega({Ent(2), Txt("Compra urgente")});
    tip.Agrega({Ent(3), Txt("Importación")});
    tip.Agrega({Ent(4), Txt("Servicios")});
    auto& mon = L("tblMonedas", "COD_MON,DES_MON,TIP_CAM");
    const QDate fin = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
    mon.Agrega({Ent(1), Txt("Pesos mexicanos"), Din(kUno)});
    mon.Agrega({Ent(2), Txt("Dólares estadounidenses"), Din(Cambio(2, fin))});
    mon.Agrega({Ent(3), Txt("Euros"), Din(Cambio(3, fin))});
    auto& sts = L("tblEstatusProv", "COD_STS,DES_STS");
    sts.Agrega({Ent(1), Txt("Activo")});
    sts.Agrega({Ent(2), Txt("Suspendido")});
    sts.Agrega({Ent(3), Txt("Baja")});
    auto& gp = L("tblGpoProveedor", "COD_GPO,DES_GPO");
    for (const auto& [c, d] : kGposProv)
        gp.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
    auto& ap = L("tblAgrProveedor", "COD_AGR,COD_GPO,DES_AGR");
    for (const auto& a : kAgrsProv)
        ap.Agrega({Ent(a.cod), Ent(a.gpo), Txt(QString::fromUtf8(a.des))});
    auto& con = L("tblConceptosCom", "COD_CON,DES_CON,COD_FOL");
    con.Agrega({Txt("FAC"), Txt("Factura de compra"), Txt("CCXP")});
    con.Agrega({Txt("NCA"), Txt("Nota de cargo"), Txt("CCXP")});
    con.Agrega({Txt("ARR"), Txt("Arrendamiento"), Txt("CCXP")});
    con.Agrega({Txt("SER"), Txt("Servicios"), Txt("CCXP")});
    con.Agrega({Txt("PAG"), Txt("Pago a proveedor"), Txt("ACXP")});
    con.Agrega({Txt("DEV"), Txt("Devolución sobre compra"), Txt("ACXP")});
    con.Agrega({Txt("NCR"), Txt("Nota de crédito"), Txt("ACXP")});
    con.Agrega({Txt("ANT"), Txt("Anticipo a proveedor"), Txt("ACXP")});
    auto& fol = L("tblFolioGralesCom", "COD_FOL,DES_FOL");
    fol.Agrega({Txt("CCXP"), Txt("Cargos a proveedores")});
    fol.Agrega({Txt("ACXP"), Txt("Abonos a proveedores")});
    auto& cxs = L("tblCxPEstatus", "COD_STS,DES_STS");
    cxs.Agrega({Ent(1), Txt("Aplicado")});
    cxs.Agrega({Ent(2), Txt("Cancelado")});
    cxs.Agrega({Ent(3), Txt("Sin Aplicar")});
    auto& und = L("tblCatUnidades", "COD_UND,DES_UND");
    for (const auto& [c, d] : kUnidades)
        und.Agrega({Txt(c), Txt(QString::fromUtf8(d))});
    auto& ga = L("tblAgrupacionArt", "COD_GPO,DES_GPO");
    for (const auto& [c, d] : kGposArt)
        ga.Agrega({Ent(c), Txt(QString::fromUtf8(d))});
    auto& aa = L("tblCatAgrupacionArt", "COD_AGR,COD_GPO,DES_AGR");
    for (const auto& a : kAgrsArt)
        aa.Agrega({Ent(a.cod), Ent(a.gpo), Txt(QString::fromUtf8(a.des))});
}

void Generador::Proveedores() {
    Azar az(o_.semilla, 2);
    const int n = std::min(3000, 30 + 10 * o_.escala);
    for (int i = 0; i < n; ++i) {
        Proveedor p;
        p.cod = QString("P%1").arg(i + 1, 4, 10, QChar('0'));
        p.ciudad = static_cast<int>(az.Entre(0, 11));
        const int k = i + 1;
        if (k == 3 || k == 4 || (k > 10 && az.Prob(0.10))) {
            p.importador = true;
            p.ciudad = k == 3 ? 12 : k == 4 ? 14 : static_cast<int>(az.Entre(12, 16));
            p.moneda = kCiudades[static_cast<size_t>(p.ciudad)].pais == std::string("DEU") ? 3 : 2;
        }
        if (k == 5 || k == 6 || (k > 10 && !p.importador && az.Prob(0.08))) {
            p.acreedor = true;
            p.compra = false;
        }
        p.sts = k == 8                      ? 2
                : k == 9                    ? 3
                : (k > 10 && az.Prob(0.06)) ? 2
                : (k > 10 && az.Prob(0.03)) ? 3
                                            : 1;
        if (k == 7 || p.sts == 3)
            p.compra = false;
        p.plaCre = std::array<int, 5>{0, 15, 30, 45, 60}[static_cast<size_t>(az.Entre(0, 4))];
        if (p.importador)
            p.plaCre = 60;
        if (k == 10)
            p.plaCre = 30;
        prov_.push_back(p);
        if (p.compra)
            compradores_.push_back(i);
    }
}

void Generador::Articulos() {
    Azar az(o_.semilla, 3);
    const int n = std::min(6000, 80 + 20 * o_.escala);
    auto& art = L("tblCatArticulos", "COD1_ART,DES1_ART");
    auto& uca = L("tblUndCosPreArt", "COD1_ART,COD_UND,EQV_UND");
    auto& gpa = L("tblGpoArticulos", "COD_GPO,COD_AGR,COD1_ART");
    const int nf = static_cast<int>(kFamilias.size());
    for (int i = 0; i < n; ++i) {
        Articulo a;
        a.cod = QString("A%1").arg(i + 1, 5, 10, QChar('0'));
        a.familia = i % nf;
        const Familia& f = kFamilias[static_cast<size_t>(a.familia)];
        const int v = (i / nf) % static_cast<int>(kVariantes.size());
        const int serie = i / (nf * static_cast<int>(kVariantes.size()));
        QString des =
            QString::fromUtf8(f.des) + " " + QString::fromUtf8(kVariantes[static_cast<size_t>(v)]);
        if (serie > 0)
            des += QString(" serie %1").arg(serie + 1);
        a.precio = Pesos(f.precio * (0.8 + az.Unif() * 0.6));
        art.Agrega({Txt(a.cod), Txt(des)});
        uca.Agrega({Txt(a.cod), Txt(f.und), 1.0});
        if (f.undAlt)
            uca.Agrega({Txt(a.cod), Txt(f.undAlt), static_cast<double>(f.factorAlt)});
        const Agr& agr = kAgrsArt[static_cast<size_t>(f.agr - 1)];
        gpa.Agrega({Ent(agr.gpo), Ent(agr.cod), Txt(a.cod)});
        art_.push_back(a);
    }
}

void Generador::CierraProveedores() {
    Azar az(o_.semilla, 7);
    auto& cat = L("tblCatProveedor",
                  "COD_PROV,NOM_PROV,CALL_NUM,COL_PROV,COP_PROV,COD_CID,COD_EST,COD_PAIS,TEL1_"
                  "PROV,TEL2_PROV,"
                  "RFC_PROV,MAIL_PROV,CONTACTO1,CONTACTO2,COD_STS,ES_ACREED,FEC_UCOM,FEC_UPAG,"
                  "PLA_CRE,PORC_DES1,"
                  "PORC_DES2,PORC_DES3,PORC_DES4,PORC_DES5,PORC_DES6,LIM_CRE,SAL_PROV");
    auto& gap = L("tblGpoAgrProveedor", "COD_GPO,COD_AGR,COD_PROV");
    for (size_t i = 0; i < prov_.size(); ++i) {
        const Proveedor& p = prov_[i];
        const int k = static_cast<int>(i) + 1;
        const Ciudad& c = kCiudades[static_cast<size_t>(p.ciudad)];
        QString nombre;
        if (k == 1)
            nombre = "Aceros del Bajío, S.A. de C.V.";
        else if (k == 3)
            nombre = "Gulf Coast Steel Supply, Inc.";
        else if (k == 4)
            nombre = "Shenzhen Precision Bearings Co., Ltd.";
        else if (k == 5)
            nombre = "Inmobiliaria Chapalita, S.A. de C.V.";
        else if (k == 6)
            nombre = "Servicios Integrales de Limpieza del Occidente, S.C.";
        else if (k == 7)
            nombre = "Tornillería Industrial Tapatía, S.A. de C.V.";
        else if (p.importador)
            nombre = QString("%1 %2 Trading %3")
                         .arg(QString::fromUtf8(c.des))
                         .arg(k)
                         .arg(c.pais == std::string("DEU") ? "GmbH" : "Ltd.");
        else
            nombre = QString::fromUtf8(az.De(kNombres1)) + " " +
                     QString::fromUtf8(az.De(kNombres2)) + QString::fromUtf8(az.De(kSociedades));
        // Credit limits above the balance, but for the overdrawn supplier
        // and one in twenty others.
        Dz lim = p.acreedor ? Pesos(100000) : Pesos(az.Entre(1, 40) * 25000.0);
        const Dz holgado =
            Redondea(static_cast<__int128>(p.saldo) * 13, 10 * Pesos(25000)) * Pesos(25000);
        if (k == 10)
            lim = Pesos(50000);
        else if (!(k > 10 && az.Prob(0.05)) && lim < holgado)
            lim = holgado + Pesos(25000);
        static const int des[] = {0, 0, 0, 250, 500, 750, 1000};
        const int d1 = des[az.Entre(0, 6)];
        const int d2 = d1 > 0 && az.Prob(0.3) ? 200 : 0;
        const QString rfc = p.importador ? QString("XEXX010101000")
                                         : QString("%1%2%3")
                                               .arg(nombre.left(3).toUpper())
                                               .arg(az.Entre(700101, 991231))
                                               .arg(QString("A%1").arg(az.Entre(10, 99)));
        cat.Agrega(
            {Txt(p.cod),
             Txt(nombre),
             Txt(QString("%1 %2").arg(QString::fromUtf8(az.De(kCalles))).arg(az.Entre(10, 4999))),
             p.importador ? Nulo() : Txt(QString::fromUtf8(az.De(kColonias))),
             Txt(QString::number(az.Entre(20000, 99999))),
             Txt(c.cod),
             Txt(c.est),
             Txt(c.pais),
             Txt(QString("(%1) %2-%3")
                     .arg(az.Entre(33, 99))
                     .arg(az.Entre(1000, 9999))
                     .arg(az.Entre(1000, 9999))),
             az.Prob(0.5) ? Txt(QString("(%1) %2-%3")
                                    .arg(az.Entre(33, 99))
                                    .arg(az.Entre(1000, 9999))
                                    .arg(az.Entre(1000, 9999)))
                          : Nulo(),
             Txt(rfc.left(13)),
             Txt(QString("compras%1@proveedor%1.com.mx").arg(k)),
             Txt(QString::fromUtf8(az.De(kPersonas))),
             az.Prob(0.4) ? Txt(QString::fromUtf8(az.De(kPersonas))) : Nulo(),
             Ent(p.sts),
             Ent(p.acreedor ? 1 : 0),
             p.ucom.isNull() ? Nulo() : Fec(p.ucom),
             p.upag.isNull() ? Nulo() : Fec(p.upag),
             Ent(p.plaCre),
             Pct(d1),
             Pct(d2),
             Pct(0),
             Pct(0),
             Pct(0),
             Pct(k == 1 ? 150 : 0),
             Din(lim),
             Din(p.saldo)});
        // Memberships: by kind; P0001 is in two agrupaciones.
        int gpo = 1, agr = static_cast<int>(az.Entre(1, 3));
        if (p.importador) {
            gpo = 2;
            agr = c.pais == std::string("CHN") ? 4 : c.pais == std::string("DEU") ? 8 : 5;
        } else if (p.acreedor) {
            gpo = 3;
            agr = k == 5 ? 7 : 6;
        }
        if (k == 1)
            agr = 1;
        gap.Agrega({Ent(gpo), Ent(agr), Txt(p.cod)});
        if (k == 1)
            gap.Agrega({Ent(1), Ent(2), Txt(p.cod)});
    }
}

} // namespace consultas::demo::gen
