#include "soporte/LeeXlsx.h"

#include <QProcess>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace pruebas {

namespace {

QByteArray Descomprime(const QString& archivo, const QString& parte) {
    QProcess p;
    p.start("unzip", {"-p", archivo, parte});
    p.waitForFinished(30000);
    return p.readAllStandardOutput();
}

} // namespace

Hoja LeeXlsx(const QString& archivo) {
    Hoja h;
    QXmlStreamReader x(Descomprime(archivo, "xl/worksheets/sheet1.xml"));
    QString ref;
    while (!x.atEnd()) {
        x.readNext();
        if (!x.isStartElement())
            continue;
        const auto a = x.attributes();
        if (x.name() == u"row") {
            ++h.filas;
        } else if (x.name() == u"c") {
            ref = a.value("r").toString();
            h.celdas[ref] = {a.value("t").toString(), a.value("s").toInt(), QString()};
        } else if (x.name() == u"v" || x.name() == u"t") {
            h.celdas[ref].valor = x.readElementText();
        } else if (x.name() == u"col") {
            for (int c = a.value("min").toInt(); c <= a.value("max").toInt(); ++c)
                h.anchos[c] = a.value("width").toDouble();
        }
    }
    EXPECT_FALSE(x.hasError()) << x.errorString().toStdString();

    // Styles: number formats by id (4 is Excel's own "#,##0.00"), fonts by
    // boldness, and the cell formats that combine them.
    QHash<int, QString> codigos{{0, "General"}, {4, "#,##0.00"}};
    std::vector<bool> fuentes;
    QXmlStreamReader s(Descomprime(archivo, "xl/styles.xml"));
    bool enXfs = false;
    while (!s.atEnd()) {
        s.readNext();
        if (s.isEndElement() && s.name() == u"cellXfs")
            enXfs = false;
        if (!s.isStartElement())
            continue;
        const auto a = s.attributes();
        if (s.name() == u"numFmt")
            codigos[a.value("numFmtId").toInt()] = a.value("formatCode").toString();
        else if (s.name() == u"font")
            fuentes.push_back(false);
        else if (s.name() == u"b" && !fuentes.empty())
            fuentes.back() = true;
        else if (s.name() == u"cellXfs")
            enXfs = true;
        else if (enXfs && s.name() == u"xf") {
            h.formatos.push_back(codigos.value(a.value("numFmtId").toInt(), "?"));
            h.negritas.push_back(fuentes.at(size_t(a.value("fontId").toInt())));
        }
    }
    return h;
}

std::vector<QString> FilaXlsx(const Hoja& h, int fila) {
    std::vector<QString> valores;
    for (char col = 'A'; col <= 'Z'; ++col) {
        const Celda* c = h(QString(QChar(col)) + QString::number(fila));
        valores.push_back(c ? c->valor : QString());
    }
    while (!valores.empty() && valores.back().isEmpty())
        valores.pop_back();
    return valores;
}

} // namespace pruebas
