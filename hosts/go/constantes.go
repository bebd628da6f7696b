// Kestra 1.0.0: declaraciones para Go.
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// Un texto es la dirección del primero de sus bytes exactos, &texto[0]; un búfer, lo mismo.

package kestra

// Qué fue de una llamada.
const (
	KESTRA_DESENLACE_NADA        = 0 // no se le pidió nada a la impresora
	KESTRA_DESENLACE_HECHO       = 1 // la impresora lo hizo
	KESTRA_DESENLACE_RECHAZADO   = 2 // la impresora lo rechazó
	KESTRA_DESENLACE_NO_ENVIADO  = 3 // no se mandó
	KESTRA_DESENLACE_DESCONOCIDO = 4 // se mandó, y no se sabe si se hizo: mirar el papel
	KESTRA_DESENLACE_EN_PARTE    = 5 // se hizo una parte
	KESTRA_DESENLACE_NO_HECHO    = 6 // pudo haberse mandado, y es seguro que no se hizo
)

// Documentos, y lo demás que la impresora numera.
const (
	KESTRA_DOCUMENTO_NINGUNO      = 0   // ninguno
	KESTRA_DOCUMENTO_FACTURA      = 1   // factura o tique factura
	KESTRA_DOCUMENTO_TIQUE        = 2   // tique
	KESTRA_DOCUMENTO_NOTA_DEBITO  = 3   // nota de débito
	KESTRA_DOCUMENTO_NOTA_CREDITO = 4   // nota de crédito
	KESTRA_DOCUMENTO_REMITO       = 5   // remito
	KESTRA_DOCUMENTO_VALE         = 6   // vale
	KESTRA_DOCUMENTO_NO_FISCAL    = 7   // no fiscal
	KESTRA_DOCUMENTO_OTRO         = 15  // abierto, y no por este programa
	KESTRA_NUMERO_CIERRE_Z        = 16  // solo para Kestra_Numeracion: cierres Z
	KESTRA_NUMERO_CANCELADOS      = 17  // solo para Kestra_Numeracion: cancelados de hoy
	KESTRA_NUMERO_NO_FISCALES     = 18  // solo para Kestra_Numeracion: no fiscales de hoy
	KESTRA_DOCUMENTO_DESCONOCIDO  = 255 // nadie sabe si hay uno abierto: preguntar con Kestra_Estado
	KESTRA_ETAPA_ABIERTO          = 256 // se suma a la clase: no tiene nada
	KESTRA_ETAPA_CON_ITEMS        = 512 // se suma a la clase: tiene ítems
	KESTRA_ETAPA_EN_PAGO          = 768 // se suma a la clase: tiene pagos
)

// Por qué terminó así una llamada.
const (
	KESTRA_CAUSA_NINGUNA                = 0
	KESTRA_CAUSA_DECLINADA              = 101 // El operador contestó que no se enviara.
	KESTRA_CAUSA_SIN_COMANDO            = 102 // Este modelo de impresora no tiene ese comprobante o esa operación.
	KESTRA_CAUSA_SIN_INICIAR            = 103 // El controlador no está iniciado.
	KESTRA_CAUSA_SIN_RESOLVER           = 104 // Falta saber qué fue de una operación anterior y la impresora no contesta.
	KESTRA_CAUSA_TOTAL_DISTINTO         = 105 // El total de la impresora no es la suma de lo que se le mandó.
	KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL  = 106 // Los tickets se emiten solo a consumidor final.
	KESTRA_CAUSA_CLAVE_ILEGIBLE         = 107 // Fiscal.ini tiene una clave que no se puede leer.
	KESTRA_CAUSA_FALLA_INTERNA          = 108 // El controlador falló.
	KESTRA_CAUSA_SIN_MEMORIA            = 109 // A la máquina le falta memoria.
	KESTRA_CAUSA_ABANDONADA             = 110 // El programa de ventas dejó la llamada por la mitad.
	KESTRA_CAUSA_PUERTO_NUMERO          = 201 // El número de puerto no es válido (1 a 256).
	KESTRA_CAUSA_PUERTO_CONFIGURACION   = 202 // La configuración del puerto no es válida.
	KESTRA_CAUSA_PUERTO_INEXISTENTE     = 203 // No existe el puerto de la impresora.
	KESTRA_CAUSA_PUERTO_SIN_EQUIPO      = 204 // No hay un puerto serie donde dice la configuración.
	KESTRA_CAUSA_PUERTO_NO_SERIE        = 205 // El dispositivo de la configuración no es un puerto serie.
	KESTRA_CAUSA_PUERTO_SIN_PERMISO     = 206 // No hay permiso para usar el puerto de la impresora.
	KESTRA_CAUSA_PUERTO_EN_USO          = 207 // Otro programa está usando el puerto de la impresora.
	KESTRA_CAUSA_PUERTO_NO_ABRE         = 208 // No se pudo abrir el puerto de la impresora.
	KESTRA_CAUSA_PUERTO_YA_ABIERTO      = 209 // El puerto ya estaba abierto.
	KESTRA_CAUSA_PUERTO_NO_ABIERTO      = 210 // El puerto no estaba abierto.
	KESTRA_CAUSA_PUERTO_PERDIDO         = 211 // Se perdió la conexión con la impresora.
	KESTRA_CAUSA_PUERTO_TRABADO         = 212 // El puerto no acepta datos.
	KESTRA_CAUSA_PUERTO_TRANSFERENCIA   = 213 // El puerto falló al leer o escribir.
	KESTRA_CAUSA_RED_DIRECCION          = 214 // La dirección de red no es válida (tcp:EQUIPO:PUERTO).
	KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215 // No se conoce el equipo de la impresora en la red.
	KESTRA_CAUSA_RED_NADIE_ATIENDE      = 216 // Nadie atiende en la dirección de la impresora.
	KESTRA_CAUSA_RED_NO_RESPONDE        = 217 // La dirección de la impresora no responde.
	KESTRA_CAUSA_RED_SIN_CAMINO         = 218 // No hay camino en la red hasta la impresora.
	KESTRA_CAUSA_RED_CORTADA            = 219 // La conexión se cortó sin contestar: se perdió o la usa otro programa.
	KESTRA_CAUSA_SILENCIO               = 301 // La impresora no contestó.
	KESTRA_CAUSA_RESPUESTA_DANADA       = 302 // La respuesta de la impresora llegó dañada.
	KESTRA_CAUSA_RESPUESTAS_AJENAS      = 303 // La impresora contestó a otros comandos.
	KESTRA_CAUSA_COMANDO_DANADO         = 304 // La impresora avisó que el comando le llegó dañado.
	KESTRA_CAUSA_REPETIDO               = 305 // El comando se mandó más de una vez: puede estar repetido.
	KESTRA_CAUSA_RESPUESTA_INESPERADA   = 306 // La respuesta de la impresora no trae los datos esperados.
	KESTRA_CAUSA_FALLA_IMPRESORA        = 402 // La impresora avisa un error o una falla.
	KESTRA_CAUSA_FUERA_DE_LINEA         = 403 // La impresora está fuera de línea.
	KESTRA_CAUSA_SIN_PAPEL_DIARIO       = 404 // Falta papel del diario.
	KESTRA_CAUSA_SIN_PAPEL_TICKETS      = 405 // Falta papel de tickets.
	KESTRA_CAUSA_SIN_PAPEL              = 414 // La impresora no tiene papel.
	KESTRA_CAUSA_MEMORIA_FISCAL         = 500 // Falló la comprobación de la memoria fiscal.
	KESTRA_CAUSA_MEMORIA_TRABAJO        = 501 // Falló la comprobación de la memoria de trabajo.
	KESTRA_CAUSA_BATERIA_BAJA           = 502 // La impresora tiene la batería baja.
	KESTRA_CAUSA_COMANDO_DESCONOCIDO    = 503 // La impresora no conoce el comando.
	KESTRA_CAUSA_CAMPO_INVALIDO         = 504 // La impresora no aceptó un dato del comando.
	KESTRA_CAUSA_ESTADO_INVALIDO        = 505 // El comando no corresponde a lo que la impresora está haciendo.
	KESTRA_CAUSA_DESBORDE               = 506 // La cantidad o el importe pasa lo que la impresora admite.
	KESTRA_CAUSA_MEMORIA_LLENA          = 507 // La memoria fiscal está llena.
	KESTRA_CAUSA_MEMORIA_CASI_LLENA     = 508 // La memoria fiscal está casi llena.
	KESTRA_CAUSA_CIERRE_NECESARIO       = 511 // Hace falta un cierre Z: pasaron más de 24 horas.
	KESTRA_CAUSA_SIN_REGISTRO           = 601 // Nada en la impresora muestra si esta operación se hizo.
	KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602 // Los registros de la impresora no coinciden con lo enviado.
	KESTRA_CAUSA_REGISTROS_ILEGIBLES    = 603 // No se pudieron leer los registros de la impresora.
	KESTRA_CAUSA_HOJA_CAMBIADA          = 604 // La hoja se llenó y se hizo el transporte: falta el artículo.
	KESTRA_CAUSA_YA_CERRADO             = 605 // El comprobante ya estaba cerrado: no se puede cancelar.
	KESTRA_CAUSA_OLVIDADA               = 606 // La operación pendiente se dejó de lado.
	KESTRA_CAUSA_SIN_NUMERO             = 607 // La impresora no lleva ese número.
	KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE   = 701 // No se puede escribir el diario.
	KESTRA_CAUSA_DIARIO_AJENO           = 702 // El diario es de otra impresora.
	KESTRA_CAUSA_DIARIO_EN_USO          = 703 // Otro programa tiene abierto el diario.
	KESTRA_CAUSA_DIARIO_DANADO          = 704 // El diario está dañado.
	KESTRA_CAUSA_DIARIO_OMITIDO         = 705 // No se pudo escribir el diario y se siguió sin él.
	KESTRA_CAUSA_LOG_NO_SE_ESCRIBE      = 801 // No se puede escribir el registro fiscal.log.
)
