#include "fields/nearest.hpp"

#include <algorithm>
#include <iterator>

#include "base/code_page.hpp"
#include "fields/text_field.hpp"

namespace kestra {
namespace {

struct Nearest {
  char32_t character;
  std::string_view letters;
};

// In the order of the characters. Those beside windows-1252 come from hosts that speak UTF-8.
// clang-format off
constexpr Nearest kNearest[] = {
    {U'\0', " "}, {U'\t', " "}, {U'\n', " "}, {U'\r', " "}, {U'\x85', " "}, {U'\u00A0', " "},
    {U'¡', "!"}, {U'¢', "c"}, {U'£', "GBP"}, {U'¤', "$"}, {U'¥', "JPY"}, {U'¦', "|"}, {U'§', "S"},
    {U'¨', "\""}, {U'©', "(c)"}, {U'ª', "a"}, {U'«', "\""}, {U'¬', "-"}, {U'\u00AD', ""},
    {U'®', "(R)"}, {U'¯', "-"}, {U'°', "o"}, {U'±', "+-"}, {U'²', "2"}, {U'³', "3"}, {U'´', "'"},
    {U'µ', "u"}, {U'¶', "P"}, {U'·', "."}, {U'¸', ","}, {U'¹', "1"}, {U'º', "o"}, {U'»', "\""},
    {U'¼', "1/4"}, {U'½', "1/2"}, {U'¾', "3/4"}, {U'¿', "?"}, {U'À', "A"}, {U'Á', "A"},
    {U'Â', "A"}, {U'Ã', "A"}, {U'Ä', "A"}, {U'Å', "A"}, {U'Æ', "AE"}, {U'Ç', "C"}, {U'È', "E"},
    {U'É', "E"}, {U'Ê', "E"}, {U'Ë', "E"}, {U'Ì', "I"}, {U'Í', "I"}, {U'Î', "I"}, {U'Ï', "I"},
    {U'Ð', "D"}, {U'Ñ', "N"}, {U'Ò', "O"}, {U'Ó', "O"}, {U'Ô', "O"}, {U'Õ', "O"}, {U'Ö', "O"},
    {U'×', "x"}, {U'Ø', "O"}, {U'Ù', "U"}, {U'Ú', "U"}, {U'Û', "U"}, {U'Ü', "U"}, {U'Ý', "Y"},
    {U'Þ', "Th"}, {U'ß', "ss"}, {U'à', "a"}, {U'á', "a"}, {U'â', "a"}, {U'ã', "a"}, {U'ä', "a"},
    {U'å', "a"}, {U'æ', "ae"}, {U'ç', "c"}, {U'è', "e"}, {U'é', "e"}, {U'ê', "e"}, {U'ë', "e"},
    {U'ì', "i"}, {U'í', "i"}, {U'î', "i"}, {U'ï', "i"}, {U'ó', "o"}, {U'õ', "o"}, {U'ö', "o"},
    {U'÷', "/"}, {U'ù', "u"}, {U'ú', "u"}, {U'û', "u"}, {U'ü', "u"}, {U'ý', "y"}, {U'þ', "th"},
    {U'ÿ', "y"}, {U'Ā', "A"}, {U'ā', "a"}, {U'Ă', "A"}, {U'ă', "a"}, {U'Ą', "A"}, {U'ą', "a"},
    {U'Ć', "C"}, {U'ć', "c"}, {U'Ĉ', "C"}, {U'ĉ', "c"}, {U'Ċ', "C"}, {U'ċ', "c"}, {U'Č', "C"},
    {U'č', "c"}, {U'Ď', "D"}, {U'ď', "d"}, {U'Đ', "D"}, {U'đ', "d"}, {U'Ē', "E"}, {U'ē', "e"},
    {U'Ĕ', "E"}, {U'ĕ', "e"}, {U'Ė', "E"}, {U'ė', "e"}, {U'Ę', "E"}, {U'ę', "e"}, {U'Ě', "E"},
    {U'ě', "e"}, {U'Ĝ', "G"}, {U'ĝ', "g"}, {U'Ğ', "G"}, {U'ğ', "g"}, {U'Ġ', "G"}, {U'ġ', "g"},
    {U'Ģ', "G"}, {U'ģ', "g"}, {U'Ĥ', "H"}, {U'ĥ', "h"}, {U'Ħ', "H"}, {U'ħ', "h"}, {U'Ĩ', "I"},
    {U'ĩ', "i"}, {U'Ī', "I"}, {U'ī', "i"}, {U'Ĭ', "I"}, {U'ĭ', "i"}, {U'Į', "I"}, {U'į', "i"},
    {U'İ', "I"}, {U'ı', "i"}, {U'Ĳ', "IJ"}, {U'ĳ', "ij"}, {U'Ĵ', "J"}, {U'ĵ', "j"}, {U'Ķ', "K"},
    {U'ķ', "k"}, {U'ĸ', "k"}, {U'Ĺ', "L"}, {U'ĺ', "l"}, {U'Ļ', "L"}, {U'ļ', "l"}, {U'Ľ', "L"},
    {U'ľ', "l"}, {U'Ŀ', "L"}, {U'ŀ', "l"}, {U'Ł', "L"}, {U'ł', "l"}, {U'Ń', "N"}, {U'ń', "n"},
    {U'Ņ', "N"}, {U'ņ', "n"}, {U'Ň', "N"}, {U'ň', "n"}, {U'ŉ', "'n"}, {U'Ŋ', "N"}, {U'ŋ', "n"},
    {U'Ō', "O"}, {U'ō', "o"}, {U'Ŏ', "O"}, {U'ŏ', "o"}, {U'Ő', "O"}, {U'ő', "o"}, {U'Œ', "OE"},
    {U'œ', "oe"}, {U'Ŕ', "R"}, {U'ŕ', "r"}, {U'Ŗ', "R"}, {U'ŗ', "r"}, {U'Ř', "R"}, {U'ř', "r"},
    {U'Ś', "S"}, {U'ś', "s"}, {U'Ŝ', "S"}, {U'ŝ', "s"}, {U'Ş', "S"}, {U'ş', "s"}, {U'Š', "S"},
    {U'š', "s"}, {U'Ţ', "T"}, {U'ţ', "t"}, {U'Ť', "T"}, {U'ť', "t"}, {U'Ŧ', "T"}, {U'ŧ', "t"},
    {U'Ũ', "U"}, {U'ũ', "u"}, {U'Ū', "U"}, {U'ū', "u"}, {U'Ŭ', "U"}, {U'ŭ', "u"}, {U'Ů', "U"},
    {U'ů', "u"}, {U'Ű', "U"}, {U'ű', "u"}, {U'Ų', "U"}, {U'ų', "u"}, {U'Ŵ', "W"}, {U'ŵ', "w"},
    {U'Ŷ', "Y"}, {U'ŷ', "y"}, {U'Ÿ', "Y"}, {U'Ź', "Z"}, {U'ź', "z"}, {U'Ż', "Z"}, {U'ż', "z"},
    {U'Ž', "Z"}, {U'ž', "z"}, {U'ſ', "s"}, {U'ƒ', "f"}, {U'Ș', "S"}, {U'ș', "s"}, {U'Ț', "T"},
    {U'ț', "t"}, {U'ʻ', "'"}, {U'ʼ', "'"}, {U'ˆ', "^"}, {U'˜', "~"}, {U'\u0300', ""},
    {U'\u0301', ""}, {U'\u0302', ""}, {U'\u0303', ""}, {U'\u0304', ""}, {U'\u0306', ""},
    {U'\u0307', ""}, {U'\u0308', ""}, {U'\u030A', ""}, {U'\u030B', ""}, {U'\u030C', ""},
    {U'\u0327', ""}, {U'\u0328', ""}, {U'Ω', "ohm"}, {U'μ', "u"}, {U'ẞ', "SS"}, {U'\u2002', " "},
    {U'\u2003', " "}, {U'\u2007', " "}, {U'\u2009', " "}, {U'\u200B', ""}, {U'\u200C', ""},
    {U'\u200D', ""}, {U'‐', "-"}, {U'‑', "-"}, {U'‒', "-"}, {U'–', "-"}, {U'—', "-"}, {U'―', "-"},
    {U'‘', "'"}, {U'’', "'"}, {U'‚', ","}, {U'‛', "'"}, {U'“', "\""}, {U'”', "\""}, {U'„', "\""},
    {U'‟', "\""}, {U'†', "+"}, {U'‡', "++"}, {U'•', "*"}, {U'…', "..."}, {U'\u202F', " "},
    {U'‰', "o/oo"}, {U'′', "'"}, {U'″', "\""}, {U'‹', "<"}, {U'›', ">"}, {U'⁄', "/"},
    {U'\u2060', ""}, {U'₂', "2"}, {U'₃', "3"}, {U'€', "EUR"}, {U'℃', "oC"}, {U'№', "No"},
    {U'™', "TM"}, {U'℮', "e"}, {U'⅓', "1/3"}, {U'⅔', "2/3"}, {U'⅛', "1/8"}, {U'⅜', "3/8"},
    {U'⅝', "5/8"}, {U'⅞', "7/8"}, {U'←', "<-"}, {U'→', "->"}, {U'−', "-"}, {U'∙', "."},
    {U'≈', "~"}, {U'≠', "<>"}, {U'≤', "<="}, {U'≥', ">="}, {U'ﬁ', "fi"}, {U'ﬂ', "fl"},
    {U'\uFEFF', ""},
};
// clang-format on

constexpr bool Before(const Nearest& a, const Nearest& b) {
  return a.character < b.character;
}

// Each character once, none that the printer takes, and nothing comes out that it does not take.
consteval bool IsSound() {
  for (std::size_t i = 0; i < std::size(kNearest); ++i) {
    const auto& [character, letters] = kNearest[i];
    const auto byte = ByteOf(character);
    if (i > 0 && !Before(kNearest[i - 1], kNearest[i])) return false;
    if (byte && PrinterAccepts(*byte)) return false;
    if (!std::all_of(letters.begin(), letters.end(), PrinterAccepts)) return false;
  }
  return true;
}
static_assert(IsSound());

// A printable character of the code page either is taken or has a row.
consteval bool IsWhole() {
  for (char32_t byte = 0xA0; byte <= 0xFF; ++byte) {
    const auto character = static_cast<char>(byte);
    if (PrinterAccepts(character)) continue;
    if (!std::binary_search(std::begin(kNearest), std::end(kNearest), Nearest{byte, {}}, Before))
      return false;
  }
  return true;
}
static_assert(IsWhole());
static_assert(PrinterAccepts(kStandIn));

}  // namespace

std::string_view NearestLetters(char32_t character) {
  const auto* const row =
      std::lower_bound(std::begin(kNearest), std::end(kNearest), Nearest{character, {}}, Before);
  const bool known = row != std::end(kNearest) && row->character == character;
  return known ? row->letters : std::string_view(&kStandIn, 1);
}

std::string Transliterate(std::string_view text) {
  std::string near;
  near.reserve(text.size());
  for (const char byte : text) {
    if (PrinterAccepts(byte)) {
      near += byte;
    } else {
      near += NearestLetters(CharacterOf(byte));
    }
  }
  return near;
}

}  // namespace kestra
