#pragma once

#include <locale.h>

#include <string>
#include <string_view>

namespace kestra {

// A locale of our own, made from the environment; the host's stays as it is. It stands for no
// locale when the environment names one that is not installed.
class UserLocale {
 public:
  explicit UserLocale(int categories) : locale_(::newlocale(categories, "", locale_t{})) {}
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;
  ~UserLocale() {
    if (*this) ::freelocale(locale_);
  }

  explicit operator bool() const { return locale_ != locale_t{}; }
  [[nodiscard]] locale_t Get() const { return locale_; }

  // Name of its character set; for no locale that of plain ASCII.
  [[nodiscard]] std::string Codeset() const;

 private:
  locale_t locale_;
};

// Name of the locale that the environment asks for in a category such as "LC_TIME"; "C" when it
// asks for none.
std::string LocaleName(const char* category);

// True for "C", "POSIX" and their relatives, which know no country.
bool IsPlainLocale(std::string_view name);

// Windows-1252 to and from a character set of the system, with '?' for what the other side lacks.
std::string CodesetFromAnsi(std::string_view ansi, const std::string& codeset);
std::string AnsiFromCodeset(std::string_view text, const std::string& codeset);

}  // namespace kestra
