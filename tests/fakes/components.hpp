#pragma once

namespace kestra {

// True: the host holds an object of a component class.
inline bool fake_components_in_use = false;

}  // namespace kestra
