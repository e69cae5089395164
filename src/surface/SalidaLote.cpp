#include "surface/SalidaLote.h"

#include "core/Conexion.h"
#include "surface/Emf.h"
#include "surface/Renderizador.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

namespace consultas {

namespace {

void AgregaTextoJson(QByteArray& b, const QString& texto) {
    b.append('"');
    const QByteArray u = texto.toUtf8();
    for (char c : u) {
        const auto uc = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            b.append("\\\"");
            break;
        case '\\':
            b.append("\\\\");
            break;
        case '\n':
            b.append("\\n");
            break;
        case '\r':
            b.append("\\r");
            break;
        case '\t':
            b.append("\\t");
            break;
        default:
            if (uc < 0x20) {
                char esc[8];
                std::snprintf(esc, sizeof esc, "\\u%04x", uc);
                b.append(esc);
            } else {
                b.append(c);
            }
        }
    }
    b.append('"');
}

void AgregaColor(QByteArray& b, Color c) {
    b.append(",\"color\":[")
        .append(QByteArray::number(c.r))
        .append(',')
        .append(QByteArray::number(c.g))
        .append(',')
        .append(QByteArray::number(c.b))
        .append("]");
}

void AgregaEntero(QByteArray& b, const char* clave, int valor) {
    b.append(",\"").append(clave).append("\":").append(QByteArray::number(valor));
}

const char* Logico(bool v) {
    return v ? "true" : "false";
}

QString CarpetaLista(const QString& carpeta) {
    if (!QDir().mkpath(carpeta))
        throw ErrorConsulta(QStringLiteral("No se pudo crear la carpeta '%1'").arg(carpeta));
    return QDir(carpeta).filePath(QStringLiteral("pagina_"));
}

void GrabaArchivo(const QString& ruta, const QByteArray& datos, const QString& que) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(datos) != datos.size() ||
        !f.flush())
        throw ErrorConsulta(
            QStringLiteral("No se pudo grabar %1 '%2': %3").arg(que, ruta, f.errorString()));
}

} // namespace

QByteArray LineaJsonl(int pagina, const Elemento& e) {
    QByteArray b;
    b.reserve(160 + e.texto.size() * 2);
    b.append("{\"page\":").append(QByteArray::number(pagina));
    switch (e.tipo) {
    case TipoElemento::Texto:
        b.append(",\"op\":\"text\"");
        AgregaEntero(b, "x", e.x);
        AgregaEntero(b, "y", e.y);
        b.append(",\"text\":");
        AgregaTextoJson(b, e.texto);
        AgregaEntero(b, "align", e.estado.TextAlign);
        AgregaEntero(b, "face", e.estado.FontFace);
        AgregaEntero(b, "size", e.estado.FontSize);
        b.append(",\"bold\":").append(Logico(e.estado.FontBold));
        b.append(",\"emphasis\":").append(Logico(e.estado.TextEmphasis));
        AgregaColor(b, e.estado.ForeColor);
        break;
    case TipoElemento::Linea:
        b.append(",\"op\":\"line\"");
        AgregaEntero(b, "x1", e.x);
        AgregaEntero(b, "y1", e.y);
        AgregaEntero(b, "x2", e.x2);
        AgregaEntero(b, "y2", e.y2);
        AgregaColor(b, e.estado.ForeColor);
        break;
    case TipoElemento::Banda:
        b.append(",\"op\":\"band\"");
        AgregaEntero(b, "x", e.x);
        AgregaEntero(b, "y", e.y);
        AgregaEntero(b, "w", e.ancho);
        AgregaEntero(b, "h", e.alto);
        break;
    }
    b.append("}\n");
    return b;
}

QByteArray DocumentoJsonl(const Documento& documento) {
    QByteArray b;
    int n = 0;
    for (const Pagina& p : documento.paginas) {
        ++n;
        for (const Elemento& e : p.elementos)
            b.append(LineaJsonl(n, e));
    }
    return b;
}

void EscribeJsonl(const Documento& documento, const QString& ruta) {
    GrabaArchivo(ruta, DocumentoJsonl(documento), QStringLiteral("el volcado"));
}

Documento DocumentoDeJsonl(const QByteArray& datos, const QString& origen) {
    Documento doc;
    int numeroLinea = 0;
    for (const QByteArray& linea : datos.split('\n')) {
        ++numeroLinea;
        const QByteArray texto = linea.trimmed();
        if (texto.isEmpty())
            continue;
        auto Falla = [&](const QString& motivo) {
            throw ErrorConsulta(QStringLiteral("Volcado '%1', línea %2: %3")
                                    .arg(origen.isEmpty() ? QStringLiteral("(memoria)") : origen)
                                    .arg(numeroLinea)
                                    .arg(motivo));
        };
        QJsonParseError error;
        const QJsonDocument j = QJsonDocument::fromJson(texto, &error);
        if (error.error != QJsonParseError::NoError || !j.isObject())
            Falla(error.error != QJsonParseError::NoError ? error.errorString()
                                                          : QStringLiteral("no es un objeto"));
        const QJsonObject o = j.object();
        auto Entero = [&](const char* clave) {
            const QJsonValue v = o.value(QLatin1String(clave));
            if (!v.isDouble())
                Falla(QStringLiteral("falta el número \"%1\"").arg(QLatin1String(clave)));
            return v.toInt();
        };
        auto ColorDe = [&]() {
            const QJsonArray a = o.value(QLatin1String("color")).toArray();
            if (a.size() != 3)
                Falla(QStringLiteral("el color no es [r,g,b]"));
            return Rgb(a[0].toInt(), a[1].toInt(), a[2].toInt());
        };
        const int pagina = Entero("page");
        if (pagina < 1 || pagina < int(doc.paginas.size()))
            Falla(QStringLiteral("página %1 fuera de orden").arg(pagina));
        if (pagina > 100000)
            Falla(QStringLiteral("página %1 fuera de rango").arg(pagina));
        doc.paginas.resize(static_cast<size_t>(pagina));
        auto& elementos = doc.paginas.back().elementos;

        const QString op = o.value(QLatin1String("op")).toString();
        if (op == QLatin1String("text")) {
            EstadoDibujo e;
            e.TextAlign = Entero("align");
            e.FontFace = Entero("face");
            e.FontSize = Entero("size");
            e.FontBold = o.value(QLatin1String("bold")).toBool();
            e.TextEmphasis = o.value(QLatin1String("emphasis")).toBool();
            e.ForeColor = ColorDe();
            const QJsonValue t = o.value(QLatin1String("text"));
            if (!t.isString())
                Falla(QStringLiteral("falta el texto"));
            elementos.push_back(Elemento::Texto(Entero("x"), Entero("y"), t.toString(), e));
        } else if (op == QLatin1String("line")) {
            elementos.push_back(
                Elemento::Linea(Entero("x1"), Entero("y1"), Entero("x2"), Entero("y2"), ColorDe()));
        } else if (op == QLatin1String("band")) {
            elementos.push_back(
                Elemento::Banda(Entero("x"), Entero("y"), Entero("w"), Entero("h")));
        } else {
            Falla(QStringLiteral("operación desconocida \"%1\"").arg(op));
        }
    }
    return doc;
}

Documento LeeJsonl(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorConsulta(
            QStringLiteral("No se pudo leer el volcado '%1': %2").arg(ruta, f.errorString()));
    return DocumentoDeJsonl(f.readAll(), ruta);
}

void EscribeSalidas(const Documento& documento, const OpcionesSalida& opciones) {
    if (!opciones.jsonl.isEmpty())
        EscribeJsonl(documento, opciones.jsonl);
    if (!opciones.emf.isEmpty()) {
        const QString base = CarpetaLista(opciones.emf);
        int n = 0;
        for (const Pagina& p : documento.paginas)
            EscribeEmf(base + QString::number(++n) + QStringLiteral(".emf"), p);
    }
    if (!opciones.png.isEmpty()) {
        const QString base = CarpetaLista(opciones.png);
        int n = 0;
        for (const Pagina& p : documento.paginas) {
            const QString ruta = base + QString::number(++n) + QStringLiteral(".png");
            if (!ImagenPagina(p, opciones.dpiPng).save(ruta, "PNG"))
                throw ErrorConsulta(QStringLiteral("No se pudo grabar la imagen '%1'").arg(ruta));
        }
    }
    if (!opciones.pdf.isEmpty())
        EscribePdf(documento, opciones.pdf);
}

} // namespace consultas
