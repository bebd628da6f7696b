#include "platform/windows/components/till_object.hpp"

#include <oaidl.h>
#include <oleauto.h>

#include <atomic>
#include <string_view>

#include "platform/windows/components/com.hpp"
#include "platform/windows/components/script_values.hpp"
#include "platform/windows/components/till_methods.hpp"
#include "platform/windows/module.hpp"

namespace kestra {
namespace {

// What a text for a script may be long: more than anything that the library has to tell.
constexpr std::size_t kLongestText = 65536;

// The bytes that the export did not write are still zeros.
std::string_view Written(const std::string& room) {
  const auto last = room.find_last_not_of('\0');
  return std::string_view(room).substr(0, last == std::string::npos ? 0 : last + 1);
}

// One call: the script's arguments, those of the export, and what goes back.
class TillCall {
 public:
  TillCall(const Method& method, const DISPPARAMS& given, Encoding encoding)
      : method_(method), given_(given), encoding_(encoding) {}

  // Nothing has been asked of the library when it fails; `wrong` is then the argument's place, as the
  // component system counts them.
  HRESULT Take(UINT& wrong) {
    if (given_.cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    if (given_.cArgs != CountForScripts()) return DISP_E_BADPARAMCOUNT;
    UINT argument = 0;
    for (std::size_t i = 0; i < method_.count; ++i) {
      if (method_.places[i].kind == PlaceKind::kRoom) {
        values_[i].integer = static_cast<std::int32_t>(values_[i - 1].text.size());
        continue;
      }
      const HRESULT result = TakeOne(method_.places[i], Argument(argument), values_[i]);
      if (FAILED(result)) {
        wrong = given_.cArgs - 1 - argument;
        return result;
      }
      ++argument;
    }
    return S_OK;
  }

  std::int32_t Run(void* address) { return method_.call(address, values_); }

  HRESULT GiveBack() {
    HRESULT first_error = S_OK;
    UINT argument = 0;
    for (std::size_t i = 0; i < method_.count; ++i) {
      const auto kind = method_.places[i].kind;
      if (kind == PlaceKind::kResult) {
        const HRESULT result = Assign(Argument(argument), encoding_, Written(values_[i].text));
        if (SUCCEEDED(first_error)) first_error = result;
      }
      if (kind != PlaceKind::kRoom) ++argument;
    }
    return first_error;
  }

 private:
  [[nodiscard]] UINT CountForScripts() const {
    UINT count = 0;
    for (const Place& place : method_.Places()) count += place.kind == PlaceKind::kRoom ? 0 : 1;
    return count;
  }

  // They come last first.
  [[nodiscard]] const VARIANT& Argument(UINT place) const {
    return given_.rgvarg[given_.cArgs - 1 - place];
  }

  HRESULT TakeOne(const Place& place, const VARIANT& given, PlaceValue& value) const {
    switch (place.kind) {
      case PlaceKind::kInteger:
        return IntegerOf(given, value.integer);
      case PlaceKind::kAmount:
        return AmountOf(given, value.amount);
      case PlaceKind::kResult:
        value.text.assign(place.bytes == 0 ? kLongestText : place.bytes, '\0');
        return IsVariable(given) ? S_OK : DISP_E_TYPEMISMATCH;
      default:
        break;
    }
    const HRESULT result = TextOf(given, encoding_, value.text);
    // Of UTF-8 the library counts the characters, and takes no more of them than it wants.
    const bool counts_bytes = place.kind == PlaceKind::kText && encoding_ == Encoding::kAnsi;
    if (counts_bytes) value.text.resize(place.bytes, ' ');
    return result;
  }

  const Method& method_;
  const DISPPARAMS& given_;
  Encoding encoding_;
  PlaceValues values_;
};

// The exports' own addresses: a script's calls take their turn like everybody's.
void* AddressOf(const Method& method) {
  return reinterpret_cast<void*>(::GetProcAddress(OwnModule(), method.name.data()));
}

class TillObject final : public IDispatch {
 public:
  TillObject() = default;
  TillObject(const TillObject&) = delete;
  TillObject& operator=(const TillObject&) = delete;
  virtual ~TillObject() {
    // A script that ends in the middle gives the port back; unless another one still works with it.
    if (Starts(false) && started_ == 0) FindAndRun(L"EP_Kill");
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IDispatch);
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) references_.Add();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.Remove();
    if (left == 0) delete this;
    return left;
  }

  // Its methods are found by their names alone: no type library describes them.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                        ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
  }

  // A method's number is its place in the rows; 0 is a default member's, and there is none.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) override {
    if (!IsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    // The names behind the first are arguments', which have none here.
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const Method* const method = FindMethod(names[0]);
    if (method != nullptr) ids[0] = static_cast<DISPID>(method - Methods().data() + 1);
    return method != nullptr && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID /*locale*/, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* /*exception*/,
                                   UINT* wrong) override {
    if (!IsEqualGUID(id, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_INVALIDARG;
    const auto methods = Methods();
    const bool known = member >= 1 && static_cast<std::size_t>(member) <= methods.size();
    if (!known || (flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
    // A script may drop its last reference to the object by what it has in a result's place.
    AddRef();
    const HRESULT done = ComGuard([&] {
      return Call(methods[static_cast<std::size_t>(member - 1)], *arguments, result, wrong);
    });
    Release();
    return done;
  }

 private:
  HRESULT Call(const Method& method, const DISPPARAMS& arguments, VARIANT* result, UINT* wrong) {
    void* const address = AddressOf(method);
    if (address == nullptr) return DISP_E_MEMBERNOTFOUND;
    TillCall call(method, arguments, EncodingNow());
    UINT place = 0;
    const HRESULT taken = call.Take(place);
    if (FAILED(taken)) {
      if (wrong != nullptr) *wrong = place;
      return taken;
    }
    const std::int32_t value = call.Run(address);
    Note(method.name, value);
    if (result != nullptr) {
      VariantInit(result);
      result->vt = VT_I4;
      result->lVal = value;
    }
    return call.GiveBack();
  }

  void Note(std::string_view name, std::int32_t value) {
    if (name == "EP_Init" && value == 1) Starts(true);
    if (name == "EP_Kill") Starts(false);
  }

  // Says whether this object works with the port from now on; whether it did before.
  bool Starts(bool starts) {
    const bool did = working_.exchange(starts);
    started_ += static_cast<long>(starts) - static_cast<long>(did);
    return did;
  }

  static std::int32_t FindAndRun(std::wstring_view name, std::int32_t argument = 0) {
    PlaceValues values;
    values[0].integer = argument;
    const Method* const method = FindMethod(name);
    void* const address = method == nullptr ? nullptr : AddressOf(*method);
    return address == nullptr ? -1 : method->call(address, values);
  }

  // The settings or another part of the program may have chosen it.
  static Encoding EncodingNow() {
    constexpr std::int32_t kAsk = -1;
    constexpr std::int32_t kUtf8 = 2;
    return FindAndRun(L"Kestra_Textos", kAsk) == kUtf8 ? Encoding::kUtf8 : Encoding::kAnsi;
  }

  static inline std::atomic<long> started_ = 0;

  References references_;
  std::atomic<bool> working_ = false;
};

}  // namespace

HRESULT CreateTill(REFIID interface_id, void** object) {
  auto* const made = new TillObject;
  const HRESULT result = made->QueryInterface(interface_id, object);
  made->Release();
  return result;
}

}  // namespace kestra
