// Where the workers call back: a port of this machine, a word for each, JSON lines.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "base/log.hpp"
#include "service/loop.hpp"
#include "service/process.hpp"
#include "service/world.hpp"

namespace puerta {

class Hub : public Workers {
 public:
  Hub(Loop& loop, std::string program, Log& log);
  ~Hub() override;

  void Listen(WorkerListener& listener) { listener_ = &listener; }
  void Add(const std::string& printer, const std::string& folder) { folders_[printer] = folder; }

  void Start(const std::string& printer) override;
  void Send(const std::string& printer, const Json& line) override;
  void Kill(const std::string& printer) override;
  // They are told that the door closes, and left to their last step.
  void Dismiss();

 private:
  class Plug;  // the port
  class Line;  // one connection
  struct Worker {
    std::string token;
    std::unique_ptr<Process> process;
    std::shared_ptr<Line> line;
  };

  void Accept();
  void Heard(const std::shared_ptr<Line>& line, const std::string& text);
  void Hello(const std::shared_ptr<Line>& line, const std::string& text);
  void Lost(const std::shared_ptr<Line>& line);
  void Watch(const std::string& printer, const std::string& token);
  void Gone(const std::string& printer);

  Loop& loop_;
  std::string program_;
  Log& log_;
  WorkerListener* listener_ = nullptr;
  std::map<std::string, std::string> folders_;
  std::map<std::string, Worker> workers_;
  std::unique_ptr<Plug> plug_;
};

}  // namespace puerta
