#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>

#include "http/api.hpp"
#include "service/job_json.hpp"

namespace puerta {
namespace {

constexpr std::size_t kShortestKey = 8;
constexpr std::size_t kLongestKey = 128;
constexpr int kNotSent = 3;      // KESTRA_DESENLACE_NO_ENVIADO
constexpr int kNotDone = 6;      // KESTRA_DESENLACE_NO_HECHO
constexpr int kFirstPort = 201;  // causes of the port and of the line
constexpr int kLastLine = 399;
constexpr int kUnresolved = 104;

const Problem kNoKey{
    .status = 400,
    .kind = "falta-clave",
    .title = "Falta Idempotency-Key",
    .detail =
        "Mande una clave propia de esta venta en Idempotency-Key (de 8 a 128 letras y "
        "cifras) y guárdela hasta tener la respuesta."};

bool IsKey(const std::string& key) {
  const bool visible =
      std::all_of(key.begin(), key.end(), [](char c) { return c >= '!' && c <= '~'; });
  return visible && key.size() >= kShortestKey && key.size() <= kLongestKey;
}

// The printer was not there, and nothing was printed: another time it may be, under another key.
bool IsAbsence(std::int64_t outcome, std::int64_t cause) {
  const bool line = (cause >= kFirstPort && cause <= kLastLine) || cause == kUnresolved;
  return (outcome == kNotSent || outcome == kNotDone) && line;
}

Problem Refusal(const Job& job, const Json& shown) {
  const auto outcome = IntegerOf(shown, "desenlace");
  const auto cause = IntegerOf(shown, "causa");
  Problem problem{.status = 409, .kind = "no-hecho", .title = "No se hizo"};
  if (job.state == State::kCancelled) {
    problem.kind = "cancelado";
    problem.title = "Cancelado";
  } else if (IsAbsence(outcome, cause)) {
    problem = {.status = 503, .kind = "sin-impresora", .title = "La impresora no contesta"};
  }
  problem.detail = TextOf(shown, "texto", "No se hizo.");
  if (problem.detail.empty()) problem.detail = "No se hizo.";
  problem.cause = static_cast<int>(cause);
  problem.more = {{"trabajo", job.number}, {"estado", WordsOf(job.state)}, {"desenlace", outcome}};
  return problem;
}

Problem Failed(const std::string& why) {
  return {.status = 500,
          .kind = "falla",
          .title = "La puerta falló",
          .detail = "Repita el pedido con la misma clave: no se imprime dos veces. " + why};
}

struct Preference {
  bool async = false;
  std::int64_t seconds = -1;
};

Preference ReadPreference(const std::string& text) {
  Preference preference;
  preference.async = text.find("respond-async") != std::string::npos;
  const auto found = text.find("wait=");
  if (found != std::string::npos) {
    std::from_chars(text.data() + found + 5, text.data() + text.size(), preference.seconds);
  }
  return preference;
}

bool IsTold(const Job& job) {
  return job.state != State::kQueued && job.state != State::kPrinting;
}

}  // namespace

// What is known is told as it was told; what is not, where to ask.
puerta::Answer Api::Outcome(bool async, const Job& job, bool repeated) {
  const auto shown = service_.Show(job);
  const bool refused = job.state == State::kNotDone || job.state == State::kCancelled;
  const bool makes = job.operation == "comprobante" || job.operation == "no_fiscal";
  puerta::Answer answer = refused ? ProblemAnswer(Refusal(job, shown))
                                  : JsonAnswer(job.state != State::kDone ? 202
                                               : makes                   ? 201
                                                                         : 200,
                                               shown);
  if (!refused)
    answer.fields.emplace_back("Location", "/v1/trabajos/" + std::to_string(job.number));
  if (answer.status == 202 && !IsOver(job)) answer.fields.emplace_back("Retry-After", "1");
  if (answer.status == 202 && async) {
    answer.fields.emplace_back("Preference-Applied", "respond-async");
  }
  if (repeated) answer.fields.emplace_back("Idempotency-Replayed", "true");
  return answer;
}

void Api::Print(const Visit& visit, const Respond& respond) {
  const auto key = visit.request.Field("idempotency-key");
  if (!IsKey(key)) return respond(ProblemAnswer(kNoKey));
  const auto taken = service_.Take({.till = visit.till.name,
                                    .key = key,
                                    .printer = visit.words[0],
                                    .operation = std::string(operation_),
                                    .body = visit.body});
  if (taken.refused) {
    auto answer = ProblemAnswer(*taken.refused);
    if (answer.status == 429) answer.fields.emplace_back("Retry-After", "2");
    return respond(answer);
  }
  const bool async = ReadPreference(visit.request.Field("prefer")).async;
  if (IsTold(*taken.job) || async) return respond(Outcome(async, *taken.job, taken.repeated));
  Wait(visit, *taken.job, respond);
}

// Whichever comes first: the outcome, or the end of the till's patience.
void Api::Wait(const Visit& visit, const Job& job, const Respond& respond) {
  const auto wished = ReadPreference(visit.request.Field("prefer")).seconds;
  auto wait = settings_.wait;
  if (wished >= 0)
    wait = std::min(wait, std::chrono::milliseconds(std::min<std::int64_t>(wished, 3600) * 1000));
  // The clock may have it for a minute more: it is not to hold the request and its connection for so long.
  const auto waiting = std::make_shared<Respond>(respond);
  const auto tell = [this, number = job.number, waiting] {
    if (!*waiting) return;
    const auto answer = std::exchange(*waiting, nullptr);
    try {
      const auto now = service_.Find(number);
      answer(now ? Outcome(false, *now, false)
                 : ProblemAnswer(NotThere("No hay un trabajo con ese número.")));
    } catch (const StoreFailure& failure) {
      answer(ProblemAnswer(Failed(failure.what())));
    }
  };
  service_.WhenTold(job.number, tell);
  service_.Time().After(wait, tell);
}

}  // namespace puerta
