#include "faults/actions.hpp"

#include <array>

#include "faults/effects.hpp"
#include "faults/rule_reader.hpp"
#include "wire/speed.hpp"

namespace impresora {
namespace {

void ReadNothing(RuleReader& /*reader*/, Action& /*action*/) {}

void ReadControlValue(RuleReader& reader, Action& action) {
  reader.ControlAndValue(action);
}

void ReadLamp(RuleReader& reader, Action& action) {
  action.number = reader.LampBits(action.word);
}

// Before a command is carried out there is no answer that could show the bit.
void ReadLampAndSpan(RuleReader& reader, Action& action) {
  ReadLamp(reader, action);
  action.flag = reader.Take("desde");
  if (action.flag) return reader.Need("ahora");
  if (reader.WaitsFor() == Subject::kCommand) reader.Fail("«desde ahora»");
}

void ReadFieldNumber(RuleReader& reader, Action& action) {
  action.field = reader.Field();
}

void ReadFieldAndText(RuleReader& reader, Action& action) {
  action.field = reader.Field();
  reader.Need("por");
  action.bytes = reader.Bytes();
}

void ReadTextAndField(RuleReader& reader, Action& action) {
  action.bytes = reader.Bytes();
  if (reader.Take("antes")) {
    reader.Need("de");
    action.field = reader.Field();
  }
}

void ReadSequence(RuleReader& reader, Action& action) {
  action.flag = reader.AtSign();
  action.number = reader.Integer(-255, 255, "un número: «+1», «-1» o «40»");
}

void ReadCommand(RuleReader& reader, Action& action) {
  action.number = reader.Command();
}

void ReadFormer(RuleReader& reader, Action& action) {
  action.flag = reader.Take("antes");
}

void ReadPlace(RuleReader& reader, Action& action) {
  action.place = reader.ByteNumber();
}

void ReadTruncation(RuleReader& reader, Action& action) {
  reader.Need("en");
  action.place = reader.BytePlace();
}

void ReadPlaceAndMask(RuleReader& reader, Action& action) {
  ReadPlace(reader, action);
  action.bytes = reader.Take("con") ? reader.Byte() : '\xFF';
}

void ReadPlaceAndByte(RuleReader& reader, Action& action) {
  ReadPlace(reader, action);
  reader.Need("por");
  action.bytes = reader.Byte();
}

void ReadInsertion(RuleReader& reader, Action& action) {
  action.bytes = reader.Bytes();
  action.flag = reader.Take("tras");
  if (!action.flag) reader.Need("en");
  action.place = reader.BytePlace();
}

// "8 bytes" by chance, or these.
void ReadNoise(RuleReader& reader, Action& action) {
  if (reader.BeforeWord("bytes") || reader.BeforeWord("byte")) {
    action.number = reader.Integer(1, 9'999, "de 1 a 9999 bytes");
    if (!reader.Take("bytes")) reader.Need("byte");
  } else {
    action.bytes = reader.Bytes();
  }
}

// "4800", or "4800 en lugar de 19200".
void ReadSpeeds(RuleReader& reader, Action& action) {
  constexpr const char* kSpeeds = "de 50 a 4000000 baudios";
  action.number = reader.Integer(kSlowest, kFastest, kSpeeds);
  action.other = kUsualBaud;
  if (!reader.Take("en")) return;
  reader.Need("lugar");
  reader.Need("de");
  action.other = reader.Integer(kSlowest, kFastest, kSpeeds);
}

void ReadTime(RuleReader& reader, Action& action) {
  action.time = reader.Time();
}

void ReadPieces(RuleReader& reader, Action& action) {
  reader.Need("en");
  if (reader.At("byte")) {
    action.place = reader.BytePlace();
  } else {
    action.number = reader.Integer(2, 9'999, "«byte» o un número de partes desde 2");
    if (!reader.Take("partes")) reader.Take("parte");
  }
  reader.Need("con");
  action.time = reader.Time();
}

void ReadEnd(RuleReader& reader, Action& action) {
  if (reader.WaitsFor() != Subject::kCommand && reader.Take("en")) {
    action.place = reader.BytePlace();
  }
}

void ReadPowerOff(RuleReader& reader, Action& action) {
  action.time = std::chrono::seconds(2);
  if (!reader.AtEndOfAction() && !reader.At("en")) action.time = reader.Time();
  ReadEnd(reader, action);
}

constexpr unsigned kOnCommands = static_cast<unsigned>(Subject::kCommand);
constexpr unsigned kOnAnswers =
    static_cast<unsigned>(Subject::kAnswer) | static_cast<unsigned>(Subject::kLine);
constexpr unsigned kOnBoth = kOnCommands | kOnAnswers;

// clang-format off
constexpr std::array<ActionRow, 29> kActions{{
    // The printer itself.
    {"poner", "poner CONTROL = VALOR", kOnBoth, Phase::kState, ReadControlValue, SetControlValue},
    {"encender", "encender BIT [desde ahora]", kOnBoth, Phase::kState, ReadLampAndSpan, LightBits},
    {"borrar", "borrar BIT [desde ahora]", kOnBoth, Phase::kState, ReadLampAndSpan, DarkenBits},
    {"soltar", "soltar BIT", kOnBoth, Phase::kState, ReadLamp, FreeBits},
    // Parts of the answer; its checksum follows.
    {"quitar campo", "quitar campo C", kOnAnswers, Phase::kParts, ReadFieldNumber, RemoveField},
    {"vaciar campo", "vaciar campo C", kOnAnswers, Phase::kParts, ReadFieldNumber, EmptyField},
    {"agregar campo", "agregar campo BYTES [antes de C]", kOnAnswers, Phase::kParts,
     ReadTextAndField, AddField},
    {"cambiar campo", "cambiar campo C por BYTES", kOnAnswers, Phase::kParts, ReadFieldAndText,
     ReplaceField},
    {"minusculas", "minúsculas", kOnAnswers, Phase::kParts, ReadNothing, LowerWords},
    {"secuencia", "secuencia +N, -N o N", kOnAnswers, Phase::kParts, ReadSequence, ChangeSequence},
    {"comando", "comando X", kOnAnswers, Phase::kParts, ReadCommand, ChangeCommand},
    // Something else in its place.
    {"anterior", "anterior [antes]", kOnAnswers, Phase::kWhole, ReadFormer, AnswerAsBefore},
    {"nak", "nak", kOnBoth, Phase::kWhole, ReadNothing, AnswerNak},
    {"callar", "callar", kOnAnswers, Phase::kWhole, ReadNothing, KeepSilent},
    // Its bytes as they are.
    {"suma mala", "suma mala", kOnAnswers, Phase::kBytes, ReadNothing, SpoilChecksum},
    {"perder byte", "perder byte K", kOnAnswers, Phase::kBytes, ReadPlace, DropByte},
    {"perder", "perder", kOnCommands, Phase::kWhole, ReadNothing, LoseCommand},
    {"invertir byte", "invertir byte K [con HH]", kOnAnswers, Phase::kBytes, ReadPlaceAndMask,
     FlipByte},
    {"duplicar byte", "duplicar byte K", kOnAnswers, Phase::kBytes, ReadPlace, DoubleByte},
    {"cambiar byte", "cambiar byte K por HH", kOnAnswers, Phase::kBytes, ReadPlaceAndByte,
     ReplaceByte},
    {"insertar", "insertar BYTES en byte K, o tras byte K", kOnAnswers, Phase::kBytes,
     ReadInsertion, InsertBytes},
    {"truncar", "truncar en byte K", kOnAnswers, Phase::kBytes, ReadTruncation, Truncate},
    {"velocidad", "velocidad N [en lugar de M]", kOnBoth, Phase::kBytes, ReadSpeeds, ChangeSpeed},
    // How they leave.
    {"ruido", "ruido N bytes, o ruido BYTES", kOnAnswers, Phase::kLeaving, ReadNoise, AddNoise},
    {"demorar", "demorar T", kOnAnswers, Phase::kLeaving, ReadTime, Delay},
    {"ocupar", "ocupar T", kOnAnswers, Phase::kLeaving, ReadTime, StayBusy},
    {"partir", "partir en byte K con T, o en N partes con T", kOnAnswers, Phase::kLeaving,
     ReadPieces, Split},
    {"desenchufar", "desenchufar [en byte K]", kOnBoth, Phase::kLeaving, ReadEnd, HangUp},
    {"apagar", "apagar [T] [en byte K]", kOnBoth, Phase::kLeaving, ReadPowerOff, PowerOff},
}};
// clang-format on

}  // namespace

std::span<const ActionRow> Actions() {
  return kActions;
}

}  // namespace impresora
