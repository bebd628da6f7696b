#include "sale/part.hpp"

#include "sale/letters.hpp"

namespace puerta {
namespace {

const Json kNothing = Json::object();

std::string Escaped(std::string_view key) {
  std::string text;
  for (const char c : key) {
    if (c == '~' || c == '/') {
      text += c == '~' ? "~0" : "~1";
    } else {
      text += c;
    }
  }
  return text;
}

std::string Count(int number, std::string_view one, std::string_view more) {
  return std::to_string(number) + " " + std::string(number == 1 ? one : more);
}

}  // namespace

Part::Part(const Json& object, std::string pointer, Errors& errors)
    : object_(object.is_object() ? &object : &kNothing),
      pointer_(std::move(pointer)),
      errors_(&errors) {
  if (!object.is_object()) Wrong("", "se espera un objeto");
}

bool Part::Has(std::string_view key) const {
  const auto found = object_->find(key);
  return found != object_->end() && !found->is_null();
}

std::string Part::PointerTo(std::string_view key) const {
  return key.empty() ? pointer_ : pointer_ + "/" + Escaped(key);
}

void Part::Wrong(std::string_view key, std::string message) {
  errors_->push_back({PointerTo(key), std::move(message)});
}

void Part::WrongAt(std::string_view below, std::string message) {
  errors_->push_back({pointer_ + std::string(below), std::move(message)});
}

const Json* Part::Find(std::string_view key) {
  asked_.emplace(key);
  return Has(key) ? &*object_->find(key) : nullptr;
}

const Json* Part::Required(std::string_view key, bool required) {
  const Json* const value = Find(key);
  if (value == nullptr && required) Wrong(key, "falta");
  return value;
}

std::string Part::CheckedText(const Json& value, const std::string& pointer, const TextRule& rule) {
  const auto wrong = [&](std::string message) {
    errors_->push_back({pointer, std::move(message)});
    return std::string();
  };
  if (!value.is_string()) return wrong("se espera un texto");
  auto text = value.get<std::string>();
  const auto foreign = ForeignLetter(text, rule.respells);
  if (!foreign.empty()) {
    const bool control = static_cast<unsigned char>(foreign[0]) < ' ' || foreign == "\x7F";
    return wrong(control ? "tiene un carácter de control"
                         : "«" + foreign + "» no está entre los caracteres de la impresora");
  }
  const int length = PrintedLength(text);
  if (length > rule.most)
    return wrong("tiene " + Count(length, "carácter", "caracteres") + " y la impresora toma " +
                 std::to_string(rule.most));
  if (rule.required && IsBlank(text)) return wrong("está en blanco");
  return text;
}

std::string Part::Text(std::string_view key, const TextRule& rule) {
  const Json* const value = Required(key, rule.required);
  return value == nullptr ? "" : CheckedText(*value, PointerTo(key), rule);
}

std::vector<std::string> Part::Texts(std::string_view key, std::size_t most, const TextRule& rule) {
  const Json* const value = Find(key);
  if (value == nullptr) return {};
  if (!value->is_array())
    return Wrong(key, "se espera una lista de textos"), std::vector<std::string>();
  if (value->size() > most)
    Wrong(key, "tiene " + std::to_string(value->size()) + " textos y la impresora toma " +
                   std::to_string(most));
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < value->size() && i < most; ++i)
    texts.push_back(CheckedText((*value)[i], PointerTo(key) + "/" + std::to_string(i), rule));
  return texts;
}

void Part::CheckDigits(std::string_view key, const Decimal& value, const AmountRule& rule) {
  if (value.decimals > rule.digits.decimals)
    Wrong(key, "tiene " + Count(value.decimals, "decimal", "decimales") + " y la impresora toma " +
                   std::to_string(rule.digits.decimals));
  if (IntegerDigits(value) > rule.digits.integers)
    Wrong(key, "tiene " + Count(IntegerDigits(value), "cifra entera", "cifras enteras") +
                   " y la impresora toma " + std::to_string(rule.digits.integers));
  if (rule.signless && value.units < 0) Wrong(key, "no puede ser negativo");
  if (rule.above_zero && value.units == 0) Wrong(key, "no puede ser cero");
}

std::optional<Decimal> Part::Amount(std::string_view key, const AmountRule& rule) {
  const Json* const value = Required(key, rule.required);
  if (value == nullptr) return std::nullopt;
  const auto amount = value->is_string() ? ReadDecimal(value->get<std::string>()) : std::nullopt;
  if (!amount) {
    Wrong(key, "se espera un número decimal entre comillas, como \"1234.50\"");
    return std::nullopt;
  }
  const auto before = errors_->size();
  CheckDigits(key, *amount, rule);
  return errors_->size() == before ? amount : std::nullopt;
}

std::optional<std::int64_t> Part::Number(std::string_view key, std::int64_t least,
                                         std::int64_t most, bool required) {
  const Json* const value = Required(key, required);
  if (value == nullptr) return std::nullopt;
  const bool is_number = value->is_number_integer();
  const std::int64_t number = is_number ? value->get<std::int64_t>() : 0;
  if (is_number && number >= least && number <= most) return number;
  Wrong(key, "se espera un número de " + std::to_string(least) + " a " + std::to_string(most));
  return std::nullopt;
}

bool Part::Flag(std::string_view key) {
  const Json* const value = Find(key);
  if (value == nullptr) return false;
  if (!value->is_boolean()) Wrong(key, "se espera true o false");
  return value->is_boolean() && value->get<bool>();
}

Part Part::Object(std::string_view key) {
  const Json* const value = Find(key);
  return {value == nullptr ? kNothing : *value, PointerTo(key), *errors_};
}

std::vector<Part> Part::List(std::string_view key, std::size_t least, std::size_t most) {
  const Json* const value = Required(key, least > 0);
  std::vector<Part> parts;
  if (value == nullptr) return parts;
  if (!value->is_array()) return Wrong(key, "se espera una lista"), parts;
  if (value->size() < least) Wrong(key, "está vacía");
  if (value->size() > most) Wrong(key, "tiene más de " + std::to_string(most) + " elementos");
  for (std::size_t i = 0; i < value->size() && i < most; ++i)
    parts.emplace_back((*value)[i], PointerTo(key) + "/" + std::to_string(i), *errors_);
  return parts;
}

void Part::NoteUnknown() {
  for (const auto& [key, value] : object_->items())
    if (!asked_.contains(key)) Wrong(key, "no se conoce esta clave");
}

}  // namespace puerta
