#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "log/answer.hpp"
#include "log/lines.hpp"

namespace kestra::tool {

// What became of a frame, or of an operation that sent none.
enum class Outcome {
  kDone,
  kRefused,
  kSilence,
  kForeign,     // the printer answered other frames
  kDamaged,     // the answer cannot be read
  kBroken,      // the driver noted an error
  kNotSent,     // an operation without a frame
  kUnanswered,  // the log says nothing of an answer
  kNote,        // no frame belongs to it
  kUnreadable,  // a damaged line
};

struct OutcomeWords {
  std::string_view words;
  bool failed;
};

inline constexpr std::array<OutcomeWords, 10> kOutcomes{{
    {"hecho", false},
    {"rechazado", true},
    {"sin respuesta", true},
    {"contestó otra cosa", true},
    {"respuesta dañada", true},
    {"error", true},
    {"no se mandó", true},
    {"sin respuesta anotada", true},
    {"nota", false},
    {"línea dañada", true},
}};

constexpr const OutcomeWords& WordsOf(Outcome outcome) {
  return kOutcomes.at(static_cast<std::size_t>(outcome));
}

// Which document of the log an entry belongs to.
struct DocumentName {
  unsigned ordinal = 0;  // 1, 2, 3..., as they were opened; 0: none
  std::string title{};   // "TIQUE FACTURA"
  std::string letter{};
  std::string number{};  // as the printer told it; empty until it has
  bool cancelled = false;
};

// A line that tells of no frame of its own.
struct NoteLine {
  LineKind kind = LineKind::kOther;
  std::string text{};
};

// One frame with what came of it, or what else the log has to say. Texts are the till's bytes.
struct Entry {
  std::size_t line = 0;     // of the file
  Stamp stamp{};            // of its first line
  Stamp sent{};             // of the frame
  std::string operation{};  // as the log names it; empty for a frame that nobody announced
  unsigned attempt = 1;     // 2 for a frame that goes out again
  std::string frame{};      // as it was sent, and what it means
  std::optional<impresora::Packet> packet{};
  std::optional<Hearing> hearing{};
  std::optional<int> seconds{};
  Outcome outcome = Outcome::kNote;
  std::vector<std::string> errors{};
  std::vector<NoteLine> notes{};
  DocumentName document{};
};

}  // namespace kestra::tool
