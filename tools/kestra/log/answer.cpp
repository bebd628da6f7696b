#include "log/answer.hpp"

#include <cstddef>
#include <utility>
#include <vector>

#include "wire/control_bytes.hpp"

namespace kestra::tool {
namespace {

using impresora::kEtx;
using impresora::kFs;
using impresora::kStx;

constexpr std::size_t kChecksumDigits = 4;
constexpr std::size_t kHead = 3;  // start, sequence, command
constexpr std::size_t kStatusDigits = 4;

// From a start byte to the four characters behind the end byte, as much of them as there is.
struct Piece {
  std::string_view body;
  std::string_view checksum;
};

std::vector<Piece> Pieces(std::string_view bytes) {
  std::vector<Piece> pieces;
  for (auto start = bytes.find(kStx); start != std::string_view::npos;
       start = bytes.find(kStx, start + 1)) {
    const auto end = bytes.find(kEtx, start);
    if (end == std::string_view::npos || end - start < kHead) continue;
    pieces.push_back(
        {bytes.substr(start, end + 1 - start), bytes.substr(end + 1, kChecksumDigits)});
  }
  return pieces;
}

std::optional<std::uint16_t> StatusWord(std::string_view text) {
  if (text.size() != kStatusDigits) return std::nullopt;
  unsigned word = 0;
  for (const char c : text) {
    constexpr std::string_view kDigits = "0123456789ABCDEFabcdef";
    auto digit = kDigits.find(c);
    if (digit == std::string_view::npos) return std::nullopt;
    if (digit > 15) digit -= 6;
    word = word * 16 + static_cast<unsigned>(digit);
  }
  return static_cast<std::uint16_t>(word);
}

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> fields;
  while (!text.empty() && text.front() == kFs) {
    text.remove_prefix(1);
    fields.emplace_back(text.substr(0, text.find(kFs)));
    text.remove_prefix(fields.back().size());
  }
  return fields;
}

std::optional<impresora::Answer> ReadAnswer(const Piece& piece) {
  auto fields = Split(piece.body.substr(kHead, piece.body.size() - kHead - 1));
  if (fields.size() < 2) return std::nullopt;
  const auto printer = StatusWord(fields[0]);
  const auto fiscal = StatusWord(fields[1]);
  if (!printer || !fiscal) return std::nullopt;
  fields.erase(fields.begin(), fields.begin() + 2);
  return impresora::Answer{.printer = *printer, .fiscal = *fiscal, .fields = std::move(fields)};
}

bool IsFor(const Piece& piece, const impresora::Packet* frame) {
  return frame != nullptr && piece.body[1] == static_cast<char>(frame->sequence) &&
         piece.body[2] == static_cast<char>(frame->command);
}

unsigned CountBusy(std::string_view bytes) {
  unsigned count = 0;
  for (const char c : bytes) count += c == impresora::kDc2 ? 1U : 0U;
  return count;
}

}  // namespace

std::optional<impresora::Packet> ReadFrame(std::string_view bytes) {
  impresora::PacketDecoder decoder;
  std::string whole(bytes);
  whole += impresora::Hex4(impresora::Checksum(bytes));
  std::optional<impresora::Event> found;
  for (const char c : whole) {
    if (auto event = decoder.Push(c)) found = std::move(event);
  }
  if (!found || found->kind != impresora::EventKind::kPacket) return std::nullopt;
  return std::move(found->packet);
}

Hearing ReadHearing(std::string_view bytes, const impresora::Packet* frame) {
  Hearing hearing{.busy = CountBusy(bytes)};
  const auto pieces = Pieces(bytes);
  for (const Piece& piece : pieces) {
    auto answer = ReadAnswer(piece);
    if (!IsFor(piece, frame)) {
      ++hearing.foreign;
    } else if (answer && hearing.heard != Heard::kOwn) {
      hearing.heard = Heard::kOwn;
      hearing.answer = std::move(*answer);
      hearing.checksum_wrong = piece.checksum != impresora::Hex4(impresora::Checksum(piece.body));
    }
  }
  if (hearing.heard == Heard::kOwn ||
      bytes.find_first_not_of(impresora::kDc2) == std::string_view::npos)
    return hearing;
  const bool foreign = hearing.foreign > 0 && hearing.foreign == pieces.size();
  hearing.heard = foreign ? Heard::kForeign : Heard::kDamaged;
  return hearing;
}

bool Refuses(const impresora::Answer& answer) {
  return (answer.printer & kFailingPrinter) != 0 || (answer.fiscal & kFailingFiscal) != 0;
}

}  // namespace kestra::tool
