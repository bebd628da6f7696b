#pragma once

#include <string_view>

#include "line/session.hpp"
#include "panel/history.hpp"
#include "panel/json_text.hpp"

namespace impresora {

// "TQ", "TF" or "FC".
std::string_view FamilyCode(Family family);

// Everything that can be told about the printer now.
Json StateJson(Session& session, const History& history);

Json ControlsJson(const Printer& printer);
Json FaultRulesJson(const FaultPlan& plan);

}  // namespace impresora
