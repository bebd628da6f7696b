#include "http/reader.hpp"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/status.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <utility>

namespace puerta {
namespace {

namespace http = boost::beast::http;

struct Row {
  int status;
  const char* kind;
  const char* title;
  const char* detail;
};

// The first one is for whatever is not worth words of its own.
constexpr std::array<Row, 3> kRefusals{{
    {400, "pedido-mal-hecho", "Pedido mal hecho",
     "No es un pedido de HTTP/1.1 que se entienda de una sola manera."},
    {413, "demasiado-grande", "Demasiado grande", "El pedido pasa el tamaño permitido."},
    {431, "encabezado-grande", "Encabezado demasiado grande",
     "El encabezado del pedido pasa los 16 KiB."},
}};

struct Field {
  std::string_view name, value;
};

// Of every answer.
constexpr std::array<Field, 5> kFields{{
    {"X-Content-Type-Options", "nosniff"},
    {"Cache-Control", "no-store"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"X-Frame-Options", "DENY"},
}};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return lower;
}

std::string Text(boost::beast::string_view text) {
  return {text.data(), text.size()};
}

}  // namespace

class RequestReader::Parser : public http::request_parser<http::string_body> {};

RequestReader::RequestReader(std::size_t largest_body) : parser_(std::make_unique<Parser>()) {
  parser_->header_limit(kLargestHead);
  parser_->body_limit(largest_body);
  parser_->eager(true);
}

RequestReader::~RequestReader() = default;

bool RequestReader::HasBegun() const {
  return !waiting_.empty() || parser_->got_some();
}

RequestReader::State RequestReader::Feed(std::string_view bytes) {
  waiting_ += bytes;
  const auto state = Parse();
  if (state == State::kWhole && IsAmbiguous()) {
    status_ = 400;
    return State::kBad;
  }
  return state;
}

RequestReader::State RequestReader::Parse() {
  while (!parser_->is_done() && !waiting_.empty()) {
    boost::system::error_code error;
    const auto read = parser_->put(boost::asio::buffer(waiting_.data(), waiting_.size()), error);
    waiting_.erase(0, read);
    if (error == http::error::need_more) {
      if (waiting_.size() <= kLargestHead) return State::kMore;
      error = http::error::header_limit;
    }
    if (!error) continue;
    status_ = error == http::error::body_limit     ? 413
              : error == http::error::header_limit ? 431
                                                   : 400;
    return State::kBad;
  }
  return parser_->is_done() ? State::kWhole : State::kMore;
}

// What two readers could understand in two ways: a field that may be there once only, twice.
bool RequestReader::IsAmbiguous() const {
  const auto& message = parser_->get();
  for (const auto* name : {"Host", "Authorization", "Idempotency-Key", "Origin", "Content-Type",
                           "Content-Length", "Transfer-Encoding", "Last-Event-ID"}) {
    if (message.count(name) > 1) return true;
  }
  const auto target = Text(message.target());
  const bool plain =
      std::all_of(target.begin(), target.end(), [](char c) { return c > ' ' && c != '\x7f'; });
  return !plain || target.empty() || target.front() != '/';
}

HttpRequest RequestReader::Take() {
  auto& message = parser_->get();
  const auto target = Text(message.target());
  const auto question = std::min(target.find('?'), target.size());
  HttpRequest request{.method = Text(message.method_string()),
                      .path = target.substr(0, question),
                      .query = target.substr(std::min(question + 1, target.size())),
                      .body = std::move(message.body()),
                      .keep_alive = message.keep_alive()};
  for (const auto& field : message) {
    request.fields[Lower(Text(field.name_string()))] = Text(field.value());
  }
  return request;
}

Problem RequestReader::Refusal() const {
  const auto* row = std::find_if(kRefusals.begin(), kRefusals.end(),
                                 [this](const Row& known) { return known.status == status_; });
  if (row == kRefusals.end()) row = kRefusals.begin();
  return {.status = row->status, .kind = row->kind, .title = row->title, .detail = row->detail};
}

std::string ToBytes(const Answer& answer, bool keep_alive, bool without_body) {
  const auto reason = http::obsolete_reason(static_cast<http::status>(answer.status));
  std::string bytes = "HTTP/1.1 " + std::to_string(answer.status) + " " + Text(reason) + "\r\n";
  const auto add = [&bytes](std::string_view name, std::string_view value) {
    bytes.append(name).append(": ").append(value).append("\r\n");
  };
  for (const auto& field : kFields) add(field.name, field.value);
  for (const auto& [name, value] : answer.fields) add(name, value);
  if (answer.status != 204) {
    add("Content-Type", answer.type);
    if (answer.stream) {
      add("Transfer-Encoding", "chunked");
    } else {
      add("Content-Length", std::to_string(answer.body.size()));
    }
  }
  add("Connection", keep_alive ? "keep-alive" : "close");
  bytes += "\r\n";
  if (!without_body && !answer.stream && answer.status != 204) bytes += answer.body;
  return bytes;
}

std::string ToChunk(std::string_view text) {
  std::string size;
  for (auto rest = text.size(); rest > 0; rest >>= 4)
    size.insert(0, 1, "0123456789abcdef"[rest & 15]);
  return (size.empty() ? "0" : size) + "\r\n" + std::string(text) + "\r\n";
}

}  // namespace puerta
