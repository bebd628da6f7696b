// The library as the worker calls it: its texts in UTF-8, what became of a call as a value.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "sale/calls.hpp"
#include "worker/fate.hpp"
#include "worker/states.hpp"

namespace puerta {

struct Report {
  int outcome = 0;  // a number of KestraDesenlace
  int cause = 0;    // of KestraCausa
  std::string text = {};
  std::string number = {};  // that a closing has given
};

// What the library would have shown in a box.
using Notice = std::function<void(const std::string& text, bool question)>;

class Library {
 public:
  explicit Library(Notice notice);
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // Reads Fiscal.ini and the journal, when that has not gone well yet; what is wrong otherwise.
  Report Start();

  Report Make(const Call& call);
  Report Ask();      // the status, with the counters
  Report Resolve();  // what is pending
  bool IsPending();  // also while nobody knows

  // As the last answer told.
  Heard Listen() const;
  Counters ReadCounters() const;
  std::string Answer(int field) const;
  bool IsFirstAttempt() const;
  bool IsOpen();  // a document; asks when nobody has told

 private:
  Notice notice_;
  bool started_ = false;
};

}  // namespace puerta
