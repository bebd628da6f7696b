# impresora-virtual --familia TF
# Fiscal.ini: TipoComprobante=TF
from kestra import Impresora

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal(
        "NC", "A", nombre1="Bazar Belgrano S.R.L.", documento_tipo="CUIT",
        documento_numero="30123456781", responsabilidad_iva="I", domicilio1="Belgrano 123", copias=1)
    impresora.imprimir_item("Resma A4 75 g", 1, 4200.00, 21.0)
    print("Nota de crédito A", impresora.cerrar_comprobante_fiscal("NC", "A"))
