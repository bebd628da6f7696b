// Stories of scripts: the library as an object, whose methods are its functions.

#include <windows.h>

#include <oaidl.h>
#include <oleauto.h>

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "exports/exports.hpp"
#include "host.hpp"

namespace {

using kestra::exports::Argument;
using kestra::exports::Arguments;
using kestra::exports::Export;
using kestra::exports::Exports;
using kestra::exports::Kind;
using kestra::exports::Nature;
using kestra::exports::Values;

// In place of what a registration would say.
constexpr CLSID kTill = {
    0x889b85c9, 0x1fb0, 0x407e, {0xab, 0xe4, 0x3c, 0x70, 0x6a, 0xa9, 0x56, 0x4c}};

std::int32_t WINAPI OnMessage(void*, const char*, const char*, std::int32_t style) {
  return style == 0 ? 1 : 7;
}

// Nobody is at this till.
void TakeTheOperatorsPlace() {
  struct {
    std::uint32_t size;
    void* context;
    std::int32_t(WINAPI* message)(void*, const char*, const char*, std::int32_t);
    void* rest[2];
  } record = {sizeof record, nullptr, OnMessage, {}};
  Entry<void(WINAPI*)(const void*)>("Kestra_DefinirOperador")(&record);
}

IDispatch* NewTill() {
  TakeTheOperatorsPlace();
  IClassFactory* factory = nullptr;
  using GetClassObject = HRESULT(WINAPI*)(const void*, const void*, void**);
  CHECK(Entry<GetClassObject>("DllGetClassObject")(&kTill, &IID_IClassFactory,
                                                   reinterpret_cast<void**>(&factory)) == S_OK);
  IDispatch* till = nullptr;
  CHECK(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&till)) == S_OK);
  CHECK(factory->Release() == 0);
  return till;
}

std::wstring Wide(std::string_view text) {
  return {text.begin(), text.end()};
}

HRESULT Find(IDispatch* till, std::wstring name, DISPID& id) {
  LPOLESTR names[] = {name.data()};
  return till->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
}

DISPID IdOf(IDispatch* till, std::string_view name) {
  DISPID id = DISPID_UNKNOWN;
  kestra::Expect(Find(till, Wide(name), id) == S_OK, name, "is no method");
  return id;
}

bool IsForScripts(const Export& row) {
  return row.nature != Nature::kBeside;
}

VARIANT OfText(std::string_view text) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = SysAllocString(Wide(text).c_str());
  return value;
}

VARIANT OfInteger(std::int32_t integer) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_I4;
  value.lVal = integer;
  return value;
}

VARIANT OfAmount(double amount) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_R8;
  value.dblVal = amount;
  return value;
}

VARIANT OfVariable(VARIANT& variable) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BYREF | VT_VARIANT;
  value.pvarVal = &variable;
  return value;
}

// A script's call: its arguments in their order, and the variables that some of them are.
class ScriptCall {
 public:
  ScriptCall(IDispatch* till, std::string_view name) : till_(till), id_(IdOf(till, name)) {}
  ScriptCall(const ScriptCall&) = delete;
  ScriptCall& operator=(const ScriptCall&) = delete;
  ~ScriptCall() {
    for (VARIANT& value : arguments_) VariantClear(&value);
    for (VARIANT& value : variables_) VariantClear(&value);
  }

  ScriptCall& With(VARIANT value) {
    arguments_.push_front(value);  // the last one comes first
    return *this;
  }
  ScriptCall& WithVariable(VARIANT value = OfText("de antes")) {
    variables_.push_back(value);
    return With(OfVariable(variables_.back()));
  }
  ScriptCall& WithSane(const Export& row) {
    for (const Argument& argument : Arguments(row, row.sane)) {
      if (argument.kind == Kind::kResult) WithVariable();
      if (argument.IsText()) With(OfText(argument.words.c_str()));
      if (argument.kind == Kind::kInteger) With(OfInteger(std::stoi(argument.words)));
      if (argument.kind == Kind::kAmount) With(OfAmount(std::stod(argument.words)));
    }
    return *this;
  }
  // Takes one away again, counted as the component system does.
  void Drop() {
    VariantClear(&arguments_.front());
    arguments_.pop_front();
  }
  VARIANT& Place(std::size_t place) { return arguments_[place]; }
  [[nodiscard]] std::size_t Count() const { return arguments_.size(); }

  HRESULT Run(WORD flags = DISPATCH_METHOD, UINT named = 0) {
    std::vector<VARIANT> arguments(arguments_.begin(), arguments_.end());
    DISPID names[] = {0};
    DISPPARAMS parameters = {arguments.data(), names, static_cast<UINT>(arguments.size()), named};
    VARIANT result;
    VariantInit(&result);
    wrong = kNone;
    const HRESULT done = till_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                       &result, nullptr, &wrong);
    if (done == S_OK) CHECK(result.vt == VT_I4);
    given = result.lVal;
    return done;
  }

  // The text in a variable that was handed over.
  [[nodiscard]] std::wstring Text(std::size_t number = 0) const {
    const VARIANT& variable = variables_[number];
    CHECK(variable.vt == VT_BSTR);
    return {variable.bstrVal, SysStringLen(variable.bstrVal)};
  }
  [[nodiscard]] std::size_t Variables() const { return variables_.size(); }

  static constexpr UINT kNone = 99;
  std::int32_t given = 0;
  UINT wrong = kNone;

 private:
  IDispatch* till_;
  DISPID id_;
  std::deque<VARIANT> arguments_;
  std::deque<VARIANT> variables_;
};

// The same call without an object.
struct PlainCall {
  explicit PlainCall(const Export& row) {
    constexpr std::size_t kRoom = 1000;
    Values values;
    std::deque<Argument> arguments;
    std::size_t place = 0;
    for (const Argument& argument : Arguments(row, row.sane)) {
      const Argument& kept = arguments.emplace_back(argument);
      auto& one = values[place++];
      one.pointer = kept.words.data();
      if (kept.kind == Kind::kResult) {
        one.pointer = texts.emplace_back(kRoom, '\0').data();
      } else if (kept.kind == Kind::kRoom) {
        one.integer = kRoom;
      } else if (kept.kind == Kind::kInteger) {
        one.integer = std::stoi(kept.words);
      } else if (kept.kind == Kind::kAmount) {
        one.number = std::stod(kept.words);
      }
    }
    value = row.call_at(Address(std::string(row.name).c_str()), values);
  }

  std::int32_t value = 0;
  std::deque<std::string> texts;
};

STORY(scripts_find_every_function_by_its_name) {
  IDispatch* const till = NewTill();
  std::size_t methods = 0;
  for (const Export& row : Exports()) {
    DISPID id = 0;
    DISPID same = 0;
    const auto name = Wide(row.name);
    std::wstring shouted = name;
    for (wchar_t& letter : shouted) {
      if (letter >= L'a' && letter <= L'z') letter = static_cast<wchar_t>(letter - L'a' + L'A');
    }
    const HRESULT found = IsForScripts(row) ? S_OK : DISP_E_UNKNOWNNAME;
    kestra::Expect(Find(till, name, id) == found, row.name, "by its name");
    kestra::Expect(Find(till, shouted, same) == found && same == id, row.name, "in other letters");
    kestra::Expect((id > 0) == IsForScripts(row), row.name, "has a number");
    methods += IsForScripts(row) ? 1 : 0;
  }
  CHECK(methods + 6 == Exports().size());  // what the system calls, and the operator's record
  DISPID id = 0;
  CHECK(Find(till, L"EP_Ini", id) == DISP_E_UNKNOWNNAME);
  CHECK(Find(till, L"EP_Init2", id) == DISP_E_UNKNOWNNAME);
  CHECK(Find(till, L"", id) == DISP_E_UNKNOWNNAME);
  CHECK(id == DISPID_UNKNOWN);
  CHECK(till->Release() == 0);
  CHECK(CanUnload());
}

// Nothing is started and nobody answers: what matters is that both ways lead to the same function.
STORY(methods_give_what_the_functions_give) {
  IDispatch* const till = NewTill();
  for (const Export& row : Exports()) {
    if (!IsForScripts(row)) continue;
    const PlainCall plain(row);
    ScriptCall call(till, row.name);
    kestra::Expect(call.WithSane(row).Run() == S_OK, row.name, "cannot be called");
    kestra::Expect(call.given == plain.value, row.name, "gives another result");
    kestra::Expect(call.Variables() == plain.texts.size(), row.name, "hands back another count");
    for (std::size_t i = 0; i < call.Variables(); ++i) {
      const std::string text = plain.texts[i].c_str();
      kestra::Expect(call.Text(i).size() == text.size(), row.name, "hands back another text");
    }
  }
  ScriptCall(till, "EP_CortaPapel").Run();
  ScriptCall cause(till, "Kestra_CausaTexto");
  CHECK(cause.WithVariable().Run() == S_OK);
  CHECK(static_cast<std::size_t>(cause.given) == cause.Text().size());
  CHECK(cause.Text().find(L"operaci\u00f3n no se mand\u00f3") != std::wstring::npos);
  CHECK(till->Release() == 0);
}

STORY(methods_take_as_many_arguments_as_the_functions) {
  IDispatch* const till = NewTill();
  for (const Export& row : Exports()) {
    if (!IsForScripts(row)) continue;
    ScriptCall more(till, row.name);
    more.WithSane(row).With(OfInteger(1));
    kestra::Expect(more.Run() == DISP_E_BADPARAMCOUNT, row.name, "takes one more");
    ScriptCall fewer(till, row.name);
    if (fewer.WithSane(row).Count() == 0) continue;
    fewer.Drop();
    kestra::Expect(fewer.Run() == DISP_E_BADPARAMCOUNT, row.name, "takes one less");
  }
  ScriptCall named(till, "EP_CortaPapel");
  CHECK(named.With(OfInteger(1)).Run(DISPATCH_METHOD, 1) == DISP_E_NONAMEDARGS);
  ScriptCall property(till, "EP_CortaPapel");
  CHECK(property.Run(DISPATCH_METHOD | DISPATCH_PROPERTYGET) == S_OK);
  CHECK(property.Run(DISPATCH_PROPERTYGET) == DISP_E_MEMBERNOTFOUND);
  CHECK(property.Run(DISPATCH_PROPERTYPUT) == DISP_E_MEMBERNOTFOUND);
  CHECK(till->Release() == 0);
}

VARIANT LeftOut() {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

// Puts a wrong value into each place that takes another kind, and hears which place it was.
STORY(wrong_arguments_are_told_with_their_place) {
  IDispatch* const till = NewTill();
  for (const Export& row : Exports()) {
    if (!IsForScripts(row)) continue;
    ScriptCall sound(till, row.name);
    sound.WithSane(row);
    for (std::size_t place = 0; place < sound.Count(); ++place) {
      const VARTYPE kind = sound.Place(place).vt;
      ScriptCall call(till, row.name);
      call.WithSane(row);
      VariantClear(&call.Place(place));
      // A result's place needs a variable, a number's something that is one.
      if (kind != VT_BSTR) {
        call.Place(place) = OfText("palabras");
        kestra::Expect(call.Run() == DISP_E_TYPEMISMATCH && call.wrong == place, row.name,
                       "takes words in place " + std::to_string(place));
        VariantClear(&call.Place(place));
      }
      if (kind == (VT_BYREF | VT_VARIANT)) continue;
      call.Place(place) = LeftOut();
      kestra::Expect(call.Run() == DISP_E_PARAMNOTOPTIONAL && call.wrong == place, row.name,
                     "does without place " + std::to_string(place));
    }
  }
  CHECK(till->Release() == 0);
}

HRESULT Copies(IDispatch* till, VARIANT value) {
  return ScriptCall(till, "EP_Copias").With(value).Run();
}

STORY(numbers_are_made_of_what_scripts_have) {
  IDispatch* const till = NewTill();
  VARIANT variable = OfText("2");
  CHECK(Copies(till, OfInteger(2)) == S_OK);
  CHECK(Copies(till, OfAmount(2.0)) == S_OK);
  CHECK(Copies(till, OfText(" 2 ")) == S_OK);
  CHECK(Copies(till, OfVariable(variable)) == S_OK);
  CHECK(Copies(till, OfAmount(1e10)) == DISP_E_OVERFLOW);
  CHECK(Copies(till, OfText("")) == DISP_E_TYPEMISMATCH);
  // A comma is no thousand: 1,50 would become 150 pesos.
  CHECK(Copies(till, OfText("1,50")) == DISP_E_TYPEMISMATCH);
  VariantClear(&variable);
  variable = OfText("1,50");
  CHECK(Copies(till, OfVariable(variable)) == DISP_E_TYPEMISMATCH);
  VARIANT reference = OfInteger(0);
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = &variable.bstrVal;
  CHECK(Copies(till, reference) == DISP_E_TYPEMISMATCH);
  VariantClear(&variable);
  CHECK(till->Release() == 0);
}

// Whoever else lives in the program may have its texts otherwise.
STORY(scripts_read_the_same_in_each_mode_of_texts) {
  IDispatch* const till = NewTill();
  ScriptCall(till, "EP_CortaPapel").Run();
  for (const std::int32_t mode : {0, 1, 2, 0}) {
    CHECK(ScriptCall(till, "Kestra_Textos").With(OfInteger(mode)).Run() == S_OK);
    ScriptCall cause(till, "Kestra_CausaTexto");
    CHECK(cause.WithVariable().Run() == S_OK);
    CHECK(cause.Text().find(L"operaci\u00f3n no se mand\u00f3") != std::wstring::npos);
  }
  CHECK(till->Release() == 0);
}

STORY(texts_go_into_variables_of_both_kinds) {
  IDispatch* const till = NewTill();
  ScriptCall(till, "EP_CortaPapel").Run();
  ScriptCall any(till, "Kestra_CausaTexto");
  CHECK(any.WithVariable(OfInteger(5)).Run() == S_OK);
  CHECK(any.given > 0);
  BSTR text = SysAllocString(L"de antes");
  VARIANT reference = OfInteger(0);
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = &text;
  CHECK(ScriptCall(till, "Kestra_CausaTexto").With(reference).Run() == S_OK);
  CHECK(any.Text() == text);
  // Visual Basic's own variables, by way of one that leads to them.
  SysFreeString(text);
  text = nullptr;
  VARIANT through = reference;
  CHECK(ScriptCall(till, "Kestra_CausaTexto").With(OfVariable(through)).Run() == S_OK);
  CHECK(through.vt == (VT_BYREF | VT_BSTR));
  CHECK(any.Text() == text);
  SysFreeString(text);
  // Nothing is told: nothing of before is left to be taken for it.
  ScriptCall nothing(till, "Kestra_ResolverNumero");
  CHECK(nothing.WithVariable().Run() == S_OK);
  CHECK(nothing.Text().empty());
  CHECK(till->Release() == 0);
}

// The script's last reference is in the very variable that receives the text.
STORY(object_that_is_overwritten_by_its_own_result) {
  IDispatch* const till = NewTill();
  VARIANT self;
  VariantInit(&self);
  self.vt = VT_DISPATCH;
  self.pdispVal = till;
  CHECK(ScriptCall(till, "EP_Init").Run() == S_OK);
  ScriptCall call(till, "Kestra_CausaTexto");
  CHECK(call.WithVariable(self).Run() == S_OK);
  CHECK(call.Text().empty());
  CHECK(CanUnload());
}

STORY(script_that_leaves_gives_the_port_back) {
  IDispatch* const till = NewTill();
  CHECK(ScriptCall(till, "EP_Init").Run() == S_OK);
  CHECK(Here() == Apartment::kSingle);
  CHECK(till->Release() == 0);
  CHECK(CanUnload());
  CHECK(Here() == Apartment::kNone);
}

STORY(script_that_leaves_does_not_take_the_port_from_another) {
  IDispatch* const one = NewTill();
  IDispatch* const other = NewTill();
  ScriptCall start(one, "EP_Init");
  CHECK(start.Run() == S_OK && start.given == 1);
  CHECK(ScriptCall(other, "EP_Init").Run() == S_OK);
  CHECK(one->Release() == 0);
  CHECK(Here() == Apartment::kSingle);
  CHECK(other->Release() == 0);
  CHECK(CanUnload());
  CHECK(Here() == Apartment::kNone);
}

// A program may have both: functions of its own, and an object for its macros.
STORY(script_that_did_not_start_ends_nothing) {
  CHECK(Call("EP_Init") == 1);
  IDispatch* const till = NewTill();
  CHECK(ScriptCall(till, "EP_CortaPapel").Run() == S_OK);
  CHECK(till->Release() == 0);
  CHECK(!CanUnload());
  IDispatch* const another = NewTill();
  CHECK(ScriptCall(another, "EP_Kill").Run() == S_OK);
  CHECK(!CanUnload());
  CHECK(another->Release() == 0);
  CHECK(CanUnload());
}

STORY(till_object_follows_the_rules_of_interfaces) {
  IDispatch* const till = NewTill();
  IUnknown* identity = nullptr;
  void* none = &library_path;
  CHECK(till->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)) == S_OK);
  CHECK(till->QueryInterface(IID_IClassFactory, &none) == E_NOINTERFACE);
  CHECK(none == nullptr);
  CHECK(till->QueryInterface(IID_IUnknown, nullptr) == E_POINTER);
  CHECK(identity->Release() == 1);
  UINT count = 9;
  ITypeInfo* info = nullptr;
  CHECK(till->GetTypeInfoCount(&count) == S_OK && count == 0);
  CHECK(till->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info) == DISP_E_BADINDEX && info == nullptr);
  CHECK(till->GetTypeInfoCount(nullptr) == E_POINTER);
  CHECK(till->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr) == E_POINTER);
  wchar_t name[] = L"EP_ImprimirPago";
  wchar_t argument[] = L"monto";
  LPOLESTR names[] = {name, argument};
  DISPID ids[] = {0, 0};
  CHECK(till->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids) == DISP_E_UNKNOWNNAME);
  CHECK(ids[0] > 0 && ids[1] == DISPID_UNKNOWN);
  CHECK(till->GetIDsOfNames(IID_IDispatch, names, 1, LOCALE_USER_DEFAULT, ids) ==
        DISP_E_UNKNOWNINTERFACE);
  CHECK(till->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, ids) == E_INVALIDARG);
  DISPPARAMS given = {};
  const auto invoke = [&](DISPID id, REFIID reserved, DISPPARAMS* arguments) {
    return till->Invoke(id, reserved, LOCALE_USER_DEFAULT, DISPATCH_METHOD, arguments, nullptr,
                        nullptr, nullptr);
  };
  CHECK(invoke(ids[0], IID_IDispatch, &given) == DISP_E_UNKNOWNINTERFACE);
  CHECK(invoke(ids[0], IID_NULL, nullptr) == E_INVALIDARG);
  CHECK(invoke(ids[0], IID_NULL, &given) == DISP_E_BADPARAMCOUNT);
  CHECK(invoke(IdOf(till, "Kestra_Desenlace"), IID_NULL, &given) == S_OK);
  for (const DISPID id : {0, -1, 1000})
    CHECK(invoke(id, IID_NULL, &given) == DISP_E_MEMBERNOTFOUND);
  CHECK(!CanUnload());
  CHECK(till->Release() == 0);
  CHECK(CanUnload());
}

bool IsKnown(const wchar_t* name) {
  CLSID id{};
  return SUCCEEDED(CLSIDFromProgID(name, &id)) && IsEqualGUID(id, kTill);
}

STORY(till_is_known_while_it_is_installed) {
  const auto install = Entry<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall");
  CoInitialize(nullptr);
  CHECK(Call("DllRegisterServer") == S_OK);
  CHECK(!IsKnown(L"Kestra.Caja"));
  CHECK(Call("DllUnregisterServer") == S_OK);
  for (const auto* const part : {L"otra", L"", L"cajas", L"caj"}) {
    CHECK(install(TRUE, part) == E_INVALIDARG);
  }
  CHECK(install(TRUE, nullptr) == E_INVALIDARG);
  CHECK(!IsKnown(L"Kestra.Caja"));
  for (const auto* const part : {L"caja", L"CAJA", L"caja"}) CHECK(install(TRUE, part) == S_OK);
  CHECK(IsKnown(L"Kestra.Caja"));
  CHECK(IsKnown(L"Kestra.Caja.1"));
  // A start registers and removes the other classes.
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  CHECK(IsKnown(L"Kestra.Caja"));
  CHECK(!IsKnown(L"Kestra.InitClass"));
  CHECK(install(FALSE, L"caja") == S_OK);
  CHECK(!IsKnown(L"Kestra.Caja"));
  CHECK(install(FALSE, L"caja") == S_OK);
  CoUninitialize();
}

}  // namespace
