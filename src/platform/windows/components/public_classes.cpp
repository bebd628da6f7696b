#include "platform/windows/components/public_classes.hpp"

#include <initguid.h>
#include <kestra_h.h>
#include <oaidl.h>
#include <objbase.h>

#include <array>

#include "platform/windows/components/com.hpp"
#include "platform/windows/components/registration.hpp"
#include "platform/windows/components/registry.hpp"
#include "platform/windows/components/till_object.hpp"
#include "platform/windows/module.hpp"

namespace kestra {

namespace {

// The description of an interface in the type library inside this very file, registered or not.
HRESULT LoadTypeInfo(REFIID interface_id, ITypeInfo** info) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(interface_id, info);
}

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

Classes PublicClasses() {
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

Classes ScriptClasses() {
  static const std::array<PublicClass, 1> classes{{{.id = &kTillClass,
                                                    .interface_id = nullptr,
                                                    .name = L"Caja",
                                                    .interface_name = nullptr,
                                                    .create = CreateTill}}};
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
