#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"
#include "system.hpp"

namespace kestra {

// A till's directory, in which a test puts what no till expects.
class OddFiles : public ::testing::Test {
 protected:
  std::int32_t LogFailure() {
    return FailureNumber([&] { log_.Append(".\\fiscal.log", "una\r\n"); });
  }
  std::string Setting(const std::string& file = ".\\Fiscal.ini") {
    return profile_.Read("S", "K", file);
  }

  ScratchDirectory scratch_;
  SystemLog log_;
  SystemProfile profile_;
};

}  // namespace kestra
