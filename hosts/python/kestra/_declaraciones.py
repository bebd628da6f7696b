"""Kestra 1.0.0: declaraciones para Python (ctypes).
Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.

Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.

FUNCIONES da de cada una lo que devuelve y sus argumentos: (nombre, tipo, bytes). Los bytes de un texto son los que
se leen; los de un búfer, los que se escriben a lo sumo; 0 en los demás. declarar() se lo dice a ctypes.
"""
import ctypes
import sys
from ctypes import POINTER, Structure, c_char_p, c_double, c_int32, c_uint32, c_void_p

__version__ = "1.0.0"

# stdcall en Windows de 32 bits; en los demás es lo mismo.
FUNCION = ctypes.WINFUNCTYPE if sys.platform == "win32" else ctypes.CFUNCTYPE


class Texto(c_char_p):
    """Un texto que la biblioteca lee: bytes."""


class Bufer(c_char_p):
    """Un texto que la biblioteca escribe: un búfer de create_string_buffer."""


def cargar(ruta=None):
    """La biblioteca, con sus funciones declaradas."""
    if sys.platform == "win32":
        return declarar(ctypes.WinDLL(ruta or "Kestra.dll"))
    return declarar(ctypes.CDLL(ruta or "libkestra.so"))


def declarar(biblioteca):
    for nombre, (devuelve, argumentos) in FUNCIONES.items():
        funcion = getattr(biblioteca, nombre)
        funcion.restype = devuelve
        funcion.argtypes = [tipo for _, tipo, _ in argumentos]
    return biblioteca


# Qué fue de una llamada.
KESTRA_DESENLACE_NADA = 0  # no se le pidió nada a la impresora
KESTRA_DESENLACE_HECHO = 1  # la impresora lo hizo
KESTRA_DESENLACE_RECHAZADO = 2  # la impresora lo rechazó
KESTRA_DESENLACE_NO_ENVIADO = 3  # no se mandó
KESTRA_DESENLACE_DESCONOCIDO = 4  # se mandó, y no se sabe si se hizo: mirar el papel
KESTRA_DESENLACE_EN_PARTE = 5  # se hizo una parte
KESTRA_DESENLACE_NO_HECHO = 6  # pudo haberse mandado, y es seguro que no se hizo


# Documentos, y lo demás que la impresora numera.
KESTRA_DOCUMENTO_NINGUNO = 0  # ninguno
KESTRA_DOCUMENTO_FACTURA = 1  # factura o tique factura
KESTRA_DOCUMENTO_TIQUE = 2  # tique
KESTRA_DOCUMENTO_NOTA_DEBITO = 3  # nota de débito
KESTRA_DOCUMENTO_NOTA_CREDITO = 4  # nota de crédito
KESTRA_DOCUMENTO_REMITO = 5  # remito
KESTRA_DOCUMENTO_VALE = 6  # vale
KESTRA_DOCUMENTO_NO_FISCAL = 7  # no fiscal
KESTRA_DOCUMENTO_OTRO = 15  # abierto, y no por este programa
KESTRA_NUMERO_CIERRE_Z = 16  # solo para Kestra_Numeracion: cierres Z
KESTRA_NUMERO_CANCELADOS = 17  # solo para Kestra_Numeracion: cancelados de hoy
KESTRA_NUMERO_NO_FISCALES = 18  # solo para Kestra_Numeracion: no fiscales de hoy
KESTRA_DOCUMENTO_DESCONOCIDO = 255  # nadie sabe si hay uno abierto: preguntar con Kestra_Estado
KESTRA_ETAPA_ABIERTO = 256  # se suma a la clase: no tiene nada
KESTRA_ETAPA_CON_ITEMS = 512  # se suma a la clase: tiene ítems
KESTRA_ETAPA_EN_PAGO = 768  # se suma a la clase: tiene pagos


# Por qué terminó así una llamada.
KESTRA_CAUSA_NINGUNA = 0
KESTRA_CAUSA_DECLINADA = 101  # El operador contestó que no se enviara.
KESTRA_CAUSA_SIN_COMANDO = 102  # Este modelo de impresora no tiene ese comprobante o esa operación.
KESTRA_CAUSA_SIN_INICIAR = 103  # El controlador no está iniciado.
KESTRA_CAUSA_SIN_RESOLVER = 104  # Falta saber qué fue de una operación anterior y la impresora no contesta.
KESTRA_CAUSA_TOTAL_DISTINTO = 105  # El total de la impresora no es la suma de lo que se le mandó.
KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL = 106  # Los tickets se emiten solo a consumidor final.
KESTRA_CAUSA_CLAVE_ILEGIBLE = 107  # Fiscal.ini tiene una clave que no se puede leer.
KESTRA_CAUSA_FALLA_INTERNA = 108  # El controlador falló.
KESTRA_CAUSA_SIN_MEMORIA = 109  # A la máquina le falta memoria.
KESTRA_CAUSA_ABANDONADA = 110  # El programa de ventas dejó la llamada por la mitad.
KESTRA_CAUSA_PUERTO_NUMERO = 201  # El número de puerto no es válido (1 a 256).
KESTRA_CAUSA_PUERTO_CONFIGURACION = 202  # La configuración del puerto no es válida.
KESTRA_CAUSA_PUERTO_INEXISTENTE = 203  # No existe el puerto de la impresora.
KESTRA_CAUSA_PUERTO_SIN_EQUIPO = 204  # No hay un puerto serie donde dice la configuración.
KESTRA_CAUSA_PUERTO_NO_SERIE = 205  # El dispositivo de la configuración no es un puerto serie.
KESTRA_CAUSA_PUERTO_SIN_PERMISO = 206  # No hay permiso para usar el puerto de la impresora.
KESTRA_CAUSA_PUERTO_EN_USO = 207  # Otro programa está usando el puerto de la impresora.
KESTRA_CAUSA_PUERTO_NO_ABRE = 208  # No se pudo abrir el puerto de la impresora.
KESTRA_CAUSA_PUERTO_YA_ABIERTO = 209  # El puerto ya estaba abierto.
KESTRA_CAUSA_PUERTO_NO_ABIERTO = 210  # El puerto no estaba abierto.
KESTRA_CAUSA_PUERTO_PERDIDO = 211  # Se perdió la conexión con la impresora.
KESTRA_CAUSA_PUERTO_TRABADO = 212  # El puerto no acepta datos.
KESTRA_CAUSA_PUERTO_TRANSFERENCIA = 213  # El puerto falló al leer o escribir.
KESTRA_CAUSA_RED_DIRECCION = 214  # La dirección de red no es válida (tcp:EQUIPO:PUERTO).
KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215  # No se conoce el equipo de la impresora en la red.
KESTRA_CAUSA_RED_NADIE_ATIENDE = 216  # Nadie atiende en la dirección de la impresora.
KESTRA_CAUSA_RED_NO_RESPONDE = 217  # La dirección de la impresora no responde.
KESTRA_CAUSA_RED_SIN_CAMINO = 218  # No hay camino en la red hasta la impresora.
KESTRA_CAUSA_RED_CORTADA = 219  # La conexión se cortó sin contestar: se perdió o la usa otro programa.
KESTRA_CAUSA_SILENCIO = 301  # La impresora no contestó.
KESTRA_CAUSA_RESPUESTA_DANADA = 302  # La respuesta de la impresora llegó dañada.
KESTRA_CAUSA_RESPUESTAS_AJENAS = 303  # La impresora contestó a otros comandos.
KESTRA_CAUSA_COMANDO_DANADO = 304  # La impresora avisó que el comando le llegó dañado.
KESTRA_CAUSA_REPETIDO = 305  # El comando se mandó más de una vez: puede estar repetido.
KESTRA_CAUSA_RESPUESTA_INESPERADA = 306  # La respuesta de la impresora no trae los datos esperados.
KESTRA_CAUSA_FALLA_IMPRESORA = 402  # La impresora avisa un error o una falla.
KESTRA_CAUSA_FUERA_DE_LINEA = 403  # La impresora está fuera de línea.
KESTRA_CAUSA_SIN_PAPEL_DIARIO = 404  # Falta papel del diario.
KESTRA_CAUSA_SIN_PAPEL_TICKETS = 405  # Falta papel de tickets.
KESTRA_CAUSA_SIN_PAPEL = 414  # La impresora no tiene papel.
KESTRA_CAUSA_MEMORIA_FISCAL = 500  # Falló la comprobación de la memoria fiscal.
KESTRA_CAUSA_MEMORIA_TRABAJO = 501  # Falló la comprobación de la memoria de trabajo.
KESTRA_CAUSA_BATERIA_BAJA = 502  # La impresora tiene la batería baja.
KESTRA_CAUSA_COMANDO_DESCONOCIDO = 503  # La impresora no conoce el comando.
KESTRA_CAUSA_CAMPO_INVALIDO = 504  # La impresora no aceptó un dato del comando.
KESTRA_CAUSA_ESTADO_INVALIDO = 505  # El comando no corresponde a lo que la impresora está haciendo.
KESTRA_CAUSA_DESBORDE = 506  # La cantidad o el importe pasa lo que la impresora admite.
KESTRA_CAUSA_MEMORIA_LLENA = 507  # La memoria fiscal está llena.
KESTRA_CAUSA_MEMORIA_CASI_LLENA = 508  # La memoria fiscal está casi llena.
KESTRA_CAUSA_CIERRE_NECESARIO = 511  # Hace falta un cierre Z: pasaron más de 24 horas.
KESTRA_CAUSA_SIN_REGISTRO = 601  # Nada en la impresora muestra si esta operación se hizo.
KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602  # Los registros de la impresora no coinciden con lo enviado.
KESTRA_CAUSA_REGISTROS_ILEGIBLES = 603  # No se pudieron leer los registros de la impresora.
KESTRA_CAUSA_HOJA_CAMBIADA = 604  # La hoja se llenó y se hizo el transporte: falta el artículo.
KESTRA_CAUSA_YA_CERRADO = 605  # El comprobante ya estaba cerrado: no se puede cancelar.
KESTRA_CAUSA_OLVIDADA = 606  # La operación pendiente se dejó de lado.
KESTRA_CAUSA_SIN_NUMERO = 607  # La impresora no lleva ese número.
KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE = 701  # No se puede escribir el diario.
KESTRA_CAUSA_DIARIO_AJENO = 702  # El diario es de otra impresora.
KESTRA_CAUSA_DIARIO_EN_USO = 703  # Otro programa tiene abierto el diario.
KESTRA_CAUSA_DIARIO_DANADO = 704  # El diario está dañado.
KESTRA_CAUSA_DIARIO_OMITIDO = 705  # No se pudo escribir el diario y se siguió sin él.
KESTRA_CAUSA_LOG_NO_SE_ESCRIBE = 801  # No se puede escribir el registro fiscal.log.


class KestraFila(Structure):
    """Un renglón del informe de estados."""

    _fields_ = [
        ("grupo", c_int32),  # 0 renglón de la impresora, 1 fiscal
        ("numero", c_int32),  # número del renglón
        ("clase", c_int32),  # 0 información, 1 error
        ("encendida", c_int32),  # 1 encendido, 0 en gris
        ("texto", c_char_p),  # el renglón
        ("ayuda", c_char_p),  # la explicación
    ]


# Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
# Argumentos: contexto, texto, titulo, estilo
KestraMensaje = FUNCION(c_int32, c_void_p, c_char_p, c_char_p, c_int32)

# El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
# Argumentos: contexto, impresora, fiscal, filas, cantidad
KestraInformeEstados = FUNCION(c_int32, c_void_p, c_char_p, c_char_p, POINTER(KestraFila), c_int32)

# La memoria fiscal está por llenarse.
# Argumentos: contexto
KestraMemoriaLlena = FUNCION(None, c_void_p)


class KestraOperador(Structure):
    """Lo que la biblioteca le pregunta y le dice al operador."""

    _fields_ = [
        ("tamano", c_uint32),  # tamaño del registro en bytes
        ("contexto", c_void_p),  # vuelve en cada llamada
        ("mensaje", KestraMensaje),  # Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
        ("informe_estados", KestraInformeEstados),  # El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
        ("memoria_llena", KestraMemoriaLlena),  # La memoria fiscal está por llenarse.
    ]


FUNCIONES = {
    # ---- Principio y fin ----
    # Lee Fiscal.ini y prepara el puerto.
    # Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
    "EP_Init": (c_int32, []),
    # Suelta el puerto.
    # Devuelve: No quiere decir nada.
    "EP_Kill": (c_int32, []),
    # ---- Comprobantes fiscales ----
    # Abre una factura, un tique o una nota.
    # Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
    # documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4,
    # linea5 40 bytes cada uno.
    "EP_AbrirComprobanteFiscal": (c_int32, [
        ("tipo", Texto, 2), ("letra", Texto, 1), ("nombre1", Texto, 40),
        ("nombre2", Texto, 40), ("documento_tipo", Texto, 6), ("documento_numero", Texto, 11),
        ("responsabilidad_iva", Texto, 1), ("domicilio1", Texto, 40), ("domicilio2", Texto, 40),
        ("domicilio3", Texto, 40), ("linea4", Texto, 40), ("linea5", Texto, 40),
        ("copias", c_int32, 0),
    ]),
    # Imprime una línea de venta.
    # Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    "EP_ImprimirItem": (c_int32, [
        ("descripcion", Texto, 50), ("cantidad", c_double, 0), ("precio", c_double, 0),
        ("iva", c_double, 0), ("impuestos_internos", c_double, 0), ("extra1", Texto, 22),
        ("extra2", Texto, 22), ("extra3", Texto, 22),
    ]),
    # Imprime la anulación de una línea.
    # Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    "EP_AnularItem": (c_int32, [
        ("descripcion", Texto, 50), ("cantidad", c_double, 0), ("precio", c_double, 0),
        ("iva", c_double, 0), ("impuestos_internos", c_double, 0), ("extra1", Texto, 22),
        ("extra2", Texto, 22), ("extra3", Texto, 22),
    ]),
    # Imprime un renglón de texto dentro del comprobante.
    # Textos: texto 26 bytes.
    "EP_ImprimirTextoFiscal": (c_int32, [("texto", Texto, 26)]),
    # Imprime un renglón de texto terminado en cero.
    "EP_ImprimirTextoFiscalInterna": (c_int32, [("texto", Texto, 0)]),
    # Cierra el comprobante y da su número.
    # Textos: tipo 2 bytes; letra 1 byte.
    # Recibe: numero, hasta 8 bytes.
    "EP_CerrarComprobanteFiscal": (c_int32, [
        ("tipo", Texto, 2), ("letra", Texto, 1), ("numero", Bufer, 8),
    ]),
    # Cancela el comprobante abierto.
    "EP_Cancelar": (c_int32, []),
    # ---- Totales y pagos ----
    # Le descuenta un importe al comprobante.
    # Textos: descripcion 80 bytes.
    "EP_DescuentoGeneral": (c_int32, [("descripcion", Texto, 80), ("monto", c_double, 0)]),
    # Le suma un recargo al comprobante.
    # Textos: descripcion 80 bytes.
    "EP_RecargoGeneral": (c_int32, [("descripcion", Texto, 80), ("monto", c_double, 0)]),
    # Le suma una percepción al comprobante.
    # Textos: descripcion 20 bytes; calificador 1 byte.
    "EP_EspecificarPercepcionGlobal": (c_int32, [
        ("descripcion", Texto, 20), ("monto", c_double, 0), ("iva", c_double, 0),
        ("calificador", Texto, 1),
    ]),
    # Imprime una línea de pago.
    # Textos: descripcion 80 bytes.
    "EP_ImprimirPago": (c_int32, [("descripcion", Texto, 80), ("monto", c_double, 0)]),
    # Agrega líneas hasta que el total sea el que se dice.
    "EP_AjusteRedondeo": (c_int32, [("total", c_double, 0)]),
    # ---- Otros documentos ----
    # Abre un documento no fiscal homologado.
    # Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
    # documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada
    # uno.
    "EP_AbrirComprobanteNoFiscalHomologado": (c_int32, [
        ("tipo", Texto, 2), ("marca1", Texto, 1), ("linea1", Texto, 40),
        ("linea2", Texto, 40), ("documento_tipo", Texto, 6), ("documento_numero", Texto, 11),
        ("marca2", Texto, 1), ("domicilio", Texto, 40), ("linea4", Texto, 40),
        ("linea5", Texto, 40), ("linea6", Texto, 40), ("linea7", Texto, 40),
        ("cantidad", c_int32, 0),
    ]),
    # Cierra el documento homologado.
    # Textos: tipo 2 bytes; marca 1 byte.
    "EP_CerrarComprobanteNoFiscalHomologado": (c_int32, [("tipo", Texto, 2), ("marca", Texto, 1)]),
    # Abre un documento no fiscal.
    "EP_AbrirComprobanteNoFiscal": (c_int32, []),
    # Imprime un renglón en el documento no fiscal.
    # Textos: texto 120 bytes.
    "EP_ImprimirTextoNoFiscal": (c_int32, [("texto", Texto, 120)]),
    # Cierra el documento no fiscal.
    "EP_CerrarComprobanteNoFiscal": (c_int32, []),
    # ---- Informes ----
    # Imprime el informe X.
    "EP_ReporteX": (c_int32, []),
    # Imprime el informe Z y cierra la jornada.
    "EP_ReporteZ": (c_int32, []),
    # Lista los cierres Z entre dos números.
    "EP_ReporteZporNumeros": (c_int32, [
        ("primero", c_int32, 0), ("ultimo", c_int32, 0), ("tercero", c_int32, 0),
    ]),
    # Lista los cierres Z entre dos fechas.
    # Textos: desde, hasta 6 bytes cada uno.
    "EP_ReporteZporFechas": (c_int32, [("desde", Texto, 6), ("hasta", Texto, 6), ("tercero", c_int32, 0)]),
    # ---- La impresora ----
    # Abre el cajón de dinero.
    "EP_AbrirCajonDeDinero": (c_int32, [("cajon", c_int32, 0)]),
    # Pone en hora la impresora.
    # Textos: fecha, hora 6 bytes cada uno.
    "EP_CambiarFechaHora": (c_int32, [("fecha", Texto, 6), ("hora", Texto, 6)]),
    # Lee el reloj de la impresora.
    # Recibe: resultado, hasta 12 bytes.
    "EP_ObtenerFechaHora": (c_int32, [("resultado", Bufer, 12)]),
    # Pone una línea del encabezado.
    # Textos: texto 120 bytes.
    "EP_SetEncabezado": (c_int32, [("texto", Texto, 120), ("linea", c_int32, 0), ("atributo", c_int32, 0)]),
    # Lee una línea del encabezado.
    # Recibe: resultado, hasta 120 bytes.
    "EP_GetEncabezado": (c_int32, [("resultado", Bufer, 120), ("linea", c_int32, 0)]),
    # Corta el papel.
    "EP_CortaPapel": (c_int32, []),
    # Avanza el papel.
    "EP_AvanzaPapel": (c_int32, [("lineas", c_int32, 0)]),
    # Lee los datos del modelo.
    # Recibe: resultado, hasta 64 bytes.
    "EP_ValoresModelo": (c_int32, [("resultado", Bufer, 64)]),
    # Lee los contadores.
    # Recibe: resultado, hasta 80 bytes.
    "EP_Numeracion": (c_int32, [("resultado", Bufer, 80)]),
    # Lee el nombre del modelo.
    # Recibe: resultado, hasta 14 bytes.
    "EP_AutodetectarModelo": (c_int32, [("resultado", Bufer, 14)]),
    # ---- Para programas viejos ----
    # El último código de error: siempre 0.
    "EP_Chequear_Error": (c_int32, []),
    # No hace nada.
    "EP_ReimprimirComprobante": (c_int32, []),
    # No hace nada.
    "EP_Configuracion": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_ConsultaMemoria": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_Copias": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_ImpuestoInternoFijo": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_ImpuestoInternoPorMonto": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_InformacionRemito": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_Inicializacion": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_Memoria": (c_int32, [("a", c_int32, 0)]),
    # No hace nada.
    "EP_DescuentoUltimoItem": (c_int32, [("a", c_int32, 0), ("b", c_int32, 0), ("c", c_int32, 0)]),
    # No hace nada.
    "EP_ImprimirItemEnRemito": (c_int32, [("a", c_int32, 0), ("b", c_int32, 0), ("c", c_int32, 0)]),
    # No hace nada.
    "EP_DatosCliente": (c_int32, [
        ("a", c_int32, 0), ("b", c_int32, 0), ("c", c_int32, 0),
        ("d", c_int32, 0), ("e", c_int32, 0),
    ]),
    # ---- Qué fue de la última llamada ----
    # Qué fue de la última llamada.
    # Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
    "Kestra_Desenlace": (c_int32, []),
    # Por qué terminó así la última llamada.
    # Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en
    # curso.
    "Kestra_Causa": (c_int32, []),
    # Por qué terminó así la última llamada, en una frase para el operador.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    "Kestra_CausaTexto": (c_int32, [("texto", Bufer, 0), ("longitud", c_int32, 0)]),
    # Un campo de la última respuesta.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    "Kestra_Respuesta": (c_int32, [("numero", c_int32, 0), ("texto", Bufer, 0), ("longitud", c_int32, 0)]),
    # Cuántas tramas mandó la última llamada.
    # Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
    "Kestra_Intentos": (c_int32, []),
    # Le pregunta a la impresora cómo está.
    # Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
    "Kestra_Estado": (c_int32, []),
    # Qué comprobante está abierto y en qué etapa.
    # Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1
    # mientras otra llamada está en curso.
    "Kestra_DocumentoAbierto": (c_int32, []),
    # Pregunta el total del comprobante abierto.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    "Kestra_Subtotal": (c_int32, [("texto", Bufer, 0), ("longitud", c_int32, 0)]),
    # Pregunta el número del último comprobante de una clase.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    "Kestra_Numeracion": (c_int32, [
        ("clase", c_int32, 0), ("letra", c_int32, 0), ("texto", Bufer, 0),
        ("longitud", c_int32, 0),
    ]),
    # Si quedó una llamada sin resolver.
    # Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está
    # en curso.
    "Kestra_Pendiente": (c_int32, [("texto", Bufer, 0), ("longitud", c_int32, 0)]),
    # Averigua qué fue de la llamada pendiente.
    # Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la
    # hoja y falta el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
    "Kestra_Resolver": (c_int32, []),
    # El número del comprobante que Kestra_Resolver encontró cerrado.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    "Kestra_ResolverNumero": (c_int32, [("texto", Bufer, 0), ("longitud", c_int32, 0)]),
    # Deja de lado lo pendiente sin preguntar.
    # Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
    "Kestra_Olvidar": (c_int32, []),
    # ---- El operador ----
    # Hace que el programa conteste en lugar de los cuadros de la biblioteca.
    # Devuelve: No devuelve nada.
    "Kestra_DefinirOperador": (None, [("operador", POINTER(KestraOperador), 0)]),
    # ---- Textos ----
    # Elige cómo se pasan los textos.
    # Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
    "Kestra_Textos": (c_int32, [("modo", c_int32, 0)]),
}
