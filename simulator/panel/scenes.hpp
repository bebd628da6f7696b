#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace impresora {

// Something that happens in a shop, at one press of a button. Each row uses what it needs.
struct SceneRow {
  std::string_view key;
  std::string_view title;
  std::string_view words;         // what will happen, for whoever presses
  std::string_view rules = {};    // of faults
  std::string_view control = {};  // one that is switched on
  std::int64_t seconds = 0;       // that the clock goes on
  bool occupies = false;          // the port is another program's
};

std::span<const SceneRow> Scenes();

// The row of that key, or null.
const SceneRow* FindScene(std::string_view key);

}  // namespace impresora
