// The process of one printer: it stands in that printer's folder, calls back the door that has started it, and makes
// the library's calls.
#pragma once

namespace puerta {

// Where the door listens for its workers, and the word by which it knows this one: of the environment.
inline constexpr auto kPortVariable = "PUERTA_TRABAJADOR_PUERTO";
inline constexpr auto kTokenVariable = "PUERTA_TRABAJADOR_FICHA";

// Until the door says "termine" or is gone. What the process ends with.
int RunWorker();

}  // namespace puerta
