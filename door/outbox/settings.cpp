#include "outbox/settings.hpp"

#include <algorithm>
#include <array>
#include <functional>

namespace puerta {
namespace {

constexpr std::string_view kNameCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";

// A level of a topic: what would part it, or match more than itself, is not for names.
bool IsName(std::string_view text) {
  return !text.empty() && text.size() <= 64 &&
         text.find_first_not_of(kNameCharacters) == std::string_view::npos;
}

struct TextRow {
  std::string_view key;
  std::string OutboxSettings::*place;
  bool is_name;
  bool needed;
};

constexpr std::array<TextRow, 6> kTexts{{
    {"servidor", &OutboxSettings::host, false, true},
    {"prefijo", &OutboxSettings::prefix, true, false},
    {"local", &OutboxSettings::shop, true, true},
    {"identificacion", &OutboxSettings::client_id, true, false},
    {"usuario", &OutboxSettings::user, false, false},
    {"clave_archivo", &OutboxSettings::password_file, false, false},
}};

constexpr std::array<TextRow, 3> kTlsTexts{{
    {"autoridad", &OutboxSettings::authority_file, false, false},
    {"certificado", &OutboxSettings::certificate_file, false, false},
    {"clave", &OutboxSettings::key_file, false, false},
}};

constexpr std::string_view kLetters = "usa letras, cifras, punto, guion y guion bajo, 64 a lo sumo";

class Reader {
 public:
  Reader(const Json& json, std::string at, std::vector<FieldError>& errors)
      : json_(json), at_(std::move(at)), errors_(errors) {}

  void Read(const TextRow& row, OutboxSettings& settings) {
    const auto found = json_.find(row.key);
    if (found == json_.end()) {
      if (row.needed) Wrong(row.key, "falta");
      return;
    }
    const bool text = found->is_string() && !found->get_ref<const std::string&>().empty();
    if (!text) return Wrong(row.key, "tiene que ser un texto");
    settings.*row.place = found->get<std::string>();
    if (row.is_name && !IsName(settings.*row.place)) Wrong(row.key, kLetters);
  }

  void ReadPort(OutboxSettings& settings) {
    const auto found = json_.find("puerto");
    if (found == json_.end()) return;
    const int port = found->is_number_integer() ? found->get<int>() : 0;
    if (port < 1 || port > 65535) return Wrong("puerto", "tiene que ser un número de 1 a 65535");
    settings.port = port;
  }

  void ReadSwitch(std::string_view key, bool& place) {
    const auto found = json_.find(key);
    if (found == json_.end()) return;
    if (!found->is_boolean()) return Wrong(key, "tiene que ser true o false");
    place = found->get<bool>();
  }

  template <class Keys>
  void RefuseOthers(const Keys& keys) {
    for (const auto& [name, value] : json_.items()) {
      if (std::ranges::find(keys, name) == keys.end()) Wrong(name, "no se conoce esta clave");
    }
  }

  void Wrong(std::string_view key, std::string_view message) {
    errors_.push_back({at_ + "/" + std::string(key), std::string(message)});
  }

 private:
  const Json& json_;
  std::string at_;
  std::vector<FieldError>& errors_;
};

void ReadTls(const Json& json, const std::string& at, OutboxSettings& settings,
             std::vector<FieldError>& errors) {
  settings.tls = true;
  if (settings.port == 1883 && !json.contains("puerto")) settings.port = 8883;
  const Json& tls = json.at("tls");
  if (tls.is_boolean()) return void(settings.tls = tls.get<bool>());
  Reader reader(tls, at + "/tls", errors);
  if (!tls.is_object()) {
    return errors.push_back({at + "/tls", "tiene que ser true, false o un objeto"});
  }
  for (const TextRow& row : kTlsTexts) reader.Read(row, settings);
  reader.RefuseOthers(std::array<std::string_view, 3>{"autoridad", "certificado", "clave"});
  if (settings.certificate_file.empty() != settings.key_file.empty()) {
    reader.Wrong("certificado", "certificado y clave van juntos");
  }
}

}  // namespace

OutboxSettings ReadOutboxSettings(const Json& json, std::string_view at,
                                  std::vector<FieldError>& errors) {
  OutboxSettings settings;
  const std::string where(at);
  if (!json.is_object()) {
    errors.push_back({where, "tiene que ser un objeto"});
    return settings;
  }
  Reader reader(json, where, errors);
  for (const TextRow& row : kTexts) reader.Read(row, settings);
  reader.ReadPort(settings);
  reader.ReadSwitch("espera_destinatario", settings.waits_for_listener);
  reader.ReadSwitch("espera_acuse", settings.waits_for_receipt);
  if (json.contains("tls")) ReadTls(json, where, settings, errors);
  reader.RefuseOthers(std::array<std::string_view, 10>{
      "servidor", "puerto", "prefijo", "local", "identificacion", "usuario", "clave_archivo", "tls",
      "espera_destinatario", "espera_acuse"});
  return settings;
}

}  // namespace puerta
