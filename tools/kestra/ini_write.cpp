#include "ini_write.hpp"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>

#include "key_words.hpp"

namespace kestra::tool {
namespace {

using Values = std::map<std::string_view, std::string>;

// What the printer tells, over what is usual.
void TakeFromPrinter(Values& values, const ModelData& data) {
  values["TipoComprobante"] = data.family;
  values["ModeloNombre"] = data.model;
  for (std::size_t i = 0; i < kDigitKeys.size(); ++i) {
    values[kDigitKeys[i].first] = std::to_string(data.digits[i].first);
    values[kDigitKeys[i].second] = std::to_string(data.digits[i].second);
  }
}

int NumberIn(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// No text is wider than the paper.
void FitToPaper(Values& values, int columns) {
  if (columns <= 0) return;
  for (const auto& words : kKeyWords) {
    if (words.reads != Reads::kTickets && words.reads != Reads::kForms) continue;
    values[words.name] = std::to_string(std::min(NumberIn(words.usual), columns));
  }
}

void Add(std::string& text, std::string_view key, std::string_view value) {
  text.append(key).append("=").append(value).append("\n");
}

}  // namespace

std::string NewIniText(const NewSettings& settings) {
  Values values;
  for (const auto& words : kKeyWords) values[words.name] = words.usual;
  values["TipoComprobante"] = settings.family;
  if (settings.printer) TakeFromPrinter(values, *settings.printer);
  FitToPaper(values, settings.printer ? settings.printer->columns : 0);
  if (settings.port) values["ImpresoraPuerto"] = *settings.port;
  if (settings.speed) values["ImpresoraConfig"] = *settings.speed;
  std::string text = "[Epson_Fiscal]\n";
  for (const auto& words : kKeyWords) {
    Add(text, words.name, values[words.name]);
    if (words.name == "ImpresoraConfig" && settings.device) {
      Add(text, kDeviceWords.name, *settings.device);
    }
  }
  text += "\n";
  Add(text, "ModoSeguro", "1");
  Add(text, "Diario", "diario.txt");
  if (settings.repeats) Add(text, "ReconoceRepetidas", *settings.repeats ? "1" : "0");
  return text;
}

}  // namespace kestra::tool
