#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "line/line.hpp"
#include "wire/packet.hpp"

namespace kestra::tool {

// Makes exchanges of what two others say to each other: the till's bytes and the printer's, as they pass.
class Witness {
 public:
  using Take = std::function<void(const impresora::Exchange& exchange)>;

  Witness(impresora::WallClock& clock, Take take) : clock_(clock), take_(std::move(take)) {}

  void FromTill(std::string_view bytes, impresora::Micros now);
  void FromPrinter(std::string_view bytes, impresora::Micros now);

  // What is under way comes to nothing more.
  void Finish();

 private:
  void Begin(const impresora::Event& event, impresora::Micros now);
  [[nodiscard]] bool HasItsAnswer() const;

  impresora::WallClock& clock_;
  Take take_;
  impresora::PacketDecoder decoder_;
  std::optional<impresora::Exchange> current_;
  unsigned count_ = 0;
};

}  // namespace kestra::tool
