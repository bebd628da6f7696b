#pragma once

#include <map>
#include <string>
#include <string_view>

#include "fakes/trouble.hpp"
#include "platform/seam/files.hpp"

namespace kestra {

// Fiscal.ini with its one section, kept as key and value.
class FakeProfile : public ProfileFile {
 public:
  explicit FakeProfile(Trouble& trouble) : trouble_(trouble) {}

  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;

  void Set(std::string_view key, std::string_view value);
  void Remove(std::string_view key);
  void RemoveAll() { values_.clear(); }

 private:
  Trouble& trouble_;
  std::map<std::string, std::string> values_;  // keys in lower case
};

}  // namespace kestra
