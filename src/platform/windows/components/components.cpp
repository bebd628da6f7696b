#include "platform/seam/components.hpp"

#include <windows.h>

#include "platform/seam/host.hpp"
#include "platform/windows/components/class_factory.hpp"
#include "platform/windows/components/com.hpp"
#include "platform/windows/components/module.hpp"
#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registration.hpp"

namespace kestra {
namespace {

HRESULT MakeFactory(REFCLSID class_id, REFIID interface_id, void** object) {
  for (const auto& row : PublicClasses()) {
    if (!IsEqualGUID(class_id, *row.id)) continue;
    auto* const factory = new ClassFactory(row);
    const HRESULT result = factory->QueryInterface(interface_id, object);
    factory->Release();
    return result;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

// The caller's memory need not be there, as with every other export.
bool Take(GUID& here, const void* there) {
  return there != nullptr && ReadHostMemory(&here, there, sizeof here) == sizeof here;
}

bool Give(void** there, void* object) {
  return there != nullptr && WriteHostMemory(there, &object, sizeof object) == sizeof object;
}

}  // namespace

std::int32_t RegisterComponents() {
  return ComGuard([] { return RegisterModule(ModulePath()); });
}

std::int32_t UnregisterComponents() {
  return ComGuard([] { return UnregisterModule(ModulePath()); });
}

std::int32_t ComponentFactory(const void* class_id, const void* interface_id, void** object) {
  void* factory = nullptr;
  if (!Give(object, factory)) return E_POINTER;
  CLSID class_name{};
  IID interface_name{};
  if (!Take(class_name, class_id) || !Take(interface_name, interface_id)) return E_INVALIDARG;
  const HRESULT result =
      ComGuard([&] { return MakeFactory(class_name, interface_name, &factory); });
  if (FAILED(result) || Give(object, factory)) return result;
  static_cast<IUnknown*>(factory)->Release();
  return E_POINTER;
}

bool ComponentsInUse() {
  return Use::Any();
}

}  // namespace kestra
