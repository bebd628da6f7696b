#pragma once

#include <string>
#include <string_view>

namespace impresora {

inline constexpr int kUsualBaud = 9600;
inline constexpr int kSlowest = 50;
inline constexpr int kFastest = 4'000'000;

// Bytes that left at one speed, without a pause between them, as a receiver of another hears them:
// it waits for a start bit and then looks at the line in the middle of each bit of its own.
std::string AsHeard(std::string_view bytes, int sent_at, int heard_at);

// Whether a frame of one is understood at the other.
bool SoundAlike(int sent_at, int heard_at);

}  // namespace impresora
