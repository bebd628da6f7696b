#include "hostile/posix/shop.hpp"

#include <stdlib.h>

#include <fstream>

#include "golden/base_configuration.hpp"
#include "hostile/shared/person.hpp"
#include "kestra/kestra.h"

namespace kestra::hostile {

Shop::Shop(const std::string& device, const std::string& more)
    : before_(std::filesystem::current_path()) {
  std::string name = (std::filesystem::temp_directory_path() / "kestra.XXXXXX").string();
  folder_ = ::mkdtemp(name.data());
  std::filesystem::current_path(folder_);
  std::ofstream settings("Fiscal.ini");
  settings << "[Epson_Fiscal]\r\n" << more << "ImpresoraDispositivo=" << device << "\r\n";
  for (const golden::Setting& setting : golden::kBaseConfiguration) {
    settings << setting.key << "=" << setting.value << "\r\n";
  }
  TakeTheOperatorsPlace();
}

Shop::~Shop() {
  std::error_code gone;
  std::filesystem::current_path(before_, gone);
  std::filesystem::remove_all(folder_, gone);
}

void TakeTheOperatorsPlace() {
  static Person person;
  static const auto record = exports::RecordOf(person);
  Kestra_DefinirOperador(&record);
}

}  // namespace kestra::hostile
