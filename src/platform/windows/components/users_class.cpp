#include "platform/windows/components/users_class.hpp"

#include <objbase.h>

#include <kestra_h.h>

#include "platform/windows/components/module.hpp"
#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registration.hpp"
#include "platform/windows/components/registry.hpp"

namespace kestra {

HRESULT CreateUsersInitObject(void** object) {
  if (!NamesFile(UserHive(), ModulePath())) return REGDB_E_CLASSNOTREG;
  const auto text = ReadText(UserHive(), L"Kestra.InitClass\\CLSID", {});
  CLSID id{};
  if (FAILED(CLSIDFromString(text.c_str(), &id))) return CO_E_CLASSSTRING;
  for (const auto& row : PublicClasses()) {
    if (IsEqualGUID(*row.id, id)) return row.create(__uuidof(IInitClass), object);
  }
  return REGDB_E_CLASSNOTREG;
}

}  // namespace kestra
