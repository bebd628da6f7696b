#include "prompt/plain_line.hpp"

namespace kestra::tool {

std::unique_ptr<LineEditor> MakeLineEditor() {
  return std::make_unique<PlainLines>();
}

}  // namespace kestra::tool
