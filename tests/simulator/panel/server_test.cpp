#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <vector>

#include "loop.hpp"
#include "panel/web_server.hpp"

namespace impresora {
namespace {

class PanelServer : public prueba::Desk {
 protected:
  int Connect() {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return fd;
  }

  static std::string ReadAll(int fd) {
    std::string all;
    std::array<char, 4096> buffer{};
    while (true) {
      const ssize_t count = recv(fd, buffer.data(), buffer.size(), 0);
      if (count <= 0) break;
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(fd);
    return all;
  }

  // Raw bytes there, everything that comes back.
  std::string Say(const std::string& bytes) {
    const int fd = Connect();
    EXPECT_EQ(send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL), std::ssize(bytes));
    shutdown(fd, SHUT_WR);
    return ReadAll(fd);
  }

  static std::string StatusLine(const std::string& answer) {
    return answer.substr(0, answer.find("\r\n"));
  }
};

TEST(WebServer, SaysSoWhenItHasNoAddress) {
  WebServer without_address;
  EXPECT_THROW(without_address.Start(), std::runtime_error);
}

TEST(WebServer, ListeningThatFailsAtOnceIsNotWaitedForForEver) {
  for (int times = 0; times < 20; ++times) {
    WebServer server;
    int door = -1;
    server.set_socket_options([&door](socket_t fd) { door = fd; });
    server.Bind("127.0.0.1", 0);
    shutdown(door, SHUT_RDWR);
    try {
      server.Start();
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "el panel no puede atender pedidos");
    }
  }
}

TEST_F(PanelServer, NoFileOfTheMachineIsServed) {
  for (const char* const path :
       {"/etc/passwd", "/../../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "/..%2f..%2fetc/passwd",
        "//etc/passwd", "/panel.css/../../etc/passwd", "/web/index.html", "/index.html",
        "/api/documentos/1/../../../etc/passwd"}) {
    const std::string answer =
        Say("GET " + std::string(path) + " HTTP/1.1\r\nHost: " + own + "\r\n\r\n");
    EXPECT_EQ(StatusLine(answer), "HTTP/1.1 404 Not Found") << path;
  }
}

TEST_F(PanelServer, HostileRequestsGetAnAnswerAndDoNoHarm) {
  const std::string host = "Host: " + own + "\r\n";
  const struct {
    const char* words;
    std::string bytes;
    const char* status;
  } rows[] = {
      {"headers without end", "GET / HTTP/1.1\r\n" + host + "X: " + std::string(40'000, 'a'),
       "HTTP/1.1 431 Request Header Fields Too Large"},
      {"no HTTP at all", "hola\r\n\r\n", "HTTP/1.1 400 Bad Request"},
      {"zeros", std::string(100, '\0') + "\r\n\r\n", "HTTP/1.1 400 Bad Request"},
      {"a body that never comes whole",
       "POST /api/controles HTTP/1.1\r\n" + host +
           "Content-Type: application/json\r\nContent-Length: 100\r\n\r\n{}",
       "HTTP/1.1 400 Bad Request"},
      {"JSON as deep as the sea",
       "POST /api/controles HTTP/1.1\r\n" + host +
           "Content-Type: application/json\r\nContent-Length: 60000\r\n\r\n" +
           std::string(60'000, '['),
       "HTTP/1.1 400 Bad Request"},
      {"a big body",
       "POST /api/controles HTTP/1.1\r\n" + host +
           "Content-Type: application/json\r\nContent-Length: 1000000\r\n\r\n",
       "HTTP/1.1 413 Payload Too Large"},
  };
  for (const auto& row : rows) EXPECT_EQ(StatusLine(Say(row.bytes)), row.status) << row.words;
  EXPECT_EQ(Say(""), "");
  EXPECT_EQ(Get("/api/estado")->status, 200);
}

TEST_F(PanelServer, TooManyConnectionsAreTurnedAwayAndTheRestGoOn) {
  std::vector<int> silent;
  for (int i = 0; i < 60; ++i) silent.push_back(Connect());
  const std::string answer = Say("GET /api/estado HTTP/1.1\r\nHost: " + own + "\r\n\r\n");
  EXPECT_EQ(StatusLine(answer), "HTTP/1.1 503 Service Unavailable");
  for (const int fd : silent) close(fd);
  for (int tries = 0; tries < 100; ++tries) {
    const auto again = Get("/api/estado");
    if (again && again->status == 200) return;
  }
  FAIL() << "the panel did not recover";
}

}  // namespace
}  // namespace impresora
