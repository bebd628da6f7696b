// A process of ours: started, watched, ended. Each system has its own way.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace puerta {

struct ProcessPlan {
  std::string program;  // a whole path, UTF-8
  std::vector<std::string> words;
  std::string folder;                    // where it stands
  std::vector<std::string> environment;  // NAME=VALUE, beside what we have ourselves
};

class Process {
 public:
  Process() = default;
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  virtual ~Process() = default;  // leaves it alone

  virtual bool HasEnded() = 0;
  virtual std::string HowItEnded() const = 0;  // for a person
  virtual void Kill() = 0;
};

// Throws std::runtime_error with words for a person when it cannot be started.
std::unique_ptr<Process> StartProcess(const ProcessPlan& plan);

std::string OwnProgram();

// Bytes that nobody can guess, in hexadecimal digits.
std::string RandomDigits(int bytes);

}  // namespace puerta
