#include "platform/windows/serial_port.hpp"

#include <array>
#include <utility>

#include "platform/seam/port_fault.hpp"
#include "platform/windows/pipe_port.hpp"

namespace kestra {
namespace {

constexpr std::string_view kDevicePrefix = R"(\\.\)";
constexpr DWORD kBufferSize = 4096;

constexpr std::array kOpeningFaults = {
    ErrorRow<DWORD>{ERROR_FILE_NOT_FOUND, PortFault::kMissing},
    ErrorRow<DWORD>{ERROR_PATH_NOT_FOUND, PortFault::kMissing},
    ErrorRow<DWORD>{ERROR_INVALID_NAME, PortFault::kMissing},
    ErrorRow<DWORD>{ERROR_BAD_PATHNAME, PortFault::kMissing},
    ErrorRow<DWORD>{ERROR_DEV_NOT_EXIST, PortFault::kNoHardware},
    ErrorRow<DWORD>{ERROR_DEVICE_NOT_CONNECTED, PortFault::kNoHardware},
    ErrorRow<DWORD>{ERROR_GEN_FAILURE, PortFault::kNoHardware},
    ErrorRow<DWORD>{ERROR_NOT_READY, PortFault::kNoHardware},
    ErrorRow<DWORD>{ERROR_BAD_COMMAND, PortFault::kNoHardware},
    ErrorRow<DWORD>{ERROR_SEM_TIMEOUT, PortFault::kNoHardware},  // a wireless port out of reach
    ErrorRow<DWORD>{ERROR_INVALID_FUNCTION, PortFault::kNotSerial},
    ErrorRow<DWORD>{ERROR_INVALID_HANDLE, PortFault::kNotSerial},
    ErrorRow<DWORD>{ERROR_NOT_SUPPORTED, PortFault::kNotSerial},
    ErrorRow<DWORD>{ERROR_ACCESS_DENIED, PortFault::kBusy},  // the system's word for a port in use
    ErrorRow<DWORD>{ERROR_SHARING_VIOLATION, PortFault::kBusy},
    ErrorRow<DWORD>{ERROR_BUSY, PortFault::kBusy},
    ErrorRow<DWORD>{ERROR_PIPE_BUSY, PortFault::kBusy},
};

// A device that is unplugged, or whose far end is gone. Drivers differ in what they say then.
constexpr std::array kTransferFaults = {
    ErrorRow<DWORD>{ERROR_BAD_COMMAND, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_DEVICE_NOT_CONNECTED, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_OPERATION_ABORTED, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_GEN_FAILURE, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_ACCESS_DENIED, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_FILE_NOT_FOUND, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_INVALID_HANDLE, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_NOT_READY, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_DEV_NOT_EXIST, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_DEVICE_REMOVED, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_IO_DEVICE, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_BROKEN_PIPE, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_NO_DATA,
                    PortFault::kLost},  // a pipe's word for a far end that is closing
    ErrorRow<DWORD>{ERROR_PIPE_NOT_CONNECTED, PortFault::kLost},
    ErrorRow<DWORD>{ERROR_HANDLE_EOF, PortFault::kLost},
};

Failure SystemFailure(PortFault fault, PortFault unexplained, const std::string& device,
                      DWORD error) {
  return fault == unexplained ? PortFailure(fault, device, static_cast<int>(error))
                              : PortFailure(fault, device);
}

void Require(bool done, const std::string& device) {
  if (!done) throw OpeningFailure(device, ::GetLastError());
}

bool IsTimeout(DWORD error) {
  return error == ERROR_TIMEOUT || error == ERROR_SEM_TIMEOUT;
}

}  // namespace

PortFault OpeningFault(DWORD error) {
  return FaultIn(kOpeningFaults, error, PortFault::kCannotOpen);
}

PortFault TransferFault(DWORD error) {
  return FaultIn(kTransferFaults, error, PortFault::kTransfer);
}

Failure OpeningFailure(const std::string& device, DWORD error) {
  return SystemFailure(OpeningFault(error), PortFault::kCannotOpen, device, error);
}

Failure TransferFailure(const std::string& device, DWORD error) {
  return SystemFailure(TransferFault(error), PortFault::kTransfer, device, error);
}

std::string DevicePath(std::string_view device) {
  const bool whole = device.substr(0, kDevicePrefix.size()) == kDevicePrefix;
  return std::string(whole ? "" : kDevicePrefix).append(device);
}

WindowsPort::WindowsPort(std::string device, std::optional<std::int32_t> speed,
                         PortPatience patience)
    : device_(std::move(device)), speed_(speed), patience_(patience) {}

void WindowsPort::PortOpen(bool open) {
  if (open && PortOpen()) throw PortFailure(PortFault::kAlreadyOpen, device_);
  open ? Open() : Close();
}

void WindowsPort::Open() {
  constexpr DWORD kForUsAlone = 0;
  Handle handle(::CreateFileA(DevicePath(device_).c_str(), GENERIC_READ | GENERIC_WRITE,
                              kForUsAlone, nullptr, OPEN_EXISTING, 0, nullptr));
  Require(static_cast<bool>(handle), device_);
  SetUpLine(handle.Get());
  stale_ = true;
  handle_ = std::move(handle);
}

void WindowsPort::SetUpLine(HANDLE handle) const {
  DCB now = {};
  now.DCBlength = sizeof now;
  Require(::GetCommState(handle, &now) != 0, device_);
  ::SetupComm(handle, kBufferSize, kBufferSize);  // a wish, which a driver may not grant
  DCB wanted = RawLine(now, speed_);
  Require(::SetCommState(handle, &wanted) != 0, device_);
  COMMTIMEOUTS timeouts = LineTimeouts(patience_.look, patience_.stall);
  Require(::SetCommTimeouts(handle, &timeouts) != 0, device_);
  // Some drivers raise the lines only when told so; not every device has them.
  ::EscapeCommFunction(handle, SETDTR);
  ::EscapeCommFunction(handle, SETRTS);
}

void WindowsPort::Close() {
  handle_.Close();
  received_.clear();
}

void WindowsPort::RequireOpen() const {
  if (!PortOpen()) throw PortFailure(PortFault::kNotOpen, device_);
}

void WindowsPort::RequireTransfer(bool done) const {
  if (!done) throw TransferFailure(device_, ::GetLastError());
}

void WindowsPort::Output(std::string_view bytes) {
  RequireOpen();
  DropStale();
  while (!bytes.empty()) {
    const std::size_t written = Write(bytes);
    if (written == 0) throw PortFailure(PortFault::kStalled, device_);
    bytes.remove_prefix(written);
  }
}

// Bytes that the line took before its time was up.
std::size_t WindowsPort::Write(std::string_view bytes) {
  DWORD written = 0;
  const bool done = ::WriteFile(handle_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()),
                                &written, nullptr) != 0;
  RequireTransfer(done || IsTimeout(::GetLastError()));
  return written;
}

// The read waits for the first byte and may bring it alone: what stands behind it is taken with it. A
// driver that has lost its device may answer reads with nothing at all, but not the question how much
// there is.
std::size_t WindowsPort::InBufferCount() {
  RequireOpen();
  DropStale();
  TakeInput();
  if (Queued() > 0) TakeInput();
  return received_.size();
}

std::size_t WindowsPort::TakeInput() {
  std::array<char, kBufferSize> bytes;
  DWORD count = 0;
  const bool done = ::ReadFile(handle_.Get(), bytes.data(), kBufferSize, &count, nullptr) != 0;
  RequireTransfer(done || IsTimeout(::GetLastError()));
  received_.append(bytes.data(), count);
  return count;
}

std::size_t WindowsPort::Queued() const {
  COMSTAT state = {};
  DWORD errors = 0;
  RequireTransfer(::ClearCommError(handle_.Get(), &errors, &state) != 0);
  return state.cbInQue;
}

void WindowsPort::DiscardInput() {
  RequireOpen();
  received_.clear();
  stale_ = false;
  RequireTransfer(::PurgeComm(handle_.Get(), PURGE_RXCLEAR) != 0);
}

// What the device held when it was opened goes at the first use: an exchange begins with a discard,
// and needs no second one.
void WindowsPort::DropStale() {
  if (stale_) DiscardInput();
}

std::string WindowsPort::Input() {
  RequireOpen();
  return std::exchange(received_, std::string());
}

std::unique_ptr<SerialPort> MakeDevicePort(const std::string& device,
                                           std::optional<std::int32_t> speed) {
  if (IsPipe(device)) return std::make_unique<PipePort>(device);
  return std::make_unique<WindowsPort>(device, speed);
}

std::string DeviceOfNumber(std::int32_t number) {
  return "COM" + std::to_string(number);
}

DCB RawLine(const DCB& now, std::optional<std::int32_t> speed) {
  DCB line = {};
  line.DCBlength = sizeof line;
  line.BaudRate = speed ? static_cast<DWORD>(*speed) : now.BaudRate;
  line.fBinary = TRUE;  // the system knows no other
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  line.fAbortOnError = FALSE;  // a byte that arrives damaged is the exchange's affair
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  // Unused without handshake, but a driver refuses limits that its buffer cannot hold, or one character
  // for both signs.
  line.XonLim = now.XonLim;
  line.XoffLim = now.XoffLim;
  line.XonChar = now.XonChar;
  line.XoffChar = now.XoffChar;
  return line;
}

COMMTIMEOUTS LineTimeouts(std::int32_t look, std::int32_t stall) {
  COMMTIMEOUTS timeouts = {};
  timeouts.ReadIntervalTimeout = MAXDWORD;
  timeouts.ReadTotalTimeoutMultiplier = MAXDWORD;
  timeouts.ReadTotalTimeoutConstant = static_cast<DWORD>(look);
  timeouts.WriteTotalTimeoutConstant = static_cast<DWORD>(stall);
  return timeouts;
}

}  // namespace kestra
