#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace kestra {

// What a test needs to try one twin of an interface.
class Bench {
 public:
  Bench() = default;
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  virtual ~Bench() = default;
};

// A way to have one.
template <typename Kind>
struct Twin {
  const char* name;
  std::unique_ptr<Kind> (*make)();
  std::int32_t failure = 0;  // of what the twins refuse with numbers of their own
};

template <typename Kind, typename Made>
Twin<Kind> TwinOf(const char* name, std::int32_t failure = 0) {
  return {name, [] { return std::unique_ptr<Kind>(std::make_unique<Made>()); }, failure};
}

template <typename Kind>
std::string TwinName(const ::testing::TestParamInfo<Twin<Kind>>& twin) {
  return twin.param.name;
}

}  // namespace kestra
