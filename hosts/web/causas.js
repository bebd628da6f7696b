// Las causas, para la caja del navegador. Las hace api/generate a partir de docs/manual/causas.md.
// La puerta manda la frase entera; esto es para cuando falta.
export const CAUSAS = {
  // KESTRA_CAUSA_NINGUNA
  0: ["", ""],
  // KESTRA_CAUSA_DECLINADA
  101: ["El operador contestó que no se enviara.", ""],
  // KESTRA_CAUSA_SIN_COMANDO
  102: ["Este modelo de impresora no tiene ese comprobante o esa operación.", "Avise a quien mantiene el programa de ventas."],
  // KESTRA_CAUSA_SIN_INICIAR
  103: ["El controlador no está iniciado.", "Llame antes a EP_Init y vea que devuelva 1."],
  // KESTRA_CAUSA_SIN_RESOLVER
  104: ["Falta saber qué fue de una operación anterior y la impresora no contesta.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_TOTAL_DISTINTO
  105: ["El total de la impresora no es la suma de lo que se le mandó.", "Cancele el comprobante y hágalo de nuevo."],
  // KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL
  106: ["Los tickets se emiten solo a consumidor final.", "Use la letra B o C."],
  // KESTRA_CAUSA_CLAVE_ILEGIBLE
  107: ["Fiscal.ini tiene una clave que no se puede leer.", "Corrija la clave: las que le siguen no se leyeron."],
  // KESTRA_CAUSA_FALLA_INTERNA
  108: ["El controlador falló.", "Avise a quien mantiene el programa de ventas."],
  // KESTRA_CAUSA_SIN_MEMORIA
  109: ["A la máquina le falta memoria.", "Cierre otros programas."],
  // KESTRA_CAUSA_ABANDONADA
  110: ["El programa de ventas dejó la llamada por la mitad.", "Avise a quien mantiene el programa de ventas."],
  // KESTRA_CAUSA_PUERTO_NUMERO
  201: ["El número de puerto no es válido (1 a 256).", "Revise ImpresoraDispositivo, ImpresoraPuerto e ImpresoraConfig en Fiscal.ini."],
  // KESTRA_CAUSA_PUERTO_CONFIGURACION
  202: ["La configuración del puerto no es válida.", "Revise ImpresoraDispositivo, ImpresoraPuerto e ImpresoraConfig en Fiscal.ini."],
  // KESTRA_CAUSA_PUERTO_INEXISTENTE
  203: ["No existe el puerto de la impresora.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_PUERTO_SIN_EQUIPO
  204: ["No hay un puerto serie donde dice la configuración.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_PUERTO_NO_SERIE
  205: ["El dispositivo de la configuración no es un puerto serie.", "Revise ImpresoraDispositivo, ImpresoraPuerto e ImpresoraConfig en Fiscal.ini."],
  // KESTRA_CAUSA_PUERTO_SIN_PERMISO
  206: ["No hay permiso para usar el puerto de la impresora.", "Dé al usuario permiso sobre el dispositivo."],
  // KESTRA_CAUSA_PUERTO_EN_USO
  207: ["Otro programa está usando el puerto de la impresora.", "Cierre el otro programa."],
  // KESTRA_CAUSA_PUERTO_NO_ABRE
  208: ["No se pudo abrir el puerto de la impresora.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_PUERTO_YA_ABIERTO
  209: ["El puerto ya estaba abierto.", "Avise a quien mantiene el programa de ventas."],
  // KESTRA_CAUSA_PUERTO_NO_ABIERTO
  210: ["El puerto no estaba abierto.", "Avise a quien mantiene el programa de ventas."],
  // KESTRA_CAUSA_PUERTO_PERDIDO
  211: ["Se perdió la conexión con la impresora.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_PUERTO_TRABADO
  212: ["El puerto no acepta datos.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_PUERTO_TRANSFERENCIA
  213: ["El puerto falló al leer o escribir.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_RED_DIRECCION
  214: ["La dirección de red no es válida (tcp:EQUIPO:PUERTO).", "Revise ImpresoraDispositivo en Fiscal.ini."],
  // KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO
  215: ["No se conoce el equipo de la impresora en la red.", "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."],
  // KESTRA_CAUSA_RED_NADIE_ATIENDE
  216: ["Nadie atiende en la dirección de la impresora.", "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."],
  // KESTRA_CAUSA_RED_NO_RESPONDE
  217: ["La dirección de la impresora no responde.", "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."],
  // KESTRA_CAUSA_RED_SIN_CAMINO
  218: ["No hay camino en la red hasta la impresora.", "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."],
  // KESTRA_CAUSA_RED_CORTADA
  219: ["La conexión se cortó sin contestar: se perdió o la usa otro programa.", "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."],
  // KESTRA_CAUSA_SILENCIO
  301: ["La impresora no contestó.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_RESPUESTA_DANADA
  302: ["La respuesta de la impresora llegó dañada.", "Si se repite, revise o cambie el cable."],
  // KESTRA_CAUSA_RESPUESTAS_AJENAS
  303: ["La impresora contestó a otros comandos.", "Si se repite, revise o cambie el cable."],
  // KESTRA_CAUSA_COMANDO_DANADO
  304: ["La impresora avisó que el comando le llegó dañado.", "Si se repite, revise o cambie el cable."],
  // KESTRA_CAUSA_REPETIDO
  305: ["El comando se mandó más de una vez: puede estar repetido.", "Mire el papel antes de seguir."],
  // KESTRA_CAUSA_RESPUESTA_INESPERADA
  306: ["La respuesta de la impresora no trae los datos esperados.", "Mire el papel antes de seguir."],
  // KESTRA_CAUSA_FALLA_IMPRESORA
  402: ["La impresora avisa un error o una falla.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_FUERA_DE_LINEA
  403: ["La impresora está fuera de línea.", "Cierre la tapa y ponga la impresora en línea."],
  // KESTRA_CAUSA_SIN_PAPEL_DIARIO
  404: ["Falta papel del diario.", "Coloque papel y siga."],
  // KESTRA_CAUSA_SIN_PAPEL_TICKETS
  405: ["Falta papel de tickets.", "Coloque papel y siga."],
  // KESTRA_CAUSA_SIN_PAPEL
  414: ["La impresora no tiene papel.", "Coloque papel y siga."],
  // KESTRA_CAUSA_MEMORIA_FISCAL
  500: ["Falló la comprobación de la memoria fiscal.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_MEMORIA_TRABAJO
  501: ["Falló la comprobación de la memoria de trabajo.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_BATERIA_BAJA
  502: ["La impresora tiene la batería baja.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_COMANDO_DESCONOCIDO
  503: ["La impresora no conoce el comando.", "Revise ModeloNombre y TipoComprobante en Fiscal.ini."],
  // KESTRA_CAUSA_CAMPO_INVALIDO
  504: ["La impresora no aceptó un dato del comando.", "Revise el texto, la cantidad o el importe."],
  // KESTRA_CAUSA_ESTADO_INVALIDO
  505: ["El comando no corresponde a lo que la impresora está haciendo.", "Vea si quedó un comprobante abierto; si hace falta, cancélelo."],
  // KESTRA_CAUSA_DESBORDE
  506: ["La cantidad o el importe pasa lo que la impresora admite.", "Divida la venta en más de un comprobante."],
  // KESTRA_CAUSA_MEMORIA_LLENA
  507: ["La memoria fiscal está llena.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_MEMORIA_CASI_LLENA
  508: ["La memoria fiscal está casi llena.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_CIERRE_NECESARIO
  511: ["Hace falta un cierre Z: pasaron más de 24 horas.", "Haga el cierre Z."],
  // KESTRA_CAUSA_SIN_REGISTRO
  601: ["Nada en la impresora muestra si esta operación se hizo.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_REGISTROS_NO_COINCIDEN
  602: ["Los registros de la impresora no coinciden con lo enviado.", "Mire el papel antes de seguir."],
  // KESTRA_CAUSA_REGISTROS_ILEGIBLES
  603: ["No se pudieron leer los registros de la impresora.", "Revise que la impresora esté encendida y el cable bien puesto."],
  // KESTRA_CAUSA_HOJA_CAMBIADA
  604: ["La hoja se llenó y se hizo el transporte: falta el artículo.", "Mande el artículo de nuevo."],
  // KESTRA_CAUSA_YA_CERRADO
  605: ["El comprobante ya estaba cerrado: no se puede cancelar.", "Si corresponde, haga una nota de crédito."],
  // KESTRA_CAUSA_OLVIDADA
  606: ["La operación pendiente se dejó de lado.", "Mire el papel antes de seguir."],
  // KESTRA_CAUSA_SIN_NUMERO
  607: ["La impresora no lleva ese número.", ""],
  // KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE
  701: ["No se puede escribir el diario.", "Revise Diario en Fiscal.ini, el lugar en el disco y los permisos de la carpeta."],
  // KESTRA_CAUSA_DIARIO_AJENO
  702: ["El diario es de otra impresora.", "Dé a cada impresora un archivo propio en Diario."],
  // KESTRA_CAUSA_DIARIO_EN_USO
  703: ["Otro programa tiene abierto el diario.", "Cierre el otro programa."],
  // KESTRA_CAUSA_DIARIO_DANADO
  704: ["El diario está dañado.", "Consulte a su técnico fiscal."],
  // KESTRA_CAUSA_DIARIO_OMITIDO
  705: ["No se pudo escribir el diario y se siguió sin él.", "Revise Diario en Fiscal.ini, el lugar en el disco y los permisos de la carpeta."],
  // KESTRA_CAUSA_LOG_NO_SE_ESCRIBE
  801: ["No se puede escribir el registro fiscal.log.", "Revise el lugar en el disco y los permisos de la carpeta."],
};

// Por el desenlace, como lo dice la biblioteca.
const DESENLACES = [
  "",
  "La operación se hizo.",
  "La impresora no hizo la operación.",
  "La operación no se mandó a la impresora.",
  "No se sabe si la operación se hizo: mire el papel antes de repetirla.",
  "La operación se hizo solo en parte: mire el papel antes de seguir.",
  "La operación no se hizo.",
];

/** La frase para el operador: qué pasó, si se hizo, qué hacer ahora. */
export function frase(causa, desenlace) {
  const [que, hacer] = CAUSAS[causa] ?? ["", ""];
  return [que, DESENLACES[desenlace] ?? "", hacer].filter(Boolean).join(" ");
}
