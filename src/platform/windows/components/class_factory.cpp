#include "platform/windows/components/class_factory.hpp"

#include "platform/windows/components/com.hpp"

namespace kestra {

HRESULT STDMETHODCALLTYPE ClassFactory::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IClassFactory);
  *object = known ? static_cast<IClassFactory*>(this) : nullptr;
  if (known) references_.Add();
  return known ? S_OK : E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE ClassFactory::Release() {
  const ULONG left = references_.Remove();
  if (left == 0) delete this;
  return left;
}

HRESULT STDMETHODCALLTYPE ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return ComGuard([&] { return row_.create(id, object); });
}

HRESULT STDMETHODCALLTYPE ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    Use::Add();
  } else {
    Use::Remove();
  }
  return S_OK;
}

}  // namespace kestra
