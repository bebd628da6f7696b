// puerta.json: what the door serves, to whom, and where.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/problem.hpp"
#include "http/keys.hpp"

namespace puerta {

struct PrinterEntry {
  std::string id;
  std::filesystem::path folder;
};

struct TlsEntry {
  std::filesystem::path certificate;  // empty: made by the door
  std::filesystem::path key;
};

struct Configuration {
  std::string address = "127.0.0.1";
  int port = 8470;
  std::filesystem::path data = "datos";
  std::optional<TlsEntry> tls = {};
  bool without_tls = false;  // on a network all the same
  std::vector<std::string> names = {};
  std::vector<std::string> origins = {};
  std::vector<TillSettings> tills = {};
  std::vector<PrinterEntry> printers = {};
  std::chrono::milliseconds wait = std::chrono::seconds(60);
  std::filesystem::path web_till = {};
  Json broker = nullptr;  // the outbox's own
  std::size_t connections = 256;
  std::size_t largest_body = 256 << 10;
  std::size_t most_waiting = 100;
};

struct ReadConfiguration {
  Configuration configuration = {};
  std::vector<FieldError> errors = {};  // where there is one, the door does not start
};

// Folders that do not begin at the root begin at `base`.
ReadConfiguration ParseConfiguration(const Json& json, const std::filesystem::path& base);
ReadConfiguration LoadConfiguration(const std::filesystem::path& file);

}  // namespace puerta
