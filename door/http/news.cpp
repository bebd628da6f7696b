#include "http/news.hpp"

#include <utility>

#include "base/moment.hpp"

namespace puerta {
namespace {

constexpr int kAtATime = 100;

std::string Text(std::int64_t id, const std::string& kind, const Json& data) {
  return "id: " + std::to_string(id) + "\nevent: " + kind + "\ndata: " + LineOf(data) + "\n\n";
}

Json Told(const StoredEvent& stored) {
  Json told{{"suceso", stored.id},
            {"tipo", stored.event.kind},
            {"momento", MomentText(stored.moment)},
            {"datos", ParseJson(stored.event.data).value_or(Json::object())}};
  if (!stored.event.printer.empty()) told["impresora"] = stored.event.printer;
  return told;
}

}  // namespace

News::News(Store& store, const Clock& clock, std::int64_t after, bool asked, std::string printer)
    : store_(store), clock_(clock), last_(after), asked_(asked), printer_(std::move(printer)) {}

// Whoever comes back after what is no longer kept is told so, once.
std::string News::Gap(std::int64_t next) {
  if (!std::exchange(asked_, false) || next <= last_ + 1) return "";
  const Json told{{"suceso", next - 1},
                  {"tipo", "perdidos"},
                  {"momento", MomentText(clock_.Now())},
                  {"datos", Json::object()}};
  return Text(next - 1, "perdidos", told);
}

std::string News::Take() {
  std::string text;
  for (const auto& stored : store_.EventsAfter(last_, kAtATime)) {
    text += Gap(stored.id);
    last_ = stored.id;
    if (!printer_.empty() && stored.event.printer != printer_) continue;
    text += Text(stored.id, stored.event.kind, Told(stored));
  }
  return text;
}

}  // namespace puerta
