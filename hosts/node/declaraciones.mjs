// Kestra 1.0.0: declaraciones para Node.js (koffi 2).
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// import koffi from 'koffi'; const kestra = declarar(koffi, 'libkestra.so'); kestra.EP_Init();
// Un texto es un Buffer con sus bytes exactos, y un búfer, un Buffer en cero.
// FUNCIONES da de cada una sus argumentos: [nombre, tipo, bytes]. Los bytes de un texto son los que se leen; los de
// un búfer, los que se escriben a lo sumo. En Windows de 32 bits la convención es stdcall; en los demás no cambia nada.

// Qué fue de una llamada.
export const KESTRA_DESENLACE_NADA = 0; // no se le pidió nada a la impresora
export const KESTRA_DESENLACE_HECHO = 1; // la impresora lo hizo
export const KESTRA_DESENLACE_RECHAZADO = 2; // la impresora lo rechazó
export const KESTRA_DESENLACE_NO_ENVIADO = 3; // no se mandó
export const KESTRA_DESENLACE_DESCONOCIDO = 4; // se mandó, y no se sabe si se hizo: mirar el papel
export const KESTRA_DESENLACE_EN_PARTE = 5; // se hizo una parte
export const KESTRA_DESENLACE_NO_HECHO = 6; // pudo haberse mandado, y es seguro que no se hizo

// Documentos, y lo demás que la impresora numera.
export const KESTRA_DOCUMENTO_NINGUNO = 0; // ninguno
export const KESTRA_DOCUMENTO_FACTURA = 1; // factura o tique factura
export const KESTRA_DOCUMENTO_TIQUE = 2; // tique
export const KESTRA_DOCUMENTO_NOTA_DEBITO = 3; // nota de débito
export const KESTRA_DOCUMENTO_NOTA_CREDITO = 4; // nota de crédito
export const KESTRA_DOCUMENTO_REMITO = 5; // remito
export const KESTRA_DOCUMENTO_VALE = 6; // vale
export const KESTRA_DOCUMENTO_NO_FISCAL = 7; // no fiscal
export const KESTRA_DOCUMENTO_OTRO = 15; // abierto, y no por este programa
export const KESTRA_NUMERO_CIERRE_Z = 16; // solo para Kestra_Numeracion: cierres Z
export const KESTRA_NUMERO_CANCELADOS = 17; // solo para Kestra_Numeracion: cancelados de hoy
export const KESTRA_NUMERO_NO_FISCALES = 18; // solo para Kestra_Numeracion: no fiscales de hoy
export const KESTRA_DOCUMENTO_DESCONOCIDO = 255; // nadie sabe si hay uno abierto: preguntar con Kestra_Estado
export const KESTRA_ETAPA_ABIERTO = 256; // se suma a la clase: no tiene nada
export const KESTRA_ETAPA_CON_ITEMS = 512; // se suma a la clase: tiene ítems
export const KESTRA_ETAPA_EN_PAGO = 768; // se suma a la clase: tiene pagos

// Por qué terminó así una llamada.
export const KESTRA_CAUSA_NINGUNA = 0;
export const KESTRA_CAUSA_DECLINADA = 101; // El operador contestó que no se enviara.
export const KESTRA_CAUSA_SIN_COMANDO = 102; // Este modelo de impresora no tiene ese comprobante o esa operación.
export const KESTRA_CAUSA_SIN_INICIAR = 103; // El controlador no está iniciado.
export const KESTRA_CAUSA_SIN_RESOLVER = 104; // Falta saber qué fue de una operación anterior y la impresora no contesta.
export const KESTRA_CAUSA_TOTAL_DISTINTO = 105; // El total de la impresora no es la suma de lo que se le mandó.
export const KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL = 106; // Los tickets se emiten solo a consumidor final.
export const KESTRA_CAUSA_CLAVE_ILEGIBLE = 107; // Fiscal.ini tiene una clave que no se puede leer.
export const KESTRA_CAUSA_FALLA_INTERNA = 108; // El controlador falló.
export const KESTRA_CAUSA_SIN_MEMORIA = 109; // A la máquina le falta memoria.
export const KESTRA_CAUSA_ABANDONADA = 110; // El programa de ventas dejó la llamada por la mitad.
export const KESTRA_CAUSA_PUERTO_NUMERO = 201; // El número de puerto no es válido (1 a 256).
export const KESTRA_CAUSA_PUERTO_CONFIGURACION = 202; // La configuración del puerto no es válida.
export const KESTRA_CAUSA_PUERTO_INEXISTENTE = 203; // No existe el puerto de la impresora.
export const KESTRA_CAUSA_PUERTO_SIN_EQUIPO = 204; // No hay un puerto serie donde dice la configuración.
export const KESTRA_CAUSA_PUERTO_NO_SERIE = 205; // El dispositivo de la configuración no es un puerto serie.
export const KESTRA_CAUSA_PUERTO_SIN_PERMISO = 206; // No hay permiso para usar el puerto de la impresora.
export const KESTRA_CAUSA_PUERTO_EN_USO = 207; // Otro programa está usando el puerto de la impresora.
export const KESTRA_CAUSA_PUERTO_NO_ABRE = 208; // No se pudo abrir el puerto de la impresora.
export const KESTRA_CAUSA_PUERTO_YA_ABIERTO = 209; // El puerto ya estaba abierto.
export const KESTRA_CAUSA_PUERTO_NO_ABIERTO = 210; // El puerto no estaba abierto.
export const KESTRA_CAUSA_PUERTO_PERDIDO = 211; // Se perdió la conexión con la impresora.
export const KESTRA_CAUSA_PUERTO_TRABADO = 212; // El puerto no acepta datos.
export const KESTRA_CAUSA_PUERTO_TRANSFERENCIA = 213; // El puerto falló al leer o escribir.
export const KESTRA_CAUSA_RED_DIRECCION = 214; // La dirección de red no es válida (tcp:EQUIPO:PUERTO).
export const KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215; // No se conoce el equipo de la impresora en la red.
export const KESTRA_CAUSA_RED_NADIE_ATIENDE = 216; // Nadie atiende en la dirección de la impresora.
export const KESTRA_CAUSA_RED_NO_RESPONDE = 217; // La dirección de la impresora no responde.
export const KESTRA_CAUSA_RED_SIN_CAMINO = 218; // No hay camino en la red hasta la impresora.
export const KESTRA_CAUSA_RED_CORTADA = 219; // La conexión se cortó sin contestar: se perdió o la usa otro programa.
export const KESTRA_CAUSA_SILENCIO = 301; // La impresora no contestó.
export const KESTRA_CAUSA_RESPUESTA_DANADA = 302; // La respuesta de la impresora llegó dañada.
export const KESTRA_CAUSA_RESPUESTAS_AJENAS = 303; // La impresora contestó a otros comandos.
export const KESTRA_CAUSA_COMANDO_DANADO = 304; // La impresora avisó que el comando le llegó dañado.
export const KESTRA_CAUSA_REPETIDO = 305; // El comando se mandó más de una vez: puede estar repetido.
export const KESTRA_CAUSA_RESPUESTA_INESPERADA = 306; // La respuesta de la impresora no trae los datos esperados.
export const KESTRA_CAUSA_FALLA_IMPRESORA = 402; // La impresora avisa un error o una falla.
export const KESTRA_CAUSA_FUERA_DE_LINEA = 403; // La impresora está fuera de línea.
export const KESTRA_CAUSA_SIN_PAPEL_DIARIO = 404; // Falta papel del diario.
export const KESTRA_CAUSA_SIN_PAPEL_TICKETS = 405; // Falta papel de tickets.
export const KESTRA_CAUSA_SIN_PAPEL = 414; // La impresora no tiene papel.
export const KESTRA_CAUSA_MEMORIA_FISCAL = 500; // Falló la comprobación de la memoria fiscal.
export const KESTRA_CAUSA_MEMORIA_TRABAJO = 501; // Falló la comprobación de la memoria de trabajo.
export const KESTRA_CAUSA_BATERIA_BAJA = 502; // La impresora tiene la batería baja.
export const KESTRA_CAUSA_COMANDO_DESCONOCIDO = 503; // La impresora no conoce el comando.
export const KESTRA_CAUSA_CAMPO_INVALIDO = 504; // La impresora no aceptó un dato del comando.
export const KESTRA_CAUSA_ESTADO_INVALIDO = 505; // El comando no corresponde a lo que la impresora está haciendo.
export const KESTRA_CAUSA_DESBORDE = 506; // La cantidad o el importe pasa lo que la impresora admite.
export const KESTRA_CAUSA_MEMORIA_LLENA = 507; // La memoria fiscal está llena.
export const KESTRA_CAUSA_MEMORIA_CASI_LLENA = 508; // La memoria fiscal está casi llena.
export const KESTRA_CAUSA_CIERRE_NECESARIO = 511; // Hace falta un cierre Z: pasaron más de 24 horas.
export const KESTRA_CAUSA_SIN_REGISTRO = 601; // Nada en la impresora muestra si esta operación se hizo.
export const KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602; // Los registros de la impresora no coinciden con lo enviado.
export const KESTRA_CAUSA_REGISTROS_ILEGIBLES = 603; // No se pudieron leer los registros de la impresora.
export const KESTRA_CAUSA_HOJA_CAMBIADA = 604; // La hoja se llenó y se hizo el transporte: falta el artículo.
export const KESTRA_CAUSA_YA_CERRADO = 605; // El comprobante ya estaba cerrado: no se puede cancelar.
export const KESTRA_CAUSA_OLVIDADA = 606; // La operación pendiente se dejó de lado.
export const KESTRA_CAUSA_SIN_NUMERO = 607; // La impresora no lleva ese número.
export const KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE = 701; // No se puede escribir el diario.
export const KESTRA_CAUSA_DIARIO_AJENO = 702; // El diario es de otra impresora.
export const KESTRA_CAUSA_DIARIO_EN_USO = 703; // Otro programa tiene abierto el diario.
export const KESTRA_CAUSA_DIARIO_DANADO = 704; // El diario está dañado.
export const KESTRA_CAUSA_DIARIO_OMITIDO = 705; // No se pudo escribir el diario y se siguió sin él.
export const KESTRA_CAUSA_LOG_NO_SE_ESCRIBE = 801; // No se puede escribir el registro fiscal.log.

export const FUNCIONES = {
  // ---- Principio y fin ----
  // Lee Fiscal.ini y prepara el puerto.
  // Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
  EP_Init: { devuelve: 'int32_t', argumentos: [] },
  // Suelta el puerto.
  // Devuelve: No quiere decir nada.
  EP_Kill: { devuelve: 'int32_t', argumentos: [] },
  // ---- Comprobantes fiscales ----
  // Abre una factura, un tique o una nota.
  // Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
  // documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4,
  // linea5 40 bytes cada uno.
  EP_AbrirComprobanteFiscal: { devuelve: 'int32_t', argumentos: [
    ['tipo', 'texto', 2], ['letra', 'texto', 1], ['nombre1', 'texto', 40],
    ['nombre2', 'texto', 40], ['documento_tipo', 'texto', 6], ['documento_numero', 'texto', 11],
    ['responsabilidad_iva', 'texto', 1], ['domicilio1', 'texto', 40], ['domicilio2', 'texto', 40],
    ['domicilio3', 'texto', 40], ['linea4', 'texto', 40], ['linea5', 'texto', 40],
    ['copias', 'int32_t', 0],
  ] },
  // Imprime una línea de venta.
  // Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
  EP_ImprimirItem: { devuelve: 'int32_t', argumentos: [
    ['descripcion', 'texto', 50], ['cantidad', 'double', 0], ['precio', 'double', 0],
    ['iva', 'double', 0], ['impuestos_internos', 'double', 0], ['extra1', 'texto', 22],
    ['extra2', 'texto', 22], ['extra3', 'texto', 22],
  ] },
  // Imprime la anulación de una línea.
  // Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
  EP_AnularItem: { devuelve: 'int32_t', argumentos: [
    ['descripcion', 'texto', 50], ['cantidad', 'double', 0], ['precio', 'double', 0],
    ['iva', 'double', 0], ['impuestos_internos', 'double', 0], ['extra1', 'texto', 22],
    ['extra2', 'texto', 22], ['extra3', 'texto', 22],
  ] },
  // Imprime un renglón de texto dentro del comprobante.
  // Textos: texto 26 bytes.
  EP_ImprimirTextoFiscal: { devuelve: 'int32_t', argumentos: [['texto', 'texto', 26]] },
  // Imprime un renglón de texto terminado en cero.
  EP_ImprimirTextoFiscalInterna: { devuelve: 'int32_t', argumentos: [['texto', 'texto', 0]] },
  // Cierra el comprobante y da su número.
  // Textos: tipo 2 bytes; letra 1 byte.
  // Recibe: numero, hasta 8 bytes.
  EP_CerrarComprobanteFiscal: { devuelve: 'int32_t', argumentos: [
    ['tipo', 'texto', 2], ['letra', 'texto', 1], ['numero', 'bufer', 8],
  ] },
  // Cancela el comprobante abierto.
  EP_Cancelar: { devuelve: 'int32_t', argumentos: [] },
  // ---- Totales y pagos ----
  // Le descuenta un importe al comprobante.
  // Textos: descripcion 80 bytes.
  EP_DescuentoGeneral: { devuelve: 'int32_t', argumentos: [['descripcion', 'texto', 80], ['monto', 'double', 0]] },
  // Le suma un recargo al comprobante.
  // Textos: descripcion 80 bytes.
  EP_RecargoGeneral: { devuelve: 'int32_t', argumentos: [['descripcion', 'texto', 80], ['monto', 'double', 0]] },
  // Le suma una percepción al comprobante.
  // Textos: descripcion 20 bytes; calificador 1 byte.
  EP_EspecificarPercepcionGlobal: { devuelve: 'int32_t', argumentos: [
    ['descripcion', 'texto', 20], ['monto', 'double', 0], ['iva', 'double', 0],
    ['calificador', 'texto', 1],
  ] },
  // Imprime una línea de pago.
  // Textos: descripcion 80 bytes.
  EP_ImprimirPago: { devuelve: 'int32_t', argumentos: [['descripcion', 'texto', 80], ['monto', 'double', 0]] },
  // Agrega líneas hasta que el total sea el que se dice.
  EP_AjusteRedondeo: { devuelve: 'int32_t', argumentos: [['total', 'double', 0]] },
  // ---- Otros documentos ----
  // Abre un documento no fiscal homologado.
  // Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
  // documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada
  // uno.
  EP_AbrirComprobanteNoFiscalHomologado: { devuelve: 'int32_t', argumentos: [
    ['tipo', 'texto', 2], ['marca1', 'texto', 1], ['linea1', 'texto', 40],
    ['linea2', 'texto', 40], ['documento_tipo', 'texto', 6], ['documento_numero', 'texto', 11],
    ['marca2', 'texto', 1], ['domicilio', 'texto', 40], ['linea4', 'texto', 40],
    ['linea5', 'texto', 40], ['linea6', 'texto', 40], ['linea7', 'texto', 40],
    ['cantidad', 'int32_t', 0],
  ] },
  // Cierra el documento homologado.
  // Textos: tipo 2 bytes; marca 1 byte.
  EP_CerrarComprobanteNoFiscalHomologado: { devuelve: 'int32_t', argumentos: [['tipo', 'texto', 2], ['marca', 'texto', 1]] },
  // Abre un documento no fiscal.
  EP_AbrirComprobanteNoFiscal: { devuelve: 'int32_t', argumentos: [] },
  // Imprime un renglón en el documento no fiscal.
  // Textos: texto 120 bytes.
  EP_ImprimirTextoNoFiscal: { devuelve: 'int32_t', argumentos: [['texto', 'texto', 120]] },
  // Cierra el documento no fiscal.
  EP_CerrarComprobanteNoFiscal: { devuelve: 'int32_t', argumentos: [] },
  // ---- Informes ----
  // Imprime el informe X.
  EP_ReporteX: { devuelve: 'int32_t', argumentos: [] },
  // Imprime el informe Z y cierra la jornada.
  EP_ReporteZ: { devuelve: 'int32_t', argumentos: [] },
  // Lista los cierres Z entre dos números.
  EP_ReporteZporNumeros: { devuelve: 'int32_t', argumentos: [
    ['primero', 'int32_t', 0], ['ultimo', 'int32_t', 0], ['tercero', 'int32_t', 0],
  ] },
  // Lista los cierres Z entre dos fechas.
  // Textos: desde, hasta 6 bytes cada uno.
  EP_ReporteZporFechas: { devuelve: 'int32_t', argumentos: [
    ['desde', 'texto', 6], ['hasta', 'texto', 6], ['tercero', 'int32_t', 0],
  ] },
  // ---- La impresora ----
  // Abre el cajón de dinero.
  EP_AbrirCajonDeDinero: { devuelve: 'int32_t', argumentos: [['cajon', 'int32_t', 0]] },
  // Pone en hora la impresora.
  // Textos: fecha, hora 6 bytes cada uno.
  EP_CambiarFechaHora: { devuelve: 'int32_t', argumentos: [['fecha', 'texto', 6], ['hora', 'texto', 6]] },
  // Lee el reloj de la impresora.
  // Recibe: resultado, hasta 12 bytes.
  EP_ObtenerFechaHora: { devuelve: 'int32_t', argumentos: [['resultado', 'bufer', 12]] },
  // Pone una línea del encabezado.
  // Textos: texto 120 bytes.
  EP_SetEncabezado: { devuelve: 'int32_t', argumentos: [
    ['texto', 'texto', 120], ['linea', 'int32_t', 0], ['atributo', 'int32_t', 0],
  ] },
  // Lee una línea del encabezado.
  // Recibe: resultado, hasta 120 bytes.
  EP_GetEncabezado: { devuelve: 'int32_t', argumentos: [['resultado', 'bufer', 120], ['linea', 'int32_t', 0]] },
  // Corta el papel.
  EP_CortaPapel: { devuelve: 'int32_t', argumentos: [] },
  // Avanza el papel.
  EP_AvanzaPapel: { devuelve: 'int32_t', argumentos: [['lineas', 'int32_t', 0]] },
  // Lee los datos del modelo.
  // Recibe: resultado, hasta 64 bytes.
  EP_ValoresModelo: { devuelve: 'int32_t', argumentos: [['resultado', 'bufer', 64]] },
  // Lee los contadores.
  // Recibe: resultado, hasta 80 bytes.
  EP_Numeracion: { devuelve: 'int32_t', argumentos: [['resultado', 'bufer', 80]] },
  // Lee el nombre del modelo.
  // Recibe: resultado, hasta 14 bytes.
  EP_AutodetectarModelo: { devuelve: 'int32_t', argumentos: [['resultado', 'bufer', 14]] },
  // ---- Para programas viejos ----
  // El último código de error: siempre 0.
  EP_Chequear_Error: { devuelve: 'int32_t', argumentos: [] },
  // No hace nada.
  EP_ReimprimirComprobante: { devuelve: 'int32_t', argumentos: [] },
  // No hace nada.
  EP_Configuracion: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_ConsultaMemoria: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_Copias: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_ImpuestoInternoFijo: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_ImpuestoInternoPorMonto: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_InformacionRemito: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_Inicializacion: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_Memoria: { devuelve: 'int32_t', argumentos: [['a', 'int32_t', 0]] },
  // No hace nada.
  EP_DescuentoUltimoItem: { devuelve: 'int32_t', argumentos: [
    ['a', 'int32_t', 0], ['b', 'int32_t', 0], ['c', 'int32_t', 0],
  ] },
  // No hace nada.
  EP_ImprimirItemEnRemito: { devuelve: 'int32_t', argumentos: [
    ['a', 'int32_t', 0], ['b', 'int32_t', 0], ['c', 'int32_t', 0],
  ] },
  // No hace nada.
  EP_DatosCliente: { devuelve: 'int32_t', argumentos: [
    ['a', 'int32_t', 0], ['b', 'int32_t', 0], ['c', 'int32_t', 0],
    ['d', 'int32_t', 0], ['e', 'int32_t', 0],
  ] },
  // ---- Qué fue de la última llamada ----
  // Qué fue de la última llamada.
  // Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
  Kestra_Desenlace: { devuelve: 'int32_t', argumentos: [] },
  // Por qué terminó así la última llamada.
  // Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en
  // curso.
  Kestra_Causa: { devuelve: 'int32_t', argumentos: [] },
  // Por qué terminó así la última llamada, en una frase para el operador.
  // Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
  Kestra_CausaTexto: { devuelve: 'int32_t', argumentos: [['texto', 'bufer', 0], ['longitud', 'int32_t', 0]] },
  // Un campo de la última respuesta.
  // Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
  Kestra_Respuesta: { devuelve: 'int32_t', argumentos: [
    ['numero', 'int32_t', 0], ['texto', 'bufer', 0], ['longitud', 'int32_t', 0],
  ] },
  // Cuántas tramas mandó la última llamada.
  // Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
  Kestra_Intentos: { devuelve: 'int32_t', argumentos: [] },
  // Le pregunta a la impresora cómo está.
  // Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
  Kestra_Estado: { devuelve: 'int32_t', argumentos: [] },
  // Qué comprobante está abierto y en qué etapa.
  // Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1
  // mientras otra llamada está en curso.
  Kestra_DocumentoAbierto: { devuelve: 'int32_t', argumentos: [] },
  // Pregunta el total del comprobante abierto.
  // Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
  Kestra_Subtotal: { devuelve: 'int32_t', argumentos: [['texto', 'bufer', 0], ['longitud', 'int32_t', 0]] },
  // Pregunta el número del último comprobante de una clase.
  // Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
  Kestra_Numeracion: { devuelve: 'int32_t', argumentos: [
    ['clase', 'int32_t', 0], ['letra', 'int32_t', 0], ['texto', 'bufer', 0],
    ['longitud', 'int32_t', 0],
  ] },
  // Si quedó una llamada sin resolver.
  // Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está
  // en curso.
  Kestra_Pendiente: { devuelve: 'int32_t', argumentos: [['texto', 'bufer', 0], ['longitud', 'int32_t', 0]] },
  // Averigua qué fue de la llamada pendiente.
  // Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la
  // hoja y falta el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
  Kestra_Resolver: { devuelve: 'int32_t', argumentos: [] },
  // El número del comprobante que Kestra_Resolver encontró cerrado.
  // Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
  Kestra_ResolverNumero: { devuelve: 'int32_t', argumentos: [['texto', 'bufer', 0], ['longitud', 'int32_t', 0]] },
  // Deja de lado lo pendiente sin preguntar.
  // Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
  Kestra_Olvidar: { devuelve: 'int32_t', argumentos: [] },
  // ---- El operador ----
  // Hace que el programa conteste en lugar de los cuadros de la biblioteca.
  // Devuelve: No devuelve nada.
  Kestra_DefinirOperador: { devuelve: 'void', argumentos: [['operador', 'KestraOperador *', 0]] },
  // ---- Textos ----
  // Elige cómo se pasan los textos.
  // Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
  Kestra_Textos: { devuelve: 'int32_t', argumentos: [['modo', 'int32_t', 0]] },
};

function declararTipos(koffi) {
  // Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
  const mensaje = koffi.proto('int32_t __stdcall KestraMensaje(void * contexto, const char * texto, const char * titulo, int32_t estilo)');
  // El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
  const informe_estados = koffi.proto('int32_t __stdcall KestraInformeEstados(void * contexto, const char * impresora, const char * fiscal, void * filas, int32_t cantidad)');
  // La memoria fiscal está por llenarse.
  const memoria_llena = koffi.proto('void __stdcall KestraMemoriaLlena(void * contexto)');
  // Un renglón del informe de estados.
  const KestraFila = koffi.struct('KestraFila', {
    grupo: 'int32_t', // 0 renglón de la impresora, 1 fiscal
    numero: 'int32_t', // número del renglón
    clase: 'int32_t', // 0 información, 1 error
    encendida: 'int32_t', // 1 encendido, 0 en gris
    texto: 'const char *', // el renglón
    ayuda: 'const char *', // la explicación
  });
  // Lo que la biblioteca le pregunta y le dice al operador.
  const KestraOperador = koffi.struct('KestraOperador', {
    tamano: 'uint32_t', // tamaño del registro en bytes
    contexto: 'void *', // vuelve en cada llamada
    mensaje: koffi.pointer(mensaje), // Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    informe_estados: koffi.pointer(informe_estados), // El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    memoria_llena: koffi.pointer(memoria_llena), // La memoria fiscal está por llenarse.
  });
  return {
    texto: koffi.pointer('uint8_t'),
    bufer: koffi.pointer('uint8_t'),
    'KestraOperador *': koffi.pointer(KestraOperador),
    KestraFila, KestraOperador, mensaje, informe_estados, memoria_llena,
  };
}

export function declarar(koffi, ruta) {
  const biblioteca = koffi.load(ruta);
  const tipos = declararTipos(koffi);
  const funciones = { tipos };
  for (const [nombre, { devuelve, argumentos }] of Object.entries(FUNCIONES)) {
    const lista = argumentos.map(([, tipo]) => tipos[tipo] ?? tipo);
    funciones[nombre] = biblioteca.func('__stdcall', nombre, devuelve, lista);
  }
  return funciones;
}
