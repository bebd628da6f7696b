#include <windows.h>

#include <unknwn.h>

#include <string_view>

#include "platform/seam/host.hpp"
#include "platform/seam/platform.hpp"
#include "platform/windows/components/com.hpp"
#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registration.hpp"
#include "platform/windows/module.hpp"

namespace kestra {
namespace {

// Makes the objects of one public class.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const PublicClass& row) : row_(row) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;
  virtual ~ClassFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IClassFactory);
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (known) references_.Add();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.Remove();
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return ComGuard([&] { return row_.create(id, object); });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    if (lock != FALSE) {
      Use::Add();
    } else {
      Use::Remove();
    }
    return S_OK;
  }

 private:
  References references_;
  const PublicClass& row_;
};

HRESULT MakeFactory(REFCLSID class_id, REFIID interface_id, void** object) {
  for (const Classes classes : {PublicClasses(), ScriptClasses()}) {
    for (const auto& row : classes) {
      if (!IsEqualGUID(class_id, *row.id)) continue;
      auto* const factory = new ClassFactory(row);
      const HRESULT result = factory->QueryInterface(interface_id, object);
      factory->Release();
      return result;
    }
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

// What is installed by its name: "caja", in the words of regsvr32's user.
bool NamesTheScriptClasses(const void* part) {
  constexpr std::wstring_view kName = L"caja";
  wchar_t words[kName.size() + 1] = {};
  return part != nullptr && ReadHostMemory(words, part, sizeof words) == sizeof words &&
         words[kName.size()] == L'\0' && lstrcmpiW(words, kName.data()) == 0;
}

}  // namespace

std::int32_t RegisterComponents() {
  return ComGuard([] { return RegisterModule(ModulePath(), PublicClasses()); });
}

std::int32_t UnregisterComponents() {
  return ComGuard([] { return UnregisterModule(ModulePath(), PublicClasses()); });
}

std::int32_t InstallComponents(bool install, const void* part) {
  if (!NamesTheScriptClasses(part)) return E_INVALIDARG;
  const auto act = install ? RegisterModule : UnregisterModule;
  return ComGuard([&] { return act(ModulePath(), ScriptClasses()); });
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
