#pragma once

#include <windows.h>

#include <array>

namespace kestra {

// One of the user's forms, for as long as the object lives.
class UserForm {
 public:
  UserForm(LCTYPE which, const wchar_t* form) : which_(which) {
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, which_, before_.data(), static_cast<int>(before_.size()));
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, form);
  }
  UserForm(const UserForm&) = delete;
  UserForm& operator=(const UserForm&) = delete;
  ~UserForm() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, before_.data()); }

 private:
  LCTYPE which_;
  std::array<wchar_t, 80> before_{};
};

}  // namespace kestra
