#include "relay/witness.hpp"

#include <algorithm>
#include <utility>

#include "log/answer.hpp"
#include "wire/control_bytes.hpp"

namespace kestra::tool {
namespace {

using impresora::Event;
using impresora::EventKind;
using impresora::Exchange;
using impresora::ExchangeKind;
using impresora::Micros;

constexpr std::size_t kMostHeard = 65'536;  // of a printer that sends without being asked

// The word for what is no answer, for the line's reader.
void Judge(Exchange& exchange, const Hearing& hearing) {
  if (exchange.kind == ExchangeKind::kDamaged) return;
  switch (hearing.heard) {
    case Heard::kOwn:
      exchange.answer = hearing.answer;
      return;
    case Heard::kForeign:
      exchange.faults.emplace_back("contestó a otra trama");
      break;
    case Heard::kDamaged: {
      const bool refused =
          exchange.raw_answer.find_first_not_of(impresora::kNak) == std::string::npos;
      exchange.faults.emplace_back(refused ? "la impresora la recibió dañada" : "respuesta dañada");
      break;
    }
    case Heard::kSilence:
      exchange.faults.emplace_back("sin respuesta");
  }
  exchange.kind = ExchangeKind::kLost;
}

}  // namespace

void Witness::FromTill(std::string_view bytes, Micros now) {
  for (const char byte : bytes) {
    const auto event = decoder_.Push(byte);
    if (!event) continue;
    if (event->kind != EventKind::kAck) {
      Begin(*event, now);
    } else if (HasItsAnswer()) {
      Finish();
    }
  }
}

void Witness::FromPrinter(std::string_view bytes, Micros now) {
  if (!current_) return;
  for (const char byte : bytes) {
    if (byte == impresora::kDc2) {
      ++current_->busy_bytes;
    } else if (current_->raw_answer.size() < kMostHeard) {
      current_->raw_answer += byte;
    }
  }
  current_->answered_at = now;
}

void Witness::Begin(const Event& event, Micros now) {
  Finish();
  current_ = Exchange{.moment = clock_.LocalSeconds(),
                      .packet = event.packet,
                      .number = ++count_,
                      .received_at = now,
                      .answered_at = now,
                      .raw_command = event.raw};
  if (event.kind == EventKind::kDamagedFrame) current_->kind = ExchangeKind::kDamaged;
}

bool Witness::HasItsAnswer() const {
  return current_ && current_->kind == ExchangeKind::kExecuted &&
         ReadHearing(current_->raw_answer, &current_->packet).heard == Heard::kOwn;
}

void Witness::Finish() {
  if (!current_) return;
  Exchange exchange = std::move(*current_);
  current_.reset();
  Judge(exchange, ReadHearing(exchange.raw_answer, &exchange.packet));
  take_(exchange);
}

}  // namespace kestra::tool
