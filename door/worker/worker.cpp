#include "worker/worker.hpp"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "worker/session.hpp"

namespace puerta {
namespace {

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool IsSettings(const std::filesystem::path& path) {
  constexpr std::string_view kName = "fiscal.ini";
  const auto name = path.filename().string();
  return std::equal(name.begin(), name.end(), kName.begin(), kName.end(), [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  });
}

// Whatever the case of its name. Empty when there is none: the library says so.
std::string ReadSettings() {
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(".", error)) {
    if (!IsSettings(entry.path())) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  return {};
}

}  // namespace

int RunWorker() {
  try {
    const auto link = CallDoor(Variable(kPortVariable), Variable(kTokenVariable));
    if (link == nullptr) return 1;
    Session(*link, ReadSettings()).Run();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "kestra-puerta --trabajador: " << error.what() << "\n";
    return 1;
  }
}

}  // namespace puerta
