// A host that looks at the library as the component system does.
//
//     components_host STORY PATH_OF_THE_LIBRARY
//
// Each story prints its broken promises; the result is their count. STORY "list" prints the names.

#include <windows.h>

#include <oaidl.h>
#include <ole2.h>

#include <cstring>
#include <string>

#include "host.hpp"

// The interface as a compiled client calls it: straight through its table. Outside the unnamed
// namespace, where the compiler would take it for never implemented.
struct InitInterface : IDispatch {
  virtual HRESULT WINAPI InitVBCall() = 0;
};

namespace {

using GetClassObject = HRESULT(WINAPI*)(const void*, const void*, void**);

// In place of what the library's own header would say: a client knows no more than this.
constexpr CLSID kInitClass = {
    0x05fe5bdd, 0x5311, 0x4072, {0x9b, 0xc6, 0xcc, 0xc5, 0x0e, 0xdc, 0xe3, 0xa3}};
constexpr CLSID kExampleClass = {
    0xeb34d3e4, 0x7800, 0x4767, {0xbb, 0x09, 0x02, 0x83, 0x1a, 0x68, 0x19, 0x70}};
constexpr IID kInitInterface = {
    0xeaaf22b2, 0x563c, 0x43fa, {0xaa, 0xa4, 0xa1, 0x2d, 0x77, 0x78, 0xc7, 0x27}};
constexpr IID kExampleInterface = {
    0x936231ff, 0x23de, 0x4548, {0xae, 0x62, 0xc7, 0xbe, 0x84, 0xa8, 0x88, 0x58}};

IClassFactory* Factory(REFCLSID id) {
  IClassFactory* factory = nullptr;
  const HRESULT result = Entry<GetClassObject>("DllGetClassObject")(
      &id, &IID_IClassFactory, reinterpret_cast<void**>(&factory));
  CHECK(result == S_OK);
  CHECK(factory != nullptr);
  return factory;
}

template <typename Interface>
Interface* Create(REFCLSID id, REFIID interface_id) {
  auto* const factory = Factory(id);
  Interface* object = nullptr;
  CHECK(factory->CreateInstance(nullptr, interface_id, reinterpret_cast<void**>(&object)) == S_OK);
  CHECK(factory->Release() == 0);
  return object;
}

// ---- Stories ----

STORY(classes_come_from_their_factories) {
  CHECK(CanUnload());
  const auto get = Entry<GetClassObject>("DllGetClassObject");
  void* object = &library_path;
  CHECK(get(&IID_IDispatch, &IID_IClassFactory, &object) == CLASS_E_CLASSNOTAVAILABLE);
  CHECK(object == nullptr);
  object = &library_path;
  CHECK(get(&kInitClass, &IID_IDispatch, &object) == E_NOINTERFACE);
  CHECK(object == nullptr);
  CHECK(get(&kInitClass, &IID_IClassFactory, nullptr) == E_POINTER);
  CHECK(get(nullptr, &IID_IClassFactory, &object) == E_INVALIDARG);
  CHECK(get(&kInitClass, nullptr, &object) == E_INVALIDARG);

  auto* const factory = Factory(kExampleClass);
  object = &library_path;
  CHECK(factory->CreateInstance(factory, IID_IUnknown, &object) == CLASS_E_NOAGGREGATION);
  CHECK(object == nullptr);
  CHECK(factory->CreateInstance(nullptr, kInitInterface, &object) == E_NOINTERFACE);
  CHECK(factory->CreateInstance(nullptr, IID_IUnknown, nullptr) == E_POINTER);
  CHECK(factory->Release() == 0);
  CHECK(CanUnload());
}

void CheckInterfaces(REFCLSID id, REFIID own, REFIID foreign) {
  auto* const object = Create<IDispatch>(id, IID_IDispatch);
  IUnknown* identity = nullptr;
  IUnknown* again = nullptr;
  IDispatch* dual = nullptr;
  CHECK(object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)) == S_OK);
  CHECK(object->QueryInterface(own, reinterpret_cast<void**>(&dual)) == S_OK);
  CHECK(dual->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&again)) == S_OK);
  CHECK(identity == again);
  void* none = &library_path;
  CHECK(object->QueryInterface(foreign, &none) == E_NOINTERFACE);
  CHECK(none == nullptr);
  CHECK(object->QueryInterface(IID_IUnknown, nullptr) == E_POINTER);
  CHECK(object->AddRef() == 5);
  CHECK(object->Release() == 4);
  CHECK(again->Release() == 3);
  CHECK(dual->Release() == 2);
  CHECK(identity->Release() == 1);
  CHECK(!CanUnload());
  CHECK(object->Release() == 0);
  CHECK(CanUnload());
}

STORY(objects_follow_the_rules_of_interfaces) {
  CheckInterfaces(kInitClass, kInitInterface, kExampleInterface);
  CheckInterfaces(kExampleClass, kExampleInterface, kInitInterface);
}

STORY(what_is_in_use_keeps_the_library) {
  CHECK(CanUnload());
  auto* const factory = Factory(kInitClass);
  CHECK(!CanUnload());
  CHECK(factory->LockServer(TRUE) == S_OK);
  CHECK(factory->Release() == 0);
  CHECK(!CanUnload());
  auto* const another = Factory(kInitClass);
  CHECK(another->LockServer(FALSE) == S_OK);
  CHECK(another->Release() == 0);
  CHECK(CanUnload());
}

DISPID NameOf(IDispatch* object, const wchar_t* name, HRESULT expected) {
  std::wstring text = name;
  LPOLESTR names[] = {text.data()};
  DISPID id = DISPID_UNKNOWN;
  CHECK(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id) == expected);
  return id;
}

HRESULT Run(IDispatch* object, DISPID id, DISPPARAMS arguments, REFIID reserved = IID_NULL) {
  VARIANT result;
  VariantInit(&result);
  return object->Invoke(id, reserved, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result,
                        nullptr, nullptr);
}

STORY(scripts_find_the_method_by_name) {
  auto* const object = Create<IDispatch>(kInitClass, IID_IDispatch);
  CHECK(NameOf(object, L"InitVBCall", S_OK) == 1);
  CHECK(NameOf(object, L"initvbcall", S_OK) == 1);
  NameOf(object, L"Other", DISP_E_UNKNOWNNAME);
  CHECK(Run(object, 1, {}) == S_OK);
  CHECK(Run(object, 2, {}) == DISP_E_MEMBERNOTFOUND);
  CHECK(Run(object, 1, {}, IID_IDispatch) == DISP_E_UNKNOWNINTERFACE);
  CHECK(object->Release() == 0);
  auto* const example = Create<IDispatch>(kExampleClass, IID_IDispatch);
  NameOf(example, L"InitVBCall", DISP_E_UNKNOWNNAME);
  CHECK(example->Release() == 0);
  CHECK(CanUnload());
}

void CheckDescription(REFCLSID id, REFIID own) {
  auto* const object = Create<IDispatch>(id, IID_IDispatch);
  UINT count = 0;
  ITypeInfo* info = nullptr;
  TYPEATTR* attributes = nullptr;
  CHECK(object->GetTypeInfoCount(&count) == S_OK);
  CHECK(count == 1);
  CHECK(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, &info) == DISP_E_BADINDEX);
  CHECK(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info) == S_OK);
  CHECK(info->GetTypeAttr(&attributes) == S_OK);
  CHECK(IsEqualGUID(attributes->guid, own));
  CHECK((attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0);
  info->ReleaseTypeAttr(attributes);
  info->Release();
  CHECK(object->Release() == 0);
}

STORY(objects_describe_themselves) {
  CheckDescription(kInitClass, kInitInterface);
  CheckDescription(kExampleClass, kExampleInterface);
}

STORY(compiled_clients_call_the_method_directly) {
  auto* const object = Create<InitInterface>(kInitClass, kInitInterface);
  CHECK(object->InitVBCall() == S_OK);
  CHECK(object->Release() == 0);
}

HRESULT CreateByName(const wchar_t* name) {
  CLSID id{};
  HRESULT result = CLSIDFromProgID(name, &id);
  if (FAILED(result)) return result;
  IDispatch* object = nullptr;
  result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                            reinterpret_cast<void**>(&object));
  if (SUCCEEDED(result)) object->Release();
  return result;
}

// Names of classes work while they are registered, the versioned ones too.
STORY(names_work_while_registered) {
  const wchar_t* const names[] = {L"Kestra.InitClass", L"Kestra.ExampleClass",
                                  L"Kestra.InitClass.1", L"Kestra.ExampleClass.1"};
  CoInitialize(nullptr);
  for (const auto* const name : names) CHECK(FAILED(CreateByName(name)));
  CHECK(Call("DllRegisterServer") == S_OK);
  CHECK(Call("DllRegisterServer") == S_OK);
  for (const auto* const name : names) CHECK(CreateByName(name) == S_OK);
  CHECK(Call("DllUnregisterServer") == S_OK);
  for (const auto* const name : names) CHECK(FAILED(CreateByName(name)));
  CHECK(Call("DllUnregisterServer") == S_OK);
  CoUninitialize();
}

STORY(host_without_components) {
  CHECK(Here() == Apartment::kNone);
  CHECK(Call("EP_Init") == 1);
  CHECK(!CanUnload());
  CHECK(Here() == Apartment::kSingle);
  Call("EP_Kill");
  CHECK(CanUnload());
  CHECK(Here() == Apartment::kNone);
}

STORY(started_twice_ended_twice) {
  CHECK(Call("EP_Init") == 1);
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
}

STORY(ended_without_start) {
  CoInitialize(nullptr);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kSingle);
  CoUninitialize();
  CHECK(Here() == Apartment::kNone);
}

STORY(host_in_a_single_threaded_apartment) {
  CHECK(CoInitialize(nullptr) == S_OK);
  CHECK(Call("EP_Init") == 1);
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  Call("EP_Kill");
  CHECK(Here() == Apartment::kSingle);
  CoUninitialize();
  CHECK(Here() == Apartment::kNone);
}

STORY(host_in_the_multithreaded_apartment) {
  CHECK(CoInitializeEx(nullptr, COINIT_MULTITHREADED) == S_OK);
  CHECK(Call("EP_Init") == 1);
  CHECK(Here() == Apartment::kMulti);
  CHECK(Call("EP_Init") == 1);
  Call("EP_Kill");
  Call("EP_Kill");
  CHECK(Here() == Apartment::kMulti);
  CoUninitialize();
  CHECK(Here() == Apartment::kNone);
}

// The host leaves while the library is in use: the library's share stays.
STORY(host_leaves_before_the_library) {
  CHECK(CoInitialize(nullptr) == S_OK);
  CHECK(Call("EP_Init") == 1);
  CoUninitialize();
  CHECK(Here() == Apartment::kSingle);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
}

DWORD RunThread(LPTHREAD_START_ROUTINE work) {
  const HANDLE thread = CreateThread(nullptr, 0, work, nullptr, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  DWORD result = 0;
  GetExitCodeThread(thread, &result);
  CloseHandle(thread);
  return result;
}

DWORD WINAPI OtherThread(void*) {
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
  return 0;
}

STORY(ended_on_another_thread) {
  CHECK(Call("EP_Init") == 1);
  RunThread(OtherThread);
  // Nobody but this thread can leave.
  CHECK(Here() == Apartment::kSingle);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
}

DWORD number_of_the_first = 0;

DWORD WINAPI FirstTicket(void*) {
  number_of_the_first = GetCurrentThreadId();
  CHECK(Call("EP_Init") == 1);
  return 0;
}

// Does its work only where it got the number of the first one's thread; says whether it did.
DWORD WINAPI NextTicket(void*) {
  if (GetCurrentThreadId() != number_of_the_first) return 0;
  CHECK(Here() == Apartment::kNone);
  CHECK(Call("EP_Init") == 1);
  CHECK(Here() == Apartment::kSingle);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
  return 1;
}

// A thread for each ticket, and none of them ends the library. The system gives their numbers again.
STORY(started_on_a_thread_with_the_number_of_one_that_ended) {
  constexpr int kThreads = 20000;
  RunThread(FirstTicket);
  for (int i = 0; i < kThreads; ++i) {
    if (RunThread(NextTicket) != 0) return;
  }
  CHECK(!"the number comes again");
}

// The file in the current directory names a port that cannot be.
STORY(failed_start_leaves_no_registration) {
  CHECK(Call("EP_Init") == 0);
  Call("EP_Kill");
  CHECK(Here() == Apartment::kNone);
}

// Leaves at once, as a till does when it is switched off: nothing may hang.
STORY(leaves_without_ending) {
  CHECK(Call("EP_Init") == 1);
}

}  // namespace

int main(int count, char** arguments) {
  if (count == 2 && std::strcmp(arguments[1], "list") == 0) return kestra::Story::List(), 0;
  if (count != 3) return 99;
  const std::string path = arguments[2];
  library_path.assign(path.begin(), path.end());
  return kestra::Story::Tell(arguments[1]);
}
