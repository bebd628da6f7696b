#include "program/ini_file.hpp"

#include <array>
#include <charconv>
#include <fstream>

#include "text/path.hpp"

namespace impresora {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n\f\v";

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view Stripped(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// The name between brackets; nothing when the line is no section's heading.
std::optional<std::string> Heading(std::string_view line) {
  const std::size_t end = line.find(']');
  if (line.empty() || line.front() != '[' || end == std::string_view::npos) return std::nullopt;
  return Lower(Stripped(line.substr(1, end - 1)));
}

// A field of digits and the two keys that say how many it has.
struct DigitKeys {
  std::string_view integers;
  std::string_view decimals;
  Digits FieldDigits::*digits;
};

constexpr std::array<DigitKeys, 6> kDigitKeys{{
    {"EntCantidad", "DecCantidad", &FieldDigits::quantity},
    {"EntPrecio", "DecPrecio", &FieldDigits::price},
    {"EntIVA", "DecIVA", &FieldDigits::rate},
    {"EntImpInt", "DecImpInt", &FieldDigits::internal_tax},
    {"EntDesc", "DecDesc", &FieldDigits::amount},
    {"EntPercepcion", "DecPercepcion", &FieldDigits::perception},
}};

// A text and the keys that say how long it may be: on a roll and on a form.
struct LengthKeys {
  std::string_view roll;
  std::string_view form;
  int TextLengths::*length;
};

constexpr std::array<LengthKeys, 5> kLengthKeys{{
    {"LonDescripcionT", "LonDescripcionF", &TextLengths::description},
    {"LonTextoFiscalT", "LonTextoFiscalF", &TextLengths::fiscal_text},
    {"LonEncabezadoT", "LonEncabezadoF", &TextLengths::header},
    {"LonTextoNoFiscalT", "LonTextoNoFiscalF", &TextLengths::non_fiscal_text},
    {"LonDatosClienteT", "LonDatosClienteF", &TextLengths::customer},
}};

constexpr int kLongestText = 999;
constexpr int kMostIntegers = 9;
constexpr int kMostDecimals = 4;

// True when the key is absent, too.
bool ReadCount(const IniSection& section, std::string_view key, int least, int most, int& count) {
  const std::optional<std::string> value = section.Value(key);
  if (!value) return true;
  const char* const end = value->data() + value->size();
  int read = 0;
  const auto result = std::from_chars(value->data(), end, read);
  if (result.ec != std::errc() || result.ptr != end || read < least || read > most) return false;
  count = read;
  return true;
}

std::string WrongKey(std::string_view key) {
  return "la clave " + std::string(key) + " no tiene un valor que la impresora acepte";
}

std::string ApplyDigits(const IniSection& section, FieldDigits& digits) {
  for (const DigitKeys& row : kDigitKeys) {
    Digits& field = digits.*row.digits;
    if (!ReadCount(section, row.integers, 1, kMostIntegers, field.integers)) {
      return WrongKey(row.integers);
    }
    if (!ReadCount(section, row.decimals, 0, kMostDecimals, field.decimals)) {
      return WrongKey(row.decimals);
    }
  }
  return {};
}

std::string ApplyLengths(const IniSection& section, Settings& settings) {
  for (const LengthKeys& row : kLengthKeys) {
    if (!ReadCount(section, row.roll, 1, kLongestText, settings.roll_texts.*row.length)) {
      return WrongKey(row.roll);
    }
    if (!ReadCount(section, row.form, 1, kLongestText, settings.form_texts.*row.length)) {
      return WrongKey(row.form);
    }
  }
  return {};
}

std::string ApplySection(const IniSection& section, Settings& settings) {
  if (!section.Found()) return "no tiene la sección [Epson_Fiscal]";
  const std::optional<std::string> family = section.Value("TipoComprobante");
  if (family && !SetFamily(settings, *family)) return WrongKey("TipoComprobante");
  const std::optional<std::string> model = section.Value("ModeloNombre");
  if (model && !model->empty()) settings.model = *model;
  const std::string iva = section.Value("TipoIVA").value_or("");
  if (!iva.empty() && (iva.front() < 'A' || iva.front() > 'Z')) return WrongKey("TipoIVA");
  if (!iva.empty()) settings.owner_iva = iva.front();
  const std::string wrong = ApplyDigits(section, settings.digits);
  return wrong.empty() ? ApplyLengths(section, settings) : wrong;
}

}  // namespace

IniSection::IniSection(std::istream& text, std::string_view name) {
  const std::string wanted = Lower(name);
  std::string line;
  for (bool first = true; std::getline(text, line); first = false) {
    std::string_view rest = line;
    if (first && rest.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
      rest.remove_prefix(kByteOrderMark.size());
    }
    rest = Stripped(rest);
    if (const auto heading = Heading(rest)) {
      if (found_) return;
      found_ = *heading == wanted;
    } else if (found_) {
      Take(rest);
    }
  }
}

void IniSection::Take(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || line.front() == ';') return;
  values_.emplace(Lower(Stripped(line.substr(0, equals))),
                  Unquoted(Stripped(line.substr(equals + 1))));
}

std::optional<std::string> IniSection::Value(std::string_view key) const {
  const auto found = values_.find(Lower(key));
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::string ApplyFiscalIni(const std::string& path, Settings& settings) {
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) return "no se puede leer " + path;
  const std::string wrong = ApplySection(IniSection(file, "Epson_Fiscal"), settings);
  return wrong.empty() ? wrong : path + ": " + wrong;
}

bool SetFamily(Settings& settings, std::string_view code) {
  constexpr std::array<std::pair<std::string_view, Family>, 3> kFamilies{
      {{"TQ", Family::kTicket}, {"TF", Family::kTicketInvoice}, {"FC", Family::kForm}}};
  for (const auto& [name, family] : kFamilies) {
    if (name != code) continue;
    settings.family = family;
    return true;
  }
  return false;
}

}  // namespace impresora
