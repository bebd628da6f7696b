#include "log/entries.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "commands/commands.hpp"

namespace kestra::tool {
namespace {

using impresora::Packet;

// Operations that have other frames sent before their own: extra lines, and the sheets of a transport.
struct Deferring {
  std::string_view operation;
  std::string_view commands;
};

constexpr std::array kDeferring{Deferring{"EP_ImprimirItem", "Bb"},
                                Deferring{"EP_AnularItem", "Bb"}};

// Frames that operations send without a line of their own.
struct Unannounced {
  char command;
  std::string_view first_field;
  std::string_view operation;
};

constexpr std::array kUnannounced{Unannounced{'{', "", "EP_AbrirCajonDeDinero"},
                                  Unannounced{'|', "", "EP_AbrirCajonDeDinero"},
                                  Unannounced{'*', "P", "EP_ValoresModelo"}};

// One line announces all frames of it.
constexpr std::string_view kRounding = "AjusteRedondeo";

bool Defers(std::string_view operation) {
  return std::any_of(kDeferring.begin(), kDeferring.end(),
                     [&](const Deferring& row) { return row.operation == operation; });
}

bool Sends(std::string_view operation, const Packet& packet) {
  return std::any_of(kDeferring.begin(), kDeferring.end(), [&](const Deferring& row) {
    return row.operation == operation &&
           row.commands.find(static_cast<char>(packet.command)) != std::string_view::npos;
  });
}

std::string_view FirstField(const Packet& packet) {
  return packet.fields.empty() ? std::string_view() : std::string_view(packet.fields.front());
}

std::string_view UnannouncedOperation(const Packet& packet) {
  for (const Unannounced& row : kUnannounced) {
    const bool fits = row.first_field.empty() || row.first_field == FirstField(packet);
    if (static_cast<std::uint8_t>(row.command) == packet.command && fits) return row.operation;
  }
  return {};
}

Outcome OutcomeOf(const Hearing& hearing) {
  switch (hearing.heard) {
    case Heard::kOwn:
      return Refuses(hearing.answer) ? Outcome::kRefused : Outcome::kDone;
    case Heard::kForeign:
      return Outcome::kForeign;
    case Heard::kDamaged:
      return Outcome::kDamaged;
    case Heard::kSilence:
      break;
  }
  return Outcome::kSilence;
}

}  // namespace

void EntryReader::Add(const LogLine& line) {
  switch (line.kind) {
    case LineKind::kCommand:
      return BeginOperation(line);
    case LineKind::kOutput:
      return TakeFrame(line);
    case LineKind::kAnswer:
      return TakeAnswer(line);
    case LineKind::kError:
      return TakeError(line);
    case LineKind::kDamaged:
      return TakeDamaged(line);
    case LineKind::kPending:
    case LineKind::kForgotten:
      return BeginNote(line);
    default:
      return Note(line);
  }
}

void EntryReader::Rest() {
  HandOver();
}

// One that waits for others to go first has nothing to tell yet.
void EntryReader::BeginOperation(const LogLine& line) {
  const bool waits = current_ && current_->frame.empty() && current_->errors.empty() &&
                     Defers(current_->operation);
  if (waits) {
    deferred_.push_back(current_->operation);
    current_.reset();
  } else {
    HandOver();
    // An item comes to its end before the next one begins.
    if (Defers(line.text)) deferred_.clear();
  }
  operation_ = line.text;
  announced_ = true;
  last_body_.clear();
  attempts_ = 0;
  current_ = Entry{.line = line.number,
                   .stamp = line.stamp,
                   .operation = operation_,
                   .outcome = Outcome::kNotSent};
}

std::string EntryReader::Announcer(const Packet& packet) {
  if (!deferred_.empty() && Sends(deferred_.back(), packet) && !Sends(operation_, packet)) {
    operation_ = std::exchange(deferred_, {}).back();
    return operation_;
  }
  const std::string body = packet.body.substr(1);
  const bool first = attempts_ == 0 && !operation_.empty();
  if (first || body == last_body_ || operation_ == kRounding) return operation_;
  operation_ = UnannouncedOperation(packet);
  announced_ = false;
  last_body_.clear();
  return operation_;
}

void EntryReader::TakeFrame(const LogLine& line) {
  const bool announced =
      current_ && current_->frame.empty() && current_->outcome == Outcome::kNotSent;
  if (!announced) HandOver();
  if (!current_) current_ = Entry{.line = line.number, .stamp = line.stamp};
  current_->sent = line.stamp;
  current_->frame = line.text;
  current_->packet = ReadFrame(line.text);
  current_->outcome = Outcome::kUnanswered;
  if (!current_->packet) return;
  current_->operation = Announcer(*current_->packet);
  const std::string body = current_->packet->body.substr(1);
  attempts_ = body == last_body_ ? attempts_ + 1 : 1;
  last_body_ = announced_ ? body : std::string();
  current_->attempt = attempts_;
}

void EntryReader::TakeAnswer(const LogLine& line) {
  const bool awaited = current_ && !current_->frame.empty() && !current_->hearing;
  if (!awaited) {
    HandOver();
    current_ = Entry{.line = line.number, .stamp = line.stamp, .sent = line.stamp};
  }
  current_->hearing = ReadHearing(line.text, current_->packet ? &*current_->packet : nullptr);
  current_->seconds = awaited ? SecondsBetween(current_->sent, line.stamp) : std::nullopt;
  current_->outcome = awaited ? OutcomeOf(*current_->hearing) : Outcome::kForeign;
}

void EntryReader::TakeError(const LogLine& line) {
  if (!current_) current_ = Entry{.line = line.number, .stamp = line.stamp};
  current_->errors.push_back(line.text);
  current_->outcome = Outcome::kBroken;
}

void EntryReader::TakeDamaged(const LogLine& line) {
  HandOver();
  take_(Entry{
      .line = line.number, .outcome = Outcome::kUnreadable, .notes = {{line.kind, line.text}}});
}

void EntryReader::Note(const LogLine& line) {
  if (!current_) return BeginNote(line);
  current_->notes.push_back({line.kind, line.text});
}

// What is told of an operation of before stands alone, and what is sent then is nobody's.
void EntryReader::BeginNote(const LogLine& line) {
  HandOver();
  if (line.kind == LineKind::kPending || line.kind == LineKind::kForgotten) operation_.clear();
  take_(Entry{.line = line.number, .stamp = line.stamp, .notes = {{line.kind, line.text}}});
}

void EntryReader::HandOver() {
  if (current_) take_(std::move(*current_));
  current_.reset();
}

}  // namespace kestra::tool
