#include <cstdio>
#include <string>
#include <vector>

#include "campaigns/torture/under_way.hpp"
#include "hostile/posix/call.hpp"
#include "hostile/posix/printer.hpp"
#include "hostile/posix/shop.hpp"
#include "hostile/shared/values.hpp"
#include "kestra/kestra.h"
#include "programs/stories.hpp"

namespace kestra::hostile {
namespace {

// What a sane call gives in this shop, where a port is held.
std::int32_t SaneResult(const Export& row, bool printer) {
  const bool works = printer || row.nature != exports::Nature::kOperation;
  return works ? row.done : row.failed;
}

// Without a right argument it sends the previous command as that was sent, frame and all: a frame within
// a frame, the front of which is none.
bool MayResend(const Export& row) {
  return row.name == "EP_EspecificarPercepcionGlobal";
}

class Assault {
 public:
  // Without a printer it is there all the same, at the end of no line.
  Assault(const Printer& printer, bool connected, bool traps)
      : printer_(printer), connected_(connected), traps_(traps) {}

  void OnEveryExport();
  [[nodiscard]] int Calls() const { return calls_; }

 private:
  void On(const Export& row);
  void At(const Export& row, std::size_t position);
  void AllAtOnce(const Export& row);
  // What is expected of a call.
  struct Terms {
    bool sound = false;
    bool ends_frames = false;
  };
  void Try(const Export& row, const std::string& what, const Values& values, const Terms& terms);
  Values SaneValues(const std::vector<Argument>& parameters);
  void ExpectAWorkingLibrary(const std::string& what);

  const Printer& printer_;
  bool connected_;
  bool traps_;
  int calls_ = 0;
  std::vector<LonePage> pages_{exports::kMostParameters};
  Places places_{reinterpret_cast<const void*>(&EP_Init)};
};

Values Assault::SaneValues(const std::vector<Argument>& parameters) {
  Values values;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    values[i] = Sane(parameters[i], pages_[i].RoomAt(0, parameters[i].size));
  }
  return values;
}

void Assault::ExpectAWorkingLibrary(const std::string& what) {
  TakeTheOperatorsPlace();
  if (Find("EP_Chequear_Error").call({}) != 0) Fail(what + ": leaves an error behind");
  if (Find("DllCanUnloadNow").call({}) == 0) Find("EP_Init").call({});
  const std::int32_t result = Find("EP_CortaPapel").call({});
  Expect(result == (connected_ ? 0 : 1), what + ": the next call fails");
}

void Assault::Try(const Export& row, const std::string& what, const Values& values,
                  const Terms& terms) {
  const torture::UnderWay mark(std::string(row.name), what);
  const std::string where = std::string(row.name).append(", ").append(what);
  const int strays = printer_.Strays();
  const std::int32_t result = traps_ ? CallWithTraps(row, values) : row.call(values);
  ++calls_;
  const std::int32_t sane = SaneResult(row, connected_);
  const bool tells = row.nature == exports::Nature::kReport;  // and who knows what
  const bool is_one = sane < 0 ? result == sane : result == 0 || result == 1;
  Expect(tells ? result >= 0 : is_one, where + ": gave no result");
  if (terms.sound && !tells) Expect(result == sane, where + ": gave " + std::to_string(result));
  Expect(places_.Untouched(), where + ": wrote outside of its result");
  ExpectAWorkingLibrary(where);
  Expect(terms.ends_frames || MayResend(row) || printer_.Strays() == strays,
         where + ": sent what is no frame");
}

void Assault::At(const Export& row, std::size_t position) {
  const auto parameters = exports::Arguments(row, row.sane);
  for (const Hostile& hostile : HostileTo(parameters[position])) {
    Values values = SaneValues(parameters);
    values[position] = hostile.make(parameters[position], places_);
    Try(row, "argument " + std::to_string(position + 1) + ": " + hostile.name, values,
        {hostile.is_sound, hostile.ends_frames});
  }
}

// One kind of everything in all places.
void Assault::AllAtOnce(const Export& row) {
  const auto parameters = exports::Arguments(row, row.sane);
  constexpr std::size_t most_values = 20;
  for (std::size_t turn = 0; turn < most_values && !parameters.empty(); ++turn) {
    Values values;
    Terms terms;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      const auto& list = HostileTo(parameters[i]);
      const Hostile& hostile = list[turn % list.size()];
      values[i] = hostile.make(parameters[i], places_);
      terms.ends_frames = terms.ends_frames || hostile.ends_frames;
    }
    Try(row, "all arguments, turn " + std::to_string(turn), values, terms);
  }
}

void Assault::On(const Export& row) {
  const auto parameters = exports::Arguments(row, row.sane);
  Try(row, "sane", SaneValues(parameters), {.sound = true});
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    // What the call wrote, it wrote into the room that it was given.
    if (parameters[i].kind == exports::Kind::kResult)
      Expect(pages_[i].RestUntouched(), std::string(row.name));
    At(row, i);
  }
  AllAtOnce(row);
}

void Assault::OnEveryExport() {
  Expect(Find("EP_Init").call({}) == 1, "the start fails");
  for (const Export& row : exports::Exports()) On(row);
  Find("EP_Kill").call({});
}

void Play(bool with_printer, bool traps, const std::string& settings = {}) {
  Printer printer;
  const Shop shop(with_printer ? printer.Device() : "NADA", "AjusteRedondeo=1\r\n" + settings);
  Assault assault(printer, with_printer, traps);
  assault.OnEveryExport();
  Expect((printer.Frames() > 0) == with_printer, "the wrong shop");
  std::printf("%d hostile calls, %d frames\n", assault.Calls(), printer.Frames());
}

}  // namespace

STORY(arguments_with_a_printer) {
  Play(true, false);
}

STORY(arguments_without_a_printer) {
  Play(false, false);
}

STORY(arguments_with_traps) {
  Play(false, true);
  Play(true, true);
}

// The library looks for the texts' ends, and finds what a host of these modes may leave there.
STORY(arguments_that_end_with_a_zero) {
  Play(true, false, "TextosTerminados=1\r\n");
}

STORY(arguments_in_utf8) {
  Play(true, false, "TextosTerminados=2\r\nTransliterar=1\r\n");
}

}  // namespace kestra::hostile
