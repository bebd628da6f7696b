#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace impresora::prueba {

// A program that asks the panel in HTTP as it goes over the line, with nothing in between.

using HeadFields = std::vector<std::pair<std::string, std::string>>;

struct PanelAnswer {
  int status = 0;
  std::string head;  // its lines behind the first, each with its end
  std::string body;

  // The value behind that name, or nothing.
  std::optional<std::string> Field(const std::string& name) const {
    const std::size_t at = ("\r\n" + head).find("\r\n" + name + ": ");
    if (at == std::string::npos) return std::nullopt;
    const std::size_t from = at + name.size() + 2;
    return head.substr(from, head.find("\r\n", from) - from);
  }
};

// A connection of its own to a port of this machine.
class PanelLine {
 public:
  explicit PanelLine(int port) : fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const timeval patience{.tv_sec = 20, .tv_usec = 0};
    setsockopt(fd_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected_ = connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }
  PanelLine(const PanelLine&) = delete;
  PanelLine& operator=(const PanelLine&) = delete;
  ~PanelLine() { close(fd_); }

  bool Connected() const { return connected_; }
  void Send(std::string_view bytes) const { send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL); }
  void SayNoMore() const { shutdown(fd_, SHUT_WR); }

  // What comes next; nothing at the end.
  std::string Read() const {
    std::array<char, 4096> buffer{};
    const ssize_t count = recv(fd_, buffer.data(), buffer.size(), 0);
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
  }

  std::string ReadAll() const {
    std::string all;
    for (std::string more = Read(); !more.empty(); more = Read()) all += more;
    return all;
  }

 private:
  int fd_;
  bool connected_;
};

inline std::string RequestText(std::string_view method, std::string_view path, int port,
                               const HeadFields& fields, std::string_view body) {
  std::string text(method);
  text.append(" ").append(path).append(" HTTP/1.1\r\n");
  HeadFields own{{"Host", "127.0.0.1:" + std::to_string(port)}};
  if (method == "POST") {
    own.emplace_back("Content-Type", "application/json");
    own.emplace_back("Content-Length", std::to_string(body.size()));
  }
  for (const auto& [name, value] : fields) {
    std::erase_if(own, [&name = name](const auto& field) { return field.first == name; });
    own.emplace_back(name, value);
  }
  for (const auto& [name, value] : own) text += name + ": " + value + "\r\n";
  return text.append("\r\n").append(body);
}

// Nothing when the bytes are no answer, or not as long as it says of itself.
inline std::optional<PanelAnswer> ReadAnswer(const std::string& bytes) {
  const std::size_t line = bytes.find("\r\n");
  const std::size_t end = bytes.find("\r\n\r\n");
  if (!bytes.starts_with("HTTP/1.1 ") || end == std::string::npos) return std::nullopt;
  PanelAnswer answer{.status = std::stoi(bytes.substr(9)),
                     .head = bytes.substr(line + 2, end - line),
                     .body = bytes.substr(end + 4)};
  const auto length = answer.Field("Content-Length");
  if (length && std::stoul(*length) != answer.body.size()) return std::nullopt;
  return answer;
}

inline std::optional<PanelAnswer> AskPanel(int port, std::string_view method, std::string_view path,
                                           const HeadFields& fields = {},
                                           std::string_view body = {}) {
  const PanelLine line(port);
  if (!line.Connected()) return std::nullopt;
  line.Send(RequestText(method, path, port, fields, body));
  return ReadAnswer(line.ReadAll());
}

// Takes what has come whole of an answer in pieces; false behind the last of them.
inline bool TakePieces(std::string& bytes, std::string& text) {
  while (true) {
    const std::size_t end = bytes.find("\r\n");
    if (end == std::string::npos) return true;
    const std::size_t size = std::stoul(bytes.substr(0, end), nullptr, 16);
    if (size == 0) return false;
    if (bytes.size() < end + 2 + size + 2) return true;
    text += bytes.substr(end + 2, size);
    bytes.erase(0, end + 2 + size + 2);
  }
}

// Listens to what the panel tells until `heard`, called with all of it, says that it is enough.
inline void ListenToPanel(int port, const HeadFields& fields,
                          const std::function<bool(const std::string&)>& enough) {
  const PanelLine line(port);
  line.Send(RequestText("GET", "/api/eventos", port, fields, {}));
  std::string bytes;
  while (bytes.find("\r\n\r\n") == std::string::npos) {
    const std::string more = line.Read();
    if (more.empty()) return;
    bytes += more;
  }
  bytes.erase(0, bytes.find("\r\n\r\n") + 4);
  std::string text;
  while (TakePieces(bytes, text) && !enough(text)) {
    const std::string more = line.Read();
    if (more.empty()) return;
    bytes += more;
  }
}

}  // namespace impresora::prueba
