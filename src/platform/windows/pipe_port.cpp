#include "platform/windows/pipe_port.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/windows/serial_port.hpp"

namespace kestra {
namespace {

constexpr std::string_view kFolder = R"(\\.\pipe\)";
constexpr DWORD kBufferSize = 4096;
constexpr int kMostBuffers = 64;  // in one go, whatever the far end pours out

char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// A server learns no more of its caller than who it is.
HANDLE Call(const std::string& device) {
  constexpr DWORD kForUsAlone = 0;
  return ::CreateFileA(device.c_str(), GENERIC_READ | GENERIC_WRITE, kForUsAlone, nullptr,
                       OPEN_EXISTING, SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr);
}

// One who serves a single caller at a time needs a moment between two of them.
bool HasTurn(const std::string& device) {
  constexpr DWORD kMoment = 250;
  return ::WaitNamedPipeA(device.c_str(), kMoment) != 0;
}

void RequireTransfer(bool done, const std::string& device) {
  if (!done) throw TransferFailure(device, ::GetLastError());
}

}  // namespace

bool IsPipe(std::string_view device) {
  return device.size() > kFolder.size() &&
         std::equal(kFolder.begin(), kFolder.end(), device.begin(),
                    [](char wanted, char c) { return Small(c) == wanted; });
}

PipePort::PipePort(std::string device, PortPatience patience)
    : device_(std::move(device)), patience_(patience) {}

void PipePort::PortOpen(bool open) {
  if (open && PortOpen()) throw PortFailure(PortFault::kAlreadyOpen, device_);
  open ? Open() : Close();
}

void PipePort::Open() {
  Handle handle(Call(device_));
  DWORD error = handle ? DWORD{ERROR_SUCCESS} : ::GetLastError();
  if (error == ERROR_PIPE_BUSY && HasTurn(device_)) {
    handle = Handle(Call(device_));
    error = handle ? DWORD{ERROR_SUCCESS} : ::GetLastError();
  }
  if (!handle) throw OpeningFailure(device_, error);
  handle_ = std::move(handle);
  stale_ = true;
}

void PipePort::Close() {
  handle_.Close();
  received_.clear();
}

void PipePort::RequireOpen() const {
  if (!PortOpen()) throw PortFailure(PortFault::kNotOpen, device_);
}

void PipePort::Output(std::string_view bytes) {
  RequireOpen();
  DropStale();
  while (!bytes.empty()) {
    DWORD written = 0;
    const bool done = ::WriteFile(handle_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()),
                                  &written, nullptr) != 0;
    RequireTransfer(done, device_);
    bytes.remove_prefix(written);
  }
}

// Nothing wakes who waits for a pipe without taking from it: so it looks now and then.
std::size_t PipePort::InBufferCount() {
  constexpr std::int32_t kPause = 2;
  RequireOpen();
  DropStale();
  for (std::int32_t waited = 0; Queued() == 0 && waited < patience_.look; waited += kPause) {
    ::Sleep(kPause);
  }
  if (Queued() > 0) TakeInput();
  return received_.size();
}

void PipePort::TakeInput() {
  std::array<char, kBufferSize> bytes;
  DWORD count = 0;
  RequireTransfer(::ReadFile(handle_.Get(), bytes.data(), kBufferSize, &count, nullptr) != 0,
                  device_);
  received_.append(bytes.data(), count);
}

std::size_t PipePort::Queued() const {
  DWORD count = 0;
  RequireTransfer(::PeekNamedPipe(handle_.Get(), nullptr, 0, nullptr, &count, nullptr) != 0,
                  device_);
  return count;
}

void PipePort::DiscardInput() {
  RequireOpen();
  stale_ = false;
  for (int i = 0; i < kMostBuffers && Queued() > 0; ++i) TakeInput();
  received_.clear();
}

void PipePort::DropStale() {
  if (stale_) DiscardInput();
}

std::string PipePort::Input() {
  RequireOpen();
  return std::exchange(received_, std::string());
}

}  // namespace kestra
