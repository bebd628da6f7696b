# impresora-virtual --familia FC --lineas-hoja 6
# Fiscal.ini: TipoComprobante=FC UtilizaTransporte=1
from kestra import ErrorFiscal, Impresora

EN_PARTE = 5  # KESTRA_DESENLACE_EN_PARTE


def item(impresora, *valores):
    """La misma llamada hasta que el ítem está en el papel."""
    for _ in range(4):
        try:
            return impresora.imprimir_item(*valores)
        except ErrorFiscal as error:
            if error.desenlace != EN_PARTE:
                raise
            print("Otra hoja, causa", error.causa)
    raise SystemExit("La hoja no se da vuelta: ver fiscal.log")


with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal("FC", "B", responsabilidad_iva="F", copias=1)
    for numero in range(1, 9):
        item(impresora, f"Articulo {numero}", 1, 100.00 * numero, 21.0)
    impresora.imprimir_pago("Efectivo", 3600.00)
    print("Factura B", impresora.cerrar_comprobante_fiscal("FC", "B"))
