#include "panel/scenes.hpp"

#include <array>

#include "fiscal/calendar.hpp"

namespace impresora {
namespace {

constexpr std::array<SceneRow, 10> kScenes{{
    {.key = "corte_en_el_cierre",
     .title = "Se cortó en el cierre",
     .words =
         "El próximo cierre se hace, y la luz se va por 3 segundos antes de que la caja lo sepa.",
     .rules = "respuesta 1 de cierre: apagar 3 s"},
    {.key = "corte_en_el_item",
     .title = "Se cortó a mitad del tique",
     .words = "La luz se va por 3 segundos con el segundo ítem desde ahora; el comprobante sigue "
              "abierto.",
     .rules = "comando 2 de ítem: apagar 3 s"},
    {.key = "sin_papel_en_el_item_3",
     .title = "Sin papel en el ítem 3",
     .words =
         "El papel se acaba en el tercer ítem desde ahora. Se repone con el control «sin papel».",
     .rules = "comando 3 de ítem: sin_papel"},
    {.key = "tapa_abierta",
     .title = "Se abrió la tapa",
     .words = "Nada se imprime hasta que se cierre, con el control «tapa abierta».",
     .control = "tapa_abierta"},
    {.key = "otra_caja",
     .title = "Otra caja en el puerto",
     .words = "Otro programa tiene el puerto: la caja no lo puede abrir.",
     .occupies = true},
    {.key = "pasaron_24_horas",
     .title = "Pasaron 24 horas",
     .words = "El reloj de la impresora adelanta un día. Con la jornada abierta, pide el cierre Z.",
     .seconds = kSecondsPerDay},
    {.key = "respuesta_perdida",
     .title = "Se perdió la respuesta del cierre",
     .words = "El próximo cierre se hace y la caja no recibe respuesta.",
     .rules = "respuesta 1 de cierre: callar"},
    {.key = "cable_flojo",
     .title = "Cable flojo",
     .words = "A una de cada cinco respuestas le falta un byte.",
     .rules = "siempre con probabilidad 20 %: perder byte al azar"},
    {.key = "otra_velocidad",
     .title = "Otra velocidad",
     .words = "La impresora quedó a 4800 baudios: la caja no entiende lo que contesta.",
     .rules = "siempre: velocidad 4800"},
    {.key = "z_lento",
     .title = "El Z tarda un minuto",
     .words = "El próximo informe de jornada tiene ocupada a la impresora un minuto.",
     .rules = "respuesta 1 de jornada: ocupar 1 min"},
}};

}  // namespace

std::span<const SceneRow> Scenes() {
  return kScenes;
}

const SceneRow* FindScene(std::string_view key) {
  for (const SceneRow& row : kScenes) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

}  // namespace impresora
