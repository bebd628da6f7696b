#pragma once

#include <cstddef>

namespace kestra {

constexpr char kStx = '\x02';
constexpr char kEtx = '\x03';
constexpr char kAck = '\x06';
constexpr char kCr = '\x0D';
constexpr char kDc2 = '\x12';  // the printer works and asks for patience
constexpr char kFs = '\x1C';   // stands before each field

constexpr std::size_t kChecksumDigits = 4;

}  // namespace kestra
