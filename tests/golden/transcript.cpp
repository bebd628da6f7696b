#include "golden/transcript.hpp"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "golden/frame_check.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"

namespace kestra::golden {
namespace {

constexpr std::string_view kLogFile = ".\\fiscal.log";

std::string Sequence(char byte, const Detail& detail) {
  const int number = static_cast<unsigned char>(byte);
  return detail.sequence ? "{" + std::to_string(number) + "}" : "{seq}";
}

bool IsSequence(char byte) {
  return byte >= 32 && byte <= 70;
}

// Bytes with the sequence number behind each start byte made independent of the clock.
std::string Shown(std::string_view bytes, const Detail& detail) {
  std::string text;
  while (!bytes.empty()) {
    const bool start = bytes.size() > 1 && bytes[0] == '\x02' && IsSequence(bytes[1]);
    text += Visible(bytes.substr(0, 1));
    if (start) text += Sequence(bytes[1], detail);
    bytes.remove_prefix(start ? 2 : 1);
  }
  return text;
}

std::string Quoted(const std::string& text) {
  return '"' + text + '"';
}

std::string DescribeWrite(const Event& event, const Detail& detail) {
  const std::string_view bytes = event.text;
  if (bytes == "\x06") return OutputLine("ack");
  if (!IsFrame(bytes)) return OutputLine("bytes " + Visible(bytes));
  const std::string_view command = bytes.substr(2, bytes.size() - 7);
  std::string line = "send " + Sequence(bytes[1], detail) + Visible(command);
  if (detail.sequence) line += " sum " + std::string(bytes.substr(bytes.size() - 4));
  return OutputLine(line);
}

// True for text that fits the pattern, in which 9 stands for a digit.
bool Fits(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (pattern[i] == '9' ? !digit : text[i] != pattern[i]) return false;
  }
  return true;
}

std::string DescribeLog(const Event& event, const Detail& detail) {
  constexpr std::string_view date = "[99/99/9999-99:99:99]";
  constexpr std::string_view line_end = "\r\n";
  const std::string_view line = event.text;
  const bool sound = event.detail == kLogFile && line.size() >= date.size() + line_end.size() &&
                     Fits(line.substr(0, date.size()), date) &&
                     line.substr(line.size() - line_end.size()) == line_end;
  if (!sound) {
    return OutputLine("malformed log line in " + event.detail + ": " + Visible(event.text));
  }
  const std::size_t start = detail.date ? 0 : date.size();
  return OutputLine("log " +
                    Shown(line.substr(start, line.size() - line_end.size() - start), detail));
}

std::string_view AnswerName(std::int32_t answer) {
  switch (answer) {
    case 1:
      return "ok";
    case 6:
      return "yes";
    default:
      return "no";
  }
}

std::string DescribeBox(const Event& event, const Detail& detail) {
  return OutputLine("box " + Quoted(Shown(event.text, detail)) + " title " +
                    Quoted(Visible(event.detail)) + " style " + std::to_string(event.number) +
                    " -> " + std::string(AnswerName(event.answer)));
}

std::string RowName(const ReportRow& row) {
  return (row.group == 0 ? "printer " : "fiscal ") + std::to_string(row.number) +
         (row.error ? " (error)" : " (info)");
}

std::string DescribeReport(const Event& event, const Detail& detail) {
  std::string lit;
  std::string all;
  for (const ReportRow& row : event.rows) {
    if (row.lit) lit += (lit.empty() ? "" : ", ") + RowName(row);
    all += OutputLine("  " + std::string(row.lit ? "lit  " : "grey ") + RowName(row) + " " +
                      Quoted(Visible(row.caption)) + " hint " + Quoted(Visible(row.hint)));
  }
  return OutputLine("report " + Visible(event.text) + " " + Visible(event.detail) +
                    " lit: " + (lit.empty() ? "none" : lit) + " -> " +
                    (event.answer == 0 ? "close" : "retry")) +
         (detail.rows ? all : std::string());
}

std::string DescribePort(std::string_view fate, const Event& event) {
  std::string line =
      std::string(fate) + " " + std::to_string(event.number) + " " + Quoted(Visible(event.text));
  if (!event.detail.empty()) line += " device " + Visible(event.detail);
  return OutputLine(line);
}

// The records, without their moments and sums.
std::string DescribeJournal(const Event& event) {
  std::string shown;
  for (std::string_view rest = event.text; !rest.empty();) {
    const auto line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    const auto parts = Split(line, "\t");
    const auto body = line.substr(0, line.rfind('\t'));
    if (parts.size() < 4 || parts.back() != JournalSum(body)) {
      return shown + OutputLine("malformed journal line: " + Visible(line));
    }
    std::string text = "journal";
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
      if (i != 2) text.append(" ").append(parts[i]);
    }
    shown += OutputLine(text);
  }
  return shown;
}

}  // namespace

std::string Describe(const Event& event, const Detail& detail) {
  switch (event.kind) {
    case Happening::kPortCreated:
      return DescribePort("port", event);
    case Happening::kPortRefused:
      return DescribePort("port refused", event);
    case Happening::kPortReleased:
      return OutputLine("port released");
    case Happening::kOpen:
      return OutputLine("open");
    case Happening::kClose:
      return OutputLine("close");
    case Happening::kWrite:
      return DescribeWrite(event, detail);
    case Happening::kSleep:
      return OutputLine("sleep " + std::to_string(event.number));
    case Happening::kLog:
      return DescribeLog(event, detail);
    case Happening::kBox:
      return DescribeBox(event, detail);
    case Happening::kReport:
      return DescribeReport(event, detail);
    case Happening::kMemoryFull:
      return OutputLine("memoryfull");
    case Happening::kJournal:
      return DescribeJournal(event);
    case Happening::kMeanwhile:
      return OutputLine("meanwhile " + event.text + " = " + std::to_string(event.number));
  }
  return {};
}

std::string OutputLine(const std::string& text) {
  std::string line = "> " + text;
  if (line.back() == ' ') line = line.substr(0, line.size() - 1) + "<sp>";
  return line + "\n";
}

}  // namespace kestra::golden
