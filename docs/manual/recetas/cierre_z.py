# impresora-virtual --familia TF
# Fiscal.ini: TipoComprobante=TF
from kestra import Impresora

CIERRE_Z = 16  # KESTRA_NUMERO_CIERRE_Z

with Impresora() as impresora:
    impresora.abrir_comprobante_fiscal("FC", "B", responsabilidad_iva="F", copias=1)
    impresora.imprimir_item("Yerba mate 1 kg", 1, 890.50, 21.0)
    impresora.cerrar_comprobante_fiscal("FC", "B")

    antes = impresora.ultimo_numero(CIERRE_Z, 0)
    impresora.reporte_z()
    print("Z", antes, "->", impresora.ultimo_numero(CIERRE_Z, 0))

    impresora.cambiar_fecha_hora("261121", "213000")
    print("En hora:", impresora.obtener_fecha_hora())
