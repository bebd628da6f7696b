#include "worker/journal.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace puerta {
namespace {

constexpr std::size_t kSumDigits = 8;
constexpr std::size_t kTail = 16'384;  // bytes that hold more than one record

struct Record {
  std::string kind;
  std::int64_t number = 0;
  std::string command;
  int outcome = 0;
  std::vector<std::string> answer;
};

std::uint32_t SumOf(std::string_view text) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char c : text) {
    sum ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

template <class Number>
Number NumberOf(std::string_view text, Number otherwise, int base = 10) {
  Number number = otherwise;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return read.ptr == text.data() + text.size() ? number : otherwise;
}

// Bytes that a line cannot hold stand in it as <1c>.
std::string Unescaped(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escaped = text[i] == '<' && i + 3 < text.size() && text[i + 3] == '>';
    if (escaped) {
      bytes += static_cast<char>(NumberOf(text.substr(i + 1, 2), 0, 16));
      i += 3;
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

std::string_view TakeUntil(std::string_view& rest, char end) {
  const auto at = std::min(rest.find(end), rest.size());
  const auto part = rest.substr(0, at);
  rest.remove_prefix(std::min(at + 1, rest.size()));
  return part;
}

void ReadPart(Record& record, std::string_view part) {
  const auto name = TakeUntil(part, '=');
  if (name == "comando") record.command = Unescaped(part);
  if (name == "desenlace") record.outcome = NumberOf(part, 0);
  if (name == "respuesta") record.answer.push_back(Unescaped(part));
}

// Nothing for a line that is not whole.
std::optional<Record> RecordOf(std::string_view line) {
  if (line.size() <= kSumDigits + 1) return std::nullopt;
  auto body = line.substr(0, line.size() - kSumDigits - 1);
  const auto sum = line.substr(line.size() - kSumDigits);
  if (NumberOf<std::uint32_t>(sum, ~SumOf(body), 16) != SumOf(body)) return std::nullopt;
  Record record;
  record.kind = TakeUntil(body, '\t');
  record.number = NumberOf<std::int64_t>(TakeUntil(body, '\t'), -1);
  TakeUntil(body, '\t');  // its moment
  while (!body.empty()) ReadPart(record, TakeUntil(body, '\t'));
  return record;
}

template <class Visit>
void EachRecord(std::string_view text, Visit visit) {
  while (text.find('\n') != std::string_view::npos) {
    if (const auto record = RecordOf(TakeUntil(text, '\n'))) visit(*record);
  }
}

class Witness {
 public:
  explicit Witness(std::int64_t since) : since_(since) {}

  void Hear(const Record& record) {
    if (record.number < 0) return;
    // What goes on from before: the first record of a file tells up to where that is known.
    if (record.number <= since_) reaches_back_ = true;
    if (record.kind == "hueco" && record.number >= since_) has_gap_ = true;
    if (record.kind == "intento" && record.number > since_)
      evidence_.sent.push_back({record.number, record.command, 0, {}});
    if (record.kind == "resultado") Settle(record);
  }

  Evidence Told() {
    evidence_.whole = reaches_back_ && !has_gap_;
    return std::move(evidence_);
  }

 private:
  void Settle(const Record& record) {
    const auto it = std::find_if(evidence_.sent.rbegin(), evidence_.sent.rend(),
                                 [&](const Sent& sent) { return sent.number == record.number; });
    if (it == evidence_.sent.rend()) return;
    it->outcome = record.outcome;
    it->answer = record.answer;
  }

  std::int64_t since_;
  bool reaches_back_ = false;
  bool has_gap_ = false;
  Evidence evidence_;
};

// As it stands now; empty when it cannot be read.
std::string TextOfFile(const std::filesystem::path& path, std::size_t most = std::string::npos) {
  std::ifstream file(path, std::ios::binary);
  if (most != std::string::npos && file.seekg(0, std::ios::end)) {
    const auto size = static_cast<std::size_t>(file.tellg());
    file.seekg(static_cast<std::streamoff>(size - std::min(size, most)));
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The newest of the files in which earlier days are kept: "diario.txt-20261122", "diario.txt-20261122-2".
std::optional<std::filesystem::path> NewestKept(const std::filesystem::path& journal) {
  namespace fs = std::filesystem;
  const auto folder = journal.has_parent_path() ? journal.parent_path() : fs::path(".");
  const auto start = journal.filename().string() + "-";
  std::optional<fs::path> newest;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (!entry.path().filename().string().starts_with(start)) continue;
    if (!newest || fs::last_write_time(entry.path(), error) > fs::last_write_time(*newest, error))
      newest = entry.path();
  }
  return newest;
}

}  // namespace

Evidence ReadEvidence(std::span<const std::string> files, std::int64_t since) {
  Witness witness(since);
  for (const auto& text : files)
    EachRecord(text, [&witness](const Record& record) { witness.Hear(record); });
  return witness.Told();
}

std::int64_t NewestNumber(std::string_view text) {
  std::int64_t newest = -1;
  EachRecord(text, [&newest](const Record& record) { newest = std::max(newest, record.number); });
  return newest;
}

Evidence EvidenceOf(const std::string& journal, std::int64_t since) {
  if (journal.empty() || since < 0) return {};
  const std::filesystem::path path(journal);
  std::array<std::string, 2> files{"", TextOfFile(path)};
  auto evidence = ReadEvidence(files, since);
  const auto kept = evidence.whole ? std::nullopt : NewestKept(path);
  if (!kept) return evidence;
  files[0] = TextOfFile(*kept);
  return ReadEvidence(files, since);
}

std::int64_t NewestNumberOf(const std::string& journal) {
  return journal.empty() ? -1 : NewestNumber(TextOfFile(journal, kTail));
}

}  // namespace puerta
