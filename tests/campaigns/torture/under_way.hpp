#pragma once

#include <string>

namespace kestra::torture {

// Tells what was being tried when the process comes to a bad end, or when a run does not end at all.
class UnderWay {
 public:
  UnderWay(const std::string& played, const std::string& strike);
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;
  ~UnderWay();

  // To be called once, before the first of them.
  static void WatchForTheEnd();
};

}  // namespace kestra::torture
