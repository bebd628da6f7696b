#include <iostream>
#include <string>
#include <vector>

#include "program/options.hpp"
#include "worker/worker.hpp"

int main(int count, char** arguments) {
  const auto options =
      puerta::ReadOptions(std::vector<std::string>(arguments + 1, arguments + count));
  if (!options.error.empty()) {
    std::cerr << options.error << "\n" << puerta::Usage();
    return 2;
  }
  switch (options.mode) {
    case puerta::Mode::kHelp:
      std::cout << puerta::Usage();
      return 0;
    case puerta::Mode::kVersion:
      std::cout << "kestra-puerta " KESTRA_VERSION "\n";
      return 0;
    case puerta::Mode::kWorker:
      return puerta::RunWorker();
    default:
      std::cerr << "todavía no\n";
      return 1;
  }
}
