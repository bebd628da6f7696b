#include "faults/rule_reader.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "faults/actions.hpp"
#include "text/text.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

struct Noun {
  std::string_view word;
  Subject subject;
};

constexpr std::array<Noun, 6> kNouns{{
    {"respuesta", Subject::kAnswer},
    {"respuestas", Subject::kAnswer},
    {"comando", Subject::kCommand},
    {"comandos", Subject::kCommand},
    {"renglon", Subject::kLine},
    {"renglones", Subject::kLine},
}};

constexpr unsigned Bits(std::initializer_list<Stage> stages) {
  unsigned bits = 0;
  for (const Stage stage : stages) bits |= static_cast<unsigned>(stage);
  return bits;
}

struct StageName {
  std::string_view word;
  unsigned stages;
};

constexpr unsigned kIdleStage = Bits({Stage::kIdle});
constexpr unsigned kTicketStages = Bits({Stage::kTicketItems, Stage::kTicketPayments});
constexpr unsigned kInvoiceStages =
    Bits({Stage::kInvoiceItems, Stage::kInvoicePayments, Stage::kBetweenSheets});

constexpr std::array<StageName, 8> kStages{{
    {"reposo", kIdleStage},
    {"documento", kAnyStage & ~kIdleStage},
    {"tique", kTicketStages},
    {"factura", kInvoiceStages},
    {"items", Bits({Stage::kTicketItems, Stage::kInvoiceItems})},
    {"pagos", Bits({Stage::kTicketPayments, Stage::kInvoicePayments})},
    {"hojas", Bits({Stage::kBetweenSheets})},
    {"no_fiscal", Bits({Stage::kNonFiscal})},
}};

struct OrdinalWord {
  std::string_view word;
  std::int64_t number;
};

constexpr std::array<OrdinalWord, 8> kOrdinals{{{"primera", 1},
                                                {"primer", 1},
                                                {"primero", 1},
                                                {"segunda", 2},
                                                {"segundo", 2},
                                                {"tercera", 3},
                                                {"tercer", 3},
                                                {"tercero", 3}}};

// What may stand behind the digits of "3ra", "2do", "1º".
constexpr std::array<std::string_view, 17> kOrdinalEndings{"",   "ra", "ro", "er", "da", "do",
                                                           "ta", "to", "ma", "mo", "va", "vo",
                                                           "na", "no", "º",  "ª",  "°"};

constexpr std::array<std::string_view, 4> kArticles{"la", "el", "las", "los"};

template <std::size_t N>
bool Among(std::string_view word, const std::array<std::string_view, N>& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::optional<std::int64_t> Ordinal(std::string_view folded) {
  for (const OrdinalWord& row : kOrdinals) {
    if (row.word == folded) return row.number;
  }
  const std::size_t digits = std::min(folded.find_first_not_of("0123456789"), folded.size());
  if (!Among(folded.substr(digits), kOrdinalEndings)) return std::nullopt;
  return ReadInteger(folded.substr(0, digits));
}

// Fit for every file and page, whatever stood in the line. Every blank shows as one.
std::string Clean(std::string_view text) {
  std::string clean(text);
  for (const char blank : {'\t', '\r'}) std::replace(clean.begin(), clean.end(), blank, ' ');
  return CleanUtf8(clean);
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kMostColumns = 40;
  const std::string clean = Clean(text);
  const std::string_view cut = CutToColumns(clean, kMostColumns);
  return "«" + std::string(cut) + (cut.size() < clean.size() ? "…»" : "»");
}

constexpr std::string_view kOccasions =
    "cuándo: «siempre», «respuesta 3 de B», «cada 2 comandos», «desde el renglón 40»…";

}  // namespace

void RuleReader::Fail(std::string_view expected) const {
  const RuleWord& here = Here();
  std::string read = here.kind == RuleWord::Kind::kEnd
                         ? "el fin del renglón"
                         : Quoted(line_.substr(here.begin, here.end - here.begin));
  const bool open = here.kind == RuleWord::Kind::kOpenText;
  throw NotExpected{std::move(read), std::string(open ? "el cierre de las comillas" : expected)};
}

bool RuleReader::AtMark(std::string_view mark) const {
  return Here().kind == RuleWord::Kind::kMark && Here().folded == mark;
}

bool RuleReader::AtEndOfAction() const {
  return Here().kind == RuleWord::Kind::kEnd || AtMark(",") || AtMark(";");
}

bool RuleReader::AtSign() const {
  return !Here().folded.empty() && (Here().folded[0] == '+' || Here().folded[0] == '-');
}

bool RuleReader::BeforeWord(std::string_view folded) const {
  return at_ + 1 < words_.size() && words_[at_ + 1].folded == folded;
}

bool RuleReader::Take(std::string_view folded) {
  if (!At(folded)) return false;
  ++at_;
  return true;
}

void RuleReader::Need(std::string_view folded) {
  if (!Take(folded)) Fail("«" + std::string(folded) + "»");
}

FaultRule RuleReader::Read() {
  FaultRule rule;
  ReadSelector();
  Need(":");
  do {
    rule.actions.push_back(ReadAction());
  } while (Take(",") || Take(";"));
  if (Here().kind != RuleWord::Kind::kEnd) Fail("una coma o el fin del renglón");
  rule.selector = selector_;
  rule.text = Clean(line_.substr(words_.front().begin, words_[at_ - 1].end - words_.front().begin));
  return rule;
}

void RuleReader::ReadSelector() {
  Take("en");
  if (!Take("siempre")) ReadOccasion();
  while (!AtMark(":")) ReadSuffix();
}

// "cada 2 respuestas", "desde la respuesta 3", "la 3ra respuesta", "respuesta 3", "respuesta".
void RuleReader::ReadOccasion() {
  const bool every = Take("cada");
  const bool from = !every && Take("desde");
  while (Among(Here().folded, kArticles)) ++at_;
  bool counted = ReadOrdinal();
  const auto* const noun = std::find_if(kNouns.begin(), kNouns.end(),
                                        [this](const Noun& row) { return Take(row.word); });
  if (noun == kNouns.end()) Fail(kOccasions);
  selector_.subject = noun->subject;
  if (!counted) counted = ReadOrdinal();
  if (from && !counted) Fail("un número desde 1");
  if (from) selector_.times = Times::kFrom;
  if (!from && !every && counted) selector_.times = Times::kOnly;
}

bool RuleReader::ReadOrdinal() {
  const auto number = Ordinal(Here().folded);
  if (!number) return false;
  if (*number < 1) Fail("un número desde 1");
  selector_.n = static_cast<std::uint64_t>(*number);
  ++at_;
  return true;
}

void RuleReader::ReadSuffix() {
  if (Take("de")) {
    do {
      ReadCommands();
    } while (Take("o"));
  } else if (Take("en")) {
    ReadStage();
  } else if (Take("con")) {
    ReadChance();
  } else if (Take("hasta")) {
    selector_.most = static_cast<std::uint64_t>(Integer(1, 999'999'999, "un número desde 1"));
    if (!Take("vez")) Need("veces");
  } else {
    Fail("«de», «en», «con», «hasta» o dos puntos");
  }
}

void RuleReader::ReadStage() {
  for (const StageName& row : kStages) {
    if (!Take(row.word)) continue;
    selector_.stages = row.stages;
    return;
  }
  Fail("reposo, documento, tique, factura, items, pagos, hojas o no_fiscal");
}

void RuleReader::ReadChance() {
  constexpr std::int64_t kMillionthsPerThousandth = 10;  // of a hundredth
  Need("probabilidad");
  const auto percent = ReadThousandths(Here().folded);
  if (!percent || *percent > 100'000) Fail("un porcentaje de 0 a 100");
  selector_.millionths = static_cast<std::uint32_t>(*percent * kMillionthsPerThousandth);
  ++at_;
  Need("%");
}

const ActionRow& RuleReader::FindAction() {
  for (const ActionRow& row : Actions()) {
    const std::size_t blank = row.name.find(' ');
    const bool two = blank != std::string_view::npos;
    if (!At(row.name.substr(0, blank))) continue;
    if (two && !BeforeWord(row.name.substr(blank + 1))) continue;
    at_ += two ? 2 : 1;
    return row;
  }
  if (FindControl(Here().folded) != nullptr) return Actions().front();  // "sin_papel" alone sets it
  Fail("una acción");
}

Action RuleReader::ReadAction() {
  const std::size_t first = at_;
  Action action;
  action.row = &FindAction();
  const bool fits = (action.row->subjects & static_cast<unsigned>(selector_.subject)) != 0;
  if (!fits) {
    at_ = first;
    Fail(selector_.subject == Subject::kCommand ? "una acción que valga para comandos"
                                                : "una acción que valga para respuestas");
  }
  action.row->read(*this, action);
  if (!AtEndOfAction()) Fail(action.row->usage);
  action.text = Clean(line_.substr(words_[first].begin, words_[at_ - 1].end - words_[first].begin));
  return action;
}

}  // namespace impresora
