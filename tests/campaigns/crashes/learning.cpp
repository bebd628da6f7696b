#include "campaigns/crashes/telling.hpp"

// How the next till comes to know what became of the call, and whether that is true.

namespace kestra::crashes {

// The new program's first lines.
void Telling::Learn() {
  std::string name, number;
  const auto pending = shop_.Pending(name);
  if (pending == 0) {
    deeds_ = shop_.DeedsFrom(mark_);
    return died_ ? LearnFromJournal() : LearnFromCall();
  }
  if (pending == 1 && !disaster_.faults.empty()) return Repeat();
  // Operators have always read some names with a letter more.
  const auto half = report_.operation.substr(report_.operation.size() / 2);
  if (pending != 1 || (!IsRounding() && name.find(half) == std::string::npos)) {
    return Wrong("another call is pending: " + name);
  }
  if (!disaster_.asks) return Repeat();
  const auto outcome = shop_.Resolve(number);
  deeds_ = shop_.DeedsFrom(mark_);
  if (outcome == KESTRA_DESENLACE_HECHO) {
    if (IsRounding() ? deeds_.empty() : !IsWhole()) return Wrong("settled as done, and is not");
    const auto& buffers = Good().buffers;
    if (!buffers.empty() && number != buffers.front()) return Wrong("another number: " + number);
    return End(Ending::kDone);
  }
  if (outcome == KESTRA_DESENLACE_DESCONOCIDO && MayStayUnknown()) return End(Ending::kUnknown);
  if (outcome != KESTRA_DESENLACE_NO_HECHO) return Wrong("a book shows it, and it stays unknown");
  if (IsWhole()) return Wrong("settled as not done, and is");
  End(Ending::kNotDone);
}

// The till makes the call again, as if nothing had been. What stays unknown is told to it once.
void Telling::Repeat() {
  if (!MayStayUnknown()) return End(Ending::kRepeated);
  CallWell();
  deeds_ = shop_.DeedsFrom(mark_);
  told_.outcome == KESTRA_DESENLACE_DESCONOCIDO ? End(Ending::kUnknown)
                                                : Wrong("told something else than unknown");
}

// Nothing is pending although the host died: the till looks at what the journal has of the call.
void Telling::LearnFromJournal() {
  const auto last = shop_.LastRecord();
  if (last.starts_with("intento\t")) {
    if (last.find("\tlibro=si\t") != std::string::npos) return Wrong("in flight, and not pending");
    return End(Ending::kUnknown);
  }
  if (shop_.Results() > results_) return End(Ending::kUnlearnt);
  if (!deeds_.empty()) return Wrong("done, and the journal knows nothing of it");
  End(Ending::kUnsent);
}

// The call had ended, in its way.
void Telling::LearnFromCall() {
  if (told_.outcome == KESTRA_DESENLACE_DESCONOCIDO) {
    if (shop_.LastRecord().find("\tlibro=si\t") != std::string::npos) Wrong("not kept as pending");
    const bool unknown = shop_.LastRecord().find("\tdesenlace=4\t") != std::string::npos;
    return unknown ? End(Ending::kUnknown) : Wrong("the journal does not say that nobody knows");
  }
  const bool undone =
      told_.outcome == KESTRA_DESENLACE_RECHAZADO || told_.outcome == KESTRA_DESENLACE_NO_ENVIADO ||
      told_.outcome == KESTRA_DESENLACE_NO_HECHO || told_.outcome == KESTRA_DESENLACE_EN_PARTE;
  if (!undone) return Wrong("told " + std::to_string(told_.outcome));
  if (IsWhole() && !deeds_.empty()) return Wrong("told as not done, and is");
  End(Ending::kToldUndone);
}

}  // namespace kestra::crashes
