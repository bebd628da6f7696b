#include <windows.h>

#include <algorithm>
#include <array>
#include <list>
#include <string>

#include "contract/shared/serial_line.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/pipe_port.hpp"

namespace kestra {
namespace {

// What a server has of a pipe: it waits for one caller, once.
class PipeEnd {
 public:
  explicit PipeEnd(const std::string& name, DWORD most)
      : pipe_(::CreateNamedPipeA(name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED,
                                 PIPE_TYPE_BYTE, most, kRoom, kRoom, 0, nullptr)),
        called_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    wait_.hEvent = called_.Get();
    ::ConnectNamedPipe(pipe_.Get(), &wait_);
  }

  // Its caller is there.
  [[nodiscard]] bool Serves() const {
    return ::PeekNamedPipe(pipe_.Get(), nullptr, 0, nullptr, nullptr, nullptr) != 0;
  }

  void Send(std::string_view bytes) {
    const auto written =
        ::WriteFile(pipe_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &wait_);
    if (written == 0) Finish();
  }

  std::string Receive(std::size_t count) {
    std::string bytes(count, '\0');
    std::size_t got = 0;
    while (got < count) {
      const bool read = ::ReadFile(pipe_.Get(), bytes.data() + got, static_cast<DWORD>(count - got),
                                   nullptr, &wait_) != 0;
      if (!read && ::GetLastError() != ERROR_IO_PENDING) break;
      got += Finish();
    }
    bytes.resize(got);
    return bytes;
  }

 private:
  static constexpr DWORD kRoom = 65'536;

  DWORD Finish() {
    DWORD count = 0;
    ::GetOverlappedResult(pipe_.Get(), &wait_, &count, TRUE);
    return count;
  }

  Handle pipe_;
  Handle called_;
  OVERLAPPED wait_ = {};
};

// A server of a pipe with some ends, so that a caller who comes again finds one.
class PipeLine : public SerialLine {
 public:
  PipeLine() { Serve(kEnds); }

  std::unique_ptr<SerialPort> MakePort() override { return std::make_unique<PipePort>(name_); }

  void Send(std::string_view bytes) override {
    if (PipeEnd* const end = Present(); end != nullptr) end->Send(bytes);
  }

  std::string Receive(std::size_t count) override {
    PipeEnd* const end = Present();
    return end == nullptr ? std::string() : end->Receive(count);
  }

  // Another program has the only end.
  void Occupy(bool taken) override {
    other_.reset();
    ends_.clear();
    Serve(taken ? 1 : kEnds);
    if (!taken) return;
    other_ = MakePort();
    other_->PortOpen(true);
  }

  void Unplug() override { ends_.clear(); }

 private:
  static constexpr DWORD kEnds = 3;

  void Serve(DWORD count) {
    for (DWORD i = 0; i < count; ++i) ends_.emplace_back(name_, count);
  }

  PipeEnd* Present() {
    const auto found =
        std::find_if(ends_.begin(), ends_.end(), [](const PipeEnd& end) { return end.Serves(); });
    return found == ends_.end() ? nullptr : &*found;
  }

  std::string name_ = R"(\\.\pipe\kestra-)" + std::to_string(::GetCurrentProcessId());
  std::list<PipeEnd> ends_;
  std::unique_ptr<SerialPort> other_;
};

TEST(PipePort, ANameLeadsToAPipeOfThisMachineAlone) {
  EXPECT_TRUE(IsPipe(R"(\\.\pipe\impresora)"));
  EXPECT_TRUE(IsPipe(R"(\\.\PIPE\impresora)"));
  EXPECT_FALSE(IsPipe(R"(\\.\pipe\)"));
  EXPECT_FALSE(IsPipe(R"(\\otra\pipe\impresora)"));
  EXPECT_FALSE(IsPipe(R"(\\.\COM1)"));
  EXPECT_FALSE(IsPipe("pipe"));
}

}  // namespace

std::vector<Twin<SerialLine>> OwnTwins() {
  return {TwinOf<SerialLine, PipeLine>("Pipe", 8005)};
}

}  // namespace kestra
