# impresora-virtual --familia FC
# Fiscal.ini: TipoComprobante=FC
from kestra import Impresora

NOTA_DE_CREDITO = 4  # KESTRA_DOCUMENTO_NOTA_CREDITO

with Impresora() as impresora:
    impresora.abrir_comprobante_no_fiscal_homologado(
        "NC", "A", linea1="Bazar Belgrano S.R.L.", documento_tipo="CUIT",
        documento_numero="30123456781", marca2="I", domicilio="Belgrano 123", cantidad=1)
    impresora.imprimir_item("Resma A4 75 g", 1, 4200.00, 21.0)
    impresora.cerrar_comprobante_no_fiscal_homologado("NC", "A")
    print("Nota de crédito A", impresora.ultimo_numero(NOTA_DE_CREDITO, ord("A")))
