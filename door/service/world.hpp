// What the printers want of the world, so that a test can be it.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "base/json.hpp"

namespace puerta {

class Timers {
 public:
  Timers() = default;
  Timers(const Timers&) = delete;
  Timers& operator=(const Timers&) = delete;
  virtual ~Timers() = default;

  // On the one thread, never from within the call.
  virtual void After(std::chrono::milliseconds pause, std::function<void()> then) = 0;
};

// The processes of the printers. Lines to one that is not there are lost: its end is told, once.
class Workers {
 public:
  Workers() = default;
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  virtual ~Workers() = default;

  virtual void Start(const std::string& printer) = 0;
  virtual void Send(const std::string& printer, const Json& line) = 0;
  virtual void Kill(const std::string& printer) = 0;
};

class WorkerListener {
 public:
  WorkerListener() = default;
  WorkerListener(const WorkerListener&) = delete;
  WorkerListener& operator=(const WorkerListener&) = delete;
  virtual ~WorkerListener() = default;

  virtual void OnLine(const std::string& printer, const Json& line) = 0;
  virtual void OnGone(const std::string& printer, const std::string& why) = 0;
};

// Who wants to know what became of jobs.
class JobListener {
 public:
  JobListener() = default;
  JobListener(const JobListener&) = delete;
  JobListener& operator=(const JobListener&) = delete;
  virtual ~JobListener() = default;

  virtual void OnOutcome(std::int64_t job) = 0;
  virtual void OnNews() = 0;  // there are events that nobody has read
};

}  // namespace puerta
