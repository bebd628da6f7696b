#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace impresora {

// One word, text in quotes or mark of a line of rules, and where it stands.
struct RuleWord {
  enum class Kind { kWord, kText, kMark, kEnd, kOpenText };

  Kind kind = Kind::kEnd;
  std::string raw;     // as written; of a text, what it means
  std::string folded;  // lower case, without accents; empty for a text
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The words of a line, with a kEnd behind the last. A comment is none of them.
std::vector<RuleWord> SplitWords(std::string_view line);

// The bytes of "41", "0215"; nothing when it is no whole number of pairs of hexadecimal digits.
std::optional<std::string> ReadHexBytes(std::string_view text);

// Lower case and without accents, as somebody in a hurry writes.
std::string Fold(std::string_view utf8);

// "3" or "1.25" in thousandths; at most nine digits before the point and three behind it.
std::optional<std::int64_t> ReadThousandths(std::string_view text);

// A whole number of at most nine digits, with or without a sign.
std::optional<std::int64_t> ReadInteger(std::string_view text);

}  // namespace impresora
