#pragma once

#include <cstddef>
#include <random>

#include "campaigns/line_faults/canonical_documents.hpp"

namespace kestra::crashes {

// A day of so many documents of one family, and its closing.
line_faults::CanonicalDocument AnyDay(std::mt19937_64& random, std::size_t documents);

}  // namespace kestra::crashes
