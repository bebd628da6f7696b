#include <cstdint>
#include <ctime>
#include <string>

#include "looks.hpp"
#include "printer.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

// A printer that knows a repeated frame answers it without doing it again. What shows that must be a command whose
// doing can be seen, that prints nothing and spends nothing, and between whose two sendings something else moves by
// itself: the clock, set to its own time. Done again, it is back where it was.

constexpr std::int32_t kBetween = 2300;  // milliseconds
constexpr double kMoved = 2;             // seconds that a clock has gone on by then

std::optional<std::time_t> ReadClock(Probe& probe) {
  const auto reply = probe.Ask(questions::kClock);
  return reply.answered ? ReadMoment(DataField(reply, 1), DataField(reply, 2)) : std::nullopt;
}

struct Tried {
  std::optional<bool> knows;
  std::string_view words;
};

constexpr Tried kNotTold = {std::nullopt,
                            "no se puede saber: la impresora no contesta lo que hace falta"};
constexpr Tried kNotLet = {
    std::nullopt,
    "no se puede saber ahora: la impresora no se deja poner en hora; probar después de un Z"};
constexpr Tried kKnows = {true,
                          "las reconoce: la misma puesta en hora, repetida, no se hizo de nuevo"};
constexpr Tried kDoesNot = {
    false, "no las reconoce: la misma puesta en hora, repetida, se hizo o se juzgó de nuevo"};

Tried TryOnce(Probe& probe) {
  const auto before = ReadClock(probe);
  if (!before) return kNotTold;
  Reply first;
  const auto second = probe.AskTwice(SetClockCommand(*before), kBetween, first);
  if (!first.answered || !second.answered) return kNotTold;
  if (IsRefused(first)) return kNotLet;
  const auto after = ReadClock(probe);
  if (!after) return kNotTold;
  if (IsRefused(second)) return kDoesNot;
  if (std::difftime(*after, *before) >= kMoved) return kKnows;
  // It has gone back by what passed between the two.
  probe.Ask(SetClockCommand(*after + static_cast<std::time_t>(kMoved)));
  return kDoesNot;
}

// The second may change between the reading of the clock and its setting, and a clock does not go back: once more.
Tried Try(Probe& probe) {
  const auto tried = TryOnce(probe);
  return tried.words == kNotLet.words ? TryOnce(probe) : tried;
}

}  // namespace

std::optional<bool> LookAtRepeats(Diagnosis& diagnosis, Probe& probe, bool asked) {
  const std::string name = "tramas repetidas";
  if (!asked && !IsVirtual(probe)) {
    diagnosis.Fact(name,
                   "sin probar: --probar-repetidas lo hace, poniendo el reloj de la impresora en "
                   "su propia hora");
    return std::nullopt;
  }
  const auto tried = Try(probe);
  diagnosis.Fact(name, std::string(tried.words));
  const bool told = ReadSetting("ReconoceRepetidas") == "1";
  const bool safe = ReadSetting("ModoSeguro") == "1";
  if (told && tried.knows == false) diagnosis.Find(Trouble::kNotRepeating);
  if (!told && safe && tried.knows == true) diagnosis.Find(Trouble::kRepeatsUnused);
  return tried.knows;
}

}  // namespace kestra::tool
