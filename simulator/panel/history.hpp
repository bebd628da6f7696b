#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "fiscal/journal.hpp"
#include "line/session.hpp"
#include "machine/roll.hpp"
#include "panel/feed.hpp"

namespace impresora {

// A finished document and the paper that it left.
struct KeptDocument {
  Receipt receipt;
  std::vector<PaperLine> paper;
};

struct Counters {
  std::uint64_t commands = 0;
  std::uint64_t repeated = 0;
  std::uint64_t damaged = 0;
  std::uint64_t refused = 0;  // carried out with an error bit in its answer
  std::uint64_t faulty = 0;   // touched by a fault
  std::uint64_t documents = 0;
  std::uint64_t cancelled = 0;
  std::uint64_t lines = 0;
};

// What a session did lately, of bounded size whatever it did. It lives on the session's thread;
// the feed carries everything on from there.
class History : public Observer {
 public:
  explicit History(Feed& feed) : feed_(feed) {}

  void Resumed(const std::vector<PaperLine>& paper) override;
  void Exchanged(const Exchange& exchange) override;
  void Printed(const PaperLine& line) override;
  void Closed(const Receipt& receipt) override;
  void Changed() override { feed_.StateChanged(); }

  struct KeptExchange {
    unsigned number;
    std::string json;
    std::string text;
  };
  const std::deque<KeptExchange>& Exchanges() const { return exchanges_; }
  const std::deque<KeptDocument>& Documents() const { return documents_; }
  const std::deque<PaperLine>& Roll() const { return roll_; }
  const Counters& GetCounters() const { return counters_; }

  // The one of that ordinal, or null; 0 is the last.
  const KeptDocument* FindDocument(unsigned ordinal) const;

  // The paper is torn off: what is on the roll goes, what was kept of documents stays.
  void TearOff();

 private:
  void TakeLine(const PaperLine& line);

  Feed& feed_;
  std::deque<KeptExchange> exchanges_;
  std::deque<KeptDocument> documents_;
  std::deque<PaperLine> roll_;
  std::vector<PaperLine> open_paper_;  // of the document that is being printed
  Counters counters_;
};

}  // namespace impresora
