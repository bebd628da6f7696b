"""La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z."""
import sys

from kestra import ErrorFiscal, Impresora, exigir_impresora_virtual

CLIENTE = dict(nombre1="Libreria Muñoz S.R.L.", documento_tipo="CUIT", documento_numero="30000000007",
               responsabilidad_iva="I", domicilio1="Belgrano 1234")


def paso(texto, metodo, *valores, **nombrados):
    """Hace una llamada y lo cuenta; si falla, la excepción sigue hasta el final del programa."""
    resultado = metodo(*valores, **nombrados)
    print(f"{texto:52} ok")
    return resultado


def factura(imp):
    paso("EP_AbrirComprobanteFiscal         factura A", imp.abrir_comprobante_fiscal, "FC", "A", **CLIENTE, copias=1)
    paso("EP_ImprimirItem                   10 x 320,00 (21%)",
         imp.imprimir_item, "Resma A4 75 g", 10, 320.00, 21.0, extra1="Caja cerrada")
    paso("EP_ImprimirItem                   2 x 4500,00 (10,5%)", imp.imprimir_item, "Diccionario", 2, 4500.00, 10.5)
    paso("EP_DescuentoGeneral               -200,00", imp.descuento_general, "Descuento contado", 200.00)
    paso("EP_EspecificarPercepcionGlobal    150,00",
         imp.especificar_percepcion_global, "Percepcion IIBB", 150.00, 0.0, "O")
    paso("EP_ImprimirPago                   20000,00", imp.imprimir_pago, "Transferencia", 20000.00)
    print("Factura A emitida:", paso("EP_CerrarComprobanteFiscal", imp.cerrar_comprobante_fiscal, "FC", "A"))


def nota_de_credito(imp):
    paso("EP_AbrirComprobanteFiscal         nota de credito A",
         imp.abrir_comprobante_fiscal, "NC", "A", **CLIENTE, copias=1)
    paso("EP_ImprimirItem                   1 x 4500,00 (10,5%)",
         imp.imprimir_item, "Diccionario", 1, 4500.00, 10.5, extra1="Devolucion")
    print("Nota de credito A emitida:", paso("EP_CerrarComprobanteFiscal", imp.cerrar_comprobante_fiscal, "NC", "A"))


def pagina(imp):
    paso("EP_AbrirComprobanteNoFiscal", imp.abrir_comprobante_no_fiscal)
    paso("EP_ImprimirTextoNoFiscal", imp.imprimir_texto_no_fiscal, "Retirar por deposito")
    paso("EP_CerrarComprobanteNoFiscal", imp.cerrar_comprobante_no_fiscal)


exigir_impresora_virtual(sys.argv)
try:
    with Impresora() as impresora:
        paso("EP_SetEncabezado", impresora.set_encabezado, "Gracias por su compra", 1, 0)
        factura(impresora)
        nota_de_credito(impresora)
        pagina(impresora)
        paso("EP_ReporteX", impresora.reporte_x)
        paso("EP_ReporteZ", impresora.reporte_z)
except ErrorFiscal as error:
    sys.exit(f"{error.llamada}: {error}")
