// What happens, as server-sent events.
#pragma once

#include <cstdint>
#include <string>

#include "base/clock.hpp"
#include "http/message.hpp"
#include "store/store.hpp"

namespace puerta {

class News : public Stream {
 public:
  // Those behind number `after`, of one printer unless it is "". `asked` says that a listener comes back.
  News(Store& store, const Clock& clock, std::int64_t after, bool asked, std::string printer);

  std::string Take() override;

 private:
  std::string Gap(std::int64_t next);

  Store& store_;
  const Clock& clock_;
  std::int64_t last_;
  bool asked_;
  std::string printer_;
};

}  // namespace puerta
