#include "log/lines.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "wire/control_bytes.hpp"

namespace kestra::tool {
namespace {

struct FirstWord {
  std::string_view word;
  LineKind kind;
};

constexpr std::array kWords{
    FirstWord{"Comando :", LineKind::kCommand},
    FirstWord{"Output :", LineKind::kOutput},
    FirstWord{"Respuesta :", LineKind::kAnswer},
    FirstWord{"Descartado :", LineKind::kDropped},
    FirstWord{"Libros :", LineKind::kBooks},
    FirstWord{"Pendiente :", LineKind::kPending},
    FirstWord{"Olvidado :", LineKind::kForgotten},
    FirstWord{"Diario :", LineKind::kJournal},
    FirstWord{"Pendiente de otra impresora :", LineKind::kPending},
};
constexpr std::string_view kError = "Error ";
constexpr std::string_view kLead = " - ";

// A line without an end is no line, and a file of zeros must not fill the memory.
constexpr std::size_t kLongestLine = 65'536;

constexpr std::string_view kNothing("\0\x1A",
                                    2);  // what a cut of power or an old editor leaves behind

// A frame's text may hold line ends: it goes on until its end byte is there.
bool GoesOn(const LogLine& line) {
  const bool bytes = line.kind == LineKind::kOutput || line.kind == LineKind::kAnswer;
  return bytes && line.text.size() < kLongestLine &&
         line.text.find(impresora::kStx) != std::string::npos &&
         line.text.find(impresora::kEtx) == std::string::npos;
}

std::string_view WithoutBlank(std::string_view text) {
  if (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

}  // namespace

void LineReader::Feed(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t room = kLongestLine - unfinished_.size();
    const std::size_t end = bytes.substr(0, room).find('\n');
    if (end == std::string_view::npos) {
      const std::size_t count = std::min(room, bytes.size());
      unfinished_.append(bytes.substr(0, count));
      bytes.remove_prefix(count);
      if (unfinished_.size() < kLongestLine) return;
    } else {
      unfinished_.append(bytes.substr(0, end));
      bytes.remove_prefix(end + 1);
    }
    TakeLine(std::exchange(unfinished_, {}));
  }
}

void LineReader::Rest() {
  if (!unfinished_.empty()) TakeLine(std::exchange(unfinished_, {}));
  HandOver();
}

std::optional<LogLine> LineReader::Next() {
  if (ready_.empty()) return std::nullopt;
  LogLine line = std::move(ready_.front());
  ready_.pop_front();
  return line;
}

void LineReader::TakeLine(std::string_view line) {
  ++number_;
  if (line.ends_with('\r')) line.remove_suffix(1);
  auto found = FindStamp(line);
  const std::size_t bare = found ? found->at : line.size();
  if (!found || bare > 0) TakeBare(line.substr(0, bare));
  while (found) {
    auto next = FindStamp(line, found->at + found->size);
    const std::size_t begin = found->at + found->size;
    const std::size_t end = next ? next->at : line.size();
    TakeStamped(found->stamp, line.substr(begin, end - begin));
    found = std::move(next);
  }
}

// What stands before the first stamp of a line.
void LineReader::TakeBare(std::string_view line) {
  if (open_ && GoesOn(*open_)) {
    open_->text.append("\n").append(line);
    return;
  }
  if (line.find_first_not_of(kNothing) == std::string_view::npos) return;
  HandOver();
  open_ = LogLine{.number = number_, .kind = LineKind::kDamaged, .text = std::string(line)};
}

void LineReader::TakeStamped(const Stamp& stamp, std::string_view text) {
  HandOver();
  LogLine line{.number = number_, .stamp = stamp};
  if (text.starts_with(kLead)) text.remove_prefix(kLead.size());
  if (text.starts_with(kError)) line.kind = LineKind::kError;
  for (const FirstWord& row : kWords) {
    if (!text.starts_with(row.word)) continue;
    line.kind = row.kind;
    text = WithoutBlank(text.substr(row.word.size()));
    break;
  }
  line.text = text;
  open_ = std::move(line);
}

void LineReader::HandOver() {
  if (open_) ready_.push_back(std::move(*open_));
  open_.reset();
}

}  // namespace kestra::tool
