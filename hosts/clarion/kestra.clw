! Kestra 1.0.0: declaraciones para Clarion.
! Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
!
! Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
! Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
! completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
! Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
!
! Va en el MAP del programa: INCLUDE('kestra.clw'). Kestra.lib se hace con LibMaker, a partir de Kestra.dll.
! Un texto es una STRING de sus bytes exactos, STRING(50): Clarion la completa con blancos. Un búfer también.
! RAW pasa la dirección sola. Los nombres sin decoración los da NAME.
!
! Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
! no se compilaron con la herramienta del lenguaje.
  MODULE('Kestra.lib')
    ! ---- Principio y fin ----
    ! Lee Fiscal.ini y prepara el puerto.
    ! Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
    EP_Init(),LONG,PASCAL,RAW,DLL(1),NAME('EP_Init')
    ! Suelta el puerto.
    ! Devuelve: No quiere decir nada.
    EP_Kill(),LONG,PASCAL,RAW,DLL(1),NAME('EP_Kill')
    ! ---- Comprobantes fiscales ----
    ! Abre una factura, un tique o una nota.
    ! Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
    ! documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
    ! bytes cada uno.
    EP_AbrirComprobanteFiscal(*STRING tipo,*STRING letra,*STRING nombre1,*STRING nombre2, |
        *STRING documento_tipo,*STRING documento_numero,*STRING responsabilidad_iva,*STRING domicilio1, |
        *STRING domicilio2,*STRING domicilio3,*STRING linea4,*STRING linea5,LONG copias),LONG,PASCAL,RAW, |
        DLL(1),NAME('EP_AbrirComprobanteFiscal')
    ! Imprime una línea de venta.
    ! Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    EP_ImprimirItem(*STRING descripcion,REAL cantidad,REAL precio,REAL iva,REAL impuestos_internos, |
        *STRING extra1,*STRING extra2,*STRING extra3),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImprimirItem')
    ! Imprime la anulación de una línea.
    ! Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    EP_AnularItem(*STRING descripcion,REAL cantidad,REAL precio,REAL iva,REAL impuestos_internos, |
        *STRING extra1,*STRING extra2,*STRING extra3),LONG,PASCAL,RAW,DLL(1),NAME('EP_AnularItem')
    ! Imprime un renglón de texto dentro del comprobante.
    ! Textos: texto 26 bytes.
    EP_ImprimirTextoFiscal(*STRING texto),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImprimirTextoFiscal')
    ! Imprime un renglón de texto terminado en cero.
    EP_ImprimirTextoFiscalInterna(*CSTRING texto),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_ImprimirTextoFiscalInterna')
    ! Cierra el comprobante y da su número.
    ! Textos: tipo 2 bytes; letra 1 byte.
    ! Recibe: numero, hasta 8 bytes.
    EP_CerrarComprobanteFiscal(*STRING tipo,*STRING letra,*STRING numero),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_CerrarComprobanteFiscal')
    ! Cancela el comprobante abierto.
    EP_Cancelar(),LONG,PASCAL,RAW,DLL(1),NAME('EP_Cancelar')
    ! ---- Totales y pagos ----
    ! Le descuenta un importe al comprobante.
    ! Textos: descripcion 80 bytes.
    EP_DescuentoGeneral(*STRING descripcion,REAL monto),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_DescuentoGeneral')
    ! Le suma un recargo al comprobante.
    ! Textos: descripcion 80 bytes.
    EP_RecargoGeneral(*STRING descripcion,REAL monto),LONG,PASCAL,RAW,DLL(1),NAME('EP_RecargoGeneral')
    ! Le suma una percepción al comprobante.
    ! Textos: descripcion 20 bytes; calificador 1 byte.
    EP_EspecificarPercepcionGlobal(*STRING descripcion,REAL monto,REAL iva,*STRING calificador),LONG, |
        PASCAL,RAW,DLL(1),NAME('EP_EspecificarPercepcionGlobal')
    ! Imprime una línea de pago.
    ! Textos: descripcion 80 bytes.
    EP_ImprimirPago(*STRING descripcion,REAL monto),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImprimirPago')
    ! Agrega líneas hasta que el total sea el que se dice.
    EP_AjusteRedondeo(REAL total),LONG,PASCAL,RAW,DLL(1),NAME('EP_AjusteRedondeo')
    ! ---- Otros documentos ----
    ! Abre un documento no fiscal homologado.
    ! Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
    ! documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
    EP_AbrirComprobanteNoFiscalHomologado(*STRING tipo,*STRING marca1,*STRING linea1,*STRING linea2, |
        *STRING documento_tipo,*STRING documento_numero,*STRING marca2,*STRING domicilio,*STRING linea4, |
        *STRING linea5,*STRING linea6,*STRING linea7,LONG cantidad),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_AbrirComprobanteNoFiscalHomologado')
    ! Cierra el documento homologado.
    ! Textos: tipo 2 bytes; marca 1 byte.
    EP_CerrarComprobanteNoFiscalHomologado(*STRING tipo,*STRING marca),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_CerrarComprobanteNoFiscalHomologado')
    ! Abre un documento no fiscal.
    EP_AbrirComprobanteNoFiscal(),LONG,PASCAL,RAW,DLL(1),NAME('EP_AbrirComprobanteNoFiscal')
    ! Imprime un renglón en el documento no fiscal.
    ! Textos: texto 120 bytes.
    EP_ImprimirTextoNoFiscal(*STRING texto),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImprimirTextoNoFiscal')
    ! Cierra el documento no fiscal.
    EP_CerrarComprobanteNoFiscal(),LONG,PASCAL,RAW,DLL(1),NAME('EP_CerrarComprobanteNoFiscal')
    ! ---- Informes ----
    ! Imprime el informe X.
    EP_ReporteX(),LONG,PASCAL,RAW,DLL(1),NAME('EP_ReporteX')
    ! Imprime el informe Z y cierra la jornada.
    EP_ReporteZ(),LONG,PASCAL,RAW,DLL(1),NAME('EP_ReporteZ')
    ! Lista los cierres Z entre dos números.
    EP_ReporteZporNumeros(LONG primero,LONG ultimo,LONG tercero),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_ReporteZporNumeros')
    ! Lista los cierres Z entre dos fechas.
    ! Textos: desde, hasta 6 bytes cada uno.
    EP_ReporteZporFechas(*STRING desde,*STRING hasta,LONG tercero),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_ReporteZporFechas')
    ! ---- La impresora ----
    ! Abre el cajón de dinero.
    EP_AbrirCajonDeDinero(LONG cajon),LONG,PASCAL,RAW,DLL(1),NAME('EP_AbrirCajonDeDinero')
    ! Pone en hora la impresora.
    ! Textos: fecha, hora 6 bytes cada uno.
    EP_CambiarFechaHora(*STRING fecha,*STRING hora),LONG,PASCAL,RAW,DLL(1),NAME('EP_CambiarFechaHora')
    ! Lee el reloj de la impresora.
    ! Recibe: resultado, hasta 12 bytes.
    EP_ObtenerFechaHora(*STRING resultado),LONG,PASCAL,RAW,DLL(1),NAME('EP_ObtenerFechaHora')
    ! Pone una línea del encabezado.
    ! Textos: texto 120 bytes.
    EP_SetEncabezado(*STRING texto,LONG linea,LONG atributo),LONG,PASCAL,RAW,DLL(1), |
        NAME('EP_SetEncabezado')
    ! Lee una línea del encabezado.
    ! Recibe: resultado, hasta 120 bytes.
    EP_GetEncabezado(*STRING resultado,LONG linea),LONG,PASCAL,RAW,DLL(1),NAME('EP_GetEncabezado')
    ! Corta el papel.
    EP_CortaPapel(),LONG,PASCAL,RAW,DLL(1),NAME('EP_CortaPapel')
    ! Avanza el papel.
    EP_AvanzaPapel(LONG lineas),LONG,PASCAL,RAW,DLL(1),NAME('EP_AvanzaPapel')
    ! Lee los datos del modelo.
    ! Recibe: resultado, hasta 64 bytes.
    EP_ValoresModelo(*STRING resultado),LONG,PASCAL,RAW,DLL(1),NAME('EP_ValoresModelo')
    ! Lee los contadores.
    ! Recibe: resultado, hasta 80 bytes.
    EP_Numeracion(*STRING resultado),LONG,PASCAL,RAW,DLL(1),NAME('EP_Numeracion')
    ! Lee el nombre del modelo.
    ! Recibe: resultado, hasta 14 bytes.
    EP_AutodetectarModelo(*STRING resultado),LONG,PASCAL,RAW,DLL(1),NAME('EP_AutodetectarModelo')
    ! ---- Para programas viejos ----
    ! El último código de error: siempre 0.
    EP_Chequear_Error(),LONG,PASCAL,RAW,DLL(1),NAME('EP_Chequear_Error')
    ! No hace nada.
    EP_ReimprimirComprobante(),LONG,PASCAL,RAW,DLL(1),NAME('EP_ReimprimirComprobante')
    ! No hace nada.
    EP_Configuracion(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_Configuracion')
    ! No hace nada.
    EP_ConsultaMemoria(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_ConsultaMemoria')
    ! No hace nada.
    EP_Copias(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_Copias')
    ! No hace nada.
    EP_ImpuestoInternoFijo(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImpuestoInternoFijo')
    ! No hace nada.
    EP_ImpuestoInternoPorMonto(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImpuestoInternoPorMonto')
    ! No hace nada.
    EP_InformacionRemito(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_InformacionRemito')
    ! No hace nada.
    EP_Inicializacion(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_Inicializacion')
    ! No hace nada.
    EP_Memoria(LONG a),LONG,PASCAL,RAW,DLL(1),NAME('EP_Memoria')
    ! No hace nada.
    EP_DescuentoUltimoItem(LONG a,LONG b,LONG c),LONG,PASCAL,RAW,DLL(1),NAME('EP_DescuentoUltimoItem')
    ! No hace nada.
    EP_ImprimirItemEnRemito(LONG a,LONG b,LONG c),LONG,PASCAL,RAW,DLL(1),NAME('EP_ImprimirItemEnRemito')
    ! No hace nada.
    EP_DatosCliente(LONG a,LONG b,LONG c,LONG d,LONG e),LONG,PASCAL,RAW,DLL(1),NAME('EP_DatosCliente')
    ! ---- Qué fue de la última llamada ----
    ! Qué fue de la última llamada.
    ! Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
    Kestra_Desenlace(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Desenlace')
    ! Por qué terminó así la última llamada.
    ! Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
    Kestra_Causa(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Causa')
    ! Por qué terminó así la última llamada, en una frase para el operador.
    ! Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    Kestra_CausaTexto(*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_CausaTexto')
    ! Un campo de la última respuesta.
    ! Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    Kestra_Respuesta(LONG numero,*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1), |
        NAME('Kestra_Respuesta')
    ! Cuántas tramas mandó la última llamada.
    ! Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
    Kestra_Intentos(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Intentos')
    ! Le pregunta a la impresora cómo está.
    ! Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
    Kestra_Estado(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Estado')
    ! Qué comprobante está abierto y en qué etapa.
    ! Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
    ! llamada está en curso.
    Kestra_DocumentoAbierto(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_DocumentoAbierto')
    ! Pregunta el total del comprobante abierto.
    ! Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    Kestra_Subtotal(*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Subtotal')
    ! Pregunta el número del último comprobante de una clase.
    ! Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    Kestra_Numeracion(LONG clase,LONG letra,*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1), |
        NAME('Kestra_Numeracion')
    ! Si quedó una llamada sin resolver.
    ! Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
    Kestra_Pendiente(*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Pendiente')
    ! Averigua qué fue de la llamada pendiente.
    ! Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
    ! el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
    Kestra_Resolver(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Resolver')
    ! El número del comprobante que Kestra_Resolver encontró cerrado.
    ! Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    Kestra_ResolverNumero(*CSTRING texto,LONG longitud),LONG,PASCAL,RAW,DLL(1), |
        NAME('Kestra_ResolverNumero')
    ! Deja de lado lo pendiente sin preguntar.
    ! Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
    Kestra_Olvidar(),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Olvidar')
    ! ---- El operador ----
    ! Hace que el programa conteste en lugar de los cuadros de la biblioteca.
    ! Devuelve: No devuelve nada.
    Kestra_DefinirOperador(LONG operador),PASCAL,RAW,DLL(1),NAME('Kestra_DefinirOperador')
    ! ---- Textos ----
    ! Elige cómo se pasan los textos.
    ! Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
    Kestra_Textos(LONG modo),LONG,PASCAL,RAW,DLL(1),NAME('Kestra_Textos')
  END
