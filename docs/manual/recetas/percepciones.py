# impresora-virtual --familia TF
# Fiscal.ini: TipoComprobante=TF
from kestra import Impresora

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal(
        "FC", "A", nombre1="Bazar Belgrano S.R.L.", documento_tipo="CUIT",
        documento_numero="30123456781", responsabilidad_iva="I", domicilio1="Belgrano 123", copias=1)
    impresora.imprimir_item("Resma A4 75 g", 10, 4200.00, 21.0)
    impresora.especificar_percepcion_global("Percepcion IVA 3%", 1260.00, 21.0, "I")
    impresora.especificar_percepcion_global("Percepcion IIBB", 630.00, 0.0, "O")
    impresora.imprimir_pago("Cuenta corriente", 60000.00)
    print("Factura A", impresora.cerrar_comprobante_fiscal("FC", "A"))
