// What the door, as a program, has to ask its system for.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace puerta {

// Runs `work` as a service; `stop` is called from any thread when the system wants it to end. What the process ends
// with. Where services are simple programs, it is one.
int RunAsService(const std::function<int()>& work, const std::function<void()>& stop);

// What stands behind the program's name on its command line, in UTF-8.
std::vector<std::string> Words(int count, char** arguments);

}  // namespace puerta
