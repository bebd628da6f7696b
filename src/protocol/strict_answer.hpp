#pragma once

#include <string>
#include <string_view>

#include "protocol/answer.hpp"

namespace kestra {

// What a line has brought since a frame was written, read without trusting any of it.
struct Heard {
  std::string answer;  // the first legal answer to the frame, from start byte to checksum; or empty
  bool busy = false;   // the printer asked for patience
  bool refused = false;  // it says that the frame came damaged
  bool damaged = false;  // bytes that are no answer, or spoil one
  bool foreign = false;  // a legal answer to another frame
};

// A legal answer begins with the frame's sequence number and command byte, has nothing in it but text
// and separators, two status words of four hexadecimal digits in capitals, and its own checksum. What
// comes behind it is not looked at, and what may still become one is not damage.
Heard Listen(std::string_view received, std::string_view header);

// The status words and data fields of a legal answer.
Fields FieldsOf(std::string_view answer);

// What an answer of these fields looks like.
std::string AnswerOf(std::string_view header, const Fields& fields);

}  // namespace kestra
