#include "protocol/exchange.hpp"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "base/ansi.hpp"
#include "protocol/answer.hpp"
#include "protocol/answer_check.hpp"
#include "protocol/frame_report.hpp"
#include "protocol/packet.hpp"
#include "protocol/safe_exchange.hpp"
#include "protocol/safe_line.hpp"
#include "state/library.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

// An attempt that has met this many answers of other frames (counted from 1) is given up.
constexpr int kTooManyForeign = 10;
// The printer's patience with silence, in seconds.
constexpr double kPatience = 5.0;

// What became of one frame.
enum class Arrival { kOwn, kStrange, kExpired };

// One call of Enviar.
class Exchange {
 public:
  Exchange(Library& library, std::string command)
      : library_(library), command_(std::move(command)), report_(library, command_) {
    library_.state.ComandoActual = command_;
  }
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;
  ~Exchange() { Close(); }

  bool Run();
  void Close() noexcept;

  // What becomes known of the command.
  FrameReport& Report() { return report_; }
  // What was being done, for the log of a failure.
  [[nodiscard]] std::string_view Line() const { return line_; }

 private:
  enum class Step { kAgain, kAccepted, kFailed };

  SerialPort& Puerto();
  void OpenPort();
  Step Attempt();
  void NumberPacket();
  void Send();
  Arrival Wait();
  void AttendToBusy();
  bool TakeArrived();
  bool Acknowledge();
  void SetDeadline();
  Step DiscardForeign();
  Step AskRetry();
  Step Judge();

  Library& library_;
  std::string command_;
  std::string header_;    // what the answer must begin with
  double deadline_ = 0;   // deadline: seconds since midnight, whole
  std::size_t seen_ = 0;  // waiting bytes already looked at for "busy"
  int foreign_ = 1;       // answers of other frames met by this frame, from 1
  std::string_view line_;
  FrameReport report_;
};

SerialPort& Exchange::Puerto() {
  return *library_.state.Puerto;
}

bool Exchange::Run() {
  OpenPort();
  auto step = Step::kAgain;
  while (step == Step::kAgain) step = Attempt();
  line_ = "cerrar";
  if (Puerto().PortOpen()) Puerto().PortOpen(false);
  return step == Step::kAccepted;
}

void Exchange::OpenPort() {
  line_ = "abrir";
  kestra::OpenPort(library_);
}

void Exchange::Close() noexcept {
  try {
    if (library_.state.Puerto != nullptr && library_.state.Puerto->PortOpen()) {
      library_.state.Puerto->PortOpen(false);
    }
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): one is told already
  }
}

Exchange::Step Exchange::Attempt() {
  line_ = "demorar";
  report_.Begin();
  if (library_.state.DelayComandos > 0)
    library_.platform.GetClock().Sleep(library_.state.DelayComandos);
  NumberPacket();
  Send();
  const auto arrival = Wait();
  report_.Judge(Puerto().Waiting());
  EscribirLog(library_, " - Respuesta : " + library_.state.RespuestaActual);
  switch (arrival) {
    case Arrival::kStrange:
      return DiscardForeign();
    case Arrival::kExpired:
      return AskRetry();
    case Arrival::kOwn:
      break;
  }
  return Judge();
}

void Exchange::NumberPacket() {
  line_ = "numerar";
  auto& state = library_.state;
  const auto seconds = static_cast<int>(library_.platform.GetClock().TimeOfDay()) % 60;
  const auto sequence = NextSequence({state.NroSecuencia, state.NroSecuenciaAnterior}, seconds);
  state.NroSecuencia = sequence.current;
  state.NroSecuenciaAnterior = sequence.previous;
  state.ComandoActual = BuildPacket(sequence.current, command_);
  header_ = std::string(1, static_cast<char>(sequence.current)).append(command_, 0, 1);
}

void Exchange::Send() {
  line_ = "mandar";
  auto& state = library_.state;
  // The frame is taken before the question: an operator may keep the box open for long.
  const auto packet = state.ComandoActual;
  if (state.MostrarComandos != 0) {
    library_.platform.GetOperator().Message("Comando a enviar:" + packet, "", kBoxOk);
  }
  EscribirLog(library_, " - Output : " + packet);
  // What came before the frame is no answer to it. It goes before the write: a quick printer's
  // answer must not be lost to it.
  state.Respuestas = packet;  // what is summed
  Puerto().DiscardInput();
  report_.Sending(header_);
  Puerto().Output(packet + ChecksumOf(state.Respuestas));
  foreign_ = 1;
  seen_ = 0;
  state.RespuestaActual.clear();
  SetDeadline();
}

void Exchange::SetDeadline() {
  // Whole seconds, halves to the even one: the wait lies between 4.5 and 5.5 seconds.
  // Kept as is: past midnight the time of day never reaches it, and the printer is waited for.
  const double due = library_.platform.GetClock().TimeOfDay() + kPatience;
  const double whole = std::floor(due);
  const double rest = due - whole;
  const bool rounds_up = rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2.0) != 0.0);
  deadline_ = rounds_up ? whole + 1 : whole;
}

Arrival Exchange::Wait() {
  line_ = "esperar";
  while (library_.platform.GetClock().TimeOfDay() < deadline_) {
    const bool arrived = TakeArrived();
    while (arrived && AnswerLength(library_.state.RespuestaActual) != 0) {
      if (Acknowledge()) return Arrival::kOwn;
      if (foreign_ == kTooManyForeign) return Arrival::kStrange;
    }
  }
  return foreign_ > 1 ? Arrival::kStrange : Arrival::kExpired;
}

// Takes what has arrived once it can matter: four bytes, or those that an end byte still lacks.
bool Exchange::TakeArrived() {
  auto& received = library_.state.RespuestaActual;
  const auto waiting = Puerto().InBufferCount();
  AttendToBusy();
  const auto end = received.find(kEtx);
  const auto needed =
      end == std::string::npos ? kChecksumDigits : kChecksumDigits - (received.size() - end - 1);
  if (waiting < needed) return false;
  const auto arrived = Puerto().Input();
  report_.Heard(arrived);
  received += arrived;
  seen_ = 0;
  return true;
}

// Each busy byte that arrives buys the printer another five seconds.
void Exchange::AttendToBusy() {
  const auto fresh = Puerto().Waiting().substr(std::min(seen_, Puerto().Waiting().size()));
  if (fresh.find(kDc2) != std::string_view::npos) SetDeadline();
  seen_ = Puerto().Waiting().size();
}

// Acknowledges the answer at the front of what was received. True: it is the answer to this frame.
// One to another frame is counted and dropped; the right one may stand behind it.
bool Exchange::Acknowledge() {
  auto& received = library_.state.RespuestaActual;
  const auto length = AnswerLength(received);
  const bool own = AnswerHeader(std::string_view(received).substr(0, length)) == header_;
  Puerto().Output(std::string_view(&kAck, 1));
  if (own) return true;
  ++foreign_;
  received.erase(0, length);
  return false;
}

Exchange::Step Exchange::DiscardForeign() {
  line_ = "descartar";
  Puerto().Output(std::string_view(&kAck, 1));
  Puerto().DiscardInput();
  return foreign_ == kTooManyForeign ? Step::kFailed : Step::kAgain;
}

Exchange::Step Exchange::AskRetry() {
  line_ = "preguntar";
  library_.state.RespuestaActual = kCommunicationError;
  const auto answer = library_.platform.GetOperator().Message(
      "Error de Comunicación con la fiscal. Reintentar?"_ansi, "Error !", kBoxYesNo);
  return answer == kAnswerYes ? Step::kAgain : Step::kFailed;
}

Exchange::Step Exchange::Judge() {
  line_ = "juzgar";
  auto& state = library_.state;
  state.RespuestaActual = TrimAnswer(state.RespuestaActual);
  state.Reintentar = kFalse;
  const bool ok = ListarRespuestas(library_);
  if (state.MostrarComandos != 0) {
    std::string text = "Comando enviado:" + state.ComandoActual;
    text.append(1, kCr).append(" /OK: ").append(ok ? "True" : "False");
    library_.platform.GetOperator().Message(text, "", kBoxOk);
  }
  // Kept as is: an accepted command goes out again when Reintentar is pressed on the report of missing
  // paper.
  if (state.Reintentar != kFalse) return Step::kAgain;
  return ok ? Step::kAccepted : Step::kFailed;
}

}  // namespace

bool Enviar(Library& library, const std::string& command) {
  if (library.certainty.settings.ModoSeguro == 1) return SendSafely(library, command);
  Exchange exchange(library, command);
  try {
    const bool accepted = exchange.Run();
    exchange.Report().End();
    return accepted;
  } catch (const std::exception& error) {
    exchange.Report().Fail(ToFailure(error));
    LogFailure(library, ToFailure(error), "Enviar", exchange.Line());
    exchange.Close();
    library.platform.GetOperator().Message("Error en el comando Enviar", "", kBoxOk);
    return false;
  }
}

}  // namespace kestra
