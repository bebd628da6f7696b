// What the panel answers: stories/panel/.
#include <algorithm>

#include "../story_test.hpp"
#include "loop.hpp"
#include "panel/gate.hpp"

namespace impresora {
namespace {

using prueba::Split;
using prueba::Unescaped;

// "POST /api/controles {...} > 200" asks the panel; "is" and its kin look at what it answered. Other
// commands go to the printer.
class PanelPlayer : public prueba::Player {
 public:
  PanelPlayer() {
    verbs_["is"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      const Json::json_pointer where("/" + std::string(rest.substr(0, blank)));
      const Json body = Json::parse(answer_.body, nullptr, false);
      const std::string got = body.contains(where) ? body.at(where).dump() : "nothing there";
      Expect(rest.substr(blank + 1), got);
    };
    verbs_["rows"] = [this](std::string_view count) {
      Expect(count, std::to_string(Json::parse(answer_.body, nullptr, false).size()));
    };
    verbs_["says"] = [this](std::string_view text) {
      Expect(answer_.body.find(text) != std::string::npos, text, answer_.body);
    };
    verbs_["lacks"] = [this](std::string_view text) {
      Expect(answer_.body.find(text) == std::string::npos, "nothing of " + std::string(text),
             answer_.body);
    };
    verbs_["body"] = [this](std::string_view text) { Expect(text, answer_.body); };
    verbs_["heard"] = [this](std::string_view text) {
      const std::string heard = prueba::Visible(heard_);
      Expect(heard.find(text) != std::string::npos, text, heard);
    };
    verbs_["unchanged"] = [this](std::string_view) {
      Expect(
          "0080",
          Json::parse(desk_->Get("/api/estado")->body)["impresora"]["palabra"].get<std::string>());
    };
    verbs_["forbids"] = [this](std::string_view) {
      for (const char* const line : {"X-Content-Type-Options: nosniff", "Cache-Control: no-store",
                                     "Access-Control-Allow-Origin: none"}) {
        verbs_.at("header")(line);
      }
      const std::string policy = answer_.Field("Content-Security-Policy").value_or("none");
      Expect(policy.find("default-src 'none'") != std::string::npos, "a policy", policy);
    };
    verbs_["header"] = [this](std::string_view rest) {
      const std::size_t colon = rest.find(": ");
      const std::string name(rest.substr(0, colon));
      Expect(rest.substr(colon + 2), answer_.Field(name).value_or("none"));
    };
    verbs_["lamp"] = [this](std::string_view rest) {
      const auto words = Split(rest, ' ');
      const Json state = Json::parse(answer_.body);
      for (const Json& lamp : state.at(words.at(0)).at("lamparas")) {
        if (lamp.at("clave") == words.at(1))
          return Expect(words.at(3), lamp.at(words.at(2)).dump());
      }
      Expect(rest, "no such lamp");
    };
  }

 protected:
  void Begin(const Settings& /*settings*/) override { desk_ = std::make_unique<Window>(); }
  void Command(std::string_view line, std::string_view expected) override {
    const std::size_t blank = line.find(' ');
    const std::string_view method = line.substr(0, blank);
    if (method != "GET" && method != "POST" && method != "DELETE") {
      for (const std::string& body : prueba::BodiesOf(line)) heard_ = desk_->SendBody(body);
      const auto fields = Split(prueba::Visible(heard_), '|');
      return Expect(expected == "*" || expected == fields.at(1) + "/" + fields.at(2).substr(0, 4),
                    expected, prueba::Visible(heard_));
    }
    const std::string_view rest = line.substr(blank + 1);
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string path(rest.substr(0, end));
    std::string body = Unescaped(rest.substr(std::min(end + 1, rest.size())));
    prueba::HeadFields headers;
    if (body.starts_with('[') && body.find(": ") < body.find(']')) {
      const std::size_t colon = body.find(": ");
      const std::size_t close = body.find(']');
      std::string value = body.substr(colon + 2, close - colon - 2);
      if (value == "http://own") value = "http://" + desk_->own;
      headers.emplace_back(body.substr(1, colon - 1), value);
      body.erase(0, std::min(close + 2, body.size()));
    }
    const auto result = method == "GET"    ? desk_->Get(path, headers)
                        : method == "POST" ? desk_->Post(path, body, headers)
                                           : desk_->Delete(path, headers);
    Expect(expected, result ? std::to_string(result->status) : "no answer");
    answer_ = result.value_or(prueba::PanelAnswer());
  }
  Printer& GetPrinter() override { return desk_->session->GetPrinter(); }

 private:
  struct Window : prueba::Desk {
    using Desk::Delete, Desk::Get, Desk::own, Desk::Post, Desk::SendBody, Desk::session;
    void TestBody() override {}
  };

  std::unique_ptr<Window> desk_;
  prueba::PanelAnswer answer_;
  std::string heard_;
};

PLAY_STORIES(Panel, PanelPlayer, "panel")

// Requests at the gate of a panel at 127.0.0.1:8080; "|" is the end of a line.
class GatePlayer : public prueba::ShopPlayer {
 protected:
  void Command(std::string_view line, std::string_view expected) override {
    std::string request;
    for (const std::string& part : Split(line, '|')) {
      const std::string text = Unescaped(part);
      request += text == "own" ? "Host: 127.0.0.1:8080" : text == "json" ? kJson : text;
      request += "\r\n";
    }
    const auto head = ParseHead(request + "\r\n");
    if (!head) return Expect(expected, "400");
    const auto refusal = Judge(*head, own_);
    Expect(expected, refusal ? std::to_string(refusal->status) : "in");
  }

 private:
  static constexpr const char* kJson = "Content-Type: application/json";
  const OwnAddress own_{"127.0.0.1", 8080};
};

PLAY_STORIES(Gate, GatePlayer, "gate")

}  // namespace
}  // namespace impresora
