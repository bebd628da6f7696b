#include "protocol/strict_answer.hpp"

#include <algorithm>
#include <cstddef>

#include "fields/text_field.hpp"
#include "protocol/packet.hpp"

namespace kestra {
namespace {

constexpr char kNak = '\x15';
constexpr std::size_t kHeaderLength = 2;
constexpr std::size_t kWordDigits = 4;
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsText(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 0x20 && c != kEmptyField;
}

bool IsLegalField(std::string_view field) {
  return field == std::string_view(&kEmptyField, 1) ||
         std::all_of(field.begin(), field.end(), IsText);
}

bool IsWord(std::string_view field) {
  return field.size() == kWordDigits &&
         field.find_first_not_of(kHexDigits) == std::string_view::npos;
}

// The field at the front of `rest`, which begins with its separator. Cuts it off.
std::string_view TakeField(std::string_view& rest) {
  rest.remove_prefix(1);
  const auto field = rest.substr(0, rest.find(kFs));
  rest.remove_prefix(field.size());
  return field;
}

// `body` is what stands behind sequence number and command byte.
bool HasLegalFields(std::string_view body) {
  std::size_t count = 0;
  while (!body.empty()) {
    if (body.front() != kFs) return false;
    const auto field = TakeField(body);
    const bool legal = count < 2 ? IsWord(field) : IsLegalField(field);
    if (!legal || ++count > kAnswerFields) return false;
  }
  return count >= 2;
}

// From the start byte through the checksum.
bool IsLegal(std::string_view frame) {
  const auto summed = frame.substr(0, frame.size() - kChecksumDigits);
  if (ChecksumOf(summed) != frame.substr(summed.size())) return false;
  const auto body = summed.substr(1, summed.size() - 2);
  return body.size() > kHeaderLength && IsText(body[0]) && IsText(body[1]) &&
         HasLegalFields(body.substr(kHeaderLength));
}

// Notes a byte that stands outside of any frame.
void NoteLoose(char byte, Heard& heard) {
  if (byte == kDc2) {
    heard.busy = true;
  } else if (byte == kNak) {
    heard.refused = true;
  } else {
    heard.damaged = true;
  }
}

// The frame that begins at `start`: its length; 0 when it is not whole yet. A start byte before its end
// begins another one, and this one ends there.
struct Span {
  std::size_t length = 0;
  bool cut_off = false;
};

Span SpanOf(std::string_view rest) {
  const auto next = rest.find(kStx, 1);
  const auto length = AnswerLength(rest);
  if (next != std::string_view::npos && (length == 0 || next < length)) return {next, true};
  return {length, false};
}

}  // namespace

Heard Listen(std::string_view received, std::string_view header) {
  Heard heard;
  while (!received.empty()) {
    if (received.front() != kStx) {
      NoteLoose(received.front(), heard);
      received.remove_prefix(1);
      continue;
    }
    const auto span = SpanOf(received);
    if (span.length == 0) break;
    const auto frame = received.substr(0, span.length);
    received.remove_prefix(span.length);
    if (span.cut_off || !IsLegal(frame)) {
      heard.damaged = true;
    } else if (frame.substr(1, kHeaderLength) != header) {
      heard.foreign = true;
    } else {
      heard.answer = frame;
      break;
    }
  }
  return heard;
}

Fields FieldsOf(std::string_view answer) {
  Fields fields;
  auto body = answer.substr(1 + kHeaderLength);
  body = body.substr(0, body.find(kEtx));
  for (auto& field : fields) {
    if (body.empty()) break;
    field = TakeField(body);
  }
  return fields;
}

std::string AnswerOf(std::string_view header, const Fields& fields) {
  std::string answer(1, kStx);
  answer.append(header);
  for (const auto& field : fields) answer.append(1, kFs).append(field);
  answer += kEtx;
  return answer + ChecksumOf(answer);
}

}  // namespace kestra
