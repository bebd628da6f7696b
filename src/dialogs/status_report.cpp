#include "dialogs/status_report.hpp"

#include "dialogs/conditions.hpp"

namespace kestra {

Report BuildReport(const State& state) {
  Report report{state.EstadoImpresora, state.EstadoFiscal, {}};
  for (const auto& condition : kConditions) {
    report.rows.push_back({.group = static_cast<std::int32_t>(condition.word),
                           .number = condition.row,
                           .error = condition.severity == Severity::kError,
                           .lit = IsLit(condition, state.BitImpresora, state.BitFiscal),
                           .text = condition.text,
                           .hint = condition.hint});
  }
  return report;
}

}  // namespace kestra
