// Moments as texts: what JSON carries and people read.
#pragma once

#include <chrono>
#include <string>

namespace puerta {

// "2026-11-22T18:30:00.125Z"
std::string MomentText(std::chrono::sys_time<std::chrono::milliseconds> moment);

}  // namespace puerta
