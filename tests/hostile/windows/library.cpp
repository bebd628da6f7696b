#include "library.hpp"

#include <kestra/kestra.h>
#include <windows.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "hostile/shared/person.hpp"

namespace armour {
namespace {

HMODULE library = nullptr;
kestra::hostile::Person person;

const IMAGE_EXPORT_DIRECTORY& Directory(const char* base) {
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  return *reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
}

}  // namespace

std::vector<std::string_view> NamesInFile() {
  const auto* const base = reinterpret_cast<const char*>(library);
  const auto& directory = Directory(base);
  const auto* const names = reinterpret_cast<const DWORD*>(base + directory.AddressOfNames);
  std::vector<std::string_view> result;
  for (DWORD i = 0; i < directory.NumberOfNames; ++i) result.emplace_back(base + names[i]);
  return result;
}

void LoadLibraryUnderTest() {
  library = LoadLibraryW(L"Kestra.dll");
  if (library != nullptr) return;
  std::printf("Kestra.dll cannot be loaded: error %lu\n", GetLastError());
  std::exit(EXIT_FAILURE);
}

std::uintptr_t AddressOf(std::string_view name) {
  const auto found = GetProcAddress(library, std::string(name).c_str());
  if (found == nullptr) {
    Fail(name, "is not exported");
    std::exit(EXIT_FAILURE);
  }
  return reinterpret_cast<std::uintptr_t>(found);
}

Words& Words::Integer(std::int32_t value) {
  words_.push_back(static_cast<std::uint32_t>(value));
  return *this;
}

// The bytes as they are: no unit looks at them on the way.
Words& Words::Number(std::uint64_t bits) {
  std::uintptr_t halves[sizeof bits / sizeof(std::uintptr_t)];
  std::memcpy(halves, &bits, sizeof bits);
  words_.insert(words_.end(), std::begin(halves), std::end(halves));
  return *this;
}

Words& Words::Address(const void* value) {
  words_.push_back(reinterpret_cast<std::uintptr_t>(value));
  return *this;
}

Target Words::For(std::string_view name) const {
  return {name, AddressOf(name), words_};
}

Target Words::Of(const Export& exported, const kestra::exports::Values& values) {
  Words words;
  const auto* value = values.data();
  for (const Parameter& parameter : exported.Parameters()) {
    if (parameter.kind == Kind::kAmount) {
      words.Number(std::bit_cast<std::uint64_t>(value->number));
    } else if (parameter.kind == Kind::kInteger) {
      words.Integer(value->integer);
    } else {
      words.Address(value->pointer);
    }
    ++value;
  }
  return words.For(exported.name);
}

void TakeTheOperatorsPlace() {
  static const auto record = kestra::exports::RecordOf(person);
  CallIntact(Words().Address(&record).For("Kestra_DefinirOperador"), Habits().front());
}

void StartLibraryUnderTest() {
  LoadLibraryUnderTest();
  TakeTheOperatorsPlace();
  Expect(CallIntact(Words().For("EP_Init"), EverythingTraps()) == 1, "EP_Init", "failed");
}

int Shown() {
  return person.shown;
}

}  // namespace armour
