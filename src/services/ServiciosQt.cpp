#include "services/ServiciosQt.h"

#include "core/Conexion.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>

namespace consultas {

namespace {

const char* const kTitulo = "Consultas";
constexpr int kRolBusqueda = Qt::UserRole + 1;

// Lower case without accents, so "jose" finds "José" and "NUNEZ" finds
// "Núñez".
QString Normaliza(const QString& t) {
    const QString d = t.normalized(QString::NormalizationForm_D);
    QString r;
    r.reserve(d.size());
    for (QChar c : d)
        if (c.category() != QChar::Mark_NonSpacing)
            r.append(c.toLower());
    return r;
}

void AbreAyuda(const QString& ayuda) {
    if (!ayuda.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(ayuda));
}

Conexion& AbreConexionPropia(Conexion& cn, const QString& cadena) {
    if (!cn.Abrir(cadena))
        throw ErrorConsulta(
            QStringLiteral("No se pudo abrir la conexión de búsqueda: %1").arg(cn.UltimoError()));
    return cn;
}

QString MuestraBusqueda(const ListaBusqueda& lista, const QString& filtro, const QString& ayuda) {
    frmBusqueda f(lista, filtro, ayuda, QApplication::activeWindow());
    f.exec();
    return f.Codigo();
}

} // namespace

// Each word of the filter must appear somewhere in the row.
class FiltroBusqueda : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void FijaPalabras(const QString& texto) {
        palabras_ = Normaliza(texto).split(' ', Qt::SkipEmptyParts);
        invalidateRowsFilter();
    }

protected:
    bool filterAcceptsRow(int fila, const QModelIndex& padre) const override {
        if (palabras_.isEmpty())
            return true;
        const QString t = sourceModel()->index(fila, 0, padre).data(kRolBusqueda).toString();
        for (const QString& p : palabras_)
            if (!t.contains(p))
                return false;
        return true;
    }

private:
    QStringList palabras_;
};

QColor ColorPanel() {
    return QColor(210, 230, 245);
}
QColor ColorBoton() {
    return QColor(245, 255, 255);
}

void AplicaColores(QWidget* w) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, ColorPanel());
    p.setColor(QPalette::Button, ColorBoton());
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

// ---------------------------------------------------------------- window

frmBusqueda::frmBusqueda(const ListaBusqueda& lista, const QString& filtro, const QString& ayuda,
                         QWidget* padre)
    : QDialog(padre), ayuda_(ayuda) {
    setObjectName("frmBusqueda");
    setWindowTitle(lista.titulo);
    AplicaColores(this);
    resize(640, 420);

    auto* etiqueta = new QLabel(QStringLiteral("Buscar:"), this);
    txtFiltro_ = new QLineEdit(this);
    txtFiltro_->setObjectName("txtFiltro");
    txtFiltro_->setClearButtonEnabled(true);
    etiqueta->setBuddy(txtFiltro_);

    modelo_ = new QStandardItemModel(0, int(lista.encabezados.size()), this);
    modelo_->setHorizontalHeaderLabels(lista.encabezados);
    for (const QStringList& f : lista.filas) {
        QList<QStandardItem*> fila;
        for (const QString& t : f) {
            auto* it = new QStandardItem(t);
            it->setEditable(false);
            fila << it;
        }
        fila.first()->setData(Normaliza(f.join(' ')), kRolBusqueda);
        modelo_->appendRow(fila);
    }
    filtro_ = new FiltroBusqueda(this);
    filtro_->setSourceModel(modelo_);

    grdResultados_ = new QTableView(this);
    grdResultados_->setObjectName("grdResultados");
    grdResultados_->setModel(filtro_);
    grdResultados_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdResultados_->setSelectionMode(QAbstractItemView::SingleSelection);
    grdResultados_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdResultados_->verticalHeader()->hide();
    grdResultados_->horizontalHeader()->setStretchLastSection(true);
    grdResultados_->horizontalHeader()->setMinimumSectionSize(80);
    grdResultados_->setAlternatingRowColors(true);
    grdResultados_->resizeColumnsToContents();

    lblCuenta_ = new QLabel(this);
    lblCuenta_->setObjectName("lblCuenta");

    auto* cmdAceptar = new QPushButton(QStringLiteral("ACEPTAR [ENTER]"), this);
    cmdAceptar->setObjectName("cmdAceptar");
    cmdAceptar->setDefault(true);
    auto* cmdCancelar = new QPushButton(QStringLiteral("CANCELAR [ESC]"), this);
    cmdCancelar->setObjectName("cmdCancelar");
    cmdCancelar->setAutoDefault(false);
    for (QPushButton* b : {cmdAceptar, cmdCancelar})
        b->setStyleSheet(QStringLiteral("background-color: rgb(245, 255, 255);"));

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(etiqueta);
    arriba->addWidget(txtFiltro_, 1);
    auto* abajo = new QHBoxLayout;
    abajo->addWidget(lblCuenta_, 1);
    abajo->addWidget(cmdAceptar);
    abajo->addWidget(cmdCancelar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(grdResultados_, 1);
    todo->addLayout(abajo);

    connect(txtFiltro_, &QLineEdit::textChanged, this, &frmBusqueda::Filtra);
    connect(grdResultados_, &QAbstractItemView::doubleClicked, this, &frmBusqueda::Elige);
    connect(cmdAceptar, &QPushButton::clicked, this, &frmBusqueda::Elige);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    txtFiltro_->installEventFilter(this);

    txtFiltro_->setText(filtro.trimmed());
    Filtra(txtFiltro_->text());
    txtFiltro_->setFocus();
}

int frmBusqueda::FilasVisibles() const {
    return filtro_->rowCount();
}

void frmBusqueda::Filtra(const QString& texto) {
    filtro_->FijaPalabras(texto);
    const int n = filtro_->rowCount();
    lblCuenta_->setText(n == 1 ? QStringLiteral("1 registro")
                               : QStringLiteral("%1 registros").arg(n));
    if (n > 0)
        grdResultados_->setCurrentIndex(filtro_->index(0, 0));
}

void frmBusqueda::Elige() {
    QModelIndex i = grdResultados_->currentIndex();
    if (!i.isValid() && filtro_->rowCount() > 0)
        i = filtro_->index(0, 0);
    if (!i.isValid())
        return; // nothing to choose: the window stays open
    codigo_ = filtro_->index(i.row(), 0).data().toString();
    accept();
}

void frmBusqueda::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_F1) {
        AbreAyuda(ayuda_);
        return;
    }
    QDialog::keyPressEvent(e);
}

// The arrows and page keys in the filter box move through the table, so the
// user can type and choose without leaving the box.
bool frmBusqueda::eventFilter(QObject* o, QEvent* e) {
    if (o == txtFiltro_ && e->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent*>(e)->key();
        if (k == Qt::Key_Up || k == Qt::Key_Down || k == Qt::Key_PageUp || k == Qt::Key_PageDown) {
            QApplication::sendEvent(grdResultados_, e);
            return true;
        }
    }
    return QDialog::eventFilter(o, e);
}

// ---------------------------------------------------------------- messages

namespace {

int Caja(QMessageBox::Icon icono, const QString& texto, bool pregunta) {
    QMessageBox m(icono, QString::fromUtf8(kTitulo), texto, QMessageBox::NoButton,
                  QApplication::activeWindow());
    AplicaColores(&m);
    QPushButton* si = nullptr;
    if (pregunta) {
        si = m.addButton(QStringLiteral("Sí"), QMessageBox::YesRole);
        m.addButton(QStringLiteral("No"), QMessageBox::NoRole);
        m.setDefaultButton(si);
    } else {
        m.setDefaultButton(m.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole));
        m.setEscapeButton(m.defaultButton());
    }
    m.exec();
    return si && m.clickedButton() == si ? RespuestaSi : RespuestaNo;
}

} // namespace

void MensajesQt::Mensaje(int numero, int, const QString& texto, int) {
    Caja(QMessageBox::Information, TextoMensaje(numero, texto), false);
}

int MensajesQt::Pregunta(int numero, int, const QString& texto, int, int) {
    return Caja(QMessageBox::Question, TextoMensaje(numero, texto), true);
}

QString MensajesQt::PideTexto(int, int, const QString& indicacion, int, int, int) {
    QInputDialog d(QApplication::activeWindow());
    AplicaColores(&d);
    d.setWindowTitle(QString::fromUtf8(kTitulo));
    d.setLabelText(indicacion);
    d.setOkButtonText(QStringLiteral("Aceptar"));
    d.setCancelButtonText(QStringLiteral("Cancelar"));
    return d.exec() == QDialog::Accepted ? d.textValue() : QString();
}

void MensajesQt::MuestraError(qint64 numero, const QString& descripcion, int) {
    Caja(QMessageBox::Critical, QStringLiteral("Error %1\n%2").arg(numero).arg(descripcion), false);
}

// ---------------------------------------------------------------- pickers

void BusquedaQt::Mostrar(const QString& conexion, std::uint8_t, const QString& ayuda,
                         const QString&, const QString& catalogo, const QString& filtro, int) {
    resultado_.clear();
    Conexion cn;
    const ListaBusqueda l = ListaCatalogo(AbreConexionPropia(cn, conexion), catalogo);
    cn.Cerrar();
    resultado_ = MuestraBusqueda(l, filtro, ayuda);
}

void BuscaDocumentoQt::Mostrar(const QString& conexion, std::uint8_t, const QString& ayuda,
                               const QString&, int, int tipoDocumento, const QString&,
                               const QString&, bool, const QString&, const QString&) {
    resultado_.clear();
    Conexion cn;
    const ListaBusqueda l = ListaDocumentos(AbreConexionPropia(cn, conexion), tipoDocumento);
    cn.Cerrar();
    resultado_ = MuestraBusqueda(l, QString(), ayuda);
}

void BuscaArticuloQt::Mostrar(const QString& conexion, std::uint8_t, const QString& ayuda, int,
                              const QString& texto, const QString&, bool verColumnaExtra) {
    resultado_.clear();
    Conexion cn;
    const ListaBusqueda l = ListaArticulos(AbreConexionPropia(cn, conexion), verColumnaExtra);
    cn.Cerrar();
    resultado_ = MuestraBusqueda(l, texto, ayuda);
}

// ---------------------------------------------------------------- exporter

int ExportaExcelQt::Exporta(Recordset& rs, const QString& nombre, const QString& rutaBaseDeDatos) {
    const QString archivo = servicios::RutaExcel(nombre, rutaBaseDeDatos);
    const int filas = servicios::EscribeXlsx(rs, archivo, *this);
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(archivo).absoluteFilePath()));
    return filas;
}

namespace servicios {

Fabricas FabricasQtInternas() {
    Fabricas f;
    f.mensajes = [] { return std::make_unique<MensajesQt>(); };
    f.busqueda = [] { return std::make_unique<BusquedaQt>(); };
    f.buscaDocumento = [] { return std::make_unique<BuscaDocumentoQt>(); };
    f.buscaArticulo = [] { return std::make_unique<BuscaArticuloQt>(); };
    f.exportaExcel = [] { return std::make_unique<ExportaExcelQt>(); };
    return f;
}

} // namespace servicios
} // namespace consultas
