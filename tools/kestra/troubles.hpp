#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "command.hpp"
#include "trouble.hpp"

namespace kestra::tool {

enum class Level : std::uint8_t { kFault, kWarning, kNote };

struct TroubleRow {
  Trouble trouble;
  std::string_view code;  // for scripts
  Level level;
  Exit exit;
  std::string_view what;
  std::string_view todo;
};

inline constexpr std::array kTroubles = {
    TroubleRow{Trouble::kNoFile, "sin-fiscal-ini", Level::kFault, Exit::kBadSettings,
               "No hay Fiscal.ini en esta carpeta",
               "Correr kestra en la carpeta en que corre el programa de ventas, o nombrarla con "
               "--carpeta. Si no hay "
               "ninguno: kestra ini --escribir"},
    TroubleRow{Trouble::kNoSection, "sin-seccion", Level::kFault, Exit::kBadSettings,
               "Fiscal.ini no tiene la sección [Epson_Fiscal]",
               "Poner [Epson_Fiscal] antes de la primera clave, o escribir otro con kestra ini "
               "--escribir"},
    TroubleRow{Trouble::kMissingKey, "clave-faltante", Level::kFault, Exit::kBadSettings,
               "Falta una clave obligatoria, y las que siguen no se leen",
               "Agregarla. kestra ini --explicar CLAVE dice qué es; kestra ini --escribir hace un "
               "archivo entero"},
    TroubleRow{Trouble::kNoNumber, "clave-sin-numero", Level::kFault, Exit::kBadSettings,
               "El valor de una clave no es un número, y las que siguen no se leen",
               "Dejar solo dígitos: sin punto, sin coma y sin comentario detrás"},
    TroubleRow{Trouble::kOutOfRange, "clave-fuera-de-rango", Level::kFault, Exit::kBadSettings,
               "El número de una clave es demasiado grande, y las que siguen no se leen",
               "Corregirlo. kestra ini --explicar CLAVE dice qué es"},
    TroubleRow{Trouble::kBadPort, "puerto-invalido", Level::kFault, Exit::kBadSettings,
               "ImpresoraPuerto no es un puerto: va de 1 a 256",
               "Poner el número del puerto (1 es COM1 o /dev/ttyS0), o nombrar el dispositivo en "
               "ImpresoraDispositivo"},
    TroubleRow{Trouble::kBadSpeed, "velocidad-invalida", Level::kFault, Exit::kBadSettings,
               "ImpresoraConfig no es una velocidad",
               "Poner la de la impresora; casi todas usan 9600 o 19200"},
    TroubleRow{Trouble::kBadAddress, "direccion-invalida", Level::kFault, Exit::kBadSettings,
               "La dirección de red de ImpresoraDispositivo no está bien",
               "Se escribe tcp:EQUIPO:PUERTO, por ejemplo tcp:192.168.0.20:4001"},
    TroubleRow{Trouble::kBadFamily, "familia-invalida", Level::kFault, Exit::kBadSettings,
               "TipoComprobante no es una familia: no se abriría ningún comprobante",
               "Poner TQ (tiques), TF (tique-facturas) o FC (formularios), en mayúsculas"},
    TroubleRow{Trouble::kNoDevice, "dispositivo-inexistente", Level::kFault, Exit::kNoAnswer,
               "El dispositivo no existe",
               "Enchufar el adaptador, o corregir ImpresoraDispositivo o ImpresoraPuerto con uno "
               "de los puertos de "
               "esta máquina"},
    TroubleRow{
        Trouble::kNoHardware, "puerto-sin-circuito", Level::kFault, Exit::kNoAnswer,
        "El sistema nombra ese puerto y la máquina no lo tiene",
        "Corregir ImpresoraPuerto o ImpresoraDispositivo con uno de los puertos de esta máquina"},
    TroubleRow{Trouble::kNotSerial, "no-es-puerto-serie", Level::kFault, Exit::kNoAnswer,
               "Lo que nombra Fiscal.ini no es un puerto serie",
               "Corregir ImpresoraDispositivo con uno de los puertos de esta máquina"},
    TroubleRow{Trouble::kNoPermission, "sin-permiso", Level::kFault, Exit::kNoAnswer,
               "Este usuario no puede abrir el puerto",
               "En Linux: sudo usermod -aG GRUPO USUARIO, con el grupo del puerto (en Debian, "
               "dialout), y volver a "
               "entrar"},
    TroubleRow{Trouble::kBusyDevice, "puerto-ocupado", Level::kFault, Exit::kNoAnswer,
               "Otro programa tiene el puerto",
               "Cerrar ese programa. Si tiene que convivir: EsperaPuerto en Fiscal.ini"},
    TroubleRow{Trouble::kUnknownHost, "equipo-desconocido", Level::kFault, Exit::kNoAnswer,
               "Nadie conoce el nombre del equipo",
               "Corregir el nombre, o poner la dirección con números"},
    TroubleRow{
        Trouble::kNobodyListens, "nadie-atiende", Level::kFault, Exit::kNoAnswer,
        "El equipo está y nadie atiende en ese puerto",
        "Prender el servidor de puertos serie o la impresora virtual; revisar el número de puerto"},
    TroubleRow{Trouble::kHostSilent, "equipo-mudo", Level::kFault, Exit::kNoAnswer,
               "El equipo no responde por la red",
               "Ver que esté prendido y que ningún cortafuegos lo tape"},
    TroubleRow{Trouble::kNoRoute, "sin-camino", Level::kFault, Exit::kNoAnswer,
               "La red no llega hasta el equipo",
               "Revisar el cable o el wifi de esta máquina y la dirección"},
    TroubleRow{Trouble::kTurnedAway, "conexion-cortada", Level::kFault, Exit::kNoAnswer,
               "El equipo corta la conexión sin contestar: otro programa usa la impresora, o el "
               "servidor la perdió",
               "Cerrar el otro programa, o apagar y prender el servidor de puertos serie"},
    TroubleRow{Trouble::kCannotOpen, "puerto-no-abre", Level::kFault, Exit::kNoAnswer,
               "El puerto no abre",
               "Desenchufar y enchufar el adaptador, o reiniciar la máquina; si sigue, probar otro "
               "adaptador"},
    TroubleRow{
        Trouble::kLostLine, "puerto-perdido", Level::kFault, Exit::kNoAnswer,
        "El puerto se perdió mientras se usaba",
        "Revisar el enchufe del adaptador y el cable; probar otro puerto USB, sin concentrador"},
    TroubleRow{Trouble::kWrongSpeed, "velocidad-equivocada", Level::kFault, Exit::kNoAnswer,
               "La impresora contesta a otra velocidad", "Poner esa velocidad en ImpresoraConfig"},
    TroubleRow{Trouble::kSharedDevice, "otro-programa-escucha", Level::kFault, Exit::kFindings,
               "Otro programa tiene abierto el mismo puerto y puede quedarse con las respuestas",
               "Cerrar ese programa"},
    TroubleRow{Trouble::kEcho, "eco", Level::kFault, Exit::kNoAnswer,
               "Vuelve lo mismo que se manda: del otro lado no hay una impresora",
               "Revisar el cable: hay un puente entre las patas 2 y 3, o el adaptador no está en "
               "modo RS-232"},
    TroubleRow{Trouble::kOnlyRefusals, "solo-rechazos", Level::kFault, Exit::kNoAnswer,
               "La impresora oye y rechaza cada trama como dañada (NAK)",
               "Apagar y prender la impresora; si sigue, cambiar el cable o el adaptador: lo que "
               "se manda llega roto"},
    TroubleRow{Trouble::kAlwaysBusy, "siempre-ocupada", Level::kFault, Exit::kNoAnswer,
               "La impresora dice que está ocupada y no termina",
               "Esperar a que termine lo que imprime; si no imprime nada, apagarla y prenderla"},
    TroubleRow{Trouble::kDamagedAnswers, "respuestas-danadas", Level::kFault, Exit::kNoAnswer,
               "Las respuestas llegan dañadas",
               "Cambiar el cable, alejarlo de motores y tubos, revisar la descarga a tierra"},
    TroubleRow{
        Trouble::kForeignAnswers, "respuestas-ajenas", Level::kFault, Exit::kNoAnswer,
        "Llegan respuestas a otras tramas: otro programa habla con la impresora por esta línea",
        "Cerrar el otro programa, o el otro servidor de puertos que lleva a la misma impresora"},
    TroubleRow{Trouble::kNoise, "ruido", Level::kFault, Exit::kNoAnswer,
               "Llegan bytes que no son de una impresora fiscal",
               "Ver que el cable vaya a la impresora y no a otro aparato; probar otro cable"},
    TroubleRow{Trouble::kOtherPort, "otro-puerto", Level::kFault, Exit::kNoAnswer,
               "La impresora está en otro puerto de esta máquina",
               "Poner ese puerto en ImpresoraDispositivo"},
    TroubleRow{Trouble::kSwitchedOff, "apagada-o-sin-cable", Level::kFault, Exit::kNoAnswer,
               "Del otro lado no hay nada prendido: ninguna señal del cable está levantada",
               "Prender la impresora y revisar las dos puntas del cable"},
    TroubleRow{
        Trouble::kSilent, "impresora-muda", Level::kFault, Exit::kNoAnswer,
        "El puerto abre y la impresora no contesta a ninguna velocidad",
        "En este orden: que esté prendida y en línea; las dos puntas del cable; que sea ese puerto "
        "(--otros-puertos los prueba); otro cable"},
    TroubleRow{Trouble::kFiscalMemory, "memoria-fiscal", Level::kFault, Exit::kFindings,
               "La impresora dice que su memoria fiscal falla",
               "No seguir vendiendo: llamar al técnico fiscal"},
    TroubleRow{Trouble::kWorkMemory, "memoria-de-trabajo", Level::kFault, Exit::kFindings,
               "La impresora dice que su memoria de trabajo falla",
               "Apagarla y prenderla; si sigue, llamar al técnico fiscal"},
    TroubleRow{Trouble::kMemoryFull, "memoria-llena", Level::kFault, Exit::kFindings,
               "La memoria fiscal está llena",
               "Llamar al técnico fiscal: hay que cambiar la memoria"},
    TroubleRow{Trouble::kMechanism, "falla-mecanica", Level::kFault, Exit::kFindings,
               "La impresora dice que tiene una falla",
               "Abrir y cerrar la tapa, sacar el papel trabado, apagarla y prenderla; si sigue, el "
               "técnico"},
    TroubleRow{Trouble::kOffLine, "fuera-de-linea", Level::kFault, Exit::kFindings,
               "La impresora está fuera de línea",
               "Apretar el botón que la pone en línea; cerrar la tapa"},
    TroubleRow{Trouble::kNoPaper, "sin-papel", Level::kFault, Exit::kFindings, "Falta papel",
               "Poner papel y cerrar la tapa"},
    TroubleRow{Trouble::kOtherFamily, "otra-familia", Level::kFault, Exit::kFindings,
               "La impresora es de otra familia que la de Fiscal.ini",
               "Corregir TipoComprobante, o escribir otro archivo con kestra ini --escribir"},
    TroubleRow{Trouble::kOtherDigits, "otros-digitos", Level::kFault, Exit::kFindings,
               "Los dígitos de Fiscal.ini no son los de la impresora: leería otros importes",
               "Corregir las claves nombradas; kestra ini --escribir las saca de la impresora"},
    TroubleRow{Trouble::kDayOverdue, "jornada-vencida", Level::kFault, Exit::kFindings,
               "Pasaron más de 24 horas desde que se abrió la jornada",
               "Hacer el cierre Z; hasta entonces la impresora no vende"},
    TroubleRow{
        Trouble::kDiskFull, "disco-lleno", Level::kFault, Exit::kFindings,
        "No queda lugar en el disco: no se pueden escribir el registro ni el diario",
        "Hacer lugar en el disco. Con DiarioObligatorio=1 no se abren comprobantes mientras tanto"},
    TroubleRow{Trouble::kFolderClosed, "carpeta-sin-permiso", Level::kFault, Exit::kFindings,
               "No se puede escribir donde van el registro o el diario",
               "Dar permiso de escritura al usuario de la caja, o mudar la carpeta"},
    TroubleRow{Trouble::kForeignJournal, "diario-ajeno", Level::kFault, Exit::kFindings,
               "El diario es de otra impresora",
               "Un diario por impresora. Si esta se mudó de puerto y no hay nada pendiente: con la "
               "caja cerrada, "
               "cambiarle el nombre al archivo"},
    TroubleRow{Trouble::kNoJournal, "no-es-un-diario", Level::kFault, Exit::kFindings,
               "El archivo que nombra Diario no es un diario, o está dañado desde el principio",
               "Corregir Diario, o guardar ese archivo aparte con la caja cerrada"},
    TroubleRow{Trouble::kPending, "pendiente", Level::kFault, Exit::kFindings,
               "Hay una llamada de la que no se sabe si se hizo",
               "Abrir la caja, que la resuelve sola; o, con la caja cerrada, kestra resolver"},
    TroubleRow{Trouble::kJournalGap, "diario-con-hueco", Level::kFault, Exit::kFindings,
               "Al diario le faltan renglones: se mandaron comandos que no se pudieron anotar",
               "Comparar lo vendido con la impresora (kestra estado, kestra numeracion); hacer "
               "lugar en el disco"},
    TroubleRow{Trouble::kNotRepeating, "repetidas-mal-declaradas", Level::kFault, Exit::kFindings,
               "Fiscal.ini dice ReconoceRepetidas=1 y la impresora no las reconoce: una línea "
               "podría salir dos veces",
               "Poner ReconoceRepetidas=0; lo hace kestra diagnostico --anotar-repetidas"},
    TroubleRow{Trouble::kBattery, "bateria-baja", Level::kWarning, Exit::kFindings,
               "La batería de la impresora está baja",
               "Pedir al técnico fiscal que la cambie; no apagarla de más"},
    TroubleRow{Trouble::kMemoryNearlyFull, "quedan-pocos-cierres", Level::kWarning, Exit::kFindings,
               "Quedan menos de 30 cierres Z",
               "Avisar al técnico fiscal ahora, antes de que se llene"},
    TroubleRow{
        Trouble::kClockOff, "reloj-corrido", Level::kWarning, Exit::kFindings,
        "El reloj de la impresora no anda con el de esta máquina",
        "Ver cuál está mal. El de la impresora se pone después de un Z, con kestra reloj --poner "
        "--impresora-real"},
    TroubleRow{Trouble::kDocumentOpen, "documento-abierto", Level::kWarning, Exit::kFindings,
               "Hay un comprobante abierto",
               "Si la caja no lo está haciendo ahora: terminarlo o cancelarlo desde la caja"},
    TroubleRow{Trouble::kDayOpen, "jornada-vieja", Level::kWarning, Exit::kFindings,
               "La jornada lleva abierta más de 20 horas", "Hacer el cierre Z antes de las 24"},
    TroubleRow{Trouble::kIgnoredKey, "clave-sin-efecto", Level::kWarning, Exit::kFindings,
               "El valor de una clave no sirve, y es como si no estuviera",
               "Corregirlo. kestra ini --explicar CLAVE dice qué valores tiene"},
    TroubleRow{Trouble::kUnknownKey, "clave-desconocida", Level::kWarning, Exit::kFindings,
               "Hay una clave que nadie lee", "Ver si está mal escrita; si no, sacarla"},
    TroubleRow{Trouble::kRepeatedKey, "clave-repetida", Level::kWarning, Exit::kFindings,
               "Una clave está dos veces: vale la primera", "Dejar una sola"},
    TroubleRow{Trouble::kIdleKey, "clave-sin-modo-seguro", Level::kWarning, Exit::kFindings,
               "Una clave vale solo con ModoSeguro=1", "Agregar ModoSeguro=1, o sacarla"},
    TroubleRow{Trouble::kUselessLength, "ancho-cero", Level::kWarning, Exit::kFindings,
               "Una clave que esta familia usa vale cero: ese campo iría vacío",
               "Poner lo que la impresora acepta; kestra ini --escribir lo sabe"},
    TroubleRow{Trouble::kSpeedIgnored, "velocidad-sin-efecto", Level::kWarning, Exit::kFindings,
               "ImpresoraConfig no es una velocidad: la línea queda con la que tenía",
               "Poner la de la impresora; casi todas usan 9600 o 19200"},
    TroubleRow{Trouble::kManyFiles, "varios-fiscal-ini", Level::kWarning, Exit::kFindings,
               "Hay más de un Fiscal.ini que podría ser el de la caja",
               "Dejar uno solo; el que vale es el primero que se nombra"},
    TroubleRow{Trouble::kOtherModel, "otro-modelo", Level::kWarning, Exit::kFindings,
               "ModeloNombre y la impresora no coinciden, y la numeración de uno de los dos va en "
               "otro orden",
               "Poner en ModeloNombre el modelo que dice la impresora"},
    TroubleRow{Trouble::kLatency, "latencia-usb", Level::kWarning, Exit::kFindings,
               "El adaptador USB junta los bytes antes de entregarlos",
               "Poner su latencia en 1 ms: en Linux, en "
               "/sys/bus/usb-serial/devices/PUERTO/latency_timer; en Windows, "
               "en las propiedades avanzadas del puerto"},
    TroubleRow{Trouble::kSlow, "lenta", Level::kWarning, Exit::kFindings,
               "La impresora tarda más de un segundo en contestar una pregunta",
               "Ver si otro programa la usa, y si la velocidad de la línea no es muy baja"},
    TroubleRow{Trouble::kLittleRoom, "poco-disco", Level::kWarning, Exit::kFindings,
               "Queda poco lugar en el disco",
               "Hacer lugar: el registro y el diario crecen cada día"},
    TroubleRow{Trouble::kRepeatsUnused, "repetidas-sin-usar", Level::kNote, Exit::kGood,
               "La impresora reconoce las tramas repetidas y Fiscal.ini no lo dice",
               "Con ModoSeguro=1 conviene ReconoceRepetidas=1: lo escribe kestra diagnostico "
               "--anotar-repetidas"},
    TroubleRow{Trouble::kOtherName, "otro-nombre-de-modelo", Level::kNote, Exit::kGood,
               "La impresora dice otro modelo que ModeloNombre, y para la biblioteca da igual",
               "Corregir ModeloNombre cuando se toque el archivo"},
};

constexpr bool TroublesAreInOrder() {
  for (std::size_t i = 0; i < kTroubles.size(); ++i) {
    if (static_cast<std::size_t>(kTroubles[i].trouble) != i) return false;
  }
  return kTroubles.size() == static_cast<std::size_t>(Trouble::kOtherName) + 1;
}
static_assert(TroublesAreInOrder(), "one row per trouble, in the order of the troubles");

constexpr const TroubleRow& RowOf(Trouble trouble) {
  return kTroubles[static_cast<std::size_t>(trouble)];
}

}  // namespace kestra::tool
