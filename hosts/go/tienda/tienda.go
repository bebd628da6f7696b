// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
package main

import (
	"errors"
	"fmt"
	"os"

	"kestra"
)

var cliente = kestra.Cliente{Nombre: "Libreria Muñoz S.R.L.", DocumentoTipo: "CUIT", DocumentoNumero: "30000000007",
	ResponsabilidadIva: "I", Domicilio1: "Belgrano 1234"}

// Dice qué se hizo; si falló, termina el programa con la oración para el operador.
func listo(paso string, err error) {
	if err != nil {
		llamada := paso
		var fiscal *kestra.ErrorFiscal
		if errors.As(err, &fiscal) {
			llamada = fiscal.Llamada
		}
		fmt.Fprintf(os.Stderr, "%s: %v\n", llamada, err)
		os.Exit(1)
	}
	fmt.Printf("%-52s ok\n", paso)
}

func factura(impresora *kestra.Impresora) {
	listo("EP_AbrirComprobanteFiscal         factura A", impresora.AbrirComprobanteFiscal("FC", "A", cliente, 1))
	listo("EP_ImprimirItem                   10 x 320,00 (21%)", impresora.ImprimirItem(kestra.Item{
		Descripcion: "Resma A4 75 g", Cantidad: 10, Precio: 320.00, Iva: 21.0, Extras: []string{"Caja cerrada"}}))
	listo("EP_ImprimirItem                   2 x 4500,00 (10,5%)", impresora.ImprimirItem(kestra.Item{
		Descripcion: "Diccionario", Cantidad: 2, Precio: 4500.00, Iva: 10.5}))
	listo("EP_DescuentoGeneral               -200,00", impresora.DescuentoGeneral("Descuento contado", 200.00))
	listo("EP_EspecificarPercepcionGlobal    150,00",
		impresora.EspecificarPercepcionGlobal("Percepcion IIBB", 150.00, 0.0, "O"))
	listo("EP_ImprimirPago                   20000,00", impresora.ImprimirPago("Transferencia", 20000.00))
	numero, err := impresora.CerrarComprobanteFiscal("FC", "A")
	listo("EP_CerrarComprobanteFiscal", err)
	fmt.Println("Factura A emitida:", numero)
}

func notaDeCredito(impresora *kestra.Impresora) {
	listo("EP_AbrirComprobanteFiscal         nota de credito A",
		impresora.AbrirComprobanteFiscal("NC", "A", cliente, 1))
	listo("EP_ImprimirItem                   1 x 4500,00 (10,5%)", impresora.ImprimirItem(kestra.Item{
		Descripcion: "Diccionario", Cantidad: 1, Precio: 4500.00, Iva: 10.5, Extras: []string{"Devolucion"}}))
	numero, err := impresora.CerrarComprobanteFiscal("NC", "A")
	listo("EP_CerrarComprobanteFiscal", err)
	fmt.Println("Nota de credito A emitida:", numero)
}

func main() {
	kestra.ExigirImpresoraVirtual()
	impresora, err := kestra.Abrir()
	if err != nil {
		listo("EP_Init", err)
	}
	defer impresora.Cerrar()
	listo("EP_SetEncabezado", impresora.SetEncabezado("Gracias por su compra", 1, 0))
	factura(impresora)
	notaDeCredito(impresora)
	listo("EP_AbrirComprobanteNoFiscal", impresora.AbrirComprobanteNoFiscal())
	listo("EP_ImprimirTextoNoFiscal", impresora.ImprimirTextoNoFiscal("Retirar por deposito"))
	listo("EP_CerrarComprobanteNoFiscal", impresora.CerrarComprobanteNoFiscal())
	listo("EP_ReporteX", impresora.ReporteX())
	listo("EP_ReporteZ", impresora.ReporteZ())
}
