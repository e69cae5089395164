#include "services/ListasBusqueda.h"

#include "core/Conexion.h"
#include "core/Formato.h"
#include "services/Servicios.h"

#include <QHash>

namespace consultas {

namespace {

// Reads every row of a statement as texts, in the order of its columns.
std::vector<QStringList> LeeFilas(Conexion& cn, const QString& sql, int columnas) {
    std::vector<QStringList> filas;
    RecordsetPtr rs = cn.Abre(sql);
    for (; !rs->Eof(); rs->MoveNext()) {
        QStringList f;
        for (int c = 0; c < columnas; ++c)
            f << rs->Campo(c).Texto().trimmed();
        filas.push_back(std::move(f));
    }
    rs->Cierra();
    return filas;
}

struct TablaDocumento {
    int tipo;
    const char* titulo;
    const char* tabla;
    const char* folio;
    const char* fecha;
    bool conProveedor;
};

const TablaDocumento kDocumentos[] = {
    {DocRequisicion, "REQUISICIONES", "tblRequisicionesEnc", "FOL_REQ", "FEC_REQ", false},
    {DocCotizacion, "COTIZACIONES", "tblCotizacionesEnc", "FOL_COTI", "FEC_COTI", true},
    {DocOrdenCompra, "ÓRDENES DE COMPRA", "tblOCOMEnc", "FOL_OCOM", "FEC_OCOM", true},
    {DocRecepcion, "RECEPCIONES", "tblComprasEnc", "FOL_DOC", "FEC_DOC", true},
    {DocDevolucion, "DEVOLUCIONES", "tblDevolucionEnc", "FOL_DEV", "FEC_DEV", true},
    {DocCuentasPorPagar, "DOCUMENTOS DE CUENTAS POR PAGAR", "tblCxPEnc", "FOL_DOC", "FEC_DOC",
     true},
};

} // namespace

ListaBusqueda ListaCatalogo(Conexion& cn, const QString& catalogo) {
    const QString clave = catalogo.trimmed().toUpper();
    ListaBusqueda l;
    QString sql;
    if (clave == "PROVEEDORES") {
        l.titulo = "BÚSQUEDA DE PROVEEDORES";
        l.encabezados = {"Código", "Nombre"};
        sql = "SELECT COD_PROV, NOM_PROV FROM tblCatProveedor ORDER BY COD_PROV";
    } else if (clave == "CCOSTOS") {
        l.titulo = "BÚSQUEDA DE CENTROS DE COSTOS";
        l.encabezados = {"Código", "Descripción"};
        sql = "SELECT COD_CCOS, DES_CCOS FROM tblCentrosCostos ORDER BY COD_CCOS";
    } else if (clave == "CONPRESUPUESTOS") {
        // The concept's centre of cost helps tell apart concepts of the same
        // name kept by different centres.
        l.titulo = "BÚSQUEDA DE CONCEPTOS DE PRESUPUESTO";
        l.encabezados = {"Código", "Descripción", "Centro de costos"};
        sql = "SELECT tblConDePresu.COD_CPRE, tblConDePresu.DES_CPRE, tblCentrosCostos.DES_CCOS "
              "FROM tblConDePresu LEFT JOIN tblCentrosCostos "
              "ON tblConDePresu.COD_CCOS=tblCentrosCostos.COD_CCOS "
              "ORDER BY tblConDePresu.COD_CPRE";
    } else {
        throw ErrorConsulta(QStringLiteral("Catálogo de búsqueda desconocido: %1").arg(catalogo));
    }
    l.filas = LeeFilas(cn, sql, int(l.encabezados.size()));
    return l;
}

ListaBusqueda ListaDocumentos(Conexion& cn, int tipoDocumento) {
    const TablaDocumento* t = nullptr;
    for (const TablaDocumento& d : kDocumentos)
        if (d.tipo == tipoDocumento)
            t = &d;
    if (!t)
        throw ErrorConsulta(QStringLiteral("Tipo de documento desconocido: %1").arg(tipoDocumento));

    ListaBusqueda l;
    l.titulo = QStringLiteral("BÚSQUEDA DE ") + QString::fromUtf8(t->titulo);
    const QString tabla = t->tabla, folio = t->folio, fecha = t->fecha;
    QString sql;
    if (t->conProveedor) {
        l.encabezados = {"Folio", "Fecha", "Proveedor", "Nombre"};
        sql = QStringLiteral("SELECT D.%2, D.%3, D.COD_PROV, P.NOM_PROV FROM %1 D "
                             "LEFT JOIN tblCatProveedor P ON D.COD_PROV=P.COD_PROV "
                             "ORDER BY D.%3 DESC, D.%2 DESC")
                  .arg(tabla, folio, fecha);
    } else {
        // Requisitions are internal: they have no supplier.
        l.encabezados = {"Folio", "Fecha"};
        sql = QStringLiteral("SELECT %2, %3 FROM %1 ORDER BY %3 DESC, %2 DESC")
                  .arg(tabla, folio, fecha);
    }
    RecordsetPtr rs = cn.Abre(sql);
    for (; !rs->Eof(); rs->MoveNext()) {
        QStringList f;
        f << rs->Campo(0).Texto().trimmed();
        const Valor v = rs->Campo(1);
        f << (v.EsNulo() ? QString() : FormatoFecha(v.Fecha(), "DD/MM/YYYY"));
        if (t->conProveedor)
            f << rs->Campo(2).Texto().trimmed() << rs->Campo(3).Texto().trimmed();
        l.filas.push_back(std::move(f));
    }
    rs->Cierra();
    return l;
}

ListaBusqueda ListaArticulos(Conexion& cn, bool unidades) {
    ListaBusqueda l;
    l.titulo = "BÚSQUEDA DE ARTÍCULOS";
    l.encabezados = {"Código", "Descripción"};
    l.filas = LeeFilas(cn, "SELECT COD1_ART, DES1_ART FROM tblCatArticulos ORDER BY COD1_ART", 2);
    if (!unidades)
        return l;

    // The units are gathered on this side: the engines disagree on how to
    // join texts of a group in SQL.
    l.encabezados << "Unidades";
    QHash<QString, QStringList> porArticulo;
    RecordsetPtr rs =
        cn.Abre("SELECT COD1_ART, COD_UND FROM tblUndCosPreArt ORDER BY COD1_ART, COD_UND");
    for (; !rs->Eof(); rs->MoveNext())
        porArticulo[rs->Campo(0).Texto().trimmed()] << rs->Campo(1).Texto().trimmed();
    rs->Cierra();
    for (QStringList& f : l.filas)
        f << porArticulo.value(f.at(0)).join(", ");
    return l;
}

} // namespace consultas
