#pragma once
// What a purchasing report works from: the selection record gathered from
// the screen at the start of a run, the few control values a report reads
// as they stood when the run began, and the page run it draws on. Nothing
// here depends on Qt Widgets, so the reports and headings stay free of the
// screen.

#include "core/Conexion.h"
#include "core/Moneda.h"
#include "surface/CorridaPaginas.h"

#include <QDate>
#include <QString>

#include <cstdint>

namespace consultas {

// The inquiries of cmbConsulta, by index.
enum ConsultaCompras : std::int16_t {
    CompDiario = 0,
    CompRelacion = 1,
    CompArticulo = 2,
    CompNetas = 3,
    CompDesglosado = 4,
    CompDiferencias = 5,
    CompDescuentos = 6,
    CompBackorder = 7,
    CompCotizacion = 8,
    CompAnalisis = 9,
};

// Items of optDoc.
enum DocumentoCompras : std::int16_t {
    DocCompRequisicion = 0,
    DocCompCotizacion = 1,
    DocCompOrdenCompra = 2,
    DocCompRecepcion = 3,
    DocCompDevolucion = 4,
    DocCompRemision = 5,
};

// Seven measures kept at one level of totals. Each report may give them its
// own use; the names are those of the purchase journal.
struct MedidasCompras {
    Moneda Importe, Cargos, Arancel, Descto, SubTotal, Impto, Total;
};

// The selection record, overwritten at every run. Text values are empty
// when they say nothing. The page-run state (lnLinea, PaginaActual,
// TokenActual, SuperficieActual) lives in the screen's CorridaPaginas.
struct SeleccionCompras {
    std::int16_t ConsultaActual = 0;
    bool Detallado = false;
    bool HayGrupos = false;
    std::int16_t DocumentoActual = 0;
    std::int16_t OrdenActual = 0;
    std::int16_t EstActivos = 0;
    std::int16_t EstCancelados = 0;
    std::int16_t EstSurtidos = 0;
    // Kept from the previous run when the supplier tree is not read.
    std::int16_t GrupoElegido = 0;
    QString FechaIni, FechaFin; // literals by FechaSQL, delimiters included
    QString CodProv, CodArt, CodCCos, FolioSel;
    QString ListaAgrProv; // 3,7,12
    QString ListaAgrArt;  // 3,7,12
    QString ListaAlm;     // 'A01','A02'
    QString SelectGpoProv, SelectGpoArt;
    QString SqlConsulta, SqlAux;
    QString OrdenSql; // written by the report; survives a run
    QString SucursalAnterior;
    QString FolioTexto;
    MedidasCompras cyDia, cySuc, cyGral;
};

// Control values that reports read from the screen, taken when the run
// starts (a modal run cannot change them).
struct ControlesCompras {
    bool Resumido = false;         // optDetRes 1
    bool Global = false;           // optDetRes 2
    bool Nacional = false;         // optTNI 1
    bool Importacion = false;      // optTNI 2
    bool RegionHabilitada = false; // chkRegion enabled
    bool PorRegion = false;        // chkRegion value 1
    QString Ciudad, Estado, Pais;  // texts of the three cmbRegion
    QString CodCiudad, CodEstado, CodPais;
    QString TipoDocTexto, TipoDocCodigo;   // cmbTipDoc
    QString ImpuestoTexto, ImpuestoCodigo; // cmbImpuesto
    bool Excel = false;                    // chkExcel value 1
    bool Resumen = false;                  // chkResumen value 1
    bool IncluirDescuentos = false;        // chkIncluirDescuentos value 1
    QDate Fecha0, Fecha1;                  // dtpFecha, for the printed period
    QString TextoFecha0, TextoFecha1;      // as the date boxes show them, DD/MM/YYYY
    bool SurtidosHabilitado = false;       // chkEstatus 2 enabled
    // The supplier tree: every node checked; every child of every checked
    // group checked (the breakdown tells a partial group).
    bool GposProvCompletos = false;
    bool GposProvGruposCompletos = false;
};

// Everything a report procedure or a heading is handed.
struct ReporteCompras {
    SeleccionCompras& Sel;
    const ControlesCompras& Pantalla;
    CorridaPaginas& Corrida;
    Conexion& Base;

    Superficie& S() const { return *Corrida.SuperficieActual; }
    int& lnLinea() const { return Corrida.lnLinea; }
    // Closes the page and opens the next with the heading of the kind.
    void SaltoPagina(int tipo) const { Corrida.SaltoPagina(tipo); }
};

} // namespace consultas
