#pragma once

#include <string_view>

#include "fakes/fake_port.hpp"

namespace kestra::golden {

// What the printer does about a frame, as a case writes it: steps separated by " ; ", which
// docs/hacking.md describes.
Reply ReadReply(std::string_view steps);

}  // namespace kestra::golden
