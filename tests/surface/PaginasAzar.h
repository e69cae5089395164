#pragma once
// Random pages for the round-trip tests: every item kind, every state a
// report can set, texts with accents, symbols outside the basic plane and
// long runs, and empty pages.

#include "surface/Superficie.h"

#include <QRandomGenerator>

namespace pruebas {

inline QString TextoAzar(QRandomGenerator& g) {
    static const QString piezas[] = {QStringLiteral("Página  : "),
                                     QStringLiteral("ÁÉÍÓÚ áéíóú ñÑ üÜ ¿¡"),
                                     QStringLiteral("1,234,567.89"),
                                     QStringLiteral("PROVEEDOR \"LA ESPAÑOLA\" \\ S.A."),
                                     QStringLiteral("€ — “comillas” ‘simples’"),
                                     QString::fromUtf8("\xF0\x9F\x98\x80 x"),
                                     QStringLiteral("   "),
                                     QStringLiteral("\t tab y\nsalto")};
    QString t;
    const int n = g.bounded(1, 6);
    for (int i = 0; i < n; ++i)
        t += piezas[g.bounded(int(std::size(piezas)))];
    if (g.bounded(10) == 0)
        t += QString(g.bounded(200, 2000), QChar(u'x'));
    return t;
}

inline consultas::Pagina PaginaAzar(QRandomGenerator& g) {
    using namespace consultas;
    Pagina p;
    if (g.bounded(8) == 0)
        return p; // an empty page
    const int n = g.bounded(1, 120);
    for (int i = 0; i < n; ++i) {
        const int x = g.bounded(-100, 11700), y = g.bounded(-100, 14600);
        const Color c = Rgb(g.bounded(256), g.bounded(256), g.bounded(256));
        switch (g.bounded(3)) {
        case 0: {
            EstadoDibujo e;
            e.ForeColor = c;
            e.TextAlign = g.bounded(3);
            e.FontBold = g.bounded(2);
            e.TextEmphasis = g.bounded(2);
            e.FontSize = g.bounded(5, 11);
            e.FontFace = g.bounded(2) ? FuenteSans : FuenteSerif;
            p.elementos.push_back(Elemento::Texto(x, y, TextoAzar(g), e));
            break;
        }
        case 1:
            p.elementos.push_back(Elemento::Linea(x, y, g.bounded(11000), y, c));
            break;
        default:
            p.elementos.push_back(Elemento::Banda(x, y, g.bounded(1800, 8001), 200));
        }
    }
    return p;
}

} // namespace pruebas
