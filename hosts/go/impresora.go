// Package kestra maneja una impresora fiscal. Impresora va encima de las declaraciones: textos en string, y un error
// cuando una llamada falla.
package kestra

import (
	"bytes"
	"runtime"
)

// ErrorFiscal es una llamada que falló. Error() da la oración para el operador: qué pasó, si se hizo y qué hacer ahora.
type ErrorFiscal struct {
	Llamada   string // la función que falló, como "EP_ImprimirItem"
	Desenlace int32  // un número de KESTRA_DESENLACE: si se hizo o no
	Causa     int32  // un número de KESTRA_CAUSA: por qué
	Oracion   string
}

func (e *ErrorFiscal) Error() string {
	if e.Oracion == "" {
		return e.Llamada + " falló: ver fiscal.log"
	}
	return e.Oracion
}

// Cliente es a quién se le hace el comprobante. Sin nada es un consumidor final.
type Cliente struct {
	Nombre, DocumentoTipo, DocumentoNumero, ResponsabilidadIva string
	Domicilio1, Domicilio2, Domicilio3, Linea4, Linea5         string
}

// Item es una línea de venta. Extras: hasta tres renglones más.
type Item struct {
	Descripcion                              string
	Cantidad, Precio, Iva, ImpuestosInternos float64
	Extras                                   []string
}

// Impresora va de EP_Init (Abrir) a EP_Kill (Cerrar): una por programa, y toda en la gorutina que la abrió, que queda atada
// a su hilo. Lo que pasa del largo que la función lee se corta. Los métodos se llaman como las funciones de las declaraciones, que dicen qué hace cada una.
type Impresora struct {
	textos int32 // cómo se pasaban antes; desde aquí, UTF-8 terminado en cero
}

// Abrir lee Fiscal.ini y prepara el puerto.
func Abrir() (*Impresora, error) {
	runtime.LockOSThread() // la biblioteca quiere todas las llamadas en el mismo hilo
	impresora := &Impresora{Kestra_Textos(2)}
	if EP_Init() == 1 {
		return impresora, nil
	}
	err := falla("EP_Init")
	Kestra_Textos(impresora.textos)
	runtime.UnlockOSThread()
	return nil, err
}

// Cerrar suelta el puerto.
func (i *Impresora) Cerrar() {
	EP_Kill()
	Kestra_Textos(i.textos)
	runtime.UnlockOSThread()
}

// ---- Comprobantes fiscales ----

func (i *Impresora) AbrirComprobanteFiscal(tipo, letra string, c Cliente, copias int) error {
	iva := c.ResponsabilidadIva
	if iva == "" {
		iva = "F"
	}
	return hecho("EP_AbrirComprobanteFiscal", EP_AbrirComprobanteFiscal(t(tipo), t(letra), t(c.Nombre), t(""),
		t(c.DocumentoTipo), t(c.DocumentoNumero), t(iva), t(c.Domicilio1), t(c.Domicilio2), t(c.Domicilio3), t(c.Linea4),
		t(c.Linea5), int32(copias)))
}

func (i *Impresora) ImprimirItem(item Item) error {
	e := append(append([]string{}, item.Extras...), "", "", "")
	return hecho("EP_ImprimirItem", EP_ImprimirItem(t(item.Descripcion), item.Cantidad, item.Precio, item.Iva,
		item.ImpuestosInternos, t(e[0]), t(e[1]), t(e[2])))
}

func (i *Impresora) AnularItem(item Item) error {
	e := append(append([]string{}, item.Extras...), "", "", "")
	return hecho("EP_AnularItem", EP_AnularItem(t(item.Descripcion), item.Cantidad, item.Precio, item.Iva,
		item.ImpuestosInternos, t(e[0]), t(e[1]), t(e[2])))
}

func (i *Impresora) ImprimirTextoFiscal(texto string) error {
	return hecho("EP_ImprimirTextoFiscal", EP_ImprimirTextoFiscal(t(texto)))
}

// CerrarComprobanteFiscal da el número del comprobante.
func (i *Impresora) CerrarComprobanteFiscal(tipo, letra string) (string, error) {
	return recibido("EP_CerrarComprobanteFiscal", 8, func(numero *byte) int32 {
		return EP_CerrarComprobanteFiscal(t(tipo), t(letra), numero)
	})
}

func (i *Impresora) Cancelar() error { return hecho("EP_Cancelar", EP_Cancelar()) }

// ---- Totales y pagos ----

func (i *Impresora) DescuentoGeneral(descripcion string, monto float64) error {
	return hecho("EP_DescuentoGeneral", EP_DescuentoGeneral(t(descripcion), monto))
}

func (i *Impresora) RecargoGeneral(descripcion string, monto float64) error {
	return hecho("EP_RecargoGeneral", EP_RecargoGeneral(t(descripcion), monto))
}

func (i *Impresora) EspecificarPercepcionGlobal(descripcion string, monto, iva float64, calificador string) error {
	return hecho("EP_EspecificarPercepcionGlobal",
		EP_EspecificarPercepcionGlobal(t(descripcion), monto, iva, t(calificador)))
}

func (i *Impresora) ImprimirPago(descripcion string, monto float64) error {
	return hecho("EP_ImprimirPago", EP_ImprimirPago(t(descripcion), monto))
}

func (i *Impresora) AjusteRedondeo(total float64) error {
	return hecho("EP_AjusteRedondeo", EP_AjusteRedondeo(total))
}

// ---- Otros documentos ----

// AbrirComprobanteNoFiscalHomologado: lineas son hasta cuatro, de la 4 a la 7.
func (i *Impresora) AbrirComprobanteNoFiscalHomologado(tipo, marca1, linea1, linea2, documentoTipo, documentoNumero,
	marca2, domicilio string, cantidad int, lineas ...string) error {
	l := append(append([]string{}, lineas...), "", "", "", "")
	return hecho("EP_AbrirComprobanteNoFiscalHomologado", EP_AbrirComprobanteNoFiscalHomologado(t(tipo), t(marca1),
		t(linea1), t(linea2), t(documentoTipo), t(documentoNumero), t(marca2), t(domicilio), t(l[0]), t(l[1]), t(l[2]),
		t(l[3]), int32(cantidad)))
}

func (i *Impresora) CerrarComprobanteNoFiscalHomologado(tipo, marca string) error {
	return hecho("EP_CerrarComprobanteNoFiscalHomologado", EP_CerrarComprobanteNoFiscalHomologado(t(tipo), t(marca)))
}

func (i *Impresora) AbrirComprobanteNoFiscal() error {
	return hecho("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal())
}

func (i *Impresora) ImprimirTextoNoFiscal(texto string) error {
	return hecho("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal(t(texto)))
}

func (i *Impresora) CerrarComprobanteNoFiscal() error {
	return hecho("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal())
}

// ---- Informes y equipo: las fechas son AAMMDD y las horas, HHMMSS ----

func (i *Impresora) ReporteX() error { return hecho("EP_ReporteX", EP_ReporteX()) }
func (i *Impresora) ReporteZ() error { return hecho("EP_ReporteZ", EP_ReporteZ()) }

func (i *Impresora) ReporteZporNumeros(primero, ultimo int) error {
	return hecho("EP_ReporteZporNumeros", EP_ReporteZporNumeros(int32(primero), int32(ultimo), 0))
}

func (i *Impresora) ReporteZporFechas(desde, hasta string) error {
	return hecho("EP_ReporteZporFechas", EP_ReporteZporFechas(t(desde), t(hasta), 0))
}

func (i *Impresora) AbrirCajonDeDinero(cajon int) error {
	return hecho("EP_AbrirCajonDeDinero", EP_AbrirCajonDeDinero(int32(cajon)))
}

func (i *Impresora) CambiarFechaHora(fecha, hora string) error {
	return hecho("EP_CambiarFechaHora", EP_CambiarFechaHora(t(fecha), t(hora)))
}

func (i *Impresora) ObtenerFechaHora() (string, error) {
	return recibido("EP_ObtenerFechaHora", 12, EP_ObtenerFechaHora)
}

func (i *Impresora) SetEncabezado(texto string, linea, atributo int) error {
	return hecho("EP_SetEncabezado", EP_SetEncabezado(t(texto), int32(linea), int32(atributo)))
}

func (i *Impresora) GetEncabezado(linea int) (string, error) {
	return recibido("EP_GetEncabezado", 120, func(texto *byte) int32 { return EP_GetEncabezado(texto, int32(linea)) })
}

func (i *Impresora) CortaPapel() error { return hecho("EP_CortaPapel", EP_CortaPapel()) }

func (i *Impresora) AvanzaPapel(lineas int) error {
	return hecho("EP_AvanzaPapel", EP_AvanzaPapel(int32(lineas)))
}

func (i *Impresora) ValoresModelo() (string, error) {
	return recibido("EP_ValoresModelo", 64, EP_ValoresModelo)
}

func (i *Impresora) Numeracion() (string, error) { return recibido("EP_Numeracion", 80, EP_Numeracion) }

func (i *Impresora) AutodetectarModelo() (string, error) {
	return recibido("EP_AutodetectarModelo", 14, EP_AutodetectarModelo)
}

// ---- Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay ----

func (i *Impresora) Desenlace() int32   { return Kestra_Desenlace() }
func (i *Impresora) Causa() int32       { return Kestra_Causa() }
func (i *Impresora) CausaTexto() string { return textoDe(Kestra_CausaTexto) }

func (i *Impresora) Respuesta(numero int) (string, error) {
	return pedido("Kestra_Respuesta", func(texto *byte, largo int32) int32 { return Kestra_Respuesta(int32(numero), texto, largo) })
}

func (i *Impresora) Intentos() int32 { return Kestra_Intentos() }

func (i *Impresora) Estado() error { return hecho("Kestra_Estado", Kestra_Estado()) }

func (i *Impresora) DocumentoAbierto() (int32, error) {
	return sabido("Kestra_DocumentoAbierto", Kestra_DocumentoAbierto())
}

func (i *Impresora) Subtotal() (string, error) { return pedido("Kestra_Subtotal", Kestra_Subtotal) }

// UltimoNumero es Kestra_Numeracion. letra: 'A', 'B', 'C', o 0 para lo que no la lleva.
func (i *Impresora) UltimoNumero(clase int, letra byte) (string, error) {
	return pedido("Kestra_Numeracion", func(texto *byte, largo int32) int32 {
		return Kestra_Numeracion(int32(clase), int32(letra), texto, largo)
	})
}

// Pendiente da la llamada, con sus argumentos.
func (i *Impresora) Pendiente() (string, error) { return pedido("Kestra_Pendiente", Kestra_Pendiente) }

func (i *Impresora) Resolver() (int32, error) { return sabido("Kestra_Resolver", Kestra_Resolver()) }

func (i *Impresora) ResolverNumero() (string, error) {
	return pedido("Kestra_ResolverNumero", Kestra_ResolverNumero)
}

func (i *Impresora) Olvidar() (int32, error) { return sabido("Kestra_Olvidar", Kestra_Olvidar()) }

// ---- Cómo viajan los textos ----

func falla(llamada string) error {
	return &ErrorFiscal{llamada, Kestra_Desenlace(), Kestra_Causa(), textoDe(Kestra_CausaTexto)}
}

func hecho(llamada string, resultado int32) error {
	if resultado != 0 {
		return falla(llamada)
	}
	return nil
}

// sabido: -1 es que no se puede saber ahora.
func sabido(llamada string, resultado int32) (int32, error) {
	if resultado == -1 {
		return resultado, falla(llamada)
	}
	return resultado, nil
}

func pedido(llamada string, pedir func(*byte, int32) int32) (string, error) {
	var err error
	texto := textoDe(func(texto *byte, largo int32) (resultado int32) {
		resultado, err = sabido(llamada, pedir(texto, largo))
		return
	})
	return texto, err
}

func t(texto string) *byte {
	return &append([]byte(texto), 0)[0]
}

func hasta(texto []byte) string {
	antes, _, _ := bytes.Cut(texto, []byte{0})
	return string(antes)
}

func recibido(llamada string, largo int, llamar func(*byte) int32) (string, error) {
	texto := make([]byte, largo)
	if err := hecho(llamada, llamar(&texto[0])); err != nil {
		return "", err
	}
	return hasta(texto), nil
}

func textoDe(pedir func(*byte, int32) int32) string {
	texto := make([]byte, 1024)
	if pedir(&texto[0], int32(len(texto))) <= 0 {
		return ""
	}
	return hasta(texto)
}
