#include "platform/posix/locale_text.hpp"

#include <iconv.h>
#include <langinfo.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "platform/shared/text.hpp"

namespace kestra {
namespace {

constexpr const char* kAscii = "ANSI_X3.4-1968";
constexpr const char* kUtf8 = "UTF-8";

class Recoder {
 public:
  Recoder(const char* to, const char* from) : recoder_(::iconv_open(to, from)) {}
  Recoder(const Recoder&) = delete;
  Recoder& operator=(const Recoder&) = delete;
  ~Recoder() {
    if (*this) ::iconv_close(recoder_);
  }

  explicit operator bool() const {
    return recoder_ != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
  }

  // Appends what `text` becomes, up to its first character that cannot be had. Returns the rest.
  std::string_view Append(std::string_view text, std::string& result) {
    char* from = const_cast<char*>(text.data());  // iconv reads it only
    std::size_t left = text.size();
    std::size_t done = 0;
    do {
      std::array<char, 256> buffer{};
      char* to = buffer.data();
      std::size_t room = buffer.size();
      done = ::iconv(recoder_, &from, &left, &to, &room);
      result.append(buffer.data(), buffer.size() - room);
    } while (done == static_cast<std::size_t>(-1) && errno == E2BIG);
    return text.substr(text.size() - left);
  }

 private:
  iconv_t recoder_;
};

// What is left when the system does not know the character set.
std::string OnlyAscii(std::string_view text) {
  std::string result(text);
  for (char& byte : result) {
    if (static_cast<unsigned char>(byte) >= 0x80) byte = '?';
  }
  return result;
}

std::string Recode(std::string_view text, const char* to, const char* from) {
  Recoder recoder(to, from);
  if (!recoder) return OnlyAscii(text);
  const bool from_utf8 = from == kUtf8;
  std::string result;
  while (!text.empty()) {
    text = recoder.Append(text, result);
    if (text.empty()) break;
    text.remove_prefix(from_utf8 ? Utf8Length(text) : 1);
    recoder.Append("?", result);
  }
  return result;
}

}  // namespace

std::string UserLocale::Codeset() const {
  return *this ? ::nl_langinfo_l(CODESET, locale_) : kAscii;
}

std::string LocaleName(const char* category) {
  for (const char* const variable : {"LC_ALL", category, "LANG"}) {
    const char* const name = std::getenv(variable);
    if (name != nullptr && *name != '\0') return name;
  }
  return "C";
}

bool IsPlainLocale(std::string_view name) {
  return name == "C" || name == "POSIX" || name.substr(0, 2) == "C.";
}

std::string CodesetFromAnsi(std::string_view ansi, const std::string& codeset) {
  const std::string utf8 = Utf8FromAnsi(ansi);
  return codeset == kUtf8 ? utf8 : Recode(utf8, codeset.c_str(), kUtf8);
}

std::string AnsiFromCodeset(std::string_view text, const std::string& codeset) {
  if (codeset == kUtf8) return AnsiFromUtf8(text);
  return AnsiFromUtf8(Recode(text, kUtf8, codeset.c_str()));
}

}  // namespace kestra
