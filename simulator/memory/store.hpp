#pragma once

#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

#include "machine/machine.hpp"

namespace impresora {

// The fiscal memory could not be opened, read or written; what() says why, for a person.
class MemoryFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a memory held: the state and the closings.
struct Recall {
  Books books;
  std::vector<DailyClosing> closings;
};

// Where a printer keeps what must outlive it. Every call throws MemoryFailure when it fails.
class Store {
 public:
  virtual ~Store() = default;

  // What was kept, or nothing when the memory is new.
  virtual std::optional<Recall> Load() = 0;

  // Makes everything of one command lasting at once, or nothing of it: the state, the closings (of
  // which only those added since the last call are new) and the documents it finished.
  virtual void Save(const Books& books, std::span<const DailyClosing> closings,
                    std::span<const Receipt> finished) = 0;
};

}  // namespace impresora
