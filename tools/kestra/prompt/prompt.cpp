#include "prompt/prompt.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "json.hpp"
#include "kestra/kestra.h"
#include "library.hpp"

namespace kestra::tool {
namespace {

constexpr std::int32_t kUtf8Texts = 2;
constexpr std::int32_t kAccepted = 1;
constexpr std::int32_t kDeclined = 7;
constexpr std::int32_t kQuestions = 0x0F;
constexpr std::int32_t kYesNo = 4;

constexpr std::string_view kBlanks = " \t\r\n";

// What the library has to say to an operator. There is none here who could answer: a question is declined.
std::int32_t KESTRA_CALL Tell(void* console, const char* text, const char* title,
                              std::int32_t style) {
  const bool question = (style & kQuestions) == kYesNo;
  std::string words = *title != '\0' ? std::string(title) + ": " + text : std::string(text);
  if (question) words += " (se responde: No)";
  static_cast<Console*>(console)->Complain(words);
  return question ? kDeclined : kAccepted;
}

std::int32_t KESTRA_CALL TellStatus(void* console, const char* printer, const char* fiscal,
                                    const KestraFila* rows, std::int32_t count) {
  std::string words = std::string("impresora ") + printer + ", fiscal " + fiscal;
  for (std::int32_t i = 0; i < count; ++i) {
    if (rows[i].encendida == 1) words += std::string("; ") + rows[i].texto;
  }
  static_cast<Console*>(console)->Complain(words);
  return 0;
}

void KESTRA_CALL TellMemory(void* console) {
  static_cast<Console*>(console)->Complain("la memoria fiscal está por llenarse");
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

// An operation's result says whether it was done; what asks and tells gives numbers of its own.
bool IsAsked(const Operation& operation) {
  return operation.name.starts_with("Kestra_");
}

bool HasFailed(const Operation& operation, std::int32_t result) {
  return IsAsked(operation) ? result < 0 : result != 0;
}

// The texts that a result has to be compared with: any of them will do, and the number where there is none.
bool Fulfils(const CallResult& result, const std::string& expected) {
  const auto is_it = [&](const auto& named) { return Trimmed(named.second) == Trimmed(expected); };
  return std::any_of(result.texts.begin(), result.texts.end(), is_it) ||
         std::to_string(result.result) == Trimmed(expected);
}

std::string Verdict(const Operation& operation, const CallResult& result) {
  std::string words = std::to_string(result.result);
  if (IsAsked(operation)) return words;
  return result.result == 0 ? words + " hecho" : words + " " + CauseInWords();
}

}  // namespace

void Prompt::Begin() {
  const KestraOperador teller{.tamano = sizeof(KestraOperador),
                              .contexto = &console_,
                              .mensaje = Tell,
                              .informe_estados = TellStatus,
                              .memoria_llena = TellMemory};
  Kestra_Textos(kUtf8Texts);
  Kestra_DefinirOperador(&teller);
  if (EP_Init() != 1) throw Stop(Exit::kBadSettings, "EP_Init: " + CauseInWords());
}

Exit Prompt::Run(std::string_view line, std::size_t number) {
  const Statement statement = ReadStatement(line);
  if (statement.name.empty()) return Exit::kGood;
  if (statement.name == "ayuda")
    return Help(statement.words.empty() ? "" : statement.words.front().text), Exit::kGood;
  ended_ = statement.name == "salir";
  return ended_ ? Exit::kGood : Call(statement, number);
}

Exit Prompt::Call(const Statement& statement, std::size_t number) {
  const Operation* const operation = FindOperation(statement.name);
  if (operation == nullptr)
    throw Stop(Exit::kUsage, "no se conoce " + statement.name + "; ayuda las nombra");
  if (!OnlyReads(*operation) && !rights_.may_print())
    throw Stop(Exit::kUsage,
               "la impresora no es una virtual: " + std::string(operation->name) +
                   " imprime o cambia algo en ella; si es lo que se quiere, --impresora-real");
  const CallResult result = CallOperation(*operation, statement);
  if (console_.WantsJson()) {
    TellPrograms(*operation, result, number);
  } else {
    TellPeople(*operation, result);
  }
  return Judge(statement, *operation, result);
}

std::vector<std::string> Prompt::TakePaper() const {
  return rights_.take_paper ? rights_.take_paper() : std::vector<std::string>();
}

void Prompt::TellPrograms(const Operation& operation, const CallResult& result,
                          std::size_t number) const {
  Json object{{"linea", number}, {"operacion", operation.name}, {"resultado", result.result}};
  for (const auto& [name, text] : result.texts) object["textos"][name] = text;
  object["causa"] = HasFailed(operation, result.result) ? CauseInWords() : "";
  object["papel"] = TakePaper();
  PrintLine(console_.Out(), object);
}

void Prompt::TellPeople(const Operation& operation, const CallResult& result) const {
  console_.Line(std::string(operation.name) + ": " + Verdict(operation, result));
  for (const auto& [name, text] : result.texts) console_.Line("  " + name + " «" + text + "»");
  for (const std::string& line : TakePaper()) console_.Line("  | " + line);
  console_.Out().flush();
}

// Did it go as the statement wants?
Exit Prompt::Judge(const Statement& statement, const Operation& operation,
                   const CallResult& result) const {
  const bool failed = HasFailed(operation, result.result);
  const bool fulfilled = !statement.expected || Fulfils(result, *statement.expected);
  if (!fulfilled) console_.Complain("se esperaba «" + *statement.expected + "»");
  if (statement.has_to_fail && !failed) console_.Complain("tenía que fallar, y se hizo");
  if (!fulfilled) return Exit::kFindings;
  if (statement.has_to_fail) return failed ? Exit::kGood : Exit::kFindings;
  return failed ? Exit::kRefused : Exit::kGood;
}

void Prompt::Help(std::string_view name) {
  const Operation* const wanted = name.empty() ? nullptr : FindOperation(name);
  if (!name.empty() && wanted == nullptr)
    throw Stop(Exit::kUsage, "no se conoce " + std::string(name));
  for (const Operation& row : Operations()) {
    if (wanted == nullptr || wanted == &row)
      console_.Line(UsageOf(row) + "\n    " + std::string(row.title));
  }
  console_.Line("ayuda [OPERACIÓN], salir");
}

}  // namespace kestra::tool
