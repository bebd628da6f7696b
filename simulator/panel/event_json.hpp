#pragma once

#include <string>

#include "fiscal/journal.hpp"
#include "machine/roll.hpp"

namespace impresora {

// What happened, as JSON on one line.
std::string PaperLineJson(const PaperLine& line);
std::string ReceiptJson(const Receipt& receipt);

}  // namespace impresora
