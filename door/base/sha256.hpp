// SHA-256: of requests, so that another body under a key is seen, and of the tills' keys, so that none is kept.
#pragma once

#include <string>
#include <string_view>

namespace puerta {

// 64 hexadecimal digits.
std::string Sha256(std::string_view bytes);

}  // namespace puerta
