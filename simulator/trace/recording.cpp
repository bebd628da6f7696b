#include "trace/recording.hpp"

#include <fstream>
#include <istream>
#include <nlohmann/json.hpp>
#include <utility>

#include "text/path.hpp"
#include "trace/exchange_text.hpp"

namespace impresora {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;
constexpr const char* kVersionKey = "grabacion";

std::string OneLine(const Json& object) {
  return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

int Digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string BytesOf(std::string_view hex) {
  std::string bytes;
  while (!hex.empty()) {
    if (hex.front() == ' ') {
      hex.remove_prefix(1);
      continue;
    }
    const int high = Digit(hex[0]);
    const int low = hex.size() > 1 ? Digit(hex[1]) : -1;
    if (high < 0 || low < 0) throw RecordingFailure("bytes que no son pares hexadecimales");
    bytes += static_cast<char>(high * 16 + low);
    hex.remove_prefix(2);
  }
  return bytes;
}

Json ParseLine(const std::string& line) {
  Json object = Json::parse(line, nullptr, false);
  if (!object.is_object()) throw RecordingFailure("no es un objeto JSON");
  return object;
}

template <typename Value>
Value Member(const Json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end()) throw RecordingFailure(std::string("falta «") + key + "»");
  try {
    return found->template get<Value>();
  } catch (const Json::exception&) {
    throw RecordingFailure(std::string("«") + key + "» no es lo que debe ser");
  }
}

void CheckHead(const Json& object) {
  if (Member<int>(object, kVersionKey) != kVersion) {
    throw RecordingFailure("es una grabación de otra versión");
  }
}

RecordedExchange ExchangeOf(const Json& object) {
  return {.number = Member<unsigned>(object, "numero"),
          .received = Micros(Member<std::int64_t>(object, "recibido_us")),
          .answered = Micros(Member<std::int64_t>(object, "respondido_us")),
          .busy = Member<unsigned>(object, "ocupado"),
          .host = BytesOf(Member<std::string>(object, "anfitrion")),
          .printer = BytesOf(Member<std::string>(object, "impresora"))};
}

}  // namespace

Recording ReadRecording(std::istream& text) {
  Recording recording;
  unsigned number = 0;
  std::string line;
  try {
    while (std::getline(text, line)) {
      ++number;
      const Json object = ParseLine(line);
      if (number == 1) {
        CheckHead(object);
      } else {
        recording.push_back(ExchangeOf(object));
      }
    }
  } catch (const RecordingFailure& failure) {
    throw RecordingFailure("línea " + std::to_string(number) + ": " + failure.what());
  }
  if (number == 0) throw RecordingFailure("está vacía");
  return recording;
}

Recording ReadRecordingFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file) throw RecordingFailure(NameOf(path) + ": no se puede abrir");
  try {
    return ReadRecording(file);
  } catch (const RecordingFailure& failure) {
    throw RecordingFailure(NameOf(path) + ": " + failure.what());
  }
}

Recorder::Recorder(const Settings& settings, Sink sink) : sink_(std::move(sink)) {
  sink_(OneLine({{kVersionKey, kVersion},
                 {"modelo", settings.model},
                 {"columnas", settings.PaperColumns()},
                 {"punto_de_venta", settings.point_of_sale}}));
}

void Recorder::Exchanged(const Exchange& exchange) {
  if (!began_) began_ = exchange.received_at;
  sink_(OneLine({{"numero", exchange.number},
                 {"recibido_us", (exchange.received_at - *began_).count()},
                 {"respondido_us", (exchange.answered_at - *began_).count()},
                 {"ocupado", exchange.busy_bytes},
                 {"anfitrion", HexBytes(exchange.raw_command)},
                 {"impresora", HexBytes(exchange.raw_answer)},
                 {"texto", Describe(exchange)}}));
}

}  // namespace impresora
