#include "core/Membrete.h"

#include "core/Formato.h"
#include "surface/Superficie.h"

#include <QDate>

namespace consultas {
namespace modConCompras {

bool VerNombreEmpresa = false;
bool VerNombreComercial = false;
QString EmpNombre, EmpComercial, EmpDireccion, EmpRfc1, EmpRfc2, EmpRfc3, EmpTelefonos,
    EmpCiudadEstado;

namespace {

// The flag columns hold text such as "1"; "0" + text read as a number is 1
// only for a one. A Null reads as 0.
bool Bandera(const Valor& v) {
    return ("0" + v.Texto()).toDouble() == 1.0;
}

// A column that must not be Null: the read fails as an unguarded
// conversion of Null to text would.
QString Obligado(const Recordset& rs, const char* campo) {
    const Valor v = rs.Campo(campo);
    if (v.EsNulo())
        throw ErrorConsulta(
            QString("Uso no válido de Null en el campo %1 de tblEmpresa.").arg(campo));
    return v.Texto();
}

} // namespace

void LeeEmpresa(Conexion& conexion, int empresa) {
    EmpNombre.clear();
    EmpComercial.clear();
    EmpDireccion.clear();
    EmpRfc1.clear();
    EmpRfc2.clear();
    EmpRfc3.clear();
    EmpTelefonos.clear();
    EmpCiudadEstado.clear();
    if (empresa == 0)
        empresa = 1;
    {
        auto rs = conexion.Abre("SELECT REP_NOMEMP,REP_NOMCOM FROM tblParametrosGenerales;");
        if (!rs->Eof()) {
            VerNombreEmpresa = Bandera(rs->Campo("REP_NOMEMP"));
            VerNombreComercial = Bandera(rs->Campo("REP_NOMCOM"));
        }
    }
    auto rs = conexion.Abre(
        "SELECT * FROM tblEmpresa WHERE COD_EMPRESA=" + QString::number(empresa) + ";");
    if (rs->Eof()) {
        EmpNombre = "NO ENCONTRADA";
        return;
    }
    EmpNombre = Obligado(*rs, "NOM_EMP");
    EmpComercial = Obligado(*rs, "NOM_COM");
    EmpDireccion = rs->Campo("DIR1_EMP").Texto();
    const auto agrega = [&](const char* campo, const QString& antes) {
        const QString t = rs->Campo(campo).Texto();
        if (!t.isEmpty())
            EmpDireccion += antes + t;
    };
    agrega("EXT_EMP", " ");
    agrega("INT_EMP", " - ");
    agrega("COL_EMP", " ");
    agrega("CP_EMP", " CP ");
    QString* rfcs[] = {&EmpRfc1, &EmpRfc2, &EmpRfc3};
    for (int n = 1; n <= 3; ++n) {
        const QString descripcion = rs->Campo(QString("DESCRIP%1").arg(n)).Texto();
        const QString rfc = Obligado(*rs, QString("RFC%1_EMP").arg(n).toLatin1().constData());
        *rfcs[n - 1] = (descripcion.isEmpty() ? QString() : descripcion + ": ") + rfc;
    }
    EmpTelefonos = Obligado(*rs, "TEL1_EMP");
    const QString tel2 = rs->Campo("TEL2_EMP").Texto();
    if (!tel2.isEmpty())
        EmpTelefonos += ", " + tel2;
    const QString ciudad = rs->Campo("COD_CD").Texto();
    const QString estado = rs->Campo("COD_EDO").Texto();
    rs.reset();
    if (!ciudad.isEmpty()) {
        auto c = conexion.Abre("SELECT DES_CID FROM tblCiudad WHERE COD_CID='" + ciudad + "';");
        if (!c->Eof())
            EmpCiudadEstado = c->Campo("DES_CID").Texto();
    }
    if (!estado.isEmpty()) {
        auto e = conexion.Abre("SELECT DES_EST FROM tblEstado WHERE COD_EST='" + estado + "';");
        if (!e->Eof())
            EmpCiudadEstado +=
                (EmpCiudadEstado.isEmpty() ? "" : ", ") + e->Campo("DES_EST").Texto();
    }
}

} // namespace modConCompras

int DibujaMembrete(Superficie& s, int y, const QString& titulo, const VarianteMembrete& variante) {
    namespace m = modConCompras;
    int h = 0;
    s.SaveState();
    s.ForeColor = ColorAzul;
    s.FontFace = FuenteSans;
    s.TextAlign = AlineaIzquierda;
    s.FontBold = false;
    s.FontSize = 8;
    if (m::VerNombreEmpresa) {
        s.TextOut(0, y + h, m::EmpNombre);
        h += 240;
    }
    if (m::VerNombreComercial) {
        s.TextOut(0, y + h, m::EmpComercial);
        h += 240;
    }
    s.TextOut(0, y + h, "Dirección :" + m::EmpDireccion);
    h += 240;
    // Only the test trims: an empty first identifier leaves two blanks ahead.
    const QString rfcs = m::EmpRfc1 + "  " + m::EmpRfc2 + "  " + m::EmpRfc3;
    if (!rfcs.trimmed().isEmpty()) {
        s.TextOut(0, y + h, rfcs);
        h += 240;
    }
    if (!m::EmpTelefonos.trimmed().isEmpty()) {
        s.TextOut(0, y + h, "Teléfonos :" + m::EmpTelefonos);
        h += 240;
    }
    s.FillBand(variante.xBanda, y + 240, 4700, 200);
    s.TextOut(7000, y, "Reporte :" + titulo);
    s.TextOut(7000, y + 480, "Fecha   :" + FormatoFecha(QDate::currentDate(), "dd/mmm/yyyy"));
    if (variante.extra)
        variante.extra(s, y);
    // The block keeps its height whatever lines are missing, so the stamp at
    // y + 720 always has its place.
    if (h < 960)
        h = 960;
    s.DrawLine(0, y + h, 10500, y + h);
    h += 40;
    s.DrawLine(0, y + h, 10500, y + h);
    if (variante.restaurarEstado)
        s.RestoreState();
    return y + h;
}

} // namespace consultas
