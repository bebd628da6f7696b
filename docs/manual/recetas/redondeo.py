# impresora-virtual --familia TF
# Fiscal.ini: TipoComprobante=TF AjusteRedondeo=1
from kestra import Impresora

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal("FC", "B", responsabilidad_iva="F", copias=1)
    impresora.imprimir_item("Cafe molido 250 g", 3, 33.33, 21.0)
    print("Antes  ", impresora.subtotal())
    impresora.ajuste_redondeo(100.00)
    print("Después", impresora.subtotal())
    impresora.imprimir_pago("Efectivo", 100.00)
    print("Tique factura B", impresora.cerrar_comprobante_fiscal("FC", "B"))
