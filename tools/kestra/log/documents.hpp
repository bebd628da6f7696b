#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "log/entry.hpp"

namespace kestra::tool {

// Tells each entry of its document. The number is known when the document is closed, so that the entries of an open
// one are kept until then, but no more of them than a document has.
class DocumentTracker {
 public:
  using Take = std::function<void(Entry entry)>;

  explicit DocumentTracker(Take take) : take_(std::move(take)) {}

  void Add(Entry entry);

  // Hands over what is there; a document that is open stays so.
  void Rest();

  [[nodiscard]] unsigned Count() const { return count_; }

 private:
  void HandOver();

  Take take_;
  unsigned count_ = 0;
  std::optional<DocumentName> open_;
  std::vector<Entry> kept_;
};

}  // namespace kestra::tool
