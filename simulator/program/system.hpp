#pragma once

#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace impresora {

// What each system does in a way of its own: one file for each.

std::tm LocalTime(std::time_t moment);

// What the program was started with, behind its name, in UTF-8; and its words shown as such from here on.
std::vector<std::string> Arguments(int argc, char** argv);

// A text file to write, or null with `errno` set.
std::FILE* OpenToWrite(const std::string& path);

// Signals that end the program. From here on a reader who has gone is an error, not the program's end.
std::vector<int> EndingSignals();

// Whether a port may be taken right after its last owner. Where it could be taken from an owner who is
// still there, no.
bool MayReusePorts();

}  // namespace impresora
