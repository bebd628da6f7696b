#include <memory>
#include <vector>

#include "loop.hpp"
#include "panel/web_server.hpp"

namespace impresora {
namespace {

using prueba::PanelLine;

class PanelServer : public prueba::Desk {
 protected:
  // Raw bytes there, everything that comes back.
  std::string Say(const std::string& bytes) const {
    const PanelLine line(port);
    EXPECT_TRUE(line.Connected());
    line.Send(bytes);
    line.SayNoMore();
    return line.ReadAll();
  }

  static std::string StatusLine(const std::string& answer) {
    return answer.substr(0, answer.find("\r\n"));
  }
};

TEST(WebServer, SaysWhenItsAddressCannotBeHad) {
  const WebServer first({.host = "127.0.0.1"}, {});
  const int taken = std::stoi(first.Own().Url().substr(17));
  for (const DoorSettings& settings :
       {DoorSettings{.host = "127.0.0.1", .port = taken},
        DoorSettings{.host = "127.0.0.1", .port = taken, .reuse_port = true},
        DoorSettings{.host = "192.0.2.1"}, DoorSettings{.host = "no es un nombre"}}) {
    try {
      const WebServer server(settings, {});
      ADD_FAILURE() << settings.host;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "no se puede abrir el panel en " + settings.host + ":" +
                                  std::to_string(settings.port) +
                                  ": no es una dirección de esta máquina, o está en uso");
    }
  }
}

TEST(WebServer, OneThatWasNeverBegunEndsAllTheSame) {
  WebServer server({.host = "127.0.0.1"}, {});
  server.Stop();
  server.Stop();
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
  std::vector<std::unique_ptr<PanelLine>> silent;
  for (int i = 0; i < 60; ++i) silent.push_back(std::make_unique<PanelLine>(port));
  const std::string answer = Say("GET /api/estado HTTP/1.1\r\nHost: " + own + "\r\n\r\n");
  EXPECT_EQ(StatusLine(answer), "HTTP/1.1 503 Service Unavailable");
  silent.clear();
  for (int tries = 0; tries < 100; ++tries) {
    const auto again = Get("/api/estado");
    if (again && again->status == 200) return;
  }
  FAIL() << "the panel did not recover";
}

}  // namespace
}  // namespace impresora
