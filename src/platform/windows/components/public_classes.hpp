#pragma once

#include <windows.h>
#include <span>

namespace kestra {

// One class that scripts and automation clients can create.
struct PublicClass {
  const CLSID* id;
  const IID* interface_id;  // null where the type library has none of it
  const wchar_t* name;
  const wchar_t* interface_name;
  // An object with one reference, as the interface asked for.
  HRESULT (*create)(REFIID interface_id, void** object);
};

// What is registered together, and removed together.
using Classes = std::span<const PublicClass>;

// Those that start-up registers, and whoever registers the library.
Classes PublicClasses();

// Those that are registered where somebody asks for them.
Classes ScriptClasses();

// The library that describes the classes.
const GUID& TypeLibraryId();

// An InitClass by the registration in the user's own hive, read from there: for systems that do not lead
// programs to it. It must name this file. `object` is written on success alone.
HRESULT CreateUsersInitObject(void** object);

}  // namespace kestra
