#pragma once

#include <istream>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "machine/settings.hpp"

namespace impresora {

// The keys of one section of an INI text. Names are the same in either case; of two equal ones the
// first counts.
class IniSection {
 public:
  // Takes the first section of that name; an absent one has no keys.
  IniSection(std::istream& text, std::string_view name);

  bool Found() const { return found_; }
  // Without blanks and quotes around it; nothing when the key is absent.
  std::optional<std::string> Value(std::string_view key) const;

 private:
  void Take(std::string_view line);

  bool found_ = false;
  std::map<std::string, std::string> values_;
};

// Sets up the printer as the host's Fiscal.ini expects it; keys that are absent change nothing.
// Returns what is wrong with the file, in words, or nothing.
std::string ApplyFiscalIni(const std::string& path, Settings& settings);

bool SetFamily(Settings& settings, std::string_view code);

}  // namespace impresora
