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

/*
 * Plays a case in a fresh world. A case is a text of lines; those that begin with ">" are outputs
 * and are made anew. The others are inputs:
 *
 *   # text                     a comment; the first line must be one and say why the case exists
 *   ini Key=Value              changes the base configuration; "ini -Key" removes, "ini none": no
 * file clock HH:MM:SS[.fff]       what the wall shows date DD/MM/YYYY reply STEPS what the printer
 * does about the next frame that has no reply yet default STEPS              what it does about
 * frames without a reply (at first: ok 0000|0000) operator yes no ok ...     the operator's next
 * answers; also retry and close port missing|busy|ok       what opening the device meets from now
 * on log readonly|ok            likewise for the log fail POINT K [forever] [memory|other]   the
 * K-th call from now on fails; POINT as in trouble.hpp meanwhile EP_Name args...  a call that the
 * host makes while the next box is open call EP_Name args...       numbers, "texts" (padded with
 * blanks), null, out state Field Field ...      prints fields of the state record showseq |
 * showdate | showrows           more detail from here on
 */
Played Play(std::string_view text);

// The same before somebody who looks on.
Played Play(std::string_view text, Onlooker& onlooker);

}  // namespace kestra::golden
