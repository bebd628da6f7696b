#include "platform/windows/components/script_values.hpp"

#include <oleauto.h>

#include "platform/windows/text.hpp"

namespace kestra {
namespace {

// Numbers and dates as texts, the same in every country.
constexpr LCID kInvariant = MAKELCID(MAKELANGID(LANG_INVARIANT, SUBLANG_NEUTRAL), SORT_DEFAULT);

// A value of our own.
class Value {
 public:
  Value() { VariantInit(&value_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { VariantClear(&value_); }

  HRESULT ChangeFrom(const VARIANT& other, VARTYPE type) {
    // An argument that the script left out, between others: nothing can be made of it.
    if (other.vt == VT_ERROR) return DISP_E_PARAMNOTOPTIONAL;
    return VariantChangeTypeEx(&value_, const_cast<VARIANT*>(&other), kInvariant, 0, type);
  }
  VARIANT* operator->() { return &value_; }

 private:
  VARIANT value_;
};

std::wstring_view WordsOf(BSTR text) {
  return {text == nullptr ? L"" : text, SysStringLen(text)};
}

// The value that a variable holds.
const VARIANT& Behind(const VARIANT& value) {
  return value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal != nullptr ? *value.pvarVal : value;
}

bool HasComma(const VARIANT& given) {
  const VARIANT& value = Behind(given);
  BSTR text = nullptr;
  if (value.vt == VT_BSTR) text = value.bstrVal;
  if (value.vt == (VT_BYREF | VT_BSTR)) text = *value.pbstrVal;
  return WordsOf(text).find(L',') != std::wstring_view::npos;
}

HRESULT NumberOf(const VARIANT& value, VARTYPE type, Value& number) {
  return HasComma(value) ? DISP_E_TYPEMISMATCH : number.ChangeFrom(value, type);
}

}  // namespace

HRESULT TextOf(const VARIANT& value, Encoding encoding, std::string& text) {
  const auto made_of = encoding == Encoding::kUtf8 ? Utf8FromWide : AnsiFromWide;
  Value words;
  const HRESULT result = words.ChangeFrom(value, VT_BSTR);
  if (SUCCEEDED(result)) text = made_of(WordsOf(words->bstrVal));
  return result;
}

HRESULT AmountOf(const VARIANT& value, double& amount) {
  Value number;
  const HRESULT result = NumberOf(value, VT_R8, number);
  if (SUCCEEDED(result)) amount = number->dblVal;
  return result;
}

HRESULT IntegerOf(const VARIANT& value, std::int32_t& integer) {
  Value number;
  const HRESULT result = NumberOf(value, VT_I4, number);
  if (SUCCEEDED(result)) integer = number->lVal;
  return result;
}

bool IsVariable(const VARIANT& value) {
  const bool holds_any = value.vt == (VT_BYREF | VT_VARIANT);
  return (holds_any || value.vt == (VT_BYREF | VT_BSTR)) && value.byref != nullptr;
}

HRESULT Assign(const VARIANT& variable, Encoding encoding, std::string_view text) {
  const auto words = encoding == Encoding::kUtf8 ? WideFromUtf8(text) : WideFromAnsi(text);
  const BSTR made = SysAllocStringLen(words.data(), static_cast<UINT>(words.size()));
  if (made == nullptr) return E_OUTOFMEMORY;
  const VARIANT& place = Behind(variable);
  if (place.vt == (VT_BYREF | VT_BSTR)) {
    SysFreeString(*place.pbstrVal);
    *place.pbstrVal = made;
    return S_OK;
  }
  const HRESULT cleared = VariantClear(variable.pvarVal);
  if (FAILED(cleared)) {
    SysFreeString(made);
    return cleared;
  }
  variable.pvarVal->vt = VT_BSTR;
  variable.pvarVal->bstrVal = made;
  return S_OK;
}

}  // namespace kestra
