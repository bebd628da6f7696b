#include <charconv>
#include <chrono>
#include <memory>

#include "panel/api.hpp"
#include "panel/web_server.hpp"

namespace impresora {
namespace {

constexpr auto kLookUp = std::chrono::seconds(1);      // whether the listener is still there
constexpr auto kKeepAlive = std::chrono::seconds(10);  // so that nothing in between gives up
constexpr std::string_view kFirstWords = "retry: 1000\n\n";

std::string EventText(std::string_view name, std::uint64_t id, std::string_view data) {
  std::string text = "id: " + std::to_string(id) + "\nevent: ";
  return text.append(name).append("\ndata: ").append(data).append("\n\n");
}

// A listener that comes back says where it was; a new one begins here. What is no number is from
// no printer of ours: everything anew.
Feed::Place PlaceOf(const httplib::Request& request, const Feed& feed) {
  Feed::Place place = feed.Now();
  place.state = 0;
  if (!request.has_header("Last-Event-ID")) return place;
  const std::string text = request.get_header_value("Last-Event-ID");
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, place.id);
  if (read.ec != std::errc() || read.ptr != end) place.id = ~std::uint64_t{0};
  return place;
}

}  // namespace

// All that is new, and the state once behind it however often it changed.
bool Api::SendNews(httplib::DataSink& sink, Feed::Place& place) {
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
  return text.empty() || sink.write(text.data(), text.size());
}

void Api::Events(const Call& call) {
  if (!feed_.Enter()) {
    call.response.status = 503;
    call.response.set_content(WebServer::ErrorBody("ya hay demasiadas páginas abiertas"),
                              "application/json; charset=utf-8");
    return;
  }
  struct Listener {
    Feed::Place place;
    std::chrono::steady_clock::time_point spoken{};
  };
  const auto listener = std::make_shared<Listener>();
  listener->place = PlaceOf(call.request, feed_);
  const auto tell = [this, listener](std::size_t offset, httplib::DataSink& sink) {
    if (offset == 0) return sink.write(kFirstWords.data(), kFirstWords.size());
    const Feed::Place before = listener->place;
    try {
      if (!sink.is_writable() || !SendNews(sink, listener->place)) return false;
    } catch (const LoopGone&) {
      return false;
    }
    const auto now = std::chrono::steady_clock::now();
    const bool spoke = before.id != listener->place.id || before.state != listener->place.state;
    if (spoke) listener->spoken = now;
    if (now - listener->spoken < kKeepAlive) return true;
    listener->spoken = now;
    return sink.write(": sigo\n\n", 8);
  };
  call.response.set_chunked_content_provider("text/event-stream; charset=utf-8", tell,
                                             [this](bool) { feed_.Leave(); });
}

}  // namespace impresora
