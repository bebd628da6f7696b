#include "hostile/posix/call.hpp"

#include <fenv.h>

#include <array>
#include <string>

#include "hostile/posix/shop.hpp"
#include "hostile/shared/values.hpp"

namespace kestra::hostile {
namespace {

constexpr int kTraps = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT;

}  // namespace

std::int32_t CallWithTraps(const Export& row, const Values& values) {
  ::feclearexcept(FE_ALL_EXCEPT);
  ::fesetround(FE_UPWARD);
  ::feenableexcept(kTraps);
  const std::int32_t result = row.call(values);
  const int traps = ::fegetexcept();
  ::fedisableexcept(FE_ALL_EXCEPT);
  const int rounding = ::fegetround();
  const int flags = ::fetestexcept(FE_ALL_EXCEPT);
  ::fesetround(FE_TONEAREST);
  Expect(traps == kTraps, std::string(row.name) + ": the host's traps are gone");
  Expect(rounding == FE_UPWARD, std::string(row.name) + ": the host's rounding is gone");
  Expect(flags == 0, std::string(row.name) + ": leaves flags behind");
  return result;
}

std::int32_t SaneCall(const Export& row) {
  constexpr std::size_t longest = 200;
  std::array<std::array<char, longest>, exports::kMostParameters> rooms{};
  Values values;
  std::size_t i = 0;
  for (const exports::Argument& argument : exports::Arguments(row, row.sane)) {
    values[i] = Sane(argument, rooms[i].data());
    ++i;
  }
  return row.call(values);
}

}  // namespace kestra::hostile
