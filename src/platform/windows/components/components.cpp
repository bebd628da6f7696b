#include "platform/components.hpp"

#include "platform/windows/components/class_factory.hpp"
#include "platform/windows/components/com_guard.hpp"
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

}  // namespace

std::int32_t RegisterComponents() {
  return ComGuard([] { return RegisterModule(ModulePath()); });
}

std::int32_t UnregisterComponents() {
  return ComGuard([] { return UnregisterModule(ModulePath()); });
}

std::int32_t ComponentFactory(const void* class_id, const void* interface_id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (class_id == nullptr || interface_id == nullptr) return E_INVALIDARG;
  return ComGuard([&] {
    return MakeFactory(*static_cast<const CLSID*>(class_id), *static_cast<const IID*>(interface_id),
                       object);
  });
}

bool ComponentsInUse() {
  return Use::Any();
}

}  // namespace kestra
