#pragma once

#include <string>

#include "protocol/answer.hpp"
#include "state/report.hpp"

namespace kestra {

struct Library;
class Patience;
class SafeLine;

// What comes before a command of the safe mode is sent: what is pending is settled, a closing's total is
// looked at, the journal gets its intent.
struct Admission {
  Verdict verdict;    // other than kNothingAsked: it is not sent, and why
  bool done = false;  // the same call has done it already
  Fields fields;      // and this is what is known of its answer
};

Admission Admit(Library& library, SafeLine& line, Patience& patience, const std::string& command);

}  // namespace kestra
