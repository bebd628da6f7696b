// A request and its answer, as values.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/problem.hpp"

namespace puerta {

struct HttpRequest {
  std::string method = {};
  std::string path = {};
  std::string query = {};
  std::map<std::string, std::string> fields = {};  // by their names in small letters
  std::string body = {};
  std::string peer = {};  // whose address it came from
  bool keep_alive = false;

  std::string Field(const std::string& name) const;
  std::string Query(std::string_view name) const;  // percent-decoded, "" where it is missing
};

// News that come as they happen.
class Stream {
 public:
  Stream() = default;
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  virtual ~Stream() = default;

  virtual std::string Take() = 0;  // what there is to say by now
};

struct Answer {
  int status = 200;
  std::string type = "application/json";
  std::string body = {};
  std::vector<std::pair<std::string, std::string>> fields = {};
  std::shared_ptr<Stream> stream = nullptr;
};

using Respond = std::function<void(Answer)>;

Answer JsonAnswer(int status, const Json& body);
Answer ProblemAnswer(const Problem& problem);

}  // namespace puerta
