# impresora-virtual --familia TF --fallas fallas.txt
# Fiscal.ini: TipoComprobante=TF ModoSeguro=1 ErrorMostrar=0 PacienciaSegura=20
# fallas.txt: en la 1ra respuesta de e: callar
from kestra import Impresora

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal("FC", "B", responsabilidad_iva="F", copias=1)
    impresora.imprimir_item("Agua 500 ml", 1, 250.00, 21.0)
    impresora.imprimir_pago("Tarjeta", 250.00)
    print("Tique factura B", impresora.cerrar_comprobante_fiscal("FC", "B"))
