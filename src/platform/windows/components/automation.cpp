#include "platform/windows/components/automation.hpp"

#include "platform/windows/components/module.hpp"

namespace kestra {

HRESULT LoadTypeInfo(REFIID interface_id, ITypeInfo** info) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(interface_id, info);
}

}  // namespace kestra
