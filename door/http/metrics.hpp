// The door in numbers, in the text format of Prometheus.
#pragma once

#include <string>

#include "service/service.hpp"

namespace puerta {

std::string MetricsText(Service& service);

}  // namespace puerta
