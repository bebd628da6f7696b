// Starts Windows programs for tests that run on the other system, and tells how each of them ended.
//
//   starter PORT
//
// It calls PORT of this machine, tells there the number of the port where it takes orders, and ends when
// that call does. An order is a call of its own. It begins with lines in UTF-8, a word and its value each,
// and an empty line:
//
//   folder DIRECTORY    set NAME=VALUE    output FILE    errors FILE    command COMMAND LINE
//
// The answer is a line "started NUMBER" or "failed ERROR", and when the program has ended "ended CODE". Who
// says anything meanwhile, or hangs up, ends the program.
//
// A program started from here has a file for its output, no input, and its own result: not what Wine's
// process makes of it on its way out.
#include <winsock2.h>
// After it.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr UINT kEndedByATest = 250;

CRITICAL_SECTION one_at_a_time;  // handles that one program is to inherit are no other's

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

void Say(SOCKET call, const std::string& line) {
  send(call, line.data(), static_cast<int>(line.size()), 0);
}

// ---- The order ----

struct Order {
  std::wstring folder, output, errors, command;
  std::vector<std::wstring> environment;
};

void Take(Order& order, const std::string& line) {
  const auto blank = line.find(' ');
  const std::string word = line.substr(0, blank);
  std::wstring value = Wide(line.substr(blank + 1));
  if (word == "set") return order.environment.push_back(std::move(value));
  const std::map<std::string, std::wstring Order::*> places = {{"folder", &Order::folder},
                                                               {"output", &Order::output},
                                                               {"errors", &Order::errors},
                                                               {"command", &Order::command}};
  order.*places.at(word) = std::move(value);
}

Order Hear(SOCKET call) {
  Order order;
  std::string line;
  for (char c = 0; recv(call, &c, 1, 0) == 1;) {
    if (c != '\n') {
      line += c;
    } else if (line.empty()) {
      break;
    } else {
      Take(order, std::exchange(line, {}));
    }
  }
  return order;
}

// ---- The program ----

std::wstring NameOf(const std::wstring& setting) {
  return setting.substr(0, setting.find(L'=', 1) + 1);
}

// This program's variables with the order's in place of those of the same name.
std::wstring Environment(const std::vector<std::wstring>& changes) {
  std::wstring block;
  wchar_t* const own = GetEnvironmentStringsW();
  for (const wchar_t* each = own; *each != L'\0'; each += std::wstring(each).size() + 1) {
    const std::wstring setting = each;
    const bool changed = std::any_of(changes.begin(), changes.end(), [&](const auto& change) {
      return NameOf(change) == NameOf(setting);
    });
    if (!changed) block += setting + L'\0';
  }
  FreeEnvironmentStringsW(own);
  for (const auto& change : changes) block += change + L'\0';
  return block + L'\0';
}

HANDLE OpenForAll(const wchar_t* file, DWORD rights, DWORD how) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileW(file, rights, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     &inherited, how, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// 0, or the system's number for what went wrong.
DWORD Start(const Order& order, PROCESS_INFORMATION& program) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  std::wstring command = order.command;
  std::wstring environment = Environment(order.environment);
  EnterCriticalSection(&one_at_a_time);
  start.hStdInput = OpenForAll(L"NUL", GENERIC_READ, OPEN_EXISTING);
  start.hStdOutput = OpenForAll(order.output.c_str(), FILE_APPEND_DATA, OPEN_ALWAYS);
  start.hStdError = OpenForAll(order.errors.c_str(), FILE_APPEND_DATA, OPEN_ALWAYS);
  // No console: making one takes a program of its own, and longer than most that are started here.
  const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE,
                                      DETACHED_PROCESS | CREATE_UNICODE_ENVIRONMENT,
                                      environment.data(), order.folder.c_str(), &start, &program);
  const DWORD error = started ? 0 : std::max(GetLastError(), DWORD{1});
  for (const HANDLE each : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(each);
  LeaveCriticalSection(&one_at_a_time);
  return error;
}

// Its end, or the wish of whoever ordered it.
void SeeItEnd(SOCKET call, HANDLE program) {
  const HANDLE word = WSACreateEvent();
  WSAEventSelect(call, word, FD_READ | FD_CLOSE);
  const HANDLE either[] = {program, word};
  if (WaitForMultipleObjects(2, either, FALSE, INFINITE) != WAIT_OBJECT_0) {
    TerminateProcess(program, kEndedByATest);
    WaitForSingleObject(program, INFINITE);
  }
  WSACloseEvent(word);
}

void Serve(SOCKET call) {
  PROCESS_INFORMATION program{};
  const DWORD error = Start(Hear(call), program);
  if (error != 0) return Say(call, "failed " + std::to_string(error) + "\n");
  Say(call, "started " + std::to_string(program.dwProcessId) + "\n");
  SeeItEnd(call, program.hProcess);
  DWORD code = 0;
  GetExitCodeProcess(program.hProcess, &code);
  Say(call, "ended " + std::to_string(code) + "\n");
  CloseHandle(program.hThread);
  CloseHandle(program.hProcess);
}

DWORD WINAPI ServeCall(void* told) {
  const auto call = reinterpret_cast<SOCKET>(told);
  Serve(call);
  closesocket(call);
  return 0;
}

// ---- The calls ----

// Programs must not inherit a call: it would outlive its end here.
SOCKET Own(SOCKET socket) {
  SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
  return socket;
}

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<u_short>(port));
  return address;
}

SOCKET Listen() {
  const SOCKET listener = Own(socket(AF_INET, SOCK_STREAM, 0));
  const sockaddr_in address = Loopback(0);
  bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  listen(listener, SOMAXCONN);
  return listener;
}

int PortOf(SOCKET listener) {
  sockaddr_in address{};
  int size = sizeof address;
  getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

DWORD WINAPI EndWith(void* told) {
  char any = 0;
  recv(reinterpret_cast<SOCKET>(told), &any, 1, 0);
  ExitProcess(0);
}

void StartThread(LPTHREAD_START_ROUTINE routine, SOCKET call) {
  CloseHandle(CreateThread(nullptr, 0, routine, reinterpret_cast<void*>(call), 0, nullptr));
}

}  // namespace

int main(int count, char** words) {
  WSADATA data{};
  if (count != 2 || WSAStartup(MAKEWORD(2, 2), &data) != 0) return 2;
  InitializeCriticalSection(&one_at_a_time);
  const SOCKET master = Own(socket(AF_INET, SOCK_STREAM, 0));
  const sockaddr_in address = Loopback(std::atoi(words[1]));
  if (connect(master, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return 3;
  const SOCKET listener = Listen();
  Say(master, std::to_string(PortOf(listener)) + "\n");
  StartThread(EndWith, master);
  for (;;) {
    const SOCKET call = accept(listener, nullptr, nullptr);
    if (call != INVALID_SOCKET) StartThread(ServeCall, Own(call));
  }
}
