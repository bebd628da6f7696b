// What can be asked of the door: a table of routes, and who answers.
#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "http/keys.hpp"
#include "http/message.hpp"
#include "service/service.hpp"

namespace puerta {

struct ApiSettings {
  std::chrono::milliseconds wait = std::chrono::seconds(60);  // for an outcome, at most
  std::string version = {};
  // Type and body of what is shown under a path; nothing where there is nothing.
  std::function<std::optional<std::pair<std::string, std::string>>(const std::string&)> page =
      nullptr;
  std::function<std::string()> more_metrics = nullptr;
};

class Api;

// A request on its way: where it leads, who asks.
struct Visit {
  HttpRequest request;
  Till till;
  std::array<std::string, 2> words;  // those of the path that the route leaves open
  Json body;
};

struct Route {
  std::string_view method;
  std::string_view path;  // "{}" stands for one word, "*" for the rest
  Right right;
  void (Api::*answer)(const Visit& visit, const Respond& respond);
  std::string_view operation =
      {};  // of those that print: what, and then a body and a key are wanted
};

class Api {
 public:
  Api(Service& service, ApiSettings settings) : service_(service), settings_(std::move(settings)) {}

  static std::span<const Route> Routes();

  void Answer(const Route& route, const Visit& visit, const Respond& respond);

  // Whether a right suffices which is less than the one that the body asks for.
  static Right RightFor(const Route& route, const Json& body);

 private:
  void Printers(const Visit& visit, const Respond& respond);
  void OnePrinter(const Visit& visit, const Respond& respond);
  void PrinterState(const Visit& visit, const Respond& respond);
  void Numbers(const Visit& visit, const Respond& respond);
  void ReadClock(const Visit& visit, const Respond& respond);
  void Question(const Visit& visit, const std::string& words, const char* member,
                const Respond& respond);
  void Jobs(const Visit& visit, const Respond& respond);
  void OneJob(const Visit& visit, const Respond& respond);
  void CancelJob(const Visit& visit, const Respond& respond);
  void Events(const Visit& visit, const Respond& respond);
  void Health(const Visit& visit, const Respond& respond);
  void Metrics(const Visit& visit, const Respond& respond);
  void ShowPage(const Visit& visit, const Respond& respond);
  void Print(const Visit& visit, const Respond& respond);

  void Wait(const Visit& visit, const Job& job, const Respond& respond);
  puerta::Answer Outcome(bool async, const Job& job, bool repeated);

  Service& service_;
  ApiSettings settings_;
  std::string_view operation_;
};

Problem NotThere(const std::string& what);

}  // namespace puerta
