// Lines with completion and history, by Debian's libedit.
#include <editline/readline.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "prompt/plain_line.hpp"

namespace kestra::tool {
namespace {

// The library asks for one candidate after the other; each is its own to free.
std::vector<std::string>& Candidates() {
  static std::vector<std::string> candidates;
  return candidates;
}

char* NextCandidate(const char*, int state) {
  static std::size_t next = 0;
  if (state == 0) next = 0;
  return next < Candidates().size() ? ::strdup(Candidates()[next++].c_str()) : nullptr;
}

char** Complete(const char* word, int start, int) {
  const std::string_view line(rl_line_buffer);
  Candidates() = CompletionsOf(line.substr(0, static_cast<std::size_t>(start)), word);
  const bool argument = !Candidates().empty() && Candidates().front().ends_with('=');
  rl_completion_append_character = argument ? 0 : ' ';
  rl_attempted_completion_over = 1;  // no names of files
  return Candidates().empty() ? nullptr : rl_completion_matches(word, NextCandidate);
}

class EditedLines : public LineEditor {
 public:
  EditedLines() {
    rl_initialize();
    rl_attempted_completion_function = Complete;
  }

  std::optional<std::string> Read(const std::string& prompt) override {
    char* const typed = ::readline(prompt.c_str());
    if (typed == nullptr) return std::nullopt;
    std::string line(typed);
    std::free(typed);
    if (!line.empty()) ::add_history(line.c_str());
    return line;
  }
};

}  // namespace

std::unique_ptr<LineEditor> MakeLineEditor() {
  const bool terminal = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
  if (terminal) return std::make_unique<EditedLines>();
  return std::make_unique<PlainLines>();
}

}  // namespace kestra::tool
