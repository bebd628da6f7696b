#pragma once

#include <string>
#include <string_view>

namespace kestra {

struct Biblioteca;

constexpr std::string_view kArchivoDeConfiguracion = ".\\Fiscal.ini";
constexpr std::string_view kSeccion = "Epson_Fiscal";

// Text of a key of the library's section; empty when it is not there.
std::string LeerValorIni(Biblioteca& k, std::string_view clave);

}  // namespace kestra
