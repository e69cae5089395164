#include "presupuestos/frmConPresup.h"

#include "core/Membrete.h"
#include "core/modConCompras.h"
#include "services/Servicios.h"
#include "services/ServiciosQt.h"
#include "surface/VistaPrevia.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDesktopServices>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace consultas {

namespace m = modConCompras;

namespace {

// The host's call and the batch host find the screen by its kind.
const bool registrada = [] {
    m::RegistraPantalla(ConsultasDePresupuestos,
                        [] { return std::unique_ptr<QDialog>(new frmConPresup); });
    return true;
}();

QString Indexado(const char* nombre, int i) {
    return QString("%1[%2]").arg(QLatin1String(nombre)).arg(i);
}

QLabel* Etiqueta(const QString& texto, const QString& nombre, QWidget* padre) {
    auto* l = new QLabel(texto, padre);
    l->setObjectName(nombre);
    return l;
}

QLineEdit* CajaCodigo(const QString& nombre, QWidget* padre) {
    auto* t = new QLineEdit("0", padre);
    t->setObjectName(nombre);
    t->setMaxLength(9);
    t->setMaximumWidth(90);
    return t;
}

} // namespace

frmConPresup::frmConPresup(QWidget* padre) : PantallaBase(padre) {
    setWindowTitle("CONSULTAS DE PRESUPUESTOS");
    setObjectName("frmConPresup");
    CreaControles();

    // Colours: panels in the screens' panel colour, buttons in theirs.
    AplicaColores(this);
    PintaFondo(this, ColorPanel());
    for (QGroupBox* f : fmeDatos_)
        if (f)
            PintaFondo(f, ColorPanel());
    for (QRadioButton* o : opcTipo_)
        PintaFondo(o, ColorPanel());
    PintaFondo(chkAplicado_, ColorPanel());
    for (QPushButton* b : cmdFunciones_)
        PintaFondo(b, ColorBoton());
    for (QPushButton* b : cmdBusCon_)
        PintaFondo(b, ColorBoton());
    cmdFunciones_[0]->setIcon(style()->standardIcon(QStyle::SP_FileDialogContentsView));
    cmdFunciones_[1]->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    cmdFunciones_[2]->setIcon(style()->standardIcon(QStyle::SP_DialogHelpButton));

    m::DirectorioConsultas = m::LeeDirectorioConsultas();

    const QString ano = QString::number(QDate::currentDate().year());
    for (QLineEdit* t : txtAnoRan_)
        t->setText(ano);
    for (QDateEdit* d : dtpFecha_)
        d->setDate(QDate::currentDate());

    cmbConsulta_->setCurrentIndex(0);
    SeleccionaConsulta(0);
    cmbConsulta_->view()->setMinimumWidth(610);

    if (m::ConexionCompartida)
        m::LeeEmpresa(*m::ConexionCompartida, 1);

    // The screen sees keys before its controls do.
    installEventFilter(this);
    for (QWidget* w : findChildren<QWidget*>())
        w->installEventFilter(this);

    corrida_.Encabezado = [this](int tipo) {
        const QString titulo = TituloEncabezado(tipo);
        if (!titulo.isEmpty())
            EncabezadoPresup(corrida_, valores_, titulo);
    };
    corrida_.Mostrar = vista::Muestra;
}

void frmConPresup::CreaControles() {
    auto* raiz = new QVBoxLayout(this);

    cmbConsulta_ = new QComboBox(this);
    cmbConsulta_->setObjectName("cmbConsulta");
    cmbConsulta_->addItems({"Relación de Presupuestos", "Comparativo", "Presupuestos Traspasados"});
    raiz->addWidget(cmbConsulta_);

    for (int i = 1; i <= 5; ++i) {
        fmeDatos_[i] = new QGroupBox(this);
        fmeDatos_[i]->setObjectName(Indexado("fmeDatos", i));
    }

    // Frame 3: the code boxes, always on show.
    {
        auto* g = new QGridLayout(fmeDatos_[3]);
        g->addWidget(Etiqueta("Concepto", "lblConcepto", fmeDatos_[3]), 0, 0);
        txtCodCPRE_ = CajaCodigo("txtCodCPRE", fmeDatos_[3]);
        g->addWidget(txtCodCPRE_, 0, 1);
        cmdBusCon_[0] = new QPushButton("...", fmeDatos_[3]);
        g->addWidget(cmdBusCon_[0], 0, 2);
        lblConPre_ = Etiqueta(QString(), "lblConPre", fmeDatos_[3]);
        lblConPre_->setMinimumWidth(260);
        g->addWidget(lblConPre_, 0, 3);
        g->addWidget(Etiqueta("Centro de Costo", "lblCentro", fmeDatos_[3]), 1, 0);
        txtCodCCOS_ = CajaCodigo("txtCodCCOS", fmeDatos_[3]);
        g->addWidget(txtCodCCOS_, 1, 1);
        cmdBusCon_[1] = new QPushButton("...", fmeDatos_[3]);
        g->addWidget(cmdBusCon_[1], 1, 2);
        lblDesCC_ = Etiqueta(QString(), "lblDesCC", fmeDatos_[3]);
        g->addWidget(lblDesCC_, 1, 3);
        g->setColumnStretch(3, 1);
        for (int i = 0; i < 2; ++i) {
            cmdBusCon_[i]->setObjectName(Indexado("cmdBusCon", i));
            cmdBusCon_[i]->setMaximumWidth(32);
        }
    }
    // Frame 2: the form of the report.
    {
        auto* h = new QHBoxLayout(fmeDatos_[2]);
        lblDato_[2] = Etiqueta("Tipo", Indexado("lblDato", 2), fmeDatos_[2]);
        h->addWidget(lblDato_[2]);
        const char* textos[] = {"Detallado", "Resumido"};
        for (int i = 0; i < 2; ++i) {
            opcTipo_[i] = new QRadioButton(textos[i], fmeDatos_[2]);
            opcTipo_[i]->setObjectName(Indexado("opcTipo", i));
            h->addWidget(opcTipo_[i]);
        }
        opcTipo_[0]->setChecked(true);
        h->addStretch();
    }

    // A year box with its spinner of two arrows.
    auto ano = [this](int i, QWidget* padre, QBoxLayout* h) {
        txtAnoRan_[i] = new QLineEdit(padre);
        txtAnoRan_[i]->setObjectName(Indexado("txtAnoRan", i));
        txtAnoRan_[i]->setMaximumWidth(60);
        h->addWidget(txtAnoRan_[i]);
        udnAno_[i] = new QWidget(padre);
        udnAno_[i]->setObjectName(Indexado("udnAno", i));
        auto* v = new QVBoxLayout(udnAno_[i]);
        v->setContentsMargins(0, 0, 0, 0);
        v->setSpacing(0);
        const struct {
            const char* nombre;
            Qt::ArrowType flecha;
            int paso;
        } flechas[] = {{"arriba", Qt::UpArrow, 1}, {"abajo", Qt::DownArrow, -1}};
        for (const auto& f : flechas) {
            auto* b = new QToolButton(udnAno_[i]);
            b->setObjectName(f.nombre);
            b->setArrowType(f.flecha);
            b->setFixedSize(18, 11);
            const int paso = f.paso;
            connect(b, &QToolButton::clicked, this, [this, i, paso] { CambiaAno(i, paso); });
            v->addWidget(b);
        }
        h->addWidget(udnAno_[i]);
    };
    // Frame 1: the year of Relación.
    {
        auto* h = new QHBoxLayout(fmeDatos_[1]);
        lblDato_[1] = Etiqueta("Año", Indexado("lblDato", 1), fmeDatos_[1]);
        h->addWidget(lblDato_[1]);
        ano(2, fmeDatos_[1], h);
        h->addStretch();
    }
    // Frame 5: the two years of Comparativo.
    {
        auto* h = new QHBoxLayout(fmeDatos_[5]);
        lblDato_[5] = Etiqueta("Comparativo", Indexado("lblDato", 5), fmeDatos_[5]);
        h->addWidget(lblDato_[5]);
        lblDatos_[5] = Etiqueta("Del", Indexado("lblDatos", 5), fmeDatos_[5]);
        h->addWidget(lblDatos_[5]);
        ano(0, fmeDatos_[5], h);
        lblDatos_[6] = Etiqueta("al", Indexado("lblDatos", 6), fmeDatos_[5]);
        h->addWidget(lblDatos_[6]);
        ano(1, fmeDatos_[5], h);
        chkAplicado_ = new QCheckBox("  Aplicado", fmeDatos_[5]);
        chkAplicado_->setObjectName("chkAplicado");
        h->addWidget(chkAplicado_);
        h->addStretch();
    }
    // Frame 4: the date range of Traspasados.
    {
        auto* h = new QHBoxLayout(fmeDatos_[4]);
        for (int i = 0; i < 2; ++i) {
            lblDatos_[3 + i] =
                Etiqueta(i == 0 ? "Del" : "al", Indexado("lblDatos", 3 + i), fmeDatos_[4]);
            h->addWidget(lblDatos_[3 + i]);
            dtpFecha_[i] = new QDateEdit(fmeDatos_[4]);
            dtpFecha_[i]->setObjectName(Indexado("dtpFecha", i));
            dtpFecha_[i]->setDisplayFormat("dd/MM/yyyy");
            dtpFecha_[i]->setCalendarPopup(true);
            h->addWidget(dtpFecha_[i]);
        }
        h->addStretch();
    }
    raiz->addWidget(fmeDatos_[3]);
    raiz->addWidget(fmeDatos_[2]);
    raiz->addWidget(fmeDatos_[1]);
    raiz->addWidget(fmeDatos_[5]);
    raiz->addWidget(fmeDatos_[4]);
    raiz->addStretch();

    auto* botones = new QHBoxLayout;
    const char* captions[] = {"CONSULTAR [F10]", "SALIR [ESC]", "AYUDA [F1]"};
    for (int i = 0; i < 3; ++i) {
        cmdFunciones_[i] = new QPushButton(captions[i], this);
        cmdFunciones_[i]->setObjectName(Indexado("cmdFunciones", i));
        cmdFunciones_[i]->setAutoDefault(false);
        connect(cmdFunciones_[i], &QPushButton::clicked, this,
                [this, i] { EjecutaProtegido([this, i] { Funcion(i); }); });
        botones->addWidget(cmdFunciones_[i]);
    }
    raiz->addLayout(botones);

    connect(cmbConsulta_, &QComboBox::currentIndexChanged, this,
            [this](int i) { EjecutaProtegido([this, i] { SeleccionaConsulta(i); }); });
    connect(cmdBusCon_[0], &QPushButton::clicked, this,
            [this] { EjecutaProtegido([this] { BuscaConcepto(); }); });
    connect(cmdBusCon_[1], &QPushButton::clicked, this,
            [this] { EjecutaProtegido([this] { BuscaCentro(); }); });
    connect(txtCodCPRE_, &QLineEdit::editingFinished, this,
            [this] { EjecutaProtegido([this] { TecleaConcepto(); }); });
    connect(txtCodCCOS_, &QLineEdit::editingFinished, this,
            [this] { EjecutaProtegido([this] { TecleaCentro(); }); });
}

void frmConPresup::SeleccionaConsulta(int indice) {
    // A known state first: "Tipo" on show, every other group hidden or off.
    for (int i : {1, 4, 5})
        fmeDatos_[i]->hide();
    fmeDatos_[2]->show();
    lblDato_[2]->show();
    for (QRadioButton* o : opcTipo_)
        o->show();
    for (int i : {1, 5})
        lblDato_[i]->hide();
    for (int i = 3; i <= 6; ++i)
        lblDatos_[i]->hide();
    for (int i = 0; i < 3; ++i) {
        txtAnoRan_[i]->setEnabled(false);
        udnAno_[i]->setEnabled(false);
    }
    for (QDateEdit* d : dtpFecha_)
        d->setEnabled(false);
    chkAplicado_->hide();

    switch (indice) {
    case RelacionDePresupuestos:
        fmeDatos_[1]->show();
        lblDato_[1]->show();
        txtAnoRan_[2]->setEnabled(true);
        udnAno_[2]->setEnabled(true);
        break;
    case ComparativoDePresupuestos:
        fmeDatos_[5]->show();
        lblDato_[5]->show();
        lblDatos_[5]->show();
        lblDatos_[6]->show();
        for (int i = 0; i < 2; ++i) {
            txtAnoRan_[i]->setEnabled(true);
            udnAno_[i]->setEnabled(true);
        }
        chkAplicado_->show();
        break;
    case PresupuestosTraspasados:
        fmeDatos_[4]->show();
        lblDatos_[3]->show();
        lblDatos_[4]->show();
        for (QDateEdit* d : dtpFecha_)
            d->setEnabled(true);
        // opcTipo keeps its value; this report does not read it.
        fmeDatos_[2]->hide();
        lblDato_[2]->hide();
        for (QRadioButton* o : opcTipo_)
            o->hide();
        break;
    default:
        break;
    }
}

bool frmConPresup::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const auto* tecla = static_cast<QKeyEvent*>(evento);
        int boton = -1;
        switch (tecla->key()) {
        case Qt::Key_F10:
            boton = 0;
            break;
        case Qt::Key_Escape:
            boton = 1;
            break;
        case Qt::Key_F1:
            boton = 2;
            break;
        default:
            break;
        }
        if (boton >= 0) {
            EjecutaProtegido([this, boton] { Funcion(boton); });
            return true;
        }
    }
    return PantallaBase::eventFilter(objeto, evento);
}

void frmConPresup::Funcion(int indice) {
    switch (indice) {
    case 0:
        // Both code boxes must hold something; otherwise the button is
        // silently refused.
        if (!txtCodCCOS_->text().isEmpty() && !txtCodCPRE_->text().isEmpty())
            EjecutarConsulta();
        break;
    case 1:
        reject();
        break;
    case 2:
        QDesktopServices::openUrl(QUrl::fromLocalFile(m::ArchivoDeAyuda));
        break;
    default:
        break;
    }
}

void frmConPresup::Consultar() {
    EjecutaProtegido([this] { Funcion(0); });
}

ValoresPresupuesto frmConPresup::Valores() const {
    ValoresPresupuesto v;
    v.consulta = cmbConsulta_->currentIndex();
    v.codConcepto = txtCodCPRE_->text();
    v.codCentro = txtCodCCOS_->text();
    for (int i = 0; i < 3; ++i)
        v.anos[static_cast<size_t>(i)] = txtAnoRan_[i]->text();
    v.tipo = opcTipo_[1]->isChecked() ? 1 : 0;
    v.aplicado = chkAplicado_->isChecked();
    for (int i = 0; i < 2; ++i)
        v.fechas[static_cast<size_t>(i)] = dtpFecha_[i]->date();
    return v;
}

void frmConPresup::EjecutarConsulta() {
    valores_ = Valores();
    if (!m::ConexionCompartida)
        throw ErrorConsulta("No hay conexión con la base de datos.");
    Conexion& conexion = *m::ConexionCompartida;
    corrida_.EjecutarConsulta(vista::SuperficieCompartida(),
                              [&] { ReportePresupuesto(corrida_, conexion, valores_); });
}

void frmConPresup::BuscaConcepto() {
    QString codigo;
    {
        auto busqueda = servicios::CreaBusqueda();
        busqueda->Mostrar(m::ConexionBaseDatos, static_cast<std::uint8_t>(m::ManejadorBaseDatos),
                          m::ArchivoDeAyuda, m::DirectorioConsultas, "CONPRESUPUESTOS", QString(),
                          0);
        codigo = busqueda->Resultado();
    }
    if (codigo.isEmpty())
        return;
    centroElegido_ = 0;
    conceptoElegido_ = 0;
    CargaConcepto(QString::number(NumeroDeTexto(codigo)));
}

void frmConPresup::BuscaCentro() {
    QString codigo;
    {
        auto busqueda = servicios::CreaBusqueda();
        busqueda->Mostrar(m::ConexionBaseDatos, static_cast<std::uint8_t>(m::ManejadorBaseDatos),
                          m::ArchivoDeAyuda, m::DirectorioConsultas, "CCOSTOS", QString(), 0);
        codigo = busqueda->Resultado();
    }
    if (codigo.isEmpty())
        return;
    centroElegido_ = static_cast<int>(NumeroDeTexto(codigo));
    conceptoElegido_ = 0;
    txtCodCPRE_->setText("0");
    lblConPre_->clear();
    txtCodCCOS_->setText(QString::number(centroElegido_));
    CargaCentro(QString::number(centroElegido_));
}

void frmConPresup::CargaConcepto(const QString& codigo) {
    auto rsAux = m::ConexionCompartida->Abre(
        "SELECT COD_CPRE,DES_CPRE,COD_CCOS FROM tblConDePresu WHERE COD_CPRE=" + codigo + ";");
    if (!rsAux->Eof()) {
        txtCodCPRE_->setText(rsAux->Campo("COD_CPRE").Texto());
        lblConPre_->setText(rsAux->Campo("DES_CPRE").Texto());
        centroElegido_ = static_cast<int>(rsAux->Campo("COD_CCOS").Entero());
        conceptoElegido_ = static_cast<int>(rsAux->Campo("COD_CPRE").Entero());
        txtCodCCOS_->setText(QString::number(centroElegido_));
        // A concept fixes its centre.
        txtCodCCOS_->setEnabled(false);
        cmdBusCon_[1]->setEnabled(false);
    }
    rsAux.reset();
    if (centroElegido_ > 0)
        CargaCentro(QString::number(centroElegido_));
}

void frmConPresup::CargaCentro(const QString& codigo) {
    auto rsAux = m::ConexionCompartida->Abre(
        "SELECT COD_CCOS,DES_CCOS FROM tblCentrosCostos WHERE COD_CCOS=" + codigo + ";");
    if (!rsAux->Eof())
        lblDesCC_->setText(rsAux->Campo("DES_CCOS").Texto());
}

void frmConPresup::TecleaCentro() {
    if (txtCodCCOS_->text().isEmpty())
        txtCodCCOS_->setText("0");
    auto rsAux = m::ConexionCompartida->Abre(
        "SELECT COD_CCOS,DES_CCOS FROM tblCentrosCostos WHERE COD_CCOS=" + txtCodCCOS_->text() +
        ";");
    lblDesCC_->setText(rsAux->Eof() ? QString() : rsAux->Campo("DES_CCOS").Texto());
}

void frmConPresup::TecleaConcepto() {
    if (txtCodCPRE_->text().isEmpty())
        txtCodCPRE_->setText("0");
    auto rsAux = m::ConexionCompartida->Abre(
        "SELECT COD_CPRE,DES_CPRE,tblConDePresu.COD_CCOS,DES_CCOS FROM tblConDePresu INNER JOIN "
        "tblCentrosCostos ON tblConDePresu.COD_CCOS=tblCentrosCostos.COD_CCOS WHERE COD_CPRE=" +
        txtCodCPRE_->text() + ";");
    if (!rsAux->Eof()) {
        lblConPre_->setText(rsAux->Campo("DES_CPRE").Texto());
        lblDesCC_->setText(rsAux->Campo("DES_CCOS").Texto());
        txtCodCCOS_->setText(rsAux->Campo("COD_CCOS").Texto());
        txtCodCCOS_->setEnabled(false);
        cmdBusCon_[1]->setEnabled(false);
    } else {
        lblConPre_->clear();
        txtCodCCOS_->setEnabled(true);
        cmdBusCon_[1]->setEnabled(true);
    }
}

void frmConPresup::CambiaAno(int indice, int paso) {
    txtAnoRan_[indice]->setText(QString::number(NumeroDeTexto(txtAnoRan_[indice]->text()) + paso));
}

} // namespace consultas
