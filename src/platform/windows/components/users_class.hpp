#pragma once

#include <windows.h>

namespace kestra {

// An InitClass by the registration in the user's own hive, read from there: for systems that do not lead
// programs to it. It must name this file. `object` is written on success alone.
HRESULT CreateUsersInitObject(void** object);

}  // namespace kestra
