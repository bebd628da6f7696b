// The bytes of the answer, and how they leave.
#include <algorithm>
#include <optional>
#include <utility>

#include "faults/effects.hpp"
#include "wire/speed.hpp"

namespace impresora {
namespace {

// Which byte is meant, or nothing when there is no such one.
std::optional<std::size_t> ByteIndex(const Action& action, Scene& scene) {
  const std::size_t count = scene.draft.bytes.size();
  if (count == 0) return std::nullopt;
  if (*action.place == kAnyPlace) return static_cast<std::size_t>(scene.chance() % count);
  const auto size = static_cast<std::int64_t>(count);
  const std::int64_t index = *action.place > 0 ? *action.place - 1 : size + *action.place;
  if (index < 0 || index >= size) return std::nullopt;
  return static_cast<std::size_t>(index);
}

// Puts something else where the byte is, perhaps nothing.
template <class Make>
bool EditByte(const Action& action, Scene& scene, Make make) {
  const auto index = ByteIndex(action, scene);
  if (!index) return false;
  std::string& bytes = scene.draft.bytes;
  const std::string with = make(bytes[*index]);
  const bool changed = with.size() != 1 || with[0] != bytes[*index];
  bytes.replace(*index, 1, with);
  return changed;
}

// Noise has no byte that means something on a line.
char NoiseByte(Chance& chance) {
  return static_cast<char>(0x80U | (chance() & 0x7FU));
}

bool End(const Action& action, Scene& scene, Ending ending) {
  scene.draft.heard = scene.answer != nullptr;
  std::size_t at = 0;
  if (action.place) {
    const auto index = ByteIndex(action, scene);
    if (!index) return false;
    at = *index;
  }
  scene.draft.EndAt(at, ending, action.time);
  return true;
}

}  // namespace

bool SpoilChecksum(const Action& /*action*/, Scene& scene) {
  std::string& bytes = scene.draft.bytes;
  if (bytes.empty()) return false;
  bytes.back() = bytes.back() == '0' ? '1' : '0';
  return true;
}

bool DropByte(const Action& action, Scene& scene) {
  return EditByte(action, scene, [](char) { return std::string(); });
}

bool FlipByte(const Action& action, Scene& scene) {
  const auto flip = [&action](char c) {
    const auto mask = static_cast<std::uint8_t>(action.bytes.front());
    return std::string(1, static_cast<char>(static_cast<std::uint8_t>(c) ^ mask));
  };
  return EditByte(action, scene, flip);
}

bool DoubleByte(const Action& action, Scene& scene) {
  return EditByte(action, scene, [](char c) { return std::string(2, c); });
}

bool ReplaceByte(const Action& action, Scene& scene) {
  return EditByte(action, scene, [&action](char) { return action.bytes; });
}

bool InsertBytes(const Action& action, Scene& scene) {
  const auto index = ByteIndex(action, scene);
  if (!index || action.bytes.empty()) return false;
  scene.draft.bytes.insert(action.flag ? *index + 1 : *index, action.bytes);
  return true;
}

bool Truncate(const Action& action, Scene& scene) {
  const auto index = ByteIndex(action, scene);
  if (!index) return false;
  scene.draft.bytes.resize(*index);
  return true;
}

// A command that is heard at another speed is no frame any more.
bool ChangeSpeed(const Action& action, Scene& scene) {
  if (scene.answer == nullptr) {
    const bool same = action.number == action.other;
    scene.draft.heard = scene.draft.heard && same;
    return !same;
  }
  std::string& bytes = scene.draft.bytes;
  std::string heard =
      AsHeard(bytes, static_cast<int>(action.number), static_cast<int>(action.other));
  const bool changed = heard != bytes;
  bytes = std::move(heard);
  return changed;
}

bool AddNoise(const Action& action, Scene& scene) {
  std::string noise = action.bytes;
  for (std::int64_t i = 0; i < action.number; ++i) noise += NoiseByte(scene.chance);
  scene.draft.before += noise;
  return !noise.empty();
}

bool Delay(const Action& action, Scene& scene) {
  scene.draft.delay += action.time;
  return action.time.count() > 0;
}

bool StayBusy(const Action& action, Scene& scene) {
  scene.draft.busy += action.time;
  return action.time.count() > 0;
}

// Parts of equal length, as far as the bytes go.
bool Split(const Action& action, Scene& scene) {
  auto& pauses = scene.draft.pauses;
  if (action.place) {
    const auto index = ByteIndex(action, scene);
    if (index) pauses[*index] += action.time;
    return index.has_value();
  }
  const std::size_t size = scene.draft.bytes.size();
  const std::size_t parts = std::min(static_cast<std::size_t>(action.number), size);
  for (std::size_t i = 1; i < parts; ++i) pauses[size * i / parts] += action.time;
  return parts > 1;
}

bool HangUp(const Action& action, Scene& scene) {
  return End(action, scene, Ending::kHangUp);
}

bool PowerOff(const Action& action, Scene& scene) {
  return End(action, scene, Ending::kPowerOff);
}

}  // namespace impresora
