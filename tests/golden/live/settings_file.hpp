#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestra::live {

// The Fiscal.ini of a case, in the current directory. It starts as every case's does.
class SettingsFile {
 public:
  SettingsFile();

  // The device that the line has here. A case that names a port of its own is taken at its word: the
  // device must not hide it.
  void Lend(std::string_view setting);

  // As a case writes it: "Key=Value" changes, "-Key" removes, "none" removes the file.
  void Change(std::string_view change);

  // Brings the file up to date.
  void Write();

 private:
  void Set(std::string_view key, std::string_view value);
  void Remove(std::string_view key);
  void TakeBackFor(std::string_view key);

  std::vector<std::pair<std::string, std::string>> settings_;
  std::string lent_key_;
  bool written_ = false;
};

}  // namespace kestra::live
