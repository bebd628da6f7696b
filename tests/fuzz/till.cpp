#include "fuzz/till.hpp"

#include "fuzz/input.hpp"
#include "text/text.hpp"
#include "text/utf8.hpp"
#include "wire/control_bytes.hpp"

namespace impresora::fuzzing {
namespace {

using fuzz::Require;

constexpr std::uint8_t kFirstSequence = 0x20;
constexpr std::uint8_t kLastSequence = 0x7F;

// A fault may keep the printer busy for a day: nobody waits for that here.
constexpr int kMostSteps = 400;

struct Sums {
  std::int64_t sales = 0;
  std::int64_t credits = 0;
  unsigned documents = 0;
  unsigned cancelled = 0;
  unsigned non_fiscal = 0;
};

void CheckMovement(const Movement& movement) {
  std::int64_t sum = movement.internal + movement.perceptions;
  std::int64_t before = -1;
  for (const RateTotal& rate : movement.rates) {
    Require(rate.rate > before, "rates ascend");
    Require(rate.net >= 0 && rate.iva >= 0, "no rate is below zero");
    before = rate.rate;
    sum += rate.net + rate.iva;
  }
  Require(sum == movement.total, "a movement is the sum of its parts");
  Require(movement.total <= kLargestDay, "and no larger than its report has room for");
}

void Add(Sums& sums, const Day& day) {
  CheckMovement(day.sales);
  CheckMovement(day.credits);
  sums.sales += day.sales.total;
  sums.credits += day.credits.total;
  sums.documents += day.Documents();
  sums.cancelled += day.cancelled;
  sums.non_fiscal += day.non_fiscal;
}

void CheckDocument(const Document& document) {
  const Totals totals = document.Total();
  Require(totals.total == totals.net + totals.iva + totals.internal + totals.perceptions,
          "a total is the sum of its parts");
  Require(totals.total >= 0 && totals.total <= kLargestTotal, "and one that a document may have");
  Require(document.Paid() >= 0 && document.Paid() <= kLargestTotal, "and so is what was paid");
  for (const SoldItem& item : document.sold) Require(item.quantity >= 0, "nothing sold below zero");
}

}  // namespace

void Ledger::Closed(const Receipt& receipt) {
  Require(receipt.ordinal == ordinal_ + 1, "every finished document is told, in order");
  ordinal_ = receipt.ordinal;
  if (receipt.receipt_class == ReceiptClass::kFiscal) TakeFiscal(receipt);
  if (receipt.receipt_class == ReceiptClass::kNonFiscal) ++non_fiscal_;
  if (receipt.kind == "CIERRE Z") {
    Require(receipt.number == last_closing_ + 1, "closings count up");
    last_closing_ = receipt.number;
  }
}

void Ledger::TakeFiscal(const Receipt& receipt) {
  auto& last = numbers_[{receipt.code, receipt.letter}];
  Require(receipt.number > last, "the numbers of a kind ascend");
  last = receipt.number;
  Require(receipt.total >= 0 && receipt.total <= kLargestTotal, "a total that a document may have");
  Require(receipt.iva >= 0 && receipt.iva <= receipt.total, "of which the tax is part");
  if (receipt.cancelled) {
    ++cancelled_;
    return;
  }
  ++documents_;
  int sign = 1;
  for (const DocumentKind& kind : kInvoiceKinds) {
    if (kind.code == receipt.code) sign = kind.sales_sign;
  }
  if (sign > 0) sales_ += receipt.total;
  if (sign < 0) credits_ += receipt.total;
}

void Ledger::Printed(const PaperLine& line) {
  Require(CleanUtf8(line.text) == line.text, "paper holds what can be shown");
  if (line.style == PaperLine::Style::kPlain) return;
  Require(Columns(AsText(line, 40)) <= 40, "within its columns");
}

void Ledger::Compare(const Machine& machine) const {
  Sums sums;
  for (const DailyClosing& closing : machine.closings) Add(sums, closing.day);
  Add(sums, machine.day);
  Require(machine.finished == ordinal_, "the count of documents");
  Require(machine.closings.size() == last_closing_, "the count of closings");
  Require(sums.sales == sales_ && sums.credits == credits_, "the money");
  Require(sums.documents == documents_, "the documents that moved it");
  Require(sums.cancelled == cancelled_ && sums.non_fiscal == non_fiscal_, "and the others");
  if (machine.document) CheckDocument(*machine.document);
}

void AnswerReader::Read(std::string_view bytes) {
  for (const char byte : bytes) {
    if (frame_.empty() && (byte == kDc2 || byte == kNak)) continue;
    frame_ += byte;
    Require(frame_[0] == kStx, "nothing stands between answers");
    if (frame_.size() < 5 || frame_[frame_.size() - 5] != kEtx) continue;
    CheckFrame();
    frame_.clear();
    ++answers_;
  }
}

// Fields are what is printed and asked, and never hold what steers the line.
void AnswerReader::CheckFrame() const {
  const std::string_view frame = frame_;
  const auto body = frame.substr(0, frame.size() - 4);
  Require(frame.substr(body.size()) == Hex4(Checksum(body)), "an answer carries its sum");
  Require(body.size() >= 14 && body[3] == kFs && body[8] == kFs, "and both status words");
  Require(body[13] == kFs || body[13] == kEtx, "of four digits each");
}

Till::Till(Settings settings, SessionSettings line) : session(std::move(settings), clock, line) {
  session.Attach(ledger_);
}

std::string Till::Send(std::string_view bytes) {
  session.Receive(bytes, now);
  std::string heard = session.Advance(now).bytes;
  for (int step = 0; step < kMostSteps; ++step) {
    const auto due = session.NextDue();
    if (!due) break;
    now = std::max(now, *due);
    heard += session.Advance(now).bytes;
  }
  return heard;
}

std::string Till::Command(std::string_view body) {
  sequence_ =
      sequence_ == kLastSequence ? kFirstSequence : static_cast<std::uint8_t>(sequence_ + 1);
  return Send(Frame(sequence_, body));
}

void Till::Pass(std::int64_t seconds) {
  clock.moment += seconds;
  now += std::chrono::seconds(seconds);
}

void Till::CheckBooks() {
  session.Tell();
  ledger_.Compare(session.GetPrinter().GetMachine());
}

}  // namespace impresora::fuzzing
