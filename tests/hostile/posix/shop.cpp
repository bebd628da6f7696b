#include "hostile/posix/shop.hpp"

#include <stdlib.h>

#include <fstream>

#include "golden/base_configuration.hpp"
#include "kestra/kestra.h"

namespace kestra::hostile {
namespace {

constexpr std::int32_t kOk = 1;
constexpr std::int32_t kYes = 6;
constexpr std::int32_t kNo = 7;
constexpr std::int32_t kStyleOk = 0;
constexpr std::int32_t kStyleRetry = 4;

std::int32_t KESTRA_CALL Answer(void* /*context*/, const char* /*text*/, const char* /*title*/,
                                std::int32_t style) {
  if (style == kStyleOk) return kOk;
  return style == kStyleRetry ? kNo : kYes;
}

std::int32_t KESTRA_CALL Report(void* /*context*/, const char* /*printer*/, const char* /*fiscal*/,
                                const KestraFila* /*rows*/, std::int32_t /*count*/) {
  return 0;
}

void KESTRA_CALL MemoryFull(void* /*context*/) {}

}  // namespace

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
  static const KestraOperador record{sizeof record, nullptr, Answer, Report, MemoryFull};
  Kestra_DefinirOperador(&record);
}

}  // namespace kestra::hostile
