#include "golden/exports.hpp"

#include <array>
#include <cstddef>
#include <stdexcept>

#include "exports/exports.hpp"
#include "golden/onlooker.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"

namespace kestra::golden {
namespace {

using exports::Export;
using exports::Kind;
using exports::Parameter;

constexpr std::string_view kGuard = "#guard#";
constexpr char kUntouched = '.';

// The host's own memory during a call, for one argument.
struct Room {
  bool is_result = false;
  std::vector<char> bytes{};
};
using Rooms = std::array<Room, exports::kMostParameters>;

// z"text" and u"text" are a zero-terminated text, in windows-1252 and in UTF-8, with other things of the
// host's behind it.
constexpr std::string_view kBehind = "behind";

bool IsTerminated(std::string_view word) {
  return word.starts_with('z') || word.starts_with('u');
}

std::string WithThingsBehind(std::string text, std::size_t size) {
  text += '\0';
  do {
    text += kBehind;
  } while (text.size() < size);
  return text;
}

std::vector<char> TextBytes(std::string_view word, const Parameter& parameter) {
  const bool terminated = IsTerminated(word);
  const auto letters = word.starts_with('u') ? Letters::kUtf8 : Letters::kAnsi;
  if (terminated) word.remove_prefix(1);
  if (word.size() < 2 || word.front() != '"') throw std::invalid_argument("a text is quoted");
  std::string text = FromVisible(word.substr(1, word.size() - 2), letters);
  if (terminated) {
    text = WithThingsBehind(std::move(text), parameter.size);
  } else if (parameter.kind == Kind::kTerminated) {
    text += '\0';
  } else if (text.size() < parameter.size) {
    text.resize(parameter.size, ' ');
  }
  return {text.begin(), text.end()};
}

std::vector<char> BufferBytes(std::string_view word, const Parameter& parameter) {
  if (word != "out") throw std::invalid_argument("a result buffer is written out");
  std::vector<char> bytes(parameter.size, kUntouched);
  bytes.insert(bytes.end(), kGuard.begin(), kGuard.end());
  return bytes;
}

exports::Value ReadValue(std::string_view word, const Parameter& parameter, Room& room) {
  if (parameter.kind == Kind::kInteger || parameter.kind == Kind::kRoom)
    return {.integer = ToInteger(word)};
  if (parameter.kind == Kind::kAmount) return {.number = ToNumber(word)};
  if (word == "null") return {};
  room.is_result = parameter.kind == Kind::kResult;
  room.bytes = room.is_result ? BufferBytes(word, parameter) : TextBytes(word, parameter);
  return {.pointer = room.bytes.data()};
}

// A result that the host gives so many bytes for has those and no more.
Parameter WithRoom(const Export& row, const std::vector<std::string_view>& arguments,
                   std::size_t place) {
  Parameter parameter = row.places[place];
  const bool chosen = place + 1 < row.count && row.places[place + 1].kind == Kind::kRoom;
  if (chosen) parameter.size = static_cast<std::size_t>(ToInteger(arguments[place + 1]));
  return parameter;
}

std::string ResultText(const Room& room) {
  const std::string bytes(room.bytes.begin(), room.bytes.end());
  const std::size_t size = bytes.size() - kGuard.size();
  if (bytes.substr(size) != kGuard) throw std::logic_error("written behind the end of a buffer");
  return bytes.substr(0, size);
}

std::int32_t Watched(const Export& row, const exports::Values& values, Onlooker* onlooker) {
  if (onlooker == nullptr) return exports::Call(row, values);
  onlooker->BeforeCall(row.name);
  const std::int32_t result = exports::Call(row, values);
  onlooker->AfterCall(row.name, result);
  return result;
}

}  // namespace

CallOutcome CallExport(std::string_view name, const std::vector<std::string_view>& arguments,
                       Onlooker* onlooker) {
  const Export& row = exports::Find(name);
  if (arguments.size() != row.count) {
    throw std::invalid_argument(std::string(name) + " takes " + std::to_string(row.count) +
                                " arguments");
  }
  exports::Values values{};
  Rooms rooms{};
  for (std::size_t i = 0; i < row.count; ++i) {
    values[i] = ReadValue(arguments[i], WithRoom(row, arguments, i), rooms[i]);
  }
  CallOutcome outcome{Watched(row, values, onlooker), {}};
  for (const Room& room : rooms) {
    if (room.is_result) outcome.buffers.push_back(ResultText(room));
  }
  return outcome;
}

}  // namespace kestra::golden
