// The text of a Fiscal.ini, as anybody may have written it, through the profile reader into the
// settings.
#include <array>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

#include "fakes/fake_platform.hpp"
#include "frame/configuration.hpp"
#include "fuzz/input.hpp"
#include "golden/base_configuration.hpp"
#include "golden/setting_kinds.hpp"
#include "golden/state_fields.hpp"
#include "platform/shared/profile_text.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

using fuzz::Require;
using golden::IsOptional;
using golden::IsShort;
using golden::IsText;
using golden::kBaseConfiguration;
using golden::Setting;

// A file, and what a sound one has for the keys that this one leaves out.
class HostileFile : public ProfileFile {
 public:
  HostileFile(std::string_view text, bool filled_up) : text_(text), filled_up_(filled_up) {}

  std::string Read(std::string_view section, std::string_view key, std::string_view file) override {
    Require(file == kConfigurationFile && section == kSection, "one file, one section");
    Require(reads_ < kBaseConfiguration.size() && kBaseConfiguration[reads_].key == key,
            "each key once and in order");
    auto value = FindInProfile(text_, section, key);
    Require(value.size() <= kLongestProfileValue, "no longer than the reader's longest");
    Require(value.find_first_of("\r\n") == std::string::npos, "a value ends with its line");
    if (value.empty() && filled_up_) return std::string(kBaseConfiguration[reads_++].value);
    return values_[reads_++] = std::move(value);
  }

  [[nodiscard]] std::size_t Reads() const { return reads_; }
  // Nothing where a sound value stood in.
  [[nodiscard]] const std::string& Value(std::size_t key) const { return values_[key]; }

 private:
  std::string_view text_;
  bool filled_up_;
  std::size_t reads_ = 0;
  std::array<std::string, kBaseConfiguration.size()> values_;
};

// A world of which nothing but the settings and the operator is used.
class Desk : public Platform {
 public:
  explicit Desk(HostileFile& file) : file_(file) {}

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& /*settings*/) override {
    throw std::logic_error("nobody asked for a port");
  }
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return file_; }
  LogFile& GetLog() override { return log_; }
  JournalFile& GetJournalFile() override { return journal_file_; }

  [[nodiscard]] std::size_t Boxes() const { return journal_.Events().size(); }

 private:
  HostileFile& file_;
  Journal journal_;
  Trouble trouble_;
  FakeClock clock_{journal_, trouble_};
  FakeOperator operator_{journal_, trouble_};
  FakeLog log_{journal_, trouble_};
  FakeJournalFile journal_file_{journal_, trouble_};
};

// What a number's text comes to; nothing when it is none or does not fit.
std::optional<long long> NumberIn(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  const bool negative = text[0] == '-';
  if (negative || text[0] == '+') text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  long long value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = std::min(value * 10 + (c - '0'), 1LL << 40);
  }
  return negative ? -value : value;
}

// What the field of a key should say for this text; nothing when the reading stops there.
std::optional<std::string> Expected(const Setting& setting, std::string_view text) {
  const auto number = NumberIn(text);
  if (!number && IsOptional(setting.key)) return setting.key == "CPI" ? "12" : "0";
  if (!number) return std::nullopt;
  const long long least = IsShort(setting.key) ? std::numeric_limits<std::int16_t>::min()
                                               : std::numeric_limits<std::int32_t>::min();
  const long long most = IsShort(setting.key) ? std::numeric_limits<std::int16_t>::max()
                                              : std::numeric_limits<std::int32_t>::max();
  if (*number < least || *number > most) return std::nullopt;
  const auto shown = std::to_string(*number);
  return setting.key == "ImpresoraConfig" ? '"' + shown + '"' : shown;
}

bool Untouched(const State& state, std::string_view key) {
  const auto shown = golden::ShowField(state, key);
  return shown == "0" || shown == "\"\"";
}

void CheckTexts(const State& state) {
  Require(state.TipoComprobante.size() == 2 && state.TipoIVA.size() == 1, "cut or filled up");
  Require(state.TipoIVA != " ", "there is always a tax condition");
  const auto& model = state.ModeloNombre;
  Require(model.empty() || (model.front() != ' ' && model.back() != ' '), "without its blanks");
}

// The file alone says what comes of each key: every value before the first that is none, and that
// one stays as it was.
void CheckReading(std::string_view text, bool filled_up) {
  HostileFile file(text, filled_up);
  Desk desk(file);
  Library library(desk);
  Lee_Ini(library);
  const auto read = file.Reads();
  const bool whole = read == kBaseConfiguration.size() && desk.Boxes() == 0;
  Require(whole || desk.Boxes() == 1, "the operator hears once of a bad value");
  for (std::size_t i = 0; i < read; ++i) {
    const auto& setting = kBaseConfiguration[i];
    const auto& value = file.Value(i);
    if (IsText(setting.key) || (value.empty() && filled_up)) continue;
    const auto expected = Expected(setting, value);
    Require(expected.has_value() == (whole || i + 1 < read),
            "the first bad value ends the reading");
    Require(expected ? golden::ShowField(library.state, setting.key) == *expected
                     : Untouched(library.state, setting.key),
            "each good value is taken over and a bad one is not");
  }
  if (whole) CheckTexts(library.state);
}

}  // namespace
}  // namespace kestra

// The first byte says whether the file begins with its section and whether sound values stand
// behind it.
FUZZ_TARGET(input) {
  const auto form = input.Byte();
  const bool in_section = (form & 1U) != 0;
  const std::string text = (in_section ? "[Epson_Fiscal]\n" : "") + std::string(input.Rest());
  kestra::CheckReading(text, (form & 2U) != 0);
}
