#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kestra::unit {

// Names each row of a table of tests after its sentence, in the letters that a test name may have.
struct BySentence {
  template <typename Row>
  std::string operator()(const testing::TestParamInfo<Row>& info) const {
    std::string name;
    for (const char c : std::string_view(info.param.sentence)) {
      const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
      if (plain) {
        name += c;
      } else if (!name.empty() && name.back() != '_') {
        name += '_';
      }
    }
    return name;
  }
};

}  // namespace kestra::unit
