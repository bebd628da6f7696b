#pragma once

#include <string>

namespace kestra {

struct Library;

// Enviar in the safe mode: the same frames as long as all is well, and an outcome that is known. True: the
// printer has carried the command out, by its answer or by its books; false: it has not, or nobody knows.
bool SendSafely(Library& library, const std::string& command);

}  // namespace kestra
