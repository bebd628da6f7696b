#include <array>
#include <span>

#include "commands.hpp"

namespace kestra::tool {
namespace {

constexpr std::array kLogOptions = {
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

constexpr std::array kRelayOptions = {
    Option{"--impresora", "LÍNEA",
           "la impresora: un puerto serie o tcp:HOST:PUERTO; sin\nella, la de Fiscal.ini"},
    Option{"--enlace", "RUTA", "la caja entra por una pseudoterminal con ese enlace"},
    Option{"--tcp", "HOST:PUERTO", "la caja entra por TCP; con puerto 0, uno libre"},
    Option{"--dispositivo", "RUTA", "la caja entra por un puerto serie"},
    Option{"--tuberia", "NOMBRE", "la caja entra por una tubería (Windows)"},
    Option{"--baudios", "N", "de los puertos serie; sin ella, 9600"},
    Option{"--grabar", "ARCHIVO", "para impresora-virtual --reproducir"},
};

constexpr std::array kPromptOptions = {
    Option{"--virtual", "FAMILIA",
           "con una impresora virtual propia, TQ, TF o FC, cuyo papel\nse muestra"},
    Option{"--impresora-real", "", "imprimir también en una impresora que no sea virtual"},
};

constexpr std::array kCommands = {
    Command{.name = "registro",
            .operands = "[FISCAL.LOG]",
            .most_operands = 1,
            .summary = "fiscal.log en palabras: cada trama con su respuesta",
            .options = kLogOptions,
            .run = RunLog},
    Command{.name = "presenciar",
            .operands = "",
            .most_operands = 0,
            .summary = "entre la caja y la impresora: muestra lo que pasa, o lo graba",
            .options = kRelayOptions,
            .run = RunRelay},
    Command{.name = "consola",
            .operands = "[GUION]",
            .most_operands = 1,
            .summary = "las operaciones de la biblioteca, una por línea",
            .options = kPromptOptions,
            .run = RunPrompt},
};

}  // namespace

std::span<const Command> LineCommands() {
  return kCommands;
}

}  // namespace kestra::tool
