#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "program/options.hpp"
#include "program/station.hpp"
#include "trace/compare.hpp"

namespace {

constexpr int kBadUsage = 2;

int Run(const impresora::Options& options) {
  try {
    impresora::Station station(options);
    station.Run();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "impresora-virtual: no se puede continuar: " << error.what() << '\n';
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  impresora::Options options;
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const std::string wrong = impresora::ParseOptions(arguments, options);
  if (!wrong.empty()) {
    std::cerr << "impresora-virtual: " << wrong << "\nPruebe con --ayuda.\n";
    return kBadUsage;
  }
  if (options.help) {
    impresora::PrintHelp(std::cout);
    return 0;
  }
  if (options.version) {
    std::cout << "impresora-virtual " << IMPRESORA_VERSION << '\n';
    return 0;
  }
  if (!options.compare.empty()) {
    return impresora::CompareFiles(options.compare[0], options.compare[1],
                                   {.clock = options.compare_clock}, std::cout, std::cerr);
  }
  return Run(options);
}
