#include "commands.hpp"

#include <array>
#include <span>

namespace kestra::tool {
namespace {

constexpr std::array kCommon = {
    Option{"--carpeta", "CARPETA", "la de Fiscal.ini; sin ella, esta"},
    Option{"--json", "", "el resultado como JSON, para programas"},
    Option{"--ayuda", "", "esta ayuda; también --help y -h"},
};

constexpr Option kOtherPorts = {"--otros-puertos", "",
                                "si no contesta, preguntar en los demás puertos de la máquina"};

constexpr Option kTryRepeats = {
    "--probar-repetidas", "",
    "probar también en una impresora real si reconoce una trama repetida: le pone el\nreloj "
    "en su propia hora, lo que no imprime ni gasta nada"};

constexpr std::array kDiagnosis = {
    Option{"--todas-las-velocidades", "", "si no contesta, probar también las que casi nadie usa"},
    kOtherPorts,
    kTryRepeats,
    Option{"--anotar-repetidas", "", "lo mismo, y escribir ReconoceRepetidas en Fiscal.ini"},
};

constexpr std::array kClock = {
    Option{"--poner", "", "poner la impresora en la hora de esta máquina"},
    Option{"--impresora-real", "", "también si no es una impresora virtual"},
};

constexpr std::array kResolve = {
    Option{"--olvidar", "", "dejar de lado lo pendiente sin preguntar: para el técnico"},
};

constexpr std::array kIni = {
    Option{"--escribir", "",
           "hacer uno, en ARCHIVO (Fiscal.ini; - es la pantalla), preguntando a la impresora"},
    Option{"--explicar", "", "decir qué es cada clave, o las que se nombren"},
    Option{"--comparar", "", "en qué difieren dos archivos"},
    Option{"--familia", "TQ|TF|FC", "la que tiene que ser"},
    Option{"--puerto", "N", "para preguntar: el puerto serie"},
    Option{"--dispositivo", "RUTA", "para preguntar: el dispositivo, o tcp:EQUIPO:PUERTO"},
    Option{"--velocidad", "N", "la de la línea; si no es esa, se prueban las demás"},
    kOtherPorts,
    kTryRepeats,
    Option{"--sin-impresora", "", "no preguntar: valores usuales de la familia"},
    Option{"--reemplazar", "", "escribir encima del archivo que haya"},
};

constexpr std::array kLog = {
    Option{"--fallas", "", "solo lo que falló"},
    Option{"--dia", "FECHA", "solo ese día: 16/11/2026 o 2026-11-16"},
    Option{"--comprobante", "[L-]N", "solo ese comprobante: 12, o B-12 con su letra"},
    Option{"--seguir", "", "sigue el archivo mientras crece"},
    Option{"--html", "ARCHIVO",
           "una página para mandar, con los datos de los\nclientes tapados; - es la salida"},
    Option{"--sin-ocultar", "", "en la página, los datos de los clientes a la vista"},
    Option{"--ocultar", "", "los datos de los clientes tapados, sin --html"},
    Option{"--codigo", "NOMBRE",
           "de las letras: 1252, 850, 437, utf-8, utf-16; sin\nella se deduce"},
};

constexpr std::array kRelay = {
    Option{"--impresora", "LÍNEA",
           "la impresora: un puerto serie o tcp:HOST:PUERTO; sin\nella, la de Fiscal.ini"},
    Option{"--enlace", "RUTA", "la caja entra por una pseudoterminal con ese enlace"},
    Option{"--tcp", "HOST:PUERTO", "la caja entra por TCP; con puerto 0, uno libre"},
    Option{"--dispositivo", "RUTA", "la caja entra por un puerto serie"},
    Option{"--tuberia", "NOMBRE", "la caja entra por una tubería (Windows)"},
    Option{"--baudios", "N", "de los puertos serie; sin ella, 9600"},
    Option{"--grabar", "ARCHIVO", "para impresora-virtual --reproducir"},
};

constexpr std::array kPrompt = {
    Option{"--virtual", "FAMILIA",
           "con una impresora virtual propia, TQ, TF o FC, cuyo papel\nse muestra"},
    Option{"--impresora-real", "", "imprimir también en una impresora que no sea virtual"},
};

constexpr std::array kCommands = {
    Command{.name = "diagnostico",
            .operands = "",
            .most_operands = 0,
            .summary = "qué anda mal entre la caja y la impresora, y qué hacer",
            .options = kDiagnosis,
            .run = RunDiagnosis},
    Command{.name = "estado",
            .operands = "",
            .most_operands = 0,
            .summary = "lo que la impresora dice de sí, en palabras",
            .options = {},
            .run = RunStatus},
    Command{.name = "numeracion",
            .operands = "",
            .most_operands = 0,
            .summary = "los últimos números de cada comprobante",
            .options = {},
            .run = RunCounters},
    Command{.name = "reloj",
            .operands = "",
            .most_operands = 0,
            .summary = "la hora de la impresora contra la de esta máquina",
            .options = kClock,
            .run = RunClock},
    Command{.name = "modelo",
            .operands = "",
            .most_operands = 0,
            .summary = "qué impresora es, y los dígitos de sus campos",
            .options = {},
            .run = RunModel},
    Command{.name = "resolver",
            .operands = "",
            .most_operands = 0,
            .summary = "qué fue de lo que quedó pendiente en el diario; la caja, cerrada",
            .options = kResolve,
            .run = RunResolve},
    Command{.name = "ini",
            .operands = "[ARCHIVO|CLAVE...]",
            .most_operands = 64,
            .summary = "revisar Fiscal.ini; escribir uno, explicarlo, comparar dos",
            .options = kIni,
            .run = RunIni},
    Command{.name = "registro",
            .operands = "[FISCAL.LOG]",
            .most_operands = 1,
            .summary = "fiscal.log en palabras: cada trama con su respuesta",
            .options = kLog,
            .run = RunLog},
    Command{.name = "presenciar",
            .operands = "",
            .most_operands = 0,
            .summary = "entre la caja y la impresora: muestra lo que pasa, o lo graba",
            .options = kRelay,
            .run = RunRelay},
    Command{.name = "consola",
            .operands = "[GUION]",
            .most_operands = 1,
            .summary = "las operaciones de la biblioteca, una por línea",
            .options = kPrompt,
            .run = RunPrompt},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

std::span<const Option> CommonOptions() {
  return kCommon;
}

}  // namespace kestra::tool
