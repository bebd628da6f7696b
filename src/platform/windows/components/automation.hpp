#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>

#include "platform/windows/components/com.hpp"

namespace kestra {

// What keeps the library in memory: live objects, and locks that clients hold on their factories.
class Use {
 public:
  static void Add() { ++count_; }
  static void Remove() { --count_; }
  static bool Any() { return count_ > 0; }

 private:
  static inline std::atomic<long> count_ = 0;
};

// Counts the references to an object, and the object among those in use.
class References {
 public:
  References() { Use::Add(); }
  References(const References&) = delete;
  References& operator=(const References&) = delete;
  ~References() { Use::Remove(); }

  ULONG Add() { return ++count_; }
  ULONG Remove() { return --count_; }

 private:
  std::atomic<ULONG> count_ = 1;
};

// The description of an interface in the type library inside this very file, registered or not.
HRESULT LoadTypeInfo(REFIID interface_id, ITypeInfo** info);

// An object with the dual interface `Interface`; its automation half follows the type library.
template <typename Interface>
class AutomationObject : public Interface {
 public:
  AutomationObject() = default;
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;
  virtual ~AutomationObject() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IDispatch) ||
                       IsEqualGUID(id, __uuidof(Interface));
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (known) references_.Add();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.Remove();
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return ComGuard([&] { return LoadTypeInfo(__uuidof(Interface), info); });
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) override {
    if (!IsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return WithTypeInfo([&](ITypeInfo& info) { return info.GetIDsOfNames(names, count, ids); });
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID /*locale*/, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong) override {
    if (!IsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return WithTypeInfo([&](ITypeInfo& info) {
      auto* const self = static_cast<Interface*>(this);
      return info.Invoke(self, member, flags, arguments, result, exception, wrong);
    });
  }

 private:
  template <typename Body>
  HRESULT WithTypeInfo(Body body) noexcept {
    return ComGuard([&] {
      const HRESULT loaded = info_ ? S_OK : LoadTypeInfo(__uuidof(Interface), info_.Receive());
      return FAILED(loaded) ? loaded : body(*info_.Get());
    });
  }

  References references_;
  ComPtr<ITypeInfo> info_;
};

}  // namespace kestra
