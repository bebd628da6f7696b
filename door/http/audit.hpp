// Who was refused, and who changed something: a file of JSON lines, without secrets.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "base/clock.hpp"
#include "base/json.hpp"

namespace puerta {

class Audit {
 public:
  // "" keeps nothing. A file over its size becomes FILE.1, and the one before is dropped.
  Audit(const std::string& path, const Clock& clock);

  void Write(Json line);

 private:
  void Turn();

  std::string path_;
  const Clock& clock_;
  std::ofstream file_;
  std::int64_t second_ = 0;  // in which lines were written
  int lines_ = 0;
};

}  // namespace puerta
