#pragma once

#include <optional>
#include <string_view>

#include "line/session.hpp"

namespace impresora {

// Who sits at the printer's end of the line: a printer, or a recording of one.
class Seat {
 public:
  virtual ~Seat() = default;
  virtual void Receive(std::string_view bytes, Micros now) = 0;
  virtual Output Advance(Micros now) = 0;
  virtual std::optional<Micros> NextDue() const = 0;

  // Nothing that is under way to the former host is for the one that comes now.
  virtual void NewHost() = 0;
};

// The seat of something that has all that by itself.
template <typename Sitter>
class SeatOf : public Seat {
 public:
  explicit SeatOf(Sitter& sitter) : sitter_(sitter) {}

  void Receive(std::string_view bytes, Micros now) override { sitter_.Receive(bytes, now); }
  Output Advance(Micros now) override { return sitter_.Advance(now); }
  std::optional<Micros> NextDue() const override { return sitter_.NextDue(); }
  void NewHost() override { sitter_.NewHost(); }

 private:
  Sitter& sitter_;
};

}  // namespace impresora
