#include "protocol/answer.hpp"

#include "protocol/control_bytes.hpp"

namespace kestra {

std::string SiguienteCampo(std::string& answers) {
  const auto separator = answers.find(kFs);
  const auto from = separator == std::string::npos ? 0 : separator + 1;
  auto to = answers.find(kFs, from);
  if (to == std::string::npos) to = answers.find(kEtx, from);
  if (to == std::string::npos) return {};
  auto field = answers.substr(from, to - from);
  answers.erase(0, to);  // the separator stays: the next field begins at it
  return field;
}

Fields CutFields(std::string& answers) {
  Fields fields;
  for (auto& field : fields) field = SiguienteCampo(answers);
  return fields;
}

std::string ListingText(const Fields& fields) {
  std::string text = "Respuestas al ultimo comando: ";
  text.append(2, kCr);
  for (std::size_t k = 0; k < fields.size(); ++k) {
    if (k != 0) text += kCr;
    text.append("Respuesta_").append(std::to_string(k + 1)).append(": ").append(fields[k]);
  }
  return text;
}

}  // namespace kestra
