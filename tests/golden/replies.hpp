#pragma once

#include <string_view>

#include "fakes/fake_port.hpp"

namespace kestra::golden {

/*
 * What the printer does about a frame, as a case writes it. Steps are separated by " ; ":
 *
 *   +S                 S seconds pass
 *   ok P|F|field...    an answer to this frame: printer word, fiscal word, data fields
 *   seq N P|F|...      the same with the sequence byte N further
 *   cmd X P|F|...      the same for another command byte
 *   raw TEXT           bytes as they are; {seq} and {cmd} are the frame's own, {sum} is the
 * checksum of what stands before it from the last <stx> on silence            nothing unplug the
 * plug is pulled split N            the next step's bytes come N at a time times N            the
 * next step N times over
 */
Reply ReadReply(std::string_view steps);

}  // namespace kestra::golden
