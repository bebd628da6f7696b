#include "dialogs/host_operator.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/seam/host.hpp"
#include "platform/shared/text.hpp"

namespace kestra {
namespace {

std::string HostText(const TextSettings& texts, std::string_view text) {
  return texts.SpeakUtf8() ? Utf8FromAnsi(ShownText(text)) : ShownText(text);
}

// Rows for C, with the texts that they point to.
class Rows {
 public:
  Rows(const TextSettings& texts, const std::vector<StatusRow>& rows) {
    const auto keep = [&](std::string_view text) {
      return texts_.emplace_back(HostText(texts, text)).c_str();
    };
    texts_.reserve(2 * rows.size());  // the rows point into it
    for (const StatusRow& row : rows) {
      rows_.push_back({.grupo = row.group,
                       .numero = row.number,
                       .clase = row.error ? 1 : 0,
                       .encendida = row.lit ? 1 : 0,
                       .texto = keep(row.text),
                       .ayuda = keep(row.hint)});
    }
  }

  [[nodiscard]] const KestraFila* Data() const { return rows_.data(); }
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(rows_.size()); }

 private:
  std::vector<std::string> texts_;
  std::vector<KestraFila> rows_;
};

}  // namespace

void HostOperator::Set(const KestraOperador* record) {
  KestraOperador copy = {};
  if (record != nullptr) {
    std::uint32_t size = 0;
    ReadHostMemory(&size, record, sizeof size);
    // Whole members only: half of a pointer is none.
    const std::size_t told = size - size % sizeof(void*);
    KestraOperador there = {};
    const std::size_t wanted = std::min(told, sizeof there);
    if (ReadHostMemory(&there, record, wanted) == wanted) copy = there;
  }
  const Copying copying(busy_);
  record_ = copy;
}

std::int32_t HostOperator::Message(std::string_view text, std::string_view title,
                                   std::int32_t style) {
  const FloatingPoint kept;  // a dialog may leave the units otherwise than it found them
  const KestraOperador host = Record();
  if (host.mensaje == nullptr) return fallback_.Message(text, title, style);
  const std::int32_t answer = host.mensaje(host.contexto, HostText(*texts_, text).c_str(),
                                           HostText(*texts_, title).c_str(), style);
  if (style == kBoxOk) return kAnswerOk;
  return answer == kAnswerYes ? kAnswerYes : kAnswerNo;
}

bool HostOperator::StatusReport(const Report& report) {
  const FloatingPoint kept;  // a dialog may leave the units otherwise than it found them
  const KestraOperador host = Record();
  if (host.informe_estados == nullptr) return fallback_.StatusReport(report);
  const Rows rows(*texts_, report.rows);
  return host.informe_estados(host.contexto, HostText(*texts_, report.printer).c_str(),
                              HostText(*texts_, report.fiscal).c_str(), rows.Data(),
                              rows.Count()) != 0;
}

void HostOperator::MemoryFull() {
  const FloatingPoint kept;  // a dialog may leave the units otherwise than it found them
  const KestraOperador host = Record();
  if (host.memoria_llena == nullptr) {
    fallback_.MemoryFull();
  } else {
    host.memoria_llena(host.contexto);
  }
}

}  // namespace kestra
