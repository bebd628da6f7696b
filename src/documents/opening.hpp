#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/command.hpp"
#include "state/library.hpp"

namespace kestra {

// The arguments of the two openings, as the host passes them.
struct OpeningArguments {
  const char* kind;    // 2 bytes
  const char* letter;  // 1
  const char* line1;   // 40, as all the lines
  const char* line2;
  const char* document_type;    // 6
  const char* document_number;  // 11
  const char* vat_condition;    // 1
  const char* address;
  const char* line4;
  const char* line5;
  const char* line6;
  const char* line7;
  std::int32_t copies;
};

// The same, read and made ready for the printer.
struct Opening {
  std::string kind;
  std::string letter;
  std::string line1;
  std::string line2;
  std::string document_type;
  std::string document_number;  // 11 digits
  std::string vat_condition;
  std::string address;
  std::string line4;
  std::string line5;
  std::string line6;
  std::string line7;
  std::int32_t copies = 0;
};

// What distinguishes one kind of document from another in the opening command.
struct OpeningTraits {
  std::string_view kind_letter;
  bool copies_from_host;  // else "1"
  std::string_view field_5;
  std::string_view issuer_vat;
  std::string_view field_13;
};

// Reads the arguments and fits the lines to the customer-data length of the family.
Opening PrepareOpening(Library& library, const OpeningArguments& arguments);

// What the operator is asked: all the arguments, as prepared so far.
std::string OpeningQuestion(std::string_view name, const Opening& opening);

// An address that the fitting left empty becomes "SIN DOMICILIO".
void DefaultAddress(Opening& opening);

// Zero copies mean one.
void DefaultCopies(Opening& opening);

Command OpeningCommand(const State& state, const Opening& opening, const OpeningTraits& traits);

}  // namespace kestra
