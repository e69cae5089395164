#pragma once
// Page files: an Enhanced Metafile of one page, limited to the records the
// surface draws with (fonts by face name, height, weight and italics; text
// colour and alignment; pens; solid brushes; text, lines and filled
// rectangles). The picture is the whole Letter sheet, one device unit to the
// twip, so the file opens as the page in drawing programs; reading it back
// gives exactly the items written.

#include "surface/Superficie.h"

#include <QByteArray>
#include <QString>

namespace consultas {

QByteArray CodificaEmf(const Pagina& pagina);
// Throws ErrorConsulta naming `origen` when the bytes are not a page file of
// this system (truncated, foreign, or holding records it does not draw).
Pagina DecodificaEmf(const QByteArray& datos, const QString& origen = QString());

// File forms; failures throw ErrorConsulta with the path and the system's
// reason.
void EscribeEmf(const QString& ruta, const Pagina& pagina);
Pagina LeeEmf(const QString& ruta);

} // namespace consultas
