#include "program/system.hpp"

#include <windows.h>

// Behind it, of which it is a part.
#include <shellapi.h>

#include <csignal>
#include <memory>

#include "text/path.hpp"

namespace impresora {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_s(&local, &moment);
  return local;
}

// The ones that main gets have lost the letters that this system's own set of them lacks.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(NameOf(words.get()[i]));
  return arguments;
}

std::FILE* OpenToWrite(const std::string& path) {
  return _wfopen(PathOf(path).c_str(), L"w");
}

std::vector<int> EndingSignals() {
  return {SIGINT, SIGTERM, SIGBREAK};
}

bool MayReusePorts() {
  return false;
}

}  // namespace impresora
