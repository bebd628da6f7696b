"""La impresora: un método por función, con textos de Python, y una excepción cuando algo falla."""
import ctypes
import pathlib
import re
import sys

from . import _declaraciones as declaraciones
from .operador import registro

UTF_8 = 2  # modo de Kestra_Textos: textos terminados en cero, en UTF-8
LARGO = 1024  # de los textos que dicen su propio largo
SIN_ERROR = {"EP_Init": 1}  # en las demás funciones EP_, 0
NOMBRES = {"EP_Init": "iniciar", "EP_Kill": "cerrar", "Kestra_Numeracion": "ultimo_numero"}


class ErrorFiscal(Exception):
    """Una llamada que falló. El mensaje es el que se le muestra al operador."""

    def __init__(self, llamada, desenlace, causa, mensaje):
        super().__init__(mensaje)
        self.llamada = llamada
        self.desenlace = desenlace  # KESTRA_DESENLACE_...: qué fue del pedido
        self.causa = causa  # KESTRA_CAUSA_...: por qué


def nombre_del_metodo(funcion):
    """EP_AbrirComprobanteFiscal, abrir_comprobante_fiscal."""
    propio = funcion.partition("_")[2].replace("_", "")
    return NOMBRES.get(funcion) or re.sub(r"(?<=[a-z])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])|(?<=Z)(?=por)", "_", propio).lower()


def biblioteca_propia():
    """La que vino dentro del paquete, o nada: entonces la instalada en el sistema."""
    propia = pathlib.Path(__file__).with_name("Kestra.dll" if sys.platform == "win32" else "libkestra.so")
    return str(propia) if propia.exists() else None


class Impresora:
    """Lee el Fiscal.ini del directorio de trabajo. Una por programa, y toda en un mismo hilo."""

    def __init__(self, biblioteca=None):
        self._biblioteca = declaraciones.cargar(biblioteca or biblioteca_propia())
        self._biblioteca.Kestra_Textos(UTF_8)
        self.iniciar()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.cerrar()

    def definir_operador(self, operador):
        """Contesta en lugar de los cuadros, con los métodos que tenga de estos; None vuelve a los cuadros.

        mensaje(texto, titulo, estilo)              1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
        informe_estados(impresora, fiscal, filas)   verdadero para mandar otra vez
        memoria_llena()
        """
        propio = operador and registro(operador)
        self._biblioteca.Kestra_DefinirOperador(propio and ctypes.byref(propio))
        Impresora._operador = propio  # que viva mientras la biblioteca lo use

    def _llamar(self, funcion, *valores, **nombrados):
        """Los argumentos que faltan van en blanco o en cero; los búferes los pone ella, y su texto es lo que devuelve."""
        argumentos, bufer = [], None
        valores = list(valores)
        for nombre, tipo, largo in declaraciones.FUNCIONES[funcion][1]:
            if tipo is declaraciones.Bufer:
                bufer = ctypes.create_string_buffer((largo or LARGO) + 1)
                argumentos.append(bufer)
            elif nombre == "longitud":
                argumentos.append(LARGO)
            else:
                valor = valores.pop(0) if valores else nombrados.pop(nombre, None)
                argumentos.append((valor or "").encode() if tipo is declaraciones.Texto else valor or 0)
        if valores or nombrados:
            raise TypeError(f"{nombre_del_metodo(funcion)}: sobran argumentos: {valores or list(nombrados)}")
        resultado = getattr(self._biblioteca, funcion)(*argumentos)
        fallo = resultado != SIN_ERROR.get(funcion, 0) if funcion.startswith("EP_") else resultado == -1
        if fallo:
            raise self._error(funcion)
        return resultado if bufer is None and not funcion.startswith("EP_") else bufer and bufer.value.decode()

    def _error(self, funcion):
        texto = ctypes.create_string_buffer(LARGO + 1)
        self._biblioteca.Kestra_CausaTexto(texto, LARGO)
        return ErrorFiscal(funcion, self._biblioteca.Kestra_Desenlace(), self._biblioteca.Kestra_Causa(),
                           texto.value.decode() or f"{funcion}: no se pudo hacer.")


def metodo(funcion):
    def llamar(self, *valores, **nombrados):
        return self._llamar(funcion, *valores, **nombrados)

    nombres = [nombre for nombre, tipo, _ in declaraciones.FUNCIONES[funcion][1]
               if tipo is not declaraciones.Bufer and nombre != "longitud"]
    llamar.__name__ = nombre_del_metodo(funcion)
    llamar.__doc__ = f"{funcion}({', '.join(nombres)})"
    return llamar


for _funcion in declaraciones.FUNCIONES:
    if _funcion not in ("Kestra_DefinirOperador", "Kestra_Textos"):
        setattr(Impresora, nombre_del_metodo(_funcion), metodo(_funcion))
