#include "platform/windows/components/foreign_names.hpp"

#include <algorithm>

#include "platform/windows/components/registration_rows.hpp"

namespace kestra {
namespace {

bool IsForeign(const Hive& hive, const ClassName& name) {
  if (!HasKey(hive, name.key)) return false;
  const auto leads_to = ReadText(hive, name.key + L"\\CLSID", {});
  return lstrcmpiW(leads_to.c_str(), name.class_id.c_str()) != 0;
}

std::vector<ClassName> Foreign(const Hive& hive, Classes classes) {
  std::vector<ClassName> foreign;
  for (auto& name : ClassNames(classes)) {
    if (IsForeign(hive, name)) foreign.push_back(name);
  }
  return foreign;
}

}  // namespace

bool HasForeignNames(const Hive& hive, Classes classes) {
  return !Foreign(hive, classes).empty();
}

std::vector<std::wstring> WithoutForeignNames(const Hive& hive, Classes classes,
                                              std::vector<std::wstring> keys) {
  for (const auto& name : Foreign(hive, classes)) {
    const auto part_of_it = [&](const std::wstring& key) {
      return std::find(name.keys.begin(), name.keys.end(), key) != name.keys.end();
    };
    keys.erase(std::remove_if(keys.begin(), keys.end(), part_of_it), keys.end());
  }
  return keys;
}

ForeignNames ForeignNames::Read(const Hive& hive, Classes classes) {
  ForeignNames now;
  for (const auto& name : Foreign(hive, classes)) {
    for (const auto& key : name.keys) {
      now.keys_.push_back(
          {.key = key, .there = HasKey(hive, key), .values = ReadValues(hive, key)});
    }
  }
  return now;
}

void ForeignNames::Restore(const Hive& hive) const {
  for (const auto& kept : keys_) {
    if (kept.there) {
      PutBackValues(hive, kept.key, kept.values);
    } else {
      RemoveKey(hive, kept.key);
    }
  }
}

}  // namespace kestra
