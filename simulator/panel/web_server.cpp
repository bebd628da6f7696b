#include "panel/web_server.hpp"

#include <sys/socket.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "panel/workers.hpp"

namespace impresora {
namespace {

constexpr std::size_t kThreads = 16;
constexpr std::size_t kPlaces = 32;
constexpr std::chrono::milliseconds kMoment(200);
constexpr std::chrono::milliseconds kShortMoment(10);

const httplib::Headers kHeaders{
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
     "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Cache-Control", "no-store"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
};

struct Reason {
  int status;
  std::string_view words;
};

constexpr std::array<Reason, 9> kReasons{{
    {400, "Bad Request"},
    {403, "Forbidden"},
    {405, "Method Not Allowed"},
    {408, "Request Timeout"},
    {411, "Length Required"},
    {413, "Payload Too Large"},
    {414, "URI Too Long"},
    {415, "Unsupported Media Type"},
    {431, "Request Header Fields Too Large"},
}};

std::string_view ReasonOf(int status) {
  for (const Reason& row : kReasons) {
    if (row.status == status) return row.words;
  }
  return "Service Unavailable";
}

// Another program may not come and share the port, as the library's own choice would let it.
void SetSocketOptions(socket_t fd) {
  const int yes = 1;
  setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

}  // namespace

WebServer::WebServer() {
  new_task_queue = [] { return new Workers(kThreads, kPlaces); };
  set_socket_options(SetSocketOptions);
  set_payload_max_length(kLargestBody);
  set_tcp_nodelay(true);
  set_default_headers(kHeaders);
}

WebServer::~WebServer() {
  Stop();
}

void WebServer::Bind(const std::string& host, int port) {
  const bool bound = port == 0 ? (port = bind_to_any_port(host)) > 0 : bind_to_port(host, port);
  if (!bound) {
    throw std::runtime_error("no se puede abrir el panel en " + host + ":" + std::to_string(port) +
                             ": no es una dirección de esta máquina, o está en uso");
  }
  own_.emplace(host, port);
}

void WebServer::Start() {
  if (!own_) throw std::runtime_error("el panel no tiene dirección");
  auto ended = std::make_shared<std::atomic<bool>>(false);
  thread_ = std::thread([this, ended] {
    listen_after_bind();
    *ended = true;
  });
  while (!is_running() && !*ended) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  if (!*ended) return;
  thread_.join();
  throw std::runtime_error("el panel no puede atender pedidos");
}

void WebServer::Stop() {
  if (!thread_.joinable()) return;
  stop();
  thread_.join();
}

std::string WebServer::ErrorBody(std::string_view words) {
  return "{\"error\": \"" + std::string(words) + "\"}\n";
}

void WebServer::Refuse(Connection& connection, const Refusal& refusal) {
  const std::string body = ErrorBody(refusal.words);
  std::string answer = "HTTP/1.1 " + std::to_string(refusal.status) + " ";
  answer.append(ReasonOf(refusal.status)).append("\r\n");
  for (const auto& [name, value] : kHeaders)
    answer.append(name).append(": ").append(value) += "\r\n";
  if (refusal.status == 405) answer += "Allow: GET, HEAD, POST, DELETE\r\n";
  answer += "Content-Type: application/json\r\nConnection: close\r\nContent-Length: " +
            std::to_string(body.size()) + "\r\n\r\n" + body;
  connection.write(answer.data(), answer.size());
}

// Nothing when the request may go on; `gone` when there is nobody to answer.
std::optional<Refusal> WebServer::Admit(Connection& connection, bool& gone) {
  if (Workers::TurnedAway()) return Refusal{503, "demasiados pedidos a la vez"};
  std::string bytes;
  switch (connection.ReadHead(bytes, kLargestHead)) {
    case Connection::HeadState::kWhole:
      break;
    case Connection::HeadState::kLate:
      return Refusal{408, "el pedido no llegó entero"};
    case Connection::HeadState::kTooLarge:
      return Refusal{431, "el encabezado pasa de 16 KiB"};
    case Connection::HeadState::kGone:
      gone = true;
      return std::nullopt;
  }
  const auto head = ParseHead(bytes);
  if (!head) return Refusal{400, "esto no es un pedido HTTP"};
  if (const auto refusal = Judge(*head, *own_)) return refusal;
  if (head->Count("expect") > 0) connection.write("HTTP/1.1 100 Continue\r\n\r\n");
  connection.PutBack(CleanedHead(*head));
  return std::nullopt;
}

bool WebServer::process_and_close_socket(socket_t fd) {
  Connection connection(fd);
  bool gone = false;
  const auto refusal = Admit(connection, gone);
  if (gone) return false;
  bool closed = false;
  if (refusal) {
    Refuse(connection, *refusal);
  } else {
    process_request(connection, true, closed, nullptr);
  }
  connection.Finish(Workers::TurnedAway() ? kShortMoment : kMoment);
  return true;
}

}  // namespace impresora
