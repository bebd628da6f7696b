#include "panel/web_server.hpp"

#include <charconv>
#include <chrono>
#include <cstddef>
#include <string_view>
#include <utility>

namespace impresora {
namespace {

constexpr std::size_t kThreads = 16;
constexpr std::size_t kPlaces = 32;
constexpr std::chrono::milliseconds kFarewell(200);
constexpr std::chrono::milliseconds kShortMoment(10);

constexpr Refusal kTooSlow{408, "el pedido no llegó entero"};
constexpr Refusal kLongHead{431, "el encabezado pasa de 16 KiB"};
constexpr Refusal kNoRequest{400, "esto no es un pedido HTTP"};
constexpr Refusal kTorn{400, "el cuerpo no llegó entero"};
constexpr Refusal kTooMany{503, "demasiados pedidos a la vez"};

bool TurnAway(Connection& connection, const Refusal& refusal) {
  Response response{.status = refusal.status,
                    .type = "application/json",
                    .body = ErrorBody(refusal.words),
                    .allow = refusal.status == 405 ? "GET, HEAD, POST, DELETE" : "",
                    .stream = {}};
  return connection.Write(ToBytes(response, false));
}

// The gate has seen that it is a number, and not a large one.
std::size_t BodySize(const Head& head) {
  const std::string_view text = head.Value("content-length");
  std::size_t size = 0;
  std::from_chars(text.data(), text.data() + text.size(), size);
  return size;
}

}  // namespace

WebServer::WebServer(const DoorSettings& settings, Handler handler)
    : door_(settings),
      own_(settings.host, door_.Port()),
      handler_(std::move(handler)),
      workers_(kThreads, kPlaces) {}

WebServer::~WebServer() {
  Stop();
}

void WebServer::Start() {
  thread_ = std::thread([this] {
    door_.Receive([this](const std::shared_ptr<Connection>& connection) { Welcome(connection); });
  });
}

void WebServer::Stop() {
  if (!thread_.joinable()) return;
  door_.Close();
  thread_.join();
  workers_.End();
}

// Who finds no room gets a short word of regret.
void WebServer::Welcome(const std::shared_ptr<Connection>& connection) {
  if (workers_.Take([this, connection] { Serve(*connection); })) return;
  TurnAway(*connection, kTooMany);
  connection->Finish(kShortMoment);
}

void WebServer::Serve(Connection& connection) const {
  if (Answer(connection)) connection.Finish(kFarewell);
}

// False when there is nobody to answer.
bool WebServer::Answer(Connection& connection) const {
  std::string bytes;
  switch (connection.ReadHead(bytes, kLargestHead)) {
    case Connection::State::kWhole:
      break;
    case Connection::State::kLate:
      return TurnAway(connection, kTooSlow);
    case Connection::State::kTooLarge:
      return TurnAway(connection, kLongHead);
    case Connection::State::kGone:
      return false;
  }
  const auto head = ParseHead(bytes);
  if (!head) return TurnAway(connection, kNoRequest);
  if (const auto refusal = Judge(*head, own_)) return TurnAway(connection, *refusal);
  return AnswerRequest(connection, *head);
}

bool WebServer::AnswerRequest(Connection& connection, const Head& head) const {
  if (head.Count("expect") > 0) connection.Write("HTTP/1.1 100 Continue\r\n\r\n");
  std::string body;
  if (connection.ReadBody(body, BodySize(head)) != Connection::State::kWhole) {
    return TurnAway(connection, kTorn);
  }
  const auto request = ReadRequest(CleanedHead(head) + body);
  if (!request) return TurnAway(connection, kNoRequest);
  Response response;
  handler_(*request, response);
  if (!connection.Write(ToBytes(response, request->method == "HEAD"))) return false;
  if (!response.stream) return true;
  response.stream(connection);
  return connection.Write(Chunk(""));
}

}  // namespace impresora
