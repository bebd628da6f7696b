#include "wire/speed.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace impresora {
namespace {

constexpr std::int64_t kDataBits = 8;
constexpr std::int64_t kBitsOfByte = 10;  // start, data from the lowest, stop

// The line over time, counted so finely that both sides' bits take whole numbers of it.
class Wire {
 public:
  Wire(std::string_view bytes, std::int64_t bit) : bytes_(bytes), bit_(bit) {}

  // At rest the line is high, as it is while a stop bit lasts.
  bool High(std::int64_t at) const { return BitIsHigh(at / bit_); }

  // When the line falls next, not before `from`.
  std::optional<std::int64_t> Fall(std::int64_t from) const {
    for (std::int64_t n = (from + bit_ - 1) / bit_; n < Bits(); ++n) {
      if (!BitIsHigh(n) && (n == 0 || BitIsHigh(n - 1))) return n * bit_;
    }
    return std::nullopt;
  }

 private:
  std::int64_t Bits() const { return static_cast<std::int64_t>(bytes_.size()) * kBitsOfByte; }

  bool BitIsHigh(std::int64_t n) const {
    if (n >= Bits() || n % kBitsOfByte > kDataBits) return true;
    if (n % kBitsOfByte == 0) return false;
    const auto byte = static_cast<std::uint8_t>(bytes_[static_cast<std::size_t>(n / kBitsOfByte)]);
    return (byte >> (n % kBitsOfByte - 1) & 1) != 0;
  }

  std::string_view bytes_;
  std::int64_t bit_;
};

}  // namespace

// Without its stop bit a byte is taken as it is, as a port does that nobody asked to mark such ones;
// the next one begins when the line falls again.
std::string AsHeard(std::string_view bytes, int sent_at, int heard_at) {
  if (sent_at == heard_at) return std::string(bytes);
  const Wire wire(bytes, std::int64_t{2} * heard_at);
  const std::int64_t half = sent_at;
  const std::int64_t bit = 2 * half;
  std::string heard;
  std::optional<std::int64_t> start = wire.Fall(0);
  while (start) {
    std::int64_t at = *start + half;
    if (!wire.High(at)) {
      unsigned byte = 0;
      for (std::int64_t i = 0; i < kDataBits; ++i) {
        at += bit;
        byte |= (wire.High(at) ? 1U : 0U) << i;
      }
      heard += static_cast<char>(byte);
      at += bit;
    }
    start = wire.Fall(at);
  }
  return heard;
}

// Both at their worst: bytes without an edge between start and stop, and edges everywhere.
bool SoundAlike(int sent_at, int heard_at) {
  constexpr std::string_view kHardest("\x80\x55\xAA\xFF\x01\x00", 6);
  return AsHeard(kHardest, sent_at, heard_at) == kHardest;
}

}  // namespace impresora
