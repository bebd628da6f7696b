// The tills' keys and what each may do.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace puerta {

enum Right : unsigned { kNobody = 0, kRead = 1, kSell = 2, kClose = 4, kAll = 7 };

std::string_view WordsOf(Right right);
Right RightOf(std::string_view words);  // kNobody for words that are none

struct Till {
  std::string name = {};
  unsigned rights = kNobody;
};

struct TillSettings {
  std::string name;
  std::string key_hash;  // SHA-256 of the key, hexadecimal
  unsigned rights = kNobody;
};

class KeyRing {
 public:
  // Without any key whoever reaches the door may do everything: on this machine alone.
  explicit KeyRing(const std::vector<TillSettings>& tills);

  // Of an Authorization field. Null: nobody's.
  const Till* Find(std::string_view authorization) const;
  bool IsOpen() const { return tills_.empty(); }

 private:
  std::unordered_map<std::string, Till> tills_;  // by the hash: a lookup tells nothing of a key
  Till anybody_{.name = "", .rights = kAll};
};

}  // namespace puerta
