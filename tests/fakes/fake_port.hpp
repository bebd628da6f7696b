#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_clock.hpp"
#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/serial_port.hpp"

namespace kestra {

// Something that comes down the line, so long after the moment it was asked for.
struct Burst {
  std::int64_t delay = 0;  // microseconds
  std::string bytes;
  bool unplug = false;  // instead of bytes, the plug is pulled
};

// What the far end does about one frame.
using Reply = std::function<std::vector<Burst>(std::string_view frame)>;

enum class DeviceState { kReady, kMissing, kBusy };

// The line with the printer at its far end. It outlives the ports that are created on it.
class FakeLine {
 public:
  FakeLine(FakeClock& clock, Journal& journal, Trouble& trouble)
      : clock_(clock), journal_(journal), trouble_(trouble) {}

  // The next frame gets this reply; frames without one get the default reply.
  void Queue(Reply reply) { replies_.push_back(std::move(reply)); }
  void SetDefault(Reply reply) { default_ = std::move(reply); }
  [[nodiscard]] std::size_t Queued() const { return replies_.size(); }

  // What the far end had still to say, and what it was to do, is gone.
  void Forget();

  // The far end speaks without being asked; delays count from now.
  void Arrive(const std::vector<Burst>& bursts);

  // What opening meets from now on. A device that is ready has its plug in again.
  void SetDevice(DeviceState state) {
    device_ = state;
    if (state == DeviceState::kReady) unplugged_ = false;
  }

  // Every frame written, without the acknowledgements.
  [[nodiscard]] const std::vector<std::string>& Frames() const { return frames_; }

  // How often a port was closed by taking back what had not gone.
  [[nodiscard]] int Abandonings() const { return abandonings_; }

 private:
  friend class FakePort;

  struct Due {
    std::int64_t when;
    std::string bytes;
    bool unplug;
  };

  void Open();
  void Close();
  void Write(std::string_view bytes);
  std::size_t Count();
  void Discard();
  std::string Take();
  bool Deliver();
  void RequirePlug() const;

  FakeClock& clock_;
  Journal& journal_;
  Trouble& trouble_;
  DeviceState device_ = DeviceState::kReady;
  bool unplugged_ = false;
  std::deque<Reply> replies_;
  Reply default_;
  std::deque<Due> due_;
  std::string received_;
  std::vector<std::string> frames_;
  int abandonings_ = 0;
};

class FakePort : public SerialPort {
 public:
  FakePort(FakeLine& line, Journal& journal) : line_(line), journal_(journal) {}
  ~FakePort() override {
    journal_.Add({.kind = Happening::kPortReleased, .text = {}, .detail = {}});
  }

  [[nodiscard]] bool PortOpen() const override { return open_; }
  void PortOpen(bool open) override;
  void Abandon() override;
  void Output(std::string_view bytes) override;
  std::size_t InBufferCount() override;
  void DiscardInput() override;
  std::string Input() override;
  [[nodiscard]] std::string_view Waiting() const override { return line_.received_; }

 private:
  void RequireOpen() const;

  FakeLine& line_;
  Journal& journal_;
  bool open_ = false;
};

}  // namespace kestra
