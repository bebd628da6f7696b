#include "campaigns/line_faults/faulty_wire.hpp"

#include <algorithm>
#include <iterator>

namespace kestra::line_faults {

FaultyWire::FaultyWire(Direction direction, std::span<const ByteFault> faults) {
  std::copy_if(faults.begin(), faults.end(), std::back_inserter(faults_),
               [direction](const ByteFault& fault) { return fault.direction == direction; });
}

void FaultyWire::Push(std::string_view bytes, Micros now) {
  last_ = std::max(last_, now);
  for (const char byte : bytes) Carry(byte);
}

void FaultyWire::Carry(char byte) {
  std::string becomes(1, byte);
  for (const ByteFault& fault : faults_) {
    if (fault.position == carried_) Suffer(fault, becomes);
  }
  for (const char c : becomes) due_.push_back({last_, c});
  ++carried_;
}

void FaultyWire::Suffer(const ByteFault& fault, std::string& becomes) {
  switch (fault.kind) {
    case FaultKind::kDrop:
      becomes.clear();
      break;
    case FaultKind::kFlip:
      for (char& c : becomes) c = static_cast<char>(static_cast<std::uint8_t>(c) ^ fault.detail);
      break;
    case FaultKind::kDouble:
      becomes += becomes;
      break;
    case FaultKind::kInsert:
      becomes.insert(becomes.begin(), static_cast<char>(fault.detail));
      break;
    case FaultKind::kDelay:
      last_ += kPastTheDeadline;
      break;
    case FaultKind::kSplit:
      last_ += kPause;
      break;
  }
}

std::string FaultyWire::Take(Micros now) {
  std::string out;
  while (!due_.empty() && due_.front().when <= now) {
    out += due_.front().byte;
    due_.pop_front();
  }
  return out;
}

std::optional<Micros> FaultyWire::NextDue() const {
  if (due_.empty()) return std::nullopt;
  return due_.front().when;
}

}  // namespace kestra::line_faults
