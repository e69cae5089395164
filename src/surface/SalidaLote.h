#pragma once
// Outputs of a finished document for the batch host: PDF, one PNG per page,
// one page file per page, and the JSON Lines dump that tests and outside
// checks read. The dump can be read back into a document.

#include "surface/Superficie.h"

#include <QByteArray>
#include <QString>

namespace consultas {

// Empty members are outputs not asked for.
struct OpcionesSalida {
    QString pdf;   // file
    QString png;   // folder: pagina_1.png, pagina_2.png, ...
    QString emf;   // folder: pagina_1.emf, pagina_2.emf, ...
    QString jsonl; // file
    int dpiPng = 150;
};

// Writes each output asked for. Folders are created when missing. A failure
// throws ErrorConsulta with the path and the system's reason.
void EscribeSalidas(const Documento& documento, const OpcionesSalida& opciones);

// The dump: one line per item, pages in order, items in drawing order, keys
// in this order:
// {"page":1,"op":"text","x":7000,"y":720,"text":"...","align":0,"face":3,"size":8,"bold":false,"emphasis":false,"color":[0,0,255]}
// {"page":1,"op":"line","x1":0,"y1":960,"x2":10500,"y2":960,"color":[0,0,255]}
// {"page":1,"op":"band","x":6910,"y":240,"w":4700,"h":200}
QByteArray LineaJsonl(int pagina, const Elemento& elemento);
QByteArray DocumentoJsonl(const Documento& documento);
void EscribeJsonl(const Documento& documento, const QString& ruta);

// Reads a dump back. Pages come from the "page" numbers: a page with no item
// between two others is kept empty. Throws ErrorConsulta naming the line of
// a malformed dump.
Documento DocumentoDeJsonl(const QByteArray& datos, const QString& origen = QString());
Documento LeeJsonl(const QString& ruta);

} // namespace consultas
