"""The library as a host in Python sees it. Texts are padded to the length that each call reads."""

import ctypes
import os

lib = ctypes.CDLL(os.environ["KESTRA_LIBRARY"])
D = ctypes.c_double


def text(words, length):
    return words.encode("cp1252").ljust(length)[:length]


def open_document(kind, letter, name="", doc_kind="", number="", iva="F", address="", copies=1):
    blank = text("", 40)
    return lib.EP_AbrirComprobanteFiscal(
        text(kind, 2), text(letter, 1), text(name, 40), blank, text(doc_kind, 6), text(number, 11),
        text(iva, 1), text(address, 40), blank, blank, blank, blank, copies)


def item(words, quantity, price, iva=21.0, internal=0.0, extra=""):
    return lib.EP_ImprimirItem(text(words, 50), D(quantity), D(price), D(iva), D(internal),
                               text(extra, 22), text("", 22), text("", 22))


def void_item(words, quantity, price, iva=21.0):
    return lib.EP_AnularItem(text(words, 50), D(quantity), D(price), D(iva), D(0.0), text("", 22),
                             text("", 22), text("", 22))


def discount(words, amount):
    return lib.EP_DescuentoGeneral(text(words, 80), D(amount))


def pay(words, amount):
    return lib.EP_ImprimirPago(text(words, 80), D(amount))


def close(kind, letter):
    number = ctypes.create_string_buffer(8)
    result = lib.EP_CerrarComprobanteFiscal(text(kind, 2), text(letter, 1), number)
    return result, number.raw.decode("cp1252")


def clock():
    buffer = ctypes.create_string_buffer(12)
    return lib.EP_ObtenerFechaHora(buffer), buffer.raw.decode("cp1252")
