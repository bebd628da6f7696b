#include <array>
#include <utility>
#include <vector>

#include "machine/controls.hpp"
#include "panel/api.hpp"
#include "panel/expectation.hpp"
#include "panel/state_json.hpp"
#include "pictures/paper_folder.hpp"

namespace impresora {
namespace {

std::string Quoted(std::string_view text) {
  return "«" + std::string(text) + "»";
}

std::optional<std::int64_t> ValueOf(const Control& control, const Json& value) {
  if (value.is_boolean()) return ReadControl(control, value.get<bool>() ? "si" : "no");
  if (value.is_number_integer()) return ReadControl(control, OneLine(value));
  if (value.is_string()) return ReadControl(control, value.get<std::string>());
  return std::nullopt;
}

std::optional<Forced> ForcedOf(const Json& value) {
  if (value.is_null()) return Forced::kNo;
  if (!value.is_boolean()) return std::nullopt;
  return value.get<bool>() ? Forced::kOn : Forced::kOff;
}

// The changes that a body asks for, read whole before the first is made.
struct Changes {
  std::vector<std::pair<const Control*, std::int64_t>> controls;
  std::vector<std::pair<const Lamp*, Forced>> lamps;
  std::string wrong;
};

void ReadChange(const std::string& key, const Json& value, Changes& changes) {
  if (const Control* const control = FindControl(key)) {
    const auto read = ValueOf(*control, value);
    if (!read) changes.wrong = "valor no válido para " + Quoted(key) + ": " + OneLine(value);
    if (read) changes.controls.emplace_back(control, *read);
  } else if (const Lamp* const lamp = FindLamp(key)) {
    const auto forced = ForcedOf(value);
    if (!forced) changes.wrong = Quoted(key) + " admite true, false o null";
    if (forced) changes.lamps.emplace_back(lamp, *forced);
  } else {
    changes.wrong = "no hay ningún control " + Quoted(key);
  }
}

std::string WordsOf(const std::vector<FaultMistake>& mistakes) {
  std::string words;
  for (const FaultMistake& mistake : mistakes) {
    words += (words.empty() ? "" : "\n") + mistake.Words();
  }
  return words;
}

std::string ErrorJson(const std::string& words) {
  return OneLine({{"error", words}}) + "\n";
}

constexpr const char* kNoObject = "el cuerpo tiene que ser un objeto JSON";

}  // namespace

// Hostile depth is a mistake like any other.
std::optional<Json> ReadObject(const std::string& body) {
  constexpr int kDeepest = 32;
  int depth = 0;
  bool too_deep = false;
  const auto watch = [&](int level, Json::parse_event_t, Json&) {
    depth = level;
    too_deep = too_deep || depth > kDeepest;
    return !too_deep;
  };
  Json json = Json::parse(body, watch, false);
  if (too_deep || json.is_discarded() || !json.is_object()) return std::nullopt;
  return json;
}

// The other observers hear of it from the session, the panel's own pages at once.
void Api::Changed() {
  session_.Touched();
  feed_.StateChanged();
}

Api::Reply Api::SetControlsNow(const std::string& body) {
  const auto json = ReadObject(body);
  if (!json) return {.status = 400, .body = ErrorJson(kNoObject)};
  Changes changes;
  for (const auto& [key, value] : json->items()) {
    ReadChange(key, value, changes);
    if (!changes.wrong.empty()) return {.status = 400, .body = ErrorJson(changes.wrong)};
  }
  Printer& printer = session_.GetPrinter();
  for (const auto& [control, value] : changes.controls) printer.Set(*control, value);
  for (const auto& [lamp, forced] : changes.lamps) ForceLamp(printer.GetMachine(), *lamp, forced);
  Changed();
  return StateReply();
}

void Api::SetControls(const Call& call) {
  Answer(call, [this, body = call.request.body] { return SetControlsNow(body); });
}

void Api::AddFaults(const Call& call) {
  Answer(call, [this, body = call.request.body]() -> Reply {
    const auto json = ReadObject(body);
    const bool given = json && json->contains("reglas") && json->at("reglas").is_string();
    if (!given) {
      return {.status = 400, .body = ErrorJson("se espera {\"reglas\": \"...\"}, una por renglón")};
    }
    const auto wrong = session_.Faults().Add(json->at("reglas").get<std::string>());
    if (!wrong.empty()) return {.status = 400, .body = ErrorJson(WordsOf(wrong))};
    Changed();
    return {.body = OneLine(FaultRulesJson(session_.Faults())) + "\n"};
  });
}

void Api::RemoveFault(const Call& call) {
  Answer(call, [this, number = call.number]() -> Reply {
    if (!session_.Faults().Remove(number)) {
      return {.status = 404, .body = ErrorJson("no hay ninguna regla con ese número")};
    }
    Changed();
    return {.body = OneLine(FaultRulesJson(session_.Faults())) + "\n"};
  });
}

void Api::RemoveAllFaults(const Call& call) {
  Answer(call, [this]() -> Reply {
    session_.Faults().Clear();
    Changed();
    return {.body = OneLine(FaultRulesJson(session_.Faults())) + "\n"};
  });
}

void Api::PowerCycle(const Call& call) {
  Answer(call, [this, body = call.request.body]() -> Reply {
    const auto json = body.empty() ? std::optional(Json::object()) : ReadObject(body);
    if (!json || !json->empty()) {
      return {.status = 400, .body = ErrorJson("se espera un cuerpo vacío o {}")};
    }
    host_.power_cycle();
    Changed();
    return StateReply();
  });
}

Api::Reply Api::CheckNow(const std::string& body) {
  const auto json = ReadObject(body);
  if (!json) return {.status = 400, .body = ErrorJson(kNoObject)};
  const Json state = StateJson(session_, history_);
  std::vector<std::string> found = Differences(*json, state);
  const KeptDocument* const last = history_.FindDocument(0);
  const std::size_t columns = session_.GetPrinter().GetSettings().PaperColumns();
  const std::string paper = last != nullptr ? impresora::PaperText(last->paper, columns) : "";
  for (std::string& words : PaperDifferences(*json, paper)) found.push_back(std::move(words));
  const Json reply{{"correcto", found.empty()}, {"diferencias", found}};
  return {.status = found.empty() ? 200 : 409, .body = OneLine(reply) + "\n"};
}

void Api::Check(const Call& call) {
  Answer(call, [this, body = call.request.body] { return CheckNow(body); });
}

}  // namespace impresora
