#include "memory/file_lock.hpp"

#include <windows.h>

#include <array>
#include <string_view>
#include <system_error>

#include "memory/store.hpp"
#include "text/path.hpp"

namespace impresora {
namespace {

struct Reason {
  DWORD error;
  std::string_view words;
};

constexpr std::array<Reason, 6> kReasons{{
    {ERROR_PATH_NOT_FOUND, "la carpeta no existe"},
    {ERROR_ACCESS_DENIED, "no hay permiso para escribir"},
    {ERROR_WRITE_PROTECT, "el disco es de solo lectura"},
    {ERROR_DISK_FULL, "no queda lugar en el disco"},
    {ERROR_INVALID_NAME, "no es un nombre de archivo"},
    {ERROR_SHARING_VIOLATION, "la está usando otro programa"},
}};

std::string WordsOf(DWORD error) {
  for (const Reason& row : kReasons) {
    if (row.error == error) return std::string(row.words);
  }
  return std::system_category().message(static_cast<int>(error));
}

bool IsFolder(const std::wstring& name) {
  const DWORD about = GetFileAttributesW(name.c_str());
  return about != INVALID_FILE_ATTRIBUTES && (about & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

HANDLE Open(const std::wstring& name) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, kShared, nullptr, OPEN_ALWAYS,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

// One byte far behind all that the file will ever have: here a lock keeps others from what it covers.
bool Lock(HANDLE file) {
  OVERLAPPED place{};
  place.OffsetHigh = 0x4000'0000;
  return LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) !=
         FALSE;
}

}  // namespace

struct FileLock::Handle {
  explicit Handle(HANDLE opened) : file(opened) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  }
  HANDLE file;
};

// Opened to write, though it only locks, so that a file that cannot be written is told at once.
FileLock::FileLock(const std::string& path) {
  const std::wstring name = PathOf(path).wstring();
  if (IsFolder(name)) throw MemoryFailure("es una carpeta");
  handle_ = std::make_unique<Handle>(Open(name));
  if (handle_->file == INVALID_HANDLE_VALUE) throw MemoryFailure(WordsOf(GetLastError()));
  if (GetFileType(handle_->file) != FILE_TYPE_DISK) throw MemoryFailure("no es un archivo");
  if (!Lock(handle_->file)) throw MemoryFailure("la está usando otra impresora virtual");
}

FileLock::~FileLock() = default;

}  // namespace impresora
