#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace fuzz {

// Ends the run: this must not happen, whatever the input.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  (void)std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// What a run is made of: the bytes of the input, taken from the front. Behind its end there are
// zeros, so that every input means something.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool Empty() const { return rest_.empty(); }

  std::uint8_t Byte() { return static_cast<std::uint8_t>(Integer<std::uint8_t>()); }
  bool Flag() { return (Byte() & 1U) != 0; }
  std::size_t Below(std::size_t count) { return Byte() % count; }

  // Lowest byte first.
  template <std::unsigned_integral T>
  T Integer() {
    T value{};
    for (std::size_t i = 0; i < sizeof(T) && !rest_.empty(); ++i) {
      value =
          static_cast<T>(value | static_cast<T>(T{static_cast<std::uint8_t>(rest_[0])} << (8 * i)));
      rest_.remove_prefix(1);
    }
    return value;
  }
  std::int16_t Int16() { return static_cast<std::int16_t>(Integer<std::uint16_t>()); }
  std::int32_t Int32() { return static_cast<std::int32_t>(Integer<std::uint32_t>()); }
  double Double() {
    const auto bits = Integer<std::uint64_t>();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }

  template <typename T, std::size_t N>
  const T& Pick(const std::array<T, N>& choices) {
    return choices[Below(N)];
  }

  // A byte says how long it is.
  std::string_view Text(std::size_t longest) { return Take(Below(longest + 1)); }
  std::string_view Rest() { return Take(rest_.size()); }

 private:
  std::string_view Take(std::size_t count) {
    const auto text = rest_.substr(0, count);
    rest_.remove_prefix(text.size());
    return text;
  }

  std::string_view rest_;
};

}  // namespace fuzz

// What is done with each input: FUZZ_TARGET(input) { ... }
#define FUZZ_TARGET(input)                                                            \
  static void FuzzOne(fuzz::Input input);                                             \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) { \
    FuzzOne({data, size});                                                            \
    return 0;                                                                         \
  }                                                                                   \
  static void FuzzOne(fuzz::Input input)
