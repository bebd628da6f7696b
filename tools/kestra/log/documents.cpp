#include "log/documents.hpp"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "fiscal/document.hpp"

namespace kestra::tool {
namespace {

using impresora::Packet;

constexpr std::size_t kMostKept = 2'000;

enum class Step { kNone, kOpen, kClose, kCancel };

struct StepRow {
  char command;
  std::size_t field;       // that decides, counted from 0
  std::string_view value;  // what it has to hold; empty for any
  Step step;
  std::string_view title;  // of a document that it opens, where no field names its kind
};

constexpr std::array kSteps{
    StepRow{'@', 0, "", Step::kOpen, "TIQUE"},     StepRow{'`', 0, "", Step::kOpen, ""},
    StepRow{'H', 0, "", Step::kOpen, "NO FISCAL"}, StepRow{'E', 0, "", Step::kClose, ""},
    StepRow{'e', 0, "", Step::kClose, ""},         StepRow{'J', 0, "", Step::kClose, ""},
    StepRow{'d', 2, "C", Step::kCancel, ""},       StepRow{'D', 2, "C", Step::kCancel, ""},
};

std::string_view FieldOf(const Packet& packet, std::size_t index) {
  return index < packet.fields.size() ? std::string_view(packet.fields[index]) : std::string_view();
}

const StepRow* FindStep(const Entry& entry) {
  const bool done = entry.packet && entry.outcome == Outcome::kDone;
  if (!done) return nullptr;
  for (const StepRow& row : kSteps) {
    const bool fits = row.value.empty() || FieldOf(*entry.packet, row.field) == row.value;
    if (static_cast<std::uint8_t>(row.command) == entry.packet->command && fits) return &row;
  }
  return nullptr;
}

std::string TitleOf(const StepRow& row, const Packet& packet) {
  if (!row.title.empty()) return std::string(row.title);
  const auto code = FieldOf(packet, 0);
  for (const auto& kind : impresora::kInvoiceKinds) {
    if (code == std::string_view(&kind.code, 1)) return std::string(kind.title);
  }
  return "COMPROBANTE";
}

std::string LetterOf(const Packet& packet) {
  constexpr std::size_t kLetter = 2;
  return packet.command == '`' ? std::string(FieldOf(packet, kLetter)) : std::string();
}

}  // namespace

void DocumentTracker::Add(Entry entry) {
  const StepRow* const row = FindStep(entry);
  const Step step = row == nullptr ? Step::kNone : row->step;
  if (step == Step::kOpen) {
    HandOver();
    open_ = DocumentName{++count_, TitleOf(*row, *entry.packet), LetterOf(*entry.packet), {}};
  }
  if (!open_) return take_(std::move(entry));
  const auto& answer = entry.hearing ? entry.hearing->answer : impresora::Answer{};
  if (step == Step::kClose && entry.packet->command != 'J' && !answer.fields.empty())
    open_->number = answer.fields.front();
  open_->cancelled = step == Step::kCancel;
  kept_.push_back(std::move(entry));
  const bool ended = step == Step::kClose || step == Step::kCancel;
  if (ended || kept_.size() >= kMostKept) HandOver();
  if (ended) open_.reset();
}

void DocumentTracker::Rest() {
  HandOver();
}

void DocumentTracker::HandOver() {
  for (Entry& entry : kept_) {
    entry.document = *open_;
    take_(std::move(entry));
  }
  kept_.clear();
}

}  // namespace kestra::tool
