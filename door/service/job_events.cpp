#include "service/job_events.hpp"

#include <string>
#include <string_view>

#include "base/json.hpp"
#include "service/job_json.hpp"

namespace puerta {
namespace {

// Documents and closings are what others want to hear of.
std::string_view KindOf(const Job& job) {
  if (job.state != State::kDone) return "";
  if (job.operation == "comprobante") return "documento";
  const auto body = ParseJson(job.body).value_or(Json::object());
  return job.operation == "informe" && TextOf(body, "tipo") == "z" ? "cierre" : "";
}

}  // namespace

Job With(Job job, const Outcome& outcome, Moment now) {
  job.state = outcome.state;
  job.answer = outcome.answer;
  if (outcome.state != State::kUnknown || outcome.settled) job.ended = now;
  return job;
}

std::vector<Event> EventsOf(const Job& job) {
  const auto data = LineOf(JobJson(job));
  std::vector<Event> events{{.printer = job.printer, .kind = "trabajo", .data = data}};
  const auto kind = KindOf(job);
  if (!kind.empty()) {
    events.push_back(
        {.printer = job.printer, .kind = std::string(kind), .data = data, .publish = true});
  }
  return events;
}

}  // namespace puerta
