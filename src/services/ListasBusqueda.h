#pragma once
// The rows the search windows show: which catalogue or document table each
// picker reads, with what columns. Kept apart from the windows so the
// statements are proven on every engine without showing anything.

#include <QString>
#include <QStringList>

#include <vector>

namespace consultas {

class Conexion;

struct ListaBusqueda {
    QString titulo;          // window caption
    QStringList encabezados; // column titles; the first column is the code returned
    std::vector<QStringList> filas;
};

// "PROVEEDORES", "CCOSTOS" or "CONPRESUPUESTOS" (not case-sensitive); any
// other key throws ErrorConsulta.
ListaBusqueda ListaCatalogo(Conexion& cn, const QString& catalogo);
// Documents of a kind (TipoDocumento), newest first, with their date as
// DD/MM/YYYY and their supplier; an unknown kind throws ErrorConsulta.
ListaBusqueda ListaDocumentos(Conexion& cn, int tipoDocumento);
// Articles by code; with `unidades`, a column of the article's units.
ListaBusqueda ListaArticulos(Conexion& cn, bool unidades);

} // namespace consultas
