// A host that does what it reads: lines of a case on its standard input, what came of each on its
// standard output, ended by a line with a full stop. Its argument is the setting
// of the line's device. Besides the inputs of a case it knows
//
//   wire HEX    shows bytes that were found on the line
//   log HEX     shows a line that was found in the log
//   leftover    complains about answers that nobody asked for
#include <array>
#include <charconv>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "golden/exports.hpp"
#include "golden/transcript.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"
#include "live/listed_operator.hpp"
#include "live/settings_file.hpp"

namespace kestra::live {
namespace {

using golden::OutputLine;
using golden::TakeWord;
using golden::Words;

constexpr const char* kLogFile = ".\\fiscal.log";

std::string FromHex(std::string_view digits) {
  std::string bytes;
  for (; digits.size() >= 2; digits.remove_prefix(2)) {
    unsigned value = 0;
    const char* const end = digits.data() + 2;
    if (std::from_chars(digits.data(), end, value, 16).ptr != end) {
      throw std::invalid_argument("not hexadecimal");
    }
    bytes += static_cast<char>(static_cast<unsigned char>(value));
  }
  return bytes;
}

Answer ToAnswer(std::string_view word) {
  struct Row {
    std::string_view name;
    Answer answer;
  };
  static constexpr std::array rows{Row{"ok", Answer::kOk}, Row{"yes", Answer::kYes},
                                   Row{"no", Answer::kNo}, Row{"retry", Answer::kRetry},
                                   Row{"close", Answer::kClose}};
  for (const Row& row : rows) {
    if (row.name == word) return row.answer;
  }
  throw std::invalid_argument("unknown word " + std::string(word));
}

class Host {
 public:
  void Run(std::string_view line);
  SettingsFile& Settings() { return settings_; }

 private:
  struct Input {
    std::string_view name;
    void (Host::*handler)(std::string_view rest);
  };
  static const std::array<Input, 8> kInputs;

  void Ini(std::string_view rest) { settings_.Change(rest); }
  void QueueAnswers(std::string_view rest);
  void Meanwhile(std::string_view rest);
  void Call(std::string_view rest);
  void ShowRows(std::string_view) { detail_.rows = true; }
  void ShowWrite(std::string_view rest) { Show({Happening::kWrite, FromHex(rest), {}}); }
  void ShowLog(std::string_view rest) { Show({Happening::kLog, FromHex(rest), kLogFile}); }
  void Leftover(std::string_view);

  void Show(const Event& event) const { std::cout << Describe(event, detail_); }

  SettingsFile settings_;
  ListedOperator operator_;
  golden::Detail detail_;
};

const std::array<Host::Input, 8> Host::kInputs{{
    {"ini", &Host::Ini},
    {"operator", &Host::QueueAnswers},
    {"meanwhile", &Host::Meanwhile},
    {"call", &Host::Call},
    {"showrows", &Host::ShowRows},
    {"wire", &Host::ShowWrite},
    {"log", &Host::ShowLog},
    {"leftover", &Host::Leftover},
}};

void Host::Run(std::string_view line) {
  const std::string_view name = TakeWord(line);
  for (const Input& input : kInputs) {
    if (input.name == name) return (this->*input.handler)(line);
  }
  throw std::invalid_argument("unknown input " + std::string(name));
}

void Host::QueueAnswers(std::string_view rest) {
  for (const std::string_view word : Words(rest)) operator_.Person().Queue(ToAnswer(word));
}

void Host::Meanwhile(std::string_view rest) {
  operator_.Person().Meanwhile([this, text = std::string(rest)] {
    std::string_view arguments = text;
    const std::string_view name = TakeWord(arguments);
    const golden::CallOutcome outcome = golden::CallExport(name, Words(arguments));
    operator_.Seen().Add({Happening::kMeanwhile, text, {}, outcome.result});
  });
}

void Host::Call(std::string_view rest) {
  settings_.Write();
  const std::string_view name = TakeWord(rest);
  const golden::CallOutcome outcome = golden::CallExport(name, Words(rest));
  for (const Event& event : operator_.Seen().Take()) Show(event);
  for (const std::string& buffer : outcome.buffers) {
    std::cout << OutputLine("buffer \"" + golden::Visible(buffer) + "\"");
  }
  std::cout << OutputLine(name == "EP_Kill" ? "done" : "= " + std::to_string(outcome.result));
}

void Host::Leftover(std::string_view) {
  if (operator_.Person().Queued() > 0) {
    std::cout << OutputLine("the operator still had answers to give");
  }
}

void ReadAndDo(int argc, char** argv) {
  Host host;
  if (argc > 1) host.Settings().Lend(argv[1]);
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    try {
      host.Run(line);
    } catch (const std::exception& fault) {
      std::cout << OutputLine("bad input: " + std::string(fault.what()));
    }
    std::cout << "." << std::endl;
  }
}

}  // namespace
}  // namespace kestra::live

int main(int argc, char** argv) {
  try {
    kestra::live::ReadAndDo(argc, argv);
    return 0;
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << std::endl;
    return 1;
  }
}
