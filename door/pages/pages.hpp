// What the door shows of itself: the contract, its reference, and the till in the browser.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace puerta {

struct Page {
  std::string_view type;  // of media
  std::string_view body;
};

// "/v1/openapi.json", "/documentacion" and the status page with what it needs; nothing for any other path. They were
// made when the door was built.
std::optional<Page> FindPage(std::string_view path);

struct TillFile {
  std::string type;
  std::string body;
};

// A file of the till by its name behind "/caja/", the page itself for the empty one. Nothing for a name of other letters
// than a-z, 0-9, '-', '_' and '.', for an ending that the till has no use for, and for what is not there.
std::optional<TillFile> ReadTillFile(const std::filesystem::path& folder, std::string_view name);

}  // namespace puerta
