// What a shop does with its printer: scenes, the till's line, the recording.
#include "commands/commands.hpp"
#include "panel/api.hpp"
#include "panel/scenes.hpp"
#include "panel/state_json.hpp"
#include "panel/till_json.hpp"
#include "trace/exchange_text.hpp"

namespace impresora {
namespace {

std::string Body(const Json& json) {
  return OneLine(json) + "\n";
}

}  // namespace

void Api::Till(const Call& call) {
  Answer(call, [this]() -> Reply {
    const std::string_view family = FamilyCode(session_.GetPrinter().GetSettings().family);
    const HostSigns& signs = session_.Signs();
    return {.body = Body(TillJson(host_.line(), signs, session_.LocalSeconds(), family))};
  });
}

// Those that this family understands.
void Api::Commands(const Call& call) {
  Answer(call, [this]() -> Reply {
    const auto family = static_cast<unsigned>(session_.GetPrinter().GetSettings().family);
    Json rows = Json::array();
    for (const CommandRow& row : impresora::Commands()) {
      if ((row.families & family) == 0) continue;
      rows.push_back(
          {{"byte", CommandMark(row.byte)}, {"nombre", row.name}, {"palabra", row.word}});
    }
    return {.body = Body(rows)};
  });
}

void Api::GetScenes(const Call& call) {
  Json rows = Json::array();
  for (const SceneRow& row : Scenes()) {
    rows.push_back({{"clave", row.key},
                    {"titulo", row.title},
                    {"que_pasa", row.words},
                    {"reglas", row.rules},
                    {"control", row.control},
                    {"ocupa", row.occupies}});
  }
  Answer(call, [rows = std::move(rows)] { return Reply{.body = Body(rows)}; });
}

Api::Reply Api::PlayNow(const SceneRow& scene, bool on) {
  if (scene.occupies && !host_.occupy(on)) {
    return {.status = 409, .body = Body({{"error", "en esta línea no puede haber otra caja"}})};
  }
  Printer& printer = session_.GetPrinter();
  if (!scene.rules.empty() && on) session_.Faults().Add(scene.rules);
  for (const FaultCount& rule : session_.Faults().Rules()) {
    if (!on && rule.text == scene.rules) session_.Faults().Remove(rule.id);
  }
  if (const Control* const control = FindControl(scene.control)) printer.Set(*control, on ? 1 : 0);
  if (scene.seconds != 0 && on) {
    const Control& clock = *FindControl("desfase_reloj");
    session_.LookAtClock();
    printer.Set(clock, clock.get(printer.GetMachine()) + scene.seconds);
  }
  Changed();
  return StateReply();
}

void Api::PlayScene(const Call& call) {
  Answer(call, [this, body = call.request.body]() -> Reply {
    const auto json = ReadObject(body);
    const bool named = json && json->contains("escena") && json->at("escena").is_string();
    const SceneRow* const scene =
        named ? FindScene(json->at("escena").get<std::string>()) : nullptr;
    const Json on = json && json->contains("activa") ? json->at("activa") : Json(true);
    if (scene == nullptr || !on.is_boolean()) {
      return {.status = 400,
              .body = Body({{"error", "se espera {\"escena\": \"...\"}, una de /api/escenas"}})};
    }
    return PlayNow(*scene, on.get<bool>());
  });
}

void Api::Record(const Call& call) {
  Answer(call, [this, body = call.request.body]() -> Reply {
    const auto json = ReadObject(body);
    if (!json || !json->contains("grabar") || !json->at("grabar").is_boolean()) {
      return {.status = 400, .body = Body({{"error", "se espera {\"grabar\": true} o false"}})};
    }
    if (json->at("grabar").get<bool>()) {
      recording_.Begin(session_.GetPrinter().GetSettings());
    } else {
      recording_.End();
    }
    feed_.StateChanged();
    return {.body = Body(recording_.Status())};
  });
}

void Api::RecordingStatus(const Call& call) {
  Answer(call, [this] { return Reply{.body = Body(recording_.Status())}; });
}

void Api::RecordingText(const Call& call) {
  Answer(call, [this]() -> Reply {
    if (recording_.Text().empty()) {
      return {.status = 404, .body = Body({{"error", "no se grabó nada"}})};
    }
    return {.body = recording_.Text(), .type = "application/x-ndjson; charset=utf-8"};
  });
}

// For people: the lines of the program's own trace.
void Api::TraceText(const Call& call) {
  Answer(call, [this]() -> Reply {
    std::string text;
    for (const History::KeptExchange& kept : history_.Exchanges()) text += kept.text + "\n";
    return {.body = text, .type = "text/plain; charset=utf-8"};
  });
}

}  // namespace impresora
