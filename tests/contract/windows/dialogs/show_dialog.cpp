// Shows one dialog of the library, prints what is on it and how it was answered.
//
//   show_dialog OWNER ANSWER report PRINTER_WORD FISCAL_WORD
//   show_dialog OWNER ANSWER memory
//   show_dialog OWNER ANSWER message STYLE TITLE TEXT     ("\r" in the text is a carriage return)
//   show_dialog OWNER ANSWER nested PRINTER_WORD FISCAL_WORD     (memory, from the host's timer)
//
// OWNER: with or without (a host window), or service (where no screen shows any). ANSWER: the number of
// a button to press, "closebox", or "wait" for somebody at the keyboard.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "dialog_reader.hpp"
#include "dialogs/status_report.hpp"
#include "platform/windows/dialogs/resource_ids.h"
#include "platform/windows/dialogs/window_operator.hpp"
#include "platform/windows/text.hpp"
#include "protocol/answer.hpp"

using namespace kestra;

// The program's own pointer to the function that sounds the beep.
#ifdef _WIN64
extern "C" void* beep_import __asm__("__imp_MessageBeep");
#else
extern "C" void* beep_import __asm__("__imp__MessageBeep@4");
#endif

namespace {

constexpr int kFailed = 3;
constexpr DWORD kPatience = 600000;  // only what hangs takes so long
constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerPeriod = 50;

WindowOperator person;
LONG beeps = 0;
LONG ticks = 0;
bool nested = false;

struct Story {
  bool owner;
  std::string answer;
  std::vector<std::string> words;
};

BOOL WINAPI CountBeep(UINT /*kind*/) {
  InterlockedIncrement(&beeps);
  return TRUE;
}

bool ListenForBeeps() {
  DWORD old = 0;
  if (!VirtualProtect(&beep_import, sizeof beep_import, PAGE_READWRITE, &old)) return false;
  beep_import = reinterpret_cast<void*>(CountBeep);
  return true;
}

// Systems that scale windows by themselves leave that to programs that say so.
void SeeEveryPixel() {
  const auto address =
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32"), "SetProcessDPIAware"));
  if (address != nullptr) reinterpret_cast<BOOL(WINAPI*)()>(address)();
}

// ---- The one who answers ----

BOOL CALLBACK KeepDialog(HWND window, LPARAM found) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const bool dialog = ClassOf(window) == L"#32770" && process == GetCurrentProcessId();
  if (!dialog || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The dialog that waits for an answer, other than the one answered before.
HWND WaitForDialog(HWND before) {
  for (const DWORD start = GetTickCount(); GetTickCount() - start < kPatience; Sleep(10)) {
    HWND found = nullptr;
    EnumWindows(KeepDialog, reinterpret_cast<LPARAM>(&found));
    if (found != nullptr && found != before) return found;
  }
  std::printf("no dialog came\n");
  std::fflush(stdout);
  ExitProcess(kFailed);
}

void Answer(HWND dialog, const std::string& answer) {
  if (answer == "wait") return;
  if (answer == "closebox") {
    PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    return;
  }
  PostMessageW(GetDlgItem(dialog, std::atoi(answer.c_str())), BM_CLICK, 0, 0);
}

// While the window manager takes it into its frame, its place is told relative to that.
void WaitForItsPlace(HWND dialog) {
  RECT place{.left = -1, .top = -1, .right = 0, .bottom = 0};
  for (const DWORD start = GetTickCount(); GetTickCount() - start < kPatience; Sleep(10)) {
    if (GetWindowRect(dialog, &place) && place.left >= 0 && place.top >= 0) return;
  }
}

void Tell(HWND dialog) {
  WaitForItsPlace(dialog);
  UpdateWindow(dialog);
  DescribeWindow(dialog);
  std::printf("beeps\t%ld\n", beeps);
  std::printf("ready\n");
  std::fflush(stdout);
}

DWORD WINAPI Watch(void* told) {
  const Story& story = *static_cast<const Story*>(told);
  HWND dialog = WaitForDialog(nullptr);
  if (nested) {
    // The report may be seen before the warning has come over it.
    while (GetDlgItem(dialog, Label2) == nullptr) dialog = WaitForDialog(dialog);
    const HWND upper = dialog;
    Tell(upper);
    Answer(upper, std::to_string(IDCANCEL));
    dialog = WaitForDialog(upper);
  }
  Tell(dialog);
  Answer(dialog, story.answer);
  return 0;
}

// ---- The host ----

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM word, LPARAM value) {
  if (message == WM_TIMER && InterlockedIncrement(&ticks) == 1 && nested) person.MemoryFull();
  return DefWindowProcW(window, message, word, value);
}

HWND OpenHost() {
  WNDCLASSW kind{};
  kind.lpfnWndProc = HostProcedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = L"show_dialog host";
  RegisterClassW(&kind);
  const HWND host =
      CreateWindowExW(0, kind.lpszClassName, L"Caja", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 40, 300,
                      200, nullptr, nullptr, kind.hInstance, nullptr);
  SetActiveWindow(host);
  SetTimer(host, kTimer, kTimerPeriod, nullptr);
  return host;
}

Report ReportOf(const std::string& printer, const std::string& fiscal) {
  State state;
  state.EstadoImpresora = printer;
  state.EstadoFiscal = fiscal;
  DecodePrinter(printer, state.BitImpresora);
  DecodeFiscal(fiscal, state.BitFiscal);
  return BuildReport(state);
}

// "\r" and "\0" spelled out: no command line carries the bytes themselves.
std::string Unspelled(std::string text) {
  for (std::size_t at = text.find('\\'); at != std::string::npos; at = text.find('\\', at + 1))
    text.replace(at, 2, 1, text.at(at + 1) == 'r' ? '\r' : '\0');
  return text;
}

using Words = std::vector<std::string>;
using Show = std::function<int(const Words&)>;

const std::map<std::string, Show> kDialogs = {
    {"report",
     [](const Words& w) { return person.StatusReport(ReportOf(w.at(1), w.at(2))) ? 1 : 0; }},
    {"nested",
     [](const Words& w) { return person.StatusReport(ReportOf(w.at(1), w.at(2))) ? 1 : 0; }},
    {"memory",
     [](const Words& /*w*/) {
       person.MemoryFull();
       return 0;
     }},
    {"message",
     [](const Words& w) {
       return static_cast<int>(
           person.Message(Unspelled(w.at(3)), w.at(2), std::atoi(w.at(1).c_str())));
     }},
};

// A process as services are: its windows would be on a desktop that no screen shows.
int RunAsService(const Words& words) {
  const HWINSTA unseen = CreateWindowStationW(L"show_dialog", 0, WINSTA_ALL_ACCESS, nullptr);
  if (unseen == nullptr || !SetProcessWindowStation(unseen)) return kFailed;
  std::printf("answer\t%d\n", kDialogs.at(words.at(0))(words));
  return 0;
}

int Run(const Story& story) {
  nested = story.words.at(0) == "nested";
  const HWND host = story.owner ? OpenHost() : nullptr;
  const HANDLE watcher = CreateThread(nullptr, 0, Watch, const_cast<Story*>(&story), 0, nullptr);
  const int answer = kDialogs.at(story.words.at(0))(story.words);
  WaitForSingleObject(watcher, kPatience);
  CloseHandle(watcher);
  std::printf("answer\t%d\n", answer);
  std::printf("host\t%s\n", host == nullptr         ? "none"
                            : IsWindowEnabled(host) ? "enabled"
                                                    : "disabled");
  std::printf("ticks\t%ld\n", ticks);
  return 0;
}

// Arguments in windows-1252, whatever the system's code page is.
Words Arguments() {
  int count = 0;
  LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
  Words words;
  for (int i = 1; i < count; ++i) words.push_back(AnsiFromWide(wide[i]));
  LocalFree(wide);
  return words;
}

}  // namespace

int main() {
  const Words words = Arguments();
  if (words.size() < 3 || !ListenForBeeps()) return kFailed;
  std::printf("codepage\t%u\n", GetACP());
  if (words[0] == "service") return RunAsService({words.begin() + 2, words.end()});
  SeeEveryPixel();
  const HDC screen = GetDC(nullptr);
  std::printf("screen\t%d\t%d\t%d\t%06lx\n", GetSystemMetrics(SM_CXSCREEN),
              GetSystemMetrics(SM_CYSCREEN), GetDeviceCaps(screen, LOGPIXELSX),
              GetSysColor(COLOR_GRAYTEXT));
  ReleaseDC(nullptr, screen);
  return Run(
      {.owner = words[0] == "with", .answer = words[1], .words = {words.begin() + 2, words.end()}});
}
