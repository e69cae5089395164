// The demo suite: the schema and the small demo on SQLite and PostgreSQL,
// read back through the library's read-only Conexion with the statements of
// the inquiries (placeholders filled), the type traps of the schema, the
// generator's determinism, row counts by scale and `consultas demo`.
#include "GeneradorDemo.h"
#include "core/Conexion.h"
#include "soporte/Soporte.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

using namespace consultas;
namespace hechos = consultas::demo::hechos;

namespace {

QString F(int a, int m, int d) {
    return Dialecto::FechaSQL(QDate(a, m, d), 4);
}
const QString D1 = F(2025, 1, 1), D2 = F(2026, 11, 30);

// A fresh database of an engine with the demo (scale 1) loaded, read through
// the library's read-only connection.
class DemoEnMotor : public ::testing::TestWithParam<QString> {
protected:
    void SetUp() override {
        if (GetParam() == "postgres")
            REQUIERE_POSTGRES();
        base = pruebas::NuevaBase(GetParam());
        resumen =
            demo::CargaDemo(QSqlDatabase::database(base->NombreEscritura()), demo::OpcionesDemo{});
        ASSERT_TRUE(con.Abrir(base->Cadena())) << con.UltimoError().toStdString();
    }
    int Filas(const QString& sql) {
        auto rs = con.Abre(sql);
        return rs->RecordCount();
    }
    Valor Uno(const QString& sql, const QString& campo) {
        auto rs = con.Abre(sql);
        if (rs->Eof())
            return Valor();
        return rs->Campo(campo);
    }
    std::unique_ptr<pruebas::BaseDePrueba> base;
    demo::ResumenDemo resumen;
    Conexion con;
};

struct Sentencia {
    const char* tablas; // the tables it proves, for the message
    QString sql;
};

} // namespace

// One statement of the inquiries (or more) for every one of the 44 tables; each
// must run on the engine and find rows in the demo.
TEST_P(DemoEnMotor, UnaSentenciaDeLasConsultasPorTabla) {
    const QString rc1 = "RC0000001";
    // A quotation folio and a requisition with quotations, a return, an
    // order with differences: taken from the demo itself.
    const QString folCot = Uno("SELECT MIN(FOL_COTI) AS F FROM tblCotizacionesEnc", "F").Texto();
    const QString folDev =
        Uno("SELECT MIN(FOL_DEV) AS F FROM tblDevolucionEnc WHERE COD_ESTATUS=1", "F").Texto();
    const QString provDev =
        Uno("SELECT COD_PROV FROM tblDevolucionEnc WHERE FOL_DEV='" + folDev + "'", "COD_PROV")
            .Texto();
    const QString recDev =
        Uno("SELECT FOL_REC FROM tblDevolucionEnc WHERE FOL_DEV='" + folDev + "'", "FOL_REC")
            .Texto();
    const QString artDev =
        Uno("SELECT COD1_ART FROM tblDevolucionRen WHERE FOL_DEV='" + folDev + "'", "COD1_ART")
            .Texto();
    const QString ocDif = Uno("SELECT MIN(REF_OC) AS F FROM tblDifRecepcion", "F").Texto();
    const QString artDif =
        Uno("SELECT COD_ART FROM tblDifRecepcion WHERE REF_OC='" + ocDif + "'", "COD_ART").Texto();
    ASSERT_FALSE(folCot.isEmpty());
    ASSERT_FALSE(folDev.isEmpty());
    ASSERT_FALSE(ocDif.isEmpty());

    const std::vector<Sentencia> sentencias = {
        // Letterhead
        {"tblParametrosGenerales", "SELECT REP_NOMEMP,REP_NOMCOM FROM tblParametrosGenerales;"},
        {"tblEmpresa", "SELECT * FROM tblEmpresa WHERE COD_EMPRESA=1;"},
        {"tblCiudad", "SELECT DES_CID FROM tblCiudad WHERE COD_CID='GDL';"},
        {"tblEstado", "SELECT DES_EST FROM tblEstado WHERE COD_EST='JAL';"},
        // Budgets
        {"tblConDePresu tblCentrosCostos",
         "SELECT COD_CPRE,DES_CPRE,tblConDePresu.COD_CCOS,DES_CCOS FROM tblConDePresu INNER JOIN "
         "tblCentrosCostos ON "
         "tblConDePresu.COD_CCOS=tblCentrosCostos.COD_CCOS WHERE COD_CPRE=5"},
        {"tblDefPresupuesto tblDefPresupuestoRen",
         "SELECT tblDefPresupuesto.ANO_PRES,IMP_ANUAL,(APLICADO+IMP_TRA)AS TOT_APL,(DISPONIBLE)AS "
         "TOT_DIS,MES_PRES,"
         "IMP_MES,IMP_REC FROM tblDefPresupuesto INNER JOIN tblDefPresupuestoRen ON "
         "tblDefPresupuesto.COD_CPRE=tblDefPresupuestoRen.COD_CPRE WHERE "
         "tblDefPresupuesto.COD_CPRE=5 AND "
         "tblDefPresupuesto.ANO_PRES=2025 AND tblDefPresupuestoRen.ANO_PRES=2025 ORDER BY "
         "MES_PRES;"},
        {"tblDefPresupuesto tblDefPresupuestoRen (resumido)",
         "SELECT IMP_ANUAL,SUM(APLICADO+IMP_TRA)AS TOT_APL,SUM(DISPONIBLE)AS TOT_DIS FROM "
         "tblDefPresupuesto INNER JOIN "
         "tblDefPresupuestoRen ON tblDefPresupuesto.COD_CPRE=tblDefPresupuestoRen.COD_CPRE WHERE "
         "tblDefPresupuesto.COD_CPRE=1 AND tblDefPresupuesto.ANO_PRES=2026 AND "
         "tblDefPresupuestoRen.ANO_PRES=2026  "
         "GROUP BY IMP_ANUAL;"},
        {"tblDefPresupuestoRen (aplicado)",
         "SELECT SUM(APLICADO)AS IMP_ANUAL FROM tblDefPresupuestoRen WHERE COD_CPRE=2 AND "
         "(ANO_PRES=2025);"},
        {"tblBitacora", "SELECT FOL_GRL,USU_REG,FEC_REG,MA_ORIGEN,MA_DESTINO,IMP_MOV FROM "
                        "tblBitacora WHERE (CON_GRL='TRPR' AND "
                        "TIP_OPE=2) AND (FEC_REG BETWEEN " +
                            D1 + " AND " + D2 + ") AND FOL_CON='5' ORDER BY FEC_REG;"},
        {"tblUsuarios", "SELECT NOM_USU FROM tblUsuarios WHERE COD_USU='MGARCIA';"},
        // Accounts payable
        {"tblPais",
         "SELECT COD_PAIS AS COD_TABLA,DES_PAIS AS DES_TABLA FROM tblPais ORDER BY COD_PAIS"},
        {"tblEstatusProv",
         "SELECT COD_STS AS COD_TABLA,DES_STS AS DES_TABLA FROM tblEstatusProv ORDER BY DES_STS"},
        {"tblGpoProveedor tblAgrProveedor",
         "SELECT tblGpoProveedor.COD_GPO,DES_GPO,COD_AGR,DES_AGR FROM tblGpoProveedor INNER JOIN "
         "tblAgrProveedor ON "
         "tblGpoProveedor.COD_GPO=tblAgrProveedor.COD_GPO ORDER BY "
         "tblGpoProveedor.COD_GPO,DES_AGR;"},
        {"tblGpoAgrProveedor tblCatProveedor",
         "SELECT "
         "tblCatProveedor.COD_PROV,NOM_PROV,TEL1_PROV,tblAgrProveedor.COD_AGR,DES_AGR,"
         "tblGpoProveedor.COD_GPO,"
         "DES_GPO FROM ((tblGpoAgrProveedor INNER JOIN tblAgrProveedor ON "
         "tblGpoAgrProveedor.COD_AGR = "
         "tblAgrProveedor.COD_AGR) INNER JOIN tblGpoProveedor ON tblGpoAgrProveedor.COD_GPO = "
         "tblGpoProveedor.COD_GPO) "
         "INNER JOIN tblCatProveedor ON tblGpoAgrProveedor.COD_PROV = tblCatProveedor.COD_PROV "
         "WHERE ES_ACREED=0"},
        {"tblCxPEnc tblCatProveedor tblCxPEstatus tblConceptosCom",
         "SELECT "
         "tblCxPEnc.FOL_DOC,tblCxPEnc.FEC_DOC,tblCxPEnc.REF_PROV,tblCxPEnc.IMP_DOC,COD_SUCU,"
         "tblCatProveedor.COD_PROV,"
         "tblConceptosCom.COD_CON,NOM_PROV,DES_STS,tblCxPEnc.CON_GRL,DES_CON FROM ((tblCxPEnc "
         "INNER JOIN tblCatProveedor "
         "ON tblCxPEnc.COD_PROV=tblCatProveedor.COD_PROV) INNER JOIN tblCxPEstatus ON "
         "tblCxPEnc.COD_STS=tblCxPEstatus.COD_STS) "
         "INNER JOIN tblConceptosCom ON tblCxPEnc.COD_CON=tblConceptosCom.COD_CON WHERE COD_SUCU "
         "IN('S01','S02') AND "
         "tblConceptosCom.COD_CON IN('FAC','PAG') AND (tblCxPEnc.FEC_DOC BETWEEN " +
             D1 + " AND " + D2 +
             ") ORDER BY "
             "tblCatProveedor.COD_PROV,tblConceptosCom.COD_CON,tblCxPEnc.COD_SUCU,tblCxPEnc.FOL_"
             "DOC;"},
        {"tblCxPRen (lista de movimientos)",
         "SELECT DISTINCT "
         "tblCxPEnc.NUM_MOV,tblCxPEnc.FOL_DOC,tblCxPEnc.FEC_DOC,tblCxPEnc.REF_PROV,(tblCxPRen.IMP_"
         "DOC) AS "
         "IMP1,(tblCxPRen.SAL_DOC) AS "
         "SAL1,tblCxPRen.TOT_DOC,COD_SUCU,tblCatProveedor.COD_PROV,tblConceptosCom.COD_CON,"
         "NOM_PROV,tblCxPEstatus.COD_STS,DES_STS,tblCxPEnc.CON_GRL,DES_CON,(tblCxPEnc.IMP_DOC) AS "
         "IMP2,(tblCxPEnc.SAL_DOC) "
         "AS SAL2 FROM (((tblCxPEnc LEFT JOIN tblCxPRen ON tblCxPEnc.FOL_DOC=tblCxPRen.FOL_DOC) "
         "INNER JOIN tblCatProveedor "
         "ON tblCxPEnc.COD_PROV=tblCatProveedor.COD_PROV) INNER JOIN tblCxPEstatus ON "
         "tblCxPEnc.COD_STS=tblCxPEstatus.COD_STS) "
         "INNER JOIN tblConceptosCom ON tblCxPEnc.COD_CON=tblConceptosCom.COD_CON WHERE "
         "tblCxPEstatus.COD_STS IN(1,2,3) "
         "AND (tblCxPEnc.FEC_DOC BETWEEN " +
             D1 + " AND " + D2 + ") ORDER BY tblCxPEnc.NUM_MOV;"},
        {"tblCxPRen (auxiliar de documentos)",
         "SELECT "
         "tblCxPEnc.FEC_DOC,tblCxPRen.FOL_REF,tblCxPRen.FOL_DOC,tblCxPRen.IMP_DOC,tblCxPEnc.CON_"
         "GRL,tblCxPEnc.COD_CON "
         "FROM tblCxPEnc INNER JOIN tblCxPRen ON tblCxPEnc.NUM_MOV=tblCxPRen.NUM_MOV WHERE "
         "tblCxPEnc.CON_GRL='ACXP' AND "
         "tblCxPRen.FOL_REF='" +
             rc1 + "' AND tblCxPEnc.COD_STS<>2;"},
        {"tblFolioGralesCom", "SELECT DES_FOL FROM tblFolioGralesCom WHERE COD_FOL='CCXP';"},
        {"tblComprasEnc tblCatProveedor (ranking)",
         "SELECT tblCatProveedor.COD_PROV,SUM(TOT_PROV*TIP_CAM) AS COMXPRO,NOM_PROV FROM "
         "tblComprasEnc INNER JOIN "
         "tblCatProveedor ON tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV WHERE (COD_ESTATUS<>2 "
         "AND COD_ESTATUS<>7) "
         "AND (FEC_DOC BETWEEN " +
             D1 + " AND " + D2 +
             ") AND (ES_ACREED=0) AND (tblCatProveedor.COD_EST='JAL') "
             "GROUP BY tblCatProveedor.COD_PROV,NOM_PROV;"},
        {"tblDevolucionEnc (ranking)", "SELECT SUM(TOT_DEV*TIP_CAM) AS COMTOT FROM "
                                       "tblDevolucionEnc INNER JOIN tblCatProveedor ON "
                                       "tblDevolucionEnc.COD_PROV=tblCatProveedor.COD_PROV WHERE "
                                       "(COD_ESTATUS<>2) AND (FEC_DEV BETWEEN " +
                                           D1 + " AND " + D2 + ")"},
        // Purchasing
        {"tblSucursales tblCatAlmacenes",
         "SELECT COD_ALM,DES_ALM,tblSucursales.COD_SUCU,DES_SUCU FROM tblCatAlmacenes INNER JOIN "
         "tblSucursales ON "
         "tblCatAlmacenes.COD_SUCU=tblSucursales.COD_SUCU ORDER BY tblSucursales.COD_SUCU"},
        {"tblImpuestos",
         "SELECT COD_IMP AS COD_TABLA,DES_IMP AS DES_TABLA FROM tblImpuestos ORDER BY COD_IMP"},
        {"tblTipoRequisicion", "SELECT COD_TIP AS COD_TABLA,DES_TIP AS DES_TABLA FROM "
                               "tblTipoRequisicion ORDER BY COD_TIP"},
        {"tblAgrupacionArt tblCatAgrupacionArt",
         "SELECT tblAgrupacionArt.COD_GPO,DES_GPO,COD_AGR,DES_AGR FROM tblAgrupacionArt INNER JOIN "
         "tblCatAgrupacionArt ON "
         "tblAgrupacionArt.COD_GPO=tblCatAgrupacionArt.COD_GPO ORDER BY "
         "tblAgrupacionArt.COD_GPO,DES_AGR;"},
        {"tblGpoArticulos", "SELECT DISTINCT COD1_ART FROM tblGpoArticulos WHERE COD_AGR IN(1,2)"},
        {"tblCatArticulos tblUndCosPreArt tblCatUnidades",
         "SELECT tblCatArticulos.COD1_ART,DES1_ART,tblCatUnidades.COD_UND,DES_UND FROM "
         "(tblCatArticulos INNER JOIN "
         "tblUndCosPreArt ON tblCatArticulos.COD1_ART=tblUndCosPreArt.COD1_ART) INNER JOIN "
         "tblCatUnidades ON "
         "tblUndCosPreArt.COD_UND=tblCatUnidades.COD_UND WHERE EQV_UND=1"},
        {"tblPromedios",
         "SELECT COS_PROM FROM tblPromedios WHERE (COD1_ART='A00001') AND FEC_PROM<=" +
             F(2026, 6, 15) + " ORDER BY FEC_PROM DESC;"},
        {"tblRequisicionesEnc",
         "SELECT FOL_REQ,FEC_REQ,DES_TIP,NOTA,DES_CPRE,DES_CCOS,COD_ESTATUS,COD_USU FROM "
         "((tblRequisicionesEnc INNER JOIN "
         "tblCentrosCostos ON tblRequisicionesEnc.COD_CCOS=tblCentrosCostos.COD_CCOS) INNER JOIN "
         "tblConDePresu ON "
         "tblRequisicionesEnc.COD_CPRE=tblConDePresu.COD_CPRE) INNER JOIN tblTipoRequisicion ON "
         "tblRequisicionesEnc.COD_TIP=tblTipoRequisicion.COD_TIP WHERE FEC_REQ BETWEEN " +
             D1 + " AND " + D2 +
             " AND tblRequisicionesEnc.COD_SUCU IN('S01') AND (COD_ESTATUS=4 OR COD_ESTATUS=1)"},
        {"tblRequisicionesRen (backorder sumado)",
         "SELECT tblRequisicionesRen.COD1_ART,DES1_ART,SUM(CAN_ART*EQV_UND)AS "
         "CANART,SUM(CAN_SURT*EQV_UND)AS CANSURT,"
         "SUM(CAN_BACK*EQV_UND)AS CANBACK FROM ((tblRequisicionesEnc INNER JOIN "
         "tblRequisicionesRen ON "
         "tblRequisicionesEnc.FOL_REQ=tblRequisicionesRen.FOL_REQ) INNER JOIN tblCatArticulos ON "
         "tblRequisicionesRen.COD1_ART=tblCatArticulos.COD1_ART) INNER JOIN tblUndCosPreArt ON "
         "tblRequisicionesRen.COD_UND=tblUndCosPreArt.COD_UND WHERE FEC_REQ BETWEEN " +
             D1 + " AND " + D2 +
             " AND (tblRequisicionesRen.COD1_ART=tblUndCosPreArt.COD1_ART) AND (CAN_BACK>0) AND "
             "COD_ESTATUS<>2 "
             "GROUP BY tblRequisicionesRen.COD1_ART,DES1_ART ORDER BY "
             "tblRequisicionesRen.COD1_ART"},
        {"tblCotizacionesEnc tblMonedas",
         "SELECT "
         "FOL_COTI,FEC_COTI,COD_PROV,FOL_REQ,DES_MON,tblCotizacionesEnc.TIP_CAM,IMP_COTI,DES_COTI,"
         "DES_TOT,CARGO_TOT,"
         "CARGO_IVA,SUB_COTI,IVA_COTI,TOT_COTI,COD_ESTATUS,COD_USU FROM tblCotizacionesEnc LEFT "
         "JOIN tblMonedas ON "
         "tblCotizacionesEnc.COD_MON=tblMonedas.COD_MON WHERE FEC_COTI BETWEEN " +
             D1 + " AND " + D2 + " AND (IMPORTACION=0) AND (COD_ESTATUS=4 OR COD_ESTATUS=1)"},
        {"tblCotizacionesRen",
         "SELECT "
         "tblCotizacionesRen.COD1_ART,DES1_ART,CAN_ART,COD_UND,EQV_ART,COS_UNI,COS_COM,POR_ARAN,"
         "IMP_ARAN,"
         "(REN_DES1/100)AS DESC1,(REN_DES2/100)AS DESC2,(REN_DES3/100)AS DESC3,(REN_DES4/100)AS "
         "DESC4,(REN_DES5/100)AS "
         "DESC5,(REN_DES6/100)AS DESC6 FROM tblCotizacionesRen LEFT JOIN tblCatArticulos ON "
         "tblCotizacionesRen.COD1_ART=tblCatArticulos.COD1_ART WHERE FOL_COTI='" +
             folCot + "'"},
        {"tblOCOMEnc", "SELECT "
                       "FOL_OCOM,FEC_OCOM,COD_PROV,FOL_REQS,DES_ALM,DES_MON,tblOCOMEnc.TIP_CAM,IMP_"
                       "OCOM,DES_OCOM,CARGOS_TOT,"
                       "CARGOS_IMP,SUB_OCOM,IVA_OCOM,TOT_OCOM,tblOCOMEnc.COD_SUCU,DES_SUCU,COD_"
                       "ESTATUS,COD_USU FROM ((tblOCOMEnc LEFT "
                       "JOIN tblCatAlmacenes ON tblOCOMEnc.COD_ALM=tblCatAlmacenes.COD_ALM) LEFT "
                       "JOIN tblSucursales ON "
                       "tblOCOMEnc.COD_SUCU=tblSucursales.COD_SUCU) LEFT JOIN tblMonedas ON "
                       "tblOCOMEnc.COD_MON=tblMonedas.COD_MON "
                       "WHERE FEC_OCOM BETWEEN " +
                           D1 + " AND " + D2 + " AND (COD_CPRE IN(1,2)) AND COD_ESTATUS=4"},
        {"tblOCOMRen (backorder)",
         "SELECT "
         "tblOCOMEnc.FOL_OCOM,FEC_OCOM,tblOCOMEnc.COD_PROV,FOL_REQS,tblOCOMRen.COD1_ART,DES1_ART,"
         "COD_UND,(CAN_ART)AS "
         "CANART,(CAN_SURT)AS CANSURT,(BACKORDER)AS CANBACK FROM ((tblOCOMEnc INNER JOIN "
         "tblOCOMRen ON "
         "tblOCOMEnc.FOL_OCOM=tblOCOMRen.FOL_OCOM) INNER JOIN tblCatArticulos ON "
         "tblOCOMRen.COD1_ART=tblCatArticulos.COD1_ART) "
         "WHERE FEC_OCOM BETWEEN " +
             D1 + " AND " + D2 + " AND (BACKORDER>0) AND COD_ESTATUS<>5"},
        {"tblComprasRen (Compras por Artículo)",
         "SELECT tblComprasEnc.COD_PROV,NOM_PROV,SUM(CAN_ART*COS_COM*TIP_CAM)AS COSTO, "
         "SUM((CAN_ART * COS_COM * TIP_CAM) * "
         "((IMP1_ART + IMP2_ART) / 100))AS IMPUESTO FROM (tblComprasRen INNER JOIN tblComprasEnc "
         "ON "
         "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC) LEFT JOIN tblCatProveedor ON "
         "tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV WHERE FEC_DOC BETWEEN " +
             D1 + " AND " + D2 +
             " AND tblComprasEnc.COD_ALM IN('AL01') AND (COD_ESTATUS<>2 AND COD_ESTATUS<>7) GROUP "
             "BY "
             "tblComprasEnc.COD_PROV,NOM_PROV"},
        {"tblComprasRen (Compras Netas)",
         "SELECT "
         "COD1_ART,tblComprasEnc.FOL_DOC,tblComprasEnc.COD_PROV,NOM_PROV,FEC_DOC,(CAN_ART*EQV_UND) "
         "AS CAN_ART,"
         "(COS_COM/EQV_UND) AS COS_COM,TIP_CAM FROM tblComprasRen INNER JOIN tblComprasEnc ON "
         "tblComprasRen.FOL_DOC=tblComprasEnc.FOL_DOC LEFT JOIN tblCatProveedor ON "
         "tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV WHERE (FEC_DOC BETWEEN " +
             D1 + " AND " + D2 +
             ") AND COD_ESTATUS=1 ORDER BY COD1_ART,FEC_DOC,tblComprasEnc.FOL_DOC;"},
        {"tblComprasRen (Descuentos en Compras)",
         "SELECT "
         "tblComprasEnc.FOL_DOC,FEC_DOC,tblComprasEnc.COD_PROV,NOM_PROV,DES_ALM,TIP_CAM,"
         "tblCatArticulos.COD1_ART,"
         "DES1_ART,COD_UND,COS_UNI,(DESCUENTO1/100)AS DESC1,(DESCUENTO2/100)AS "
         "DESC2,(DESCUENTO3/100)AS DESC3,"
         "(DESCUENTO4/100)AS DESC4,(DESCUENTO5/100)AS DESC5,(DESCUENTO6/100)AS DESC6,DES_TIP FROM "
         "((((tblComprasEnc LEFT "
         "JOIN tblCatProveedor ON tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV) INNER JOIN "
         "tblTipoRequisicion ON "
         "tblComprasEnc.COD_TIP=tblTipoRequisicion.COD_TIP) INNER JOIN tblComprasRen ON "
         "tblComprasEnc.FOL_DOC=tblComprasRen.FOL_DOC) LEFT JOIN tblCatArticulos ON "
         "tblComprasRen.COD1_ART=tblCatArticulos.COD1_ART) LEFT JOIN tblCatAlmacenes ON "
         "tblComprasEnc.COD_ALM=tblCatAlmacenes.COD_ALM WHERE FEC_DOC BETWEEN " +
             D1 + " AND " + D2 + " AND (COD_ESTATUS<>2 AND COD_ESTATUS<>7) AND (DESCUENTO1>0)"},
        {"tblComprasEnc tblOCOMEnc (Análisis de Compras)",
         "SELECT "
         "tblComprasEnc.FOL_OCOM,FEC_OCOM,tblComprasEnc.FOL_DOC,FEC_DOC,tblComprasEnc.COD_PROV,NOM_"
         "PROV,REF_FACTURA,"
         "tblComprasEnc.TIP_CAM,SUB_DOC,IVA_DOC,TOT_DOC FROM (tblComprasEnc LEFT JOIN "
         "tblCatProveedor ON "
         "tblComprasEnc.COD_PROV=tblCatProveedor.COD_PROV) LEFT JOIN tblOCOMEnc ON "
         "tblComprasEnc.FOL_OCOM=tblOCOMEnc.FOL_OCOM "
         "WHERE FEC_DOC BETWEEN " +
             D1 + " AND " + D2 +
             " AND tblComprasEnc.COD_TIP=1 AND (tblComprasEnc.COD_ESTATUS<>2 "
             "AND tblComprasEnc.COD_ESTATUS<>7)"},
        {"tblDevolucionEnc",
         "SELECT "
         "FOL_DEV,FEC_DEV,COD_TIP,SUB_DEV,IVA_DEV,TOT_DEV,COD_ALM,tblDevolucionEnc.COD_PROV,"
         "tblSucursales.COD_SUCU,"
         "DES_SUCU,COD_ESTATUS,COD_USU FROM (tblDevolucionEnc LEFT JOIN tblCatProveedor ON "
         "tblDevolucionEnc.COD_PROV=tblCatProveedor.COD_PROV) LEFT JOIN tblSucursales ON "
         "tblDevolucionEnc.COD_SUCU=tblSucursales.COD_SUCU WHERE FEC_DEV BETWEEN " +
             D1 + " AND " + D2 + " AND COD_ESTATUS=1"},
        {"tblDevolucionRen", "SELECT SUM(CAN_ART*EQV_UND) AS CANTDEV, SUM(CAN_ART*COS_UNI) AS "
                             "COSTOT, SUM((CAN_ART*(COS_UNI * "
                             "((IMP1_REN+IMP2_REN)/100)))) AS IMPUESTO FROM tblDevolucionRen INNER "
                             "JOIN tblDevolucionEnc ON "
                             "tblDevolucionRen.FOL_DEV=tblDevolucionEnc.FOL_DEV WHERE COD_PROV='" +
                                 provDev + "' AND FEC_DEV BETWEEN " + D1 + " AND " + D2 +
                                 " AND COD_ESTATUS<>2;"},
        {"tblDevolucionRen (Compras Netas)",
         "SELECT tblDevolucionEnc.FOL_DEV,tblDevolucionEnc.COD_PROV,FEC_DEV,(CAN_ART*EQV_UND) AS "
         "CAN_ART,(COS_UNI/EQV_UND) "
         "AS COS_DEV,TIP_CAM,tblCatProveedor.NOM_PROV FROM tblDevolucionRen INNER JOIN "
         "tblDevolucionEnc ON "
         "tblDevolucionRen.FOL_DEV=tblDevolucionEnc.FOL_DEV LEFT JOIN tblCatProveedor ON "
         "tblDevolucionEnc.COD_PROV=tblCatProveedor.COD_PROV WHERE (COD1_ART='" +
             artDev + "') AND FOL_REC='" + recDev + "' ORDER BY FEC_DEV,tblDevolucionEnc.FOL_DEV;"},
        {"tblDifRecepcion", "SELECT tblComprasEnc.FOL_DOC, tblComprasEnc.FEC_DOC, "
                            "tblComprasEnc.COD_PROV, tblComprasEnc.FOL_OCOM FROM "
                            "tblComprasEnc INNER JOIN tblDifRecepcion ON "
                            "tblDifRecepcion.REF_OC=tblComprasEnc.FOL_OCOM WHERE "
                            "(tblComprasEnc.FEC_DOC BETWEEN " +
                                D1 + " AND " + D2 + ") AND tblDifRecepcion.COD_ART='" + artDif +
                                "' ORDER BY tblComprasEnc.FOL_DOC"},
        {"tblDifRecepcion (SELECT *)",
         "SELECT * FROM tblDifRecepcion WHERE REF_OC='" + ocDif + "'"},
    };
    for (const Sentencia& s : sentencias) {
        try {
            EXPECT_GT(Filas(s.sql), 0) << s.tablas << "\n" << s.sql.toStdString();
        } catch (const ErrorConsulta& e) {
            ADD_FAILURE() << s.tablas << ": " << e.Mensaje().toStdString() << "\n"
                          << s.sql.toStdString();
        }
    }
    // Every table of the schema is named by some statement above.
    for (const QString& t : demo::TablasDemo())
        EXPECT_TRUE(std::any_of(sentencias.begin(), sentencias.end(), [&](const Sentencia& s) {
            return s.sql.contains(t + " ") || s.sql.contains(t + ".") || s.sql.endsWith(t) ||
                   s.sql.contains(t + ";");
        })) << t.toStdString();
}

// The type traps of the schema, on each engine.
TEST_P(DemoEnMotor, TrampasDeTipos) {
    // A divided percentage is a fraction (REAL affinity on SQLite).
    EXPECT_DOUBLE_EQ(
        Uno("SELECT (POR_IMP/100) AS F FROM tblImpuestos WHERE COD_IMP=1", "F").Doble(), 0.16);
    EXPECT_DOUBLE_EQ(
        Uno("SELECT (POR_IMP/100) AS F FROM tblImpuestos WHERE COD_IMP=5", "F").Doble(), 0.265);
    // Printed with no fixed decimals: 16 and 26.5.
    EXPECT_EQ(Uno("SELECT POR_IMP FROM tblImpuestos WHERE COD_IMP=1;", "POR_IMP").Texto(), "16");
    EXPECT_EQ(Uno("SELECT POR_IMP FROM tblImpuestos WHERE COD_IMP=5;", "POR_IMP").Texto(), "26.5");
    EXPECT_DOUBLE_EQ(Uno("SELECT (DESCUENTO1/100)AS DESC1 FROM tblComprasRen WHERE DESCUENTO1=5 "
                         "ORDER BY FOL_DOC",
                         "DESC1")
                         .Doble(),
                     0.05);
    // Tax lookup of Relación de Documentos: SUM(COS_UNI*(POR_IMP/100)) is not 0.
    {
        const QString folCot =
            Uno("SELECT MIN(FOL_COTI) AS F FROM tblCotizacionesRen WHERE REN_IMP1=1", "F").Texto();
        // The same sum made in code, the rate divided here and not in SQL.
        auto rs =
            con.Abre("SELECT COS_UNI,POR_IMP FROM tblCotizacionesRen INNER JOIN tblImpuestos ON "
                     "tblCotizacionesRen.REN_IMP1=tblImpuestos.COD_IMP WHERE FOL_COTI='" +
                     folCot + "'");
        double esperado = 0;
        for (; !rs->Eof(); rs->MoveNext())
            esperado += rs->Campo("COS_UNI").Doble() * rs->Campo("POR_IMP").Doble() / 100.0;
        const double real =
            Uno("SELECT SUM(COS_UNI *(POR_IMP/100))AS IMPTO1 FROM tblCotizacionesRen INNER JOIN "
                "tblImpuestos ON tblCotizacionesRen.REN_IMP1=tblImpuestos.COD_IMP WHERE "
                "FOL_COTI='" +
                    folCot + "'",
                "IMPTO1")
                .Doble();
        EXPECT_GT(real, 0);
        EXPECT_NEAR(real, esperado, 0.001);
    }
    // Compras Desglosado: second tax over cost plus first tax (IEPS then VAT).
    {
        const QString f =
            Uno("SELECT MIN(FOL_DOC) AS F FROM tblComprasRen WHERE GRAVA_IMP1<>0", "F").Texto();
        ASSERT_FALSE(f.isEmpty());
        EXPECT_GT(Uno("SELECT SUM(((COS_UNI + (COS_UNI * (IMP1_ART/100))) * (IMP2_ART/100)) * "
                      "CAN_ART) AS "
                      "TOTAL_IMPUESTO FROM tblComprasRen WHERE (FOL_DOC='" +
                          f + "') AND (COD2_IMP=1) AND (GRAVA_IMP1<>0);",
                      "TOTAL_IMPUESTO")
                      .Doble(),
                  0);
        EXPECT_GT(Filas("SELECT COD_IMP FROM tblImpuestos WHERE TIPO_IMP=2 ORDER BY COD_IMP;"), 1);
    }
    // A unit factor as divisor: a cost per ton over 1000 kilograms.
    {
        auto rs = con.Abre("SELECT COS_COM,(COS_COM/EQV_UND) AS POR_KG FROM tblComprasRen WHERE "
                           "COD_UND='TON' ORDER BY "
                           "FOL_DOC");
        ASSERT_FALSE(rs->Eof());
        EXPECT_NEAR(rs->Campo("POR_KG").Doble(), rs->Campo("COS_COM").Doble() / 1000.0, 1e-9);
    }
    // The date-plus-days term of the dialect place works on this engine.
    {
        auto rs = con.Abre(
            "SELECT FEC_DOC,PLA_PAG FROM tblCxPEnc WHERE FOL_DOC='RC0000001' AND CON_GRL='CCXP'");
        ASSERT_FALSE(rs->Eof());
        const QDate vence = rs->Campo("FEC_DOC").Fecha().addDays(rs->Campo("PLA_PAG").Entero());
        const QString termino = Dialecto::FechaMasDias("FEC_DOC", "PLA_PAG", 4, con.MotorActual());
        const QString base =
            "SELECT FOL_DOC FROM tblCxPEnc WHERE FOL_DOC='RC0000001' AND CON_GRL='CCXP' AND ";
        EXPECT_EQ(Filas(base + termino + "<=" + Dialecto::FechaSQL(vence, 4)), 1)
            << termino.toStdString();
        EXPECT_EQ(Filas(base + termino + "<=" + Dialecto::FechaSQL(vence.addDays(-1), 4)), 0);
        EXPECT_EQ(Filas(base + termino + ">" + Dialecto::FechaSQL(vence.addDays(-1), 4)), 1);
        // SaldoVencido for the overdrawn supplier, against the
        // same sum made in code from SELECT *.
        const QDate hoy = QDate::fromString(hechos::FechaFinal, Qt::ISODate);
        auto todos = con.Abre("SELECT * FROM tblCxPEnc WHERE (COD_PROV='" +
                              QString(hechos::ProvSobregiro) + "')");
        double vencido = 0;
        for (; !todos->Eof(); todos->MoveNext())
            if (todos->Campo("SAL_DOC").Doble() > 0 && todos->Campo("COD_STS").Entero() == 1 &&
                todos->Campo("CON_GRL").Texto() == "CCXP" &&
                todos->Campo("FEC_DOC").Fecha().addDays(todos->Campo("PLA_PAG").Entero()) <= hoy)
                vencido += todos->Campo("SAL_DOC").Doble();
        EXPECT_GT(vencido, 0);
        const double sql =
            Uno("SELECT SUM(SAL_DOC)AS SALDO FROM tblCxPEnc WHERE (SAL_DOC>0 AND COD_PROV='" +
                    QString(hechos::ProvSobregiro) + "') AND (" + termino +
                    "<=" + Dialecto::FechaSQL(hoy, 4) +
                    ") AND (COD_STS=1) AND (tblCxPEnc.CON_GRL='CCXP');",
                "SALDO")
                .Doble();
        EXPECT_NEAR(sql, vencido, 0.01);
    }
    // FEC_REG keeps its time of day: a transfer at 17:45 on 2026-01-31 falls
    // outside BETWEEN '2026-01-01' AND '2026-01-31' and inside up to 02-01.
    {
        auto rs = con.Abre("SELECT FEC_REG FROM tblBitacora WHERE FOL_CON='5' AND IMP_MOV=12500");
        ASSERT_FALSE(rs->Eof());
        EXPECT_EQ(rs->Campo("FEC_REG").FechaHora(),
                  QDateTime(QDate(2026, 1, 31), QTime(17, 45, 0)));
        const QString sql =
            "SELECT FOL_GRL,USU_REG,FEC_REG,MA_ORIGEN,MA_DESTINO,IMP_MOV FROM tblBitacora WHERE "
            "(CON_GRL='TRPR' AND TIP_OPE=2) AND (FEC_REG BETWEEN %1 AND %2) AND FOL_CON='5' ORDER "
            "BY "
            "FEC_REG;";
        const int enero = Filas(sql.arg(F(2026, 1, 1), F(2026, 1, 31)));
        const int hastaFebrero = Filas(sql.arg(F(2026, 1, 1), F(2026, 2, 1)));
        EXPECT_GE(enero, 1); // the 2026-01-15 transfer by a user that no longer exists
        EXPECT_EQ(hastaFebrero, enero + 1);
        // The destination code, spliced unquoted, finds its concept or none.
        EXPECT_EQ(
            Filas("SELECT DES_CPRE FROM tblConDePresu WHERE COD_CPRE=" +
                  Uno("SELECT FOL_GRL FROM tblBitacora WHERE IMP_MOV=12500", "FOL_GRL").Texto() +
                  ";"),
            1);
        EXPECT_EQ(Filas("SELECT DES_CPRE FROM tblConDePresu WHERE COD_CPRE=99;"), 0);
        EXPECT_EQ(Filas("SELECT NOM_USU FROM tblUsuarios WHERE COD_USU='BAJA01';"), 0);
    }
    // Mejor Cotización: CAN_ART compared with the requisition's
    // quantity turned to text.
    {
        const QString req = Uno("SELECT MIN(FOL_REQ) AS F FROM tblCotizacionesEnc", "F").Texto();
        auto rs =
            con.Abre("SELECT COD1_ART,CAN_ART,COD_UND FROM tblRequisicionesRen WHERE FOL_REQ='" +
                     req + "';");
        ASSERT_FALSE(rs->Eof());
        EXPECT_GE(Filas("SELECT tblCotizacionesEnc.FOL_COTI,COD_PROV,COS_COM,TIM_ENTREGA FROM "
                        "tblCotizacionesEnc INNER JOIN "
                        "tblCotizacionesRen ON "
                        "tblCotizacionesEnc.FOL_COTI=tblCotizacionesRen.FOL_COTI WHERE (FOL_REQ='" +
                        req + "') AND (COD_ESTATUS=1) AND (COD1_ART='" +
                        rs->Campo("COD1_ART").Texto() +
                        "') AND (CAN_ART=" + rs->Campo("CAN_ART").Texto() + ") AND (COD_UND='" +
                        rs->Campo("COD_UND").Texto() + "') ORDER BY tblCotizacionesEnc.FOL_COTI;"),
                  1);
    }
}

// The facts other tests rely on, the same on both engines.
TEST_P(DemoEnMotor, HechosDeLaDemostracion) {
    auto prov = [&](const char* cod, const char* campo) {
        return Uno(QString("SELECT * FROM tblCatProveedor WHERE COD_PROV='%1'").arg(cod), campo);
    };
    // Letterhead of company 1, both names shown, codes that exist.
    EXPECT_EQ(Uno("SELECT REP_NOMEMP FROM tblParametrosGenerales;", "REP_NOMEMP").Entero(), 1);
    EXPECT_EQ(Uno("SELECT REP_NOMCOM FROM tblParametrosGenerales;", "REP_NOMCOM").Entero(), 1);
    EXPECT_EQ(Uno("SELECT CP_PREVIO FROM tblParametrosGenerales;", "CP_PREVIO").Entero(), 1);
    {
        auto e = con.Abre("SELECT * FROM tblEmpresa WHERE COD_EMPRESA=1;");
        for (const char* c : {"NOM_EMP", "NOM_COM", "DIR1_EMP", "RFC1_EMP", "RFC2_EMP", "RFC3_EMP",
                              "TEL1_EMP", "TEL2_EMP"})
            EXPECT_FALSE(e->Campo(c).Texto().isEmpty()) << c;
        EXPECT_EQ(Filas("SELECT DES_CID FROM tblCiudad WHERE COD_CID='" +
                        e->Campo("COD_CD").Texto() + "';"),
                  1);
        EXPECT_EQ(Filas("SELECT DES_EST FROM tblEstado WHERE COD_EST='" +
                        e->Campo("COD_EDO").Texto() + "';"),
                  1);
    }
    EXPECT_EQ(Filas(QString("SELECT DES_PAIS FROM tblPais WHERE COD_PAIS='%1'").arg(hechos::Pais)),
              1);
    // Suppliers.
    EXPECT_NE(prov(hechos::ProvImportadorUsa, "COD_PAIS").Texto(), "MEX");
    EXPECT_EQ(prov(hechos::ProvAcreedor, "ES_ACREED").Entero(), 1);
    EXPECT_EQ(prov(hechos::ProvAcreedor2, "ES_ACREED").Entero(), 1);
    EXPECT_EQ(prov(hechos::ProvSuspendido, "COD_STS").Entero(), 2);
    EXPECT_EQ(prov(hechos::ProvBaja, "COD_STS").Entero(), 3);
    EXPECT_GT(prov(hechos::ProvSobregiro, "SAL_PROV").Doble(),
              prov(hechos::ProvSobregiro, "LIM_CRE").Doble());
    EXPECT_EQ(
        Filas(
            QString("SELECT * FROM tblCxPEnc WHERE COD_PROV='%1'").arg(hechos::ProvSinMovimientos)),
        0);
    EXPECT_EQ(Filas(QString("SELECT * FROM tblComprasEnc WHERE COD_PROV='%1'")
                        .arg(hechos::ProvSinMovimientos)),
              0);
    EXPECT_EQ(
        Filas(QString("SELECT * FROM tblComprasEnc WHERE COD_PROV='%1'").arg(hechos::ProvAcreedor)),
        0);
    EXPECT_EQ(Filas(QString("SELECT * FROM tblGpoAgrProveedor WHERE COD_PROV='%1'")
                        .arg(hechos::ProvNacional)),
              2);
    // Documents.
    auto estatus = [&](const char* tabla, const char* clave, const char* folio) {
        return Uno(QString("SELECT COD_ESTATUS FROM %1 WHERE %2='%3'").arg(tabla, clave, folio),
                   "COD_ESTATUS")
            .Entero();
    };
    EXPECT_EQ(estatus("tblComprasEnc", "FOL_DOC", hechos::RecepcionCancelada), 2);
    EXPECT_EQ(estatus("tblComprasEnc", "FOL_DOC", hechos::Remision), 7);
    EXPECT_EQ(estatus("tblOCOMEnc", "FOL_OCOM", hechos::OrdenCancelada), 5);
    EXPECT_EQ(estatus("tblRequisicionesEnc", "FOL_REQ", hechos::RequisicionCancelada), 2);
    EXPECT_EQ(estatus("tblDevolucionEnc", "FOL_DEV", hechos::DevolucionCancelada), 2);
    {
        auto rs = con.Abre(QString("SELECT * FROM tblComprasEnc WHERE FOL_DOC='%1'")
                               .arg(hechos::RecepcionDolares));
        EXPECT_EQ(rs->Campo("COD_PROV").Texto(), hechos::ProvImportadorUsa);
        EXPECT_EQ(rs->Campo("COD_MON").Entero(), 2);
        EXPECT_EQ(rs->Campo("IMPORTACION").Entero(), 1);
        EXPECT_GT(rs->Campo("TIP_CAM").Doble(), 15.0);
    }
    // Statuses the inquiries filter on, all present.
    for (int s : {1, 2, 3, 4, 7})
        EXPECT_GT(Filas(QString("SELECT FOL_DOC FROM tblComprasEnc WHERE COD_ESTATUS=%1").arg(s)),
                  0)
            << s;
    for (int s : {3, 4, 5})
        EXPECT_GT(Filas(QString("SELECT FOL_OCOM FROM tblOCOMEnc WHERE COD_ESTATUS=%1").arg(s)), 0)
            << s;
    for (int s : {1, 2, 3, 4})
        EXPECT_GT(
            Filas(QString("SELECT FOL_REQ FROM tblRequisicionesEnc WHERE COD_ESTATUS=%1").arg(s)),
            0)
            << s;
    for (int s : {1, 2, 3})
        EXPECT_GT(Filas(QString("SELECT NUM_MOV FROM tblCxPEnc WHERE COD_STS=%1").arg(s)), 0) << s;
    // Budgets over both years; the edge cases.
    EXPECT_EQ(Filas("SELECT DISTINCT ANO_PRES FROM tblDefPresupuesto"), 2);
    EXPECT_EQ(
        Filas(QString(
                  "SELECT IMP_ANUAL FROM tblDefPresupuesto WHERE COD_CPRE=%1 AND (ANO_PRES=2026);")
                  .arg(hechos::ConceptoSinPresupuesto2026)),
        0);
    EXPECT_EQ(
        Uno(QString(
                "SELECT IMP_ANUAL FROM tblDefPresupuesto WHERE COD_CPRE=%1 AND (ANO_PRES=2026);")
                .arg(hechos::ConceptoAnualCero2026),
            "IMP_ANUAL")
            .Doble(),
        0.0);
    EXPECT_GT(
        Filas(
            QString("SELECT MES_PRES FROM tblDefPresupuestoRen WHERE COD_CPRE=%1 AND DISPONIBLE<0")
                .arg(hechos::ConceptoSobregirado)),
        0);
    // Dates within the demo's range.
    EXPECT_EQ(Uno("SELECT MIN(FEC_DOC) AS F FROM tblComprasEnc", "F").Fecha().year(), 2025);
    EXPECT_LE(Uno("SELECT MAX(FEC_DOC) AS F FROM tblCxPEnc", "F").Fecha(), QDate(2026, 11, 30));
    // The summary counts agree with the tables.
    for (const auto& [tabla, n] : resumen.filas)
        EXPECT_EQ(Uno("SELECT COUNT(*) AS N FROM " + tabla, "N").Entero(), n)
            << tabla.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Motores, DemoEnMotor,
                         ::testing::Values(QString("sqlite"), QString("postgres")),
                         [](const auto& info) { return info.param.toStdString(); });

namespace {

// A digest of some tables, read through the library.
QByteArray Huella(const QString& cadena) {
    Conexion con;
    if (!con.Abrir(cadena))
        return {};
    QCryptographicHash h(QCryptographicHash::Sha256);
    const QStringList consultas = {
        "SELECT * FROM tblComprasEnc ORDER BY FOL_DOC",
        "SELECT FOL_DOC,COD1_ART,CAN_ART,COS_UNI,COS_COM,IMP1_ART FROM tblComprasRen ORDER BY "
        "FOL_DOC,COD1_ART",
        "SELECT * FROM tblCxPEnc ORDER BY NUM_MOV",
        "SELECT * FROM tblCatProveedor ORDER BY COD_PROV",
        "SELECT * FROM tblBitacora ORDER BY FEC_REG,IMP_MOV",
        "SELECT * FROM tblDefPresupuestoRen ORDER BY COD_CPRE,ANO_PRES,MES_PRES",
    };
    for (const QString& sql : consultas) {
        auto rs = con.Abre(sql);
        for (; !rs->Eof(); rs->MoveNext())
            for (int i = 0; i < rs->CuentaCampos(); ++i)
                h.addData((rs->Campo(i).Texto() + '|').toUtf8());
    }
    return h.result().toHex();
}

QString SuiteEn(const QString& carpeta, const demo::OpcionesDemo& o,
                demo::ResumenDemo* r = nullptr) {
    return demo::CreaSuiteDemo(carpeta, o, r);
}

} // namespace

TEST(GeneradorDemo, EsDeterministaParaUnaSemilla) {
    QTemporaryDir dir;
    demo::OpcionesDemo o;
    const QByteArray a = Huella(SuiteEn(dir.filePath("a"), o));
    const QByteArray b = Huella(SuiteEn(dir.filePath("b"), o));
    ASSERT_FALSE(a.isEmpty());
    EXPECT_EQ(a, b);
    o.semilla = 7;
    EXPECT_NE(Huella(SuiteEn(dir.filePath("c"), o)), a);
}

TEST(GeneradorDemo, FilasPorEscala) {
    QTemporaryDir dir;
    for (int escala : {1, 2}) {
        demo::ResumenDemo r;
        demo::OpcionesDemo o;
        o.escala = escala;
        SuiteEn(dir.filePath(QString("e%1").arg(escala)), o, &r);
        EXPECT_EQ(r.filas.size(), 44u);
        EXPECT_EQ(r.filas["tblComprasEnc"], 640 * escala);
        EXPECT_EQ(r.filas["tblOCOMEnc"], 320 * escala);
        EXPECT_EQ(r.filas["tblCatProveedor"], 30 + 10 * escala);
        EXPECT_EQ(r.filas["tblCatArticulos"], 80 + 20 * escala);
        EXPECT_EQ(r.filas["tblPromedios"], 23 * (80 + 20 * escala));
        EXPECT_EQ(r.filas["tblDefPresupuestoRen"], 27 * 12);
        EXPECT_GE(r.filas["tblComprasRen"], 3 * 640 * escala);
        EXPECT_LE(r.filas["tblComprasRen"], 14 * 640 * escala);
        for (const auto& [tabla, n] : r.filas)
            EXPECT_GT(n, 0) << tabla.toStdString();
        if (escala == 1) {
            // The default seed's snapshot, for tests that count rows.
            EXPECT_EQ(r.filas["tblComprasRen"], 5510);
            EXPECT_EQ(r.TotalFilas(), 19192);
        }
    }
}

TEST(GeneradorDemo, MismosDatosEnAmbosMotores) {
    REQUIERE_POSTGRES();
    auto sq = pruebas::NuevaSqlite();
    auto pg = pruebas::NuevaPostgres();
    demo::CargaDemo(QSqlDatabase::database(sq->NombreEscritura()));
    demo::CargaDemo(QSqlDatabase::database(pg->NombreEscritura()));
    Conexion a, b;
    ASSERT_TRUE(a.Abrir(sq->Cadena()));
    ASSERT_TRUE(b.Abrir(pg->Cadena()));
    const QStringList sumas = {
        "SELECT COUNT(*) AS N, SUM(TOT_DOC*TIP_CAM) AS S FROM tblComprasEnc",
        "SELECT COUNT(*) AS N, SUM(CAN_ART*COS_COM) AS S FROM tblComprasRen",
        "SELECT COUNT(*) AS N, SUM(SAL_DOC) AS S FROM tblCxPEnc",
        "SELECT COUNT(*) AS N, SUM(IMP_MOV) AS S FROM tblBitacora",
        "SELECT COUNT(*) AS N, SUM(DISPONIBLE) AS S FROM tblDefPresupuestoRen",
    };
    for (const QString& sql : sumas) {
        auto x = a.Abre(sql);
        auto y = b.Abre(sql);
        EXPECT_EQ(x->Campo("N").Entero(), y->Campo("N").Entero()) << sql.toStdString();
        EXPECT_NEAR(x->Campo("S").Doble(), y->Campo("S").Doble(), 0.05) << sql.toStdString();
    }
}

namespace {

struct Salida {
    int codigo = -1;
    QString out, err;
};

Salida Corre(const QStringList& args) {
    QProcess p;
    p.start(pruebas::ProgramaConsultas(), args);
    p.waitForFinished(120000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

} // namespace

TEST(ConsultasDemo, HaceLaSuiteYSuUltimaLineaEsLaCadena) {
    QTemporaryDir dir;
    const QString carpeta = dir.filePath("suite");
    const Salida s = Corre({"demo", carpeta});
    ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
    const QString ultima = s.out.trimmed().split('\n').last();
    EXPECT_EQ(ultima, QDir(carpeta).canonicalPath() + "/suite.db");
    EXPECT_TRUE(QDir(carpeta + "/Temp").exists());
    EXPECT_TRUE(QDir(carpeta + "/Trabajo").exists());
    QFile ini(carpeta + "/VALMOR.INI");
    ASSERT_TRUE(ini.open(QIODevice::ReadOnly));
    const QString texto = QString::fromUtf8(ini.readAll());
    for (const QString& k :
         {QString("[VARIOS]"), "DIRCONSULTAS=" + QDir(carpeta).canonicalPath() + "/Trabajo",
          QString("VER_COLEX=1"), QString("[PARAMETROS]"), QString("VENCIDO0=30"),
          QString("VENCIDO1=60"), QString("VENCIDO2=90"), QString("[CFGREGIONAL]"),
          QString("CIUDAD=GDL"), QString("ESTADO=JAL"), QString("PAIS=MEX")})
        EXPECT_TRUE(texto.contains(k)) << k.toStdString();
    Conexion con;
    ASSERT_TRUE(con.Abrir(ultima)) << con.UltimoError().toStdString();
    EXPECT_EQ(con.Abre("SELECT COUNT(*) AS N FROM tblComprasEnc")->Campo("N").Entero(), 640);
}

TEST(ConsultasDemo, RechazaUnaCarpetaNoVacia) {
    QTemporaryDir dir;
    QFile otro(dir.filePath("notas.txt"));
    ASSERT_TRUE(otro.open(QIODevice::WriteOnly));
    otro.write("mío");
    otro.close();
    const Salida s = Corre({"demo", dir.path()});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.err.contains("no está vacía")) << s.err.toStdString();
    // One line of message (Qt may add its own notices on other lines).
    EXPECT_EQ(s.err.count("consultas:"), 1) << s.err.toStdString();
    EXPECT_FALSE(QFile::exists(dir.filePath("suite.db")));
    // With --reemplazar it is made, and the other file stays.
    const Salida r = Corre({"demo", dir.path(), "--reemplazar"});
    EXPECT_EQ(r.codigo, 0) << r.err.toStdString();
    EXPECT_TRUE(QFile::exists(dir.filePath("suite.db")));
    EXPECT_TRUE(QFile::exists(dir.filePath("notas.txt")));
}

TEST(ConsultasDemo, EntradaMalaEsCodigoDos) {
    QTemporaryDir dir;
    EXPECT_EQ(Corre({"demo"}).codigo, 2);
    EXPECT_EQ(Corre({"demo", dir.filePath("x"), "--escala", "0"}).codigo, 2);
    EXPECT_EQ(Corre({"demo", dir.filePath("x"), "--escala", "mucho"}).codigo, 2);
    EXPECT_EQ(Corre({"demo", dir.filePath("x"), "--semilla"}).codigo, 2);
    EXPECT_EQ(Corre({"demo", dir.filePath("x"), "--colores"}).codigo, 2);
    EXPECT_EQ(Corre({"demo", dir.filePath("x"), dir.filePath("y")}).codigo, 2);
    EXPECT_FALSE(QFile::exists(dir.filePath("x")));
}

TEST(ConsultasDemo, CargaPostgresYRechazaUnaBaseConTablas) {
    REQUIERE_POSTGRES();
    auto pg = pruebas::NuevaPostgres();
    QTemporaryDir dir;
    const Salida s = Corre({"demo", dir.filePath("a"), "--postgres", pg->Cadena()});
    ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
    EXPECT_TRUE(s.out.contains("PostgreSQL: "));
    Conexion con;
    ASSERT_TRUE(con.Abrir(pg->Cadena()));
    EXPECT_EQ(con.Abre("SELECT COUNT(*) AS N FROM tblComprasEnc")->Campo("N").Entero(), 640);
    con.Cerrar();
    const Salida otra = Corre({"demo", dir.filePath("b"), "--postgres", pg->Cadena()});
    EXPECT_EQ(otra.codigo, 2);
    EXPECT_TRUE(otra.err.contains("no está vacía")) << otra.err.toStdString();
    EXPECT_FALSE(QFile::exists(dir.filePath("b")));
    const Salida rehecha = Corre(
        {"demo", dir.filePath("b"), "--postgres", pg->Cadena(), "--reemplazar", "--escala", "2"});
    EXPECT_EQ(rehecha.codigo, 0) << rehecha.err.toStdString();
    ASSERT_TRUE(con.Abrir(pg->Cadena()));
    EXPECT_EQ(con.Abre("SELECT COUNT(*) AS N FROM tblComprasEnc")->Campo("N").Entero(), 1280);
}
