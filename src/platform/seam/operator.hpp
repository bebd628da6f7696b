#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestra {

// Message box styles and answers.
constexpr std::int32_t kBoxOk = 0;
constexpr std::int32_t kBoxYesNo = 4;
constexpr std::int32_t kBoxYesNoQuestion = 36;
constexpr std::int32_t kAnswerOk = 1;
constexpr std::int32_t kAnswerYes = 6;
constexpr std::int32_t kAnswerNo = 7;

// One row of the status report dialog.
struct StatusRow {
  std::int32_t group = 0;   // 0 printer, 1 fiscal
  std::int32_t number = 0;  // as in the control's name
  bool error = false;       // error or information
  bool lit = false;         // lit or greyed
  std::string_view text;    // caption
  std::string_view hint;    // hint
};

struct Report {
  std::string printer;  // the status words, four hexadecimal digits each
  std::string fiscal;
  std::vector<StatusRow> rows;
};

// The person at the till. Texts are windows-1252.
class Operator {
 public:
  Operator() = default;
  Operator(const Operator&) = delete;
  Operator& operator=(const Operator&) = delete;
  virtual ~Operator() = default;

  // A modal message box; an empty title is the default one.
  virtual std::int32_t Message(std::string_view text, std::string_view title,
                               std::int32_t style) = 0;

  // The status report dialog. True: Reintentar was pressed.
  virtual bool StatusReport(const Report& report) = 0;

  // The warning that the fiscal memory is nearly full.
  virtual void MemoryFull() = 0;
};

}  // namespace kestra
