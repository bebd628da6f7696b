#pragma once

namespace impresora {

// The bytes that steer the serial line.
inline constexpr char kStx = 0x02;
inline constexpr char kEtx = 0x03;
inline constexpr char kAck = 0x06;
inline constexpr char kDc2 = 0x12;  // still working, keep waiting
inline constexpr char kNak = 0x15;  // the frame arrived damaged, send it again
inline constexpr char kFs = 0x1C;

// A field that holds only this byte is an empty field.
inline constexpr char kEmptyField = 0x7F;

// A text that starts with this byte prints in double width.
inline constexpr char kDoubleWidth = static_cast<char>(0xF4);

}  // namespace impresora
