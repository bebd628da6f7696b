// A host that does what it is told: it hears the lines of a case from the test that started it, and says what
// came of each, ended by a line with a full stop. Besides the inputs of a case it knows
//
//   begin FOLDER [SETTING]    a case, in that folder; the setting is that of the line's device
//   end         of the case: says whether the library is gone, so that the next begins with a fresh one
//   keep        does what keeps the library, where it can go
//   wire HEX    shows bytes that were found on the line
//   log HEX     shows a line that was found in the log
//   leftover    complains about answers that nobody asked for
#include <array>
#include <charconv>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "golden/exports.hpp"
#include "golden/live/library.hpp"
#include "golden/live/listed_operator.hpp"
#include "golden/live/settings_file.hpp"
#include "golden/transcript.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"

extern "C" {
#include "programs/talk.h"
}

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

// The call to the test.
class Talk {
 public:
  // The next line; none when the test has hung up.
  std::optional<std::string> Hear() {
    std::size_t end = heard_.find('\n');
    while (end == std::string::npos) {
      std::array<char, 4096> piece{};
      const int count = talk_hear(piece.data(), static_cast<int>(piece.size()));
      if (count == 0) return std::nullopt;
      heard_.append(piece.data(), static_cast<std::size_t>(count));
      end = heard_.find('\n');
    }
    std::string line = heard_.substr(0, end);
    heard_.erase(0, end + 1);
    return line;
  }

  void Say(std::string_view text) { said_ += text; }
  void FullStop() {
    said_ += ".\n";
    talk_say(said_.data(), static_cast<int>(said_.size()));
    said_.clear();
  }

 private:
  std::string heard_, said_;
};

// A case, and who plays it.
class Host {
 public:
  Host(Talk& talk, std::string_view setting) : talk_(talk) {
    if (!setting.empty()) settings_.Lend(setting);
  }

  void Run(std::string_view line);

 private:
  struct Input {
    std::string_view name;
    void (Host::*handler)(std::string_view rest);
  };
  static const std::array<Input, 9> kInputs;

  void Ini(std::string_view rest) { settings_.Change(rest); }
  void QueueAnswers(std::string_view rest);
  void Meanwhile(std::string_view rest);
  void Call(std::string_view rest);
  void ShowOutcome(std::string_view);
  void ShowRows(std::string_view) { detail_.rows = true; }
  void ShowWrite(std::string_view rest) { Show({Happening::kWrite, FromHex(rest), {}}); }
  void ShowLog(std::string_view rest) { Show({Happening::kLog, FromHex(rest), kLogFile}); }
  void Leftover(std::string_view);

  void Show(const Event& event) const { talk_.Say(Describe(event, detail_)); }

  Talk& talk_;
  SettingsFile settings_;
  ListedOperator operator_;
  golden::Detail detail_;
};

const std::array<Host::Input, 9> Host::kInputs{{
    {"ini", &Host::Ini},
    {"operator", &Host::QueueAnswers},
    {"meanwhile", &Host::Meanwhile},
    {"call", &Host::Call},
    {"outcome", &Host::ShowOutcome},
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
    talk_.Say(OutputLine("buffer \"" + golden::Visible(buffer) + "\""));
  }
  talk_.Say(OutputLine(name == "EP_Kill" ? "done" : "= " + std::to_string(outcome.result)));
}

// As the library tells it to every host.
void Host::ShowOutcome(std::string_view) {
  const auto number = [](std::string_view name) {
    return std::to_string(golden::CallExport(name, {}).result);
  };
  const auto text = golden::CallExport("Kestra_CausaTexto", {"out", "1000"});
  const auto sentence = text.buffers.front().substr(0, static_cast<std::size_t>(text.result));
  talk_.Say(OutputLine("outcome " + number("Kestra_Desenlace") + " cause " +
                       number("Kestra_Causa") + " sent " + number("Kestra_Intentos") + " \"" +
                       golden::Visible(sentence) + "\""));
}

void Host::Leftover(std::string_view) {
  if (operator_.Person().Queued() > 0) {
    talk_.Say(OutputLine("the operator still had answers to give"));
  }
}

void Begin(std::string_view rest, Talk& talk, std::optional<Host>& host) {
  std::filesystem::current_path(TakeWord(rest));
  LoadLibraryUnderTest();
  host.emplace(talk, rest);
}

void End(Talk& talk, std::optional<Host>& host) {
  host.reset();
  talk.Say(OutputLine(LeaveLibraryUnderTest() ? "gone" : "stays"));
}

void Run(std::string_view line, Talk& talk, std::optional<Host>& host) {
  std::string_view rest = line;
  const std::string_view name = TakeWord(rest);
  if (name == "begin") return Begin(rest, talk, host);
  if (!host) throw std::invalid_argument("no case has begun");
  if (name == "end") return End(talk, host);
  if (name == "keep") return LoadLibraryUnderTest();
  host->Run(line);
}

void HearAndDo() {
  Talk talk;
  std::optional<Host> host;
  while (const auto line = talk.Hear()) {
    try {
      Run(*line, talk, host);
    } catch (const std::exception& fault) {
      talk.Say(OutputLine("bad input: " + std::string(fault.what())));
    }
    talk.FullStop();
  }
}

}  // namespace
}  // namespace kestra::live

int main() {
  try {
    if (talk_begin() == 0) throw std::runtime_error("nobody to talk to: KESTRA_TALK names no port");
    kestra::live::HearAndDo();
    return 0;
  } catch (const std::exception& fault) {
    std::cerr << fault.what() << std::endl;
    return 1;
  }
}
