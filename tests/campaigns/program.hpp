#pragma once

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

// What the programs of all campaigns do alike.
namespace kestra::campaigns {

// Where a campaign that makes every N-th run begins, so that each commit may make others.
inline std::size_t Share() {
  const char* const share = std::getenv("KESTRA_SHARE");
  return share == nullptr ? 0 : std::stoul(share);
}

using Words = std::map<std::string_view, std::function<void()>>;
using Numbers = std::map<std::string_view, std::uint64_t*>;

// Of what is written behind the program's name: words alone, and words with a number.
inline void ReadOptions(int argc, char** argv, const Words& words, const Numbers& numbers) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (const auto word = words.find(name); word != words.end()) {
      word->second();
    } else if (numbers.contains(name) && i + 1 < argc) {
      *numbers.at(name) = std::stoull(argv[++i]);
    } else {
      throw std::invalid_argument(std::string(name));
    }
  }
}

// The program's result; 2 when it could not be played, with the reason.
inline int Run(const char* name, const std::function<int()>& campaign) {
  try {
    return campaign();
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << "\n";
    return 2;
  }
}

}  // namespace kestra::campaigns
