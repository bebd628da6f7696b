#include "program/cannot_open.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace impresora {
namespace {

struct Reason {
  std::errc error;
  std::string_view words;
};

constexpr std::array kReasons{
    Reason{std::errc::no_such_file_or_directory, "no existe"},
    Reason{std::errc::not_a_directory, "no existe"},
    Reason{std::errc::permission_denied, "sin permiso"},
    Reason{std::errc::file_exists, "ya hay otra cosa con ese nombre"},
    Reason{std::errc::is_a_directory, "es una carpeta"},
    Reason{std::errc::read_only_file_system, "es de solo lectura"},
    Reason{std::errc::inappropriate_io_control_operation, "no es un puerto serie"},
    Reason{std::errc::device_or_resource_busy, "está en uso"},
    Reason{std::errc::address_in_use, "la dirección está en uso"},
    Reason{std::errc::address_not_available, "la dirección no es de esta máquina"},
};

// A library's own numbers for the system's errors are the system's.
std::error_code AsTheSystems(std::error_code error) {
  if (error.category() == std::generic_category()) return error;
  return {error.value(), std::system_category()};
}

std::string ReasonOf(std::error_code error) {
  error = AsTheSystems(error);
  const auto* const known = std::find_if(kReasons.begin(), kReasons.end(), [&](const Reason& each) {
    return error == std::make_error_condition(each.error);
  });
  return known == kReasons.end() ? error.message() : std::string(known->words);
}

}  // namespace

CannotOpen::CannotOpen(const std::string& name, std::error_code error)
    : std::system_error(error, name),
      words_("no se puede abrir " + name + ": " + ReasonOf(error)) {}

}  // namespace impresora
