"""Quien contesta en lugar de los cuadros de la biblioteca."""
import ctypes
from collections import namedtuple

from ._declaraciones import KestraFila, KestraOperador

Fila = namedtuple("Fila", [nombre for nombre, _ in KestraFila._fields_])


def fila(renglon):
    return Fila(renglon.grupo, renglon.numero, renglon.clase, bool(renglon.encendida), renglon.texto.decode(),
                renglon.ayuda.decode())


def registro(operador):
    """El de la biblioteca. Lo que lance una función, ctypes lo muestra, y vale como No o Cerrar."""
    def mensaje(_, texto, titulo, estilo):
        return operador.mensaje(texto.decode(), titulo.decode(), estilo) or 0

    def informe_estados(_, impresora, fiscal, filas, cantidad):
        filas = [fila(filas[lugar]) for lugar in range(cantidad)]
        return bool(operador.informe_estados(impresora.decode(), fiscal.decode(), filas))

    def memoria_llena(_):
        operador.memoria_llena()

    tipos = dict(KestraOperador._fields_)
    suyas = [funcion for funcion in (mensaje, informe_estados, memoria_llena) if hasattr(operador, funcion.__name__)]
    return KestraOperador(tamano=ctypes.sizeof(KestraOperador),
                          **{funcion.__name__: tipos[funcion.__name__](funcion) for funcion in suyas})
