#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/seam/operator.hpp"

namespace kestra {

// The dialogs as text, for a terminal or one line of standard error. All texts are windows-1252.

// Line breaks become '\n', tabs blanks; every other control character is spelled out ("<1C>"), so
// that no byte of a printer's answer can play with the terminal.
std::string HarmlessText(std::string_view text);

bool IsQuestion(std::int32_t style);

// What a terminal shows: the dialog and, at its end, what to press.
std::string MessageDialog(std::string_view text, std::string_view title, std::int32_t style);
std::string StatusReportDialog(const Report& report);
std::string MemoryFullDialog();

// What nobody was there to see, and what was answered instead; one line with its end.
std::string MessageNote(std::string_view text, std::string_view title, std::int32_t style);
std::string StatusReportNote(const Report& report);
std::string MemoryFullNote();

// What a typed line means. An answer that means nothing to a question has to be asked for again.
enum class Typed : std::uint8_t { kYes, kNo, kUnclear };
Typed TypedAnswer(std::string_view line);
bool TypedRetry(std::string_view line);

}  // namespace kestra
