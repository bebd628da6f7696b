// What is in the answer, and what stands in its place.
#include <algorithm>
#include <optional>

#include "faults/effects.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

constexpr std::size_t kWords = 2;  // the fields before the data

// Which field is meant, or nothing when the answer has no such one.
std::optional<std::size_t> FieldIndex(const Action& action, const Draft& draft) {
  const std::int64_t field = *action.field;
  const auto count = static_cast<std::int64_t>(draft.fields.size());
  std::int64_t index = field > 0 ? field - 1 + static_cast<std::int64_t>(kWords) : count + field;
  if (field == kPrinterWordField) index = 0;
  if (field == kFiscalWordField) index = 1;
  if (index < 0 || index >= count) return std::nullopt;
  return static_cast<std::size_t>(index);
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool RemoveField(const Action& action, Scene& scene) {
  const auto index = FieldIndex(action, scene.draft);
  if (!index) return false;
  scene.draft.fields.erase(scene.draft.fields.begin() + static_cast<std::ptrdiff_t>(*index));
  return true;
}

bool EmptyField(const Action& action, Scene& scene) {
  const auto index = FieldIndex(action, scene.draft);
  if (!index || scene.draft.fields[*index].empty()) return false;
  scene.draft.fields[*index].clear();
  return true;
}

bool AddField(const Action& action, Scene& scene) {
  std::vector<std::string>& fields = scene.draft.fields;
  std::optional<std::size_t> index = fields.size();
  if (action.field) index = FieldIndex(action, scene.draft);
  if (!index) return false;
  fields.insert(fields.begin() + static_cast<std::ptrdiff_t>(*index), action.bytes);
  return true;
}

bool ReplaceField(const Action& action, Scene& scene) {
  const auto index = FieldIndex(action, scene.draft);
  if (!index || scene.draft.fields[*index] == action.bytes) return false;
  scene.draft.fields[*index] = action.bytes;
  return true;
}

bool LowerWords(const Action& /*action*/, Scene& scene) {
  std::vector<std::string>& fields = scene.draft.fields;
  bool changed = false;
  for (std::size_t i = 0; i < std::min(kWords, fields.size()); ++i) {
    const std::string before = fields[i];
    std::transform(before.begin(), before.end(), fields[i].begin(), Lower);
    changed = changed || fields[i] != before;
  }
  return changed;
}

// A signed number is a step from the right one.
bool ChangeSequence(const Action& action, Scene& scene) {
  const std::uint8_t before = scene.draft.sequence;
  const std::int64_t wanted = action.flag ? before + action.number : action.number;
  scene.draft.sequence = static_cast<std::uint8_t>(wanted & 0xFF);
  return scene.draft.sequence != before;
}

bool ChangeCommand(const Action& action, Scene& scene) {
  const std::uint8_t before = scene.draft.command;
  scene.draft.command = static_cast<std::uint8_t>(action.number);
  return scene.draft.command != before;
}

bool AnswerAsBefore(const Action& action, Scene& scene) {
  if (scene.former.empty()) return false;
  std::string& place = action.flag ? scene.draft.before : scene.draft.bytes;
  if (!action.flag) place.clear();
  place += scene.former;
  return true;
}

bool AnswerNak(const Action& /*action*/, Scene& scene) {
  scene.draft.heard = scene.answer != nullptr;
  scene.draft.bytes = std::string(1, kNak);
  return true;
}

bool KeepSilent(const Action& /*action*/, Scene& scene) {
  scene.draft.bytes.clear();
  return true;
}

bool LoseCommand(const Action& /*action*/, Scene& scene) {
  scene.draft.heard = false;
  return true;
}

}  // namespace impresora
