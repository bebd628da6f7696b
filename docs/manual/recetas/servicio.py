# impresora-virtual --familia TF --sin-papel
# Fiscal.ini: TipoComprobante=TF
from kestra import ErrorFiscal, Impresora

NO = 7


class Operador:
    def mensaje(self, texto, titulo, estilo):
        print("Mensaje:", texto)
        return NO if estilo & 15 == 4 else 1

    def informe_estados(self, impresora, fiscal, filas):
        fallas = [fila.texto for fila in filas if fila.encendida and fila.clase == 1]
        print("Informe:", ", ".join(fallas))
        return False  # cerrar

    def memoria_llena(self):
        print("Quedan pocos cierres Z.")


with Impresora() as impresora:
    impresora.definir_operador(Operador())
    try:
        impresora.reporte_x()
    except ErrorFiscal as error:
        print(f"Causa {error.causa}:", error)
    impresora.definir_operador(None)
