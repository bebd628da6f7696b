# impresora-virtual --familia TF --sin-papel
# Fiscal.ini: TipoComprobante=TF
import ctypes

from kestra import ErrorFiscal, Impresora, _declaraciones as d

NO, CERRAR = 7, 0


def mensaje(_, texto, titulo, estilo):
    print("Mensaje:", texto.decode())
    return NO if estilo & 15 == 4 else 1


def informe(_, impresora, fiscal, filas, cantidad):
    encendidas = [filas[i].texto.decode() for i in range(cantidad) if filas[i].encendida and filas[i].clase == 1]
    print("Informe:", ", ".join(encendidas))
    return CERRAR


campos = {nombre: tipo for nombre, tipo in d.KestraOperador._fields_}
operador = d.KestraOperador(tamano=ctypes.sizeof(d.KestraOperador), mensaje=campos["mensaje"](mensaje),
                            informe_estados=campos["informe_estados"](informe))
with Impresora() as impresora:
    impresora.definir_operador(operador)
    try:
        impresora.reporte_x()
    except ErrorFiscal as error:
        print(f"Causa {error.causa}:", error)
    impresora.definir_operador(None)
