#pragma once

#include <windows.h>
#include <array>

namespace kestra {

// One class that scripts and automation clients can create.
struct PublicClass {
  const CLSID* id;
  const IID* interface_id;
  const wchar_t* name;
  const wchar_t* interface_name;
  // An object with one reference, as the interface asked for.
  HRESULT (*create)(REFIID interface_id, void** object);
};

const std::array<PublicClass, 2>& PublicClasses();

// The library that describes the classes.
const GUID& TypeLibraryId();

// An InitClass by the registration in the user's own hive, read from there: for systems that do not lead
// programs to it. It must name this file. `object` is written on success alone.
HRESULT CreateUsersInitObject(void** object);

}  // namespace kestra
