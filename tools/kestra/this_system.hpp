#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// What each system does in its own way. All texts are UTF-8 but where they say otherwise.

// The words behind the program's name, and a terminal that shows UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// False when there is no such folder, or it may not be entered.
bool EnterFolder(const std::string& folder);
std::string CurrentFolder();

bool OutputIsTerminal();

// Does the library open a named pipe for it? Not every system has such pipes.
bool LeadsToPipe(const std::string& device);

// The value of a key of Fiscal.ini as the library reads it, in windows-1252; empty when there is none.
std::string ReadSetting(std::string_view key);

// The device that the environment names for the library in place of the one of Fiscal.ini, in windows-1252; or
// nothing.
std::string DeviceInstead();

// The files of the current folder that the library might take for Fiscal.ini, the one that it takes first; then
// those elsewhere that the system may put in its place.
std::vector<std::string> SettingsFiles();

// What Fiscal.ini says, in windows-1252, however it is kept.
std::string SettingsText();

// All bytes of a file; nothing when it cannot be read.
std::optional<std::string> ReadFile(const std::string& file);

// In place of what the file held, all or nothing. False when that cannot be done.
bool WriteFile(const std::string& file, std::string_view bytes);

// Nothing of that name; a usual file; something else.
enum class FileKind : std::uint8_t { kNone, kFile, kOther };
FileKind KindOfFile(const std::string& file);

// What came of writing to a folder, with a file of its own that is gone afterwards.
enum class Writing : std::uint8_t { kDone, kNoRoom, kForbidden };
Writing TryWriting(const std::string& folder);

// Free for this user on the folder's disk; nothing when the system does not tell.
std::optional<std::uint64_t> FreeBytes(const std::string& folder);

}  // namespace kestra::tool
