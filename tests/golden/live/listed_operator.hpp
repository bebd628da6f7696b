#pragma once

#include "fakes/fake_operator.hpp"
#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"

namespace kestra::live {

// The operator who follows a list, sitting before the built library. What the library asked and told
// stands in the journal.
class ListedOperator {
 public:
  ListedOperator();
  ListedOperator(const ListedOperator&) = delete;
  ListedOperator& operator=(const ListedOperator&) = delete;
  ~ListedOperator();

  FakeOperator& Person() { return person_; }
  Journal& Seen() { return journal_; }

 private:
  Journal journal_;
  Trouble trouble_;
  FakeOperator person_{journal_, trouble_};
};

}  // namespace kestra::live
