// The panel's requests from their first byte on: head, gate, HTTP library and the answers to every
// address, without sockets.
#include <array>
#include <functional>
#include <optional>
#include <string>

#include "fuzz/input.hpp"
#include "fuzz/till.hpp"
#include "line/session.hpp"
#include "panel/api.hpp"
#include "panel/gate.hpp"
#include "panel/head.hpp"
#include "panel/http.hpp"
#include "panel/json_text.hpp"
#include "panel/kept_recording.hpp"
#include "panel/panel.hpp"

namespace impresora::fuzzing {
namespace {

using fuzz::Input;
using fuzz::Require;

// Whoever listens for news leaves with the first of them.
class Ear : public Listener {
 public:
  explicit Ear(Feed& feed) : feed_(feed) {}

  bool IsThere() override { return true; }
  bool Tell(std::string_view text) override {
    heard += Chunk(text);
    if (text.find("event: ") != std::string_view::npos) feed_.Close();
    return true;
  }

  std::string heard;

 private:
  Feed& feed_;
};

// A printer with a panel, as each run begins with; the loop is the caller itself.
class Desk {
 public:
  Desk()
      : session_(Settings{}, clock_),
        history_(feed_),
        loop_([](const std::function<void()>& work) { work(); }),
        api_({.session = session_,
              .post = [](const std::function<void()>& work) { work(); },
              .power_cycle = [this] { session_.PowerCycle(); }},
             history_, recording_, feed_, loop_) {
    session_.Attach(history_);
    session_.Attach(recording_);
  }
  ~Desk() {
    session_.Detach(recording_);
    session_.Detach(history_);
  }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // A document that is done, its paper and one exchange.
  void PrintTicket() {
    session_.Receive(Frame(0x20, "*\x1cN"), now_);
    session_.Advance(now_);
    session_.Tell();
    history_.Printed({.text = "TOTAL  21,00"});
    history_.Closed({.ordinal = 1, .kind = "TIQUE", .letter = 'B', .number = 1, .total = 2100});
  }

  Api& api() { return api_; }
  Feed& feed() { return feed_; }

 private:
  WallAtInput clock_;
  Session session_;
  Feed feed_;
  History history_;
  KeptRecording recording_{64 << 10};
  LoopCalls loop_;
  Api api_;
  Micros now_ = std::chrono::hours(1);
};

// What the panel's server does with a request that the gate has let in.
std::string Serve(Desk& desk, const std::string& bytes) {
  const auto request = ReadRequest(bytes);
  if (!request) return "HTTP/1.1 400 \r\n\r\n";
  Response response;
  desk.api().Handle(*request, response);
  std::string answer = ToBytes(response, request->method == "HEAD");
  if (!response.stream) return answer;
  Ear ear(desk.feed());
  response.stream(ear);
  return answer + ear.heard + Chunk("");
}

std::string StatusOf(const std::string& answer) {
  return answer.substr(0, answer.find(' ', 9)).substr(std::min<std::size_t>(answer.size(), 9));
}

void CheckAnswer(const std::string& answer, const Head& head) {
  Require(answer.starts_with("HTTP/1.1 "), "an answer in HTTP");
  const auto status = StatusOf(answer);
  Require(status.size() == 3 && status >= "200" && status < "600", "with a status");
  Require(status != "500" && status != "503", "and the panel is still well");
  const auto end = answer.find("\r\n\r\n");
  Require(end != std::string::npos, "fields and a body");
  const auto body = answer.substr(end + 4);
  const bool json = answer.find("application/json") < end && head.method != "HEAD";
  if (json) Require(Json::accept(body), "JSON that says so");
}

// What the gate lets in is clean: nothing in it can be read in two ways.
void CheckGate(const Head& head, const OwnAddress& own) {
  const auto clean = CleanedHead(head);
  const auto again = ParseHead(clean);
  Require(again.has_value(), "what is let in is a request");
  Require(again->method == head.method && again->target == head.target, "the same one");
  Require(CleanedHead(*again) == clean, "with nothing more to clean");
  Require(own.IsOwnHost(head.Value("host")), "for the panel itself");
  Require(head.target.size() <= kLongestTarget, "of a length worth reading");
  Require(clean.find('\0') == std::string::npos, "and without a zero");
}

// The first byte says how much of a request the input is: all of it, or what stands behind a head
// that the gate lets in; and whether there is a document.
std::string ReadRequest(Input& input) {
  static constexpr std::string_view kHost = "Host: 127.0.0.1:8080\r\n";
  static constexpr std::array<std::string_view, 8> kStarts{"GET /api/",
                                                           "POST /api/",
                                                           "DELETE /api/",
                                                           "HEAD /api/",
                                                           "POST /api/controles HTTP/1.1\r\n",
                                                           "POST /api/fallas HTTP/1.1\r\n",
                                                           "POST /api/verificar HTTP/1.1\r\n",
                                                           "GET /"};
  const auto form = input.Byte();
  if (form >= 128) return std::string(input.Rest());
  std::string request(kStarts[form % kStarts.size()]);
  const bool open = request.back() != '\n';
  if (open) request.append(input.Text(60)).append(" HTTP/1.1\r\n");
  request += kHost;
  if (form < 64) request.append(input.Text(60)).append("\r\n");
  const auto body = input.Rest();
  if (request.starts_with("POST")) {
    request += "Content-Type: application/json\r\nContent-Length: " + std::to_string(body.size());
    request += "\r\n";
  }
  return request.append("\r\n").append(body);
}

void Prepare(std::optional<Desk>& desk, bool printed) {
  desk.emplace();
  if (printed) desk->PrintTicket();
}

void Run(Input& input) {
  static const OwnAddress own("127.0.0.1", 8080);
  const bool printed = input.Below(8) == 1;
  const auto request = ReadRequest(input);
  const auto end = request.find("\r\n\r\n");
  if (end == std::string::npos || end + 4 > kLargestHead) return;
  const auto head = ParseHead(std::string_view(request).substr(0, end + 4));
  if (!head) return;
  if (const auto refusal = Judge(*head, own)) {
    return Require(refusal->status >= 400 && refusal->status < 500, "a refusal says why");
  }
  CheckGate(*head, own);
  // A look leaves the desk as it was.
  static std::array<std::optional<Desk>, 2> desks;
  auto& desk = desks[printed ? 1 : 0];
  if (!desk) Prepare(desk, printed);
  CheckAnswer(Serve(*desk, CleanedHead(*head) + request.substr(end + 4)), *head);
  const bool looked = head->method == "GET" || head->method == "HEAD";
  if (!looked || desk->feed().Closed()) desk.reset();
}

}  // namespace
}  // namespace impresora::fuzzing

FUZZ_TARGET(input) {
  impresora::fuzzing::Run(input);
}
