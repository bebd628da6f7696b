#pragma once

#include "fakes/fake_port.hpp"
#include "fuzz/input.hpp"

namespace kestra::fuzzing {

// What the printer does about one frame, as the input says: answers to it or to another one, whole,
// in pieces, late or spoilt, busy bytes, noise, silence, or the plug pulled.
Reply ReadReply(fuzz::Input& input);

// An answer to the frame with these fields, status words first.
std::string AnswerTo(std::string_view frame, std::string_view fields);

// The sum of the bytes as an answer or a command carries it.
std::string Checksum(std::string_view bytes);

// A frame as any printer takes it: start, a number in its range, end, checksum.
void RequireWellFormed(std::string_view frame);

}  // namespace kestra::fuzzing
