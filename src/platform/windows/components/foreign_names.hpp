#pragma once

#include <string>
#include <vector>

#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registry.hpp"

namespace kestra {

bool HasForeignNames(const Hive& hive, Classes classes);

// Those of the keys that are not part of a name that leads to somebody else's class.
std::vector<std::wstring> WithoutForeignNames(const Hive& hive, Classes classes,
                                              std::vector<std::wstring> keys);

// Names of the library's classes that lead to somebody else's, kept over a registration that overwrites
// them.
class ForeignNames {
 public:
  // As they are now.
  static ForeignNames Read(const Hive& hive, Classes classes);

  // Puts back what has been overwritten or removed since.
  void Restore(const Hive& hive) const;

 private:
  struct KeptKey {
    std::wstring key;
    bool there = false;
    std::vector<RegistryValue> values;
  };

  // The longest first within each name.
  std::vector<KeptKey> keys_;
};

}  // namespace kestra
