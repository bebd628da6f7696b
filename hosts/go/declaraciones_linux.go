//go:build linux

package kestra

/*
#cgo LDFLAGS: -lkestra
#include <kestra/kestra.h>
*/
import "C"

import "unsafe"

// ---- Principio y fin ----

// EP_Init: Lee Fiscal.ini y prepara el puerto.
// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
func EP_Init() int32 {
	return int32(C.EP_Init())
}

// EP_Kill: Suelta el puerto.
// Devuelve: No quiere decir nada.
func EP_Kill() int32 {
	return int32(C.EP_Kill())
}

// ---- Comprobantes fiscales ----

// EP_AbrirComprobanteFiscal: Abre una factura, un tique o una nota.
// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
// bytes cada uno.
func EP_AbrirComprobanteFiscal(tipo *byte, letra *byte, nombre1 *byte, nombre2 *byte, documento_tipo *byte, documento_numero *byte, responsabilidad_iva *byte, domicilio1 *byte, domicilio2 *byte, domicilio3 *byte, linea4 *byte, linea5 *byte, copias int32) int32 {
	return int32(C.EP_AbrirComprobanteFiscal((*C.char)(unsafe.Pointer(tipo)), (*C.char)(unsafe.Pointer(letra)), (*C.char)(unsafe.Pointer(nombre1)), (*C.char)(unsafe.Pointer(nombre2)), (*C.char)(unsafe.Pointer(documento_tipo)), (*C.char)(unsafe.Pointer(documento_numero)), (*C.char)(unsafe.Pointer(responsabilidad_iva)), (*C.char)(unsafe.Pointer(domicilio1)), (*C.char)(unsafe.Pointer(domicilio2)), (*C.char)(unsafe.Pointer(domicilio3)), (*C.char)(unsafe.Pointer(linea4)), (*C.char)(unsafe.Pointer(linea5)), C.int32_t(copias)))
}

// EP_ImprimirItem: Imprime una línea de venta.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
func EP_ImprimirItem(descripcion *byte, cantidad float64, precio float64, iva float64, impuestos_internos float64, extra1 *byte, extra2 *byte, extra3 *byte) int32 {
	return int32(C.EP_ImprimirItem((*C.char)(unsafe.Pointer(descripcion)), C.double(cantidad), C.double(precio), C.double(iva), C.double(impuestos_internos), (*C.char)(unsafe.Pointer(extra1)), (*C.char)(unsafe.Pointer(extra2)), (*C.char)(unsafe.Pointer(extra3))))
}

// EP_AnularItem: Imprime la anulación de una línea.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
func EP_AnularItem(descripcion *byte, cantidad float64, precio float64, iva float64, impuestos_internos float64, extra1 *byte, extra2 *byte, extra3 *byte) int32 {
	return int32(C.EP_AnularItem((*C.char)(unsafe.Pointer(descripcion)), C.double(cantidad), C.double(precio), C.double(iva), C.double(impuestos_internos), (*C.char)(unsafe.Pointer(extra1)), (*C.char)(unsafe.Pointer(extra2)), (*C.char)(unsafe.Pointer(extra3))))
}

// EP_ImprimirTextoFiscal: Imprime un renglón de texto dentro del comprobante.
// Textos: texto 26 bytes.
func EP_ImprimirTextoFiscal(texto *byte) int32 {
	return int32(C.EP_ImprimirTextoFiscal((*C.char)(unsafe.Pointer(texto))))
}

// EP_ImprimirTextoFiscalInterna: Imprime un renglón de texto terminado en cero.
func EP_ImprimirTextoFiscalInterna(texto *byte) int32 {
	return int32(C.EP_ImprimirTextoFiscalInterna((*C.char)(unsafe.Pointer(texto))))
}

// EP_CerrarComprobanteFiscal: Cierra el comprobante y da su número.
// Textos: tipo 2 bytes; letra 1 byte.
// Recibe: numero, hasta 8 bytes.
func EP_CerrarComprobanteFiscal(tipo *byte, letra *byte, numero *byte) int32 {
	return int32(C.EP_CerrarComprobanteFiscal((*C.char)(unsafe.Pointer(tipo)), (*C.char)(unsafe.Pointer(letra)), (*C.char)(unsafe.Pointer(numero))))
}

// EP_Cancelar: Cancela el comprobante abierto.
func EP_Cancelar() int32 {
	return int32(C.EP_Cancelar())
}

// ---- Totales y pagos ----

// EP_DescuentoGeneral: Le descuenta un importe al comprobante.
// Textos: descripcion 80 bytes.
func EP_DescuentoGeneral(descripcion *byte, monto float64) int32 {
	return int32(C.EP_DescuentoGeneral((*C.char)(unsafe.Pointer(descripcion)), C.double(monto)))
}

// EP_RecargoGeneral: Le suma un recargo al comprobante.
// Textos: descripcion 80 bytes.
func EP_RecargoGeneral(descripcion *byte, monto float64) int32 {
	return int32(C.EP_RecargoGeneral((*C.char)(unsafe.Pointer(descripcion)), C.double(monto)))
}

// EP_EspecificarPercepcionGlobal: Le suma una percepción al comprobante.
// Textos: descripcion 20 bytes; calificador 1 byte.
func EP_EspecificarPercepcionGlobal(descripcion *byte, monto float64, iva float64, calificador *byte) int32 {
	return int32(C.EP_EspecificarPercepcionGlobal((*C.char)(unsafe.Pointer(descripcion)), C.double(monto), C.double(iva), (*C.char)(unsafe.Pointer(calificador))))
}

// EP_ImprimirPago: Imprime una línea de pago.
// Textos: descripcion 80 bytes.
func EP_ImprimirPago(descripcion *byte, monto float64) int32 {
	return int32(C.EP_ImprimirPago((*C.char)(unsafe.Pointer(descripcion)), C.double(monto)))
}

// EP_AjusteRedondeo: Agrega líneas hasta que el total sea el que se dice.
func EP_AjusteRedondeo(total float64) int32 {
	return int32(C.EP_AjusteRedondeo(C.double(total)))
}

// ---- Otros documentos ----

// EP_AbrirComprobanteNoFiscalHomologado: Abre un documento no fiscal homologado.
// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
func EP_AbrirComprobanteNoFiscalHomologado(tipo *byte, marca1 *byte, linea1 *byte, linea2 *byte, documento_tipo *byte, documento_numero *byte, marca2 *byte, domicilio *byte, linea4 *byte, linea5 *byte, linea6 *byte, linea7 *byte, cantidad int32) int32 {
	return int32(C.EP_AbrirComprobanteNoFiscalHomologado((*C.char)(unsafe.Pointer(tipo)), (*C.char)(unsafe.Pointer(marca1)), (*C.char)(unsafe.Pointer(linea1)), (*C.char)(unsafe.Pointer(linea2)), (*C.char)(unsafe.Pointer(documento_tipo)), (*C.char)(unsafe.Pointer(documento_numero)), (*C.char)(unsafe.Pointer(marca2)), (*C.char)(unsafe.Pointer(domicilio)), (*C.char)(unsafe.Pointer(linea4)), (*C.char)(unsafe.Pointer(linea5)), (*C.char)(unsafe.Pointer(linea6)), (*C.char)(unsafe.Pointer(linea7)), C.int32_t(cantidad)))
}

// EP_CerrarComprobanteNoFiscalHomologado: Cierra el documento homologado.
// Textos: tipo 2 bytes; marca 1 byte.
func EP_CerrarComprobanteNoFiscalHomologado(tipo *byte, marca *byte) int32 {
	return int32(C.EP_CerrarComprobanteNoFiscalHomologado((*C.char)(unsafe.Pointer(tipo)), (*C.char)(unsafe.Pointer(marca))))
}

// EP_AbrirComprobanteNoFiscal: Abre un documento no fiscal.
func EP_AbrirComprobanteNoFiscal() int32 {
	return int32(C.EP_AbrirComprobanteNoFiscal())
}

// EP_ImprimirTextoNoFiscal: Imprime un renglón en el documento no fiscal.
// Textos: texto 120 bytes.
func EP_ImprimirTextoNoFiscal(texto *byte) int32 {
	return int32(C.EP_ImprimirTextoNoFiscal((*C.char)(unsafe.Pointer(texto))))
}

// EP_CerrarComprobanteNoFiscal: Cierra el documento no fiscal.
func EP_CerrarComprobanteNoFiscal() int32 {
	return int32(C.EP_CerrarComprobanteNoFiscal())
}

// ---- Informes ----

// EP_ReporteX: Imprime el informe X.
func EP_ReporteX() int32 {
	return int32(C.EP_ReporteX())
}

// EP_ReporteZ: Imprime el informe Z y cierra la jornada.
func EP_ReporteZ() int32 {
	return int32(C.EP_ReporteZ())
}

// EP_ReporteZporNumeros: Lista los cierres Z entre dos números.
func EP_ReporteZporNumeros(primero int32, ultimo int32, tercero int32) int32 {
	return int32(C.EP_ReporteZporNumeros(C.int32_t(primero), C.int32_t(ultimo), C.int32_t(tercero)))
}

// EP_ReporteZporFechas: Lista los cierres Z entre dos fechas.
// Textos: desde, hasta 6 bytes cada uno.
func EP_ReporteZporFechas(desde *byte, hasta *byte, tercero int32) int32 {
	return int32(C.EP_ReporteZporFechas((*C.char)(unsafe.Pointer(desde)), (*C.char)(unsafe.Pointer(hasta)), C.int32_t(tercero)))
}

// ---- La impresora ----

// EP_AbrirCajonDeDinero: Abre el cajón de dinero.
func EP_AbrirCajonDeDinero(cajon int32) int32 {
	return int32(C.EP_AbrirCajonDeDinero(C.int32_t(cajon)))
}

// EP_CambiarFechaHora: Pone en hora la impresora.
// Textos: fecha, hora 6 bytes cada uno.
func EP_CambiarFechaHora(fecha *byte, hora *byte) int32 {
	return int32(C.EP_CambiarFechaHora((*C.char)(unsafe.Pointer(fecha)), (*C.char)(unsafe.Pointer(hora))))
}

// EP_ObtenerFechaHora: Lee el reloj de la impresora.
// Recibe: resultado, hasta 12 bytes.
func EP_ObtenerFechaHora(resultado *byte) int32 {
	return int32(C.EP_ObtenerFechaHora((*C.char)(unsafe.Pointer(resultado))))
}

// EP_SetEncabezado: Pone una línea del encabezado.
// Textos: texto 120 bytes.
func EP_SetEncabezado(texto *byte, linea int32, atributo int32) int32 {
	return int32(C.EP_SetEncabezado((*C.char)(unsafe.Pointer(texto)), C.int32_t(linea), C.int32_t(atributo)))
}

// EP_GetEncabezado: Lee una línea del encabezado.
// Recibe: resultado, hasta 120 bytes.
func EP_GetEncabezado(resultado *byte, linea int32) int32 {
	return int32(C.EP_GetEncabezado((*C.char)(unsafe.Pointer(resultado)), C.int32_t(linea)))
}

// EP_CortaPapel: Corta el papel.
func EP_CortaPapel() int32 {
	return int32(C.EP_CortaPapel())
}

// EP_AvanzaPapel: Avanza el papel.
func EP_AvanzaPapel(lineas int32) int32 {
	return int32(C.EP_AvanzaPapel(C.int32_t(lineas)))
}

// EP_ValoresModelo: Lee los datos del modelo.
// Recibe: resultado, hasta 64 bytes.
func EP_ValoresModelo(resultado *byte) int32 {
	return int32(C.EP_ValoresModelo((*C.char)(unsafe.Pointer(resultado))))
}

// EP_Numeracion: Lee los contadores.
// Recibe: resultado, hasta 80 bytes.
func EP_Numeracion(resultado *byte) int32 {
	return int32(C.EP_Numeracion((*C.char)(unsafe.Pointer(resultado))))
}

// EP_AutodetectarModelo: Lee el nombre del modelo.
// Recibe: resultado, hasta 14 bytes.
func EP_AutodetectarModelo(resultado *byte) int32 {
	return int32(C.EP_AutodetectarModelo((*C.char)(unsafe.Pointer(resultado))))
}

// ---- Para programas viejos ----

// EP_Chequear_Error: El último código de error: siempre 0.
func EP_Chequear_Error() int32 {
	return int32(C.EP_Chequear_Error())
}

// EP_ReimprimirComprobante: No hace nada.
func EP_ReimprimirComprobante() int32 {
	return int32(C.EP_ReimprimirComprobante())
}

// EP_Configuracion: No hace nada.
func EP_Configuracion(a int32) int32 {
	return int32(C.EP_Configuracion(C.int32_t(a)))
}

// EP_ConsultaMemoria: No hace nada.
func EP_ConsultaMemoria(a int32) int32 {
	return int32(C.EP_ConsultaMemoria(C.int32_t(a)))
}

// EP_Copias: No hace nada.
func EP_Copias(a int32) int32 {
	return int32(C.EP_Copias(C.int32_t(a)))
}

// EP_ImpuestoInternoFijo: No hace nada.
func EP_ImpuestoInternoFijo(a int32) int32 {
	return int32(C.EP_ImpuestoInternoFijo(C.int32_t(a)))
}

// EP_ImpuestoInternoPorMonto: No hace nada.
func EP_ImpuestoInternoPorMonto(a int32) int32 {
	return int32(C.EP_ImpuestoInternoPorMonto(C.int32_t(a)))
}

// EP_InformacionRemito: No hace nada.
func EP_InformacionRemito(a int32) int32 {
	return int32(C.EP_InformacionRemito(C.int32_t(a)))
}

// EP_Inicializacion: No hace nada.
func EP_Inicializacion(a int32) int32 {
	return int32(C.EP_Inicializacion(C.int32_t(a)))
}

// EP_Memoria: No hace nada.
func EP_Memoria(a int32) int32 {
	return int32(C.EP_Memoria(C.int32_t(a)))
}

// EP_DescuentoUltimoItem: No hace nada.
func EP_DescuentoUltimoItem(a int32, b int32, c int32) int32 {
	return int32(C.EP_DescuentoUltimoItem(C.int32_t(a), C.int32_t(b), C.int32_t(c)))
}

// EP_ImprimirItemEnRemito: No hace nada.
func EP_ImprimirItemEnRemito(a int32, b int32, c int32) int32 {
	return int32(C.EP_ImprimirItemEnRemito(C.int32_t(a), C.int32_t(b), C.int32_t(c)))
}

// EP_DatosCliente: No hace nada.
func EP_DatosCliente(a int32, b int32, c int32, d int32, e int32) int32 {
	return int32(C.EP_DatosCliente(C.int32_t(a), C.int32_t(b), C.int32_t(c), C.int32_t(d), C.int32_t(e)))
}

// ---- Qué fue de la última llamada ----

// Kestra_Desenlace: Qué fue de la última llamada.
// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
func Kestra_Desenlace() int32 {
	return int32(C.Kestra_Desenlace())
}

// Kestra_Causa: Por qué terminó así la última llamada.
// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
func Kestra_Causa() int32 {
	return int32(C.Kestra_Causa())
}

// Kestra_CausaTexto: Por qué terminó así la última llamada, en una frase para el operador.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_CausaTexto(texto *byte, longitud int32) int32 {
	return int32(C.Kestra_CausaTexto((*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Respuesta: Un campo de la última respuesta.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Respuesta(numero int32, texto *byte, longitud int32) int32 {
	return int32(C.Kestra_Respuesta(C.int32_t(numero), (*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Intentos: Cuántas tramas mandó la última llamada.
// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
func Kestra_Intentos() int32 {
	return int32(C.Kestra_Intentos())
}

// Kestra_Estado: Le pregunta a la impresora cómo está.
// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
func Kestra_Estado() int32 {
	return int32(C.Kestra_Estado())
}

// Kestra_DocumentoAbierto: Qué comprobante está abierto y en qué etapa.
// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
// llamada está en curso.
func Kestra_DocumentoAbierto() int32 {
	return int32(C.Kestra_DocumentoAbierto())
}

// Kestra_Subtotal: Pregunta el total del comprobante abierto.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Subtotal(texto *byte, longitud int32) int32 {
	return int32(C.Kestra_Subtotal((*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Numeracion: Pregunta el número del último comprobante de una clase.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Numeracion(clase int32, letra int32, texto *byte, longitud int32) int32 {
	return int32(C.Kestra_Numeracion(C.int32_t(clase), C.int32_t(letra), (*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Pendiente: Si quedó una llamada sin resolver.
// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
func Kestra_Pendiente(texto *byte, longitud int32) int32 {
	return int32(C.Kestra_Pendiente((*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Resolver: Averigua qué fue de la llamada pendiente.
// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
func Kestra_Resolver() int32 {
	return int32(C.Kestra_Resolver())
}

// Kestra_ResolverNumero: El número del comprobante que Kestra_Resolver encontró cerrado.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_ResolverNumero(texto *byte, longitud int32) int32 {
	return int32(C.Kestra_ResolverNumero((*C.char)(unsafe.Pointer(texto)), C.int32_t(longitud)))
}

// Kestra_Olvidar: Deja de lado lo pendiente sin preguntar.
// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
func Kestra_Olvidar() int32 {
	return int32(C.Kestra_Olvidar())
}

// ---- El operador ----

// Kestra_DefinirOperador: Hace que el programa conteste en lugar de los cuadros de la biblioteca.
// Devuelve: No devuelve nada.
func Kestra_DefinirOperador(operador unsafe.Pointer) {
	C.Kestra_DefinirOperador((*C.KestraOperador)(operador))
}

// ---- Textos ----

// Kestra_Textos: Elige cómo se pasan los textos.
// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
func Kestra_Textos(modo int32) int32 {
	return int32(C.Kestra_Textos(C.int32_t(modo)))
}
