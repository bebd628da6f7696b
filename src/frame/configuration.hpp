#pragma once

namespace kestra {

struct Library;

// Fills the configuration fields from .\Fiscal.ini, key by key. The first key that cannot be read
// is shown to the operator and ends the reading; the fields behind it keep their values.
void Lee_Ini(Library& library);

}  // namespace kestra
