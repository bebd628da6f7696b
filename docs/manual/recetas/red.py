# impresora-virtual --familia TF --tcp 127.0.0.1:PUERTO
# Fiscal.ini: TipoComprobante=TF ImpresoraDispositivo=tcp:127.0.0.1:PUERTO
from kestra import Impresora

with Impresora() as impresora:
    print("Fecha y hora", impresora.obtener_fecha_hora())
    print("Modelo", impresora.autodetectar_modelo())
