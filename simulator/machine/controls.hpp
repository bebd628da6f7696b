#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "machine/machine.hpp"

namespace impresora {

// Everything about the printer that a person can change while it runs, under one name for options,
// panel and fault rules. Every value is a whole number: 0 or 1, a count, or a moment in seconds.
enum class ControlKind { kSwitch, kNumber, kMoment };

struct Control {
  std::string_view key;
  std::string_view words;
  ControlKind kind;
  std::int64_t least;
  std::int64_t most;
  std::int64_t (*get)(const Machine&);
  void (*set)(Machine&, std::int64_t);

  bool Allows(std::int64_t value) const { return value >= least && value <= most; }
};

std::span<const Control> Controls();

// The row of that key, or null.
const Control* FindControl(std::string_view key);

// Values as people write them: "si"/"no" (also 1/0, true/false), digits, "AAAA-MM-DD HH:MM:SS".
std::optional<std::int64_t> ReadControl(const Control& control, std::string_view text);
std::string ControlText(const Control& control, std::int64_t value);

// False when the value is out of its range.
bool SetControl(Machine& m, const Control& control, std::int64_t value);

// ---- Lamps: one for each bit of both status words, which can be forced on or off ----

enum class Word { kPrinter, kFiscal };
enum class Forced { kNo, kOn, kOff };

struct Lamp {
  std::string_view key;    // "impresora_fuera_de_linea", "fiscal_bateria_baja"
  std::string_view words;  // "fuera de línea"
  Word word;
  std::uint16_t bit;
};

std::span<const Lamp> Lamps();
const Lamp* FindLamp(std::string_view key);

Forced ForcedLamp(const Machine& m, const Lamp& lamp);
void ForceLamp(Machine& m, const Lamp& lamp, Forced forced);

}  // namespace impresora
