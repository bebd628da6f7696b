#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/torture/strike.hpp"
#include "campaigns/torture/troubled_platform.hpp"

namespace kestra::torture {

// A call of the same case when nothing is struck.
struct QuietCall {
  std::vector<std::string> frames;
  bool told_failure = false;
};

// Adds lines to the document until the totals agree, and ends no sooner. Always tells success.
constexpr std::string_view kEndless = "EP_AjusteRedondeo";

// After so long the trouble is over for it.
constexpr std::int64_t kEndlessHealsAfter = 60 * kMicrosPerSecond;

// What is known of a call once it is over.
struct CallRecord {
  std::string_view name;
  std::int32_t result = 0;
  std::int64_t passed = 0;  // virtual microseconds
  std::int64_t slept = 0;   // of them, in the library's own pauses
  std::vector<std::string> frames{};
  int busy_bytes = 0;
  bool near_midnight = false;
  bool port_open = false;
  bool port_was_open = false;   // before the call: an earlier one could not close it
  bool tried_to_close = false;  // last of all; the case itself may keep it from closing
  int failures = 0;             // of the struck target
  bool first_struck = false;    // up to here nothing had failed
  std::int64_t patience = 0;    // of a safe exchange; 0 for any other
};

bool ToldFailure(const CallRecord& call);

// Why the call is none to give to a host; empty when it is.
std::string Verdict(const CallRecord& call, const QuietCall& quiet, const Strike& strike);

}  // namespace kestra::torture
