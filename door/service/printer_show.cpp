// What is told of a printer: how it is, what it said, what wants a person.
#include "base/moment.hpp"
#include "service/printer.hpp"

namespace puerta {

void Printer::News(const Json& told) {
  if (told.contains("aviso")) {
    return Alarm(IntegerOf(told["aviso"], "causa"), TextOf(told["aviso"], "texto"));
  }
  if (told_.is_object() && told == told_["dicho"]) return;
  Json data = told;
  data["impresora"] = id_;
  data["momento"] = MomentText(world_.clock.Now());
  told_ = {{"dicho", told}, {"estado", data}};
  world_.store.Add({.printer = id_, .kind = "estado", .data = LineOf(data), .publish = true},
                   world_.clock.Now());
  world_.listener.OnNews();
}

void Printer::Alarm(std::int64_t cause, const std::string& words) {
  Guarded([&] {
    const Json data{{"causa", cause}, {"texto", words}};
    world_.store.Add({.printer = id_, .kind = "alarma", .data = LineOf(data), .publish = true},
                     world_.clock.Now());
    world_.listener.OnNews();
  });
}

std::string_view Printer::Connection() const {
  const bool away = phase_ == Phase::kAway || phase_ == Phase::kStarting;
  if (away) return failures_ >= kStopped ? "detenida" : "arrancando";
  if (IsBusy()) return "imprimiendo";
  const bool silent = told_.is_object() && !told_["estado"].value("contesta", true);
  return doubts_ > 0 || silent ? "sin_respuesta" : "lista";
}

void Printer::TellConnection() {
  if (connection_ == Connection()) return;
  connection_ = Connection();
  Guarded([this] {
    world_.store.Add({.printer = id_, .kind = "impresora", .data = LineOf(Show())},
                     world_.clock.Now());
    world_.listener.OnNews();
  });
}

Json Printer::Show() const {
  Json shown{{"id", id_}, {"conexion", Connection()}, {"causa", 0}, {"texto", ""}};
  for (const auto* fact : {"modelo", "familia"}) {
    const auto known = TextOf(facts_, fact);
    if (!known.empty()) shown[fact] = known;
  }
  if (failures_ >= kStopped) {
    shown["causa"] = kInternal;
    shown["texto"] = why_;
  } else if (told_.is_object()) {
    shown["causa"] = IntegerOf(told_["estado"], "causa");
    shown["texto"] = TextOf(told_["estado"], "texto");
  }
  if (told_.is_object()) shown["estado"] = told_["estado"];
  shown["en_cola"] = world_.store.Waiting(id_);
  shown["pendientes"] = world_.store.Interrupted(id_).size() - (phase_ == Phase::kPrinting ? 1 : 0);
  if (IsBusy()) shown["trabajo"] = job_;
  return shown;
}

}  // namespace puerta
