#include "hostile/shared/values.hpp"

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

#include "kestra/kestra.h"

namespace kestra::hostile {
namespace {

using exports::Kind;
using namespace std::string_view_literals;

// Where there are 32 bits, the lower ones.
const void* At(std::uint64_t address) {
  return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(address));
}

Value Pointer(const void* pointer) {
  return {.pointer = pointer};
}

Hostile Address(std::string name, const void* pointer) {
  return {std::move(name), false, [=](const Argument&, Places&) { return Pointer(pointer); }};
}

// Where no pointer may lead, whatever it is for.
std::vector<Hostile> Nowhere() {
  return {
      Address("null", nullptr),
      Address("the first byte of all", At(1)),
      Address("an address that is none", At(0x0123456789ABCDEF)),
      Address("the system's memory", At(0xFFFF800000000000)),
      Address("the end of the system's memory", At(~std::uint64_t{0xFFFF})),
      Address("the last byte of all", At(~std::uint64_t{0})),
      {"memory that is not there", false,
       [](const Argument&, Places& places) { return Pointer(places.text.Nowhere()); }},
  };
}

// The front of the text, so many bytes less than there should be, at the end of a page.
Hostile Short(std::string name, std::size_t missing) {
  return {std::move(name), false, [=](const Argument& argument, Places& places) {
            const std::string& sample = argument.words;
            const std::size_t kept = sample.size() > missing ? sample.size() - missing : 0;
            return Pointer(places.text.AtEnd(std::string_view(sample).substr(0, kept)));
          }};
}

// A text of its own length.
Hostile Ending(std::string name, std::string_view text) {
  return {std::move(name), false,
          [=](const Argument&, Places& places) { return Pointer(places.text.AtEnd(text)); }};
}

Hostile Filled(std::string name, char byte) {
  return {std::move(name), false, [=](const Argument& argument, Places& places) {
            return Pointer(places.text.AtEnd(std::string(argument.words.size(), byte)));
          }};
}

std::vector<Hostile> Texts() {
  auto list = Nowhere();
  list.push_back({"at the end of its page", true, [](const Argument& argument, Places& places) {
                    return Pointer(places.text.AtEnd(argument.words));
                  }});
  list.push_back({"at the front of its page", true, [](const Argument& argument, Places& places) {
                    return Pointer(places.text.AtFront(argument.words));
                  }});
  list.push_back(
      {"in memory that may be read only", true, [](const Argument& argument, Places& places) {
         places.locked.MayBeWritten(true);
         const char* const text = places.locked.AtEnd(argument.words);
         places.locked.MayBeWritten(false);
         return Pointer(text);
       }});
  list.push_back(Short("one byte too short", 1));
  list.push_back(Short("two bytes too short", 2));
  list.push_back(Short("twenty bytes too short", 20));
  list.push_back(Ending("a zero at the end of the page", "Hoy\0"sv));
  list.push_back(Ending("half of a letter at the end of the page", "Hoy\xE2\x82"));
  list.push_back(Filled("second bytes of letters", '\x80'));
  list.push_back(Filled("first bytes of letters", '\xE2'));
  list.push_back(Filled("zeros", '\0'));
  list.push_back(Filled("ends of frames", '\x03'));
  list.back().ends_frames = true;
  list.push_back(Filled("ends of fields", '\x1c'));
  list.push_back(Filled("the last letter of the code page", '\xff'));
  list.push_back({"a page without an end", false, [](const Argument&, Places& places) {
                    return Pointer(places.text.AtFront(""));
                  }});
  return list;
}

std::vector<Hostile> Results() {
  auto list = Nowhere();
  list.push_back({"room at the end of a page", true, [](const Argument& argument, Places& places) {
                    return Pointer(places.result.RoomAtEnd(argument.size));
                  }});
  list.push_back(
      {"room at the front of a page", true, [](const Argument& argument, Places& places) {
         return Pointer(places.result.RoomAt(0, argument.size));
       }});
  list.push_back({"room at an odd place", true, [](const Argument& argument, Places& places) {
                    return Pointer(places.result.RoomAt(13, argument.size));
                  }});
  list.push_back({"room for one byte less", false, [](const Argument& argument, Places& places) {
                    return Pointer(places.result.RoomAtEnd(argument.size - 1));
                  }});
  list.push_back({"room for one byte", false, [](const Argument&, Places& places) {
                    return Pointer(places.result.RoomAtEnd(1));
                  }});
  list.push_back({"memory that may be read only", false, [](const Argument&, Places& places) {
                    return Pointer(places.locked.Nowhere() - 200);
                  }});
  list.push_back({"the library's code", false,
                  [](const Argument&, Places& places) { return Pointer(places.code); }});
  return list;
}

// The bytes as they are: no unit looks at them on the way.
Hostile Amount(std::string name, std::uint64_t bits) {
  return {std::move(name), false, [=](const Argument&, Places&) {
            Value value;
            std::memcpy(&value.number, &bits, sizeof bits);
            return value;
          }};
}

std::vector<Hostile> Amounts() {
  return {
      Amount("no number", 0x7FF8000000000000),
      Amount("no number, negative", 0xFFF8000000000000),
      Amount("no number, that signals", 0x7FF4000000000000),
      Amount("no number, that signals, negative", 0xFFF0000000000001),
      Amount("infinity", 0x7FF0000000000000),
      Amount("negative infinity", 0xFFF0000000000000),
      Amount("1e308", std::bit_cast<std::uint64_t>(1e308)),
      Amount("-1e308", std::bit_cast<std::uint64_t>(-1e308)),
      Amount("the greatest", 0x7FEFFFFFFFFFFFFF),
      Amount("the least", 0xFFEFFFFFFFFFFFFF),
      Amount("the smallest", 0x0000000000000001),
      Amount("the smallest, negative", 0x8000000000000001),
      Amount("the greatest of the small", 0x000FFFFFFFFFFFFF),
      Amount("zero", 0),
      Amount("negative zero", 0x8000000000000000),
      Amount("a third", 0x3FD5555555555555),
      Amount("beyond whole cents", std::bit_cast<std::uint64_t>(90071992547409.93)),
      Amount("beyond whole numbers", 0x4340000000000001),
      Amount("beyond 64 bits", std::bit_cast<std::uint64_t>(1e19)),
  };
}

std::vector<Hostile> Integers() {
  constexpr std::array numbers{std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max(),
                               -1,
                               0,
                               32767,
                               32768,
                               -32768,
                               -32769,
                               65536};
  std::vector<Hostile> list;
  for (const std::int32_t number : numbers) {
    list.push_back({std::to_string(number), false,
                    [=](const Argument&, Places&) { return Value{.integer = number}; }});
  }
  return list;
}

// A host that claims more than it gives has its own memory written.
std::vector<Hostile> Rooms() {
  std::vector<Hostile> list;
  for (const std::int32_t number : {std::numeric_limits<std::int32_t>::min(), -1, 0, 1}) {
    list.push_back({std::to_string(number), false,
                    [=](const Argument&, Places&) { return Value{.integer = number}; }});
  }
  return list;
}

// An operator's record of so many bytes at the end of a page, that claims another size.
Hostile Record(std::string name, std::size_t bytes, std::uint32_t claimed) {
  return {std::move(name), false, [=](const Argument&, Places& places) {
            KestraOperador record = {};
            record.tamano = claimed;
            std::string copy(sizeof record, '\0');
            std::memcpy(copy.data(), &record, sizeof record);
            return Pointer(places.text.AtEnd(copy.substr(0, bytes)));
          }};
}

std::vector<Hostile> Records() {
  auto list = Nowhere();
  constexpr std::size_t whole = sizeof(KestraOperador);
  list.push_back(Record("whole", whole, whole));
  list.push_back(Record("that claims more than there is", whole, 0xFFFFFFFF));
  list.push_back(Record("that claims nothing", whole, 0));
  list.push_back(Record("cut short", whole - 1, whole));
  list.push_back(Record("of its size alone", sizeof(std::uint32_t), whole));
  list.push_back(Record("of half of its size", 2, whole));
  return list;
}

}  // namespace

Places::Places(const void* of_the_library) : code(of_the_library) {
  locked.MayBeWritten(false);
}

bool Places::Untouched() const {
  return result.RestUntouched() && locked.RestUntouched() &&
         std::memcmp(code, code_before.data(), kCode) == 0;
}

const std::vector<Hostile>& HostileTo(const exports::Parameter& parameter) {
  static const auto texts = Texts();
  static const auto results = Results();
  static const auto amounts = Amounts();
  static const auto integers = Integers();
  static const auto rooms = Rooms();
  static const auto records = Records();
  static const auto nowhere = Nowhere();
  switch (parameter.kind) {
    case Kind::kText:
    case Kind::kTerminated:
      return texts;
    case Kind::kResult:
      return results;
    case Kind::kAmount:
      return amounts;
    case Kind::kInteger:
      return integers;
    case Kind::kRoom:
      return rooms;
    case Kind::kOperator:
      return records;
    default:
      return nowhere;
  }
}

Value Sane(const Argument& argument, char* room) {
  switch (argument.kind) {
    case Kind::kAmount:
      return {.number = std::stod(argument.words)};
    case Kind::kInteger:
    case Kind::kRoom:
      return {.integer = std::stoi(argument.words)};
    case Kind::kText:
    case Kind::kTerminated:
      std::memcpy(room, argument.words.data(), argument.words.size());
      return Pointer(room);
    case Kind::kOperator:
      return Pointer(nullptr);
    default:
      return Pointer(room);
  }
}

}  // namespace kestra::hostile
