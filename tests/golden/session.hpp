#pragma once

#include <string>
#include <string_view>

namespace kestra::golden {

class Onlooker;

// What comes of playing a case.
struct Played {
  std::string text;   // the inputs as they were, each with its fresh outputs beneath
  std::string fault;  // why the case itself is no good; empty when it is
};

// Plays a case in a fresh world. A case is a text of lines; those that begin with ">" are outputs and are
// made anew. The others are inputs: docs/hacking.md describes the language.
Played Play(std::string_view text);

// The same before somebody who looks on.
Played Play(std::string_view text, Onlooker& onlooker);

}  // namespace kestra::golden
