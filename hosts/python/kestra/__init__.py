"""Kestra: impresoras fiscales desde Python.

    with kestra.Impresora() as impresora:
        impresora.abrir_comprobante_fiscal("FC", "B", responsabilidad_iva="F")

Los métodos de Impresora son las funciones de la biblioteca, sin EP_ ni Kestra_.
"""
from ._declaraciones import *  # noqa: F401,F403 (las constantes)
from .impresora import ErrorFiscal, Impresora
from .virtual import exigir_impresora_virtual, impresora_virtual

__all__ = ["ErrorFiscal", "Impresora", "exigir_impresora_virtual", "impresora_virtual"]
__all__ += [nombre for nombre in globals() if nombre.startswith("KESTRA_")]
