// Kestra 1.0.0: declaraciones para Delphi y Free Pascal.
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// Un texto se pasa con sus bytes exactos: un AnsiString completado con blancos, con PAnsiChar(texto).
// En Free Pascal sirve desde la 3.0; con el compilador de Linux se usa libkestra.so.
unit Kestra;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

const
{$IFDEF LINUX}
  KestraBiblioteca = 'libkestra.so';
{$ELSE}
  KestraBiblioteca = 'Kestra.dll';
{$ENDIF}

  // Qué fue de una llamada.
  KESTRA_DESENLACE_NADA = 0;  // no se le pidió nada a la impresora
  KESTRA_DESENLACE_HECHO = 1;  // la impresora lo hizo
  KESTRA_DESENLACE_RECHAZADO = 2;  // la impresora lo rechazó
  KESTRA_DESENLACE_NO_ENVIADO = 3;  // no se mandó
  KESTRA_DESENLACE_DESCONOCIDO = 4;  // se mandó, y no se sabe si se hizo: mirar el papel
  KESTRA_DESENLACE_EN_PARTE = 5;  // se hizo una parte
  KESTRA_DESENLACE_NO_HECHO = 6;  // pudo haberse mandado, y es seguro que no se hizo

  // Documentos, y lo demás que la impresora numera.
  KESTRA_DOCUMENTO_NINGUNO = 0;  // ninguno
  KESTRA_DOCUMENTO_FACTURA = 1;  // factura o tique factura
  KESTRA_DOCUMENTO_TIQUE = 2;  // tique
  KESTRA_DOCUMENTO_NOTA_DEBITO = 3;  // nota de débito
  KESTRA_DOCUMENTO_NOTA_CREDITO = 4;  // nota de crédito
  KESTRA_DOCUMENTO_REMITO = 5;  // remito
  KESTRA_DOCUMENTO_VALE = 6;  // vale
  KESTRA_DOCUMENTO_NO_FISCAL = 7;  // no fiscal
  KESTRA_DOCUMENTO_OTRO = 15;  // abierto, y no por este programa
  KESTRA_NUMERO_CIERRE_Z = 16;  // solo para Kestra_Numeracion: cierres Z
  KESTRA_NUMERO_CANCELADOS = 17;  // solo para Kestra_Numeracion: cancelados de hoy
  KESTRA_NUMERO_NO_FISCALES = 18;  // solo para Kestra_Numeracion: no fiscales de hoy
  KESTRA_DOCUMENTO_DESCONOCIDO = 255;  // nadie sabe si hay uno abierto: preguntar con Kestra_Estado
  KESTRA_ETAPA_ABIERTO = 256;  // se suma a la clase: no tiene nada
  KESTRA_ETAPA_CON_ITEMS = 512;  // se suma a la clase: tiene ítems
  KESTRA_ETAPA_EN_PAGO = 768;  // se suma a la clase: tiene pagos

  // Por qué terminó así una llamada.
  KESTRA_CAUSA_NINGUNA = 0;
  KESTRA_CAUSA_DECLINADA = 101;  // El operador contestó que no se enviara.
  KESTRA_CAUSA_SIN_COMANDO = 102;  // Este modelo de impresora no tiene ese comprobante o esa operación.
  KESTRA_CAUSA_SIN_INICIAR = 103;  // El controlador no está iniciado.
  KESTRA_CAUSA_SIN_RESOLVER = 104;  // Falta saber qué fue de una operación anterior y la impresora no contesta.
  KESTRA_CAUSA_TOTAL_DISTINTO = 105;  // El total de la impresora no es la suma de lo que se le mandó.
  KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL = 106;  // Los tickets se emiten solo a consumidor final.
  KESTRA_CAUSA_CLAVE_ILEGIBLE = 107;  // Fiscal.ini tiene una clave que no se puede leer.
  KESTRA_CAUSA_FALLA_INTERNA = 108;  // El controlador falló.
  KESTRA_CAUSA_SIN_MEMORIA = 109;  // A la máquina le falta memoria.
  KESTRA_CAUSA_ABANDONADA = 110;  // El programa de ventas dejó la llamada por la mitad.
  KESTRA_CAUSA_PUERTO_NUMERO = 201;  // El número de puerto no es válido (1 a 256).
  KESTRA_CAUSA_PUERTO_CONFIGURACION = 202;  // La configuración del puerto no es válida.
  KESTRA_CAUSA_PUERTO_INEXISTENTE = 203;  // No existe el puerto de la impresora.
  KESTRA_CAUSA_PUERTO_SIN_EQUIPO = 204;  // No hay un puerto serie donde dice la configuración.
  KESTRA_CAUSA_PUERTO_NO_SERIE = 205;  // El dispositivo de la configuración no es un puerto serie.
  KESTRA_CAUSA_PUERTO_SIN_PERMISO = 206;  // No hay permiso para usar el puerto de la impresora.
  KESTRA_CAUSA_PUERTO_EN_USO = 207;  // Otro programa está usando el puerto de la impresora.
  KESTRA_CAUSA_PUERTO_NO_ABRE = 208;  // No se pudo abrir el puerto de la impresora.
  KESTRA_CAUSA_PUERTO_YA_ABIERTO = 209;  // El puerto ya estaba abierto.
  KESTRA_CAUSA_PUERTO_NO_ABIERTO = 210;  // El puerto no estaba abierto.
  KESTRA_CAUSA_PUERTO_PERDIDO = 211;  // Se perdió la conexión con la impresora.
  KESTRA_CAUSA_PUERTO_TRABADO = 212;  // El puerto no acepta datos.
  KESTRA_CAUSA_PUERTO_TRANSFERENCIA = 213;  // El puerto falló al leer o escribir.
  KESTRA_CAUSA_RED_DIRECCION = 214;  // La dirección de red no es válida (tcp:EQUIPO:PUERTO).
  KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215;  // No se conoce el equipo de la impresora en la red.
  KESTRA_CAUSA_RED_NADIE_ATIENDE = 216;  // Nadie atiende en la dirección de la impresora.
  KESTRA_CAUSA_RED_NO_RESPONDE = 217;  // La dirección de la impresora no responde.
  KESTRA_CAUSA_RED_SIN_CAMINO = 218;  // No hay camino en la red hasta la impresora.
  KESTRA_CAUSA_RED_CORTADA = 219;  // La conexión se cortó sin contestar: se perdió o la usa otro programa.
  KESTRA_CAUSA_SILENCIO = 301;  // La impresora no contestó.
  KESTRA_CAUSA_RESPUESTA_DANADA = 302;  // La respuesta de la impresora llegó dañada.
  KESTRA_CAUSA_RESPUESTAS_AJENAS = 303;  // La impresora contestó a otros comandos.
  KESTRA_CAUSA_COMANDO_DANADO = 304;  // La impresora avisó que el comando le llegó dañado.
  KESTRA_CAUSA_REPETIDO = 305;  // El comando se mandó más de una vez: puede estar repetido.
  KESTRA_CAUSA_RESPUESTA_INESPERADA = 306;  // La respuesta de la impresora no trae los datos esperados.
  KESTRA_CAUSA_FALLA_IMPRESORA = 402;  // La impresora avisa un error o una falla.
  KESTRA_CAUSA_FUERA_DE_LINEA = 403;  // La impresora está fuera de línea.
  KESTRA_CAUSA_SIN_PAPEL_DIARIO = 404;  // Falta papel del diario.
  KESTRA_CAUSA_SIN_PAPEL_TICKETS = 405;  // Falta papel de tickets.
  KESTRA_CAUSA_SIN_PAPEL = 414;  // La impresora no tiene papel.
  KESTRA_CAUSA_MEMORIA_FISCAL = 500;  // Falló la comprobación de la memoria fiscal.
  KESTRA_CAUSA_MEMORIA_TRABAJO = 501;  // Falló la comprobación de la memoria de trabajo.
  KESTRA_CAUSA_BATERIA_BAJA = 502;  // La impresora tiene la batería baja.
  KESTRA_CAUSA_COMANDO_DESCONOCIDO = 503;  // La impresora no conoce el comando.
  KESTRA_CAUSA_CAMPO_INVALIDO = 504;  // La impresora no aceptó un dato del comando.
  KESTRA_CAUSA_ESTADO_INVALIDO = 505;  // El comando no corresponde a lo que la impresora está haciendo.
  KESTRA_CAUSA_DESBORDE = 506;  // La cantidad o el importe pasa lo que la impresora admite.
  KESTRA_CAUSA_MEMORIA_LLENA = 507;  // La memoria fiscal está llena.
  KESTRA_CAUSA_MEMORIA_CASI_LLENA = 508;  // La memoria fiscal está casi llena.
  KESTRA_CAUSA_CIERRE_NECESARIO = 511;  // Hace falta un cierre Z: pasaron más de 24 horas.
  KESTRA_CAUSA_SIN_REGISTRO = 601;  // Nada en la impresora muestra si esta operación se hizo.
  KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602;  // Los registros de la impresora no coinciden con lo enviado.
  KESTRA_CAUSA_REGISTROS_ILEGIBLES = 603;  // No se pudieron leer los registros de la impresora.
  KESTRA_CAUSA_HOJA_CAMBIADA = 604;  // La hoja se llenó y se hizo el transporte: falta el artículo.
  KESTRA_CAUSA_YA_CERRADO = 605;  // El comprobante ya estaba cerrado: no se puede cancelar.
  KESTRA_CAUSA_OLVIDADA = 606;  // La operación pendiente se dejó de lado.
  KESTRA_CAUSA_SIN_NUMERO = 607;  // La impresora no lleva ese número.
  KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE = 701;  // No se puede escribir el diario.
  KESTRA_CAUSA_DIARIO_AJENO = 702;  // El diario es de otra impresora.
  KESTRA_CAUSA_DIARIO_EN_USO = 703;  // Otro programa tiene abierto el diario.
  KESTRA_CAUSA_DIARIO_DANADO = 704;  // El diario está dañado.
  KESTRA_CAUSA_DIARIO_OMITIDO = 705;  // No se pudo escribir el diario y se siguió sin él.
  KESTRA_CAUSA_LOG_NO_SE_ESCRIBE = 801;  // No se puede escribir el registro fiscal.log.

type
  // Un renglón del informe de estados.
  PKestraFila = ^TKestraFila;
  TKestraFila = record
    grupo: Integer;  // 0 renglón de la impresora, 1 fiscal
    numero: Integer;  // número del renglón
    clase: Integer;  // 0 información, 1 error
    encendida: Integer;  // 1 encendido, 0 en gris
    texto: PAnsiChar;  // el renglón
    ayuda: PAnsiChar;  // la explicación
  end;

  // Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
  TKestraMensaje = function(contexto: Pointer; texto: PAnsiChar; titulo: PAnsiChar; estilo: Integer): Integer; {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}

  // El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
  TKestraInformeEstados = function(contexto: Pointer; impresora: PAnsiChar; fiscal: PAnsiChar; filas: PKestraFila; cantidad: Integer): Integer; {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}

  // La memoria fiscal está por llenarse.
  TKestraMemoriaLlena = procedure(contexto: Pointer); {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}

  // Lo que la biblioteca le pregunta y le dice al operador.
  PKestraOperador = ^TKestraOperador;
  TKestraOperador = record
    tamano: Cardinal;  // tamaño del registro en bytes
    contexto: Pointer;  // vuelve en cada llamada
    mensaje: TKestraMensaje;  // Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    informe_estados: TKestraInformeEstados;  // El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    memoria_llena: TKestraMemoriaLlena;  // La memoria fiscal está por llenarse.
  end;

// ---- Principio y fin ----

// Lee Fiscal.ini y prepara el puerto.
// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
function EP_Init: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Init';

// Suelta el puerto.
// Devuelve: No quiere decir nada.
function EP_Kill: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Kill';

// ---- Comprobantes fiscales ----

// Abre una factura, un tique o una nota.
// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
// bytes cada uno.
function EP_AbrirComprobanteFiscal(tipo: PAnsiChar; letra: PAnsiChar; nombre1: PAnsiChar; nombre2: PAnsiChar;
  documento_tipo: PAnsiChar; documento_numero: PAnsiChar; responsabilidad_iva: PAnsiChar; domicilio1:
  PAnsiChar; domicilio2: PAnsiChar; domicilio3: PAnsiChar; linea4: PAnsiChar; linea5: PAnsiChar; copias:
  Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AbrirComprobanteFiscal';

// Imprime una línea de venta.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
function EP_ImprimirItem(descripcion: PAnsiChar; cantidad: Double; precio: Double; iva: Double;
  impuestos_internos: Double; extra1: PAnsiChar; extra2: PAnsiChar; extra3: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirItem';

// Imprime la anulación de una línea.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
function EP_AnularItem(descripcion: PAnsiChar; cantidad: Double; precio: Double; iva: Double;
  impuestos_internos: Double; extra1: PAnsiChar; extra2: PAnsiChar; extra3: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AnularItem';

// Imprime un renglón de texto dentro del comprobante.
// Textos: texto 26 bytes.
function EP_ImprimirTextoFiscal(texto: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirTextoFiscal';

// Imprime un renglón de texto terminado en cero.
function EP_ImprimirTextoFiscalInterna(texto: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirTextoFiscalInterna';

// Cierra el comprobante y da su número.
// Textos: tipo 2 bytes; letra 1 byte.
// Recibe: numero, hasta 8 bytes.
function EP_CerrarComprobanteFiscal(tipo: PAnsiChar; letra: PAnsiChar; numero: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_CerrarComprobanteFiscal';

// Cancela el comprobante abierto.
function EP_Cancelar: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Cancelar';

// ---- Totales y pagos ----

// Le descuenta un importe al comprobante.
// Textos: descripcion 80 bytes.
function EP_DescuentoGeneral(descripcion: PAnsiChar; monto: Double): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_DescuentoGeneral';

// Le suma un recargo al comprobante.
// Textos: descripcion 80 bytes.
function EP_RecargoGeneral(descripcion: PAnsiChar; monto: Double): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_RecargoGeneral';

// Le suma una percepción al comprobante.
// Textos: descripcion 20 bytes; calificador 1 byte.
function EP_EspecificarPercepcionGlobal(descripcion: PAnsiChar; monto: Double; iva: Double; calificador:
  PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_EspecificarPercepcionGlobal';

// Imprime una línea de pago.
// Textos: descripcion 80 bytes.
function EP_ImprimirPago(descripcion: PAnsiChar; monto: Double): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirPago';

// Agrega líneas hasta que el total sea el que se dice.
function EP_AjusteRedondeo(total: Double): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AjusteRedondeo';

// ---- Otros documentos ----

// Abre un documento no fiscal homologado.
// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
function EP_AbrirComprobanteNoFiscalHomologado(tipo: PAnsiChar; marca1: PAnsiChar; linea1: PAnsiChar; linea2:
  PAnsiChar; documento_tipo: PAnsiChar; documento_numero: PAnsiChar; marca2: PAnsiChar; domicilio: PAnsiChar;
  linea4: PAnsiChar; linea5: PAnsiChar; linea6: PAnsiChar; linea7: PAnsiChar; cantidad: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AbrirComprobanteNoFiscalHomologado';

// Cierra el documento homologado.
// Textos: tipo 2 bytes; marca 1 byte.
function EP_CerrarComprobanteNoFiscalHomologado(tipo: PAnsiChar; marca: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_CerrarComprobanteNoFiscalHomologado';

// Abre un documento no fiscal.
function EP_AbrirComprobanteNoFiscal: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AbrirComprobanteNoFiscal';

// Imprime un renglón en el documento no fiscal.
// Textos: texto 120 bytes.
function EP_ImprimirTextoNoFiscal(texto: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirTextoNoFiscal';

// Cierra el documento no fiscal.
function EP_CerrarComprobanteNoFiscal: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_CerrarComprobanteNoFiscal';

// ---- Informes ----

// Imprime el informe X.
function EP_ReporteX: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ReporteX';

// Imprime el informe Z y cierra la jornada.
function EP_ReporteZ: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ReporteZ';

// Lista los cierres Z entre dos números.
function EP_ReporteZporNumeros(primero: Integer; ultimo: Integer; tercero: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ReporteZporNumeros';

// Lista los cierres Z entre dos fechas.
// Textos: desde, hasta 6 bytes cada uno.
function EP_ReporteZporFechas(desde: PAnsiChar; hasta: PAnsiChar; tercero: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ReporteZporFechas';

// ---- La impresora ----

// Abre el cajón de dinero.
function EP_AbrirCajonDeDinero(cajon: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AbrirCajonDeDinero';

// Pone en hora la impresora.
// Textos: fecha, hora 6 bytes cada uno.
function EP_CambiarFechaHora(fecha: PAnsiChar; hora: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_CambiarFechaHora';

// Lee el reloj de la impresora.
// Recibe: resultado, hasta 12 bytes.
function EP_ObtenerFechaHora(resultado: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ObtenerFechaHora';

// Pone una línea del encabezado.
// Textos: texto 120 bytes.
function EP_SetEncabezado(texto: PAnsiChar; linea: Integer; atributo: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_SetEncabezado';

// Lee una línea del encabezado.
// Recibe: resultado, hasta 120 bytes.
function EP_GetEncabezado(resultado: PAnsiChar; linea: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_GetEncabezado';

// Corta el papel.
function EP_CortaPapel: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_CortaPapel';

// Avanza el papel.
function EP_AvanzaPapel(lineas: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AvanzaPapel';

// Lee los datos del modelo.
// Recibe: resultado, hasta 64 bytes.
function EP_ValoresModelo(resultado: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ValoresModelo';

// Lee los contadores.
// Recibe: resultado, hasta 80 bytes.
function EP_Numeracion(resultado: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Numeracion';

// Lee el nombre del modelo.
// Recibe: resultado, hasta 14 bytes.
function EP_AutodetectarModelo(resultado: PAnsiChar): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_AutodetectarModelo';

// ---- Para programas viejos ----

// El último código de error: siempre 0.
function EP_Chequear_Error: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Chequear_Error';

// No hace nada.
function EP_ReimprimirComprobante: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ReimprimirComprobante';

// No hace nada.
function EP_Configuracion(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Configuracion';

// No hace nada.
function EP_ConsultaMemoria(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ConsultaMemoria';

// No hace nada.
function EP_Copias(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Copias';

// No hace nada.
function EP_ImpuestoInternoFijo(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImpuestoInternoFijo';

// No hace nada.
function EP_ImpuestoInternoPorMonto(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImpuestoInternoPorMonto';

// No hace nada.
function EP_InformacionRemito(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_InformacionRemito';

// No hace nada.
function EP_Inicializacion(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Inicializacion';

// No hace nada.
function EP_Memoria(a: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Memoria';

// No hace nada.
function EP_DescuentoUltimoItem(a: Integer; b: Integer; c: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_DescuentoUltimoItem';

// No hace nada.
function EP_ImprimirItemEnRemito(a: Integer; b: Integer; c: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_ImprimirItemEnRemito';

// No hace nada.
function EP_DatosCliente(a: Integer; b: Integer; c: Integer; d: Integer; e: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_DatosCliente';

// ---- Qué fue de la última llamada ----

// Qué fue de la última llamada.
// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
function Kestra_Desenlace: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Desenlace';

// Por qué terminó así la última llamada.
// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
function Kestra_Causa: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Causa';

// Por qué terminó así la última llamada, en una frase para el operador.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
function Kestra_CausaTexto(texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_CausaTexto';

// Un campo de la última respuesta.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
function Kestra_Respuesta(numero: Integer; texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Respuesta';

// Cuántas tramas mandó la última llamada.
// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
function Kestra_Intentos: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Intentos';

// Le pregunta a la impresora cómo está.
// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
function Kestra_Estado: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Estado';

// Qué comprobante está abierto y en qué etapa.
// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
// llamada está en curso.
function Kestra_DocumentoAbierto: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_DocumentoAbierto';

// Pregunta el total del comprobante abierto.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
function Kestra_Subtotal(texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Subtotal';

// Pregunta el número del último comprobante de una clase.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
function Kestra_Numeracion(clase: Integer; letra: Integer; texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Numeracion';

// Si quedó una llamada sin resolver.
// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
function Kestra_Pendiente(texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Pendiente';

// Averigua qué fue de la llamada pendiente.
// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
function Kestra_Resolver: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Resolver';

// El número del comprobante que Kestra_Resolver encontró cerrado.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
function Kestra_ResolverNumero(texto: PAnsiChar; longitud: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_ResolverNumero';

// Deja de lado lo pendiente sin preguntar.
// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
function Kestra_Olvidar: Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Olvidar';

// ---- El operador ----

// Hace que el programa conteste en lugar de los cuadros de la biblioteca.
// Devuelve: No devuelve nada.
procedure Kestra_DefinirOperador(operador: PKestraOperador);
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_DefinirOperador';

// ---- Textos ----

// Elige cómo se pasan los textos.
// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
function Kestra_Textos(modo: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'Kestra_Textos';

implementation

end.
