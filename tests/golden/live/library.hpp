#pragma once

namespace kestra::live {

// Makes the library ready, as a host that has just started has it.
void LoadLibraryUnderTest();

// Ends it and leaves it: is it gone, with all that it knew?
bool LeaveLibraryUnderTest();

}  // namespace kestra::live
