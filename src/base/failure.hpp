#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <utility>

namespace kestra {

// A run-time failure: the one exception that travels inside the library.
class Failure : public std::exception {
 public:
  Failure(std::int32_t number, std::string description, std::int32_t reason = 0)
      : number_(number), reason_(reason), description_(std::move(description)) {}

  [[nodiscard]] std::int32_t Number() const noexcept { return number_; }
  // Tells failures of one number apart, where somebody asks; 0 when there is nothing more to tell.
  [[nodiscard]] std::int32_t Reason() const noexcept { return reason_; }
  // Windows-1252, as it goes to the log.
  [[nodiscard]] const std::string& Description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::int32_t reason_;
  std::string description_;
};

// Numbers and words of the classic run time, which hosts' logs have always shown.
inline Failure Overflow() {
  return {6, "Overflow"};
}
constexpr std::int32_t kOutOfMemory = 7;
inline Failure OutOfMemory() {
  return {kOutOfMemory, "Out of memory"};
}
constexpr std::int32_t kTypeMismatch = 13;
inline Failure TypeMismatch() {
  return {kTypeMismatch, "Type mismatch"};
}
inline Failure InvalidCall() {
  return {5, "Invalid procedure call or argument"};
}
constexpr std::int32_t kNoObject = 91;
inline Failure NoObject() {
  return {kNoObject, "Object variable or With block variable not set"};
}

// Any exception in the library's own terms.
inline Failure ToFailure(const std::exception& error) {
  if (const auto* failure = dynamic_cast<const Failure*>(&error)) return *failure;
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return OutOfMemory();
  return {51, "Internal error"};
}

// False when the action failed, of which nobody is told.
template <typename Action>
bool WithoutFailing(Action action) noexcept {
  try {
    action();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// "Error 13 (Type mismatch)"
inline std::string FailureText(const Failure& failure) {
  return "Error " + std::to_string(failure.Number()) + " (" + failure.Description() + ")";
}

}  // namespace kestra
