-- Schema of the suite's database for PostgreSQL: every table and column the
-- inquiries read (44 tables, 321 columns). Loaded by the demo generator (demo/GeneradorDemo.h).
--
-- Choices that reports depend on:
--  * Codes compared in quotes are text (VARCHAR); codes spliced unquoted are
--    INTEGER/SMALLINT, as PostgreSQL refuses varchar = 1.
--  * Money and quantities are NUMERIC(19,4): four decimals, as a fixed-point
--    currency type has.
--  * Percentages, tax rates and unit factors that statements divide are
--    NUMERIC(9,4) (rates) and NUMERIC(19,6) (unit factors): never integers.
--  * Dates are DATE; tblBitacora.FEC_REG is TIMESTAMP (it keeps a time of
--    day). tblCxPEnc.FEC_DOC DATE + PLA_PAG INTEGER makes (FEC_DOC+PLA_PAG) a
--    date, as the overdue balances need.
--  * Identifiers are unquoted, so PostgreSQL keeps them in lower case and the
--    statements' mixed-case names match; the library reads fields by name
--    without regard to case.
--  * Primary keys on catalogues and headers; tblComprasEnc.FOL_DOC must be
--    the key (Diario de Compras groups by it and selects COD_USU).
--  * Line tables have no key; their indexes come after the '-- @indices'
--    mark, and the generator creates them after loading the data.
--
-- Statements are separated by ';' at the end of a line.


-- Exactly one row; read without WHERE. REP_NOMEMP/REP_NOMCOM/CP_PREVIO are
-- 0/1 small integers.
CREATE TABLE tblParametrosGenerales (
    REP_NOMEMP SMALLINT,
    REP_NOMCOM SMALLINT,
    CP_PREVIO SMALLINT
);

-- Letterhead of the reports, read by SELECT *. COD_CD/COD_EDO are compared quoted
-- with tblCiudad/tblEstado codes, so they are text.
CREATE TABLE tblEmpresa (
    COD_EMPRESA INTEGER NOT NULL,
    NOM_EMP VARCHAR(120),
    NOM_COM VARCHAR(120),
    DIR1_EMP VARCHAR(100),
    EXT_EMP VARCHAR(10),
    INT_EMP VARCHAR(10),
    COL_EMP VARCHAR(60),
    CP_EMP VARCHAR(10),
    DESCRIP1 VARCHAR(30),
    RFC1_EMP VARCHAR(20),
    DESCRIP2 VARCHAR(30),
    RFC2_EMP VARCHAR(20),
    DESCRIP3 VARCHAR(30),
    RFC3_EMP VARCHAR(20),
    TEL1_EMP VARCHAR(30),
    TEL2_EMP VARCHAR(30),
    COD_CD VARCHAR(10),
    COD_EDO VARCHAR(10),
    PRIMARY KEY (COD_EMPRESA)
);

CREATE TABLE tblCiudad (
    COD_CID VARCHAR(10) NOT NULL,
    DES_CID VARCHAR(60),
    PRIMARY KEY (COD_CID)
);

-- Both DES_EST (letterhead, region lists) and NOM_EST (supplier catalogue)
-- hold the state name: inquiries read both; the demo fills both with the same text.
CREATE TABLE tblEstado (
    COD_EST VARCHAR(10) NOT NULL,
    DES_EST VARCHAR(60),
    NOM_EST VARCHAR(60),
    PRIMARY KEY (COD_EST)
);

CREATE TABLE tblPais (
    COD_PAIS VARCHAR(10) NOT NULL,
    DES_PAIS VARCHAR(60),
    PRIMARY KEY (COD_PAIS)
);

-- COD_CPRE is spliced unquoted (numeric) but compared as text with
-- tblBitacora.FOL_CON ('5'): FOL_CON stores it unpadded.
CREATE TABLE tblConDePresu (
    COD_CPRE INTEGER NOT NULL,
    DES_CPRE VARCHAR(60),
    COD_CCOS INTEGER,
    PRIMARY KEY (COD_CPRE)
);

CREATE TABLE tblCentrosCostos (
    COD_CCOS INTEGER NOT NULL,
    DES_CCOS VARCHAR(60),
    PRIMARY KEY (COD_CCOS)
);

-- IMP_ANUAL exists only here; the monthly columns only in
-- tblDefPresupuestoRen (they are selected unqualified in a join of the two).
CREATE TABLE tblDefPresupuesto (
    COD_CPRE INTEGER NOT NULL,
    ANO_PRES SMALLINT NOT NULL,
    IMP_ANUAL NUMERIC(19,4),
    PRIMARY KEY (COD_CPRE, ANO_PRES)
);

CREATE TABLE tblDefPresupuestoRen (
    COD_CPRE INTEGER NOT NULL,
    ANO_PRES SMALLINT NOT NULL,
    MES_PRES SMALLINT NOT NULL,
    IMP_MES NUMERIC(19,4),
    IMP_REC NUMERIC(19,4),
    APLICADO NUMERIC(19,4),
    IMP_TRA NUMERIC(19,4),
    DISPONIBLE NUMERIC(19,4),
    PRIMARY KEY (COD_CPRE, ANO_PRES, MES_PRES)
);

-- FEC_REG is the one date WITH a time of day ('YYYY-MM-DD HH:MM:SS' text on
-- SQLite, TIMESTAMP on PostgreSQL): BETWEEN two date-only literals leaves out
-- a time on the last day. FOL_GRL is spliced unquoted after COD_CPRE=, so it
-- holds digits only. Budget transfers: CON_GRL='TRPR' AND TIP_OPE=2.
CREATE TABLE tblBitacora (
    CON_GRL VARCHAR(10),
    TIP_OPE SMALLINT,
    FOL_CON VARCHAR(20),
    FOL_GRL VARCHAR(20),
    USU_REG VARCHAR(10),
    FEC_REG TIMESTAMP,
    MA_ORIGEN VARCHAR(10),
    MA_DESTINO VARCHAR(10),
    IMP_MOV NUMERIC(19,4)
);

CREATE TABLE tblUsuarios (
    COD_USU VARCHAR(10) NOT NULL,
    NOM_USU VARCHAR(60),
    PRIMARY KEY (COD_USU)
);

-- Must not have COD_SUCU, FEC_DOC, TIP_CAM, COD_ESTATUS, COD_USU, COD1_ART,
-- COD_GPO, COD_AGR, COD_UND, EQV_UND, DES_STS (named unqualified in joins
-- with it). PORC_DESn are printed only, but kept non-integer.
CREATE TABLE tblCatProveedor (
    COD_PROV VARCHAR(20) NOT NULL,
    NOM_PROV VARCHAR(254),
    CALL_NUM VARCHAR(100),
    COL_PROV VARCHAR(60),
    COP_PROV VARCHAR(10),
    COD_CID VARCHAR(10),
    COD_EST VARCHAR(10),
    COD_PAIS VARCHAR(10),
    TEL1_PROV VARCHAR(30),
    TEL2_PROV VARCHAR(30),
    RFC_PROV VARCHAR(15),
    MAIL_PROV VARCHAR(100),
    CONTACTO1 VARCHAR(60),
    CONTACTO2 VARCHAR(60),
    COD_STS INTEGER,
    ES_ACREED SMALLINT,
    FEC_UCOM DATE,
    FEC_UPAG DATE,
    PLA_CRE INTEGER,
    PORC_DES1 NUMERIC(9,4),
    PORC_DES2 NUMERIC(9,4),
    PORC_DES3 NUMERIC(9,4),
    PORC_DES4 NUMERIC(9,4),
    PORC_DES5 NUMERIC(9,4),
    PORC_DES6 NUMERIC(9,4),
    LIM_CRE NUMERIC(19,4),
    SAL_PROV NUMERIC(19,4),
    PRIMARY KEY (COD_PROV)
);

CREATE TABLE tblEstatusProv (
    COD_STS INTEGER NOT NULL,
    DES_STS VARCHAR(30),
    PRIMARY KEY (COD_STS)
);

CREATE TABLE tblGpoProveedor (
    COD_GPO INTEGER NOT NULL,
    DES_GPO VARCHAR(60),
    PRIMARY KEY (COD_GPO)
);

CREATE TABLE tblAgrProveedor (
    COD_AGR INTEGER NOT NULL,
    COD_GPO INTEGER,
    DES_AGR VARCHAR(60),
    PRIMARY KEY (COD_AGR)
);

-- A supplier may be in several agrupaciones (it is then listed twice, on
-- purpose).
CREATE TABLE tblGpoAgrProveedor (
    COD_GPO INTEGER NOT NULL,
    COD_AGR INTEGER NOT NULL,
    COD_PROV VARCHAR(20) NOT NULL,
    PRIMARY KEY (COD_GPO, COD_AGR, COD_PROV)
);

CREATE TABLE tblConceptosCom (
    COD_CON VARCHAR(10) NOT NULL,
    DES_CON VARCHAR(60),
    COD_FOL VARCHAR(10),
    PRIMARY KEY (COD_CON)
);

CREATE TABLE tblFolioGralesCom (
    COD_FOL VARCHAR(10) NOT NULL,
    DES_FOL VARCHAR(60),
    PRIMARY KEY (COD_FOL)
);

CREATE TABLE tblCxPEstatus (
    COD_STS INTEGER NOT NULL,
    DES_STS VARCHAR(30),
    PRIMARY KEY (COD_STS)
);

-- FEC_DOC is DATE and PLA_PAG INTEGER so that PostgreSQL can evaluate
-- (FEC_DOC+PLA_PAG) of the overdue balances. On SQLite the same term adds to the leading
-- number of the text; the library's dialect place (Dialecto::FechaMasDias)
-- writes date(FEC_DOC,'+'||PLA_PAG||' days') there instead. NUM_MOV is the
-- key; FOL_DOC is not declared unique. CON_GRL 'CCXP' charge, 'ACXP' credit.
-- COD_STS 1 Aplicado, 2 Cancelado, 3 Sin Aplicar.
CREATE TABLE tblCxPEnc (
    NUM_MOV INTEGER NOT NULL,
    FOL_DOC VARCHAR(20),
    FEC_DOC DATE,
    PLA_PAG INTEGER,
    REF_PROV VARCHAR(20),
    COD_PROV VARCHAR(20),
    COD_CON VARCHAR(10),
    CON_GRL VARCHAR(10),
    CON_CEP VARCHAR(10),
    COD_STS INTEGER,
    COD_SUCU VARCHAR(10),
    IMP_DOC NUMERIC(19,4),
    SAL_DOC NUMERIC(19,4),
    PRIMARY KEY (NUM_MOV)
);

-- A credit's application lines: FOL_DOC/NUM_MOV of the credit, FOL_REF the
-- folio of the charge it pays. No COD_SUCU here (unqualified in the movement
-- list).
CREATE TABLE tblCxPRen (
    NUM_MOV INTEGER,
    FOL_DOC VARCHAR(20),
    FOL_REF VARCHAR(20),
    FEC_DOC DATE,
    COD_CON VARCHAR(10),
    CON_GRL VARCHAR(10),
    COD_STS INTEGER,
    IMP_DOC NUMERIC(19,4),
    SAL_DOC NUMERIC(19,4),
    TOT_DOC NUMERIC(19,4)
);

CREATE TABLE tblSucursales (
    COD_SUCU VARCHAR(10) NOT NULL,
    DES_SUCU VARCHAR(60),
    PRIMARY KEY (COD_SUCU)
);

CREATE TABLE tblCatAlmacenes (
    COD_ALM VARCHAR(10) NOT NULL,
    DES_ALM VARCHAR(60),
    COD_SUCU VARCHAR(10),
    PRIMARY KEY (COD_ALM)
);

-- POR_IMP is divided by 100 in SQL (tax lookup): REAL affinity on SQLite (a
-- NUMERIC column would store 16.0 as the integer 16 and 16/100 would be 0),
-- NUMERIC(9,4) on PostgreSQL. TIPO_IMP 2 is IEPS.
CREATE TABLE tblImpuestos (
    COD_IMP INTEGER NOT NULL,
    DES_IMP VARCHAR(60),
    POR_IMP NUMERIC(9,4),
    TIPO_IMP SMALLINT,
    PRIMARY KEY (COD_IMP)
);

CREATE TABLE tblTipoRequisicion (
    COD_TIP INTEGER NOT NULL,
    DES_TIP VARCHAR(60),
    PRIMARY KEY (COD_TIP)
);

-- TIP_CAM is inferred (never read): every statement qualifies TIP_CAM with
-- the header table.
CREATE TABLE tblMonedas (
    COD_MON INTEGER NOT NULL,
    DES_MON VARCHAR(30),
    TIP_CAM NUMERIC(19,4),
    PRIMARY KEY (COD_MON)
);

-- Must not have COD_UND, EQV_UND, FOL_DOC, CAN_ART.
CREATE TABLE tblCatArticulos (
    COD1_ART VARCHAR(20) NOT NULL,
    DES1_ART VARCHAR(100),
    PRIMARY KEY (COD1_ART)
);

CREATE TABLE tblCatUnidades (
    COD_UND VARCHAR(10) NOT NULL,
    DES_UND VARCHAR(50),
    PRIMARY KEY (COD_UND)
);

-- EQV_UND is base units per unit; the base unit has EQV_UND=1. Joined in Part
-- 5.12 without a unit restriction, so an article with several units repeats
-- its lines (present in the demo on purpose).
CREATE TABLE tblUndCosPreArt (
    COD1_ART VARCHAR(20) NOT NULL,
    COD_UND VARCHAR(10) NOT NULL,
    EQV_UND NUMERIC(19,6),
    PRIMARY KEY (COD1_ART, COD_UND)
);

-- ARTICLE GROUPS despite the name (the supplier side is tblGpoProveedor).
CREATE TABLE tblAgrupacionArt (
    COD_GPO INTEGER NOT NULL,
    DES_GPO VARCHAR(60),
    PRIMARY KEY (COD_GPO)
);

-- ARTICLE AGRUPACIONES despite the name.
CREATE TABLE tblCatAgrupacionArt (
    COD_AGR INTEGER NOT NULL,
    COD_GPO INTEGER,
    DES_AGR VARCHAR(60),
    PRIMARY KEY (COD_AGR)
);

CREATE TABLE tblGpoArticulos (
    COD_GPO INTEGER NOT NULL,
    COD_AGR INTEGER NOT NULL,
    COD1_ART VARCHAR(20) NOT NULL,
    PRIMARY KEY (COD_GPO, COD_AGR, COD1_ART)
);

CREATE TABLE tblPromedios (
    COD1_ART VARCHAR(20) NOT NULL,
    FEC_PROM DATE NOT NULL,
    COS_PROM NUMERIC(19,4),
    PRIMARY KEY (COD1_ART, FEC_PROM)
);

-- COD_ESTATUS: 4 or 1 active, 2 cancelled, 3 supplied.
CREATE TABLE tblRequisicionesEnc (
    FOL_REQ VARCHAR(20) NOT NULL,
    FEC_REQ DATE,
    COD_TIP INTEGER,
    COD_CCOS INTEGER,
    COD_CPRE INTEGER,
    COD_SUCU VARCHAR(10),
    NOTA TEXT,
    COD_ESTATUS INTEGER,
    COD_USU VARCHAR(10),
    PRIMARY KEY (FOL_REQ)
);

-- Deliberately WITHOUT EQV_UND although backorder reads it: the summed
-- requisition statements join tblUndCosPreArt and write SUM(CAN_ART*EQV_UND)
-- unqualified, which would be ambiguous.
CREATE TABLE tblRequisicionesRen (
    FOL_REQ VARCHAR(20),
    COD1_ART VARCHAR(20),
    CAN_ART NUMERIC(19,4),
    COD_UND VARCHAR(10),
    CAN_SURT NUMERIC(19,4),
    CAN_BACK NUMERIC(19,4)
    -- EQV_UND left out on purpose: see the note above
);

CREATE TABLE tblCotizacionesEnc (
    FOL_COTI VARCHAR(20) NOT NULL,
    FEC_COTI DATE,
    COD_PROV VARCHAR(20),
    FOL_REQ VARCHAR(20),
    COD_MON INTEGER,
    COD_SUCU VARCHAR(10),
    COD_TIP INTEGER,
    IMPORTACION SMALLINT,
    COD_ESTATUS INTEGER,
    COD_USU VARCHAR(10),
    TIM_ENTREGA INTEGER,
    TIP_CAM NUMERIC(19,4),
    IMP_COTI NUMERIC(19,4),
    DES_COTI NUMERIC(19,4),
    DES_TOT NUMERIC(19,4),
    CARGO_TOT NUMERIC(19,4),
    CARGO_IVA NUMERIC(19,4),
    SUB_COTI NUMERIC(19,4),
    IVA_COTI NUMERIC(19,4),
    TOT_COTI NUMERIC(19,4),
    PRIMARY KEY (FOL_COTI)
);

-- The unit factor is EQV_ART here (EQV_UND in the other line tables).
-- REN_DESn are divided by 100 in SQL: REAL on SQLite.
CREATE TABLE tblCotizacionesRen (
    FOL_COTI VARCHAR(20),
    COD1_ART VARCHAR(20),
    CAN_ART NUMERIC(19,4),
    COD_UND VARCHAR(10),
    EQV_ART NUMERIC(19,6),
    COS_UNI NUMERIC(19,4),
    COS_COM NUMERIC(19,4),
    POR_ARAN NUMERIC(9,4),
    IMP_ARAN NUMERIC(19,4),
    REN_DES1 NUMERIC(9,4),
    REN_DES2 NUMERIC(9,4),
    REN_DES3 NUMERIC(9,4),
    REN_DES4 NUMERIC(9,4),
    REN_DES5 NUMERIC(9,4),
    REN_DES6 NUMERIC(9,4),
    REN_IMP1 INTEGER,
    REN_IMP2 INTEGER
);

-- COD_ESTATUS: 4 active, 5 cancelled, 3 supplied. Must not have FEC_DOC,
-- REF_FACTURA, SUB_DOC, IVA_DOC, TOT_DOC (unqualified in the purchase analysis join
-- with tblComprasEnc).
CREATE TABLE tblOCOMEnc (
    FOL_OCOM VARCHAR(20) NOT NULL,
    FEC_OCOM DATE,
    COD_PROV VARCHAR(20),
    FOL_REQS VARCHAR(20),
    COD_ALM VARCHAR(10),
    COD_SUCU VARCHAR(10),
    COD_MON INTEGER,
    COD_TIP INTEGER,
    COD_CPRE INTEGER,
    IMPORTACION SMALLINT,
    COD_ESTATUS INTEGER,
    COD_USU VARCHAR(10),
    TIP_CAM NUMERIC(19,4),
    IMP_OCOM NUMERIC(19,4),
    DES_OCOM NUMERIC(19,4),
    CARGOS_TOT NUMERIC(19,4),
    CARGOS_IMP NUMERIC(19,4),
    SUB_OCOM NUMERIC(19,4),
    IVA_OCOM NUMERIC(19,4),
    TOT_OCOM NUMERIC(19,4),
    PRIMARY KEY (FOL_OCOM)
);

-- DESCUENTOn are divided by 100 in SQL: REAL on SQLite.
CREATE TABLE tblOCOMRen (
    FOL_OCOM VARCHAR(20),
    COD1_ART VARCHAR(20),
    CAN_ART NUMERIC(19,4),
    COD_UND VARCHAR(10),
    EQV_UND NUMERIC(19,6),
    CAN_SURT NUMERIC(19,4),
    BACKORDER NUMERIC(19,4),
    COS_UNI NUMERIC(19,4),
    COS_COM NUMERIC(19,4),
    IMPORTE NUMERIC(19,4),
    POR_ARANCEL NUMERIC(9,4),
    IMP_ARANCEL NUMERIC(19,4),
    DESCUENTO1 NUMERIC(9,4),
    DESCUENTO2 NUMERIC(9,4),
    DESCUENTO3 NUMERIC(9,4),
    DESCUENTO4 NUMERIC(9,4),
    DESCUENTO5 NUMERIC(9,4),
    DESCUENTO6 NUMERIC(9,4),
    IMP1_REG INTEGER,
    IMP2_REG INTEGER
);

-- Receipts and remissions (COD_ESTATUS 7). FOL_DOC is the PRIMARY KEY: Diario
-- de Compras selects COD_USU without grouping it, which PostgreSQL
-- accepts only because the grouped FOL_DOC is the key. COD_ESTATUS: 4 or 1
-- active, 2 cancelled, 3 supplied, 7 remission. IMPORTACION 0/1 (never -1).
-- TOT_PROV is the total in the supplier's currency (SUM(TOT_PROV*TIP_CAM),
-- purchases by supplier).
CREATE TABLE tblComprasEnc (
    FOL_DOC VARCHAR(20) NOT NULL,
    FEC_DOC DATE,
    COD_PROV VARCHAR(20),
    REF_FACTURA VARCHAR(20),
    COD_ALM VARCHAR(10),
    COD_SUCU VARCHAR(10),
    COD_TIP INTEGER,
    COD_MON INTEGER,
    COD_CPRE INTEGER,
    COD_ESTATUS INTEGER,
    COD_USU VARCHAR(10),
    IMPORTACION SMALLINT,
    FOL_OCOM VARCHAR(20),
    TIP_CAM NUMERIC(19,4),
    IMP_DOC NUMERIC(19,4),
    DES_DOC NUMERIC(19,4),
    CARGO_TOTAL NUMERIC(19,4),
    CARGO_IMPTO NUMERIC(19,4),
    SUB_DOC NUMERIC(19,4),
    IVA_DOC NUMERIC(19,4),
    TOT_DOC NUMERIC(19,4),
    TOT_PROV NUMERIC(19,4),
    PRIMARY KEY (FOL_DOC)
);

-- IMP1_ART/IMP2_ART are tax PERCENTS divided by 100 (purchases by article, itemised);
-- COD1_IMP/COD2_IMP are the tax codes. EQV_UND is a divisor (COS_COM/EQV_UND,
-- net purchases). All of these and DESCUENTOn have REAL affinity on SQLite. Must
-- not have FEC_DOC, TIP_CAM, IMP_DOC, COD_PROV, COD_ESTATUS, FOL_OCOM.
CREATE TABLE tblComprasRen (
    FOL_DOC VARCHAR(20),
    COD1_ART VARCHAR(20),
    CAN_ART NUMERIC(19,4),
    COD_UND VARCHAR(10),
    EQV_UND NUMERIC(19,6),
    COS_UNI NUMERIC(19,4),
    COS_COM NUMERIC(19,4),
    IMPORTE NUMERIC(19,4),
    IMP_ARANCEL NUMERIC(19,4),
    POR_ARANCEL NUMERIC(9,4),
    DESCUENTO1 NUMERIC(9,4),
    DESCUENTO2 NUMERIC(9,4),
    DESCUENTO3 NUMERIC(9,4),
    DESCUENTO4 NUMERIC(9,4),
    DESCUENTO5 NUMERIC(9,4),
    DESCUENTO6 NUMERIC(9,4),
    IMP1_ART NUMERIC(9,4),
    IMP2_ART NUMERIC(9,4),
    COD1_IMP INTEGER,
    COD2_IMP INTEGER,
    GRAVA_IMP1 SMALLINT
);

-- No IMPORTACION: optTNI is forced off for Devolución. COD_ESTATUS 1 active,
-- 2 cancelled.
CREATE TABLE tblDevolucionEnc (
    FOL_DEV VARCHAR(20) NOT NULL,
    FEC_DEV DATE,
    FOL_REC VARCHAR(20),
    COD_PROV VARCHAR(20),
    COD_TIP INTEGER,
    COD_ALM VARCHAR(10),
    COD_SUCU VARCHAR(10),
    COD_MON INTEGER,
    COD_ESTATUS INTEGER,
    COD_USU VARCHAR(10),
    TIP_CAM NUMERIC(19,4),
    SUB_DEV NUMERIC(19,4),
    IVA_DEV NUMERIC(19,4),
    TOT_DEV NUMERIC(19,4),
    PRIMARY KEY (FOL_DEV)
);

-- IMP1_REN/IMP2_REN are tax percents divided by 100 (REAL on SQLite).
CREATE TABLE tblDevolucionRen (
    FOL_DEV VARCHAR(20),
    COD1_ART VARCHAR(20),
    CAN_ART NUMERIC(19,4),
    COD_UND VARCHAR(10),
    EQV_UND NUMERIC(19,6),
    COS_UNI NUMERIC(19,4),
    IMP1_REN NUMERIC(9,4),
    IMP2_REN NUMERIC(9,4),
    IMP1_IMP NUMERIC(19,4),
    IMP2_IMP NUMERIC(19,4),
    COD1_IMP INTEGER,
    COD2_IMP INTEGER,
    GRAVA_IMP1 SMALLINT
);

-- Filled by the suite's previous-purchase step (CP_PREVIO on); read by SELECT
-- *. The article column is COD_ART here.
CREATE TABLE tblDifRecepcion (
    REF_OC VARCHAR(20),
    COD_ART VARCHAR(20),
    COD_UND VARCHAR(10),
    CAN_OC NUMERIC(19,4),
    CAN_REC NUMERIC(19,4)
);

-- @indices
-- Indexes for the joins and ranges of the reports; they do not change any
-- result. The generator creates them after loading the data.
CREATE INDEX ix_comprasenc_fec_doc ON tblComprasEnc (FEC_DOC);
CREATE INDEX ix_comprasenc_cod_prov ON tblComprasEnc (COD_PROV);
CREATE INDEX ix_comprasren_fol_doc ON tblComprasRen (FOL_DOC);
CREATE INDEX ix_comprasren_cod1_art ON tblComprasRen (COD1_ART);
CREATE INDEX ix_devolucionenc_fec_dev ON tblDevolucionEnc (FEC_DEV);
CREATE INDEX ix_devolucionren_fol_dev ON tblDevolucionRen (FOL_DEV);
CREATE INDEX ix_ocomenc_fec_ocom ON tblOCOMEnc (FEC_OCOM);
CREATE INDEX ix_ocomren_fol_ocom ON tblOCOMRen (FOL_OCOM);
CREATE INDEX ix_cotizacionesenc_fec_coti ON tblCotizacionesEnc (FEC_COTI);
CREATE INDEX ix_cotizacionesren_fol_coti ON tblCotizacionesRen (FOL_COTI);
CREATE INDEX ix_requisicionesenc_fec_req ON tblRequisicionesEnc (FEC_REQ);
CREATE INDEX ix_requisicionesren_fol_req ON tblRequisicionesRen (FOL_REQ);
CREATE INDEX ix_cxpenc_cod_prov ON tblCxPEnc (COD_PROV);
CREATE INDEX ix_cxpenc_fol_doc ON tblCxPEnc (FOL_DOC);
CREATE INDEX ix_cxpren_fol_doc ON tblCxPRen (FOL_DOC);
CREATE INDEX ix_cxpren_num_mov ON tblCxPRen (NUM_MOV);
CREATE INDEX ix_cxpren_fol_ref ON tblCxPRen (FOL_REF);
CREATE INDEX ix_bitacora_fol_con ON tblBitacora (FOL_CON);
CREATE INDEX ix_difrecepcion_ref_oc ON tblDifRecepcion (REF_OC);
CREATE INDEX ix_gpoagrproveedor_cod_prov ON tblGpoAgrProveedor (COD_PROV);
CREATE INDEX ix_gpoarticulos_cod1_art ON tblGpoArticulos (COD1_ART);
