#pragma once

#include <memory>
#include <string>
#include <vector>

#include "line/session.hpp"
#include "program/options.hpp"

namespace impresora {

// Something that puts down what happens.
class Sink : public Observer {
 public:
  // Nothing more will come.
  virtual void Finish() {}
};

using Sinks = std::vector<std::unique_ptr<Sink>>;

// Those that the options ask for. Throws std::exception when a file cannot be had.
Sinks MakeSinks(const Options& options, const Printer& printer);

// On the side of what the program puts out.
void TellPerson(const std::string& words);

// Counts the documents that came to their end, fiscal or not.
class DocumentCount : public Observer {
 public:
  void Closed(const Receipt& receipt) override {
    if (receipt.receipt_class != ReceiptClass::kReport && !receipt.cancelled) ++count_;
  }
  unsigned Count() const { return count_; }

 private:
  unsigned count_ = 0;
};

}  // namespace impresora
