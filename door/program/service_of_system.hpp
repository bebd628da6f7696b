// The door as a service of the system, where the system wants to be asked for it.
#pragma once

#include <functional>

namespace puerta {

// Runs `work` as a service; `stop` is called from any thread when the system wants it to end. What the process ends
// with. Where services are simple programs, it is one.
int RunAsService(const std::function<int()>& work, const std::function<void()>& stop);

}  // namespace puerta
