#include "platform/windows/journal_file.hpp"

#include "base/failure.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/text.hpp"

namespace kestra {
namespace {

// More than any journal grows to.
constexpr LONGLONG kLargest = LONGLONG{64} << 20;

std::wstring FromTheRoot(std::string_view file) {
  const std::wstring relative = WideFromAnsi(file);
  std::wstring path(32768, L'\0');
  const auto size = static_cast<DWORD>(path.size());
  const DWORD length = ::GetFullPathNameW(relative.c_str(), size, path.data(), nullptr);
  RequireOfFile(length > 0 && length < size);
  path.resize(length);
  return path;
}

Handle TakeFile(const std::wstring& path, DWORD how) {
  Handle file(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                            how, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file && ::GetLastError() == ERROR_SHARING_VIOLATION) {
    throw Failure(kFileInUse, "File already open");
  }
  RequireOfFile(static_cast<bool>(file));
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK) throw Failure(75, "Path/File access error");
  return file;
}

void MoveTo(const Handle& file, LONGLONG place, DWORD from) {
  LARGE_INTEGER distance = {};
  distance.QuadPart = place;
  RequireOfFile(::SetFilePointerEx(file.Get(), distance, nullptr, from) != 0);
}

}  // namespace

void WindowsJournalFile::Open(std::string_view file) {
  Close();
  path_ = FromTheRoot(file);
  file_ = TakeFile(path_, OPEN_ALWAYS);
}

std::string WindowsJournalFile::Read() {
  LARGE_INTEGER size = {};
  RequireOfFile(::GetFileSizeEx(file_.Get(), &size) != 0);
  if (size.QuadPart > kLargest) throw Failure(75, "Path/File access error");
  std::string text(static_cast<std::size_t>(size.QuadPart), '\0');
  MoveTo(file_, 0, FILE_BEGIN);
  DWORD length = 0;
  RequireOfFile(text.empty() || ::ReadFile(file_.Get(), text.data(),
                                           static_cast<DWORD>(text.size()), &length, nullptr) != 0);
  text.resize(length);
  return text;
}

void WindowsJournalFile::Append(std::string_view bytes) {
  WriteFrom(0, FILE_END, bytes);
}

void WindowsJournalFile::Overwrite(std::size_t at, std::string_view bytes) {
  WriteFrom(static_cast<LONGLONG>(at), FILE_BEGIN, bytes);
}

void WindowsJournalFile::WriteFrom(LONGLONG place, DWORD from, std::string_view bytes) {
  MoveTo(file_, place, from);
  while (!bytes.empty()) {
    DWORD written = 0;
    RequireOfFile(::WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                              nullptr) != 0 &&
                  written > 0);
    bytes.remove_prefix(written);
  }
  RequireOfFile(::FlushFileBuffers(file_.Get()) != 0);
}

void WindowsJournalFile::Truncate(std::size_t length) {
  MoveTo(file_, static_cast<LONGLONG>(length), FILE_BEGIN);
  RequireOfFile(::SetEndOfFile(file_.Get()) != 0);
  RequireOfFile(::FlushFileBuffers(file_.Get()) != 0);
}

// A file that is open keeps its name here: for a moment nobody has it.
void WindowsJournalFile::BeginAnew(std::string_view suffix) {
  const std::wstring kept = path_ + WideFromAnsi(suffix);
  Close();
  const bool moved = ::MoveFileExW(path_.c_str(), kept.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
  const DWORD error = ::GetLastError();
  file_ = TakeFile(path_, moved ? CREATE_NEW : OPEN_ALWAYS);
  ::SetLastError(error);
  RequireOfFile(moved);
}

std::vector<std::string> WindowsJournalFile::Kept() {
  const std::wstring own = path_.substr(path_.find_last_of(L"\\/") + 1);
  std::vector<std::string> suffixes;
  WIN32_FIND_DATAW found = {};
  const HANDLE search = ::FindFirstFileW((path_ + L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return suffixes;
  do {
    // The search also goes by the short names of old programs.
    const std::wstring name = found.cFileName;
    const bool alike = ::lstrcmpiW(name.substr(0, own.size()).c_str(), own.c_str()) == 0;
    if (alike && name.size() > own.size()) {
      suffixes.push_back(AnsiFromWide(name.substr(own.size())));
    }
  } while (::FindNextFileW(search, &found) != 0);
  ::FindClose(search);
  return suffixes;
}

void WindowsJournalFile::DeleteKept(std::string_view suffix) {
  RequireOfFile(::DeleteFileW((path_ + WideFromAnsi(suffix)).c_str()) != 0);
}

}  // namespace kestra
