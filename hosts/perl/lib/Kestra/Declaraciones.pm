# Kestra 1.0.0: declaraciones para Perl (FFI::Platypus).
# Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
#
# Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
# Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
# completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
# Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
#
# my %kestra = Kestra::Declaraciones::declarar($ffi);  $kestra{EP_Init}->();
# Un texto es una cadena de bytes con los suyos exactos: sprintf('%-50.50s', $texto). Un búfer es la dirección de una
# cadena de ese largo: my ($donde) = FFI::Platypus::Buffer::scalar_to_buffer($numero).
# @FUNCIONES da de cada una el nombre, lo que devuelve y sus argumentos: [nombre, tipo, bytes].
package Kestra::Declaraciones;

use strict;
use warnings;
use utf8;

# Qué fue de una llamada.
use constant {
    KESTRA_DESENLACE_NADA => 0, # no se le pidió nada a la impresora
    KESTRA_DESENLACE_HECHO => 1, # la impresora lo hizo
    KESTRA_DESENLACE_RECHAZADO => 2, # la impresora lo rechazó
    KESTRA_DESENLACE_NO_ENVIADO => 3, # no se mandó
    KESTRA_DESENLACE_DESCONOCIDO => 4, # se mandó, y no se sabe si se hizo: mirar el papel
    KESTRA_DESENLACE_EN_PARTE => 5, # se hizo una parte
    KESTRA_DESENLACE_NO_HECHO => 6, # pudo haberse mandado, y es seguro que no se hizo
};

# Documentos, y lo demás que la impresora numera.
use constant {
    KESTRA_DOCUMENTO_NINGUNO => 0, # ninguno
    KESTRA_DOCUMENTO_FACTURA => 1, # factura o tique factura
    KESTRA_DOCUMENTO_TIQUE => 2, # tique
    KESTRA_DOCUMENTO_NOTA_DEBITO => 3, # nota de débito
    KESTRA_DOCUMENTO_NOTA_CREDITO => 4, # nota de crédito
    KESTRA_DOCUMENTO_REMITO => 5, # remito
    KESTRA_DOCUMENTO_VALE => 6, # vale
    KESTRA_DOCUMENTO_NO_FISCAL => 7, # no fiscal
    KESTRA_DOCUMENTO_OTRO => 15, # abierto, y no por este programa
    KESTRA_NUMERO_CIERRE_Z => 16, # solo para Kestra_Numeracion: cierres Z
    KESTRA_NUMERO_CANCELADOS => 17, # solo para Kestra_Numeracion: cancelados de hoy
    KESTRA_NUMERO_NO_FISCALES => 18, # solo para Kestra_Numeracion: no fiscales de hoy
    KESTRA_DOCUMENTO_DESCONOCIDO => 255, # nadie sabe si hay uno abierto: preguntar con Kestra_Estado
    KESTRA_ETAPA_ABIERTO => 256, # se suma a la clase: no tiene nada
    KESTRA_ETAPA_CON_ITEMS => 512, # se suma a la clase: tiene ítems
    KESTRA_ETAPA_EN_PAGO => 768, # se suma a la clase: tiene pagos
};

# Por qué terminó así una llamada.
use constant {
    KESTRA_CAUSA_NINGUNA => 0,
    KESTRA_CAUSA_DECLINADA => 101, # El operador contestó que no se enviara.
    KESTRA_CAUSA_SIN_COMANDO => 102, # Este modelo de impresora no tiene ese comprobante o esa operación.
    KESTRA_CAUSA_SIN_INICIAR => 103, # El controlador no está iniciado.
    KESTRA_CAUSA_SIN_RESOLVER => 104, # Falta saber qué fue de una operación anterior y la impresora no contesta.
    KESTRA_CAUSA_TOTAL_DISTINTO => 105, # El total de la impresora no es la suma de lo que se le mandó.
    KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL => 106, # Los tickets se emiten solo a consumidor final.
    KESTRA_CAUSA_CLAVE_ILEGIBLE => 107, # Fiscal.ini tiene una clave que no se puede leer.
    KESTRA_CAUSA_FALLA_INTERNA => 108, # El controlador falló.
    KESTRA_CAUSA_SIN_MEMORIA => 109, # A la máquina le falta memoria.
    KESTRA_CAUSA_ABANDONADA => 110, # El programa de ventas dejó la llamada por la mitad.
    KESTRA_CAUSA_PUERTO_NUMERO => 201, # El número de puerto no es válido (1 a 256).
    KESTRA_CAUSA_PUERTO_CONFIGURACION => 202, # La configuración del puerto no es válida.
    KESTRA_CAUSA_PUERTO_INEXISTENTE => 203, # No existe el puerto de la impresora.
    KESTRA_CAUSA_PUERTO_SIN_EQUIPO => 204, # No hay un puerto serie donde dice la configuración.
    KESTRA_CAUSA_PUERTO_NO_SERIE => 205, # El dispositivo de la configuración no es un puerto serie.
    KESTRA_CAUSA_PUERTO_SIN_PERMISO => 206, # No hay permiso para usar el puerto de la impresora.
    KESTRA_CAUSA_PUERTO_EN_USO => 207, # Otro programa está usando el puerto de la impresora.
    KESTRA_CAUSA_PUERTO_NO_ABRE => 208, # No se pudo abrir el puerto de la impresora.
    KESTRA_CAUSA_PUERTO_YA_ABIERTO => 209, # El puerto ya estaba abierto.
    KESTRA_CAUSA_PUERTO_NO_ABIERTO => 210, # El puerto no estaba abierto.
    KESTRA_CAUSA_PUERTO_PERDIDO => 211, # Se perdió la conexión con la impresora.
    KESTRA_CAUSA_PUERTO_TRABADO => 212, # El puerto no acepta datos.
    KESTRA_CAUSA_PUERTO_TRANSFERENCIA => 213, # El puerto falló al leer o escribir.
    KESTRA_CAUSA_RED_DIRECCION => 214, # La dirección de red no es válida (tcp:EQUIPO:PUERTO).
    KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO => 215, # No se conoce el equipo de la impresora en la red.
    KESTRA_CAUSA_RED_NADIE_ATIENDE => 216, # Nadie atiende en la dirección de la impresora.
    KESTRA_CAUSA_RED_NO_RESPONDE => 217, # La dirección de la impresora no responde.
    KESTRA_CAUSA_RED_SIN_CAMINO => 218, # No hay camino en la red hasta la impresora.
    KESTRA_CAUSA_RED_CORTADA => 219, # La conexión se cortó sin contestar: se perdió o la usa otro programa.
    KESTRA_CAUSA_SILENCIO => 301, # La impresora no contestó.
    KESTRA_CAUSA_RESPUESTA_DANADA => 302, # La respuesta de la impresora llegó dañada.
    KESTRA_CAUSA_RESPUESTAS_AJENAS => 303, # La impresora contestó a otros comandos.
    KESTRA_CAUSA_COMANDO_DANADO => 304, # La impresora avisó que el comando le llegó dañado.
    KESTRA_CAUSA_REPETIDO => 305, # El comando se mandó más de una vez: puede estar repetido.
    KESTRA_CAUSA_RESPUESTA_INESPERADA => 306, # La respuesta de la impresora no trae los datos esperados.
    KESTRA_CAUSA_FALLA_IMPRESORA => 402, # La impresora avisa un error o una falla.
    KESTRA_CAUSA_FUERA_DE_LINEA => 403, # La impresora está fuera de línea.
    KESTRA_CAUSA_SIN_PAPEL_DIARIO => 404, # Falta papel del diario.
    KESTRA_CAUSA_SIN_PAPEL_TICKETS => 405, # Falta papel de tickets.
    KESTRA_CAUSA_SIN_PAPEL => 414, # La impresora no tiene papel.
    KESTRA_CAUSA_MEMORIA_FISCAL => 500, # Falló la comprobación de la memoria fiscal.
    KESTRA_CAUSA_MEMORIA_TRABAJO => 501, # Falló la comprobación de la memoria de trabajo.
    KESTRA_CAUSA_BATERIA_BAJA => 502, # La impresora tiene la batería baja.
    KESTRA_CAUSA_COMANDO_DESCONOCIDO => 503, # La impresora no conoce el comando.
    KESTRA_CAUSA_CAMPO_INVALIDO => 504, # La impresora no aceptó un dato del comando.
    KESTRA_CAUSA_ESTADO_INVALIDO => 505, # El comando no corresponde a lo que la impresora está haciendo.
    KESTRA_CAUSA_DESBORDE => 506, # La cantidad o el importe pasa lo que la impresora admite.
    KESTRA_CAUSA_MEMORIA_LLENA => 507, # La memoria fiscal está llena.
    KESTRA_CAUSA_MEMORIA_CASI_LLENA => 508, # La memoria fiscal está casi llena.
    KESTRA_CAUSA_CIERRE_NECESARIO => 511, # Hace falta un cierre Z: pasaron más de 24 horas.
    KESTRA_CAUSA_SIN_REGISTRO => 601, # Nada en la impresora muestra si esta operación se hizo.
    KESTRA_CAUSA_REGISTROS_NO_COINCIDEN => 602, # Los registros de la impresora no coinciden con lo enviado.
    KESTRA_CAUSA_REGISTROS_ILEGIBLES => 603, # No se pudieron leer los registros de la impresora.
    KESTRA_CAUSA_HOJA_CAMBIADA => 604, # La hoja se llenó y se hizo el transporte: falta el artículo.
    KESTRA_CAUSA_YA_CERRADO => 605, # El comprobante ya estaba cerrado: no se puede cancelar.
    KESTRA_CAUSA_OLVIDADA => 606, # La operación pendiente se dejó de lado.
    KESTRA_CAUSA_SIN_NUMERO => 607, # La impresora no lleva ese número.
    KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE => 701, # No se puede escribir el diario.
    KESTRA_CAUSA_DIARIO_AJENO => 702, # El diario es de otra impresora.
    KESTRA_CAUSA_DIARIO_EN_USO => 703, # Otro programa tiene abierto el diario.
    KESTRA_CAUSA_DIARIO_DANADO => 704, # El diario está dañado.
    KESTRA_CAUSA_DIARIO_OMITIDO => 705, # No se pudo escribir el diario y se siguió sin él.
    KESTRA_CAUSA_LOG_NO_SE_ESCRIBE => 801, # No se puede escribir el registro fiscal.log.
};

our @FUNCIONES = (
    # ---- Principio y fin ----
    # Lee Fiscal.ini y prepara el puerto.
    # Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
    ['EP_Init', 'sint32'],
    # Suelta el puerto.
    # Devuelve: No quiere decir nada.
    ['EP_Kill', 'sint32'],
    # ---- Comprobantes fiscales ----
    # Abre una factura, un tique o una nota.
    # Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
    # documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
    # bytes cada uno.
    ['EP_AbrirComprobanteFiscal', 'sint32', ['tipo', 'string', 2], ['letra', 'string', 1], ['nombre1', 'string', 40], ['nombre2', 'string', 40], ['documento_tipo', 'string', 6], ['documento_numero', 'string', 11], ['responsabilidad_iva', 'string', 1], ['domicilio1', 'string', 40], ['domicilio2', 'string', 40], ['domicilio3', 'string', 40], ['linea4', 'string', 40], ['linea5', 'string', 40], ['copias', 'sint32', 0]],
    # Imprime una línea de venta.
    # Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    ['EP_ImprimirItem', 'sint32', ['descripcion', 'string', 50], ['cantidad', 'double', 0], ['precio', 'double', 0], ['iva', 'double', 0], ['impuestos_internos', 'double', 0], ['extra1', 'string', 22], ['extra2', 'string', 22], ['extra3', 'string', 22]],
    # Imprime la anulación de una línea.
    # Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    ['EP_AnularItem', 'sint32', ['descripcion', 'string', 50], ['cantidad', 'double', 0], ['precio', 'double', 0], ['iva', 'double', 0], ['impuestos_internos', 'double', 0], ['extra1', 'string', 22], ['extra2', 'string', 22], ['extra3', 'string', 22]],
    # Imprime un renglón de texto dentro del comprobante.
    # Textos: texto 26 bytes.
    ['EP_ImprimirTextoFiscal', 'sint32', ['texto', 'string', 26]],
    # Imprime un renglón de texto terminado en cero.
    ['EP_ImprimirTextoFiscalInterna', 'sint32', ['texto', 'string', 0]],
    # Cierra el comprobante y da su número.
    # Textos: tipo 2 bytes; letra 1 byte.
    # Recibe: numero, hasta 8 bytes.
    ['EP_CerrarComprobanteFiscal', 'sint32', ['tipo', 'string', 2], ['letra', 'string', 1], ['numero', 'opaque', 8]],
    # Cancela el comprobante abierto.
    ['EP_Cancelar', 'sint32'],
    # ---- Totales y pagos ----
    # Le descuenta un importe al comprobante.
    # Textos: descripcion 80 bytes.
    ['EP_DescuentoGeneral', 'sint32', ['descripcion', 'string', 80], ['monto', 'double', 0]],
    # Le suma un recargo al comprobante.
    # Textos: descripcion 80 bytes.
    ['EP_RecargoGeneral', 'sint32', ['descripcion', 'string', 80], ['monto', 'double', 0]],
    # Le suma una percepción al comprobante.
    # Textos: descripcion 20 bytes; calificador 1 byte.
    ['EP_EspecificarPercepcionGlobal', 'sint32', ['descripcion', 'string', 20], ['monto', 'double', 0], ['iva', 'double', 0], ['calificador', 'string', 1]],
    # Imprime una línea de pago.
    # Textos: descripcion 80 bytes.
    ['EP_ImprimirPago', 'sint32', ['descripcion', 'string', 80], ['monto', 'double', 0]],
    # Agrega líneas hasta que el total sea el que se dice.
    ['EP_AjusteRedondeo', 'sint32', ['total', 'double', 0]],
    # ---- Otros documentos ----
    # Abre un documento no fiscal homologado.
    # Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
    # documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
    ['EP_AbrirComprobanteNoFiscalHomologado', 'sint32', ['tipo', 'string', 2], ['marca1', 'string', 1], ['linea1', 'string', 40], ['linea2', 'string', 40], ['documento_tipo', 'string', 6], ['documento_numero', 'string', 11], ['marca2', 'string', 1], ['domicilio', 'string', 40], ['linea4', 'string', 40], ['linea5', 'string', 40], ['linea6', 'string', 40], ['linea7', 'string', 40], ['cantidad', 'sint32', 0]],
    # Cierra el documento homologado.
    # Textos: tipo 2 bytes; marca 1 byte.
    ['EP_CerrarComprobanteNoFiscalHomologado', 'sint32', ['tipo', 'string', 2], ['marca', 'string', 1]],
    # Abre un documento no fiscal.
    ['EP_AbrirComprobanteNoFiscal', 'sint32'],
    # Imprime un renglón en el documento no fiscal.
    # Textos: texto 120 bytes.
    ['EP_ImprimirTextoNoFiscal', 'sint32', ['texto', 'string', 120]],
    # Cierra el documento no fiscal.
    ['EP_CerrarComprobanteNoFiscal', 'sint32'],
    # ---- Informes ----
    # Imprime el informe X.
    ['EP_ReporteX', 'sint32'],
    # Imprime el informe Z y cierra la jornada.
    ['EP_ReporteZ', 'sint32'],
    # Lista los cierres Z entre dos números.
    ['EP_ReporteZporNumeros', 'sint32', ['primero', 'sint32', 0], ['ultimo', 'sint32', 0], ['tercero', 'sint32', 0]],
    # Lista los cierres Z entre dos fechas.
    # Textos: desde, hasta 6 bytes cada uno.
    ['EP_ReporteZporFechas', 'sint32', ['desde', 'string', 6], ['hasta', 'string', 6], ['tercero', 'sint32', 0]],
    # ---- La impresora ----
    # Abre el cajón de dinero.
    ['EP_AbrirCajonDeDinero', 'sint32', ['cajon', 'sint32', 0]],
    # Pone en hora la impresora.
    # Textos: fecha, hora 6 bytes cada uno.
    ['EP_CambiarFechaHora', 'sint32', ['fecha', 'string', 6], ['hora', 'string', 6]],
    # Lee el reloj de la impresora.
    # Recibe: resultado, hasta 12 bytes.
    ['EP_ObtenerFechaHora', 'sint32', ['resultado', 'opaque', 12]],
    # Pone una línea del encabezado.
    # Textos: texto 120 bytes.
    ['EP_SetEncabezado', 'sint32', ['texto', 'string', 120], ['linea', 'sint32', 0], ['atributo', 'sint32', 0]],
    # Lee una línea del encabezado.
    # Recibe: resultado, hasta 120 bytes.
    ['EP_GetEncabezado', 'sint32', ['resultado', 'opaque', 120], ['linea', 'sint32', 0]],
    # Corta el papel.
    ['EP_CortaPapel', 'sint32'],
    # Avanza el papel.
    ['EP_AvanzaPapel', 'sint32', ['lineas', 'sint32', 0]],
    # Lee los datos del modelo.
    # Recibe: resultado, hasta 64 bytes.
    ['EP_ValoresModelo', 'sint32', ['resultado', 'opaque', 64]],
    # Lee los contadores.
    # Recibe: resultado, hasta 80 bytes.
    ['EP_Numeracion', 'sint32', ['resultado', 'opaque', 80]],
    # Lee el nombre del modelo.
    # Recibe: resultado, hasta 14 bytes.
    ['EP_AutodetectarModelo', 'sint32', ['resultado', 'opaque', 14]],
    # ---- Para programas viejos ----
    # El último código de error: siempre 0.
    ['EP_Chequear_Error', 'sint32'],
    # No hace nada.
    ['EP_ReimprimirComprobante', 'sint32'],
    # No hace nada.
    ['EP_Configuracion', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_ConsultaMemoria', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_Copias', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_ImpuestoInternoFijo', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_ImpuestoInternoPorMonto', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_InformacionRemito', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_Inicializacion', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_Memoria', 'sint32', ['a', 'sint32', 0]],
    # No hace nada.
    ['EP_DescuentoUltimoItem', 'sint32', ['a', 'sint32', 0], ['b', 'sint32', 0], ['c', 'sint32', 0]],
    # No hace nada.
    ['EP_ImprimirItemEnRemito', 'sint32', ['a', 'sint32', 0], ['b', 'sint32', 0], ['c', 'sint32', 0]],
    # No hace nada.
    ['EP_DatosCliente', 'sint32', ['a', 'sint32', 0], ['b', 'sint32', 0], ['c', 'sint32', 0], ['d', 'sint32', 0], ['e', 'sint32', 0]],
    # ---- Qué fue de la última llamada ----
    # Qué fue de la última llamada.
    # Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
    ['Kestra_Desenlace', 'sint32'],
    # Por qué terminó así la última llamada.
    # Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
    ['Kestra_Causa', 'sint32'],
    # Por qué terminó así la última llamada, en una frase para el operador.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    ['Kestra_CausaTexto', 'sint32', ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Un campo de la última respuesta.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    ['Kestra_Respuesta', 'sint32', ['numero', 'sint32', 0], ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Cuántas tramas mandó la última llamada.
    # Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
    ['Kestra_Intentos', 'sint32'],
    # Le pregunta a la impresora cómo está.
    # Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
    ['Kestra_Estado', 'sint32'],
    # Qué comprobante está abierto y en qué etapa.
    # Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
    # llamada está en curso.
    ['Kestra_DocumentoAbierto', 'sint32'],
    # Pregunta el total del comprobante abierto.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    ['Kestra_Subtotal', 'sint32', ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Pregunta el número del último comprobante de una clase.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    ['Kestra_Numeracion', 'sint32', ['clase', 'sint32', 0], ['letra', 'sint32', 0], ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Si quedó una llamada sin resolver.
    # Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
    ['Kestra_Pendiente', 'sint32', ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Averigua qué fue de la llamada pendiente.
    # Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
    # el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
    ['Kestra_Resolver', 'sint32'],
    # El número del comprobante que Kestra_Resolver encontró cerrado.
    # Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    ['Kestra_ResolverNumero', 'sint32', ['texto', 'opaque', 0], ['longitud', 'sint32', 0]],
    # Deja de lado lo pendiente sin preguntar.
    # Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
    ['Kestra_Olvidar', 'sint32'],
    # ---- El operador ----
    # Hace que el programa conteste en lugar de los cuadros de la biblioteca.
    # Devuelve: No devuelve nada.
    ['Kestra_DefinirOperador', 'void', ['operador', 'opaque', 0]],
    # ---- Textos ----
    # Elige cómo se pasan los textos.
    # Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
    ['Kestra_Textos', 'sint32', ['modo', 'sint32', 0]],
);

sub declarar {
    my ($ffi) = @_;
    # stdcall es de Windows de 32 bits.
    $ffi->abi('stdcall') if $^O eq 'MSWin32' && $ffi->sizeof('opaque') == 4;
    return map { my ($nombre, $devuelve, @argumentos) = @$_;
                 ($nombre => $ffi->function($nombre => [map { $_->[1] } @argumentos] => $devuelve)) } @FUNCIONES;
}

1;
