#include "program/configuration.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <set>
#include <span>
#include <sstream>
#include <utility>

#include "base/sha256.hpp"

namespace puerta {
namespace {

constexpr std::size_t kLongestId = 32;
constexpr std::size_t kShortestKey = 16;

// What is being read, and what was wrong with it so far.
class Reader {
 public:
  Reader(const std::filesystem::path& base, ReadConfiguration& result)
      : base_(base), errors_(result.errors), made_(result.configuration) {}

  void Read(const Json& json);

 private:
  using Taker = void (Reader::*)(const Json& value, const std::string& at);
  struct Key {
    const char* name;
    Taker take;
  };

  void Wrong(const std::string& at, const std::string& message) {
    errors_.push_back({at, message});
  }
  void Members(const Json& json, const std::string& at, std::span<const Key> keys);
  std::string Text(const Json& value, const std::string& at);
  std::int64_t Number(const Json& value, const std::string& at, std::int64_t least,
                      std::int64_t most);
  std::filesystem::path Folder(const Json& value, const std::string& at);
  std::vector<std::string> Texts(const Json& value, const std::string& at);

  void Listen(const Json& value, const std::string& at);
  void Tls(const Json& value, const std::string& at);
  void WithoutTls(const Json& value, const std::string& at);
  void Tills(const Json& value, const std::string& at);
  void OneTill(const Json& value, const std::string& at);
  void Printers(const Json& value, const std::string& at);
  void OnePrinter(const Json& value, const std::string& at);
  void Limits(const Json& value, const std::string& at);
  void Broker(const Json& value, const std::string&) { made_.broker = value; }

  void Address(const Json& value, const std::string& at) { made_.address = Text(value, at); }
  void Port(const Json& value, const std::string& at) {
    made_.port = static_cast<int>(Number(value, at, 0, 65535));
  }
  void Data(const Json& value, const std::string& at) { made_.data = Folder(value, at); }
  void Names(const Json& value, const std::string& at) { made_.names = Texts(value, at); }
  void Origins(const Json& value, const std::string& at) { made_.origins = Texts(value, at); }
  void WebTill(const Json& value, const std::string& at) { made_.web_till = Folder(value, at); }
  void Wait(const Json& value, const std::string& at) {
    made_.wait = std::chrono::seconds(Number(value, at, 0, 3600));
  }
  void Certificate(const Json& value, const std::string& at) {
    made_.tls->certificate = Folder(value, at);
  }
  void PrivateKey(const Json& value, const std::string& at) { made_.tls->key = Folder(value, at); }
  void TillName(const Json& value, const std::string& at) { till_.name = Text(value, at); }
  void TillKey(const Json& value, const std::string& at);
  void TillHash(const Json& value, const std::string& at);
  void TillRights(const Json& value, const std::string& at);
  void PrinterId(const Json& value, const std::string& at);
  void PrinterFolder(const Json& value, const std::string& at) {
    printer_.folder = Folder(value, at);
  }
  void Connections(const Json& value, const std::string& at) {
    made_.connections = Size(value, at, 8, 10000);
  }
  void Body(const Json& value, const std::string& at) {
    made_.largest_body = Size(value, at, 1024, 16 << 20);
  }
  void Queue(const Json& value, const std::string& at) {
    made_.most_waiting = Size(value, at, 1, 100000);
  }
  std::size_t Size(const Json& value, const std::string& at, std::int64_t least,
                   std::int64_t most) {
    return static_cast<std::size_t>(Number(value, at, least, most));
  }

  void Together();

  std::filesystem::path base_;
  std::vector<FieldError>& errors_;
  Configuration& made_;
  TillSettings till_;
  std::set<std::string> till_names_, till_keys_;
  PrinterEntry printer_;
};

void Reader::Members(const Json& json, const std::string& at, std::span<const Key> keys) {
  if (!json.is_object()) return Wrong(at, "se espera un objeto");
  for (auto member = json.begin(); member != json.end(); ++member) {
    const auto& name = member.key();
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [&name](const Key& known) { return name == known.name; });
    if (key == keys.end()) {
      Wrong(at + "/" + name, "no hay una clave con ese nombre");
    } else {
      (this->*key->take)(member.value(), at + "/" + name);
    }
  }
}

void Reader::Read(const Json& json) {
  static constexpr std::array<Key, 12> kKeys{{
      {"escuchar", &Reader::Listen},
      {"datos", &Reader::Data},
      {"tls", &Reader::Tls},
      {"sin_tls", &Reader::WithoutTls},
      {"nombres", &Reader::Names},
      {"origenes", &Reader::Origins},
      {"cajas", &Reader::Tills},
      {"impresoras", &Reader::Printers},
      {"espera", &Reader::Wait},
      {"caja_web", &Reader::WebTill},
      {"mqtt", &Reader::Broker},
      {"limites", &Reader::Limits},
  }};
  made_.data = base_ / made_.data;
  Members(json, "", kKeys);
  if (errors_.empty()) Together();
}

std::string Reader::Text(const Json& value, const std::string& at) {
  if (value.is_string() && !value.get_ref<const std::string&>().empty()) return value;
  Wrong(at, "se espera un texto");
  return "";
}

std::int64_t Reader::Number(const Json& value, const std::string& at, std::int64_t least,
                            std::int64_t most) {
  const auto number = value.is_number_integer() ? value.get<std::int64_t>() : least - 1;
  if (number >= least && number <= most) return number;
  Wrong(at, "se espera un número de " + std::to_string(least) + " a " + std::to_string(most));
  return least;
}

std::filesystem::path Reader::Folder(const Json& value, const std::string& at) {
  return base_ / std::filesystem::u8path(Text(value, at));
}

std::vector<std::string> Reader::Texts(const Json& value, const std::string& at) {
  std::vector<std::string> texts;
  if (!value.is_array()) Wrong(at, "se espera una lista de textos");
  for (std::size_t i = 0; value.is_array() && i < value.size(); ++i) {
    texts.push_back(Text(value[i], at + "/" + std::to_string(i)));
  }
  return texts;
}

void Reader::Listen(const Json& value, const std::string& at) {
  static constexpr std::array<Key, 2> kKeys{
      {{"direccion", &Reader::Address}, {"puerto", &Reader::Port}}};
  Members(value, at, kKeys);
}

void Reader::Tls(const Json& value, const std::string& at) {
  static constexpr std::array<Key, 2> kKeys{
      {{"certificado", &Reader::Certificate}, {"clave", &Reader::PrivateKey}}};
  if (value.is_boolean()) {
    if (value.get<bool>()) made_.tls.emplace();
    return;
  }
  made_.tls.emplace();
  Members(value, at, kKeys);
  if (made_.tls->certificate.empty() || made_.tls->key.empty())
    Wrong(at, "faltan certificado y clave");
}

void Reader::WithoutTls(const Json& value, const std::string& at) {
  if (!value.is_boolean()) return Wrong(at, "se espera true o false");
  made_.without_tls = value.get<bool>();
}

void Reader::Tills(const Json& value, const std::string& at) {
  if (!value.is_array()) return Wrong(at, "se espera una lista");
  for (std::size_t i = 0; i < value.size(); ++i) OneTill(value[i], at + "/" + std::to_string(i));
}

void Reader::OneTill(const Json& value, const std::string& at) {
  static constexpr std::array<Key, 4> kKeys{{{"nombre", &Reader::TillName},
                                             {"clave", &Reader::TillKey},
                                             {"clave_sha256", &Reader::TillHash},
                                             {"derechos", &Reader::TillRights}}};
  till_ = {};
  Members(value, at, kKeys);
  if (till_.name.empty()) Wrong(at, "falta nombre");
  if (till_.key_hash.empty()) Wrong(at, "falta clave o clave_sha256");
  const bool fresh =
      till_names_.insert(till_.name).second && till_keys_.insert(till_.key_hash).second;
  if (!fresh) Wrong(at, "otra caja ya tiene ese nombre o esa clave");
  made_.tills.push_back(till_);
}

void Reader::TillKey(const Json& value, const std::string& at) {
  const auto key = Text(value, at);
  if (key.size() < kShortestKey) return Wrong(at, "una clave tiene 16 letras o más");
  till_.key_hash = Sha256(key);
}

void Reader::TillHash(const Json& value, const std::string& at) {
  const auto hash = Text(value, at);
  const bool digits = hash.find_first_not_of("0123456789abcdef") == std::string::npos;
  if (!digits || hash.size() != 64)
    return Wrong(at, "se esperan 64 cifras hexadecimales, en minúsculas");
  till_.key_hash = hash;
}

void Reader::TillRights(const Json& value, const std::string& at) {
  for (const auto& words : Texts(value, at)) {
    const auto right = RightOf(words);
    if (right == kNobody) Wrong(at, "un derecho es leer, vender o cerrar: " + words);
    till_.rights |= right;
  }
}

void Reader::Printers(const Json& value, const std::string& at) {
  if (!value.is_array()) return Wrong(at, "se espera una lista");
  for (std::size_t i = 0; i < value.size(); ++i) OnePrinter(value[i], at + "/" + std::to_string(i));
}

void Reader::PrinterId(const Json& value, const std::string& at) {
  const auto id = Text(value, at);
  const bool known_letters =
      id.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_-") == std::string::npos;
  if (!known_letters || id.size() > kLongestId || id.find_first_of("_-") == 0) {
    return Wrong(at,
                 "un nombre tiene a lo sumo 32 letras minúsculas, cifras, _ y -, y empieza con "
                 "letra o cifra");
  }
  printer_.id = id;
}

void Reader::OnePrinter(const Json& value, const std::string& at) {
  static constexpr std::array<Key, 2> kKeys{
      {{"id", &Reader::PrinterId}, {"carpeta", &Reader::PrinterFolder}}};
  printer_ = {};
  Members(value, at, kKeys);
  if (printer_.id.empty() || printer_.folder.empty()) Wrong(at, "faltan id y carpeta");
  const auto same = [this](const PrinterEntry& known) {
    return known.id == printer_.id || known.folder == printer_.folder;
  };
  if (std::any_of(made_.printers.begin(), made_.printers.end(), same)) {
    Wrong(at, "otra impresora ya tiene ese id o esa carpeta");
  }
  made_.printers.push_back(printer_);
}

void Reader::Limits(const Json& value, const std::string& at) {
  static constexpr std::array<Key, 3> kKeys{{{"conexiones", &Reader::Connections},
                                             {"cuerpo", &Reader::Body},
                                             {"en_cola", &Reader::Queue}}};
  Members(value, at, kKeys);
}

// What each of them may be, and all of them together not.
void Reader::Together() {
  const bool here = made_.address == "127.0.0.1" || made_.address == "::1";
  if (made_.printers.empty()) Wrong("/impresoras", "no hay ninguna");
  if (!here && made_.tills.empty()) Wrong("/cajas", "en una red cada caja tiene su clave");
  if (!here && !made_.tls && !made_.without_tls) {
    Wrong("/tls",
          "en una red hace falta tls; sin él, las claves pasan a la vista de todos: sin_tls lo "
          "permite");
  }
}

}  // namespace

ReadConfiguration ParseConfiguration(const Json& json, const std::filesystem::path& base) {
  ReadConfiguration result;
  Reader(base, result).Read(json);
  return result;
}

ReadConfiguration LoadConfiguration(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::stringstream text;
  text << stream.rdbuf();
  if (!stream) return {.errors = {{"", "no se puede leer " + file.string()}}};
  const auto json = ParseJson(text.str());
  if (!json) return {.errors = {{"", file.string() + " no es JSON"}}};
  return ParseConfiguration(*json, std::filesystem::absolute(file).parent_path());
}

}  // namespace puerta
