#ifndef CONSULTAS_C_H
#define CONSULTAS_C_H
/* C entry point for hosts written in other languages. The calls mirror the
   public class: create an instance, show inquiries through it, destroy it.
   Texts are UTF-8. When the host has no Qt application object, the first
   call creates one. */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ConsultasInstancia ConsultasInstancia;

ConsultasInstancia* consultas_crea(void);
/* Shows the inquiry screen; returns 1 when the shared connection opened (a
   screen was reached) and 0 when it did not. */
int consultas_mostrar_consulta(ConsultasInstancia* instancia, int32_t consulta_activa,
                               const char* conexion, uint8_t manejador, int16_t empresa,
                               const char* archivo_ayuda, const char* ruta_base_datos);
void consultas_destruye(ConsultasInstancia* instancia);

#ifdef __cplusplus
}
#endif

#endif
