#include "http/gate.hpp"

#include <string_view>

namespace puerta {
namespace {

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return text;
}

Problem WrongHost(const std::string& host) {
  return {.status = 400,
          .kind = "otro-nombre",
          .title = "Otro nombre",
          .detail = "Esta puerta no se llama así (Host: " + host.substr(0, 100) +
                    "). Agréguelo a «nombres» en la configuración."};
}

Problem WrongOrigin(const std::string& origin) {
  return {.status = 403,
          .kind = "otro-origen",
          .title = "Otro origen",
          .detail = "Las páginas de " + origin.substr(0, 100) +
                    " no pueden usar esta puerta. Agréguelas a «origenes» en la configuración."};
}

}  // namespace

Gate::Gate(const GateSettings& settings) {
  const auto port = std::to_string(settings.port);
  const bool usual = settings.port == (settings.secure ? 443 : 80);
  const std::string scheme = settings.secure ? "https://" : "http://";
  std::vector<std::string> names{"localhost", "127.0.0.1", "[::1]"};
  for (const auto& name : settings.names) names.push_back(Lower(name));
  for (const auto& name : names) {
    hosts_.insert(name + ":" + port);
    origins_.insert(scheme + name + ":" + port);
    if (usual) {
      hosts_.insert(name);
      origins_.insert(scheme + name);
    }
  }
  for (const auto& origin : settings.origins) origins_.insert(Lower(origin));
}

std::optional<Problem> Gate::Refuse(const HttpRequest& request) const {
  const auto host = Lower(request.Field("host"));
  if (!hosts_.contains(host)) return WrongHost(host);
  const auto origin = Lower(request.Field("origin"));
  if (!origin.empty() && !IsKnown(origin)) return WrongOrigin(origin);
  // A page elsewhere may fetch without saying who it is; its browser says that it comes from elsewhere.
  const auto site = request.Field("sec-fetch-site");
  const bool from_elsewhere = site == "cross-site" || site == "same-site";
  const bool to_look =
      request.Field("sec-fetch-mode") == "navigate" && !request.path.starts_with("/v1/");
  if (origin.empty() && from_elsewhere && !to_look) return WrongOrigin("otro sitio");
  return std::nullopt;
}

std::optional<Answer> Gate::Preflight(const HttpRequest& request) const {
  if (request.method != "OPTIONS" || request.Field("access-control-request-method").empty()) {
    return std::nullopt;
  }
  Answer answer{.status = 204,
                .fields = {{"Access-Control-Allow-Methods", "GET, POST, PUT, DELETE"},
                           {"Access-Control-Allow-Headers",
                            "Authorization, Content-Type, Idempotency-Key, Prefer, Last-Event-ID"},
                           {"Access-Control-Max-Age", "600"}}};
  if (request.Field("access-control-request-private-network") == "true") {
    answer.fields.emplace_back("Access-Control-Allow-Private-Network", "true");
  }
  return answer;
}

void Gate::Mark(const HttpRequest& request, Answer& answer) const {
  const auto origin = request.Field("origin");
  if (origin.empty() || !IsKnown(Lower(origin))) return;
  answer.fields.emplace_back("Access-Control-Allow-Origin", origin);
  answer.fields.emplace_back("Access-Control-Expose-Headers",
                             "Location, Idempotency-Replayed, Retry-After, Preference-Applied");
  answer.fields.emplace_back("Vary", "Origin");
}

}  // namespace puerta
