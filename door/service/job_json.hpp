// A job as tills are shown it.
#pragma once

#include <cstdint>
#include <string>

#include "base/json.hpp"
#include "store/store.hpp"

namespace puerta {

// How far it is, which is not kept: 0 is not known.
struct Progress {
  std::int64_t line = 0;
  std::int64_t position = 0;
};

Json JobJson(const Job& job, const Progress& progress = {});

// What became of it, kept for ever: of the worker's "fin" or "recuperado".
std::string AnswerOf(const Json& told);
Outcome OutcomeOf(const Json& told);

// One that the door itself decides.
Json NotDone(int cause, std::string_view words);

}  // namespace puerta
