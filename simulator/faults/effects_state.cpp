// What the printer is, or says it is.
#include "faults/effects.hpp"

namespace impresora {
namespace {

std::uint16_t Masked(unsigned bits, unsigned without, unsigned with) {
  return static_cast<std::uint16_t>((bits & ~without) | with);
}

// The words of an answer that is already made follow what changes in the printer, and nothing else.
class Follow {
 public:
  explicit Follow(Scene& scene)
      : scene_(scene), printer_(scene.printer.PrinterWord()), fiscal_(scene.printer.FiscalWord()) {}

  void Changed() const {
    if (scene_.answer == nullptr) return;
    const Printer& printer = scene_.printer;
    const Machine& m = printer.GetMachine();
    Answer& answer = *scene_.answer;
    answer.printer = WordShown(
        Word::kPrinter, With(answer.printer, printer_, printer.PrinterWord()), m.forced_printer);
    answer.fiscal = WordShown(Word::kFiscal, With(answer.fiscal, fiscal_, printer.FiscalWord()),
                              m.forced_fiscal);
  }

 private:
  static std::uint16_t With(unsigned word, unsigned before, unsigned after) {
    const unsigned changed = before ^ after;
    return Masked(word, changed, after & changed);
  }

  Scene& scene_;
  unsigned printer_;
  unsigned fiscal_;
};

enum class Show { kOn, kOff, kAsItIs };

void SetShown(ForcedBits& forced, unsigned bits, Show show) {
  forced.on = Masked(forced.on, bits, show == Show::kOn ? bits : 0);
  forced.off = Masked(forced.off, bits, show == Show::kOff ? bits : 0);
}

bool ShowFromNow(const Action& action, Scene& scene, Show show) {
  const Follow follow(scene);
  Machine& m = scene.printer.GetMachine();
  ForcedBits& forced = action.word == Word::kPrinter ? m.forced_printer : m.forced_fiscal;
  const ForcedBits before = forced;
  SetShown(forced, static_cast<unsigned>(action.number), show);
  follow.Changed();
  return forced.on != before.on || forced.off != before.off;
}

// The printer does not know of it.
bool ShowOnce(const Action& action, Scene& scene, Show show) {
  const bool printer = action.word == Word::kPrinter;
  const auto bits = static_cast<unsigned>(action.number);
  SetShown(printer ? scene.draft.shown_printer : scene.draft.shown_fiscal, bits, show);
  const unsigned word = printer ? scene.answer->printer : scene.answer->fiscal;
  return (word & bits) != (show == Show::kOn ? bits : 0);
}

}  // namespace

bool SetControlValue(const Action& action, Scene& scene) {
  const Follow follow(scene);
  const Machine& m = scene.printer.GetMachine();
  const std::int64_t before = action.control->get(m);
  scene.printer.Set(*action.control, action.number);
  follow.Changed();
  return action.control->get(m) != before;
}

bool LightBits(const Action& action, Scene& scene) {
  return action.flag ? ShowFromNow(action, scene, Show::kOn) : ShowOnce(action, scene, Show::kOn);
}

bool DarkenBits(const Action& action, Scene& scene) {
  return action.flag ? ShowFromNow(action, scene, Show::kOff) : ShowOnce(action, scene, Show::kOff);
}

bool FreeBits(const Action& action, Scene& scene) {
  return ShowFromNow(action, scene, Show::kAsItIs);
}

}  // namespace impresora
