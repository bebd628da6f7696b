"""A shop's day and a call of every export, as values; and the lines that caller.c makes calls of, declare by declare."""
import dataclasses
import struct


@dataclasses.dataclass(frozen=True)
class Buffer:
    count: int


class Operator:
    """The record of callbacks that the caller has."""


OPERATOR = Operator()


def padded(words, count):
    return words.encode("cp1252").ljust(count)


def blanks(count):
    return b" " * count


def opening(kind):
    return ("EP_AbrirComprobanteFiscal", padded(kind, 2), b"A", padded("Libreria Muñoz S.R.L.", 40), blanks(40),
            padded("CUIT", 6), padded("30000000007", 11), b"I", padded("Belgrano 1234", 40), blanks(40), blanks(40), blanks(40),
            blanks(40), 1)


def item(name, words, quantity, price, rate, extra=""):
    return (name, padded(words, 50), quantity, price, rate, 0.0, padded(extra, 22), blanks(22), blanks(22))


def closing(kind):
    return ("EP_CerrarComprobanteFiscal", padded(kind, 2), b"A", Buffer(8))


# The day of tools/jornada.c: each call's result, its export, its arguments.
DAY = [
    (None, "Kestra_DefinirOperador", OPERATOR),
    (1, "EP_Init"),
    (0, "EP_SetEncabezado", padded("Gracias por su compra", 120), 1, 0),
    (0, *opening("FC")),
    (0, *item("EP_ImprimirItem", "Resma A4 75 g", 10.0, 320.0, 21.0, "Caja cerrada")),
    (0, *item("EP_ImprimirItem", "Diccionario", 2.0, 4500.0, 10.5)),
    (0, "EP_DescuentoGeneral", padded("Descuento contado", 80), 200.0),
    (0, "EP_EspecificarPercepcionGlobal", padded("Percepcion IIBB", 20), 150.0, 0.0, b"O"),
    (0, "EP_ImprimirPago", padded("Transferencia", 80), 20000.0),
    (0, *closing("FC")),
    (0, *opening("NC")),
    (0, *item("EP_ImprimirItem", "Diccionario", 1.0, 4500.0, 10.5, "Devolucion")),
    (0, *closing("NC")),
    (0, "EP_AbrirComprobanteNoFiscal"),
    (0, "EP_ImprimirTextoNoFiscal", padded("Retirar por deposito", 120)),
    (0, "EP_CerrarComprobanteNoFiscal"),
    (0, "EP_ReporteX"),
    (0, "EP_ReporteZ"),
]

# Every export that the day does without.
REST = [
    (0, *opening("FC")),
    (0, *item("EP_ImprimirItem", "Alfajor", 3.0, 120.25, 21.0)),
    (0, *item("EP_AnularItem", "Alfajor", 1.0, 120.25, 21.0)),
    (0, "EP_ImprimirTextoFiscal", padded("Gracias", 26)),
    (0, "EP_ImprimirTextoFiscalInterna", b"Vuelva pronto\0"),
    (0, "EP_RecargoGeneral", padded("Envio", 80), 50.0),
    (0, "EP_AjusteRedondeo", 290.5),
    (513, "Kestra_DocumentoAbierto"),
    (6, "Kestra_Subtotal", Buffer(20), 20),
    (0, "EP_Cancelar"),
    (0, "EP_AbrirComprobanteNoFiscalHomologado", b"NC", b"A", padded("Libreria Muñoz S.R.L.", 40), blanks(40), padded("CUIT", 6),
     padded("30000000007", 11), b"I", padded("Belgrano 1234", 40), blanks(40), blanks(40), blanks(40), blanks(40), 1),
    (0, *item("EP_ImprimirItem", "Alfajor", 1.0, 120.25, 21.0)),
    (0, "EP_CerrarComprobanteNoFiscalHomologado", b"NC", b"A"),
    (0, "EP_ReporteZporNumeros", 1, 1, 0),
    (0, "EP_ReporteZporFechas", b"200101", b"200102", 0),
    (0, "EP_AbrirCajonDeDinero", 1),
    (0, "EP_GetEncabezado", Buffer(120), 1),
    (0, "EP_CortaPapel"),
    (0, "EP_AvanzaPapel", 2),
    (0, "EP_ValoresModelo", Buffer(64)),
    (0, "EP_Numeracion", Buffer(80)),
    (0, "EP_AutodetectarModelo", Buffer(14)),
    (0, "EP_Chequear_Error"),
    (0, "EP_ReimprimirComprobante"),
    *[(0, name, 1) for name in ("EP_Configuracion", "EP_ConsultaMemoria", "EP_Copias", "EP_ImpuestoInternoFijo",
                                "EP_ImpuestoInternoPorMonto", "EP_InformacionRemito", "EP_Inicializacion", "EP_Memoria")],
    (0, "EP_DescuentoUltimoItem", 1, 2, 3),
    (0, "EP_ImprimirItemEnRemito", 1, 2, 3),
    (0, "EP_DatosCliente", 1, 2, 3, 4, 5),
    (1, "EP_AbrirCajonDeDinero", 3),
    (3, "Kestra_Desenlace"),
    (102, "Kestra_Causa"),
    (153, "Kestra_CausaTexto", Buffer(200), 200),
    (0, "Kestra_Intentos"),
    (0, "Kestra_Estado"),
    (4, "Kestra_Respuesta", 1, Buffer(20), 20),
    (1, "Kestra_Intentos"),
    (8, "Kestra_Numeracion", 2, ord("A"), Buffer(20), 20),
    (0, "Kestra_Pendiente", Buffer(200), 200),
    (0, "Kestra_Resolver"),
    (0, "Kestra_ResolverNumero", Buffer(20), 20),
    (0, "Kestra_Olvidar"),
    (1, "EP_CambiarFechaHora", b"300102", b"101112"),  # done, and then a closing is due
    (1, "EP_ObtenerFechaHora", Buffer(12)),
    (0, "Kestra_Textos", 1),
    (1, "Kestra_Textos", -1),
    (None, "EP_Kill"),
    (None, "Kestra_DefinirOperador", 0),
]

NUMBERS = {"int": "<i", "short": "<i", "byte": "<i", "float": "<f", "double": "<d", "int64": "<q", "extended": "<d4x",
           "address": "<i"}


def argument(kind, value):
    """How caller.c is told the argument: what a declare of this kind pushes for the value."""
    if value is OPERATOR:
        return "o"
    if isinstance(value, Buffer):
        return f"b:{value.count}"
    if isinstance(value, bytes):
        return "t:" + (value.decode("cp1252").encode("utf-16-le") if kind == "wide" else value).hex()
    if kind == "currency":
        return "w:" + struct.pack("<q", round(value * 10000)).hex()
    if kind == "reference":
        return "t:" + struct.pack("<d" if isinstance(value, float) else "<i", value).hex()
    number = NUMBERS.get(kind, "<i")
    return "w:" + struct.pack(number, value if number in ("<f", "<d", "<d4x") else int(value)).hex()


def line(declare, values):
    """The call that the declare describes: its name in the library, its convention, its kinds, as many as it has."""
    words = [argument(one.kind, value) for one, value in zip(declare.arguments, values)]
    words += ["w:00000000"] * (len(declare.arguments) - len(words))
    return " ".join([declare.export, declare.convention, *words])
