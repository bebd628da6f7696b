#include "platform/windows/components/public_classes.hpp"

#include <initguid.h>
#include <kestra_h.h>
#include <objbase.h>

#include "platform/windows/components/automation.hpp"
#include "platform/windows/components/module.hpp"
#include "platform/windows/components/registration.hpp"
#include "platform/windows/components/registry.hpp"

namespace kestra {

namespace {

class InitObject final : public AutomationObject<IInitClass> {
 public:
  // Being created and called is all that start-up wants of it.
  HRESULT STDMETHODCALLTYPE InitVBCall() override { return S_OK; }
};

class ExampleObject final : public AutomationObject<IExampleClass> {};

template <typename Object>
HRESULT Create(REFIID interface_id, void** object) {
  auto* const made = new Object;
  const HRESULT result = made->QueryInterface(interface_id, object);
  made->Release();
  return result;
}

}  // namespace

const std::array<PublicClass, 2>& PublicClasses() {
  static const std::array<PublicClass, 2> classes{{
      {.id = &__uuidof(InitClass),
       .interface_id = &__uuidof(IInitClass),
       .name = L"InitClass",
       .interface_name = L"IInitClass",
       .create = Create<InitObject>},
      {.id = &__uuidof(ExampleClass),
       .interface_id = &__uuidof(IExampleClass),
       .name = L"ExampleClass",
       .interface_name = L"IExampleClass",
       .create = Create<ExampleObject>},
  }};
  return classes;
}

const GUID& TypeLibraryId() {
  return LIBID_Kestra;
}

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
