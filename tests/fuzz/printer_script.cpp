#include "fuzz/printer_script.hpp"

#include <memory>

#include "protocol/packet.hpp"

namespace kestra::fuzzing {
namespace {

enum class Act { kAnswer, kOtherNumber, kOtherCommand, kBytes, kBusy, kPause, kPieces, kEnd };

struct Step {
  Act act;
  std::string text{};
  std::int64_t number = 0;
};

constexpr std::size_t kMostSteps = 16;
constexpr std::int64_t kPause = 25'000;
constexpr std::int64_t kGap = 10'000;

constexpr std::array<std::string_view, 8> kPrinterWords{"0000", "0080", "4000", "C080",
                                                        "0004", "8008", "FFFF", "00g0"};
constexpr std::array<std::string_view, 8> kFiscalWords{"0000", "0600", "8010", "0100",
                                                       "9600", "3600", "FFFF", ""};

std::string ReadFields(fuzz::Input& input) {
  std::string fields(input.Pick(kPrinterWords));
  fields.append(1, kFs).append(input.Pick(kFiscalWords));
  const auto count = input.Below(12);
  for (std::size_t i = 0; i < count; ++i) fields.append(1, kFs).append(input.Text(10));
  return fields;
}

Step ReadStep(fuzz::Input& input) {
  Step step{static_cast<Act>(input.Below(8))};
  switch (step.act) {
    case Act::kOtherNumber:
    case Act::kOtherCommand:
      step.number = 1 + static_cast<std::int64_t>(input.Below(40));
      [[fallthrough]];
    case Act::kAnswer:
      step.text = ReadFields(input);
      break;
    case Act::kBytes:
      step.text = input.Text(24);
      break;
    case Act::kBusy:
      step.text.assign(1 + input.Below(3), kDc2);
      break;
    case Act::kPause:
    case Act::kPieces:
      step.number = input.Byte();
      break;
    case Act::kEnd:
      step.number = static_cast<std::int64_t>(input.Below(16));  // 0: with the plug out
      break;
  }
  return step;
}

std::string BytesOf(const Step& step, std::string_view frame) {
  std::string about(frame.size() < 3 ? std::string_view("\x02 ?") : frame.substr(0, 3));
  if (step.act == Act::kBytes || step.act == Act::kBusy) return step.text;
  const auto place = step.act == Act::kOtherNumber ? 1U : 2U;
  about[place] = static_cast<char>(about[place] + step.number);
  return AnswerTo(about, step.text);
}

std::vector<Burst> Play(const std::vector<Step>& steps, std::string_view frame) {
  std::vector<Burst> bursts;
  std::int64_t delay = 0;
  std::size_t piece = std::string::npos;
  for (const auto& step : steps) {
    if (step.act == Act::kPause) {
      delay += step.number * kPause;
    } else if (step.act == Act::kPieces) {
      piece = 1 + static_cast<std::size_t>(step.number % 8);
    } else if (step.act == Act::kEnd) {
      if (step.number == 0) bursts.push_back({delay, {}, true});
    } else {
      const auto bytes = BytesOf(step, frame);
      for (std::size_t at = 0; at < bytes.size();) {
        bursts.push_back({delay, bytes.substr(at, piece)});
        at += bursts.back().bytes.size();
        delay += piece == std::string::npos ? 0 : kGap;
      }
      piece = std::string::npos;
    }
  }
  return bursts;
}

}  // namespace

std::string Checksum(std::string_view bytes) {
  unsigned sum = 0;
  for (const char c : bytes) sum += static_cast<unsigned char>(c);
  std::string digits;
  for (int shift = 12; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(sum >> shift) & 0xFU];
  return digits;
}

std::string AnswerTo(std::string_view frame, std::string_view fields) {
  std::string answer(frame.substr(0, 3));
  answer.append(1, kFs).append(fields).append(1, kEtx);
  return answer + Checksum(answer);
}

void RequireWellFormed(std::string_view frame) {
  fuzz::Require(frame.size() >= 7 && frame[0] == kStx, "a frame begins with its start");
  fuzz::Require(frame[1] >= 32 && frame[1] <= 70, "a number that the printer takes");
  const auto body = frame.substr(0, frame.size() - kChecksumDigits);
  fuzz::Require(body.back() == kEtx, "its end");
  fuzz::Require(frame.substr(body.size()) == Checksum(body), "and its sum");
}

Reply ReadReply(fuzz::Input& input) {
  auto steps = std::make_shared<std::vector<Step>>();
  do {
    steps->push_back(ReadStep(input));
  } while (steps->back().act != Act::kEnd && steps->size() < kMostSteps && !input.Empty());
  return [steps](std::string_view frame) { return Play(*steps, frame); };
}

}  // namespace kestra::fuzzing
