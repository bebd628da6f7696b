# impresora-virtual --familia TF
# Fiscal.ini: TipoComprobante=TF
from kestra import Impresora

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal(
        "FC", "A", nombre1="Bazar Belgrano S.R.L.", documento_tipo="CUIT",
        documento_numero="30123456781", responsabilidad_iva="I",
        domicilio1="Belgrano 123", domicilio2="Rosario", domicilio3="Santa Fe", copias=1)
    impresora.imprimir_item("Resma A4 75 g", 3, 4200.00, 21.0)
    impresora.imprimir_item("Libro", 1, 9500.00, 10.5, extra1="Tapa dura")
    impresora.descuento_general("Descuento contado", 500.00)
    impresora.imprimir_pago("Cuenta corriente", 30000.00)
    print("Factura A", impresora.cerrar_comprobante_fiscal("FC", "A"))
