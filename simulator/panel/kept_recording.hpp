#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "line/session.hpp"
#include "panel/json_text.hpp"
#include "trace/recording.hpp"

namespace impresora {

// A recording that is made from the panel and fetched from there, of bounded size.
class KeptRecording : public Observer {
 public:
  explicit KeptRecording(std::size_t most = kMost) : most_(most) {}

  // Begins anew.
  void Begin(const Settings& settings);
  void End() { recorder_.reset(); }

  void Exchanged(const Exchange& exchange) override;

  // As the file that the program plays back; empty while there is none.
  const std::string& Text() const { return text_; }
  Json Status() const;

 private:
  static constexpr std::size_t kMost = 8U << 20U;

  std::size_t most_;
  std::string text_;
  std::size_t exchanges_ = 0;
  bool full_ = false;
  std::optional<Recorder> recorder_;
};

}  // namespace impresora
