#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What the library exports, as rows: whoever calls it in a test takes names, arguments and results from
// here. The host in C and the file that Windows' linker reads do not: they bear witness against this list.
namespace kestra::exports {

enum class Kind : char {
  kText = 't',  // of so many bytes
  kTerminated = 'z',
  kResult = 'o',  // room for so many bytes
  kInteger = 'i',
  kRoom = 'n',  // an integer: how many bytes the result before it may have
  kAmount = 'd',
  kOperator = 'k',  // the operator's record
  kClass = 'g',     // the name of a class or interface
};

struct Parameter {
  Kind kind{};
  std::size_t size = 0;

  [[nodiscard]] constexpr bool IsText() const {
    return kind == Kind::kText || kind == Kind::kTerminated;
  }
  [[nodiscard]] constexpr bool IsPointer() const {
    return kind != Kind::kInteger && kind != Kind::kRoom && kind != Kind::kAmount;
  }
};

// One argument as it is handed over: which member counts is the parameter's business.
struct Value {
  const void* pointer = nullptr;
  double number = 0;
  std::int32_t integer = 0;
};

constexpr std::size_t kMostParameters = 13;
using Values = std::array<Value, kMostParameters>;

// Does the call reach for the printer, for the port alone, for nothing at all, does it tell of what was
// (and give what there is to tell, -1 when it is turned away), or is it none of the till's?
enum class Nature { kOperation, kLifetime, kFixed, kReport, kBeside };

struct Export {
  std::string_view name;
  Nature nature{};
  std::int32_t done = 0;    // what it gives when all goes well
  std::int32_t failed = 0;  // what it gives when it fails or is turned away
  std::string_view sane{};  // what a sane host passes, for Arguments()
  std::array<Parameter, kMostParameters> places{};
  std::size_t count = 0;
  std::int32_t (*call)(const Values& values) = nullptr;  // null where it is found by its name
  std::int32_t (*call_at)(void* place, const Values& values) = nullptr;

  [[nodiscard]] constexpr std::span<const Parameter> Parameters() const {
    return std::span(places).first(count);
  }
  [[nodiscard]] bool Has(Kind kind) const;
};

// The first are those that the fuzzer's corpus knows by their number: a new one goes to the end.
std::span<const Export> Exports();
const Export& Find(std::string_view name);

// In the library that is linked to the program, or in the one that the program has loaded.
std::int32_t Call(const Export& row, const Values& values);

// A parameter and what is passed for it: a text as long as it has to be, a number in its digits, nothing
// for a result, a record and a class.
struct Argument : Parameter {
  std::string words{};
};

// `written` are the words for each parameter that takes some, with bars between them.
std::vector<Argument> Arguments(const Export& row, std::string_view written);

}  // namespace kestra::exports
