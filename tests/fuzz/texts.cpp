// Texts of hosts that end them with a zero or speak UTF-8, and what such hosts get: no byte is read behind an
// end, none is written beyond a buffer, no character is torn.
#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "base/code_page.hpp"
#include "base/utf8.hpp"
#include "fields/text_field.hpp"
#include "fuzz/input.hpp"
#include "operation/host_buffer.hpp"

namespace kestra {
namespace {

using fuzz::Input;
using fuzz::Require;

TextSettings AnySettings(Input& input) {
  return {.TextosTerminados = static_cast<std::int32_t>(input.Below(3)),
          .Transliterar = input.Flag() ? 1 : 0};
}

// The host's memory, to the byte.
std::unique_ptr<char[]> Own(std::string_view bytes) {
  auto own = std::make_unique<char[]>(bytes.size());
  std::copy(bytes.begin(), bytes.end(), own.get());
  return own;
}

// As much of the input as this mode may read: through to the zero, which may be missing where so many bytes are
// the end.
std::string Memory(const TextSettings& settings, std::string_view rest, std::size_t length) {
  std::string text(rest);
  if (settings.Mode() == TextMode::kWhole) return FixedWidth(text, length);
  text.resize(std::min(text.find('\0'), text.size()));
  if (settings.SpeakUtf8() || text.size() < length) return text + '\0';
  return text.substr(0, length);
}

void CheckTaken(const TextSettings& settings, std::string_view text) {
  if (settings.Transliterar == 0) return;
  Require(LimpiarCaracteres(std::string(text)) == text, "the printer takes what comes out");
}

void CheckArgument(Input& input) {
  const auto settings = AnySettings(input);
  const auto length = input.Below(130);
  const auto memory = Memory(settings, input.Rest(), length);
  const auto text = LeerCadena(settings, Own(memory).get(), static_cast<std::int32_t>(length));
  Require(text.size() == length, "exactly so long");
  CheckTaken(settings, text);
  if (settings.Transliterar == 1 || settings.SpeakUtf8()) return;
  const bool whole = settings.Mode() == TextMode::kWhole;
  const std::string_view words =
      whole ? memory : std::string_view(memory).substr(0, memory.find('\0'));
  Require(text == FixedWidth(words, length), "the bytes of the host");
}

void CheckEnded(Input& input) {
  const auto settings = AnySettings(input);
  std::string text(input.Rest());
  text.resize(std::min(text.find('\0'), text.size()));
  CheckTaken(settings, ReadTerminatedText(settings, Own(text + '\0').get()));
}

// What was written in another code comes back as it was.
void CheckUtf8(Input& input) {
  const TextSettings settings{.TextosTerminados = 2};
  std::string text(input.Rest());
  std::erase(text, '\0');
  const auto length = static_cast<std::int32_t>(text.size());
  const auto utf8 = Utf8FromAnsi(text);
  // So many characters need no zero.
  Require(LeerCadena(settings, Own(utf8).get(), length) == text, "as it was");
  Require(LeerCadena(settings, Own(utf8 + '\0').get(), length + 3) == text + "   ", "and ended");
}

void CheckWhole(std::string_view utf8) {
  while (!utf8.empty()) {
    const auto bytes = Utf8Front(utf8);
    Require(bytes > 0, "whole characters alone");
    utf8.remove_prefix(bytes);
  }
}

void CheckResult(Input& input) {
  const auto settings = AnySettings(input);
  const auto size = input.Below(130);
  const bool handed = input.Flag();
  std::string text(input.Rest());
  std::erase(text, '\0');
  const auto buffer = Own(std::string(size, '\x01'));
  const auto room = static_cast<std::int32_t>(size);
  handed ? HandOver(settings, buffer.get(), text, room)
         : DevolverCadena(settings, buffer.get(), text, room);
  const bool ends = handed || settings.Mode() != TextMode::kWhole;
  if (!ends) return;
  const std::string_view left(buffer.get(), size);
  const auto written = left.substr(0, left.find('\0'));
  const auto whole = settings.SpeakUtf8() ? Utf8FromAnsi(text) : text;
  Require(std::string_view(whole).starts_with(written), "the text's front");
  if (settings.SpeakUtf8()) CheckWhole(written);
  const auto behind = left.substr(std::min(written.size() + 1, size));
  Require(behind.find_first_not_of('\x01') == std::string_view::npos, "nothing behind its zero");
}

}  // namespace
}  // namespace kestra

FUZZ_TARGET(input) {
  static constexpr std::array kChecks{&kestra::CheckArgument, &kestra::CheckEnded,
                                      &kestra::CheckUtf8, &kestra::CheckResult};
  input.Pick(kChecks)(input);
}
