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
struct Fila {
  std::int32_t grupo = 0;   // 0 printer, 1 fiscal
  std::int32_t numero = 0;  // as in the control's name
  bool error = false;       // error or information
  bool encendida = false;   // lit or greyed
  std::string_view texto;   // caption
  std::string_view ayuda;   // hint
};

struct InformeEstados {
  std::string impresora;  // the status words, four hexadecimal digits each
  std::string fiscal;
  std::vector<Fila> filas;
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
  virtual bool StatusReport(const InformeEstados& informe) = 0;

  // The warning that the fiscal memory is nearly full.
  virtual void MemoryFull() = 0;
};

}  // namespace kestra
