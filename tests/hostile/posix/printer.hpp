#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace kestra::hostile {

// How the printer is reached.
enum class Line { kTerminal, kNetwork };

// A printer at the far end of a line that carries out whatever it is told, and fills every
// field of its answers to the brim.
class Printer {
 public:
  explicit Printer(Line line = Line::kTerminal);
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;
  ~Printer();

  [[nodiscard]] const std::string& Device() const { return device_; }

  // Its two words from now on, such as "0000" and "0600".
  void SetStatus(const char* printer, const char* fiscal);

  // Bytes that came outside of frames and are no acknowledgement: nothing of ours.
  [[nodiscard]] int Strays() const { return strays_; }
  [[nodiscard]] int Frames() const { return frames_; }

 private:
  void OpenTerminal();
  void OpenNetwork();
  void Serve();
  void Admit();
  void Take(char byte);
  void Answer();
  void Send(const std::string& bytes) const;

  int door_ = -1;  // of the network: who knocks is let in, one at a time
  int far_ = -1;
  int near_ = -1;
  std::string device_;
  std::string frame_;
  std::atomic<const char*> printer_{"0000"};
  std::atomic<const char*> fiscal_{"0600"};
  std::atomic<int> strays_{0};
  std::atomic<int> frames_{0};
  std::atomic<bool> over_{false};
  std::thread thread_;
};

}  // namespace kestra::hostile
