#include "http/desk.hpp"

#include <chrono>
#include <exception>
#include <string_view>
#include <utility>
#include <vector>

namespace puerta {
namespace {

constexpr int kMostWrongKeys = 30;  // in a minute, from one address
constexpr std::size_t kMostPeers = 10000;

const Problem kNoKey{.status = 401,
                     .kind = "sin-clave-de-caja",
                     .title = "Falta la clave de la caja",
                     .detail = "Mande Authorization: Bearer y la clave de esta caja."};
const Problem kTooMany{
    .status = 429,
    .kind = "demasiados",
    .title = "Demasiados pedidos",
    .detail = "Demasiados pedidos sin una clave de esta puerta. Espere un minuto."};
const Problem kWrongType{.status = 415,
                         .kind = "otra-clase",
                         .title = "Otra clase de cuerpo",
                         .detail = "El cuerpo va como application/json."};
const Problem kNoJson{.status = 400,
                      .kind = "json-mal-escrito",
                      .title = "JSON mal escrito",
                      .detail = "El cuerpo no es un objeto de JSON, o está anidado de más."};
const Problem kFailed{.status = 500,
                      .kind = "falla",
                      .title = "La puerta falló",
                      .detail = "Repita el pedido con la misma clave: no se imprime dos veces."};

Problem NoRight(Right right) {
  return {.status = 403,
          .kind = "sin-derecho",
          .title = "Sin derecho",
          .detail = "Esta clave no tiene el derecho " + std::string(WordsOf(right)) + "."};
}

// The words that "{}" stands for; nothing when the path is another one.
std::optional<std::array<std::string, 2>> Match(std::string_view pattern, std::string_view path) {
  std::array<std::string, 2> words;
  std::size_t found = 0;
  while (true) {
    const auto wanted = pattern.substr(0, pattern.find('/'));
    const auto word = path.substr(0, path.find('/'));
    if (wanted == "{}" && !word.empty()) {
      words[found++] = word;
    } else if (wanted != word) {
      return std::nullopt;
    }
    const bool ends = wanted.size() == pattern.size();
    if (ends != (word.size() == path.size())) return std::nullopt;
    if (ends) return words;
    pattern.remove_prefix(wanted.size() + 1);
    path.remove_prefix(word.size() + 1);
  }
}

struct Found {
  const Route* route = nullptr;
  std::array<std::string, 2> words = {};
  std::string methods = {};  // that the path knows
};

Found FindRoute(const HttpRequest& request) {
  Found found;
  const std::string_view method =
      request.method == "HEAD" ? "GET" : std::string_view(request.method);
  for (const auto& route : Api::Routes()) {
    auto words = Match(route.path, request.path);
    if (!words) continue;
    found.methods += (found.methods.empty() ? "" : ", ") + std::string(route.method);
    if (route.method != method) continue;
    found.route = &route;
    found.words = std::move(*words);
    break;
  }
  return found;
}

bool IsJson(const std::string& type) {
  return type.substr(0, type.find(';')) == "application/json";
}

Answer WithField(Answer answer, const char* name, const std::string& value) {
  answer.fields.emplace_back(name, value);
  return answer;
}

}  // namespace

void Desk::Receive(HttpRequest request, const Respond& respond) {
  const auto marked = [this, request, respond](Answer answer) {
    gate_.Mark(request, answer);
    respond(std::move(answer));
  };
  Visit visit{.request = std::move(request), .till = {}, .words = {}, .body = {}};
  try {
    Admit(std::move(visit), marked);
  } catch (const std::exception& error) {
    audit_.Write({{"hecho", "falla"}, {"texto", error.what()}});
    marked(ProblemAnswer(kFailed));
  }
}

void Desk::Admit(Visit visit, const Respond& respond) {
  if (const auto problem = gate_.Refuse(visit.request)) return Refuse(visit, *problem, respond);
  if (auto answer = gate_.Preflight(visit.request)) return respond(std::move(*answer));
  auto found = FindRoute(visit.request);
  if (found.route == nullptr && !found.methods.empty()) {
    const Problem problem{.status = 405,
                          .kind = "otro-metodo",
                          .title = "Otro método",
                          .detail = "Acá sirven: " + found.methods + "."};
    return respond(WithField(ProblemAnswer(problem), "Allow", found.methods));
  }
  if (found.route == nullptr)
    return respond(ProblemAnswer(NotThere("No hay nada en esa dirección.")));
  visit.words = std::move(found.words);
  if (found.route->right == kNobody) return Serve(*found.route, std::move(visit), respond);
  const auto* const till = keys_.Find(visit.request.Field("authorization"));
  if (till == nullptr) {
    if (!MayTry(visit.request.peer))
      return respond(WithField(ProblemAnswer(kTooMany), "Retry-After", "60"));
    return Refuse(visit, kNoKey, [respond](const Answer& answer) {
      respond(WithField(answer, "WWW-Authenticate", "Bearer"));
    });
  }
  visit.till = *till;
  Serve(*found.route, std::move(visit), respond);
}

void Desk::Serve(const Route& route, Visit visit, const Respond& respond) {
  const auto may = [&visit](Right right) {
    return right == kNobody || (visit.till.rights & right) != 0;
  };
  // Whoever has only the greater of the two rights is not told about the body before it has been read.
  if (route.operation != "informe" && !may(route.right))
    return Refuse(visit, NoRight(route.right), respond);
  if (!route.operation.empty()) {
    if (!IsJson(visit.request.Field("content-type"))) return respond(ProblemAnswer(kWrongType));
    auto body = ParseJson(visit.request.body);
    if (!body || !body->is_object()) return respond(ProblemAnswer(kNoJson));
    visit.body = std::move(*body);
  }
  const auto right = Api::RightFor(route, visit.body);
  if (!may(right)) return Refuse(visit, NoRight(right), respond);
  if (route.right == kClose || right == kClose || route.method == "DELETE") {
    audit_.Write({{"hecho", "pedido"},
                  {"caja", visit.till.name},
                  {"de", visit.request.peer},
                  {"metodo", route.method},
                  {"camino", visit.request.path}});
  }
  api_.Answer(route, visit, respond);
}

bool Desk::MayTry(const std::string& peer) {
  const auto minute =
      std::chrono::floor<std::chrono::minutes>(clock_.Now()).time_since_epoch().count();
  if (minute != minute_ || wrong_keys_.size() > kMostPeers) wrong_keys_.clear();
  minute_ = minute;
  return ++wrong_keys_[peer] <= kMostWrongKeys;
}

// Names and addresses alone: never a key, a body or a query.
void Desk::Refuse(const Visit& visit, const Problem& problem, const Respond& respond) {
  audit_.Write({{"hecho", "rechazo"},
                {"estado", problem.status},
                {"por", problem.kind},
                {"caja", visit.till.name},
                {"de", visit.request.peer},
                {"metodo", visit.request.method.substr(0, 20)},
                {"camino", visit.request.path.substr(0, 200)}});
  respond(ProblemAnswer(problem));
}

}  // namespace puerta
