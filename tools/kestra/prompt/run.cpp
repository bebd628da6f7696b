#include <chrono>
#include <filesystem>
#include <fstream>
#include <istream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "commands.hpp"
#include "kestra/kestra.h"
#include "log/source.hpp"
#include "platform/seam/serial_port.hpp"
#include "printer.hpp"
#include "probe.hpp"
#include "program/ini_file.hpp"
#include "prompt/line_editor.hpp"
#include "prompt/own_printer.hpp"
#include "prompt/prompt.hpp"
#include "settings.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kUsualSettings =
#include "prompt/usual_settings.inc"
    ;
constexpr std::string_view kSettings = "Fiscal.ini";

std::string Name(const std::filesystem::path& path) {
  const auto name = path.u8string();
  return {name.begin(), name.end()};
}

std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// Of two equal keys the first counts: those of ours stand right behind the section's name.
std::string WithKeys(std::string text, const std::string& keys) {
  const auto section = text.find('[');
  const auto end = section == std::string::npos ? section : text.find('\n', section);
  if (end == std::string::npos) throw Stop(Exit::kBadSettings, "Fiscal.ini no tiene sección");
  return text.insert(end + 1, keys);
}

// A folder of its own, with a Fiscal.ini that leads to a printer within this program. The program works there.
class OwnShop {
 public:
  explicit OwnShop(const std::string& family) : before_(CurrentFolder()) {
    if (!DeviceInstead().empty())
      throw Stop(Exit::kUsage, "con --virtual no puede estar KESTRA_DISPOSITIVO");
    const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
    folder_ = std::filesystem::temp_directory_path() / ("kestra-consola-" + std::to_string(moment));
    std::filesystem::create_directory(folder_);
    const std::filesystem::path there(kSettings);
    const bool has_settings = std::filesystem::is_regular_file(there);
    const std::string text = has_settings ? ReadAll(there) : std::string(kUsualSettings);
    Write(WithKeys(text, "TipoComprobante=" + family + "\r\n"));
    impresora::Settings settings;
    const std::string wrong = impresora::ApplyFiscalIni((folder_ / kSettings).string(), settings);
    if (!wrong.empty()) throw Stop(Exit::kBadSettings, wrong);
    printer_.emplace(settings);
    Write(WithKeys(text, "TipoComprobante=" + family +
                             "\r\nImpresoraDispositivo=" + printer_->Port() + "\r\n"));
    EnterFolder(Name(folder_));
  }
  OwnShop(const OwnShop&) = delete;
  OwnShop& operator=(const OwnShop&) = delete;
  ~OwnShop() {
    EP_Kill();
    EnterFolder(before_);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::vector<std::string> TakePaper() { return printer_->TakePaper(); }

 private:
  void Write(const std::string& text) const {
    std::ofstream file(folder_ / kSettings, std::ios::binary);
    file << text;
    file.close();
    if (!file) throw Stop(Exit::kBroken, "no se puede escribir en " + Name(folder_));
  }

  std::string before_;
  std::filesystem::path folder_;
  std::optional<OwnPrinter> printer_;
};

// Asked past the library, so that nothing of its own shows what was asked.
bool IsVirtualPrinter() {
  Probe probe(PortOf(ReadWay()));
  return IsVirtual(probe);
}

PromptRights RightsOf(const Request& request, OwnShop* shop) {
  if (shop != nullptr)
    return {.may_print = [] { return true; }, .take_paper = [shop] { return shop->TakePaper(); }};
  if (request.Has("--impresora-real")) return {.may_print = [] { return true; }};
  return {.may_print = [known = std::optional<bool>()]() mutable {
    if (!known) known = IsVirtualPrinter();
    return *known;
  }};
}

// A script ends with the first line that does not go as it wants.
Exit RunScript(std::istream& script, Prompt& prompt, const std::string& name) {
  std::string line;
  for (std::size_t number = 1; !prompt.Ended() && std::getline(script, line); ++number) {
    try {
      const Exit exit = prompt.Run(line, number);
      if (exit != Exit::kGood) throw Stop(exit, "no fue como debía: " + line);
    } catch (const Stop& stop) {
      throw Stop(stop.Code(), name + ":" + std::to_string(number) + ": " + stop.what());
    }
  }
  return Exit::kGood;
}

// Somebody types: a mistake is told, and the next line is another try.
Exit RunLines(Console& console, Prompt& prompt) {
  const auto editor = MakeLineEditor();
  const std::string sign = console.WantsJson() ? "" : "kestra> ";
  for (std::size_t number = 1; !prompt.Ended(); ++number) {
    const auto line = editor->Read(sign);
    if (!line) break;
    try {
      prompt.Run(*line, number);
    } catch (const Stop& stop) {
      console.Complain(stop.what());
    }
  }
  return Exit::kGood;
}

}  // namespace

Exit RunPrompt(const Request& request, Console& console) {
  std::ifstream script;
  if (!request.operands.empty()) {
    script.open(PathOf(request.operands.front()), std::ios::binary);
    if (!script) throw Stop(Exit::kBroken, "no se puede leer " + request.operands.front());
  }
  std::unique_ptr<OwnShop> shop;
  if (const auto family = request.Value("--virtual")) shop = std::make_unique<OwnShop>(*family);
  Prompt prompt(console, RightsOf(request, shop.get()));
  prompt.Begin();
  const Exit exit = script.is_open() ? RunScript(script, prompt, request.operands.front())
                                     : RunLines(console, prompt);
  EP_Kill();
  return exit;
}

}  // namespace kestra::tool
