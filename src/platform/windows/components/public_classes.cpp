#include "platform/windows/components/public_classes.hpp"

#include <initguid.h>
#include <kestra_h.h>

#include "platform/windows/components/automation.hpp"

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

}  // namespace kestra
