#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "state/causes.hpp"

namespace kestra {

// What became of a call, or of one frame of it: the numbers of Kestra_Desenlace.
enum class Outcome : std::int32_t {
  kNothingAsked = 0,  // of the printer
  kDone = 1,
  kRefused = 2,  // by the printer
  kNotSent = 3,
  kUnknown = 4,
  kInPart = 5,   // some of its frames
  kNotDone = 6,  // it may have been sent; the books say that it was not carried out
};

// The keys of Fiscal.ini beside the 52 that every installation has. Without them nothing changes.
struct SafeSettings {
  std::int32_t ModoSeguro = 0;
  std::int32_t ReconoceRepetidas =
      0;                              // the printer answers a repeated frame without doing it again
  std::int32_t PacienciaSegura = 20;  // seconds
  std::int32_t ControlarTotal = 0;
  std::string Diario;  // the journal's file; empty: none
  std::int32_t DiarioDias = 30;
  std::int32_t DiarioObligatorio = 1;  // without a journal nothing is opened
  std::int32_t LogMaximo = 0;          // bytes; 0: no limit
  std::int32_t EsperaPuerto = 0;       // seconds that a port in use is waited for
};

// What became of one frame, all its sendings together.
struct Verdict {
  Outcome outcome = Outcome::kNothingAsked;
  Cause cause = Cause::kNone;
};

// Does a frame have the printer do something, or only tell something?
enum class Errand { kCommand, kQuestion };

constexpr std::size_t kOutcomes = 7;

// Which outcomes the frames of a call have had, and the first cause of each.
struct Tally {
  std::array<bool, kOutcomes> met{};
  std::array<Cause, kOutcomes> causes{};
};

constexpr std::size_t kReportedFields = 15;

// The last call, as its host may ask about it. What it says is noted by way of state/report.hpp.
struct CallReport {
  std::string call;  // with its arguments, as the operator would be asked about it
  Outcome outcome = Outcome::kNothingAsked;
  Cause cause = Cause::kNone;
  std::int32_t attempts = 0;  // frames sent
  // The two status words and the data fields of its last answer.
  std::array<std::string, kReportedFields> answer;

  bool named = false;  // `call` has its arguments
  Tally commands;      // of the frames that are over
  Tally questions;
  // The frame under way, as if it ended now.
  std::optional<Verdict> so_far;
  Errand errand = Errand::kCommand;
  Cause aside = Cause::kNone;  // met without changing the outcome
  bool reported = false;       // the operator has seen the status report
};

// An amount in hundredths, known to within `slack` of them.
struct Amount {
  std::int64_t cents = 0;
  std::int64_t slack = 0;
};

constexpr std::size_t kCounters = 11;  // of the printer's numbering

// What the printer has accepted, as far as the driver knows: the baseline for reading the printer's books.
// What nobody has told it is not there.
struct Ledger {
  std::optional<bool> open;  // a document; as the last answer said
  // The open document's letter of its kind, for one without the byte that opens it; 0 when not known.
  char kind = '\0';
  char letter = '\0';
  std::optional<std::int64_t> lines;
  std::optional<std::int64_t> paid;  // hundredths
  std::optional<std::int64_t> perceptions;
  std::optional<Amount> total;
  bool total_differs = false;  // from the printer's: its closing was refused
  // Of what was sold at prices without IVA: what a correction there comes to with it.
  std::optional<std::int64_t> net;
  std::optional<std::int64_t> iva;
  std::array<std::optional<std::int64_t>, kCounters>
      counters;                  // in the order of the printer's answer
  bool something_today = false;  // has been done since the last daily closing
};

// A moment as the clock's Elapsed that does not come.
constexpr double kNever = std::numeric_limits<double>::infinity();

// A command that may have been carried out, and that no later call may pass before the books have told.
struct Pending {
  std::string call;
  std::string command;
  std::vector<std::string> accepted;  // commands of the same call that came before it and were done
  Ledger before;
  double sent = kNever;  // so when another program did it, and nothing tells how long ago
};

// A command that was pending and is no more. Its call may be made again, as long as no command of another one
// has gone out.
struct Settled {
  std::string call;
  std::vector<std::string> done;  // of the call's commands
  std::string command;            // the one that was pending
  Verdict verdict;
  std::array<std::string, kReportedFields> answer;  // what that one's own would have been
  std::size_t taken = 0;  // of `done`, by the call under way: they are not sent again
  bool told = false;      // to the same call, that nobody knows
};

// How the journal stands. Written by state/journal.cpp alone.
struct JournalState {
  std::string printer;           // whose it is
  std::string file;              // as Diario named it
  Cause trouble = Cause::kNone;  // why the one that is asked for is not kept
  std::int64_t newest = 0;       // intent's number
  std::int64_t unsettled = 0;    // intent without a result; 0: none
  bool closes_day = false;       // that intent does
  std::size_t length = 0;        // of the file's records that count
  std::size_t last = 0;          // where the last of them begins; `length`: it is none to be marked
  bool torn = false;             // more may stand behind them
  std::string owed;              // records that could not be written when it was their time
};

// All that the driver keeps to know what became of its commands.
struct Certainty {
  SafeSettings settings;
  CallReport report;
  Ledger ledger;
  // Set before a frame is written: a call that is left in its middle leaves it behind.
  std::optional<Pending> pending;
  JournalState journal;
  // The last command may still lie on the line: nothing goes out before the printer answers a question.
  bool unheard = false;
  std::vector<std::string> accepted;  // commands of the call under way that are done
  double patience_ends =
      kNever;                  // of that call; from the first thing that goes wrong there is an end
  std::string settled_number;  // of the document whose closing Kestra_Resolver found to be done
  std::optional<Settled> settled;
};

}  // namespace kestra
