#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace impresora {

struct Packet;

// What the data fields of a command's answer are called, in order; none for a command that answers
// with its status alone. Some commands answer with what their first or third field asks for.
std::span<const std::string_view> AnswerNames(const Packet& packet);

}  // namespace impresora
