#include <charconv>
#include <chrono>
#include <memory>

#include "panel/api.hpp"

namespace impresora {
namespace {

constexpr auto kLookUp = std::chrono::seconds(1);      // whether the listener is still there
constexpr auto kKeepAlive = std::chrono::seconds(10);  // so that nothing in between gives up
constexpr std::string_view kFirstWords = "retry: 1000\n\n";
constexpr std::string_view kStillHere = ": sigo\n\n";

std::string EventText(std::string_view name, std::uint64_t id, std::string_view data) {
  std::string text = "id: " + std::to_string(id) + "\nevent: ";
  return text.append(name).append("\ndata: ").append(data).append("\n\n");
}

// A listener that comes back says where it was; a new one begins here. What is no number is from
// no printer of ours: everything anew.
Feed::Place PlaceOf(const Request& request, const Feed& feed) {
  Feed::Place place = feed.Now();
  place.state = 0;
  if (!request.last_event_id) return place;
  const std::string& text = *request.last_event_id;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, place.id);
  if (read.ec != std::errc() || read.ptr != end) place.id = ~std::uint64_t{0};
  return place;
}

}  // namespace

// All that is new, and the state once behind it however often it changed.
bool Api::SendNews(Listener& listener, Feed::Place& place) {
  const Feed::News news = feed_.Wait(place, kLookUp);
  if (feed_.Closed()) return false;
  std::string text;
  if (news.gap) text += EventText("salto", news.place.id, "{}");
  for (const PanelEvent& event : news.events) text += EventText(event.name, event.id, event.data);
  if (news.place.state != place.state) {
    std::string state = loop_.Ask<Reply>([this] { return StateReply(); }).body;
    state.pop_back();
    text += EventText("estado", news.place.id, state);
  }
  place = news.place;
  return text.empty() || listener.Tell(text);
}

void Api::TellNews(Listener& listener, Feed::Place place) {
  auto spoken = std::chrono::steady_clock::now() - kKeepAlive;
  while (listener.IsThere()) {
    const Feed::Place before = place;
    if (!SendNews(listener, place)) return;
    const auto now = std::chrono::steady_clock::now();
    if (before.id != place.id || before.state != place.state) spoken = now;
    if (now - spoken < kKeepAlive) continue;
    spoken = now;
    if (!listener.Tell(kStillHere)) return;
  }
}

void Api::Events(const Call& call) {
  if (!feed_.Enter()) {
    call.response.status = 503;
    call.response.body = ErrorBody("ya hay demasiadas páginas abiertas");
    call.response.type = "application/json; charset=utf-8";
    return;
  }
  // Left when nobody has the answer any longer, whether it was ever told or not.
  const std::shared_ptr<void> seat(nullptr, [this](void*) { feed_.Leave(); });
  call.response.type = "text/event-stream; charset=utf-8";
  call.response.stream = [this, seat, place = PlaceOf(call.request, feed_)](Listener& listener) {
    try {
      if (listener.Tell(kFirstWords)) TellNews(listener, place);
    } catch (const LoopGone&) {
      // The printer is about to end, and so is what is told of it.
    }
  };
}

}  // namespace impresora
