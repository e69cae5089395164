#pragma once
// A small budget database whose figures the report tests work out by hand,
// and a runner that takes a report through the page run on its own surface.

#include "GeneradorDemo.h"
#include "core/Membrete.h"
#include "core/modConCompras.h"
#include "presupuestos/ReportesPresupuesto.h"
#include "soporte/Soporte.h"

#include <QTemporaryDir>

namespace presup {

// Centres 1 ADMINISTRACION and 2 VENTAS. Concepts 10, 11, 12 in centre 1 and
// 20, 21 in centre 2.
//   2025: 10 annual 1000 (enero 90, diciembre 200), 20 annual 500 (marzo 400).
//   2026: 10 annual 1200 (enero 100+10, applied 50+5, left 55; febrero 100,
//         applied 80, left 20); 11 annual 0 (enero applied 30, left -30);
//         12 annual 300 with no months; 20 annual 1000 (marzo 1000, applied
//         250, left 750). 21 has no budget at all.
// Transfers of March 2026, see the Traspasados tests.
inline void CreaFixtura(pruebas::BaseDePrueba& b) {
    b.Ejecuta(consultas::demo::SentenciasEsquema(b.EsPostgres(), false));
    b.Ejecuta({
        "INSERT INTO tblCentrosCostos VALUES (1, 'ADMINISTRACION')",
        "INSERT INTO tblCentrosCostos VALUES (2, 'VENTAS')",
        "INSERT INTO tblConDePresu VALUES (10, 'PAPELERIA', 1)",
        "INSERT INTO tblConDePresu VALUES (11, 'ENERGIA ELECTRICA', 1)",
        "INSERT INTO tblConDePresu VALUES (12, 'MANTENIMIENTO', 1)",
        "INSERT INTO tblConDePresu VALUES (20, 'VIATICOS', 2)",
        "INSERT INTO tblConDePresu VALUES (21, 'PUBLICIDAD', 2)",
        "INSERT INTO tblDefPresupuesto VALUES (10, 2025, 1000)",
        "INSERT INTO tblDefPresupuesto VALUES (10, 2026, 1200)",
        "INSERT INTO tblDefPresupuesto VALUES (11, 2026, 0)",
        "INSERT INTO tblDefPresupuesto VALUES (12, 2026, 300)",
        "INSERT INTO tblDefPresupuesto VALUES (20, 2025, 500)",
        "INSERT INTO tblDefPresupuesto VALUES (20, 2026, 1000)",
        "INSERT INTO tblDefPresupuestoRen VALUES (10, 2025, 1, 90, 0, 40, 0, 50)",
        "INSERT INTO tblDefPresupuestoRen VALUES (10, 2025, 12, 200, 0, 100, 0, 100)",
        "INSERT INTO tblDefPresupuestoRen VALUES (10, 2026, 1, 100, 10, 50, 5, 55)",
        "INSERT INTO tblDefPresupuestoRen VALUES (10, 2026, 2, 100, 0, 80, 0, 20)",
        "INSERT INTO tblDefPresupuestoRen VALUES (11, 2026, 1, 0, 0, 30, 0, -30)",
        "INSERT INTO tblDefPresupuestoRen VALUES (20, 2025, 3, 400, 0, 100, 0, 300)",
        "INSERT INTO tblDefPresupuestoRen VALUES (20, 2026, 3, 1000, 0, 250, 0, 750)",
        "INSERT INTO tblUsuarios VALUES ('ANA', 'Ana López')",
        // In the range of March 2026: two of concept 10 (one by a user and to a
        // concept that no longer exist) and one of concept 12.
        "INSERT INTO tblBitacora VALUES ('TRPR', 2, '10', '11', 'ANA', '2026-03-01 09:15:00', "
        "'03/2026', '04/2026', 150.5)",
        "INSERT INTO tblBitacora VALUES ('TRPR', 2, '10', '99', 'BETO', '2026-03-10 12:00:00', "
        "'03/2026', '05/2026', 1234.5)",
        "INSERT INTO tblBitacora VALUES ('TRPR', 2, '12', '20', 'ANA', '2026-03-20 08:00:00', "
        "'03/2026', '03/2026', 75)",
        // Outside: a time of day on the last date, another operation, another
        // log kind, the day before the range.
        "INSERT INTO tblBitacora VALUES ('TRPR', 2, '10', '12', 'ANA', '2026-03-31 18:30:00', "
        "'03/2026', '06/2026', 10)",
        "INSERT INTO tblBitacora VALUES ('TRPR', 1, '10', '12', 'ANA', '2026-03-05 10:00:00', "
        "'03/2026', '06/2026', 20)",
        "INSERT INTO tblBitacora VALUES ('XXXX', 2, '20', '10', 'ANA', '2026-03-05 10:00:00', "
        "'03/2026', '06/2026', 30)",
        "INSERT INTO tblBitacora VALUES ('TRPR', 2, '20', '10', 'ANA', '2026-02-28 23:00:00', "
        "'02/2026', '06/2026', 40)",
    });
}

// Runs one report on a surface of its own with a plain letterhead (company
// not found, no name lines: the rules end at y 1000) and returns the
// numbered document.
class Ejecutor {
public:
    Ejecutor() {
        namespace m = consultas::modConCompras;
        anterior_ = m::DirectorioConsultas;
        m::DirectorioConsultas = dir_.path() + "/";
        m::ManejadorBaseDatos = 4;
        m::VerNombreEmpresa = m::VerNombreComercial = false;
        m::EmpNombre = "NO ENCONTRADA";
        m::EmpComercial.clear();
        m::EmpDireccion.clear();
        m::EmpRfc1.clear();
        m::EmpRfc2.clear();
        m::EmpRfc3.clear();
        m::EmpTelefonos.clear();
    }
    ~Ejecutor() { consultas::modConCompras::DirectorioConsultas = anterior_; }

    consultas::Documento Corre(consultas::Conexion& conexion,
                               const consultas::ValoresPresupuesto& v) {
        using namespace consultas;
        CorridaPaginas corrida;
        Superficie superficie;
        Documento documento;
        corrida.Ocupado = [](bool) {};
        corrida.Encabezado = [&](int tipo) {
            EncabezadoPresup(corrida, v, TituloEncabezado(tipo));
        };
        corrida.Mostrar = [&](Superficie& s) { documento = s.Doc(); };
        corrida.EjecutarConsulta(superficie, [&] { ReportePresupuesto(corrida, conexion, v); });
        return documento;
    }

private:
    QTemporaryDir dir_;
    QString anterior_;
};

} // namespace presup
