#include "frame/configuration.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/ansi.hpp"
#include "base/failure.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "frame/keys.hpp"
#include "state/library.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

using namespace keys;  // NOLINT(google-build-using-namespace)

std::optional<std::int32_t> NumberWithin(std::string_view text, const AddedKey& key) {
  if (!IsNumber(text)) return std::nullopt;
  try {
    const auto number = ToNumber(text);
    if (number >= key.least && number <= key.most) return number;
  } catch (
      const Failure&) {  // NOLINT(bugprone-empty-catch): too large for a number is out of range
  }
  return std::nullopt;
}

struct StoreAdded {
  SafeSettings& settings;
  TextSettings& texts;
  const AddedKey& key;
  const std::string& text;

  void operator()(std::int32_t SafeSettings::*field) const {
    if (const auto number = NumberWithin(text, key)) settings.*field = *number;
  }
  void operator()(std::int32_t TextSettings::*field) const {
    if (const auto number = NumberWithin(text, key)) texts.*field = *number;
  }
  void operator()(std::string SafeSettings::*field) const { settings.*field = TrimBlanks(text); }
};

// Stores one key's text in its field, each conversion in its own way.
struct Store {
  State& state;
  const Key& key;
  const std::string& text;

  [[nodiscard]] bool UseFallback() const { return key.if_no_number && !IsNumber(text); }

  void operator()(LongField field) const {
    state.*field = UseFallback() ? *key.if_no_number : ToNumber(text);
  }
  void operator()(ShortField field) const {
    state.*field = UseFallback() ? *key.if_no_number : ToShortNumber(text);
  }
  void operator()(Speed) const { state.*key.text = std::to_string(ToNumber(text)); }
  void operator()(TrimmedText) const { state.*key.text = TrimBlanks(text); }
  void operator()(const FixedText& fixed) const {
    const bool empty = TrimBlanks(text).empty();
    state.*key.text = FixedWidth(empty ? fixed.if_empty : text, fixed.length);
  }
};

}  // namespace

std::string LeerValorIni(Library& library, std::string_view key) {
  return library.platform.GetProfile().Read(kSection, key, kConfigurationFile);
}

void ReadAddedSettings(Library& library) {
  SafeSettings settings;
  TextSettings texts{.chosen = library.texts.chosen};
  for (const auto& key : kAddedKeys) {
    const auto text = LeerValorIni(library, key.name);
    std::visit(StoreAdded{settings, texts, key, text}, key.field);
  }
  library.texts = texts;
  auto& certainty = library.certainty;
  // What was sent without the safe mode went into no ledger.
  if (certainty.settings.ModoSeguro == 0) certainty.ledger = {};
  certainty.settings = std::move(settings);
}

void Lee_Ini(Library& library) {
  std::string_view line;
  try {
    for (const auto& key : kKeys) {
      line = key.name;
      const auto text = LeerValorIni(library, key.name);
      std::visit(Store{library.state, key, text}, key.conversion);
    }
  } catch (const Failure& failure) {
    NoteCause(library, Cause::kBadSetting);
    library.platform.GetOperator().Message(
        FailureText(failure)
            .append(" en Leer_Ini - Módulo DLLSupport - Lee_Ini - Linea: "_ansi)
            .append(line),
        "", kBoxOk);
  }
}

}  // namespace kestra
