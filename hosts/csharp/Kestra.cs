// Kestra 1.0.0: declaraciones para C#.
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// Un texto es un byte[] con sus bytes exactos; un búfer, un byte[] en cero. En .NET (no en .NET Framework) la página
// 1252 se registra antes: Encoding.RegisterProvider(CodePagesEncodingProvider.Instance).
// En Windows se busca Kestra.dll, en Linux libkestra.so. StdCall vale en Windows de 32 bits; en los demás no cambia nada.
using System;
using System.Runtime.InteropServices;

namespace KestraFiscal
{
    public static class Kestra
    {
        public const string Biblioteca = "kestra";

        // Qué fue de una llamada.
        public const int KESTRA_DESENLACE_NADA = 0;  // no se le pidió nada a la impresora
        public const int KESTRA_DESENLACE_HECHO = 1;  // la impresora lo hizo
        public const int KESTRA_DESENLACE_RECHAZADO = 2;  // la impresora lo rechazó
        public const int KESTRA_DESENLACE_NO_ENVIADO = 3;  // no se mandó
        public const int KESTRA_DESENLACE_DESCONOCIDO = 4;  // se mandó, y no se sabe si se hizo: mirar el papel
        public const int KESTRA_DESENLACE_EN_PARTE = 5;  // se hizo una parte
        public const int KESTRA_DESENLACE_NO_HECHO = 6;  // pudo haberse mandado, y es seguro que no se hizo

        // Documentos, y lo demás que la impresora numera.
        public const int KESTRA_DOCUMENTO_NINGUNO = 0;  // ninguno
        public const int KESTRA_DOCUMENTO_FACTURA = 1;  // factura o tique factura
        public const int KESTRA_DOCUMENTO_TIQUE = 2;  // tique
        public const int KESTRA_DOCUMENTO_NOTA_DEBITO = 3;  // nota de débito
        public const int KESTRA_DOCUMENTO_NOTA_CREDITO = 4;  // nota de crédito
        public const int KESTRA_DOCUMENTO_REMITO = 5;  // remito
        public const int KESTRA_DOCUMENTO_VALE = 6;  // vale
        public const int KESTRA_DOCUMENTO_NO_FISCAL = 7;  // no fiscal
        public const int KESTRA_DOCUMENTO_OTRO = 15;  // abierto, y no por este programa
        public const int KESTRA_NUMERO_CIERRE_Z = 16;  // solo para Kestra_Numeracion: cierres Z
        public const int KESTRA_NUMERO_CANCELADOS = 17;  // solo para Kestra_Numeracion: cancelados de hoy
        public const int KESTRA_NUMERO_NO_FISCALES = 18;  // solo para Kestra_Numeracion: no fiscales de hoy
        public const int KESTRA_DOCUMENTO_DESCONOCIDO = 255;  // nadie sabe si hay uno abierto: preguntar con Kestra_Estado
        public const int KESTRA_ETAPA_ABIERTO = 256;  // se suma a la clase: no tiene nada
        public const int KESTRA_ETAPA_CON_ITEMS = 512;  // se suma a la clase: tiene ítems
        public const int KESTRA_ETAPA_EN_PAGO = 768;  // se suma a la clase: tiene pagos

        // Por qué terminó así una llamada.
        public const int KESTRA_CAUSA_NINGUNA = 0;
        public const int KESTRA_CAUSA_DECLINADA = 101;  // El operador contestó que no se enviara.
        public const int KESTRA_CAUSA_SIN_COMANDO = 102;  // Este modelo de impresora no tiene ese comprobante o esa operación.
        public const int KESTRA_CAUSA_SIN_INICIAR = 103;  // El controlador no está iniciado.
        public const int KESTRA_CAUSA_SIN_RESOLVER = 104;  // Falta saber qué fue de una operación anterior y la impresora no contesta.
        public const int KESTRA_CAUSA_TOTAL_DISTINTO = 105;  // El total de la impresora no es la suma de lo que se le mandó.
        public const int KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL = 106;  // Los tickets se emiten solo a consumidor final.
        public const int KESTRA_CAUSA_CLAVE_ILEGIBLE = 107;  // Fiscal.ini tiene una clave que no se puede leer.
        public const int KESTRA_CAUSA_FALLA_INTERNA = 108;  // El controlador falló.
        public const int KESTRA_CAUSA_SIN_MEMORIA = 109;  // A la máquina le falta memoria.
        public const int KESTRA_CAUSA_ABANDONADA = 110;  // El programa de ventas dejó la llamada por la mitad.
        public const int KESTRA_CAUSA_PUERTO_NUMERO = 201;  // El número de puerto no es válido (1 a 256).
        public const int KESTRA_CAUSA_PUERTO_CONFIGURACION = 202;  // La configuración del puerto no es válida.
        public const int KESTRA_CAUSA_PUERTO_INEXISTENTE = 203;  // No existe el puerto de la impresora.
        public const int KESTRA_CAUSA_PUERTO_SIN_EQUIPO = 204;  // No hay un puerto serie donde dice la configuración.
        public const int KESTRA_CAUSA_PUERTO_NO_SERIE = 205;  // El dispositivo de la configuración no es un puerto serie.
        public const int KESTRA_CAUSA_PUERTO_SIN_PERMISO = 206;  // No hay permiso para usar el puerto de la impresora.
        public const int KESTRA_CAUSA_PUERTO_EN_USO = 207;  // Otro programa está usando el puerto de la impresora.
        public const int KESTRA_CAUSA_PUERTO_NO_ABRE = 208;  // No se pudo abrir el puerto de la impresora.
        public const int KESTRA_CAUSA_PUERTO_YA_ABIERTO = 209;  // El puerto ya estaba abierto.
        public const int KESTRA_CAUSA_PUERTO_NO_ABIERTO = 210;  // El puerto no estaba abierto.
        public const int KESTRA_CAUSA_PUERTO_PERDIDO = 211;  // Se perdió la conexión con la impresora.
        public const int KESTRA_CAUSA_PUERTO_TRABADO = 212;  // El puerto no acepta datos.
        public const int KESTRA_CAUSA_PUERTO_TRANSFERENCIA = 213;  // El puerto falló al leer o escribir.
        public const int KESTRA_CAUSA_RED_DIRECCION = 214;  // La dirección de red no es válida (tcp:EQUIPO:PUERTO).
        public const int KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215;  // No se conoce el equipo de la impresora en la red.
        public const int KESTRA_CAUSA_RED_NADIE_ATIENDE = 216;  // Nadie atiende en la dirección de la impresora.
        public const int KESTRA_CAUSA_RED_NO_RESPONDE = 217;  // La dirección de la impresora no responde.
        public const int KESTRA_CAUSA_RED_SIN_CAMINO = 218;  // No hay camino en la red hasta la impresora.
        public const int KESTRA_CAUSA_RED_CORTADA = 219;  // La conexión se cortó sin contestar: se perdió o la usa otro programa.
        public const int KESTRA_CAUSA_SILENCIO = 301;  // La impresora no contestó.
        public const int KESTRA_CAUSA_RESPUESTA_DANADA = 302;  // La respuesta de la impresora llegó dañada.
        public const int KESTRA_CAUSA_RESPUESTAS_AJENAS = 303;  // La impresora contestó a otros comandos.
        public const int KESTRA_CAUSA_COMANDO_DANADO = 304;  // La impresora avisó que el comando le llegó dañado.
        public const int KESTRA_CAUSA_REPETIDO = 305;  // El comando se mandó más de una vez: puede estar repetido.
        public const int KESTRA_CAUSA_RESPUESTA_INESPERADA = 306;  // La respuesta de la impresora no trae los datos esperados.
        public const int KESTRA_CAUSA_FALLA_IMPRESORA = 402;  // La impresora avisa un error o una falla.
        public const int KESTRA_CAUSA_FUERA_DE_LINEA = 403;  // La impresora está fuera de línea.
        public const int KESTRA_CAUSA_SIN_PAPEL_DIARIO = 404;  // Falta papel del diario.
        public const int KESTRA_CAUSA_SIN_PAPEL_TICKETS = 405;  // Falta papel de tickets.
        public const int KESTRA_CAUSA_SIN_PAPEL = 414;  // La impresora no tiene papel.
        public const int KESTRA_CAUSA_MEMORIA_FISCAL = 500;  // Falló la comprobación de la memoria fiscal.
        public const int KESTRA_CAUSA_MEMORIA_TRABAJO = 501;  // Falló la comprobación de la memoria de trabajo.
        public const int KESTRA_CAUSA_BATERIA_BAJA = 502;  // La impresora tiene la batería baja.
        public const int KESTRA_CAUSA_COMANDO_DESCONOCIDO = 503;  // La impresora no conoce el comando.
        public const int KESTRA_CAUSA_CAMPO_INVALIDO = 504;  // La impresora no aceptó un dato del comando.
        public const int KESTRA_CAUSA_ESTADO_INVALIDO = 505;  // El comando no corresponde a lo que la impresora está haciendo.
        public const int KESTRA_CAUSA_DESBORDE = 506;  // La cantidad o el importe pasa lo que la impresora admite.
        public const int KESTRA_CAUSA_MEMORIA_LLENA = 507;  // La memoria fiscal está llena.
        public const int KESTRA_CAUSA_MEMORIA_CASI_LLENA = 508;  // La memoria fiscal está casi llena.
        public const int KESTRA_CAUSA_CIERRE_NECESARIO = 511;  // Hace falta un cierre Z: pasaron más de 24 horas.
        public const int KESTRA_CAUSA_SIN_REGISTRO = 601;  // Nada en la impresora muestra si esta operación se hizo.
        public const int KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602;  // Los registros de la impresora no coinciden con lo enviado.
        public const int KESTRA_CAUSA_REGISTROS_ILEGIBLES = 603;  // No se pudieron leer los registros de la impresora.
        public const int KESTRA_CAUSA_HOJA_CAMBIADA = 604;  // La hoja se llenó y se hizo el transporte: falta el artículo.
        public const int KESTRA_CAUSA_YA_CERRADO = 605;  // El comprobante ya estaba cerrado: no se puede cancelar.
        public const int KESTRA_CAUSA_OLVIDADA = 606;  // La operación pendiente se dejó de lado.
        public const int KESTRA_CAUSA_SIN_NUMERO = 607;  // La impresora no lleva ese número.
        public const int KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE = 701;  // No se puede escribir el diario.
        public const int KESTRA_CAUSA_DIARIO_AJENO = 702;  // El diario es de otra impresora.
        public const int KESTRA_CAUSA_DIARIO_EN_USO = 703;  // Otro programa tiene abierto el diario.
        public const int KESTRA_CAUSA_DIARIO_DANADO = 704;  // El diario está dañado.
        public const int KESTRA_CAUSA_DIARIO_OMITIDO = 705;  // No se pudo escribir el diario y se siguió sin él.
        public const int KESTRA_CAUSA_LOG_NO_SE_ESCRIBE = 801;  // No se puede escribir el registro fiscal.log.

        // ---- Principio y fin ----

        /// <summary>Lee Fiscal.ini y prepara el puerto.
        /// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Init();

        /// <summary>Suelta el puerto.
        /// Devuelve: No quiere decir nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Kill();

        // ---- Comprobantes fiscales ----

        /// <summary>Abre una factura, un tique o una nota.
        /// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
        /// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
        /// bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AbrirComprobanteFiscal(byte[] tipo, byte[] letra, byte[] nombre1, byte[] nombre2, byte[] documento_tipo, byte[] documento_numero, byte[] responsabilidad_iva, byte[] domicilio1, byte[] domicilio2, byte[] domicilio3, byte[] linea4, byte[] linea5, int copias);

        /// <summary>Imprime una línea de venta.
        /// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirItem(byte[] descripcion, double cantidad, double precio, double iva, double impuestos_internos, byte[] extra1, byte[] extra2, byte[] extra3);

        /// <summary>Imprime la anulación de una línea.
        /// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AnularItem(byte[] descripcion, double cantidad, double precio, double iva, double impuestos_internos, byte[] extra1, byte[] extra2, byte[] extra3);

        /// <summary>Imprime un renglón de texto dentro del comprobante.
        /// Textos: texto 26 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirTextoFiscal(byte[] texto);

        /// <summary>Imprime un renglón de texto terminado en cero.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirTextoFiscalInterna(byte[] texto);

        /// <summary>Cierra el comprobante y da su número.
        /// Textos: tipo 2 bytes; letra 1 byte.
        /// Recibe: numero, hasta 8 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_CerrarComprobanteFiscal(byte[] tipo, byte[] letra, byte[] numero);

        /// <summary>Cancela el comprobante abierto.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Cancelar();

        // ---- Totales y pagos ----

        /// <summary>Le descuenta un importe al comprobante.
        /// Textos: descripcion 80 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_DescuentoGeneral(byte[] descripcion, double monto);

        /// <summary>Le suma un recargo al comprobante.
        /// Textos: descripcion 80 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_RecargoGeneral(byte[] descripcion, double monto);

        /// <summary>Le suma una percepción al comprobante.
        /// Textos: descripcion 20 bytes; calificador 1 byte.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_EspecificarPercepcionGlobal(byte[] descripcion, double monto, double iva, byte[] calificador);

        /// <summary>Imprime una línea de pago.
        /// Textos: descripcion 80 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirPago(byte[] descripcion, double monto);

        /// <summary>Agrega líneas hasta que el total sea el que se dice.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AjusteRedondeo(double total);

        // ---- Otros documentos ----

        /// <summary>Abre un documento no fiscal homologado.
        /// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
        /// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AbrirComprobanteNoFiscalHomologado(byte[] tipo, byte[] marca1, byte[] linea1, byte[] linea2, byte[] documento_tipo, byte[] documento_numero, byte[] marca2, byte[] domicilio, byte[] linea4, byte[] linea5, byte[] linea6, byte[] linea7, int cantidad);

        /// <summary>Cierra el documento homologado.
        /// Textos: tipo 2 bytes; marca 1 byte.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_CerrarComprobanteNoFiscalHomologado(byte[] tipo, byte[] marca);

        /// <summary>Abre un documento no fiscal.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AbrirComprobanteNoFiscal();

        /// <summary>Imprime un renglón en el documento no fiscal.
        /// Textos: texto 120 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirTextoNoFiscal(byte[] texto);

        /// <summary>Cierra el documento no fiscal.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_CerrarComprobanteNoFiscal();

        // ---- Informes ----

        /// <summary>Imprime el informe X.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ReporteX();

        /// <summary>Imprime el informe Z y cierra la jornada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ReporteZ();

        /// <summary>Lista los cierres Z entre dos números.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ReporteZporNumeros(int primero, int ultimo, int tercero);

        /// <summary>Lista los cierres Z entre dos fechas.
        /// Textos: desde, hasta 6 bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ReporteZporFechas(byte[] desde, byte[] hasta, int tercero);

        // ---- La impresora ----

        /// <summary>Abre el cajón de dinero.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AbrirCajonDeDinero(int cajon);

        /// <summary>Pone en hora la impresora.
        /// Textos: fecha, hora 6 bytes cada uno.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_CambiarFechaHora(byte[] fecha, byte[] hora);

        /// <summary>Lee el reloj de la impresora.
        /// Recibe: resultado, hasta 12 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ObtenerFechaHora(byte[] resultado);

        /// <summary>Pone una línea del encabezado.
        /// Textos: texto 120 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_SetEncabezado(byte[] texto, int linea, int atributo);

        /// <summary>Lee una línea del encabezado.
        /// Recibe: resultado, hasta 120 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_GetEncabezado(byte[] resultado, int linea);

        /// <summary>Corta el papel.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_CortaPapel();

        /// <summary>Avanza el papel.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AvanzaPapel(int lineas);

        /// <summary>Lee los datos del modelo.
        /// Recibe: resultado, hasta 64 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ValoresModelo(byte[] resultado);

        /// <summary>Lee los contadores.
        /// Recibe: resultado, hasta 80 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Numeracion(byte[] resultado);

        /// <summary>Lee el nombre del modelo.
        /// Recibe: resultado, hasta 14 bytes.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_AutodetectarModelo(byte[] resultado);

        // ---- Para programas viejos ----

        /// <summary>El último código de error: siempre 0.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Chequear_Error();

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ReimprimirComprobante();

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Configuracion(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ConsultaMemoria(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Copias(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImpuestoInternoFijo(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImpuestoInternoPorMonto(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_InformacionRemito(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Inicializacion(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_Memoria(int a);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_DescuentoUltimoItem(int a, int b, int c);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_ImprimirItemEnRemito(int a, int b, int c);

        /// <summary>No hace nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int EP_DatosCliente(int a, int b, int c, int d, int e);

        // ---- Qué fue de la última llamada ----

        /// <summary>Qué fue de la última llamada.
        /// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Desenlace();

        /// <summary>Por qué terminó así la última llamada.
        /// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Causa();

        /// <summary>Por qué terminó así la última llamada, en una frase para el operador.
        /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_CausaTexto(byte[] texto, int longitud);

        /// <summary>Un campo de la última respuesta.
        /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Respuesta(int numero, byte[] texto, int longitud);

        /// <summary>Cuántas tramas mandó la última llamada.
        /// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Intentos();

        /// <summary>Le pregunta a la impresora cómo está.
        /// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Estado();

        /// <summary>Qué comprobante está abierto y en qué etapa.
        /// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
        /// llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_DocumentoAbierto();

        /// <summary>Pregunta el total del comprobante abierto.
        /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Subtotal(byte[] texto, int longitud);

        /// <summary>Pregunta el número del último comprobante de una clase.
        /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Numeracion(int clase, int letra, byte[] texto, int longitud);

        /// <summary>Si quedó una llamada sin resolver.
        /// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Pendiente(byte[] texto, int longitud);

        /// <summary>Averigua qué fue de la llamada pendiente.
        /// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
        /// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Resolver();

        /// <summary>El número del comprobante que Kestra_Resolver encontró cerrado.
        /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_ResolverNumero(byte[] texto, int longitud);

        /// <summary>Deja de lado lo pendiente sin preguntar.
        /// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Olvidar();

        // ---- El operador ----

        /// <summary>Hace que el programa conteste en lugar de los cuadros de la biblioteca.
        /// Devuelve: No devuelve nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern void Kestra_DefinirOperador(ref KestraOperador operador);

        /// <summary>Lo mismo con IntPtr.Zero, que vuelve a los cuadros de la biblioteca.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern void Kestra_DefinirOperador(IntPtr operador);

        // ---- Textos ----

        /// <summary>Elige cómo se pasan los textos.
        /// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.</summary>
        [DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]
        public static extern int Kestra_Textos(int modo);
    }

    /// <summary>Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate int KestraMensaje(IntPtr contexto, IntPtr texto, IntPtr titulo, int estilo);

    /// <summary>El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate int KestraInformeEstados(IntPtr contexto, IntPtr impresora, IntPtr fiscal, IntPtr filas, int cantidad);

    /// <summary>La memoria fiscal está por llenarse.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall)]
    public delegate void KestraMemoriaLlena(IntPtr contexto);

    /// <summary>Un renglón del informe de estados.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct KestraFila
    {
        public int grupo;  // 0 renglón de la impresora, 1 fiscal
        public int numero;  // número del renglón
        public int clase;  // 0 información, 1 error
        public int encendida;  // 1 encendido, 0 en gris
        public IntPtr texto;  // el renglón
        public IntPtr ayuda;  // la explicación
    }

    /// <summary>Lo que la biblioteca le pregunta y le dice al operador.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct KestraOperador
    {
        public uint tamano;  // tamaño del registro en bytes
        public IntPtr contexto;  // vuelve en cada llamada
        public KestraMensaje mensaje;  // Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
        public KestraInformeEstados informe_estados;  // El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
        public KestraMemoriaLlena memoria_llena;  // La memoria fiscal está por llenarse.
    }
}
