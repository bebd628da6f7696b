#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "program/options.hpp"
#include "program/station.hpp"
#include "program/system.hpp"
#include "text/path.hpp"
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
  const std::vector<std::string> arguments = impresora::Arguments(argc, argv);
  const std::string wrong = impresora::ParseOptions({arguments.begin(), arguments.end()}, options);
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
    return impresora::CompareFiles(impresora::PathOf(options.compare[0]),
                                   impresora::PathOf(options.compare[1]),
                                   {.clock = options.compare_clock}, std::cout, std::cerr);
  }
  return Run(options);
}
