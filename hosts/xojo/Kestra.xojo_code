#tag Module
Protected Module Kestra
	// Kestra 1.0.0: declaraciones para Xojo.
	// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
	//
	// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
	// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
	// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
	// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
	//
	// Un texto es un MemoryBlock con sus bytes exactos, en Encodings.WindowsANSI; un búfer, un MemoryBlock en cero.
	// En Windows se busca Kestra.dll, en Linux libkestra.so.
	//
	// Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
	// no se compilaron con la herramienta del lenguaje.

	// ---- Principio y fin ----

	// Lee Fiscal.ini y prepara el puerto.
	// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Init Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Suelta el puerto.
	// Devuelve: No quiere decir nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Kill Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// ---- Comprobantes fiscales ----

	// Abre una factura, un tique o una nota.
	// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
	// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
	// bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AbrirComprobanteFiscal Lib Biblioteca (tipo As Ptr, letra As Ptr, nombre1 As Ptr, nombre2 As Ptr, documento_tipo As Ptr, documento_numero As Ptr, responsabilidad_iva As Ptr, domicilio1 As Ptr, domicilio2 As Ptr, domicilio3 As Ptr, linea4 As Ptr, linea5 As Ptr, copias As Int32) As Int32
	#tag EndExternalMethod

	// Imprime una línea de venta.
	// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirItem Lib Biblioteca (descripcion As Ptr, cantidad As Double, precio As Double, iva As Double, impuestos_internos As Double, extra1 As Ptr, extra2 As Ptr, extra3 As Ptr) As Int32
	#tag EndExternalMethod

	// Imprime la anulación de una línea.
	// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AnularItem Lib Biblioteca (descripcion As Ptr, cantidad As Double, precio As Double, iva As Double, impuestos_internos As Double, extra1 As Ptr, extra2 As Ptr, extra3 As Ptr) As Int32
	#tag EndExternalMethod

	// Imprime un renglón de texto dentro del comprobante.
	// Textos: texto 26 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirTextoFiscal Lib Biblioteca (texto As Ptr) As Int32
	#tag EndExternalMethod

	// Imprime un renglón de texto terminado en cero.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirTextoFiscalInterna Lib Biblioteca (texto As Ptr) As Int32
	#tag EndExternalMethod

	// Cierra el comprobante y da su número.
	// Textos: tipo 2 bytes; letra 1 byte.
	// Recibe: numero, hasta 8 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_CerrarComprobanteFiscal Lib Biblioteca (tipo As Ptr, letra As Ptr, numero As Ptr) As Int32
	#tag EndExternalMethod

	// Cancela el comprobante abierto.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Cancelar Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// ---- Totales y pagos ----

	// Le descuenta un importe al comprobante.
	// Textos: descripcion 80 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_DescuentoGeneral Lib Biblioteca (descripcion As Ptr, monto As Double) As Int32
	#tag EndExternalMethod

	// Le suma un recargo al comprobante.
	// Textos: descripcion 80 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_RecargoGeneral Lib Biblioteca (descripcion As Ptr, monto As Double) As Int32
	#tag EndExternalMethod

	// Le suma una percepción al comprobante.
	// Textos: descripcion 20 bytes; calificador 1 byte.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_EspecificarPercepcionGlobal Lib Biblioteca (descripcion As Ptr, monto As Double, iva As Double, calificador As Ptr) As Int32
	#tag EndExternalMethod

	// Imprime una línea de pago.
	// Textos: descripcion 80 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirPago Lib Biblioteca (descripcion As Ptr, monto As Double) As Int32
	#tag EndExternalMethod

	// Agrega líneas hasta que el total sea el que se dice.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AjusteRedondeo Lib Biblioteca (total As Double) As Int32
	#tag EndExternalMethod

	// ---- Otros documentos ----

	// Abre un documento no fiscal homologado.
	// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
	// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AbrirComprobanteNoFiscalHomologado Lib Biblioteca (tipo As Ptr, marca1 As Ptr, linea1 As Ptr, linea2 As Ptr, documento_tipo As Ptr, documento_numero As Ptr, marca2 As Ptr, domicilio As Ptr, linea4 As Ptr, linea5 As Ptr, linea6 As Ptr, linea7 As Ptr, cantidad As Int32) As Int32
	#tag EndExternalMethod

	// Cierra el documento homologado.
	// Textos: tipo 2 bytes; marca 1 byte.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_CerrarComprobanteNoFiscalHomologado Lib Biblioteca (tipo As Ptr, marca As Ptr) As Int32
	#tag EndExternalMethod

	// Abre un documento no fiscal.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AbrirComprobanteNoFiscal Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Imprime un renglón en el documento no fiscal.
	// Textos: texto 120 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirTextoNoFiscal Lib Biblioteca (texto As Ptr) As Int32
	#tag EndExternalMethod

	// Cierra el documento no fiscal.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_CerrarComprobanteNoFiscal Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// ---- Informes ----

	// Imprime el informe X.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ReporteX Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Imprime el informe Z y cierra la jornada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ReporteZ Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Lista los cierres Z entre dos números.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ReporteZporNumeros Lib Biblioteca (primero As Int32, ultimo As Int32, tercero As Int32) As Int32
	#tag EndExternalMethod

	// Lista los cierres Z entre dos fechas.
	// Textos: desde, hasta 6 bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ReporteZporFechas Lib Biblioteca (desde As Ptr, hasta As Ptr, tercero As Int32) As Int32
	#tag EndExternalMethod

	// ---- La impresora ----

	// Abre el cajón de dinero.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AbrirCajonDeDinero Lib Biblioteca (cajon As Int32) As Int32
	#tag EndExternalMethod

	// Pone en hora la impresora.
	// Textos: fecha, hora 6 bytes cada uno.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_CambiarFechaHora Lib Biblioteca (fecha As Ptr, hora As Ptr) As Int32
	#tag EndExternalMethod

	// Lee el reloj de la impresora.
	// Recibe: resultado, hasta 12 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ObtenerFechaHora Lib Biblioteca (resultado As Ptr) As Int32
	#tag EndExternalMethod

	// Pone una línea del encabezado.
	// Textos: texto 120 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_SetEncabezado Lib Biblioteca (texto As Ptr, linea As Int32, atributo As Int32) As Int32
	#tag EndExternalMethod

	// Lee una línea del encabezado.
	// Recibe: resultado, hasta 120 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_GetEncabezado Lib Biblioteca (resultado As Ptr, linea As Int32) As Int32
	#tag EndExternalMethod

	// Corta el papel.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_CortaPapel Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Avanza el papel.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AvanzaPapel Lib Biblioteca (lineas As Int32) As Int32
	#tag EndExternalMethod

	// Lee los datos del modelo.
	// Recibe: resultado, hasta 64 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ValoresModelo Lib Biblioteca (resultado As Ptr) As Int32
	#tag EndExternalMethod

	// Lee los contadores.
	// Recibe: resultado, hasta 80 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Numeracion Lib Biblioteca (resultado As Ptr) As Int32
	#tag EndExternalMethod

	// Lee el nombre del modelo.
	// Recibe: resultado, hasta 14 bytes.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_AutodetectarModelo Lib Biblioteca (resultado As Ptr) As Int32
	#tag EndExternalMethod

	// ---- Para programas viejos ----

	// El último código de error: siempre 0.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Chequear_Error Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ReimprimirComprobante Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Configuracion Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ConsultaMemoria Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Copias Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImpuestoInternoFijo Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImpuestoInternoPorMonto Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_InformacionRemito Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Inicializacion Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_Memoria Lib Biblioteca (a As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_DescuentoUltimoItem Lib Biblioteca (a As Int32, b As Int32, c As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_ImprimirItemEnRemito Lib Biblioteca (a As Int32, b As Int32, c As Int32) As Int32
	#tag EndExternalMethod

	// No hace nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function EP_DatosCliente Lib Biblioteca (a As Int32, b As Int32, c As Int32, d As Int32, e As Int32) As Int32
	#tag EndExternalMethod

	// ---- Qué fue de la última llamada ----

	// Qué fue de la última llamada.
	// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Desenlace Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Por qué terminó así la última llamada.
	// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Causa Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Por qué terminó así la última llamada, en una frase para el operador.
	// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_CausaTexto Lib Biblioteca (texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Un campo de la última respuesta.
	// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Respuesta Lib Biblioteca (numero As Int32, texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Cuántas tramas mandó la última llamada.
	// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Intentos Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Le pregunta a la impresora cómo está.
	// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Estado Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Qué comprobante está abierto y en qué etapa.
	// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
	// llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_DocumentoAbierto Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// Pregunta el total del comprobante abierto.
	// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Subtotal Lib Biblioteca (texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Pregunta el número del último comprobante de una clase.
	// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Numeracion Lib Biblioteca (clase As Int32, letra As Int32, texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Si quedó una llamada sin resolver.
	// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Pendiente Lib Biblioteca (texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Averigua qué fue de la llamada pendiente.
	// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
	// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Resolver Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// El número del comprobante que Kestra_Resolver encontró cerrado.
	// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_ResolverNumero Lib Biblioteca (texto As Ptr, longitud As Int32) As Int32
	#tag EndExternalMethod

	// Deja de lado lo pendiente sin preguntar.
	// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Olvidar Lib Biblioteca () As Int32
	#tag EndExternalMethod

	// ---- El operador ----

	// Hace que el programa conteste en lugar de los cuadros de la biblioteca.
	// Devuelve: No devuelve nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Sub Kestra_DefinirOperador Lib Biblioteca (operador As Ptr)
	#tag EndExternalMethod

	// ---- Textos ----

	// Elige cómo se pasan los textos.
	// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
	#tag ExternalMethod, Flags = &h0
		Soft Declare Function Kestra_Textos Lib Biblioteca (modo As Int32) As Int32
	#tag EndExternalMethod

	#tag Constant, Name = Biblioteca, Type = String, Dynamic = False, Default = \"Kestra.dll", Scope = Public
		#Tag Instance, Platform = Linux, Language = Default, Definition  = \"libkestra.so"
	#tag EndConstant

	// Qué fue de una llamada.
	// no se le pidió nada a la impresora
	#tag Constant, Name = KESTRA_DESENLACE_NADA, Type = Double, Dynamic = False, Default = \"0", Scope = Public
	#tag EndConstant
	// la impresora lo hizo
	#tag Constant, Name = KESTRA_DESENLACE_HECHO, Type = Double, Dynamic = False, Default = \"1", Scope = Public
	#tag EndConstant
	// la impresora lo rechazó
	#tag Constant, Name = KESTRA_DESENLACE_RECHAZADO, Type = Double, Dynamic = False, Default = \"2", Scope = Public
	#tag EndConstant
	// no se mandó
	#tag Constant, Name = KESTRA_DESENLACE_NO_ENVIADO, Type = Double, Dynamic = False, Default = \"3", Scope = Public
	#tag EndConstant
	// se mandó, y no se sabe si se hizo: mirar el papel
	#tag Constant, Name = KESTRA_DESENLACE_DESCONOCIDO, Type = Double, Dynamic = False, Default = \"4", Scope = Public
	#tag EndConstant
	// se hizo una parte
	#tag Constant, Name = KESTRA_DESENLACE_EN_PARTE, Type = Double, Dynamic = False, Default = \"5", Scope = Public
	#tag EndConstant
	// pudo haberse mandado, y es seguro que no se hizo
	#tag Constant, Name = KESTRA_DESENLACE_NO_HECHO, Type = Double, Dynamic = False, Default = \"6", Scope = Public
	#tag EndConstant

	// Documentos, y lo demás que la impresora numera.
	// ninguno
	#tag Constant, Name = KESTRA_DOCUMENTO_NINGUNO, Type = Double, Dynamic = False, Default = \"0", Scope = Public
	#tag EndConstant
	// factura o tique factura
	#tag Constant, Name = KESTRA_DOCUMENTO_FACTURA, Type = Double, Dynamic = False, Default = \"1", Scope = Public
	#tag EndConstant
	// tique
	#tag Constant, Name = KESTRA_DOCUMENTO_TIQUE, Type = Double, Dynamic = False, Default = \"2", Scope = Public
	#tag EndConstant
	// nota de débito
	#tag Constant, Name = KESTRA_DOCUMENTO_NOTA_DEBITO, Type = Double, Dynamic = False, Default = \"3", Scope = Public
	#tag EndConstant
	// nota de crédito
	#tag Constant, Name = KESTRA_DOCUMENTO_NOTA_CREDITO, Type = Double, Dynamic = False, Default = \"4", Scope = Public
	#tag EndConstant
	// remito
	#tag Constant, Name = KESTRA_DOCUMENTO_REMITO, Type = Double, Dynamic = False, Default = \"5", Scope = Public
	#tag EndConstant
	// vale
	#tag Constant, Name = KESTRA_DOCUMENTO_VALE, Type = Double, Dynamic = False, Default = \"6", Scope = Public
	#tag EndConstant
	// no fiscal
	#tag Constant, Name = KESTRA_DOCUMENTO_NO_FISCAL, Type = Double, Dynamic = False, Default = \"7", Scope = Public
	#tag EndConstant
	// abierto, y no por este programa
	#tag Constant, Name = KESTRA_DOCUMENTO_OTRO, Type = Double, Dynamic = False, Default = \"15", Scope = Public
	#tag EndConstant
	// solo para Kestra_Numeracion: cierres Z
	#tag Constant, Name = KESTRA_NUMERO_CIERRE_Z, Type = Double, Dynamic = False, Default = \"16", Scope = Public
	#tag EndConstant
	// solo para Kestra_Numeracion: cancelados de hoy
	#tag Constant, Name = KESTRA_NUMERO_CANCELADOS, Type = Double, Dynamic = False, Default = \"17", Scope = Public
	#tag EndConstant
	// solo para Kestra_Numeracion: no fiscales de hoy
	#tag Constant, Name = KESTRA_NUMERO_NO_FISCALES, Type = Double, Dynamic = False, Default = \"18", Scope = Public
	#tag EndConstant
	// nadie sabe si hay uno abierto: preguntar con Kestra_Estado
	#tag Constant, Name = KESTRA_DOCUMENTO_DESCONOCIDO, Type = Double, Dynamic = False, Default = \"255", Scope = Public
	#tag EndConstant
	// se suma a la clase: no tiene nada
	#tag Constant, Name = KESTRA_ETAPA_ABIERTO, Type = Double, Dynamic = False, Default = \"256", Scope = Public
	#tag EndConstant
	// se suma a la clase: tiene ítems
	#tag Constant, Name = KESTRA_ETAPA_CON_ITEMS, Type = Double, Dynamic = False, Default = \"512", Scope = Public
	#tag EndConstant
	// se suma a la clase: tiene pagos
	#tag Constant, Name = KESTRA_ETAPA_EN_PAGO, Type = Double, Dynamic = False, Default = \"768", Scope = Public
	#tag EndConstant

	// Por qué terminó así una llamada.
	#tag Constant, Name = KESTRA_CAUSA_NINGUNA, Type = Double, Dynamic = False, Default = \"0", Scope = Public
	#tag EndConstant
	// El operador contestó que no se enviara.
	#tag Constant, Name = KESTRA_CAUSA_DECLINADA, Type = Double, Dynamic = False, Default = \"101", Scope = Public
	#tag EndConstant
	// Este modelo de impresora no tiene ese comprobante o esa operación.
	#tag Constant, Name = KESTRA_CAUSA_SIN_COMANDO, Type = Double, Dynamic = False, Default = \"102", Scope = Public
	#tag EndConstant
	// El controlador no está iniciado.
	#tag Constant, Name = KESTRA_CAUSA_SIN_INICIAR, Type = Double, Dynamic = False, Default = \"103", Scope = Public
	#tag EndConstant
	// Falta saber qué fue de una operación anterior y la impresora no contesta.
	#tag Constant, Name = KESTRA_CAUSA_SIN_RESOLVER, Type = Double, Dynamic = False, Default = \"104", Scope = Public
	#tag EndConstant
	// El total de la impresora no es la suma de lo que se le mandó.
	#tag Constant, Name = KESTRA_CAUSA_TOTAL_DISTINTO, Type = Double, Dynamic = False, Default = \"105", Scope = Public
	#tag EndConstant
	// Los tickets se emiten solo a consumidor final.
	#tag Constant, Name = KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL, Type = Double, Dynamic = False, Default = \"106", Scope = Public
	#tag EndConstant
	// Fiscal.ini tiene una clave que no se puede leer.
	#tag Constant, Name = KESTRA_CAUSA_CLAVE_ILEGIBLE, Type = Double, Dynamic = False, Default = \"107", Scope = Public
	#tag EndConstant
	// El controlador falló.
	#tag Constant, Name = KESTRA_CAUSA_FALLA_INTERNA, Type = Double, Dynamic = False, Default = \"108", Scope = Public
	#tag EndConstant
	// A la máquina le falta memoria.
	#tag Constant, Name = KESTRA_CAUSA_SIN_MEMORIA, Type = Double, Dynamic = False, Default = \"109", Scope = Public
	#tag EndConstant
	// El programa de ventas dejó la llamada por la mitad.
	#tag Constant, Name = KESTRA_CAUSA_ABANDONADA, Type = Double, Dynamic = False, Default = \"110", Scope = Public
	#tag EndConstant
	// El número de puerto no es válido (1 a 256).
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_NUMERO, Type = Double, Dynamic = False, Default = \"201", Scope = Public
	#tag EndConstant
	// La configuración del puerto no es válida.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_CONFIGURACION, Type = Double, Dynamic = False, Default = \"202", Scope = Public
	#tag EndConstant
	// No existe el puerto de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_INEXISTENTE, Type = Double, Dynamic = False, Default = \"203", Scope = Public
	#tag EndConstant
	// No hay un puerto serie donde dice la configuración.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_SIN_EQUIPO, Type = Double, Dynamic = False, Default = \"204", Scope = Public
	#tag EndConstant
	// El dispositivo de la configuración no es un puerto serie.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_NO_SERIE, Type = Double, Dynamic = False, Default = \"205", Scope = Public
	#tag EndConstant
	// No hay permiso para usar el puerto de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_SIN_PERMISO, Type = Double, Dynamic = False, Default = \"206", Scope = Public
	#tag EndConstant
	// Otro programa está usando el puerto de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_EN_USO, Type = Double, Dynamic = False, Default = \"207", Scope = Public
	#tag EndConstant
	// No se pudo abrir el puerto de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_NO_ABRE, Type = Double, Dynamic = False, Default = \"208", Scope = Public
	#tag EndConstant
	// El puerto ya estaba abierto.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_YA_ABIERTO, Type = Double, Dynamic = False, Default = \"209", Scope = Public
	#tag EndConstant
	// El puerto no estaba abierto.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_NO_ABIERTO, Type = Double, Dynamic = False, Default = \"210", Scope = Public
	#tag EndConstant
	// Se perdió la conexión con la impresora.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_PERDIDO, Type = Double, Dynamic = False, Default = \"211", Scope = Public
	#tag EndConstant
	// El puerto no acepta datos.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_TRABADO, Type = Double, Dynamic = False, Default = \"212", Scope = Public
	#tag EndConstant
	// El puerto falló al leer o escribir.
	#tag Constant, Name = KESTRA_CAUSA_PUERTO_TRANSFERENCIA, Type = Double, Dynamic = False, Default = \"213", Scope = Public
	#tag EndConstant
	// La dirección de red no es válida (tcp:EQUIPO:PUERTO).
	#tag Constant, Name = KESTRA_CAUSA_RED_DIRECCION, Type = Double, Dynamic = False, Default = \"214", Scope = Public
	#tag EndConstant
	// No se conoce el equipo de la impresora en la red.
	#tag Constant, Name = KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO, Type = Double, Dynamic = False, Default = \"215", Scope = Public
	#tag EndConstant
	// Nadie atiende en la dirección de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_RED_NADIE_ATIENDE, Type = Double, Dynamic = False, Default = \"216", Scope = Public
	#tag EndConstant
	// La dirección de la impresora no responde.
	#tag Constant, Name = KESTRA_CAUSA_RED_NO_RESPONDE, Type = Double, Dynamic = False, Default = \"217", Scope = Public
	#tag EndConstant
	// No hay camino en la red hasta la impresora.
	#tag Constant, Name = KESTRA_CAUSA_RED_SIN_CAMINO, Type = Double, Dynamic = False, Default = \"218", Scope = Public
	#tag EndConstant
	// La conexión se cortó sin contestar: se perdió o la usa otro programa.
	#tag Constant, Name = KESTRA_CAUSA_RED_CORTADA, Type = Double, Dynamic = False, Default = \"219", Scope = Public
	#tag EndConstant
	// La impresora no contestó.
	#tag Constant, Name = KESTRA_CAUSA_SILENCIO, Type = Double, Dynamic = False, Default = \"301", Scope = Public
	#tag EndConstant
	// La respuesta de la impresora llegó dañada.
	#tag Constant, Name = KESTRA_CAUSA_RESPUESTA_DANADA, Type = Double, Dynamic = False, Default = \"302", Scope = Public
	#tag EndConstant
	// La impresora contestó a otros comandos.
	#tag Constant, Name = KESTRA_CAUSA_RESPUESTAS_AJENAS, Type = Double, Dynamic = False, Default = \"303", Scope = Public
	#tag EndConstant
	// La impresora avisó que el comando le llegó dañado.
	#tag Constant, Name = KESTRA_CAUSA_COMANDO_DANADO, Type = Double, Dynamic = False, Default = \"304", Scope = Public
	#tag EndConstant
	// El comando se mandó más de una vez: puede estar repetido.
	#tag Constant, Name = KESTRA_CAUSA_REPETIDO, Type = Double, Dynamic = False, Default = \"305", Scope = Public
	#tag EndConstant
	// La respuesta de la impresora no trae los datos esperados.
	#tag Constant, Name = KESTRA_CAUSA_RESPUESTA_INESPERADA, Type = Double, Dynamic = False, Default = \"306", Scope = Public
	#tag EndConstant
	// La impresora avisa un error o una falla.
	#tag Constant, Name = KESTRA_CAUSA_FALLA_IMPRESORA, Type = Double, Dynamic = False, Default = \"402", Scope = Public
	#tag EndConstant
	// La impresora está fuera de línea.
	#tag Constant, Name = KESTRA_CAUSA_FUERA_DE_LINEA, Type = Double, Dynamic = False, Default = \"403", Scope = Public
	#tag EndConstant
	// Falta papel del diario.
	#tag Constant, Name = KESTRA_CAUSA_SIN_PAPEL_DIARIO, Type = Double, Dynamic = False, Default = \"404", Scope = Public
	#tag EndConstant
	// Falta papel de tickets.
	#tag Constant, Name = KESTRA_CAUSA_SIN_PAPEL_TICKETS, Type = Double, Dynamic = False, Default = \"405", Scope = Public
	#tag EndConstant
	// La impresora no tiene papel.
	#tag Constant, Name = KESTRA_CAUSA_SIN_PAPEL, Type = Double, Dynamic = False, Default = \"414", Scope = Public
	#tag EndConstant
	// Falló la comprobación de la memoria fiscal.
	#tag Constant, Name = KESTRA_CAUSA_MEMORIA_FISCAL, Type = Double, Dynamic = False, Default = \"500", Scope = Public
	#tag EndConstant
	// Falló la comprobación de la memoria de trabajo.
	#tag Constant, Name = KESTRA_CAUSA_MEMORIA_TRABAJO, Type = Double, Dynamic = False, Default = \"501", Scope = Public
	#tag EndConstant
	// La impresora tiene la batería baja.
	#tag Constant, Name = KESTRA_CAUSA_BATERIA_BAJA, Type = Double, Dynamic = False, Default = \"502", Scope = Public
	#tag EndConstant
	// La impresora no conoce el comando.
	#tag Constant, Name = KESTRA_CAUSA_COMANDO_DESCONOCIDO, Type = Double, Dynamic = False, Default = \"503", Scope = Public
	#tag EndConstant
	// La impresora no aceptó un dato del comando.
	#tag Constant, Name = KESTRA_CAUSA_CAMPO_INVALIDO, Type = Double, Dynamic = False, Default = \"504", Scope = Public
	#tag EndConstant
	// El comando no corresponde a lo que la impresora está haciendo.
	#tag Constant, Name = KESTRA_CAUSA_ESTADO_INVALIDO, Type = Double, Dynamic = False, Default = \"505", Scope = Public
	#tag EndConstant
	// La cantidad o el importe pasa lo que la impresora admite.
	#tag Constant, Name = KESTRA_CAUSA_DESBORDE, Type = Double, Dynamic = False, Default = \"506", Scope = Public
	#tag EndConstant
	// La memoria fiscal está llena.
	#tag Constant, Name = KESTRA_CAUSA_MEMORIA_LLENA, Type = Double, Dynamic = False, Default = \"507", Scope = Public
	#tag EndConstant
	// La memoria fiscal está casi llena.
	#tag Constant, Name = KESTRA_CAUSA_MEMORIA_CASI_LLENA, Type = Double, Dynamic = False, Default = \"508", Scope = Public
	#tag EndConstant
	// Hace falta un cierre Z: pasaron más de 24 horas.
	#tag Constant, Name = KESTRA_CAUSA_CIERRE_NECESARIO, Type = Double, Dynamic = False, Default = \"511", Scope = Public
	#tag EndConstant
	// Nada en la impresora muestra si esta operación se hizo.
	#tag Constant, Name = KESTRA_CAUSA_SIN_REGISTRO, Type = Double, Dynamic = False, Default = \"601", Scope = Public
	#tag EndConstant
	// Los registros de la impresora no coinciden con lo enviado.
	#tag Constant, Name = KESTRA_CAUSA_REGISTROS_NO_COINCIDEN, Type = Double, Dynamic = False, Default = \"602", Scope = Public
	#tag EndConstant
	// No se pudieron leer los registros de la impresora.
	#tag Constant, Name = KESTRA_CAUSA_REGISTROS_ILEGIBLES, Type = Double, Dynamic = False, Default = \"603", Scope = Public
	#tag EndConstant
	// La hoja se llenó y se hizo el transporte: falta el artículo.
	#tag Constant, Name = KESTRA_CAUSA_HOJA_CAMBIADA, Type = Double, Dynamic = False, Default = \"604", Scope = Public
	#tag EndConstant
	// El comprobante ya estaba cerrado: no se puede cancelar.
	#tag Constant, Name = KESTRA_CAUSA_YA_CERRADO, Type = Double, Dynamic = False, Default = \"605", Scope = Public
	#tag EndConstant
	// La operación pendiente se dejó de lado.
	#tag Constant, Name = KESTRA_CAUSA_OLVIDADA, Type = Double, Dynamic = False, Default = \"606", Scope = Public
	#tag EndConstant
	// La impresora no lleva ese número.
	#tag Constant, Name = KESTRA_CAUSA_SIN_NUMERO, Type = Double, Dynamic = False, Default = \"607", Scope = Public
	#tag EndConstant
	// No se puede escribir el diario.
	#tag Constant, Name = KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE, Type = Double, Dynamic = False, Default = \"701", Scope = Public
	#tag EndConstant
	// El diario es de otra impresora.
	#tag Constant, Name = KESTRA_CAUSA_DIARIO_AJENO, Type = Double, Dynamic = False, Default = \"702", Scope = Public
	#tag EndConstant
	// Otro programa tiene abierto el diario.
	#tag Constant, Name = KESTRA_CAUSA_DIARIO_EN_USO, Type = Double, Dynamic = False, Default = \"703", Scope = Public
	#tag EndConstant
	// El diario está dañado.
	#tag Constant, Name = KESTRA_CAUSA_DIARIO_DANADO, Type = Double, Dynamic = False, Default = \"704", Scope = Public
	#tag EndConstant
	// No se pudo escribir el diario y se siguió sin él.
	#tag Constant, Name = KESTRA_CAUSA_DIARIO_OMITIDO, Type = Double, Dynamic = False, Default = \"705", Scope = Public
	#tag EndConstant
	// No se puede escribir el registro fiscal.log.
	#tag Constant, Name = KESTRA_CAUSA_LOG_NO_SE_ESCRIBE, Type = Double, Dynamic = False, Default = \"801", Scope = Public
	#tag EndConstant
End Module
#tag EndModule
