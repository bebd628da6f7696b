#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

#include "commands.hpp"
#include "log/report.hpp"
#include "log/source.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kUsualName = "fiscal.log";
constexpr std::size_t kColumns = 110;
constexpr auto kPause = std::chrono::milliseconds(250);

[[noreturn]] void Misused(const std::string& words) {
  throw Stop(Exit::kUsage, words + "; ver kestra registro --ayuda");
}

Filter ReadFilter(const Request& request) {
  Filter filter;
  filter.failures = request.Has("--fallas");
  if (const auto day = request.Value("--dia")) {
    filter.day = ReadDay(*day);
    if (!filter.day) Misused("no es un día: " + *day + " (16/11/2026 o 2026-11-16)");
  }
  if (const auto document = request.Value("--comprobante")) {
    if (!ReadDocument(*document, filter))
      Misused("no es un comprobante: " + *document + " (12 o B-12)");
  }
  return filter;
}

std::optional<CodePage> ReadPage(const Request& request) {
  const auto name = request.Value("--codigo");
  if (!name) return std::nullopt;
  const auto page = ReadCodePage(*name);
  if (!page) Misused("no se conoce el código " + *name + " (1252, 850, 437, utf-8 o utf-16)");
  return page;
}

// A page is for sending to others, so that there the customers' data are hidden unless somebody wants them seen.
bool WantsMask(const Request& request) {
  if (request.Has("--ocultar") && request.Has("--sin-ocultar"))
    Misused("--ocultar y --sin-ocultar se contradicen");
  return request.Has("--ocultar") || (request.Has("--html") && !request.Has("--sin-ocultar"));
}

// Where the sheet goes, and what it is.
class Output {
 public:
  Output(const Request& request, Console& console, const std::string& name, bool masked) {
    const auto page = request.Value("--html");
    if (!page) {
      sheet_ = console.WantsJson() ? MakeJsonSheet(console.Out())
                                   : MakeTextSheet(console.Out(), kColumns, OutputIsTerminal());
    } else if (*page == "-") {
      sheet_ = MakeHtmlSheet(console.Out(), name, masked);
    } else {
      file_.open(PathOf(*page), std::ios::binary);
      if (!file_) throw Stop(Exit::kBroken, "no se puede escribir " + *page);
      sheet_ = MakeHtmlSheet(file_, name, masked);
    }
  }

  Sheet& GetSheet() { return *sheet_; }

  // Throws Stop when not all of it could be written.
  void Close() {
    if (!file_.is_open()) return;
    file_.close();
    if (!file_) throw Stop(Exit::kBroken, "no se pudo escribir toda la página");
  }

 private:
  std::ofstream file_;
  std::unique_ptr<Sheet> sheet_;
};

// Until somebody ends the program.
[[noreturn]] void Follow(GrowingFile& file, LogReport& report) {
  for (;;) {
    const auto count = file.ReadOn([&](std::string_view bytes) { report.Feed(bytes); });
    if (count > 0) continue;
    report.Rest();
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace

Exit RunLog(const Request& request, Console& console) {
  const std::string name =
      request.operands.empty() ? std::string(kUsualName) : request.operands.front();
  const auto path = PathOf(name);
  const Filter filter = ReadFilter(request);
  const auto page = ReadPage(request);
  const bool masked = WantsMask(request);
  const bool follow = request.Has("--seguir");
  if (follow && request.Has("--html")) Misused("--html no va con --seguir");
  if (!follow && !std::filesystem::is_regular_file(path))
    throw Stop(Exit::kBroken, "no hay un archivo " + name);
  const LogFacts facts = SurveyLog(path, page);
  Output output(request, console, name, masked);
  LogReport report(facts, filter, Viewer({}, Mask(masked)), output.GetSheet());
  GrowingFile file(path);
  if (follow) Follow(file, report);
  file.ReadOn([&](std::string_view bytes) { report.Feed(bytes); });
  report.End();
  output.Close();
  return report.Counted().shown > 0 ? Exit::kGood : Exit::kFindings;
}

}  // namespace kestra::tool
