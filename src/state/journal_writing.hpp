#pragma once

#include <cstdint>
#include <string_view>

#include "base/failure.hpp"
#include "platform/seam/files.hpp"
#include "state/causes.hpp"
#include "state/journal_record.hpp"

namespace kestra {

struct Library;

// For state/journal.cpp: the open file and what is written to it. All of it throws Failure.

// Date and time, as records have them.
std::string MomentNow(Library& library);

JournalFile& FileOf(Library& library);

// One with a cause of its own.
Failure JournalFailure(std::string_view words, Cause cause);

// Of now, with what is known now.
JournalRecord NewRecord(Library& library, RecordKind kind, std::int64_t number);

// Drops what stands behind the last record that counts.
void CutTail(Library& library);

// Writes a record behind what could not be written before, and before both, in an empty file, its first
// record. What gets there of one that fails is cut off, at once or before the next.
void Write(Library& library, std::string_view record);

// A command goes out without its intent: the last record, whose room needs no other, says instead that nothing
// is known from here on. What could not be written before has no place behind it.
void MarkGap(Library& library);

// Keeps the file aside, goes on in an empty one, and deletes what was kept for long enough.
void BeginAnew(Library& library);

}  // namespace kestra
