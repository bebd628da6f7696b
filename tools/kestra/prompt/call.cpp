#include "prompt/call.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <span>

#include "command.hpp"

namespace kestra::tool {
namespace {

constexpr std::size_t kRoom = 1'024;  // of a result whose length the caller chooses
constexpr std::size_t kLongestCharacter = 4;

[[noreturn]] void Misused(const std::string& words) {
  throw Stop(Exit::kUsage, words);
}

bool IsTyped(const Argument& argument) {
  return argument.kind != Kind::kResult && argument.kind != Kind::kLength;
}

double ReadNumber(std::string text, std::string_view name) {
  std::replace(text.begin(), text.end(), ',', '.');
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    Misused(std::string(name) + " no es un número: " + text);
  return number;
}

std::int32_t ReadInteger(const std::string& text, std::string_view name) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    Misused(std::string(name) + " no es un número entero: " + text);
  return number;
}

std::size_t PlaceOf(std::span<const Argument> arguments, const std::string& name) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].name == name && IsTyped(arguments[i])) return i;
  }
  Misused("no tiene un argumento " + name);
}

// Each argument's word: those without a name go to the places that are free, in order.
std::vector<std::string> Place(std::span<const Argument> arguments,
                               const std::vector<Word>& words) {
  std::vector<std::string> placed(arguments.size());
  std::vector<bool> taken(arguments.size());
  std::size_t next = 0;
  for (const Word& word : words) {
    std::size_t place = next;
    if (word.name.empty()) {
      while (place < arguments.size() && (taken[place] || !IsTyped(arguments[place]))) ++place;
      if (place == arguments.size()) Misused("sobra " + word.text);
      next = place + 1;
    } else {
      place = PlaceOf(arguments, word.name);
      if (taken[place]) Misused("dos veces " + word.name);
    }
    taken[place] = true;
    placed[place] = word.text;
  }
  return placed;
}

std::string Room(const Argument& argument, const std::string& word) {
  std::string room = word;
  const std::size_t size = argument.size == 0 ? kRoom : argument.size * kLongestCharacter;
  room.resize(std::max(size, word.size()) + 1, '\0');
  return room;
}

}  // namespace

CallResult CallOperation(const Operation& operation, const Statement& statement) {
  const auto arguments = ArgumentsOf(operation);
  const auto words = Place(arguments, statement.words);
  std::vector<std::string> rooms(arguments.size());
  Values values{};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Argument& argument = arguments[i];
    if (argument.kind == Kind::kAmount) {
      values.at(i).number = words[i].empty() ? 0 : ReadNumber(words[i], argument.name);
    } else if (argument.kind == Kind::kInteger) {
      values.at(i).integer = words[i].empty() ? 0 : ReadInteger(words[i], argument.name);
    } else if (argument.kind == Kind::kLength) {
      values.at(i).integer = static_cast<std::int32_t>(kRoom);
    } else {
      rooms[i] = Room(argument, words[i]);
      values.at(i).text = rooms[i].data();
    }
  }
  CallResult result{.result = operation.call(values)};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].kind == Kind::kResult)
      result.texts.emplace_back(arguments[i].name, rooms[i].c_str());
  }
  return result;
}

std::string UsageOf(const Operation& operation) {
  std::string text(operation.name);
  for (const Argument& argument : ArgumentsOf(operation)) {
    if (IsTyped(argument)) text.append(" ").append(argument.name);
  }
  return text;
}

}  // namespace kestra::tool
