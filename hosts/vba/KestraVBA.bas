Attribute VB_Name = "KestraVBA"
' Kestra 1.0.0: declaraciones para VBA, en Office de 32 y de 64 bits.
' Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
'
' Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
' Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
' completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
' Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
'
' Un texto se pasa completado con blancos: Left$(texto & Space$(50), 50). Un búfer se pasa lleno de blancos,
' Space$(8), y vuelve escrito. Las funciones de KestraOperador van con AddressOf y están en un módulo .bas.
'
' Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
' no se compilaron con la herramienta del lenguaje.
'
' La Kestra.dll tiene que ser de los mismos bits que Office: la de 64 en Office de 64 bits.
Option Explicit

' Qué fue de una llamada.
Public Const KESTRA_DESENLACE_NADA As Long = 0  ' no se le pidió nada a la impresora
Public Const KESTRA_DESENLACE_HECHO As Long = 1  ' la impresora lo hizo
Public Const KESTRA_DESENLACE_RECHAZADO As Long = 2  ' la impresora lo rechazó
Public Const KESTRA_DESENLACE_NO_ENVIADO As Long = 3  ' no se mandó
Public Const KESTRA_DESENLACE_DESCONOCIDO As Long = 4  ' se mandó, y no se sabe si se hizo: mirar el papel
Public Const KESTRA_DESENLACE_EN_PARTE As Long = 5  ' se hizo una parte
Public Const KESTRA_DESENLACE_NO_HECHO As Long = 6  ' pudo haberse mandado, y es seguro que no se hizo

' Documentos, y lo demás que la impresora numera.
Public Const KESTRA_DOCUMENTO_NINGUNO As Long = 0  ' ninguno
Public Const KESTRA_DOCUMENTO_FACTURA As Long = 1  ' factura o tique factura
Public Const KESTRA_DOCUMENTO_TIQUE As Long = 2  ' tique
Public Const KESTRA_DOCUMENTO_NOTA_DEBITO As Long = 3  ' nota de débito
Public Const KESTRA_DOCUMENTO_NOTA_CREDITO As Long = 4  ' nota de crédito
Public Const KESTRA_DOCUMENTO_REMITO As Long = 5  ' remito
Public Const KESTRA_DOCUMENTO_VALE As Long = 6  ' vale
Public Const KESTRA_DOCUMENTO_NO_FISCAL As Long = 7  ' no fiscal
Public Const KESTRA_DOCUMENTO_OTRO As Long = 15  ' abierto, y no por este programa
Public Const KESTRA_NUMERO_CIERRE_Z As Long = 16  ' solo para Kestra_Numeracion: cierres Z
Public Const KESTRA_NUMERO_CANCELADOS As Long = 17  ' solo para Kestra_Numeracion: cancelados de hoy
Public Const KESTRA_NUMERO_NO_FISCALES As Long = 18  ' solo para Kestra_Numeracion: no fiscales de hoy
Public Const KESTRA_DOCUMENTO_DESCONOCIDO As Long = 255  ' nadie sabe si hay uno abierto: preguntar con Kestra_Estado
Public Const KESTRA_ETAPA_ABIERTO As Long = 256  ' se suma a la clase: no tiene nada
Public Const KESTRA_ETAPA_CON_ITEMS As Long = 512  ' se suma a la clase: tiene ítems
Public Const KESTRA_ETAPA_EN_PAGO As Long = 768  ' se suma a la clase: tiene pagos

' Por qué terminó así una llamada.
Public Const KESTRA_CAUSA_NINGUNA As Long = 0
Public Const KESTRA_CAUSA_DECLINADA As Long = 101  ' El operador contestó que no se enviara.
Public Const KESTRA_CAUSA_SIN_COMANDO As Long = 102  ' Este modelo de impresora no tiene ese comprobante o esa operación.
Public Const KESTRA_CAUSA_SIN_INICIAR As Long = 103  ' El controlador no está iniciado.
Public Const KESTRA_CAUSA_SIN_RESOLVER As Long = 104  ' Falta saber qué fue de una operación anterior y la impresora no contesta.
Public Const KESTRA_CAUSA_TOTAL_DISTINTO As Long = 105  ' El total de la impresora no es la suma de lo que se le mandó.
Public Const KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL As Long = 106  ' Los tickets se emiten solo a consumidor final.
Public Const KESTRA_CAUSA_CLAVE_ILEGIBLE As Long = 107  ' Fiscal.ini tiene una clave que no se puede leer.
Public Const KESTRA_CAUSA_FALLA_INTERNA As Long = 108  ' El controlador falló.
Public Const KESTRA_CAUSA_SIN_MEMORIA As Long = 109  ' A la máquina le falta memoria.
Public Const KESTRA_CAUSA_ABANDONADA As Long = 110  ' El programa de ventas dejó la llamada por la mitad.
Public Const KESTRA_CAUSA_PUERTO_NUMERO As Long = 201  ' El número de puerto no es válido (1 a 256).
Public Const KESTRA_CAUSA_PUERTO_CONFIGURACION As Long = 202  ' La configuración del puerto no es válida.
Public Const KESTRA_CAUSA_PUERTO_INEXISTENTE As Long = 203  ' No existe el puerto de la impresora.
Public Const KESTRA_CAUSA_PUERTO_SIN_EQUIPO As Long = 204  ' No hay un puerto serie donde dice la configuración.
Public Const KESTRA_CAUSA_PUERTO_NO_SERIE As Long = 205  ' El dispositivo de la configuración no es un puerto serie.
Public Const KESTRA_CAUSA_PUERTO_SIN_PERMISO As Long = 206  ' No hay permiso para usar el puerto de la impresora.
Public Const KESTRA_CAUSA_PUERTO_EN_USO As Long = 207  ' Otro programa está usando el puerto de la impresora.
Public Const KESTRA_CAUSA_PUERTO_NO_ABRE As Long = 208  ' No se pudo abrir el puerto de la impresora.
Public Const KESTRA_CAUSA_PUERTO_YA_ABIERTO As Long = 209  ' El puerto ya estaba abierto.
Public Const KESTRA_CAUSA_PUERTO_NO_ABIERTO As Long = 210  ' El puerto no estaba abierto.
Public Const KESTRA_CAUSA_PUERTO_PERDIDO As Long = 211  ' Se perdió la conexión con la impresora.
Public Const KESTRA_CAUSA_PUERTO_TRABADO As Long = 212  ' El puerto no acepta datos.
Public Const KESTRA_CAUSA_PUERTO_TRANSFERENCIA As Long = 213  ' El puerto falló al leer o escribir.
Public Const KESTRA_CAUSA_RED_DIRECCION As Long = 214  ' La dirección de red no es válida (tcp:EQUIPO:PUERTO).
Public Const KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO As Long = 215  ' No se conoce el equipo de la impresora en la red.
Public Const KESTRA_CAUSA_RED_NADIE_ATIENDE As Long = 216  ' Nadie atiende en la dirección de la impresora.
Public Const KESTRA_CAUSA_RED_NO_RESPONDE As Long = 217  ' La dirección de la impresora no responde.
Public Const KESTRA_CAUSA_RED_SIN_CAMINO As Long = 218  ' No hay camino en la red hasta la impresora.
Public Const KESTRA_CAUSA_RED_CORTADA As Long = 219  ' La conexión se cortó sin contestar: se perdió o la usa otro programa.
Public Const KESTRA_CAUSA_SILENCIO As Long = 301  ' La impresora no contestó.
Public Const KESTRA_CAUSA_RESPUESTA_DANADA As Long = 302  ' La respuesta de la impresora llegó dañada.
Public Const KESTRA_CAUSA_RESPUESTAS_AJENAS As Long = 303  ' La impresora contestó a otros comandos.
Public Const KESTRA_CAUSA_COMANDO_DANADO As Long = 304  ' La impresora avisó que el comando le llegó dañado.
Public Const KESTRA_CAUSA_REPETIDO As Long = 305  ' El comando se mandó más de una vez: puede estar repetido.
Public Const KESTRA_CAUSA_RESPUESTA_INESPERADA As Long = 306  ' La respuesta de la impresora no trae los datos esperados.
Public Const KESTRA_CAUSA_FALLA_IMPRESORA As Long = 402  ' La impresora avisa un error o una falla.
Public Const KESTRA_CAUSA_FUERA_DE_LINEA As Long = 403  ' La impresora está fuera de línea.
Public Const KESTRA_CAUSA_SIN_PAPEL_DIARIO As Long = 404  ' Falta papel del diario.
Public Const KESTRA_CAUSA_SIN_PAPEL_TICKETS As Long = 405  ' Falta papel de tickets.
Public Const KESTRA_CAUSA_SIN_PAPEL As Long = 414  ' La impresora no tiene papel.
Public Const KESTRA_CAUSA_MEMORIA_FISCAL As Long = 500  ' Falló la comprobación de la memoria fiscal.
Public Const KESTRA_CAUSA_MEMORIA_TRABAJO As Long = 501  ' Falló la comprobación de la memoria de trabajo.
Public Const KESTRA_CAUSA_BATERIA_BAJA As Long = 502  ' La impresora tiene la batería baja.
Public Const KESTRA_CAUSA_COMANDO_DESCONOCIDO As Long = 503  ' La impresora no conoce el comando.
Public Const KESTRA_CAUSA_CAMPO_INVALIDO As Long = 504  ' La impresora no aceptó un dato del comando.
Public Const KESTRA_CAUSA_ESTADO_INVALIDO As Long = 505  ' El comando no corresponde a lo que la impresora está haciendo.
Public Const KESTRA_CAUSA_DESBORDE As Long = 506  ' La cantidad o el importe pasa lo que la impresora admite.
Public Const KESTRA_CAUSA_MEMORIA_LLENA As Long = 507  ' La memoria fiscal está llena.
Public Const KESTRA_CAUSA_MEMORIA_CASI_LLENA As Long = 508  ' La memoria fiscal está casi llena.
Public Const KESTRA_CAUSA_CIERRE_NECESARIO As Long = 511  ' Hace falta un cierre Z: pasaron más de 24 horas.
Public Const KESTRA_CAUSA_SIN_REGISTRO As Long = 601  ' Nada en la impresora muestra si esta operación se hizo.
Public Const KESTRA_CAUSA_REGISTROS_NO_COINCIDEN As Long = 602  ' Los registros de la impresora no coinciden con lo enviado.
Public Const KESTRA_CAUSA_REGISTROS_ILEGIBLES As Long = 603  ' No se pudieron leer los registros de la impresora.
Public Const KESTRA_CAUSA_HOJA_CAMBIADA As Long = 604  ' La hoja se llenó y se hizo el transporte: falta el artículo.
Public Const KESTRA_CAUSA_YA_CERRADO As Long = 605  ' El comprobante ya estaba cerrado: no se puede cancelar.
Public Const KESTRA_CAUSA_OLVIDADA As Long = 606  ' La operación pendiente se dejó de lado.
Public Const KESTRA_CAUSA_SIN_NUMERO As Long = 607  ' La impresora no lleva ese número.
Public Const KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE As Long = 701  ' No se puede escribir el diario.
Public Const KESTRA_CAUSA_DIARIO_AJENO As Long = 702  ' El diario es de otra impresora.
Public Const KESTRA_CAUSA_DIARIO_EN_USO As Long = 703  ' Otro programa tiene abierto el diario.
Public Const KESTRA_CAUSA_DIARIO_DANADO As Long = 704  ' El diario está dañado.
Public Const KESTRA_CAUSA_DIARIO_OMITIDO As Long = 705  ' No se pudo escribir el diario y se siguió sin él.
Public Const KESTRA_CAUSA_LOG_NO_SE_ESCRIBE As Long = 801  ' No se puede escribir el registro fiscal.log.

#If VBA7 Then

' Un renglón del informe de estados.
Public Type KestraFila
    grupo As Long  ' 0 renglón de la impresora, 1 fiscal
    numero As Long  ' número del renglón
    clase As Long  ' 0 información, 1 error
    encendida As Long  ' 1 encendido, 0 en gris
    texto As LongPtr  ' el renglón
    ayuda As LongPtr  ' la explicación
End Type

' Lo que la biblioteca le pregunta y le dice al operador.
Public Type KestraOperador
    tamano As Long  ' tamaño del registro en bytes
    contexto As LongPtr  ' vuelve en cada llamada
    mensaje As LongPtr  ' Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    informe_estados As LongPtr  ' El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    memoria_llena As LongPtr  ' La memoria fiscal está por llenarse.
End Type

#Else

' Un renglón del informe de estados.
Public Type KestraFila
    grupo As Long  ' 0 renglón de la impresora, 1 fiscal
    numero As Long  ' número del renglón
    clase As Long  ' 0 información, 1 error
    encendida As Long  ' 1 encendido, 0 en gris
    texto As Long  ' el renglón
    ayuda As Long  ' la explicación
End Type

' Lo que la biblioteca le pregunta y le dice al operador.
Public Type KestraOperador
    tamano As Long  ' tamaño del registro en bytes
    contexto As Long  ' vuelve en cada llamada
    mensaje As Long  ' Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    informe_estados As Long  ' El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    memoria_llena As Long  ' La memoria fiscal está por llenarse.
End Type

#End If

#If VBA7 Then

' ---- Principio y fin ----

' Lee Fiscal.ini y prepara el puerto.
' Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
Public Declare PtrSafe Function EP_Init Lib "Kestra.dll" Alias "EP_Init" () As Long

' Suelta el puerto.
' Devuelve: No quiere decir nada.
Public Declare PtrSafe Function EP_Kill Lib "Kestra.dll" Alias "EP_Kill" () As Long

' ---- Comprobantes fiscales ----

' Abre una factura, un tique o una nota.
' Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
' documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
' bytes cada uno.
Public Declare PtrSafe Function EP_AbrirComprobanteFiscal Lib "Kestra.dll" Alias "EP_AbrirComprobanteFiscal" (ByVal tipo As String, ByVal letra As String, ByVal nombre1 As String, ByVal nombre2 As String, ByVal documento_tipo As String, ByVal documento_numero As String, ByVal responsabilidad_iva As String, ByVal domicilio1 As String, ByVal domicilio2 As String, ByVal domicilio3 As String, ByVal linea4 As String, ByVal linea5 As String, ByVal copias As Long) As Long

' Imprime una línea de venta.
' Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
Public Declare PtrSafe Function EP_ImprimirItem Lib "Kestra.dll" Alias "EP_ImprimirItem" (ByVal descripcion As String, ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As String, ByVal extra2 As String, ByVal extra3 As String) As Long

' Imprime la anulación de una línea.
' Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
Public Declare PtrSafe Function EP_AnularItem Lib "Kestra.dll" Alias "EP_AnularItem" (ByVal descripcion As String, ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As String, ByVal extra2 As String, ByVal extra3 As String) As Long

' Imprime un renglón de texto dentro del comprobante.
' Textos: texto 26 bytes.
Public Declare PtrSafe Function EP_ImprimirTextoFiscal Lib "Kestra.dll" Alias "EP_ImprimirTextoFiscal" (ByVal texto As String) As Long

' Imprime un renglón de texto terminado en cero.
Public Declare PtrSafe Function EP_ImprimirTextoFiscalInterna Lib "Kestra.dll" Alias "EP_ImprimirTextoFiscalInterna" (ByVal texto As String) As Long

' Cierra el comprobante y da su número.
' Textos: tipo 2 bytes; letra 1 byte.
' Recibe: numero, hasta 8 bytes.
Public Declare PtrSafe Function EP_CerrarComprobanteFiscal Lib "Kestra.dll" Alias "EP_CerrarComprobanteFiscal" (ByVal tipo As String, ByVal letra As String, ByVal numero As String) As Long

' Cancela el comprobante abierto.
Public Declare PtrSafe Function EP_Cancelar Lib "Kestra.dll" Alias "EP_Cancelar" () As Long

' ---- Totales y pagos ----

' Le descuenta un importe al comprobante.
' Textos: descripcion 80 bytes.
Public Declare PtrSafe Function EP_DescuentoGeneral Lib "Kestra.dll" Alias "EP_DescuentoGeneral" (ByVal descripcion As String, ByVal monto As Double) As Long

' Le suma un recargo al comprobante.
' Textos: descripcion 80 bytes.
Public Declare PtrSafe Function EP_RecargoGeneral Lib "Kestra.dll" Alias "EP_RecargoGeneral" (ByVal descripcion As String, ByVal monto As Double) As Long

' Le suma una percepción al comprobante.
' Textos: descripcion 20 bytes; calificador 1 byte.
Public Declare PtrSafe Function EP_EspecificarPercepcionGlobal Lib "Kestra.dll" Alias "EP_EspecificarPercepcionGlobal" (ByVal descripcion As String, ByVal monto As Double, ByVal iva As Double, ByVal calificador As String) As Long

' Imprime una línea de pago.
' Textos: descripcion 80 bytes.
Public Declare PtrSafe Function EP_ImprimirPago Lib "Kestra.dll" Alias "EP_ImprimirPago" (ByVal descripcion As String, ByVal monto As Double) As Long

' Agrega líneas hasta que el total sea el que se dice.
Public Declare PtrSafe Function EP_AjusteRedondeo Lib "Kestra.dll" Alias "EP_AjusteRedondeo" (ByVal total As Double) As Long

' ---- Otros documentos ----

' Abre un documento no fiscal homologado.
' Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
' documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
Public Declare PtrSafe Function EP_AbrirComprobanteNoFiscalHomologado Lib "Kestra.dll" Alias "EP_AbrirComprobanteNoFiscalHomologado" (ByVal tipo As String, ByVal marca1 As String, ByVal linea1 As String, ByVal linea2 As String, ByVal documento_tipo As String, ByVal documento_numero As String, ByVal marca2 As String, ByVal domicilio As String, ByVal linea4 As String, ByVal linea5 As String, ByVal linea6 As String, ByVal linea7 As String, ByVal cantidad As Long) As Long

' Cierra el documento homologado.
' Textos: tipo 2 bytes; marca 1 byte.
Public Declare PtrSafe Function EP_CerrarComprobanteNoFiscalHomologado Lib "Kestra.dll" Alias "EP_CerrarComprobanteNoFiscalHomologado" (ByVal tipo As String, ByVal marca As String) As Long

' Abre un documento no fiscal.
Public Declare PtrSafe Function EP_AbrirComprobanteNoFiscal Lib "Kestra.dll" Alias "EP_AbrirComprobanteNoFiscal" () As Long

' Imprime un renglón en el documento no fiscal.
' Textos: texto 120 bytes.
Public Declare PtrSafe Function EP_ImprimirTextoNoFiscal Lib "Kestra.dll" Alias "EP_ImprimirTextoNoFiscal" (ByVal texto As String) As Long

' Cierra el documento no fiscal.
Public Declare PtrSafe Function EP_CerrarComprobanteNoFiscal Lib "Kestra.dll" Alias "EP_CerrarComprobanteNoFiscal" () As Long

' ---- Informes ----

' Imprime el informe X.
Public Declare PtrSafe Function EP_ReporteX Lib "Kestra.dll" Alias "EP_ReporteX" () As Long

' Imprime el informe Z y cierra la jornada.
Public Declare PtrSafe Function EP_ReporteZ Lib "Kestra.dll" Alias "EP_ReporteZ" () As Long

' Lista los cierres Z entre dos números.
Public Declare PtrSafe Function EP_ReporteZporNumeros Lib "Kestra.dll" Alias "EP_ReporteZporNumeros" (ByVal primero As Long, ByVal ultimo As Long, ByVal tercero As Long) As Long

' Lista los cierres Z entre dos fechas.
' Textos: desde, hasta 6 bytes cada uno.
Public Declare PtrSafe Function EP_ReporteZporFechas Lib "Kestra.dll" Alias "EP_ReporteZporFechas" (ByVal desde As String, ByVal hasta As String, ByVal tercero As Long) As Long

' ---- La impresora ----

' Abre el cajón de dinero.
Public Declare PtrSafe Function EP_AbrirCajonDeDinero Lib "Kestra.dll" Alias "EP_AbrirCajonDeDinero" (ByVal cajon As Long) As Long

' Pone en hora la impresora.
' Textos: fecha, hora 6 bytes cada uno.
Public Declare PtrSafe Function EP_CambiarFechaHora Lib "Kestra.dll" Alias "EP_CambiarFechaHora" (ByVal fecha As String, ByVal hora As String) As Long

' Lee el reloj de la impresora.
' Recibe: resultado, hasta 12 bytes.
Public Declare PtrSafe Function EP_ObtenerFechaHora Lib "Kestra.dll" Alias "EP_ObtenerFechaHora" (ByVal resultado As String) As Long

' Pone una línea del encabezado.
' Textos: texto 120 bytes.
Public Declare PtrSafe Function EP_SetEncabezado Lib "Kestra.dll" Alias "EP_SetEncabezado" (ByVal texto As String, ByVal linea As Long, ByVal atributo As Long) As Long

' Lee una línea del encabezado.
' Recibe: resultado, hasta 120 bytes.
Public Declare PtrSafe Function EP_GetEncabezado Lib "Kestra.dll" Alias "EP_GetEncabezado" (ByVal resultado As String, ByVal linea As Long) As Long

' Corta el papel.
Public Declare PtrSafe Function EP_CortaPapel Lib "Kestra.dll" Alias "EP_CortaPapel" () As Long

' Avanza el papel.
Public Declare PtrSafe Function EP_AvanzaPapel Lib "Kestra.dll" Alias "EP_AvanzaPapel" (ByVal lineas As Long) As Long

' Lee los datos del modelo.
' Recibe: resultado, hasta 64 bytes.
Public Declare PtrSafe Function EP_ValoresModelo Lib "Kestra.dll" Alias "EP_ValoresModelo" (ByVal resultado As String) As Long

' Lee los contadores.
' Recibe: resultado, hasta 80 bytes.
Public Declare PtrSafe Function EP_Numeracion Lib "Kestra.dll" Alias "EP_Numeracion" (ByVal resultado As String) As Long

' Lee el nombre del modelo.
' Recibe: resultado, hasta 14 bytes.
Public Declare PtrSafe Function EP_AutodetectarModelo Lib "Kestra.dll" Alias "EP_AutodetectarModelo" (ByVal resultado As String) As Long

' ---- Para programas viejos ----

' El último código de error: siempre 0.
Public Declare PtrSafe Function EP_Chequear_Error Lib "Kestra.dll" Alias "EP_Chequear_Error" () As Long

' No hace nada.
Public Declare PtrSafe Function EP_ReimprimirComprobante Lib "Kestra.dll" Alias "EP_ReimprimirComprobante" () As Long

' No hace nada.
Public Declare PtrSafe Function EP_Configuracion Lib "Kestra.dll" Alias "EP_Configuracion" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_ConsultaMemoria Lib "Kestra.dll" Alias "EP_ConsultaMemoria" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_Copias Lib "Kestra.dll" Alias "EP_Copias" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_ImpuestoInternoFijo Lib "Kestra.dll" Alias "EP_ImpuestoInternoFijo" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_ImpuestoInternoPorMonto Lib "Kestra.dll" Alias "EP_ImpuestoInternoPorMonto" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_InformacionRemito Lib "Kestra.dll" Alias "EP_InformacionRemito" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_Inicializacion Lib "Kestra.dll" Alias "EP_Inicializacion" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_Memoria Lib "Kestra.dll" Alias "EP_Memoria" (ByVal a As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_DescuentoUltimoItem Lib "Kestra.dll" Alias "EP_DescuentoUltimoItem" (ByVal a As Long, ByVal b As Long, ByVal c As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_ImprimirItemEnRemito Lib "Kestra.dll" Alias "EP_ImprimirItemEnRemito" (ByVal a As Long, ByVal b As Long, ByVal c As Long) As Long

' No hace nada.
Public Declare PtrSafe Function EP_DatosCliente Lib "Kestra.dll" Alias "EP_DatosCliente" (ByVal a As Long, ByVal b As Long, ByVal c As Long, ByVal d As Long, ByVal e As Long) As Long

' ---- Qué fue de la última llamada ----

' Qué fue de la última llamada.
' Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Desenlace Lib "Kestra.dll" Alias "Kestra_Desenlace" () As Long

' Por qué terminó así la última llamada.
' Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Causa Lib "Kestra.dll" Alias "Kestra_Causa" () As Long

' Por qué terminó así la última llamada, en una frase para el operador.
' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_CausaTexto Lib "Kestra.dll" Alias "Kestra_CausaTexto" (ByVal texto As String, ByVal longitud As Long) As Long

' Un campo de la última respuesta.
' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Respuesta Lib "Kestra.dll" Alias "Kestra_Respuesta" (ByVal numero As Long, ByVal texto As String, ByVal longitud As Long) As Long

' Cuántas tramas mandó la última llamada.
' Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Intentos Lib "Kestra.dll" Alias "Kestra_Intentos" () As Long

' Le pregunta a la impresora cómo está.
' Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Estado Lib "Kestra.dll" Alias "Kestra_Estado" () As Long

' Qué comprobante está abierto y en qué etapa.
' Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
' llamada está en curso.
Public Declare PtrSafe Function Kestra_DocumentoAbierto Lib "Kestra.dll" Alias "Kestra_DocumentoAbierto" () As Long

' Pregunta el total del comprobante abierto.
' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Subtotal Lib "Kestra.dll" Alias "Kestra_Subtotal" (ByVal texto As String, ByVal longitud As Long) As Long

' Pregunta el número del último comprobante de una clase.
' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Numeracion Lib "Kestra.dll" Alias "Kestra_Numeracion" (ByVal clase As Long, ByVal letra As Long, ByVal texto As String, ByVal longitud As Long) As Long

' Si quedó una llamada sin resolver.
' Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Pendiente Lib "Kestra.dll" Alias "Kestra_Pendiente" (ByVal texto As String, ByVal longitud As Long) As Long

' Averigua qué fue de la llamada pendiente.
' Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
' el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Resolver Lib "Kestra.dll" Alias "Kestra_Resolver" () As Long

' El número del comprobante que Kestra_Resolver encontró cerrado.
' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_ResolverNumero Lib "Kestra.dll" Alias "Kestra_ResolverNumero" (ByVal texto As String, ByVal longitud As Long) As Long

' Deja de lado lo pendiente sin preguntar.
' Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
Public Declare PtrSafe Function Kestra_Olvidar Lib "Kestra.dll" Alias "Kestra_Olvidar" () As Long

' ---- El operador ----

' Hace que el programa conteste en lugar de los cuadros de la biblioteca.
' Devuelve: No devuelve nada.
Public Declare PtrSafe Sub Kestra_DefinirOperador Lib "Kestra.dll" Alias "Kestra_DefinirOperador" (ByRef operador As Any)

' ---- Textos ----

' Elige cómo se pasan los textos.
' Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
Public Declare PtrSafe Function Kestra_Textos Lib "Kestra.dll" Alias "Kestra_Textos" (ByVal modo As Long) As Long

#Else

Public Declare Function EP_Init Lib "Kestra.dll" Alias "EP_Init" () As Long
Public Declare Function EP_Kill Lib "Kestra.dll" Alias "EP_Kill" () As Long
Public Declare Function EP_AbrirComprobanteFiscal Lib "Kestra.dll" Alias "EP_AbrirComprobanteFiscal" (ByVal tipo As String, ByVal letra As String, ByVal nombre1 As String, ByVal nombre2 As String, ByVal documento_tipo As String, ByVal documento_numero As String, ByVal responsabilidad_iva As String, ByVal domicilio1 As String, ByVal domicilio2 As String, ByVal domicilio3 As String, ByVal linea4 As String, ByVal linea5 As String, ByVal copias As Long) As Long
Public Declare Function EP_ImprimirItem Lib "Kestra.dll" Alias "EP_ImprimirItem" (ByVal descripcion As String, ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As String, ByVal extra2 As String, ByVal extra3 As String) As Long
Public Declare Function EP_AnularItem Lib "Kestra.dll" Alias "EP_AnularItem" (ByVal descripcion As String, ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As String, ByVal extra2 As String, ByVal extra3 As String) As Long
Public Declare Function EP_ImprimirTextoFiscal Lib "Kestra.dll" Alias "EP_ImprimirTextoFiscal" (ByVal texto As String) As Long
Public Declare Function EP_ImprimirTextoFiscalInterna Lib "Kestra.dll" Alias "EP_ImprimirTextoFiscalInterna" (ByVal texto As String) As Long
Public Declare Function EP_CerrarComprobanteFiscal Lib "Kestra.dll" Alias "EP_CerrarComprobanteFiscal" (ByVal tipo As String, ByVal letra As String, ByVal numero As String) As Long
Public Declare Function EP_Cancelar Lib "Kestra.dll" Alias "EP_Cancelar" () As Long
Public Declare Function EP_DescuentoGeneral Lib "Kestra.dll" Alias "EP_DescuentoGeneral" (ByVal descripcion As String, ByVal monto As Double) As Long
Public Declare Function EP_RecargoGeneral Lib "Kestra.dll" Alias "EP_RecargoGeneral" (ByVal descripcion As String, ByVal monto As Double) As Long
Public Declare Function EP_EspecificarPercepcionGlobal Lib "Kestra.dll" Alias "EP_EspecificarPercepcionGlobal" (ByVal descripcion As String, ByVal monto As Double, ByVal iva As Double, ByVal calificador As String) As Long
Public Declare Function EP_ImprimirPago Lib "Kestra.dll" Alias "EP_ImprimirPago" (ByVal descripcion As String, ByVal monto As Double) As Long
Public Declare Function EP_AjusteRedondeo Lib "Kestra.dll" Alias "EP_AjusteRedondeo" (ByVal total As Double) As Long
Public Declare Function EP_AbrirComprobanteNoFiscalHomologado Lib "Kestra.dll" Alias "EP_AbrirComprobanteNoFiscalHomologado" (ByVal tipo As String, ByVal marca1 As String, ByVal linea1 As String, ByVal linea2 As String, ByVal documento_tipo As String, ByVal documento_numero As String, ByVal marca2 As String, ByVal domicilio As String, ByVal linea4 As String, ByVal linea5 As String, ByVal linea6 As String, ByVal linea7 As String, ByVal cantidad As Long) As Long
Public Declare Function EP_CerrarComprobanteNoFiscalHomologado Lib "Kestra.dll" Alias "EP_CerrarComprobanteNoFiscalHomologado" (ByVal tipo As String, ByVal marca As String) As Long
Public Declare Function EP_AbrirComprobanteNoFiscal Lib "Kestra.dll" Alias "EP_AbrirComprobanteNoFiscal" () As Long
Public Declare Function EP_ImprimirTextoNoFiscal Lib "Kestra.dll" Alias "EP_ImprimirTextoNoFiscal" (ByVal texto As String) As Long
Public Declare Function EP_CerrarComprobanteNoFiscal Lib "Kestra.dll" Alias "EP_CerrarComprobanteNoFiscal" () As Long
Public Declare Function EP_ReporteX Lib "Kestra.dll" Alias "EP_ReporteX" () As Long
Public Declare Function EP_ReporteZ Lib "Kestra.dll" Alias "EP_ReporteZ" () As Long
Public Declare Function EP_ReporteZporNumeros Lib "Kestra.dll" Alias "EP_ReporteZporNumeros" (ByVal primero As Long, ByVal ultimo As Long, ByVal tercero As Long) As Long
Public Declare Function EP_ReporteZporFechas Lib "Kestra.dll" Alias "EP_ReporteZporFechas" (ByVal desde As String, ByVal hasta As String, ByVal tercero As Long) As Long
Public Declare Function EP_AbrirCajonDeDinero Lib "Kestra.dll" Alias "EP_AbrirCajonDeDinero" (ByVal cajon As Long) As Long
Public Declare Function EP_CambiarFechaHora Lib "Kestra.dll" Alias "EP_CambiarFechaHora" (ByVal fecha As String, ByVal hora As String) As Long
Public Declare Function EP_ObtenerFechaHora Lib "Kestra.dll" Alias "EP_ObtenerFechaHora" (ByVal resultado As String) As Long
Public Declare Function EP_SetEncabezado Lib "Kestra.dll" Alias "EP_SetEncabezado" (ByVal texto As String, ByVal linea As Long, ByVal atributo As Long) As Long
Public Declare Function EP_GetEncabezado Lib "Kestra.dll" Alias "EP_GetEncabezado" (ByVal resultado As String, ByVal linea As Long) As Long
Public Declare Function EP_CortaPapel Lib "Kestra.dll" Alias "EP_CortaPapel" () As Long
Public Declare Function EP_AvanzaPapel Lib "Kestra.dll" Alias "EP_AvanzaPapel" (ByVal lineas As Long) As Long
Public Declare Function EP_ValoresModelo Lib "Kestra.dll" Alias "EP_ValoresModelo" (ByVal resultado As String) As Long
Public Declare Function EP_Numeracion Lib "Kestra.dll" Alias "EP_Numeracion" (ByVal resultado As String) As Long
Public Declare Function EP_AutodetectarModelo Lib "Kestra.dll" Alias "EP_AutodetectarModelo" (ByVal resultado As String) As Long
Public Declare Function EP_Chequear_Error Lib "Kestra.dll" Alias "EP_Chequear_Error" () As Long
Public Declare Function EP_ReimprimirComprobante Lib "Kestra.dll" Alias "EP_ReimprimirComprobante" () As Long
Public Declare Function EP_Configuracion Lib "Kestra.dll" Alias "EP_Configuracion" (ByVal a As Long) As Long
Public Declare Function EP_ConsultaMemoria Lib "Kestra.dll" Alias "EP_ConsultaMemoria" (ByVal a As Long) As Long
Public Declare Function EP_Copias Lib "Kestra.dll" Alias "EP_Copias" (ByVal a As Long) As Long
Public Declare Function EP_ImpuestoInternoFijo Lib "Kestra.dll" Alias "EP_ImpuestoInternoFijo" (ByVal a As Long) As Long
Public Declare Function EP_ImpuestoInternoPorMonto Lib "Kestra.dll" Alias "EP_ImpuestoInternoPorMonto" (ByVal a As Long) As Long
Public Declare Function EP_InformacionRemito Lib "Kestra.dll" Alias "EP_InformacionRemito" (ByVal a As Long) As Long
Public Declare Function EP_Inicializacion Lib "Kestra.dll" Alias "EP_Inicializacion" (ByVal a As Long) As Long
Public Declare Function EP_Memoria Lib "Kestra.dll" Alias "EP_Memoria" (ByVal a As Long) As Long
Public Declare Function EP_DescuentoUltimoItem Lib "Kestra.dll" Alias "EP_DescuentoUltimoItem" (ByVal a As Long, ByVal b As Long, ByVal c As Long) As Long
Public Declare Function EP_ImprimirItemEnRemito Lib "Kestra.dll" Alias "EP_ImprimirItemEnRemito" (ByVal a As Long, ByVal b As Long, ByVal c As Long) As Long
Public Declare Function EP_DatosCliente Lib "Kestra.dll" Alias "EP_DatosCliente" (ByVal a As Long, ByVal b As Long, ByVal c As Long, ByVal d As Long, ByVal e As Long) As Long
Public Declare Function Kestra_Desenlace Lib "Kestra.dll" Alias "Kestra_Desenlace" () As Long
Public Declare Function Kestra_Causa Lib "Kestra.dll" Alias "Kestra_Causa" () As Long
Public Declare Function Kestra_CausaTexto Lib "Kestra.dll" Alias "Kestra_CausaTexto" (ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Respuesta Lib "Kestra.dll" Alias "Kestra_Respuesta" (ByVal numero As Long, ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Intentos Lib "Kestra.dll" Alias "Kestra_Intentos" () As Long
Public Declare Function Kestra_Estado Lib "Kestra.dll" Alias "Kestra_Estado" () As Long
Public Declare Function Kestra_DocumentoAbierto Lib "Kestra.dll" Alias "Kestra_DocumentoAbierto" () As Long
Public Declare Function Kestra_Subtotal Lib "Kestra.dll" Alias "Kestra_Subtotal" (ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Numeracion Lib "Kestra.dll" Alias "Kestra_Numeracion" (ByVal clase As Long, ByVal letra As Long, ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Pendiente Lib "Kestra.dll" Alias "Kestra_Pendiente" (ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Resolver Lib "Kestra.dll" Alias "Kestra_Resolver" () As Long
Public Declare Function Kestra_ResolverNumero Lib "Kestra.dll" Alias "Kestra_ResolverNumero" (ByVal texto As String, ByVal longitud As Long) As Long
Public Declare Function Kestra_Olvidar Lib "Kestra.dll" Alias "Kestra_Olvidar" () As Long
Public Declare Sub Kestra_DefinirOperador Lib "Kestra.dll" Alias "Kestra_DefinirOperador" (ByRef operador As Any)
Public Declare Function Kestra_Textos Lib "Kestra.dll" Alias "Kestra_Textos" (ByVal modo As Long) As Long

#End If
