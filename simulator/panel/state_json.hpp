#pragma once

#include "history.hpp"
#include "json_text.hpp"
#include "session.hpp"

namespace impresora {

// Everything that can be told about the printer now.
Json StateJson(Session& session, const History& history);

Json ControlsJson(const Printer& printer);
Json FaultRulesJson(const FaultPlan& plan);

}  // namespace impresora
