' Kestra 1.0.0: declaraciones para Visual Basic .NET.
' Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
'
' Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
' Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
' completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
' Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
'
' Un texto es un Byte() con sus bytes exactos; un búfer, un Byte() en cero. En .NET (no en .NET Framework) la página
' 1252 se registra antes: Encoding.RegisterProvider(CodePagesEncodingProvider.Instance).
' En Windows se busca Kestra.dll, en Linux libkestra.so. StdCall vale en Windows de 32 bits; en los demás no cambia nada.
'
' Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
' no se compilaron con la herramienta del lenguaje.
Imports System
Imports System.Runtime.InteropServices

Namespace KestraFiscal
    Public Module Kestra
        Public Const Biblioteca As String = "kestra"

        ' Qué fue de una llamada.
        Public Const KESTRA_DESENLACE_NADA As Integer = 0  ' no se le pidió nada a la impresora
        Public Const KESTRA_DESENLACE_HECHO As Integer = 1  ' la impresora lo hizo
        Public Const KESTRA_DESENLACE_RECHAZADO As Integer = 2  ' la impresora lo rechazó
        Public Const KESTRA_DESENLACE_NO_ENVIADO As Integer = 3  ' no se mandó
        Public Const KESTRA_DESENLACE_DESCONOCIDO As Integer = 4  ' se mandó, y no se sabe si se hizo: mirar el papel
        Public Const KESTRA_DESENLACE_EN_PARTE As Integer = 5  ' se hizo una parte
        Public Const KESTRA_DESENLACE_NO_HECHO As Integer = 6  ' pudo haberse mandado, y es seguro que no se hizo

        ' Documentos, y lo demás que la impresora numera.
        Public Const KESTRA_DOCUMENTO_NINGUNO As Integer = 0  ' ninguno
        Public Const KESTRA_DOCUMENTO_FACTURA As Integer = 1  ' factura o tique factura
        Public Const KESTRA_DOCUMENTO_TIQUE As Integer = 2  ' tique
        Public Const KESTRA_DOCUMENTO_NOTA_DEBITO As Integer = 3  ' nota de débito
        Public Const KESTRA_DOCUMENTO_NOTA_CREDITO As Integer = 4  ' nota de crédito
        Public Const KESTRA_DOCUMENTO_REMITO As Integer = 5  ' remito
        Public Const KESTRA_DOCUMENTO_VALE As Integer = 6  ' vale
        Public Const KESTRA_DOCUMENTO_NO_FISCAL As Integer = 7  ' no fiscal
        Public Const KESTRA_DOCUMENTO_OTRO As Integer = 15  ' abierto, y no por este programa
        Public Const KESTRA_NUMERO_CIERRE_Z As Integer = 16  ' solo para Kestra_Numeracion: cierres Z
        Public Const KESTRA_NUMERO_CANCELADOS As Integer = 17  ' solo para Kestra_Numeracion: cancelados de hoy
        Public Const KESTRA_NUMERO_NO_FISCALES As Integer = 18  ' solo para Kestra_Numeracion: no fiscales de hoy
        Public Const KESTRA_DOCUMENTO_DESCONOCIDO As Integer = 255  ' nadie sabe si hay uno abierto: preguntar con Kestra_Estado
        Public Const KESTRA_ETAPA_ABIERTO As Integer = 256  ' se suma a la clase: no tiene nada
        Public Const KESTRA_ETAPA_CON_ITEMS As Integer = 512  ' se suma a la clase: tiene ítems
        Public Const KESTRA_ETAPA_EN_PAGO As Integer = 768  ' se suma a la clase: tiene pagos

        ' Por qué terminó así una llamada.
        Public Const KESTRA_CAUSA_NINGUNA As Integer = 0
        Public Const KESTRA_CAUSA_DECLINADA As Integer = 101  ' El operador contestó que no se enviara.
        Public Const KESTRA_CAUSA_SIN_COMANDO As Integer = 102  ' Este modelo de impresora no tiene ese comprobante o esa operación.
        Public Const KESTRA_CAUSA_SIN_INICIAR As Integer = 103  ' El controlador no está iniciado.
        Public Const KESTRA_CAUSA_SIN_RESOLVER As Integer = 104  ' Falta saber qué fue de una operación anterior y la impresora no contesta.
        Public Const KESTRA_CAUSA_TOTAL_DISTINTO As Integer = 105  ' El total de la impresora no es la suma de lo que se le mandó.
        Public Const KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL As Integer = 106  ' Los tickets se emiten solo a consumidor final.
        Public Const KESTRA_CAUSA_CLAVE_ILEGIBLE As Integer = 107  ' Fiscal.ini tiene una clave que no se puede leer.
        Public Const KESTRA_CAUSA_FALLA_INTERNA As Integer = 108  ' El controlador falló.
        Public Const KESTRA_CAUSA_SIN_MEMORIA As Integer = 109  ' A la máquina le falta memoria.
        Public Const KESTRA_CAUSA_ABANDONADA As Integer = 110  ' El programa de ventas dejó la llamada por la mitad.
        Public Const KESTRA_CAUSA_PUERTO_NUMERO As Integer = 201  ' El número de puerto no es válido (1 a 256).
        Public Const KESTRA_CAUSA_PUERTO_CONFIGURACION As Integer = 202  ' La configuración del puerto no es válida.
        Public Const KESTRA_CAUSA_PUERTO_INEXISTENTE As Integer = 203  ' No existe el puerto de la impresora.
        Public Const KESTRA_CAUSA_PUERTO_SIN_EQUIPO As Integer = 204  ' No hay un puerto serie donde dice la configuración.
        Public Const KESTRA_CAUSA_PUERTO_NO_SERIE As Integer = 205  ' El dispositivo de la configuración no es un puerto serie.
        Public Const KESTRA_CAUSA_PUERTO_SIN_PERMISO As Integer = 206  ' No hay permiso para usar el puerto de la impresora.
        Public Const KESTRA_CAUSA_PUERTO_EN_USO As Integer = 207  ' Otro programa está usando el puerto de la impresora.
        Public Const KESTRA_CAUSA_PUERTO_NO_ABRE As Integer = 208  ' No se pudo abrir el puerto de la impresora.
        Public Const KESTRA_CAUSA_PUERTO_YA_ABIERTO As Integer = 209  ' El puerto ya estaba abierto.
        Public Const KESTRA_CAUSA_PUERTO_NO_ABIERTO As Integer = 210  ' El puerto no estaba abierto.
        Public Const KESTRA_CAUSA_PUERTO_PERDIDO As Integer = 211  ' Se perdió la conexión con la impresora.
        Public Const KESTRA_CAUSA_PUERTO_TRABADO As Integer = 212  ' El puerto no acepta datos.
        Public Const KESTRA_CAUSA_PUERTO_TRANSFERENCIA As Integer = 213  ' El puerto falló al leer o escribir.
        Public Const KESTRA_CAUSA_RED_DIRECCION As Integer = 214  ' La dirección de red no es válida (tcp:EQUIPO:PUERTO).
        Public Const KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO As Integer = 215  ' No se conoce el equipo de la impresora en la red.
        Public Const KESTRA_CAUSA_RED_NADIE_ATIENDE As Integer = 216  ' Nadie atiende en la dirección de la impresora.
        Public Const KESTRA_CAUSA_RED_NO_RESPONDE As Integer = 217  ' La dirección de la impresora no responde.
        Public Const KESTRA_CAUSA_RED_SIN_CAMINO As Integer = 218  ' No hay camino en la red hasta la impresora.
        Public Const KESTRA_CAUSA_RED_CORTADA As Integer = 219  ' La conexión se cortó sin contestar: se perdió o la usa otro programa.
        Public Const KESTRA_CAUSA_SILENCIO As Integer = 301  ' La impresora no contestó.
        Public Const KESTRA_CAUSA_RESPUESTA_DANADA As Integer = 302  ' La respuesta de la impresora llegó dañada.
        Public Const KESTRA_CAUSA_RESPUESTAS_AJENAS As Integer = 303  ' La impresora contestó a otros comandos.
        Public Const KESTRA_CAUSA_COMANDO_DANADO As Integer = 304  ' La impresora avisó que el comando le llegó dañado.
        Public Const KESTRA_CAUSA_REPETIDO As Integer = 305  ' El comando se mandó más de una vez: puede estar repetido.
        Public Const KESTRA_CAUSA_RESPUESTA_INESPERADA As Integer = 306  ' La respuesta de la impresora no trae los datos esperados.
        Public Const KESTRA_CAUSA_FALLA_IMPRESORA As Integer = 402  ' La impresora avisa un error o una falla.
        Public Const KESTRA_CAUSA_FUERA_DE_LINEA As Integer = 403  ' La impresora está fuera de línea.
        Public Const KESTRA_CAUSA_SIN_PAPEL_DIARIO As Integer = 404  ' Falta papel del diario.
        Public Const KESTRA_CAUSA_SIN_PAPEL_TICKETS As Integer = 405  ' Falta papel de tickets.
        Public Const KESTRA_CAUSA_SIN_PAPEL As Integer = 414  ' La impresora no tiene papel.
        Public Const KESTRA_CAUSA_MEMORIA_FISCAL As Integer = 500  ' Falló la comprobación de la memoria fiscal.
        Public Const KESTRA_CAUSA_MEMORIA_TRABAJO As Integer = 501  ' Falló la comprobación de la memoria de trabajo.
        Public Const KESTRA_CAUSA_BATERIA_BAJA As Integer = 502  ' La impresora tiene la batería baja.
        Public Const KESTRA_CAUSA_COMANDO_DESCONOCIDO As Integer = 503  ' La impresora no conoce el comando.
        Public Const KESTRA_CAUSA_CAMPO_INVALIDO As Integer = 504  ' La impresora no aceptó un dato del comando.
        Public Const KESTRA_CAUSA_ESTADO_INVALIDO As Integer = 505  ' El comando no corresponde a lo que la impresora está haciendo.
        Public Const KESTRA_CAUSA_DESBORDE As Integer = 506  ' La cantidad o el importe pasa lo que la impresora admite.
        Public Const KESTRA_CAUSA_MEMORIA_LLENA As Integer = 507  ' La memoria fiscal está llena.
        Public Const KESTRA_CAUSA_MEMORIA_CASI_LLENA As Integer = 508  ' La memoria fiscal está casi llena.
        Public Const KESTRA_CAUSA_CIERRE_NECESARIO As Integer = 511  ' Hace falta un cierre Z: pasaron más de 24 horas.
        Public Const KESTRA_CAUSA_SIN_REGISTRO As Integer = 601  ' Nada en la impresora muestra si esta operación se hizo.
        Public Const KESTRA_CAUSA_REGISTROS_NO_COINCIDEN As Integer = 602  ' Los registros de la impresora no coinciden con lo enviado.
        Public Const KESTRA_CAUSA_REGISTROS_ILEGIBLES As Integer = 603  ' No se pudieron leer los registros de la impresora.
        Public Const KESTRA_CAUSA_HOJA_CAMBIADA As Integer = 604  ' La hoja se llenó y se hizo el transporte: falta el artículo.
        Public Const KESTRA_CAUSA_YA_CERRADO As Integer = 605  ' El comprobante ya estaba cerrado: no se puede cancelar.
        Public Const KESTRA_CAUSA_OLVIDADA As Integer = 606  ' La operación pendiente se dejó de lado.
        Public Const KESTRA_CAUSA_SIN_NUMERO As Integer = 607  ' La impresora no lleva ese número.
        Public Const KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE As Integer = 701  ' No se puede escribir el diario.
        Public Const KESTRA_CAUSA_DIARIO_AJENO As Integer = 702  ' El diario es de otra impresora.
        Public Const KESTRA_CAUSA_DIARIO_EN_USO As Integer = 703  ' Otro programa tiene abierto el diario.
        Public Const KESTRA_CAUSA_DIARIO_DANADO As Integer = 704  ' El diario está dañado.
        Public Const KESTRA_CAUSA_DIARIO_OMITIDO As Integer = 705  ' No se pudo escribir el diario y se siguió sin él.
        Public Const KESTRA_CAUSA_LOG_NO_SE_ESCRIBE As Integer = 801  ' No se puede escribir el registro fiscal.log.

        ' ---- Principio y fin ----

        ' Lee Fiscal.ini y prepara el puerto.
        ' Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Init() As Integer
        End Function

        ' Suelta el puerto.
        ' Devuelve: No quiere decir nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Kill() As Integer
        End Function

        ' ---- Comprobantes fiscales ----

        ' Abre una factura, un tique o una nota.
        ' Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
        ' documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
        ' bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AbrirComprobanteFiscal(ByVal tipo As Byte(), ByVal letra As Byte(), ByVal nombre1 As Byte(), ByVal nombre2 As Byte(), ByVal documento_tipo As Byte(), ByVal documento_numero As Byte(), ByVal responsabilidad_iva As Byte(), ByVal domicilio1 As Byte(), ByVal domicilio2 As Byte(), ByVal domicilio3 As Byte(), ByVal linea4 As Byte(), ByVal linea5 As Byte(), ByVal copias As Integer) As Integer
        End Function

        ' Imprime una línea de venta.
        ' Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirItem(ByVal descripcion As Byte(), ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As Byte(), ByVal extra2 As Byte(), ByVal extra3 As Byte()) As Integer
        End Function

        ' Imprime la anulación de una línea.
        ' Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AnularItem(ByVal descripcion As Byte(), ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, ByVal impuestos_internos As Double, ByVal extra1 As Byte(), ByVal extra2 As Byte(), ByVal extra3 As Byte()) As Integer
        End Function

        ' Imprime un renglón de texto dentro del comprobante.
        ' Textos: texto 26 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirTextoFiscal(ByVal texto As Byte()) As Integer
        End Function

        ' Imprime un renglón de texto terminado en cero.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirTextoFiscalInterna(ByVal texto As Byte()) As Integer
        End Function

        ' Cierra el comprobante y da su número.
        ' Textos: tipo 2 bytes; letra 1 byte.
        ' Recibe: numero, hasta 8 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_CerrarComprobanteFiscal(ByVal tipo As Byte(), ByVal letra As Byte(), ByVal numero As Byte()) As Integer
        End Function

        ' Cancela el comprobante abierto.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Cancelar() As Integer
        End Function

        ' ---- Totales y pagos ----

        ' Le descuenta un importe al comprobante.
        ' Textos: descripcion 80 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_DescuentoGeneral(ByVal descripcion As Byte(), ByVal monto As Double) As Integer
        End Function

        ' Le suma un recargo al comprobante.
        ' Textos: descripcion 80 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_RecargoGeneral(ByVal descripcion As Byte(), ByVal monto As Double) As Integer
        End Function

        ' Le suma una percepción al comprobante.
        ' Textos: descripcion 20 bytes; calificador 1 byte.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_EspecificarPercepcionGlobal(ByVal descripcion As Byte(), ByVal monto As Double, ByVal iva As Double, ByVal calificador As Byte()) As Integer
        End Function

        ' Imprime una línea de pago.
        ' Textos: descripcion 80 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirPago(ByVal descripcion As Byte(), ByVal monto As Double) As Integer
        End Function

        ' Agrega líneas hasta que el total sea el que se dice.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AjusteRedondeo(ByVal total As Double) As Integer
        End Function

        ' ---- Otros documentos ----

        ' Abre un documento no fiscal homologado.
        ' Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
        ' documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AbrirComprobanteNoFiscalHomologado(ByVal tipo As Byte(), ByVal marca1 As Byte(), ByVal linea1 As Byte(), ByVal linea2 As Byte(), ByVal documento_tipo As Byte(), ByVal documento_numero As Byte(), ByVal marca2 As Byte(), ByVal domicilio As Byte(), ByVal linea4 As Byte(), ByVal linea5 As Byte(), ByVal linea6 As Byte(), ByVal linea7 As Byte(), ByVal cantidad As Integer) As Integer
        End Function

        ' Cierra el documento homologado.
        ' Textos: tipo 2 bytes; marca 1 byte.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_CerrarComprobanteNoFiscalHomologado(ByVal tipo As Byte(), ByVal marca As Byte()) As Integer
        End Function

        ' Abre un documento no fiscal.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AbrirComprobanteNoFiscal() As Integer
        End Function

        ' Imprime un renglón en el documento no fiscal.
        ' Textos: texto 120 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirTextoNoFiscal(ByVal texto As Byte()) As Integer
        End Function

        ' Cierra el documento no fiscal.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_CerrarComprobanteNoFiscal() As Integer
        End Function

        ' ---- Informes ----

        ' Imprime el informe X.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ReporteX() As Integer
        End Function

        ' Imprime el informe Z y cierra la jornada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ReporteZ() As Integer
        End Function

        ' Lista los cierres Z entre dos números.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ReporteZporNumeros(ByVal primero As Integer, ByVal ultimo As Integer, ByVal tercero As Integer) As Integer
        End Function

        ' Lista los cierres Z entre dos fechas.
        ' Textos: desde, hasta 6 bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ReporteZporFechas(ByVal desde As Byte(), ByVal hasta As Byte(), ByVal tercero As Integer) As Integer
        End Function

        ' ---- La impresora ----

        ' Abre el cajón de dinero.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AbrirCajonDeDinero(ByVal cajon As Integer) As Integer
        End Function

        ' Pone en hora la impresora.
        ' Textos: fecha, hora 6 bytes cada uno.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_CambiarFechaHora(ByVal fecha As Byte(), ByVal hora As Byte()) As Integer
        End Function

        ' Lee el reloj de la impresora.
        ' Recibe: resultado, hasta 12 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ObtenerFechaHora(ByVal resultado As Byte()) As Integer
        End Function

        ' Pone una línea del encabezado.
        ' Textos: texto 120 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_SetEncabezado(ByVal texto As Byte(), ByVal linea As Integer, ByVal atributo As Integer) As Integer
        End Function

        ' Lee una línea del encabezado.
        ' Recibe: resultado, hasta 120 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_GetEncabezado(ByVal resultado As Byte(), ByVal linea As Integer) As Integer
        End Function

        ' Corta el papel.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_CortaPapel() As Integer
        End Function

        ' Avanza el papel.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AvanzaPapel(ByVal lineas As Integer) As Integer
        End Function

        ' Lee los datos del modelo.
        ' Recibe: resultado, hasta 64 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ValoresModelo(ByVal resultado As Byte()) As Integer
        End Function

        ' Lee los contadores.
        ' Recibe: resultado, hasta 80 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Numeracion(ByVal resultado As Byte()) As Integer
        End Function

        ' Lee el nombre del modelo.
        ' Recibe: resultado, hasta 14 bytes.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_AutodetectarModelo(ByVal resultado As Byte()) As Integer
        End Function

        ' ---- Para programas viejos ----

        ' El último código de error: siempre 0.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Chequear_Error() As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ReimprimirComprobante() As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Configuracion(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ConsultaMemoria(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Copias(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImpuestoInternoFijo(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImpuestoInternoPorMonto(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_InformacionRemito(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Inicializacion(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_Memoria(ByVal a As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_DescuentoUltimoItem(ByVal a As Integer, ByVal b As Integer, ByVal c As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_ImprimirItemEnRemito(ByVal a As Integer, ByVal b As Integer, ByVal c As Integer) As Integer
        End Function

        ' No hace nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function EP_DatosCliente(ByVal a As Integer, ByVal b As Integer, ByVal c As Integer, ByVal d As Integer, ByVal e As Integer) As Integer
        End Function

        ' ---- Qué fue de la última llamada ----

        ' Qué fue de la última llamada.
        ' Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Desenlace() As Integer
        End Function

        ' Por qué terminó así la última llamada.
        ' Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Causa() As Integer
        End Function

        ' Por qué terminó así la última llamada, en una frase para el operador.
        ' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_CausaTexto(ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Un campo de la última respuesta.
        ' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Respuesta(ByVal numero As Integer, ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Cuántas tramas mandó la última llamada.
        ' Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Intentos() As Integer
        End Function

        ' Le pregunta a la impresora cómo está.
        ' Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Estado() As Integer
        End Function

        ' Qué comprobante está abierto y en qué etapa.
        ' Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
        ' llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_DocumentoAbierto() As Integer
        End Function

        ' Pregunta el total del comprobante abierto.
        ' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Subtotal(ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Pregunta el número del último comprobante de una clase.
        ' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Numeracion(ByVal clase As Integer, ByVal letra As Integer, ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Si quedó una llamada sin resolver.
        ' Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Pendiente(ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Averigua qué fue de la llamada pendiente.
        ' Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
        ' el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Resolver() As Integer
        End Function

        ' El número del comprobante que Kestra_Resolver encontró cerrado.
        ' Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_ResolverNumero(ByVal texto As Byte(), ByVal longitud As Integer) As Integer
        End Function

        ' Deja de lado lo pendiente sin preguntar.
        ' Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Olvidar() As Integer
        End Function

        ' ---- El operador ----

        ' Hace que el programa conteste en lugar de los cuadros de la biblioteca.
        ' Devuelve: No devuelve nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Sub Kestra_DefinirOperador(ByRef operador As KestraOperador)
        End Sub

        ' Lo mismo con IntPtr.Zero, que vuelve a los cuadros de la biblioteca.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Sub Kestra_DefinirOperador(ByVal operador As IntPtr)
        End Sub

        ' ---- Textos ----

        ' Elige cómo se pasan los textos.
        ' Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
        <DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>
        Public Function Kestra_Textos(ByVal modo As Integer) As Integer
        End Function
    End Module

    ' Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    <UnmanagedFunctionPointer(CallingConvention.StdCall)>
    Public Delegate Function KestraMensaje(ByVal contexto As IntPtr, ByVal texto As IntPtr, ByVal titulo As IntPtr, ByVal estilo As Integer) As Integer

    ' El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    <UnmanagedFunctionPointer(CallingConvention.StdCall)>
    Public Delegate Function KestraInformeEstados(ByVal contexto As IntPtr, ByVal impresora As IntPtr, ByVal fiscal As IntPtr, ByVal filas As IntPtr, ByVal cantidad As Integer) As Integer

    ' La memoria fiscal está por llenarse.
    <UnmanagedFunctionPointer(CallingConvention.StdCall)>
    Public Delegate Sub KestraMemoriaLlena(ByVal contexto As IntPtr)

    ' Un renglón del informe de estados.
    <StructLayout(LayoutKind.Sequential)>
    Public Structure KestraFila
        Public grupo As Integer  ' 0 renglón de la impresora, 1 fiscal
        Public numero As Integer  ' número del renglón
        Public clase As Integer  ' 0 información, 1 error
        Public encendida As Integer  ' 1 encendido, 0 en gris
        Public texto As IntPtr  ' el renglón
        Public ayuda As IntPtr  ' la explicación
    End Structure

    ' Lo que la biblioteca le pregunta y le dice al operador.
    <StructLayout(LayoutKind.Sequential)>
    Public Structure KestraOperador
        Public tamano As UInteger  ' tamaño del registro en bytes
        Public contexto As IntPtr  ' vuelve en cada llamada
        Public mensaje As KestraMensaje  ' Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
        Public informe_estados As KestraInformeEstados  ' El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
        Public memoria_llena As KestraMemoriaLlena  ' La memoria fiscal está por llenarse.
    End Structure
End Namespace
