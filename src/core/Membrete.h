#pragma once
// The company letterhead at the head of every report page: read once when a
// screen starts, composed into printable lines, drawn by the page headings.

#include "core/Conexion.h"

#include <QString>
#include <functional>

namespace consultas {

class Superficie;

namespace modConCompras {
extern bool VerNombreEmpresa;
extern bool VerNombreComercial;
extern QString EmpNombre;
extern QString EmpComercial;
extern QString EmpDireccion;
extern QString EmpRfc1;
extern QString EmpRfc2;
extern QString EmpRfc3;
extern QString EmpTelefonos;
extern QString EmpCiudadEstado;

// Reads the letterhead of a company (0 means 1). The screens always pass 1.
// A Null legal or trade name, tax identifier or first telephone is not
// guarded: the read fails and the failure escapes.
void LeeEmpresa(Conexion& conexion, int empresa);
} // namespace modConCompras

// How the three screens' headings differ.
struct VarianteMembrete {
    int xBanda = 6910;           // x of the sub-title band (purchasing: 6900)
    bool restaurarEstado = true; // false: the caller restores after its column titles
    // Drawn after the date and before the rules (the budget list's year).
    std::function<void(Superficie&, int y)> extra;
};

// Draws the block at y with the report's title, and returns the y below the
// double rule (the new lnLinea). The drawing state is saved on entry and
// restored at the end unless the variant says the caller will.
int DibujaMembrete(Superficie& s, int y, const QString& titulo,
                   const VarianteMembrete& variante = {});

} // namespace consultas
