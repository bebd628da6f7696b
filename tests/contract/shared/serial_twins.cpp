#include <algorithm>
#include <utility>

#include "contract/shared/device_line.hpp"
#include "contract/shared/tcp_line.hpp"
#include "fakes/fake_clock.hpp"
#include "fakes/fake_port.hpp"
#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"

namespace kestra {
namespace {

class FakeTwin : public SerialLine {
 public:
  std::unique_ptr<SerialPort> MakePort() override {
    return std::make_unique<FakePort>(line_, journal_);
  }
  void Send(std::string_view bytes) override { line_.Arrive({{.bytes = std::string(bytes)}}); }
  std::string Receive(std::size_t count) override {
    for (const Event& event : journal_.Take()) {
      if (event.kind == Happening::kWrite) written_ += event.text;
    }
    std::string rest = written_.size() > count ? written_.substr(count) : std::string();
    written_.resize(std::min(written_.size(), count));
    return std::exchange(written_, std::move(rest));
  }
  void Occupy(bool taken) override {
    line_.SetDevice(taken ? DeviceState::kBusy : DeviceState::kReady);
  }
  void Unplug() override { line_.Arrive({{.bytes = {}, .unplug = true}}); }

 private:
  Journal journal_;
  Trouble trouble_;
  FakeClock clock_{journal_, trouble_};
  FakeLine line_{clock_, journal_, trouble_};
  std::string written_;
};

}  // namespace

std::vector<Twin<SerialLine>> SystemTwins() {
  auto twins = OwnTwins();
  twins.push_back({"System", [] { return std::unique_ptr<SerialLine>(MakeDeviceLine()); }, 8005});
  twins.push_back(TwinOf<SerialLine, TcpLine>("Tcp", 8015));
  return twins;
}

std::vector<Twin<SerialLine>> SerialTwins() {
  auto twins = SystemTwins();
  twins.push_back(TwinOf<SerialLine, FakeTwin>("Fake", 8005));
  return twins;
}

}  // namespace kestra
