#pragma once

#include <optional>

#include "diagnosis.hpp"
#include "probe.hpp"
#include "settings.hpp"

namespace kestra::tool {

// The parts of a diagnosis, in the order in which one leads to the next.

struct LineLook {
  bool all_speeds = false;
  bool other_ports = false;
};

// The device, by what the system knows of it.
void LookAtDevice(Diagnosis& diagnosis, const Way& way);

// Whether somebody answers, and why nobody does: the way on which somebody did.
std::optional<Way> LookAtLine(Diagnosis& diagnosis, const Way& way, LineLook look);

// What the printer tells of itself, against the settings.
void LookAtPrinter(Diagnosis& diagnosis, Probe& probe, const Way& way);

// Journal, log, disk.
void LookAtFiles(Diagnosis& diagnosis, const Way& way);

// Whether it knows a repeated frame; nothing when that cannot be told. Its clock is set to its own time for that,
// which a real printer is spared unless somebody has asked for it.
std::optional<bool> LookAtRepeats(Diagnosis& diagnosis, Probe& probe, bool asked);

// How long it takes to answer.
void LookAtTimes(Diagnosis& diagnosis, Probe& probe);

}  // namespace kestra::tool
