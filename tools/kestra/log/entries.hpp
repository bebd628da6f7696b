#pragma once

#include <functional>
#include <string>
#include <vector>

#include "log/entry.hpp"

namespace kestra::tool {

// Puts together what the lines of a log say of each frame.
class EntryReader {
 public:
  using Take = std::function<void(Entry entry)>;

  explicit EntryReader(Take take) : take_(std::move(take)) {}

  void Add(const LogLine& line);

  // The log has ended here, or rests: what is known of the last frame is all there is for now.
  void Rest();

 private:
  void BeginOperation(const LogLine& line);
  void TakeFrame(const LogLine& line);
  void TakeAnswer(const LogLine& line);
  void TakeError(const LogLine& line);
  void TakeDamaged(const LogLine& line);
  void Note(const LogLine& line);
  void BeginNote(const LogLine& line);
  std::string Announcer(const impresora::Packet& packet);
  void HandOver();

  Take take_;
  std::optional<Entry> current_;
  std::string operation_;              // that was announced last
  std::vector<std::string> deferred_;  // announced before others that had to go first
  std::string last_body_;              // of the frame before, to know it again
  unsigned attempts_ = 0;
  bool announced_ = false;  // by a line of its own
};

}  // namespace kestra::tool
