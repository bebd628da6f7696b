// Bytes of a connection to requests, answers to bytes.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/message.hpp"

namespace puerta {

inline constexpr std::size_t kLargestHead = 16 << 10;

// One request, byte by byte as they come. What stands behind it stays with it for the next one.
class RequestReader {
 public:
  enum class State { kMore, kWhole, kBad };

  explicit RequestReader(std::size_t largest_body);
  ~RequestReader();

  State Feed(std::string_view bytes);
  bool HasBegun() const;
  HttpRequest Take();       // of kWhole
  Problem Refusal() const;  // of kBad
  std::string Rest() const { return waiting_; }

 private:
  class Parser;

  State Parse();
  bool IsAmbiguous() const;

  std::unique_ptr<Parser> parser_;
  std::string waiting_;
  int status_ = 0;
};

// The head alone for HEAD, and for a stream, whose pieces follow.
std::string ToBytes(const Answer& answer, bool keep_alive, bool without_body);
std::string ToChunk(std::string_view text);

}  // namespace puerta
