#include "golden/live/settings_file.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "frame/configuration.hpp"
#include "golden/base_configuration.hpp"
#include "golden/visible.hpp"

namespace kestra::live {
namespace {

constexpr const char* kFile = "Fiscal.ini";
constexpr std::string_view kPortNumber = "ImpresoraPuerto";

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameKey(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace

SettingsFile::SettingsFile() {
  for (const golden::Setting& row : golden::kBaseConfiguration) {
    settings_.emplace_back(row.key, row.value);
  }
}

void SettingsFile::Lend(std::string_view setting) {
  Change(setting);
  lent_key_ = setting.substr(0, setting.find('='));
}

void SettingsFile::TakeBackFor(std::string_view key) {
  if (SameKey(key, kPortNumber)) Remove(std::exchange(lent_key_, {}));
}

void SettingsFile::Change(std::string_view change) {
  written_ = false;
  const auto equals = change.find('=');
  const bool removal = !change.empty() && change[0] == '-';
  TakeBackFor(removal ? change.substr(1) : change.substr(0, equals));
  if (change == "none") {
    settings_.clear();
  } else if (removal) {
    Remove(change.substr(1));
  } else if (equals != std::string_view::npos) {
    Set(change.substr(0, equals), golden::FromVisible(change.substr(equals + 1)));
  } else {
    throw std::invalid_argument("a setting reads Key=Value");
  }
}

void SettingsFile::Set(std::string_view key, std::string_view value) {
  const auto place = std::find_if(settings_.begin(), settings_.end(),
                                  [&](const auto& row) { return SameKey(row.first, key); });
  if (place == settings_.end()) {
    settings_.emplace_back(key, value);
  } else {
    *place = {std::string(key), std::string(value)};
  }
}

void SettingsFile::Remove(std::string_view key) {
  settings_.erase(std::remove_if(settings_.begin(), settings_.end(),
                                 [&](const auto& row) { return SameKey(row.first, key); }),
                  settings_.end());
}

void SettingsFile::Write() {
  if (written_) return;
  written_ = true;
  if (settings_.empty()) {
    (void)std::remove(kFile);
    return;
  }
  std::ofstream file(kFile, std::ios::binary | std::ios::trunc);
  file << '[' << kSection << "]\r\n";
  for (const auto& [key, value] : settings_) file << key << '=' << value << "\r\n";
  if (!file.flush()) throw std::runtime_error("Fiscal.ini cannot be written");
}

}  // namespace kestra::live
