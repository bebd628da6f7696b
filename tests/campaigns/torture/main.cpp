// Plays every golden case with a failure at each call of each interface, and at each allocation.
//
//   torture_tests [--every N] [--share I/N] [--case TEXT]
//
// --every N makes every Nth strike only; --share I/N takes the cases whose place leaves I when divided
// by N; --case TEXT takes those with TEXT in their names. The number in KESTRA_SHARE says with which of the
// first N strikes --every begins, so that each commit may make others. Ends with 1 when something was not as it should
// be.
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "campaigns/program.hpp"
#include "campaigns/torture/campaign.hpp"
#include "campaigns/torture/tally.hpp"
#include "campaigns/torture/under_way.hpp"

namespace kestra::torture {
namespace {

constexpr std::size_t kMostComplaintsShown = 50;

void ReadShare(const std::string& text, Options& options) {
  const auto slash = text.find('/');
  options.share = std::stoul(text.substr(0, slash));
  options.shares = std::stoul(text.substr(slash + 1));
  if (options.share >= options.shares) throw std::invalid_argument(text);
}

void ReadOption(std::string_view name, const std::string& value, Options& options) {
  if (name == "--every") {
    options.every = std::stoul(value);
    if (options.every == 0) throw std::invalid_argument(value);
  } else if (name == "--share") {
    ReadShare(value, options);
  } else if (name == "--case") {
    options.only = value;
  } else {
    throw std::invalid_argument(std::string(name));
  }
}

Options ReadOptions(int argc, char** argv) {
  Options options;
  options.first = campaigns::Share();
  for (int i = 1; i < argc; i += 2) {
    if (i + 1 == argc) throw std::invalid_argument(argv[i]);
    ReadOption(argv[i], argv[i + 1], options);
  }
  std::cout << "every " << options.every << ", from " << options.first % options.every << "\n";
  return options;
}

int TortureAll(const Options& options) {
  Tally tally;
  const auto complaints = Torture(golden::ReadCases(KESTRA_GOLDEN_CASES), options, tally);
  Print(tally, std::cout);
  for (std::size_t i = 0; i < complaints.size() && i < kMostComplaintsShown; ++i) {
    std::cout << "complaint: " << complaints[i] << "\n";
  }
  std::cout << "complaints " << complaints.size() << "\n";
  return complaints.empty() && tally.calls > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace kestra::torture

int main(int argc, char** argv) {
  using namespace kestra::torture;
  UnderWay::WatchForTheEnd();
  return kestra::campaigns::Run("torture_tests",
                                [=] { return TortureAll(ReadOptions(argc, argv)); });
}
