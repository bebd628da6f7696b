//go:build windows

package kestra

import (
	"math"
	"syscall"
	"unsafe"
)

var biblioteca = syscall.NewLazyDLL("Kestra.dll")

// doble da las palabras que ocupa en la pila: dos en 32 bits, una en 64.
func doble(valor float64) []uintptr {
	bits := math.Float64bits(valor)
	if unsafe.Sizeof(uintptr(0)) == 4 {
		return []uintptr{uintptr(uint32(bits)), uintptr(uint32(bits >> 32))}
	}
	return []uintptr{uintptr(bits)}
}

var (
	proc_EP_Init                                = biblioteca.NewProc("EP_Init")
	proc_EP_Kill                                = biblioteca.NewProc("EP_Kill")
	proc_EP_AbrirComprobanteFiscal              = biblioteca.NewProc("EP_AbrirComprobanteFiscal")
	proc_EP_ImprimirItem                        = biblioteca.NewProc("EP_ImprimirItem")
	proc_EP_AnularItem                          = biblioteca.NewProc("EP_AnularItem")
	proc_EP_ImprimirTextoFiscal                 = biblioteca.NewProc("EP_ImprimirTextoFiscal")
	proc_EP_ImprimirTextoFiscalInterna          = biblioteca.NewProc("EP_ImprimirTextoFiscalInterna")
	proc_EP_CerrarComprobanteFiscal             = biblioteca.NewProc("EP_CerrarComprobanteFiscal")
	proc_EP_Cancelar                            = biblioteca.NewProc("EP_Cancelar")
	proc_EP_DescuentoGeneral                    = biblioteca.NewProc("EP_DescuentoGeneral")
	proc_EP_RecargoGeneral                      = biblioteca.NewProc("EP_RecargoGeneral")
	proc_EP_EspecificarPercepcionGlobal         = biblioteca.NewProc("EP_EspecificarPercepcionGlobal")
	proc_EP_ImprimirPago                        = biblioteca.NewProc("EP_ImprimirPago")
	proc_EP_AjusteRedondeo                      = biblioteca.NewProc("EP_AjusteRedondeo")
	proc_EP_AbrirComprobanteNoFiscalHomologado  = biblioteca.NewProc("EP_AbrirComprobanteNoFiscalHomologado")
	proc_EP_CerrarComprobanteNoFiscalHomologado = biblioteca.NewProc("EP_CerrarComprobanteNoFiscalHomologado")
	proc_EP_AbrirComprobanteNoFiscal            = biblioteca.NewProc("EP_AbrirComprobanteNoFiscal")
	proc_EP_ImprimirTextoNoFiscal               = biblioteca.NewProc("EP_ImprimirTextoNoFiscal")
	proc_EP_CerrarComprobanteNoFiscal           = biblioteca.NewProc("EP_CerrarComprobanteNoFiscal")
	proc_EP_ReporteX                            = biblioteca.NewProc("EP_ReporteX")
	proc_EP_ReporteZ                            = biblioteca.NewProc("EP_ReporteZ")
	proc_EP_ReporteZporNumeros                  = biblioteca.NewProc("EP_ReporteZporNumeros")
	proc_EP_ReporteZporFechas                   = biblioteca.NewProc("EP_ReporteZporFechas")
	proc_EP_AbrirCajonDeDinero                  = biblioteca.NewProc("EP_AbrirCajonDeDinero")
	proc_EP_CambiarFechaHora                    = biblioteca.NewProc("EP_CambiarFechaHora")
	proc_EP_ObtenerFechaHora                    = biblioteca.NewProc("EP_ObtenerFechaHora")
	proc_EP_SetEncabezado                       = biblioteca.NewProc("EP_SetEncabezado")
	proc_EP_GetEncabezado                       = biblioteca.NewProc("EP_GetEncabezado")
	proc_EP_CortaPapel                          = biblioteca.NewProc("EP_CortaPapel")
	proc_EP_AvanzaPapel                         = biblioteca.NewProc("EP_AvanzaPapel")
	proc_EP_ValoresModelo                       = biblioteca.NewProc("EP_ValoresModelo")
	proc_EP_Numeracion                          = biblioteca.NewProc("EP_Numeracion")
	proc_EP_AutodetectarModelo                  = biblioteca.NewProc("EP_AutodetectarModelo")
	proc_EP_Chequear_Error                      = biblioteca.NewProc("EP_Chequear_Error")
	proc_EP_ReimprimirComprobante               = biblioteca.NewProc("EP_ReimprimirComprobante")
	proc_EP_Configuracion                       = biblioteca.NewProc("EP_Configuracion")
	proc_EP_ConsultaMemoria                     = biblioteca.NewProc("EP_ConsultaMemoria")
	proc_EP_Copias                              = biblioteca.NewProc("EP_Copias")
	proc_EP_ImpuestoInternoFijo                 = biblioteca.NewProc("EP_ImpuestoInternoFijo")
	proc_EP_ImpuestoInternoPorMonto             = biblioteca.NewProc("EP_ImpuestoInternoPorMonto")
	proc_EP_InformacionRemito                   = biblioteca.NewProc("EP_InformacionRemito")
	proc_EP_Inicializacion                      = biblioteca.NewProc("EP_Inicializacion")
	proc_EP_Memoria                             = biblioteca.NewProc("EP_Memoria")
	proc_EP_DescuentoUltimoItem                 = biblioteca.NewProc("EP_DescuentoUltimoItem")
	proc_EP_ImprimirItemEnRemito                = biblioteca.NewProc("EP_ImprimirItemEnRemito")
	proc_EP_DatosCliente                        = biblioteca.NewProc("EP_DatosCliente")
	proc_Kestra_Desenlace                       = biblioteca.NewProc("Kestra_Desenlace")
	proc_Kestra_Causa                           = biblioteca.NewProc("Kestra_Causa")
	proc_Kestra_CausaTexto                      = biblioteca.NewProc("Kestra_CausaTexto")
	proc_Kestra_Respuesta                       = biblioteca.NewProc("Kestra_Respuesta")
	proc_Kestra_Intentos                        = biblioteca.NewProc("Kestra_Intentos")
	proc_Kestra_Estado                          = biblioteca.NewProc("Kestra_Estado")
	proc_Kestra_DocumentoAbierto                = biblioteca.NewProc("Kestra_DocumentoAbierto")
	proc_Kestra_Subtotal                        = biblioteca.NewProc("Kestra_Subtotal")
	proc_Kestra_Numeracion                      = biblioteca.NewProc("Kestra_Numeracion")
	proc_Kestra_Pendiente                       = biblioteca.NewProc("Kestra_Pendiente")
	proc_Kestra_Resolver                        = biblioteca.NewProc("Kestra_Resolver")
	proc_Kestra_ResolverNumero                  = biblioteca.NewProc("Kestra_ResolverNumero")
	proc_Kestra_Olvidar                         = biblioteca.NewProc("Kestra_Olvidar")
	proc_Kestra_DefinirOperador                 = biblioteca.NewProc("Kestra_DefinirOperador")
	proc_Kestra_Textos                          = biblioteca.NewProc("Kestra_Textos")
)

// ---- Principio y fin ----

// EP_Init: Lee Fiscal.ini y prepara el puerto.
// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
func EP_Init() int32 {
	dado, _, _ := proc_EP_Init.Call()
	return int32(dado)
}

// EP_Kill: Suelta el puerto.
// Devuelve: No quiere decir nada.
func EP_Kill() int32 {
	dado, _, _ := proc_EP_Kill.Call()
	return int32(dado)
}

// ---- Comprobantes fiscales ----

// EP_AbrirComprobanteFiscal: Abre una factura, un tique o una nota.
// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
// bytes cada uno.
func EP_AbrirComprobanteFiscal(tipo *byte, letra *byte, nombre1 *byte, nombre2 *byte, documento_tipo *byte, documento_numero *byte, responsabilidad_iva *byte, domicilio1 *byte, domicilio2 *byte, domicilio3 *byte, linea4 *byte, linea5 *byte, copias int32) int32 {
	dado, _, _ := proc_EP_AbrirComprobanteFiscal.Call(uintptr(unsafe.Pointer(tipo)), uintptr(unsafe.Pointer(letra)), uintptr(unsafe.Pointer(nombre1)), uintptr(unsafe.Pointer(nombre2)), uintptr(unsafe.Pointer(documento_tipo)), uintptr(unsafe.Pointer(documento_numero)), uintptr(unsafe.Pointer(responsabilidad_iva)), uintptr(unsafe.Pointer(domicilio1)), uintptr(unsafe.Pointer(domicilio2)), uintptr(unsafe.Pointer(domicilio3)), uintptr(unsafe.Pointer(linea4)), uintptr(unsafe.Pointer(linea5)), uintptr(copias))
	return int32(dado)
}

// EP_ImprimirItem: Imprime una línea de venta.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
func EP_ImprimirItem(descripcion *byte, cantidad float64, precio float64, iva float64, impuestos_internos float64, extra1 *byte, extra2 *byte, extra3 *byte) int32 {
	cantidad_ := doble(cantidad)
	precio_ := doble(precio)
	iva_ := doble(iva)
	impuestos_internos_ := doble(impuestos_internos)
	if len(cantidad_) == 2 {
		dado, _, _ := proc_EP_ImprimirItem.Call(uintptr(unsafe.Pointer(descripcion)), cantidad_[0], cantidad_[1], precio_[0], precio_[1], iva_[0], iva_[1], impuestos_internos_[0], impuestos_internos_[1], uintptr(unsafe.Pointer(extra1)), uintptr(unsafe.Pointer(extra2)), uintptr(unsafe.Pointer(extra3)))
		return int32(dado)
	}
	dado, _, _ := proc_EP_ImprimirItem.Call(uintptr(unsafe.Pointer(descripcion)), cantidad_[0], precio_[0], iva_[0], impuestos_internos_[0], uintptr(unsafe.Pointer(extra1)), uintptr(unsafe.Pointer(extra2)), uintptr(unsafe.Pointer(extra3)))
	return int32(dado)
}

// EP_AnularItem: Imprime la anulación de una línea.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
func EP_AnularItem(descripcion *byte, cantidad float64, precio float64, iva float64, impuestos_internos float64, extra1 *byte, extra2 *byte, extra3 *byte) int32 {
	cantidad_ := doble(cantidad)
	precio_ := doble(precio)
	iva_ := doble(iva)
	impuestos_internos_ := doble(impuestos_internos)
	if len(cantidad_) == 2 {
		dado, _, _ := proc_EP_AnularItem.Call(uintptr(unsafe.Pointer(descripcion)), cantidad_[0], cantidad_[1], precio_[0], precio_[1], iva_[0], iva_[1], impuestos_internos_[0], impuestos_internos_[1], uintptr(unsafe.Pointer(extra1)), uintptr(unsafe.Pointer(extra2)), uintptr(unsafe.Pointer(extra3)))
		return int32(dado)
	}
	dado, _, _ := proc_EP_AnularItem.Call(uintptr(unsafe.Pointer(descripcion)), cantidad_[0], precio_[0], iva_[0], impuestos_internos_[0], uintptr(unsafe.Pointer(extra1)), uintptr(unsafe.Pointer(extra2)), uintptr(unsafe.Pointer(extra3)))
	return int32(dado)
}

// EP_ImprimirTextoFiscal: Imprime un renglón de texto dentro del comprobante.
// Textos: texto 26 bytes.
func EP_ImprimirTextoFiscal(texto *byte) int32 {
	dado, _, _ := proc_EP_ImprimirTextoFiscal.Call(uintptr(unsafe.Pointer(texto)))
	return int32(dado)
}

// EP_ImprimirTextoFiscalInterna: Imprime un renglón de texto terminado en cero.
func EP_ImprimirTextoFiscalInterna(texto *byte) int32 {
	dado, _, _ := proc_EP_ImprimirTextoFiscalInterna.Call(uintptr(unsafe.Pointer(texto)))
	return int32(dado)
}

// EP_CerrarComprobanteFiscal: Cierra el comprobante y da su número.
// Textos: tipo 2 bytes; letra 1 byte.
// Recibe: numero, hasta 8 bytes.
func EP_CerrarComprobanteFiscal(tipo *byte, letra *byte, numero *byte) int32 {
	dado, _, _ := proc_EP_CerrarComprobanteFiscal.Call(uintptr(unsafe.Pointer(tipo)), uintptr(unsafe.Pointer(letra)), uintptr(unsafe.Pointer(numero)))
	return int32(dado)
}

// EP_Cancelar: Cancela el comprobante abierto.
func EP_Cancelar() int32 {
	dado, _, _ := proc_EP_Cancelar.Call()
	return int32(dado)
}

// ---- Totales y pagos ----

// EP_DescuentoGeneral: Le descuenta un importe al comprobante.
// Textos: descripcion 80 bytes.
func EP_DescuentoGeneral(descripcion *byte, monto float64) int32 {
	monto_ := doble(monto)
	if len(monto_) == 2 {
		dado, _, _ := proc_EP_DescuentoGeneral.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0], monto_[1])
		return int32(dado)
	}
	dado, _, _ := proc_EP_DescuentoGeneral.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0])
	return int32(dado)
}

// EP_RecargoGeneral: Le suma un recargo al comprobante.
// Textos: descripcion 80 bytes.
func EP_RecargoGeneral(descripcion *byte, monto float64) int32 {
	monto_ := doble(monto)
	if len(monto_) == 2 {
		dado, _, _ := proc_EP_RecargoGeneral.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0], monto_[1])
		return int32(dado)
	}
	dado, _, _ := proc_EP_RecargoGeneral.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0])
	return int32(dado)
}

// EP_EspecificarPercepcionGlobal: Le suma una percepción al comprobante.
// Textos: descripcion 20 bytes; calificador 1 byte.
func EP_EspecificarPercepcionGlobal(descripcion *byte, monto float64, iva float64, calificador *byte) int32 {
	monto_ := doble(monto)
	iva_ := doble(iva)
	if len(monto_) == 2 {
		dado, _, _ := proc_EP_EspecificarPercepcionGlobal.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0], monto_[1], iva_[0], iva_[1], uintptr(unsafe.Pointer(calificador)))
		return int32(dado)
	}
	dado, _, _ := proc_EP_EspecificarPercepcionGlobal.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0], iva_[0], uintptr(unsafe.Pointer(calificador)))
	return int32(dado)
}

// EP_ImprimirPago: Imprime una línea de pago.
// Textos: descripcion 80 bytes.
func EP_ImprimirPago(descripcion *byte, monto float64) int32 {
	monto_ := doble(monto)
	if len(monto_) == 2 {
		dado, _, _ := proc_EP_ImprimirPago.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0], monto_[1])
		return int32(dado)
	}
	dado, _, _ := proc_EP_ImprimirPago.Call(uintptr(unsafe.Pointer(descripcion)), monto_[0])
	return int32(dado)
}

// EP_AjusteRedondeo: Agrega líneas hasta que el total sea el que se dice.
func EP_AjusteRedondeo(total float64) int32 {
	total_ := doble(total)
	if len(total_) == 2 {
		dado, _, _ := proc_EP_AjusteRedondeo.Call(total_[0], total_[1])
		return int32(dado)
	}
	dado, _, _ := proc_EP_AjusteRedondeo.Call(total_[0])
	return int32(dado)
}

// ---- Otros documentos ----

// EP_AbrirComprobanteNoFiscalHomologado: Abre un documento no fiscal homologado.
// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
func EP_AbrirComprobanteNoFiscalHomologado(tipo *byte, marca1 *byte, linea1 *byte, linea2 *byte, documento_tipo *byte, documento_numero *byte, marca2 *byte, domicilio *byte, linea4 *byte, linea5 *byte, linea6 *byte, linea7 *byte, cantidad int32) int32 {
	dado, _, _ := proc_EP_AbrirComprobanteNoFiscalHomologado.Call(uintptr(unsafe.Pointer(tipo)), uintptr(unsafe.Pointer(marca1)), uintptr(unsafe.Pointer(linea1)), uintptr(unsafe.Pointer(linea2)), uintptr(unsafe.Pointer(documento_tipo)), uintptr(unsafe.Pointer(documento_numero)), uintptr(unsafe.Pointer(marca2)), uintptr(unsafe.Pointer(domicilio)), uintptr(unsafe.Pointer(linea4)), uintptr(unsafe.Pointer(linea5)), uintptr(unsafe.Pointer(linea6)), uintptr(unsafe.Pointer(linea7)), uintptr(cantidad))
	return int32(dado)
}

// EP_CerrarComprobanteNoFiscalHomologado: Cierra el documento homologado.
// Textos: tipo 2 bytes; marca 1 byte.
func EP_CerrarComprobanteNoFiscalHomologado(tipo *byte, marca *byte) int32 {
	dado, _, _ := proc_EP_CerrarComprobanteNoFiscalHomologado.Call(uintptr(unsafe.Pointer(tipo)), uintptr(unsafe.Pointer(marca)))
	return int32(dado)
}

// EP_AbrirComprobanteNoFiscal: Abre un documento no fiscal.
func EP_AbrirComprobanteNoFiscal() int32 {
	dado, _, _ := proc_EP_AbrirComprobanteNoFiscal.Call()
	return int32(dado)
}

// EP_ImprimirTextoNoFiscal: Imprime un renglón en el documento no fiscal.
// Textos: texto 120 bytes.
func EP_ImprimirTextoNoFiscal(texto *byte) int32 {
	dado, _, _ := proc_EP_ImprimirTextoNoFiscal.Call(uintptr(unsafe.Pointer(texto)))
	return int32(dado)
}

// EP_CerrarComprobanteNoFiscal: Cierra el documento no fiscal.
func EP_CerrarComprobanteNoFiscal() int32 {
	dado, _, _ := proc_EP_CerrarComprobanteNoFiscal.Call()
	return int32(dado)
}

// ---- Informes ----

// EP_ReporteX: Imprime el informe X.
func EP_ReporteX() int32 {
	dado, _, _ := proc_EP_ReporteX.Call()
	return int32(dado)
}

// EP_ReporteZ: Imprime el informe Z y cierra la jornada.
func EP_ReporteZ() int32 {
	dado, _, _ := proc_EP_ReporteZ.Call()
	return int32(dado)
}

// EP_ReporteZporNumeros: Lista los cierres Z entre dos números.
func EP_ReporteZporNumeros(primero int32, ultimo int32, tercero int32) int32 {
	dado, _, _ := proc_EP_ReporteZporNumeros.Call(uintptr(primero), uintptr(ultimo), uintptr(tercero))
	return int32(dado)
}

// EP_ReporteZporFechas: Lista los cierres Z entre dos fechas.
// Textos: desde, hasta 6 bytes cada uno.
func EP_ReporteZporFechas(desde *byte, hasta *byte, tercero int32) int32 {
	dado, _, _ := proc_EP_ReporteZporFechas.Call(uintptr(unsafe.Pointer(desde)), uintptr(unsafe.Pointer(hasta)), uintptr(tercero))
	return int32(dado)
}

// ---- La impresora ----

// EP_AbrirCajonDeDinero: Abre el cajón de dinero.
func EP_AbrirCajonDeDinero(cajon int32) int32 {
	dado, _, _ := proc_EP_AbrirCajonDeDinero.Call(uintptr(cajon))
	return int32(dado)
}

// EP_CambiarFechaHora: Pone en hora la impresora.
// Textos: fecha, hora 6 bytes cada uno.
func EP_CambiarFechaHora(fecha *byte, hora *byte) int32 {
	dado, _, _ := proc_EP_CambiarFechaHora.Call(uintptr(unsafe.Pointer(fecha)), uintptr(unsafe.Pointer(hora)))
	return int32(dado)
}

// EP_ObtenerFechaHora: Lee el reloj de la impresora.
// Recibe: resultado, hasta 12 bytes.
func EP_ObtenerFechaHora(resultado *byte) int32 {
	dado, _, _ := proc_EP_ObtenerFechaHora.Call(uintptr(unsafe.Pointer(resultado)))
	return int32(dado)
}

// EP_SetEncabezado: Pone una línea del encabezado.
// Textos: texto 120 bytes.
func EP_SetEncabezado(texto *byte, linea int32, atributo int32) int32 {
	dado, _, _ := proc_EP_SetEncabezado.Call(uintptr(unsafe.Pointer(texto)), uintptr(linea), uintptr(atributo))
	return int32(dado)
}

// EP_GetEncabezado: Lee una línea del encabezado.
// Recibe: resultado, hasta 120 bytes.
func EP_GetEncabezado(resultado *byte, linea int32) int32 {
	dado, _, _ := proc_EP_GetEncabezado.Call(uintptr(unsafe.Pointer(resultado)), uintptr(linea))
	return int32(dado)
}

// EP_CortaPapel: Corta el papel.
func EP_CortaPapel() int32 {
	dado, _, _ := proc_EP_CortaPapel.Call()
	return int32(dado)
}

// EP_AvanzaPapel: Avanza el papel.
func EP_AvanzaPapel(lineas int32) int32 {
	dado, _, _ := proc_EP_AvanzaPapel.Call(uintptr(lineas))
	return int32(dado)
}

// EP_ValoresModelo: Lee los datos del modelo.
// Recibe: resultado, hasta 64 bytes.
func EP_ValoresModelo(resultado *byte) int32 {
	dado, _, _ := proc_EP_ValoresModelo.Call(uintptr(unsafe.Pointer(resultado)))
	return int32(dado)
}

// EP_Numeracion: Lee los contadores.
// Recibe: resultado, hasta 80 bytes.
func EP_Numeracion(resultado *byte) int32 {
	dado, _, _ := proc_EP_Numeracion.Call(uintptr(unsafe.Pointer(resultado)))
	return int32(dado)
}

// EP_AutodetectarModelo: Lee el nombre del modelo.
// Recibe: resultado, hasta 14 bytes.
func EP_AutodetectarModelo(resultado *byte) int32 {
	dado, _, _ := proc_EP_AutodetectarModelo.Call(uintptr(unsafe.Pointer(resultado)))
	return int32(dado)
}

// ---- Para programas viejos ----

// EP_Chequear_Error: El último código de error: siempre 0.
func EP_Chequear_Error() int32 {
	dado, _, _ := proc_EP_Chequear_Error.Call()
	return int32(dado)
}

// EP_ReimprimirComprobante: No hace nada.
func EP_ReimprimirComprobante() int32 {
	dado, _, _ := proc_EP_ReimprimirComprobante.Call()
	return int32(dado)
}

// EP_Configuracion: No hace nada.
func EP_Configuracion(a int32) int32 {
	dado, _, _ := proc_EP_Configuracion.Call(uintptr(a))
	return int32(dado)
}

// EP_ConsultaMemoria: No hace nada.
func EP_ConsultaMemoria(a int32) int32 {
	dado, _, _ := proc_EP_ConsultaMemoria.Call(uintptr(a))
	return int32(dado)
}

// EP_Copias: No hace nada.
func EP_Copias(a int32) int32 {
	dado, _, _ := proc_EP_Copias.Call(uintptr(a))
	return int32(dado)
}

// EP_ImpuestoInternoFijo: No hace nada.
func EP_ImpuestoInternoFijo(a int32) int32 {
	dado, _, _ := proc_EP_ImpuestoInternoFijo.Call(uintptr(a))
	return int32(dado)
}

// EP_ImpuestoInternoPorMonto: No hace nada.
func EP_ImpuestoInternoPorMonto(a int32) int32 {
	dado, _, _ := proc_EP_ImpuestoInternoPorMonto.Call(uintptr(a))
	return int32(dado)
}

// EP_InformacionRemito: No hace nada.
func EP_InformacionRemito(a int32) int32 {
	dado, _, _ := proc_EP_InformacionRemito.Call(uintptr(a))
	return int32(dado)
}

// EP_Inicializacion: No hace nada.
func EP_Inicializacion(a int32) int32 {
	dado, _, _ := proc_EP_Inicializacion.Call(uintptr(a))
	return int32(dado)
}

// EP_Memoria: No hace nada.
func EP_Memoria(a int32) int32 {
	dado, _, _ := proc_EP_Memoria.Call(uintptr(a))
	return int32(dado)
}

// EP_DescuentoUltimoItem: No hace nada.
func EP_DescuentoUltimoItem(a int32, b int32, c int32) int32 {
	dado, _, _ := proc_EP_DescuentoUltimoItem.Call(uintptr(a), uintptr(b), uintptr(c))
	return int32(dado)
}

// EP_ImprimirItemEnRemito: No hace nada.
func EP_ImprimirItemEnRemito(a int32, b int32, c int32) int32 {
	dado, _, _ := proc_EP_ImprimirItemEnRemito.Call(uintptr(a), uintptr(b), uintptr(c))
	return int32(dado)
}

// EP_DatosCliente: No hace nada.
func EP_DatosCliente(a int32, b int32, c int32, d int32, e int32) int32 {
	dado, _, _ := proc_EP_DatosCliente.Call(uintptr(a), uintptr(b), uintptr(c), uintptr(d), uintptr(e))
	return int32(dado)
}

// ---- Qué fue de la última llamada ----

// Kestra_Desenlace: Qué fue de la última llamada.
// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
func Kestra_Desenlace() int32 {
	dado, _, _ := proc_Kestra_Desenlace.Call()
	return int32(dado)
}

// Kestra_Causa: Por qué terminó así la última llamada.
// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
func Kestra_Causa() int32 {
	dado, _, _ := proc_Kestra_Causa.Call()
	return int32(dado)
}

// Kestra_CausaTexto: Por qué terminó así la última llamada, en una frase para el operador.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_CausaTexto(texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_CausaTexto.Call(uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Respuesta: Un campo de la última respuesta.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Respuesta(numero int32, texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_Respuesta.Call(uintptr(numero), uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Intentos: Cuántas tramas mandó la última llamada.
// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
func Kestra_Intentos() int32 {
	dado, _, _ := proc_Kestra_Intentos.Call()
	return int32(dado)
}

// Kestra_Estado: Le pregunta a la impresora cómo está.
// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
func Kestra_Estado() int32 {
	dado, _, _ := proc_Kestra_Estado.Call()
	return int32(dado)
}

// Kestra_DocumentoAbierto: Qué comprobante está abierto y en qué etapa.
// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
// llamada está en curso.
func Kestra_DocumentoAbierto() int32 {
	dado, _, _ := proc_Kestra_DocumentoAbierto.Call()
	return int32(dado)
}

// Kestra_Subtotal: Pregunta el total del comprobante abierto.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Subtotal(texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_Subtotal.Call(uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Numeracion: Pregunta el número del último comprobante de una clase.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_Numeracion(clase int32, letra int32, texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_Numeracion.Call(uintptr(clase), uintptr(letra), uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Pendiente: Si quedó una llamada sin resolver.
// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
func Kestra_Pendiente(texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_Pendiente.Call(uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Resolver: Averigua qué fue de la llamada pendiente.
// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
func Kestra_Resolver() int32 {
	dado, _, _ := proc_Kestra_Resolver.Call()
	return int32(dado)
}

// Kestra_ResolverNumero: El número del comprobante que Kestra_Resolver encontró cerrado.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
func Kestra_ResolverNumero(texto *byte, longitud int32) int32 {
	dado, _, _ := proc_Kestra_ResolverNumero.Call(uintptr(unsafe.Pointer(texto)), uintptr(longitud))
	return int32(dado)
}

// Kestra_Olvidar: Deja de lado lo pendiente sin preguntar.
// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
func Kestra_Olvidar() int32 {
	dado, _, _ := proc_Kestra_Olvidar.Call()
	return int32(dado)
}

// ---- El operador ----

// Kestra_DefinirOperador: Hace que el programa conteste en lugar de los cuadros de la biblioteca.
// Devuelve: No devuelve nada.
func Kestra_DefinirOperador(operador unsafe.Pointer) {
	proc_Kestra_DefinirOperador.Call(uintptr(operador))
}

// ---- Textos ----

// Kestra_Textos: Elige cómo se pasan los textos.
// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
func Kestra_Textos(modo int32) int32 {
	dado, _, _ := proc_Kestra_Textos.Call(uintptr(modo))
	return int32(dado)
}
