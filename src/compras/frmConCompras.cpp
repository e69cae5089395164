#include "compras/frmConCompras.h"

#include "compras/EncabezadosCompras.h"
#include "compras/ReportesCompras.h"
#include "core/Membrete.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "services/ServiciosQt.h"
#include "surface/VistaPrevia.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDesktopServices>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <algorithm>

namespace consultas {

namespace m = modConCompras;

namespace {

// Positions are kept in twips, as the layout was drawn; 15 twips make a
// pixel at 96 dpi.
void Pon(QWidget* w, int izq, int arriba, int ancho, int alto) {
    w->setGeometry(izq / 15, arriba / 15, ancho / 15, alto / 15);
}

QString Indexado(const char* nombre, int i) {
    return QString("%1[%2]").arg(nombre).arg(i);
}

// The folio colours of the reports: blue active, dark red cancelled, green
// filled.
const QColor ColorActivo = QColor(0, 0, 255);
const QColor ColorCancelado = QColor(192, 0, 0);
const QColor ColorSurtido = QColor(0, 128, 0);

void ColorTexto(QWidget* w, const QColor& c) {
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, c);
    p.setColor(QPalette::ButtonText, c);
    w->setPalette(p);
}

// The shared connection; a screen cannot work without one.
Conexion& Base() {
    if (!m::ConexionCompartida)
        throw ErrorConsulta(QString::fromUtf8("No hay conexión con la base de datos."));
    return *m::ConexionCompartida;
}

void Mensaje(const QString& texto) {
    servicios::CreaMensajes()->Mensaje(0, 0, texto, 0);
}

bool EsClave(const QTreeWidgetItem* nodo, QChar letra) {
    return ClaveNodo(nodo).startsWith(letra);
}

QTreeWidgetItem* NuevoNodo(QTreeWidget* arbol, QTreeWidgetItem* padre, const QString& clave,
                           const QString& texto) {
    auto* n = padre ? new QTreeWidgetItem(padre) : new QTreeWidgetItem(arbol);
    n->setText(0, texto);
    n->setData(0, Qt::UserRole, clave);
    n->setFlags(n->flags() | Qt::ItemIsUserCheckable);
    n->setCheckState(0, Qt::Unchecked);
    return n;
}

void MarcaHijos(QTreeWidgetItem* nodo, Qt::CheckState estado) {
    for (int i = 0; i < nodo->childCount(); ++i)
        nodo->child(i)->setCheckState(0, estado);
}

// A child's check carries to its parent: checked raises it, unchecked
// leaves it checked only while a sibling is.
void ReglaHijo(QTreeWidgetItem* nodo) {
    QTreeWidgetItem* padre = nodo->parent();
    if (!padre)
        return;
    if (nodo->checkState(0) == Qt::Checked) {
        padre->setCheckState(0, Qt::Checked);
        return;
    }
    bool alguno = false;
    for (int i = 0; i < padre->childCount(); ++i)
        alguno = alguno || padre->child(i)->checkState(0) == Qt::Checked;
    padre->setCheckState(0, alguno ? Qt::Checked : Qt::Unchecked);
}

} // namespace

// ------------------------------------------------------------ list helpers

void CargaCombo(QComboBox* combo, const QString& sql, int ancho) {
    combo->clear();
    try {
        auto rs = Base().Abre(sql);
        for (; !rs->Eof(); rs->MoveNext())
            combo->addItem(rs->Campo("DES_TABLA").Texto(), rs->Campo("COD_TABLA").Texto());
        if (ancho > 0)
            combo->view()->setMinimumWidth(ancho);
    } catch (const std::exception& e) {
        QApplication::restoreOverrideCursor();
        servicios::CreaMensajes()->Mensaje(0, 0, QString::fromUtf8(e.what()), 0);
    }
}

QString CodigoCombo(const QComboBox* combo) {
    const int i = combo->currentIndex();
    if (i < 0)
        return QString();
    if (combo->isEditable() && combo->currentText() != combo->itemText(i))
        return QString();
    return combo->itemData(i, Qt::UserRole).toString();
}

void UbicaCombo(const QString& codigo, QComboBox* combo) {
    const int i = combo->findData(codigo, Qt::UserRole);
    if (i >= 0)
        combo->setCurrentIndex(i);
    else
        combo->setCurrentIndex(combo->isEditable() || combo->count() == 0 ? -1 : 0);
}

// ------------------------------------------------------------ tree helpers

QString ClaveNodo(const QTreeWidgetItem* nodo) {
    return nodo->data(0, Qt::UserRole).toString();
}

void UnGrupoSolo(QTreeWidget* arbol, const QString& clave) {
    for (int i = 0; i < arbol->topLevelItemCount(); ++i) {
        QTreeWidgetItem* g = arbol->topLevelItem(i);
        if (ClaveNodo(g) != clave && g->checkState(0) == Qt::Checked) {
            g->setCheckState(0, Qt::Unchecked);
            MarcaHijos(g, Qt::Unchecked);
        }
    }
}

bool GposCompletos(const QTreeWidget* arbol, int modo) {
    for (int i = 0; i < arbol->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* g = arbol->topLevelItem(i);
        const bool grupoMarcado = g->checkState(0) == Qt::Checked;
        if (modo == 0 && !grupoMarcado)
            return false;
        if (modo != 0 && !grupoMarcado)
            continue;
        for (int j = 0; j < g->childCount(); ++j)
            if (g->child(j)->checkState(0) != Qt::Checked)
                return false;
    }
    return true;
}

// ------------------------------------------------------------------ screen

frmConCompras::frmConCompras(QWidget* padre) : PantallaBase(padre) {
    setObjectName("frmConCompras");
    setWindowTitle("CONSULTAS DE COMPRAS");
    setModal(true);
    CreaControles();
    AplicaColores(this);
    PintaBotones();

    m::DirectorioConsultas = m::LeeDirectorioConsultas();
    dtpFecha[0]->setDate(QDate::currentDate());
    dtpFecha[1]->setDate(QDate::currentDate());
    ListasRegionales(0, QString(), QString());
    CargaGposProveedor();
    CargaGposArticulo();
    CargaAlmacenes(tvwAlm, true);
    Conecta();
    cmbConsulta->setCurrentIndex(0);
    SeleccionaConsulta(0);
    cmbConsulta->view()->setMinimumWidth(610);
    m::LeeEmpresa(Base(), 1);

    corrida_.Encabezado = [this](int tipo) {
        ReporteCompras r = Reporte();
        EncabezadoCompras(r, tipo);
    };
    corrida_.Mostrar = vista::Muestra;
}

frmConCompras::~frmConCompras() = default;

void frmConCompras::CreaControles() {
    setFixedSize(14925 / 15, 9720 / 15);
    auto marco = [this](int i, const char* titulo, int l, int t, int w, int h) {
        auto* f = new QGroupBox(QString::fromUtf8(titulo), this);
        f->setObjectName(Indexado("Frame", i));
        Pon(f, l, t, w, h);
        PintaFondo(f, ColorPanel());
        Frame[static_cast<size_t>(i)] = f;
        return f;
    };
    auto etiqueta = [](QWidget* padre, const char* texto, const QString& nombre, int l, int t,
                       int w, int h) {
        auto* e = new QLabel(QString::fromUtf8(texto), padre);
        e->setObjectName(nombre);
        Pon(e, l, t, w, h);
        return e;
    };
    auto dato = [&](int i, QWidget* padre, const char* texto, int l, int t, int w) {
        lblDatos[static_cast<size_t>(i)] =
            etiqueta(padre, texto, Indexado("lblDatos", i), l, t, w, 240);
    };
    auto opcion = [](QWidget* padre, const char* nombre, int i, const char* texto, int l, int t,
                     int w) {
        auto* o = new QRadioButton(QString::fromUtf8(texto), padre);
        o->setObjectName(Indexado(nombre, i));
        Pon(o, l, t, w, 285);
        PintaFondo(o, ColorPanel());
        return o;
    };
    auto casilla = [](QWidget* padre, const QString& nombre, const char* texto, int l, int t,
                      int w) {
        auto* c = new QCheckBox(QString::fromUtf8(texto), padre);
        c->setObjectName(nombre);
        Pon(c, l, t, w, 285);
        PintaFondo(c, ColorPanel());
        return c;
    };
    auto caja = [](QWidget* padre, const char* nombre, int largo, int l, int t, int w) {
        auto* c = new QLineEdit(padre);
        c->setObjectName(nombre);
        c->setMaxLength(largo);
        Pon(c, l, t, w, 315);
        return c;
    };
    auto combo = [](QWidget* padre, const QString& nombre, bool editable, int l, int t, int w) {
        auto* c = new QComboBox(padre);
        c->setObjectName(nombre);
        c->setEditable(editable);
        if (editable)
            c->setInsertPolicy(QComboBox::NoInsert);
        Pon(c, l, t, w, 315);
        return c;
    };
    auto arbol = [](QGroupBox* marco, const QString& nombre, int alto) {
        auto* a = new QTreeWidget(marco);
        a->setObjectName(nombre);
        a->setHeaderHidden(true);
        a->setColumnCount(1);
        Pon(a, 120, 240, 2925, alto);
        return a;
    };

    // The inquiry list and the buttons along the foot of the screen.
    etiqueta(this, "Consulta", "lblConsulta", 480, 2040, 2000, 240);
    cmbConsulta = combo(this, "cmbConsulta", false, 480, 2280, 6375);
    for (const char* c :
         {"Diario de Compras", "Relación de Documentos", "Compras por Artículo", "Compras Netas",
          "Compras Desglosado", "Diferencias en Recepción", "Descuentos en Compras", "Backorder",
          "Mejor Cotización en base a Requisición", "Análisis de Compras"})
        cmbConsulta->addItem(QString::fromUtf8(c));

    const char* funciones[] = {"CONSULTAR [F10]", "BUSCAR PROVEEDOR [F6]", "BUSCAR ARTÍCULO [F7]",
                               "SALIR [ESC]", "AYUDA [F1]"};
    const QStyle::StandardPixmap iconos[] = {
        QStyle::SP_DialogApplyButton, QStyle::SP_FileDialogContentsView,
        QStyle::SP_FileDialogDetailedView, QStyle::SP_DialogCloseButton,
        QStyle::SP_DialogHelpButton};
    for (int i = 0; i < 5; ++i) {
        auto* b = new QPushButton(style()->standardIcon(iconos[i]), QString::fromUtf8(funciones[i]),
                                  this);
        b->setObjectName(Indexado("cmdFunciones", i));
        b->setAutoDefault(false);
        Pon(b, 480 + i * 2880, 9120, 2820, 480);
        cmdFunciones[static_cast<size_t>(i)] = b;
    }

    // Folio and document type, with the additional tax on the same place.
    dato(0, this, "Folio", 480, 2880, 1500);
    txtFolio = caja(this, "txtFolio", 17, 480, 3120, 2200);
    cmdBuscar[1] = new QPushButton("...", this);
    cmdBuscar[1]->setObjectName("cmdBuscar[1]");
    Pon(cmdBuscar[1], 2700, 3120, 420, 315);
    dato(7, this, "Tipo de Documento", 3360, 2880, 3000);
    cmbTipDoc = combo(this, "cmbTipDoc", true, 3360, 3120, 3495);
    dato(9, this, "Impuesto adicional", 480, 2880, 3000);
    cmbImpuesto = combo(this, "cmbImpuesto", false, 480, 3120, 6375);

    chkResumen = casilla(this, "chkResumen", "Resumen Contable", 480, 3720, 2000);
    chkIncluirDescuentos =
        casilla(this, "chkIncluirDescuentos", "Incluir Descuentos", 2640, 3720, 2200);
    chkExcel = casilla(this, "chkExcel", "Enviar a Excel", 5040, 3720, 1815);

    // Period.
    auto* f0 = marco(0, "", 480, 4845, 5175, 975);
    dato(1, f0, "Del", 240, 390, 480);
    dtpFecha[0] = new QDateEdit(f0);
    dato(2, f0, "Al", 2760, 390, 360);
    dtpFecha[1] = new QDateEdit(f0);
    for (int i = 0; i < 2; ++i) {
        dtpFecha[static_cast<size_t>(i)]->setObjectName(Indexado("dtpFecha", i));
        dtpFecha[static_cast<size_t>(i)]->setDisplayFormat("dd/MM/yyyy");
        dtpFecha[static_cast<size_t>(i)]->setCalendarPopup(true);
        Pon(dtpFecha[static_cast<size_t>(i)], i == 0 ? 720 : 3120, 330, 1800, 375);
    }

    // Status, level, order, national or imported.
    etiqueta(this, "Estado", "lblEstado", 1560, 5790, 1000, 210);
    auto* f2 = marco(2, "", 1560, 6000, 5895, 855);
    const char* estados[] = {"Activos", "Cancelados", "Surtidos"};
    const QColor colores[] = {ColorActivo, ColorCancelado, ColorSurtido};
    for (int i = 0; i < 3; ++i) {
        chkEstatus[static_cast<size_t>(i)] =
            casilla(f2, Indexado("chkEstatus", i), estados[i], 240 + i * 1800, 360, 1600);
        ColorTexto(chkEstatus[static_cast<size_t>(i)], colores[i]);
    }
    etiqueta(this, "Tipo", "lblTipo", 1440, 6720, 1000, 240);
    auto* f1 = marco(1, "", 1440, 6960, 4455, 615);
    const char* niveles[] = {"Detallado", "Resumido", "Global"};
    for (int i = 0; i < 3; ++i)
        optDetRes[static_cast<size_t>(i)] =
            opcion(f1, "optDetRes", i, niveles[i], 120 + i * 1440, 210, 1380);
    auto* f6 = marco(6, "", 6120, 6960, 5415, 735);
    const char* tni[] = {"Todos", "Nacional", "Importación"};
    for (int i = 0; i < 3; ++i)
        optTNI[static_cast<size_t>(i)] = opcion(f6, "optTNI", i, tni[i], 240 + i * 1700, 270, 1600);
    etiqueta(this, "Orden", "lblOrden", 1320, 7590, 1000, 210);
    auto* f3 = marco(3, "", 1320, 7800, 9495, 615);
    const char* ordenes[] = {"Fecha", "Folio", "Cod. Artículo", "Desc. Artículo", "Cod. Proveedor"};
    for (int i = 0; i < 5; ++i)
        optOrden[static_cast<size_t>(i)] =
            opcion(f3, "optOrden", i, ordenes[i], 120 + i * 1860, 210, 1800);

    // Documents, shown in the order of their life rather than of their items.
    auto* f4 = marco(4, "Documento", 7320, 120, 4215, 3660);
    const char* documentos[] = {"Requisición", "Cotización", "Orden de Compra",
                                "Recepción",   "Devolución", "Remisión"};
    const int fila[] = {0, 1, 2, 4, 5, 3};
    for (int i = 0; i < 6; ++i)
        optDoc[static_cast<size_t>(i)] =
            opcion(f4, "optDoc", i, (QByteArray("   ") + documentos[i]).constData(), 240,
                   420 + fila[i] * 540, 3700);

    // Codes.
    auto* f5 = marco(5, "", 7320, 3840, 4215, 2055);
    dato(4, f5, "Centro de Costo", 120, 300, 1500);
    txtCCos = caja(f5, "txtCCos", 4, 1680, 240, 1800);
    cmdBuscar[0] = new QPushButton("...", f5);
    cmdBuscar[0]->setObjectName("cmdBuscar[0]");
    Pon(cmdBuscar[0], 3540, 240, 420, 315);
    dato(5, f5, "Proveedor", 120, 900, 1500);
    txtCodProv = caja(f5, "txtCodProv", 10, 1680, 840, 1800);
    dato(6, f5, "Artículo", 120, 1500, 1500);
    txtArt = caja(f5, "txtArt", 20, 1680, 1440, 2400);
    for (auto* b : cmdBuscar)
        b->setAutoDefault(false);

    // Region, trees.
    auto* f10 = marco(10, "", 11640, 120, 3165, 1905);
    chkRegion = casilla(f10, "chkRegion", "Por Región", 120, 240, 1500);
    for (int i = 0; i < 3; ++i)
        cmbRegion[static_cast<size_t>(i)] =
            combo(f10, Indexado("cmbRegion", i), true, 120, 600 + i * 420, 2925);
    tvwGpos[0] = arbol(marco(7, "Proveedores", 11640, 2040, 3165, 2295), "tvwGpos[0]", 1935);
    tvwGpos[1] = arbol(marco(8, "Artículos", 11640, 4320, 3165, 2700), "tvwGpos[1]", 2340);
    tvwAlm = arbol(marco(9, "Sucursal/Almacén", 11640, 7080, 3165, 1935), "tvwAlm", 1575);

    // A disabled input box takes the panel colour; an enabled one keeps the
    // system's window colour.
    QPalette p = palette();
    p.setColor(QPalette::Disabled, QPalette::Base, ColorPanel());
    setPalette(p);
}

void frmConCompras::PintaBotones() {
    for (int i = 0; i < 5; ++i) {
        QPushButton* b = cmdFunciones[static_cast<size_t>(i)];
        PintaFondo(b, (i == 1 || i == 2) && !b->isEnabled() ? ColorPanel() : ColorBoton());
    }
    for (auto* b : cmdBuscar)
        PintaFondo(b, ColorBoton());
}

void frmConCompras::Conecta() {
    connect(cmbConsulta, &QComboBox::currentIndexChanged, this,
            [this](int i) { EjecutaProtegido([&] { SeleccionaConsulta(i); }); });
    for (int i = 0; i < 5; ++i)
        connect(cmdFunciones[static_cast<size_t>(i)], &QPushButton::clicked, this,
                [this, i] { Funcion(i); });
    for (int i = 0; i < 2; ++i)
        connect(cmdBuscar[static_cast<size_t>(i)], &QPushButton::clicked, this,
                [this, i] { EjecutaProtegido([&] { Busca(i); }); });
    // The period never runs backwards: a start after the end moves the end.
    for (auto* d : dtpFecha)
        connect(d, &QDateEdit::dateChanged, this, [this] {
            if (dtpFecha[0]->date() > dtpFecha[1]->date())
                dtpFecha[1]->setDate(dtpFecha[0]->date());
        });
    connect(chkRegion, &QCheckBox::toggled, this, [this](bool si) {
        for (auto* c : cmbRegion)
            c->setEnabled(si);
    });
    for (int i = 0; i < 6; ++i)
        connect(optDoc[static_cast<size_t>(i)], &QRadioButton::toggled, this, [this, i](bool si) {
            const int c = cmbConsulta->currentIndex();
            if (si && (c == CompDiario || c == CompRelacion || c == CompBackorder))
                ReglaDocumento(i);
        });
    for (int i = 0; i < 3; ++i)
        connect(optDetRes[static_cast<size_t>(i)], &QRadioButton::toggled, this,
                [this, i](bool si) {
                    if (si)
                        ReglaNivel(i);
                });
    for (int i = 0; i < 5; ++i)
        connect(optOrden[static_cast<size_t>(i)], &QRadioButton::toggled, this, [this, i](bool si) {
            if (si)
                ReglaOrden(i);
        });
    for (int i = 0; i < 2; ++i)
        connect(tvwGpos[static_cast<size_t>(i)], &QTreeWidget::itemChanged, this,
                [this, i](QTreeWidgetItem* n, int) {
                    ReglaGpos(tvwGpos[static_cast<size_t>(i)], i, n);
                });
    connect(tvwAlm, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* n, int) { ReglaAlm(n); });

    // The screen sees its keys before the control in focus; the code boxes
    // select their text on entry and refuse the apostrophe; the region and
    // type lists can be emptied but not typed into.
    installEventFilter(this);
    for (QWidget* w : findChildren<QWidget*>())
        w->installEventFilter(this);
    for (QComboBox* c : {cmbRegion[0], cmbRegion[1], cmbRegion[2], cmbTipDoc})
        c->lineEdit()->installEventFilter(this);
}

bool frmConCompras::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(evento);
        switch (k->key()) {
        case Qt::Key_F10:
            Funcion(0);
            return true;
        case Qt::Key_F6:
            Funcion(1);
            return true;
        case Qt::Key_F7:
            Funcion(2);
            return true;
        case Qt::Key_Escape:
            Funcion(3);
            return true;
        case Qt::Key_F1:
            Funcion(4);
            return true;
        default:
            break;
        }
        const bool codigo =
            objeto == txtCCos || objeto == txtCodProv || objeto == txtArt || objeto == txtFolio;
        if (codigo && k->text() == "'") {
            QApplication::beep();
            return true;
        }
        for (QComboBox* c : {cmbRegion[0], cmbRegion[1], cmbRegion[2], cmbTipDoc}) {
            if (objeto != c->lineEdit() && objeto != c)
                continue;
            const bool caracter = !k->text().isEmpty() && k->text().at(0).isPrint();
            if (caracter && k->text() != ".")
                return true;
        }
    } else if (evento->type() == QEvent::FocusIn) {
        if (auto* caja = qobject_cast<QLineEdit*>(objeto);
            caja && (caja == txtCCos || caja == txtCodProv || caja == txtArt || caja == txtFolio))
            QTimer::singleShot(0, caja, &QLineEdit::selectAll);
    }
    return PantallaBase::eventFilter(objeto, evento);
}

void frmConCompras::Funcion(int indice) {
    switch (indice) {
    case 0:
        EjecutaProtegido([this] { EjecutarConsulta(); });
        break;
    case 1:
    case 2:
        EjecutaProtegido([this, indice] { Busca(indice == 1 ? 2 : 3); });
        break;
    case 3:
        reject();
        break;
    case 4:
        QDesktopServices::openUrl(QUrl::fromLocalFile(m::ArchivoDeAyuda));
        break;
    default:
        break;
    }
}

// Pickers: 0 cost centres, 1 folios by document, 2 suppliers, 3 articles.
void frmConCompras::Busca(int indice) {
    const QString cadena = m::ConexionBaseDatos;
    const auto motor = static_cast<std::uint8_t>(m::ManejadorBaseDatos);
    QString resultado;
    QLineEdit* destino = nullptr;
    if (indice == 0 || indice == 2) {
        auto b = servicios::CreaBusqueda();
        b->Mostrar(cadena, motor, m::ArchivoDeAyuda, m::DirectorioConsultas,
                   indice == 0 ? "CCOSTOS" : "PROVEEDORES", QString(), 0);
        resultado = b->Resultado();
        destino = indice == 0 ? txtCCos : txtCodProv;
    } else if (indice == 1) {
        int tipo = DocDevolucion;
        const int c = cmbConsulta->currentIndex();
        if (c == CompCotizacion)
            tipo = DocRequisicion;
        else if (c == CompDiferencias)
            tipo = DocRecepcion;
        else if (optDoc[0]->isChecked())
            tipo = DocRequisicion;
        else if (optDoc[1]->isChecked())
            tipo = DocCotizacion;
        else if (optDoc[2]->isChecked())
            tipo = DocOrdenCompra;
        else if (optDoc[3]->isChecked())
            tipo = DocRecepcion;
        auto b = servicios::CreaBuscaDocumento();
        b->Mostrar(cadena, motor, m::ArchivoDeAyuda, m::DirectorioConsultas, 0, tipo, QString(),
                   QString(), false, QString(), QString());
        resultado = b->Resultado();
        destino = txtFolio;
    } else {
        auto b = servicios::CreaBuscaArticulo();
        b->Mostrar(cadena, motor, m::ArchivoDeAyuda, 2, QString(), m::RutaBaseDeDatos,
                   m::LeeIni("VARIOS", "VER_COLEX") == "1");
        resultado = b->Resultado();
        destino = txtArt;
    }
    if (!resultado.isEmpty())
        destino->setText(resultado);
}

// ----------------------------------------------------------------- lists

void frmConCompras::ListasRegionales(int tipo, QString codigo, const QString& sql) {
    struct Lista {
        QComboBox* combo;
        const char* clave;
        const char* predeterminado;
        const char* sql;
        int ancho;
    };
    const Lista listas[] = {
        {cmbRegion[0], "CIUDAD", nullptr,
         "SELECT COD_CID AS COD_TABLA,DES_CID AS DES_TABLA FROM tblCiudad ORDER BY COD_CID", 200},
        {cmbRegion[1], "ESTADO", nullptr,
         "SELECT COD_EST AS COD_TABLA,DES_EST AS DES_TABLA FROM tblEstado ORDER BY COD_EST", 200},
        {cmbRegion[2], "PAIS", nullptr,
         "SELECT COD_PAIS AS COD_TABLA,DES_PAIS AS DES_TABLA FROM tblPais ORDER BY COD_PAIS", 200},
        {cmbImpuesto, nullptr, "1",
         "SELECT COD_IMP AS COD_TABLA,DES_IMP AS DES_TABLA FROM tblImpuestos ORDER BY COD_IMP",
         150},
        {cmbTipDoc, nullptr, "1",
         "SELECT COD_TIP AS COD_TABLA,DES_TIP AS DES_TABLA FROM tblTipoRequisicion ORDER BY "
         "COD_TIP",
         150},
    };
    for (int k = 1; k <= 5; ++k) {
        if (tipo != 0 && tipo != k)
            continue;
        const Lista& l = listas[k - 1];
        QString cod = codigo;
        if (cod.isEmpty())
            cod = l.clave ? m::LeeIni("CFGREGIONAL", l.clave) : QString(l.predeterminado);
        CargaCombo(l.combo, sql.isEmpty() ? QString(l.sql) : sql, l.ancho);
        if (!cod.isEmpty())
            UbicaCombo(cod, l.combo);
    }
}

// Loads a two-level tree of groups ("G" + code) and their agrupaciones
// ("A" + code) from a statement ordered by group.
void frmConCompras::CargaArbolGrupos(QTreeWidget* a, const QString& sql) {
    QSignalBlocker bloqueo(a);
    a->hide();
    a->clear();
    a->show();
    auto rs = Base().Abre(sql);
    QTreeWidgetItem* grupo = nullptr;
    QString anterior;
    for (; !rs->Eof(); rs->MoveNext()) {
        const QString g = rs->Campo("COD_GPO").Texto();
        if (!grupo || g != anterior) {
            grupo = NuevoNodo(a, nullptr, "G" + g, rs->Campo("DES_GPO").Texto());
            anterior = g;
        }
        NuevoNodo(a, grupo, "A" + rs->Campo("COD_AGR").Texto(), rs->Campo("DES_AGR").Texto());
    }
}

void frmConCompras::CargaGposProveedor() {
    CargaArbolGrupos(
        tvwGpos[0],
        "SELECT tblGpoProveedor.COD_GPO,DES_GPO,COD_AGR,DES_AGR FROM tblGpoProveedor INNER JOIN "
        "tblAgrProveedor ON tblGpoProveedor.COD_GPO=tblAgrProveedor.COD_GPO ORDER BY "
        "tblGpoProveedor.COD_GPO,DES_AGR;");
}

void frmConCompras::CargaGposArticulo() {
    CargaArbolGrupos(
        tvwGpos[1],
        "SELECT tblAgrupacionArt.COD_GPO,DES_GPO,COD_AGR,DES_AGR FROM tblAgrupacionArt INNER JOIN "
        "tblCatAgrupacionArt ON tblAgrupacionArt.COD_GPO=tblCatAgrupacionArt.COD_GPO ORDER BY "
        "tblAgrupacionArt.COD_GPO,DES_AGR;");
}

void frmConCompras::CargaAlmacenes(QTreeWidget* arbol, bool soloSucursales) {
    QSignalBlocker bloqueo(arbol);
    arbol->clear();
    if (soloSucursales) {
        auto rs = Base().Abre("SELECT COD_SUCU,DES_SUCU FROM tblSucursales ORDER BY COD_SUCU;");
        for (; !rs->Eof(); rs->MoveNext())
            NuevoNodo(arbol, nullptr, "C" + rs->Campo("COD_SUCU").Texto(),
                      rs->Campo("DES_SUCU").Texto());
        return;
    }
    auto rs = Base().Abre(
        "SELECT COD_ALM,DES_ALM,tblSucursales.COD_SUCU,DES_SUCU FROM tblCatAlmacenes INNER JOIN "
        "tblSucursales ON tblCatAlmacenes.COD_SUCU=tblSucursales.COD_SUCU ORDER BY "
        "tblSucursales.COD_SUCU");
    QTreeWidgetItem* sucursal = nullptr;
    QString anterior;
    for (; !rs->Eof(); rs->MoveNext()) {
        const QString s = rs->Campo("COD_SUCU").Texto();
        if (!sucursal || s != anterior) {
            sucursal = NuevoNodo(arbol, nullptr, "C" + s, rs->Campo("DES_SUCU").Texto());
            anterior = s;
        }
        NuevoNodo(arbol, sucursal, "A" + rs->Campo("COD_ALM").Texto(),
                  rs->Campo("DES_ALM").Texto());
    }
}

// ------------------------------------------------------------ tree rules

void frmConCompras::ReglaGpos(QTreeWidget* arbol, int item, QTreeWidgetItem* nodo) {
    // The rules change checks themselves; only the user's click is a rule's
    // cause.
    if (enReglaArbol_)
        return;
    QScopedValueRollback guarda(enReglaArbol_, true);
    if (EsClave(nodo, 'G')) {
        if (nodo->checkState(0) != Qt::Checked) {
            MarcaHijos(nodo, Qt::Unchecked);
            return;
        }
        nodo->setExpanded(true);
        MarcaHijos(nodo, Qt::Checked);
        if (item == 0 && cmbConsulta->currentIndex() == CompDesglosado)
            UnGrupoSolo(arbol, ClaveNodo(nodo));
        return;
    }
    ReglaHijo(nodo);
}

void frmConCompras::ReglaAlm(QTreeWidgetItem* nodo) {
    if (enReglaArbol_)
        return;
    QScopedValueRollback guarda(enReglaArbol_, true);
    if (EsClave(nodo, 'C')) {
        if (nodo->childCount() == 0)
            return;
        if (nodo->checkState(0) != Qt::Checked) {
            MarcaHijos(nodo, Qt::Unchecked);
            return;
        }
        // A branch brings its first warehouse only; the others stay as the
        // user left them.
        nodo->setExpanded(true);
        nodo->child(0)->setCheckState(0, Qt::Checked);
        return;
    }
    ReglaHijo(nodo);
}

// ---------------------------------------------------------------- panels

void frmConCompras::HabilitaProveedor(bool si) {
    txtCodProv->setEnabled(si);
    lblDatos[5]->setEnabled(si);
    cmdFunciones[1]->setEnabled(si);
    PintaBotones();
}

void frmConCompras::HabilitaArticulo(bool si) {
    txtArt->setEnabled(si);
    lblDatos[6]->setEnabled(si);
    cmdFunciones[2]->setEnabled(si);
    PintaBotones();
}

void frmConCompras::HabilitaFolio(bool si) {
    txtFolio->setEnabled(si);
    lblDatos[0]->setEnabled(si);
    cmdBuscar[1]->setEnabled(si);
}

void frmConCompras::HabilitaCCos(bool si) {
    txtCCos->setEnabled(si);
    lblDatos[4]->setEnabled(si);
    cmdBuscar[0]->setEnabled(si);
}

void frmConCompras::HabilitaTipDoc(bool si) {
    cmbTipDoc->setEnabled(si);
    lblDatos[7]->setEnabled(si);
}

void frmConCompras::HabilitaGpos(int item, bool si) {
    tvwGpos[static_cast<size_t>(item)]->setEnabled(si);
    Frame[static_cast<size_t>(7 + item)]->setEnabled(si);
}

void frmConCompras::HabilitaAlm(bool si) {
    tvwAlm->setEnabled(si);
    Frame[9]->setEnabled(si);
}

void frmConCompras::HabilitaDocumentos(std::initializer_list<int> items) {
    Frame[4]->setEnabled(items.size() > 0);
    for (int i = 0; i < 6; ++i)
        optDoc[static_cast<size_t>(i)]->setEnabled(std::find(items.begin(), items.end(), i) !=
                                                   items.end());
}

void frmConCompras::HabilitaOrden(std::initializer_list<int> items) {
    Frame[3]->setEnabled(items.size() > 0);
    for (int i = 0; i < 5; ++i)
        optOrden[static_cast<size_t>(i)]->setEnabled(std::find(items.begin(), items.end(), i) !=
                                                     items.end());
}

void frmConCompras::HabilitaNivel(std::initializer_list<int> items) {
    Frame[1]->setEnabled(items.size() > 0);
    for (int i = 0; i < 3; ++i)
        optDetRes[static_cast<size_t>(i)]->setEnabled(std::find(items.begin(), items.end(), i) !=
                                                      items.end());
}

void frmConCompras::HabilitaEstatus(bool si) {
    Frame[2]->setEnabled(si);
    for (auto* c : chkEstatus)
        c->setEnabled(si);
}

void frmConCompras::HabilitaTNI(bool si) {
    for (auto* o : optTNI)
        o->setEnabled(si);
}

// Sets an option as code would: its rule runs only when the value changes.
void frmConCompras::FijaOpcion(QRadioButton* opcion) {
    opcion->setChecked(true);
}

void frmConCompras::SeleccionaConsulta(int indice) {
    if (indice == CompDiferencias && !ConsultaPrevioCompra(Base())) {
        Mensaje(QString::fromUtf8("La consulta 'Diferencias en Recepción' está disponible cuando "
                                  "está activado 'Previo de Compra'"));
        // Moving the list runs this handler for Descuentos first; this one
        // then goes on with the panel of Diferencias, which is how the
        // screen has always behaved.
        cmbConsulta->setCurrentIndex(CompDescuentos);
    }
    Reinicia();
    AplicaPanel(indice);
}

void frmConCompras::Reinicia() {
    chkExcel->hide();
    chkExcel->setEnabled(false);
    HabilitaProveedor(false);
    HabilitaArticulo(false);
    HabilitaFolio(false);
    for (QWidget* w : {static_cast<QWidget*>(txtFolio), static_cast<QWidget*>(lblDatos[0]),
                       static_cast<QWidget*>(cmdBuscar[1])})
        w->show();
    HabilitaCCos(true);
    cmbTipDoc->show();
    lblDatos[7]->show();
    HabilitaTipDoc(true);
    Frame[0]->setEnabled(true);
    for (QWidget* w : {static_cast<QWidget*>(dtpFecha[0]), static_cast<QWidget*>(dtpFecha[1]),
                       static_cast<QWidget*>(lblDatos[1]), static_cast<QWidget*>(lblDatos[2])})
        w->setEnabled(true);
    HabilitaTNI(true);
    FijaOpcion(optTNI[0]);
    HabilitaAlm(false);
    HabilitaGpos(0, false);
    HabilitaGpos(1, false);
    HabilitaDocumentos({});
    Frame[10]->setEnabled(false);
    chkRegion->setEnabled(false);
    for (auto* c : cmbRegion)
        c->setEnabled(false);
    chkResumen->setEnabled(false);
    lblDatos[9]->hide();
    cmbImpuesto->setEnabled(false);
    cmbImpuesto->hide();
    HabilitaNivel({0, 1, 2});
    HabilitaEstatus(false);
    HabilitaOrden({0, 1, 2, 3, 4});
    FijaOpcion(optOrden[0]);
    chkIncluirDescuentos->setEnabled(false);
    chkIncluirDescuentos->setChecked(false);
}

void frmConCompras::AplicaPanel(int indice) {
    auto excel = [this](bool si) {
        chkExcel->setVisible(si);
        chkExcel->setEnabled(si);
    };
    auto fechas = [this](bool si) {
        Frame[0]->setEnabled(si);
        for (auto* d : dtpFecha)
            d->setEnabled(si);
        lblDatos[1]->setEnabled(si);
        lblDatos[2]->setEnabled(si);
    };
    auto estatusCero = [this] {
        for (auto* c : chkEstatus)
            c->setChecked(false);
    };
    switch (indice) {
    case CompDiario:
        excel(true);
        HabilitaDocumentos({3, 4});
        HabilitaOrden({});
        HabilitaProveedor(true);
        HabilitaCCos(false);
        Frame[10]->setEnabled(true);
        chkRegion->setEnabled(true);
        HabilitaAlm(true);
        FijaOpcion(optDetRes[0]);
        FijaOpcion(optDoc[3]);
        ReglaDocumento(3);
        for (auto* c : cmbRegion)
            c->setEnabled(chkRegion->isChecked());
        CargaAlmacenes(tvwAlm, true);
        break;
    case CompRelacion:
        excel(true);
        HabilitaNivel({0, 1});
        HabilitaDocumentos({0, 1, 2, 3, 4, 5});
        HabilitaOrden({0, 1, 4});
        HabilitaAlm(true);
        FijaOpcion(optDoc[1]);
        ReglaDocumento(1);
        CargaAlmacenes(tvwAlm, true);
        ReglaNivel(0);
        break;
    case CompArticulo:
        HabilitaOrden({2, 3});
        HabilitaTNI(false);
        HabilitaProveedor(true);
        HabilitaArticulo(true);
        HabilitaGpos(1, true);
        HabilitaCCos(false);
        HabilitaAlm(true);
        estatusCero();
        FijaOpcion(optOrden[2]);
        CargaAlmacenes(tvwAlm, false);
        break;
    case CompNetas:
        excel(true);
        HabilitaNivel({0, 1});
        HabilitaOrden({});
        HabilitaTNI(false);
        HabilitaCCos(false);
        HabilitaTipDoc(false);
        estatusCero();
        break;
    case CompDesglosado:
        excel(true);
        HabilitaOrden({});
        HabilitaTNI(false);
        HabilitaGpos(0, true);
        HabilitaCCos(false);
        HabilitaTipDoc(false);
        cmbImpuesto->setEnabled(true);
        chkResumen->setEnabled(true);
        chkIncluirDescuentos->setEnabled(true);
        for (QWidget* w : {static_cast<QWidget*>(txtFolio), static_cast<QWidget*>(lblDatos[0]),
                           static_cast<QWidget*>(cmdBuscar[1]), static_cast<QWidget*>(cmbTipDoc),
                           static_cast<QWidget*>(lblDatos[7])})
            w->hide();
        lblDatos[9]->show();
        cmbImpuesto->show();
        break;
    case CompDiferencias:
        HabilitaNivel({});
        HabilitaOrden({0, 4});
        HabilitaTNI(false);
        HabilitaProveedor(true);
        HabilitaArticulo(true);
        HabilitaCCos(false);
        HabilitaFolio(true);
        HabilitaTipDoc(false);
        break;
    case CompDescuentos:
        HabilitaNivel({0, 1});
        HabilitaOrden({2, 3, 4});
        HabilitaTNI(false);
        HabilitaCCos(false);
        estatusCero();
        FijaOpcion(optOrden[4]);
        FijaOpcion(optDetRes[0]);
        break;
    case CompBackorder:
        HabilitaNivel({0, 1});
        HabilitaDocumentos({0, 2});
        HabilitaOrden({2, 3});
        HabilitaTNI(false);
        HabilitaArticulo(true);
        HabilitaGpos(1, true);
        HabilitaCCos(false);
        HabilitaFolio(true);
        estatusCero();
        FijaOpcion(optDoc[0]);
        FijaOpcion(optDetRes[0]);
        ReglaNivel(0);
        break;
    case CompCotizacion: {
        excel(true);
        fechas(false);
        HabilitaNivel({});
        HabilitaOrden({});
        HabilitaTNI(false);
        HabilitaCCos(false);
        HabilitaFolio(true);
        HabilitaTipDoc(false);
        // No order at all: the exclusive group has to let go of its option.
        optOrden[0]->setAutoExclusive(false);
        optOrden[0]->setChecked(false);
        optOrden[0]->setAutoExclusive(true);
        break;
    }
    case CompAnalisis:
        excel(true);
        HabilitaNivel({});
        HabilitaOrden({});
        HabilitaTNI(false);
        HabilitaProveedor(true);
        HabilitaCCos(false);
        break;
    default:
        break;
    }
}

// ----------------------------------------------------------------- rules

void frmConCompras::ReglaDocumento(int d) {
    const int c = cmbConsulta->currentIndex();
    HabilitaEstatus(true);
    HabilitaCCos(false);
    optDetRes[2]->setEnabled(true);
    chkEstatus[0]->setChecked(true);
    chkEstatus[2]->setChecked(false);
    if (c == CompRelacion) {
        if (d == DocCompRequisicion || d == DocCompOrdenCompra || d == DocCompRecepcion)
            HabilitaCCos(true);
        HabilitaGpos(0, true);
        HabilitaProveedor(true);
        if (d == DocCompRemision) {
            HabilitaEstatus(false);
            HabilitaTNI(false);
        } else {
            HabilitaTNI(true);
        }
    }
    // The journal takes the national or imported choice back for every
    // document but returns, which are always of all origins.
    if (c == CompDiario)
        HabilitaTNI(d != DocCompDevolucion);
    if (c == CompBackorder) {
        HabilitaGpos(0, true);
        HabilitaProveedor(true);
        HabilitaTNI(false);
        optDetRes[2]->setEnabled(false);
    }
    switch (d) {
    case DocCompRequisicion:
        optDetRes[2]->setEnabled(false);
        FijaOpcion(optDetRes[0]);
        if (c == CompRelacion || c == CompBackorder) {
            HabilitaGpos(0, false);
            HabilitaProveedor(false);
        }
        if (c == CompRelacion)
            HabilitaTNI(false);
        break;
    case DocCompCotizacion:
    case DocCompRecepcion:
        chkEstatus[2]->setChecked(false);
        break;
    case DocCompDevolucion:
        chkEstatus[2]->setChecked(false);
        FijaOpcion(optTNI[0]);
        HabilitaTNI(false);
        break;
    default:
        break;
    }
}

void frmConCompras::ReglaNivel(int n) {
    const int c = cmbConsulta->currentIndex();
    if (c == CompRelacion) {
        const bool global = n == 2;
        optOrden[4]->setEnabled(global);
        optOrden[0]->setEnabled(!global);
        optOrden[1]->setEnabled(!global);
        FijaOpcion(optOrden[global ? 4 : 0]);
    } else if (c == CompBackorder) {
        if (n == 0) {
            optOrden[0]->setEnabled(true);
            optOrden[1]->setEnabled(true);
            FijaOpcion(optOrden[0]);
            const bool requisicion = optDoc[0]->isChecked();
            HabilitaGpos(0, !requisicion);
            HabilitaProveedor(!requisicion);
        } else {
            optOrden[0]->setEnabled(false);
            optOrden[1]->setEnabled(false);
            FijaOpcion(optOrden[2]);
            HabilitaGpos(0, false);
            HabilitaProveedor(false);
        }
    }
}

void frmConCompras::ReglaOrden(int k) {
    if (cmbConsulta->currentIndex() != CompDescuentos)
        return;
    const bool porProveedor = k == 4;
    HabilitaArticulo(!porProveedor);
    HabilitaGpos(1, !porProveedor);
    HabilitaProveedor(porProveedor);
    HabilitaGpos(0, porProveedor);
}

// ------------------------------------------------------------------- run

void frmConCompras::LeeControles() {
    ControlesCompras& p = Pantalla;
    p = ControlesCompras{};
    p.Resumido = optDetRes[1]->isChecked();
    p.Global = optDetRes[2]->isChecked();
    p.Nacional = optTNI[1]->isChecked();
    p.Importacion = optTNI[2]->isChecked();
    p.RegionHabilitada = chkRegion->isEnabled();
    p.PorRegion = chkRegion->isChecked();
    p.Ciudad = cmbRegion[0]->currentText();
    p.Estado = cmbRegion[1]->currentText();
    p.Pais = cmbRegion[2]->currentText();
    p.CodCiudad = CodigoCombo(cmbRegion[0]);
    p.CodEstado = CodigoCombo(cmbRegion[1]);
    p.CodPais = CodigoCombo(cmbRegion[2]);
    p.TipoDocTexto = cmbTipDoc->currentText();
    p.TipoDocCodigo = CodigoCombo(cmbTipDoc);
    p.ImpuestoTexto = cmbImpuesto->currentText();
    p.ImpuestoCodigo = CodigoCombo(cmbImpuesto);
    p.Excel = chkExcel->isChecked();
    p.Resumen = chkResumen->isChecked();
    p.IncluirDescuentos = chkIncluirDescuentos->isChecked();
    p.Fecha0 = dtpFecha[0]->date();
    p.Fecha1 = dtpFecha[1]->date();
    p.TextoFecha0 = dtpFecha[0]->text();
    p.TextoFecha1 = dtpFecha[1]->text();
    p.SurtidosHabilitado = chkEstatus[2]->isEnabled();
    p.GposProvCompletos = GposCompletos(tvwGpos[0], 0);
    p.GposProvGruposCompletos = GposCompletos(tvwGpos[0], 1);
}

ReporteCompras frmConCompras::Reporte() {
    return ReporteCompras{Sel, Pantalla, corrida_, Base()};
}

void frmConCompras::EjecutarConsulta() {
    SeleccionCompras& s = Sel;
    s.Detallado = optDetRes[0]->isChecked();
    s.HayGrupos = false;
    corrida_.lnLinea = 0;
    s.DocumentoActual = 0;
    s.OrdenActual = 0;
    s.ConsultaActual = 0;
    for (QString* t : {&s.SelectGpoArt, &s.SelectGpoProv, &s.ListaAgrArt, &s.ListaAgrProv,
                       &s.ListaAlm, &s.SqlConsulta, &s.SqlAux, &s.SucursalAnterior})
        t->clear();
    s.cyDia = s.cySuc = s.cyGral = MedidasCompras{};

    s.ConsultaActual = static_cast<std::int16_t>(cmbConsulta->currentIndex());
    // A set option counts even when the inquiry disabled it.
    for (int i = 0; i <= 9; ++i) {
        if (i < 5 && optOrden[static_cast<size_t>(i)]->isChecked())
            s.OrdenActual = static_cast<std::int16_t>(i);
        if (i < 6 && optDoc[static_cast<size_t>(i)]->isChecked())
            s.DocumentoActual = static_cast<std::int16_t>(i);
    }
    s.EstActivos = chkEstatus[0]->isChecked() ? 1 : 0;
    s.EstCancelados = chkEstatus[1]->isChecked() ? 1 : 0;
    s.EstSurtidos = chkEstatus[2]->isChecked() ? 1 : 0;
    s.FechaIni = m::FechaSQL(dtpFecha[0]->date());
    s.FechaFin = m::FechaSQL(dtpFecha[1]->date());
    // A disabled box says nothing, whatever it shows.
    auto texto = [](const QLineEdit* caja) { return caja->isEnabled() ? caja->text() : QString(); };
    s.CodProv = texto(txtCodProv);
    s.CodArt = texto(txtArt);
    s.CodCCos = texto(txtCCos);
    s.FolioSel = texto(txtFolio);

    // Supplier tree: a typed supplier overrides it, except in Backorder with
    // a folio.
    if ((tvwGpos[0]->isEnabled() && (s.CodProv.isEmpty() || !txtCodProv->isEnabled())) ||
        (!s.FolioSel.isEmpty() && s.ConsultaActual == CompBackorder)) {
        s.GrupoElegido = 0;
        for (QTreeWidgetItemIterator it(tvwGpos[0]); *it; ++it) {
            if ((*it)->checkState(0) != Qt::Checked)
                continue;
            const QString clave = ClaveNodo(*it);
            if (s.ConsultaActual == CompDesglosado && clave.startsWith('G'))
                s.GrupoElegido = static_cast<std::int16_t>(clave.mid(1).toInt());
            if (clave.startsWith('A'))
                s.ListaAgrProv += clave.mid(1) + ",";
        }
        if (!s.ListaAgrProv.isEmpty()) {
            s.ListaAgrProv.chop(1);
            s.SelectGpoProv =
                "SELECT tblGpoAgrProveedor.COD_PROV,tblGpoAgrProveedor.COD_AGR,DES_AGR,"
                "tblGpoAgrProveedor.COD_GPO,DES_GPO,";
            s.HayGrupos = true;
        }
        if (s.ConsultaActual == CompDesglosado && s.GrupoElegido == 0) {
            Mensaje("Es necesario elegir un grupo para la consulta seleccionada");
            return;
        }
    }

    // Article tree. In Backorder it shapes the statement only for
    // requisitions, and for purchase orders when not detailed.
    if (tvwGpos[1]->isEnabled() && (s.CodArt.isEmpty() || !txtArt->isEnabled())) {
        for (QTreeWidgetItemIterator it(tvwGpos[1]); *it; ++it)
            if ((*it)->checkState(0) == Qt::Checked && EsClave(*it, 'A'))
                s.ListaAgrArt += ClaveNodo(*it).mid(1) + ",";
        if (!s.ListaAgrArt.isEmpty()) {
            const bool sinGrupos = s.ConsultaActual == CompBackorder && s.DocumentoActual != 0 &&
                                   (s.DocumentoActual != 2 || s.Detallado);
            if (!sinGrupos)
                s.HayGrupos = true;
            s.ListaAgrArt.chop(1);
            s.SelectGpoArt = "SELECT tblGpoArticulos.COD1_ART,tblGpoArticulos.COD_AGR,DES_AGR,"
                             "tblGpoArticulos.COD_GPO,DES_GPO,";
        }
    }

    // Branches or warehouses: the journal and the document list filter by
    // branch; the others by warehouse only.
    if (tvwAlm->isEnabled()) {
        const bool sucursales = s.ConsultaActual == CompDiario || s.ConsultaActual == CompRelacion;
        for (QTreeWidgetItemIterator it(tvwAlm); *it; ++it)
            if ((*it)->checkState(0) == Qt::Checked && (sucursales || EsClave(*it, 'A')))
                s.ListaAlm += "'" + ClaveNodo(*it).mid(1) + "',";
        s.ListaAlm.chop(s.ListaAlm.isEmpty() ? 0 : 1);
    }

    if (s.ConsultaActual == CompCotizacion && s.FolioSel.trimmed().isEmpty()) {
        Mensaje(QString::fromUtf8("Es necesario elegir folio de requisición"));
        return;
    }

    LeeControles();
    ReporteCompras r = Reporte();
    corrida_.EjecutarConsulta(vista::SuperficieCompartida(), [&r] { DespachaReporteCompras(r); });
}

// The screen the host opens for the purchasing inquiries.
namespace {
const bool registrada = [] {
    m::RegistraPantalla(ConsultasDeCompras, [] { return std::make_unique<frmConCompras>(); });
    return true;
}();
} // namespace

} // namespace consultas
