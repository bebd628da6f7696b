#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "programs/stories.hpp"

// What the stories share: the library under test.

extern std::wstring library_path;

#define CHECK(promise) kestra::Expect((promise), #promise, "line " + std::to_string(__LINE__))

// The library's function of that name; without it there is no story to tell.
void* Address(const char* name);

template <typename Function>
Function Entry(const char* name) {
  return reinterpret_cast<Function>(Address(name));
}

// Calls a function without arguments.
std::int32_t Call(const char* name);
bool CanUnload();

// How the component system stands on this thread: none, or as the host or the library left it.
enum class Apartment { kNone, kSingle, kMulti };
Apartment Here();
