#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/crashes/mortal_platform.hpp"

namespace kestra::crashes {

using Words = std::vector<std::string>;

// What the library said of a call.
struct Told {
  std::int32_t result = 0;
  std::int32_t outcome = 0;
  std::int32_t cause = 0;
  std::vector<std::string> buffers;
};

// A printer and a disk, and one host after the other.
class Shop {
 public:
  Shop(const line_faults::CanonicalDocument& document, line_faults::Mode mode,
       std::span<const line_faults::ByteFault> faults = {});
  ~Shop();
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;

  // The host that was there, if any, is no more; another one begins, to live so long.
  void Start(std::size_t death = kNever);
  Told Call(std::string_view words);

  // What the new host is told: Kestra_Pendiente with the call's name, and Kestra_Resolver with its number.
  std::int32_t Pending(std::string& call);
  std::int32_t Resolve(std::string& number);

  [[nodiscard]] Life& Host() const { return *life_; }
  [[nodiscard]] LineWorld& World() { return *world_; }

  // What the printer has carried out that changed it, as its frames had it, from that exchange on. Waits for it
  // to finish.
  Words DeedsFrom(std::size_t exchange);
  [[nodiscard]] std::size_t Exchanges() const { return world_->Exchanges().size(); }

  // What the printer has printed, but for its note that the power had gone.
  [[nodiscard]] Words Paper() const;

  [[nodiscard]] Words Totals() const;

  // Damage that no sum shows: a command that no host wrote was carried out, an answer was taken that the printer
  // had not given so.
  [[nodiscard]] bool DidWhatNobodyWrote() const;
  [[nodiscard]] Words DamagedAnswers() const;

  // As a person reads the journal: its last whole line, and how many results there are, in old files too.
  [[nodiscard]] std::string LastRecord();
  [[nodiscard]] std::size_t Results();

 private:
  std::unique_ptr<LineWorld> world_;
  std::unique_ptr<Life> life_;
};

inline constexpr std::string_view kJournalName = "diario.txt";

}  // namespace kestra::crashes
