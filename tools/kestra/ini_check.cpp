#include "ini_check.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <set>
#include <variant>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "fields/number_field.hpp"
#include "ini_text.hpp"
#include "key_words.hpp"
#include "platform/shared/ports.hpp"
#include "platform/shared/text.hpp"
#include "printer.hpp"
#include "settings.hpp"
#include "this_system.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

// ---- Names that are nearly right ----

std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t corner = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
      corner = row[j + 1];
      row[j + 1] = std::min({changed, row[j + 1] + 1, row[j] + 1});
    }
  }
  return row.back();
}

bool IsKnown(std::string_view key) {
  bool known = false;
  ForEachWords([&](const KeyWords& words) { known = known || SameWithoutCase(words.name, key); });
  return known;
}

std::string_view NearestTo(std::string_view key) {
  constexpr std::size_t kNear = 3;
  std::string_view nearest;
  std::size_t least = kNear;
  ForEachWords([&](const KeyWords& words) {
    const auto distance = Distance(words.name, key);
    if (distance < least) {
      nearest = words.name;
      least = distance;
    }
  });
  return nearest;
}

// ---- The keys that end the reading ----

struct ReadsNumber {
  std::string_view text;
  void operator()(std::int32_t State::*) const { ToNumber(text); }
  void operator()(std::int16_t State::*) const { ToShortNumber(text); }
  void operator()(keys::Speed) const { ToNumber(text); }
  void operator()(keys::TrimmedText) const {}
  void operator()(const keys::FixedText&) const {}
};

std::optional<Trouble> TroubleOf(const keys::Key& key, std::string_view text) {
  if (key.if_no_number && !IsNumber(text)) return std::nullopt;
  try {
    std::visit(ReadsNumber{text}, key.conversion);
    return std::nullopt;
  } catch (const Failure& failure) {
    if (failure.Number() != kTypeMismatch) return Trouble::kOutOfRange;
    return text.find_first_not_of(" \t") == std::string_view::npos ? Trouble::kMissingKey
                                                                   : Trouble::kNoNumber;
  }
}

// How many keys the library reads before it stops.
std::size_t CheckNeeded(Diagnosis& diagnosis) {
  std::size_t good = 0;
  bool reading = true;
  for (const auto& key : keys::kKeys) {
    const auto text = ReadSetting(key.name);
    const auto trouble = TroubleOf(key, text);
    if (trouble) {
      const auto value = Utf8FromAnsi(text);
      diagnosis.Find(*trouble, std::string(key.name).append(value.empty() ? "" : "=" + value));
      reading = false;
    }
    if (reading) ++good;
  }
  return good;
}

// ---- What may be there ----

bool IsInRange(const keys::AddedKey& key, std::string_view text) {
  if (std::holds_alternative<std::string SafeSettings::*>(key.field)) return true;
  try {
    const auto number = IsNumber(text) ? std::optional(ToNumber(text)) : std::nullopt;
    return number && *number >= key.least && *number <= key.most;
  } catch (const Failure&) {
    return false;
  }
}

void CheckAdded(Diagnosis& diagnosis) {
  constexpr std::array<std::string_view, 6> kOfSafeMode = {
      "ReconoceRepetidas", "PacienciaSegura",  "ControlarTotal", "Diario",
      "DiarioDias",        "DiarioObligatorio"};
  const bool safe = ReadSetting("ModoSeguro") == "1";
  for (const auto& key : keys::kAddedKeys) {
    const auto text = ReadSetting(key.name);
    if (text.empty()) continue;
    if (!IsInRange(key, text)) {
      diagnosis.Find(Trouble::kIgnoredKey, std::string(key.name) + "=" + Utf8FromAnsi(text));
    }
    const bool of_safe =
        std::find(kOfSafeMode.begin(), kOfSafeMode.end(), key.name) != kOfSafeMode.end();
    if (of_safe && !safe && text != "0") diagnosis.Find(Trouble::kIdleKey, std::string(key.name));
  }
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), AsciiLower);
  return lower;
}

void CheckLines(Diagnosis& diagnosis, const IniText& text) {
  std::set<std::string> seen;
  for (const auto& line : text.lines) {
    const auto where = Utf8FromAnsi(line.key) + " en el renglón " + std::to_string(line.number);
    if (!IsKnown(line.key)) {
      const auto nearest = NearestTo(line.key);
      diagnosis.Find(Trouble::kUnknownKey,
                     where + (nearest.empty() ? "" : ", ¿será " + std::string(nearest) + "?"));
    } else if (!seen.insert(Lower(line.key)).second) {
      diagnosis.Find(Trouble::kRepeatedKey, where);
    }
  }
}

// ---- What the family needs ----

void CheckFamily(Diagnosis& diagnosis) {
  const auto family = ReadWay().family;
  if (!IsFamily(family)) {
    diagnosis.Find(Trouble::kBadFamily,
                   "TipoComprobante=" + Utf8FromAnsi(ReadSetting("TipoComprobante")));
    return;
  }
  const auto own = family == "FC" ? Reads::kForms : Reads::kTickets;
  for (const auto& words : kKeyWords) {
    const bool digits = words.name.substr(0, 3) == "Ent";
    if (words.reads != own && !digits) continue;
    const auto text = ReadSetting(words.name);
    if (IsNumber(text) && text.find_first_not_of(" \t0+-") == std::string::npos) {
      diagnosis.Find(Trouble::kUselessLength, std::string(words.name) + "=" + text);
    }
  }
}

// ---- The way to the printer ----

bool CheckWay(Diagnosis& diagnosis) {
  const Way way = ReadWay();
  const bool speed_is_one = LineSpeedOf(way.speed + ",N,8,1").has_value();
  try {
    [[maybe_unused]] const auto port = PortOf(way);
  } catch (const Stop& stop) {
    const bool address = !way.device.empty();
    diagnosis.Find(address        ? Trouble::kBadAddress
                   : speed_is_one ? Trouble::kBadPort
                                  : Trouble::kBadSpeed,
                   stop.what());
    return false;
  }
  if (!speed_is_one && !LeadsToProgram(way)) {
    diagnosis.Find(Trouble::kSpeedIgnored, "ImpresoraConfig=" + Utf8FromAnsi(way.speed));
  }
  return true;
}

std::string AllKeys() {
  std::vector<std::string> rows;
  for (const auto& [name, value] : SettingsThatAreThere()) rows.push_back(name + "=" + value);
  return Joined(rows, "  ");
}

}  // namespace

std::vector<std::pair<std::string, std::string>> SettingsThatAreThere() {
  std::vector<std::pair<std::string, std::string>> rows;
  ForEachWords([&](const KeyWords& words) {
    const auto value = ReadSetting(words.name);
    if (!value.empty()) rows.emplace_back(words.name, Utf8FromAnsi(value));
  });
  return rows;
}

bool CheckSettings(Diagnosis& diagnosis) {
  diagnosis.Section("Fiscal.ini");
  diagnosis.Fact("carpeta", CurrentFolder());
  const auto files = SettingsFiles();
  if (files.empty()) {
    diagnosis.Fact("archivo", "ninguno");
    diagnosis.Find(Trouble::kNoFile, CurrentFolder());
    return false;
  }
  diagnosis.Fact("archivo", files.front());
  if (files.size() > 1) diagnosis.Find(Trouble::kManyFiles, Joined(files));
  const auto text = ReadIniText(SettingsText());
  if (!text.has_section) {
    diagnosis.Find(Trouble::kNoSection);
    return false;
  }
  const auto good = CheckNeeded(diagnosis);
  diagnosis.Fact("se leen",
                 std::to_string(good) + " de " + std::to_string(keys::kKeys.size()) + " claves");
  diagnosis.Fact("claves", AllKeys());
  CheckLines(diagnosis, text);
  CheckAdded(diagnosis);
  CheckFamily(diagnosis);
  return CheckWay(diagnosis);
}

}  // namespace kestra::tool
