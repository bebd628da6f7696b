#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "line/session.hpp"

namespace impresora {

// One command of a recorded session and what the printer said to it.
struct RecordedExchange {
  unsigned number = 0;
  Micros received{};  // since the first
  Micros answered{};
  unsigned busy = 0;  // times that the printer said so before it answered
  std::string host;   // bytes on the wire
  std::string printer;
};

using Recording = std::vector<RecordedExchange>;

// A recording that cannot be read; what() says where and why, for a person.
class RecordingFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws RecordingFailure.
Recording ReadRecording(std::istream& text);
Recording ReadRecordingFile(const std::filesystem::path& path);

// Writes a session down as it happens: a line of JSON that says what it is, then one for each
// exchange, with a text for people beside the bytes.
class Recorder : public Observer {
 public:
  using Sink = std::function<void(std::string_view line)>;  // without the line end

  Recorder(const Settings& settings, Sink sink);

  void Exchanged(const Exchange& exchange) override;

 private:
  Sink sink_;
  std::optional<Micros> began_;
};

}  // namespace impresora
