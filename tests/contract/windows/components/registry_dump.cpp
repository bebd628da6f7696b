// Writes every key and value of the classes in the registry, machine's and user's, both widths, to two files
// in Wine's own form: what is the same before and after was left as it was.
//
//   registry_dump    makes machine.reg and user.reg in each directory that its test tells it, and says when
//
// One request to Wine for each: key by key it would be thousands, each of which waits for its turn.
#include <windows.h>

#include <cstdio>
#include <string>

extern "C" {
#include "programs/talk.h"
}

namespace {

// Saving is a right that a process has to claim.
bool ClaimRight() {
  HANDLE token = nullptr;
  TOKEN_PRIVILEGES claim{};
  claim.PrivilegeCount = 1;
  claim.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  return OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token) &&
         LookupPrivilegeValueA(nullptr, SE_BACKUP_NAME, &claim.Privileges[0].Luid) &&
         AdjustTokenPrivileges(token, FALSE, &claim, 0, nullptr, nullptr);
}

bool Save(HKEY root, const std::string& file) {
  HKEY classes = nullptr;
  const auto opened =
      RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ | KEY_WOW64_64KEY, &classes);
  const auto saved = opened == ERROR_SUCCESS ? RegSaveKeyA(classes, file.c_str(), nullptr) : opened;
  if (saved != ERROR_SUCCESS) std::printf("%s: error %ld\n", file.c_str(), saved);
  return saved == ERROR_SUCCESS;
}

void Dump(const std::string& folder) {
  const bool done = Save(HKEY_LOCAL_MACHINE, folder + "\\machine.reg") &&
                    Save(HKEY_CURRENT_USER, folder + "\\user.reg");
  talk_say(done ? "1" : "0", 1);
}

}  // namespace

int main() {
  if (talk_begin() == 0 || !ClaimRight()) return 1;
  std::string heard;
  for (char c = 0; talk_hear(&c, 1) == 1;) {
    if (c != '\n') {
      heard += c;
    } else {
      Dump(heard);
      heard.clear();
    }
  }
  return 0;
}
