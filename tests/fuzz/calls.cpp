#include "fuzz/calls.hpp"

#include <memory>

#include "exports/exports.hpp"
#include "kestra/kestra.h"

namespace kestra::fuzzing {
namespace {

using exports::Kind;
using fuzz::Input;

// The corpus tells them by their place in the table: up to DllCanUnloadNow.
constexpr std::size_t kTried = 47;

constexpr std::array<double, 12> kNumbers{0,    1,      0.5,  2.675,   100,      21,
                                          10.5, 999.99, -1.5, 99999.9, 0.000001, 1e12};

// The host's own memory during a call, or null.
using Room = std::unique_ptr<char[]>;

Room RoomFor(const exports::Parameter& parameter, Input& input) {
  const auto length = input.Byte();
  if (length == 255) return nullptr;
  const bool ends = parameter.kind == Kind::kTerminated;
  const auto size = ends ? length % 40U + 1U : parameter.size;
  Room room = std::make_unique<char[]>(size);
  std::fill_n(room.get(), size, ends ? '\0' : ' ');
  const auto text = input.Text(ends ? size - 1 : size);
  text.copy(room.get(), text.size());
  return room;
}

double AmountOf(Input& input) {
  const auto kind = input.Byte();
  if (kind < 200) return kNumbers[kind % kNumbers.size()];
  return kind < 240 ? input.Int32() / 1000.0 : input.Double();
}

std::int32_t IntegerOf(Input& input) {
  const auto kind = input.Byte();
  return kind < 250 ? kind % 32 : input.Int32();
}

}  // namespace

Called CallAny(Input& input) {
  const auto& row = exports::Exports()[input.Below(kTried)];
  std::array<Room, exports::kMostParameters> rooms;
  exports::Values values{};
  for (std::size_t i = 0; i < row.count; ++i) {
    if (row.places[i].kind == Kind::kAmount) {
      values[i].number = AmountOf(input);
    } else if (row.places[i].kind == Kind::kInteger) {
      values[i].integer = IntegerOf(input);
    } else {
      rooms[i] = RoomFor(row.places[i], input);
      values[i].pointer = rooms[i].get();
    }
  }
  return {row.call(values), row.name == "EP_Kill", row.name == "EP_AjusteRedondeo"};
}

std::int32_t CallPlain(std::size_t which) {
  static constexpr std::array kPlain{&EP_Init, &EP_Kill, &EP_Cancelar, &EP_ReporteX};
  return kPlain[which % kPlain.size()]();
}

void CallWithin(std::size_t which) {
  const auto result = CallPlain(which);
  fuzz::Require(result == (which % 4 < 2 ? 0 : 1), "a call within a call is turned away");
}

}  // namespace kestra::fuzzing
