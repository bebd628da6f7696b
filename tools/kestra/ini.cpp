#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "commands.hpp"
#include "diagnosis.hpp"
#include "ini_check.hpp"
#include "ini_text.hpp"
#include "ini_write.hpp"
#include "json.hpp"
#include "key_words.hpp"
#include "looks.hpp"
#include "platform/shared/text.hpp"
#include "printer.hpp"
#include "settings.hpp"
#include "this_system.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

// ---- Writing ----

// The way that the words name; else the one of a Fiscal.ini that is there.
Way WayFor(const Request& request) {
  Way way = ReadWay();
  if (const auto port = request.Value("--puerto")) way.number = *port, way.device.clear();
  if (const auto device = request.Value("--dispositivo")) way.device = AnsiFromUtf8(*device);
  if (const auto speed = request.Value("--velocidad")) way.speed = *speed;
  if (way.speed.empty()) way.speed = "9600";
  if (way.number.empty()) way.number = "1";
  return way;
}

// Asks the printer at the end of it; the words may forbid that.
void AskThePrinter(const Request& request, Console& console, Way& way, NewSettings& settings) {
  Console nowhere(console.Error(), console.Error(), false);
  Diagnosis diagnosis(nowhere);
  diagnosis.Section("Impresora");
  const auto answering = LookAtLine(
      diagnosis, way, {.all_speeds = false, .other_ports = request.Has("--otros-puertos")});
  if (!answering) {
    throw Stop(Exit::kNoAnswer, "la impresora no contesta en " + Utf8FromAnsi(DeviceOf(way)) +
                                    "; ver kestra diagnostico, o dar --sin-impresora");
  }
  way = *answering;
  Probe probe(PortOf(way));
  const auto reply = probe.Ask(questions::kModel);
  if (reply.answered) settings.printer = ReadModel(reply);
  settings.repeats = LookAtRepeats(diagnosis, probe, request.Has("--probar-repetidas"));
}

std::string FamilyFor(const Request& request, const NewSettings& settings) {
  const auto told = request.Value("--familia");
  if (told && !IsFamily(*told)) throw Stop(Exit::kUsage, "--familia es TQ, TF o FC");
  if (told && settings.printer && settings.printer->family != *told) {
    throw Stop(Exit::kRefused, "la impresora es de la familia " + settings.printer->family);
  }
  if (!told && !settings.printer) throw Stop(Exit::kUsage, "falta --familia TQ, TF o FC");
  return told.value_or(settings.printer ? settings.printer->family : "");
}

Exit WriteIni(const Request& request, Console& console) {
  const auto target =
      request.operands.empty() ? std::string("Fiscal.ini") : request.operands.front();
  const bool shown = target == "-";
  if (!shown && KindOfFile(target) != FileKind::kNone && !request.Has("--reemplazar")) {
    throw Stop(Exit::kUsage, target + " ya está; con --reemplazar se escribe encima");
  }
  Way way = WayFor(request);
  NewSettings settings;
  if (!request.Has("--sin-impresora")) AskThePrinter(request, console, way, settings);
  settings.family = FamilyFor(request, settings);
  settings.port = way.number;
  settings.speed = way.speed;
  if (!way.device.empty()) settings.device = Utf8FromAnsi(way.device);
  const auto text = NewIniText(settings);
  if (console.WantsJson()) {
    Print(console, {{"archivo", shown ? Json() : Json(target)}, {"texto", text}});
  } else if (shown) {
    console.Out() << text;
  }
  if (shown) return Exit::kGood;
  if (!WriteFile(target, AnsiFromUtf8(text)))
    throw Stop(Exit::kBroken, "no se pudo escribir " + target);
  if (!console.WantsJson())
    console.Line("Escrito " + target +
                 (settings.printer ? ", de la impresora " + settings.printer->model : ""));
  return Exit::kGood;
}

// ---- Explaining ----

Exit ExplainIni(const Request& request, Console& console) {
  Json rows = Json::array();
  const auto explain = [&](const KeyWords& words) {
    const bool wanted =
        request.operands.empty() ||
        std::any_of(request.operands.begin(), request.operands.end(),
                    [&](const std::string& name) { return SameWithoutCase(name, words.name); });
    if (!wanted) return;
    const auto value = Utf8FromAnsi(ReadSetting(words.name));
    rows.push_back(
        {{"clave", words.name}, {"valor", value}, {"que", words.what}, {"usual", words.usual}});
    if (console.WantsJson()) return;
    constexpr std::size_t kWidth = 34;
    console.Line(Wrapped(
        Padded(std::string(words.name) + "=" + value, kWidth) + " " + std::string(words.what),
        kWidth + 1));
  };
  ForEachWords(explain);
  if (rows.empty()) throw Stop(Exit::kUsage, "no se conoce la clave " + Joined(request.operands));
  if (console.WantsJson()) Print(console, rows);
  return Exit::kGood;
}

// ---- Comparing ----

std::string ValueIn(const IniText& text, std::string_view key) {
  const auto found = std::find_if(text.lines.begin(), text.lines.end(), [&](const IniLine& line) {
    return SameWithoutCase(line.key, key);
  });
  return found == text.lines.end() ? std::string() : Utf8FromAnsi(found->value);
}

IniText IniOf(const std::string& file) {
  const auto text = ReadFile(file);
  if (!text) throw Stop(Exit::kBadSettings, "no se puede leer " + file);
  auto ini = ReadIniText(*text);
  if (!ini.has_section)
    throw Stop(Exit::kBadSettings, file + " no tiene la sección [Epson_Fiscal]");
  return ini;
}

// Of both, each once, in the order in which they first stand.
std::vector<std::string> KeysOf(const IniText& one, const IniText& other) {
  std::vector<std::string> names;
  for (const auto* text : {&one, &other}) {
    for (const auto& line : text->lines) {
      const bool known = std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return SameWithoutCase(name, line.key);
      });
      if (!known) names.push_back(line.key);
    }
  }
  return names;
}

Exit CompareIni(const Request& request, Console& console) {
  constexpr std::size_t kWidth = 24;
  if (request.operands.size() != 2) throw Stop(Exit::kUsage, "kestra ini --comparar UNO OTRO");
  const auto one = IniOf(request.operands[0]);
  const auto other = IniOf(request.operands[1]);
  Json rows = Json::array();
  for (const auto& name : KeysOf(one, other)) {
    const auto first = ValueIn(one, name);
    const auto second = ValueIn(other, name);
    if (first == second) continue;
    rows.push_back({{"clave", Utf8FromAnsi(name)}, {"uno", first}, {"otro", second}});
    if (!console.WantsJson())
      console.Line(Padded(Utf8FromAnsi(name), kWidth) + " " + Padded(first, kWidth) + " " + second);
  }
  if (console.WantsJson()) Print(console, rows);
  if (!console.WantsJson() && rows.empty()) console.Line("dicen lo mismo");
  return rows.empty() ? Exit::kGood : Exit::kFindings;
}

Exit CheckIni(Console& console) {
  Diagnosis diagnosis(console);
  CheckSettings(diagnosis);
  return diagnosis.Conclude();
}

}  // namespace

Exit RunIni(const Request& request, Console& console) {
  const bool writes = request.Has("--escribir");
  const bool explains = request.Has("--explicar");
  const bool compares = request.Has("--comparar");
  if (writes + explains + compares > 1)
    throw Stop(Exit::kUsage, "--escribir, --explicar y --comparar: una sola");
  if (writes) return WriteIni(request, console);
  if (explains) return ExplainIni(request, console);
  if (compares) return CompareIni(request, console);
  if (!request.operands.empty())
    throw Stop(Exit::kUsage, "sobra " + request.operands.front() + "; ver kestra ini --ayuda");
  return CheckIni(console);
}

}  // namespace kestra::tool
