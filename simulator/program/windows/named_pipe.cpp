#include "program/windows/named_pipe.hpp"

#include <windows.h>

#include <system_error>
#include <utility>

namespace impresora {
namespace {

constexpr std::string_view kFolder = R"(\\.\pipe\)";
constexpr DWORD kBufferSize = 65'536;

std::string Path(const std::string& name) {
  const bool whole = name.compare(0, kFolder.size(), kFolder) == 0;
  return whole ? name : std::string(kFolder) + name;
}

[[noreturn]] void Fail(DWORD error, const std::string& what) {
  throw std::system_error(static_cast<int>(error), std::system_category(), what);
}

HANDLE Create(const std::string& path) {
  const DWORD access = PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE;
  const DWORD mode = PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT;
  const HANDLE pipe =
      CreateNamedPipeA(path.c_str(), access, mode, 1, kBufferSize, kBufferSize, 0, nullptr);
  if (pipe == INVALID_HANDLE_VALUE) Fail(GetLastError(), path);
  return pipe;
}

}  // namespace

NamedPipe::NamedPipe(asio::io_context& loop, const std::string& name)
    : path_(Path(name)), pipe_(loop, Create(path_)), leaving_(pipe_) {}

void NamedPipe::Start(LineEvents events) {
  events_ = std::move(events);
  Await();
}

void NamedPipe::Await() {
  asio::windows::overlapped_ptr wait(pipe_.get_executor(),
                                     [this](asio::error_code error, std::size_t) {
                                       if (!error) Welcome();
                                     });
  if (ConnectNamedPipe(pipe_.native_handle(), wait.get()) != FALSE) {
    wait.complete(asio::error_code(), 0);
    return;
  }
  const DWORD error = GetLastError();
  if (error == ERROR_IO_PENDING) {
    wait.release();
  } else if (error == ERROR_PIPE_CONNECTED) {
    wait.complete(asio::error_code(), 0);
  } else {
    wait.complete({static_cast<int>(error), asio::error::get_system_category()}, 0);
  }
}

void NamedPipe::Welcome() {
  there_ = true;
  events_.new_host();
  Read();
}

void NamedPipe::Read() {
  const auto took = [this, visit = visit_](asio::error_code error, std::size_t count) {
    if (visit != visit_) return;
    if (error) return HangUp();
    events_.arrived({buffer_.data(), count});
    Read();
  };
  pipe_.async_read_some(asio::buffer(buffer_), took);
}

void NamedPipe::Write(std::string_view bytes) {
  if (there_) leaving_.Write(bytes);
}

// Breaks the host's end; the read that was under way ends with an error that is of no more use.
void NamedPipe::HangUp() {
  if (!there_) return;
  there_ = false;
  ++visit_;
  leaving_.Clear();
  DisconnectNamedPipe(pipe_.native_handle());
  Await();
}

}  // namespace impresora
