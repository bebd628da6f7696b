#include "protocol/safe_line.hpp"

#include <algorithm>
#include <exception>

#include "base/failure.hpp"
#include "protocol/packet.hpp"
#include "protocol/strict_answer.hpp"
#include "state/library.hpp"
#include "state/log.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

// Seconds.
constexpr double kLongestWait = 5.0;
constexpr double kQuietAfterDamage = 0.5;
constexpr double kQuietLine = 0.3;
constexpr double kLongestRest = 5.0;
constexpr double kLongestBusy = 900.0;  // no printout takes that long

constexpr std::int32_t kBusyLookMs = 200;

Cause CauseOfNothing(const Heard& heard) {
  if (heard.refused) return Cause::kNotUnderstood;
  if (heard.damaged) return Cause::kDamaged;
  return heard.foreign ? Cause::kForeign : Cause::kSilence;
}

}  // namespace

NumberedFrame NumberFrame(Library& library, std::string_view command) {
  auto& state = library.state;
  const auto seconds = static_cast<int>(library.platform.GetClock().TimeOfDay()) % 60;
  const auto sequence = NextSequence({state.NroSecuencia, state.NroSecuenciaAnterior}, seconds);
  state.NroSecuencia = sequence.current;
  state.NroSecuenciaAnterior = sequence.previous;
  return {BuildPacket(sequence.current, command),
          std::string(1, static_cast<char>(sequence.current)).append(command, 0, 1)};
}

void OpenPort(Library& library) {
  if (library.state.Puerto == nullptr) throw NoObject();
  auto& port = *library.state.Puerto;
  if (port.PortOpen()) port.PortOpen(false);
  const double wait = library.certainty.settings.EsperaPuerto;
  if (wait <= 0) return port.PortOpen(true);
  auto& clock = library.platform.GetClock();
  for (const double until = clock.Elapsed() + wait;;) {
    try {
      return port.PortOpen(true);
    } catch (const Failure& failure) {
      if (CauseOf(failure) != Cause::kPortBusy || clock.Elapsed() >= until) throw;
    }
    clock.Sleep(kBusyLookMs);
  }
}

SerialPort& SafeLine::Port() {
  return *library_.state.Puerto;
}

double SafeLine::Now() {
  return library_.platform.GetClock().Elapsed();
}

template <typename Action>
bool SafeLine::OnPort(Action action) {
  try {
    action();
    return true;
  } catch (const Failure& failure) {
    const auto cause = CauseOf(failure);
    // A device that stays away is looked for many times.
    if (cause != why_) LogFailure(library_, failure, "Enviar", "seguro");
    why_ = cause;
    if (open_) lost_ = true;
    Close();
    return false;
  }
}

bool SafeLine::Open() {
  if (open_) return true;
  open_ = OnPort([&] { OpenPort(library_); });
  if (open_) why_ = Cause::kNone;
  return open_;
}

void SafeLine::Close() noexcept {
  open_ = false;
  try {
    const auto& port = library_.state.Puerto;
    if (port == nullptr || !port->PortOpen()) return;
    unanswered_ ? port->Abandon() : port->PortOpen(false);
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): one is told already
  }
}

bool SafeLine::Write(const NumberedFrame& frame) {
  EscribirLog(library_, " - Output : " + frame.packet);
  const auto bytes = frame.packet + ChecksumOf(frame.packet);
  return OnPort([&] {
    Port().DiscardInput();
    NoteSending(library_);
    unanswered_ = true;
    Port().Output(bytes);
  });
}

// True when there was something.
bool SafeLine::TakeArrived(std::string& received) {
  if (Port().InBufferCount() == 0) return false;
  const auto fresh = Port().Input();
  if (fresh.find(kDc2) != std::string::npos) last_busy_ = Now();
  received += fresh;
  return true;
}

Reception SafeLine::Wait(const NumberedFrame& frame) {
  Heard heard;
  std::string received;
  const bool whole = OnPort([&] {
    double begin = Now();
    double last = begin;
    const double latest = begin + kLongestBusy;
    while (Now() < std::min(begin + kLongestWait, latest) && heard.answer.empty()) {
      if (TakeArrived(received)) {
        heard = Listen(received, frame.header);
        last = Now();
        begin = std::max(begin, last_busy_.value_or(begin));
      } else if ((heard.damaged || heard.refused) && Now() >= last + kQuietAfterDamage) {
        return;
      }
    }
  });
  const bool own = !heard.answer.empty();
  if (own) unanswered_ = false;
  if (own || !received.empty()) {
    EscribirLog(library_, own ? " - Respuesta : " + heard.answer : " - Descartado : " + received);
  }
  if (own) return {std::move(heard.answer), Cause::kNone};
  return {{}, whole ? CauseOfNothing(heard) : why_};
}

// The answer has come: that it cannot be acknowledged changes nothing.
void SafeLine::Acknowledge() noexcept {
  try {
    Port().Output(std::string_view(&kAck, 1));
  } catch (const std::exception&) {
    Close();
  }
}

bool SafeLine::Rest() {
  return OnPort([&] {
    const double begin = Now();
    std::string dropped;
    for (double last = begin; Now() < last + kQuietLine && Now() < begin + kLongestRest;) {
      if (TakeArrived(dropped)) last = Now();
    }
    Port().DiscardInput();
  });
}

}  // namespace kestra
