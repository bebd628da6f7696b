#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "commands.hpp"
#include "diagnosis.hpp"
#include "ini_check.hpp"
#include "ini_text.hpp"
#include "looks.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

void NoteRepeats(Diagnosis& diagnosis, bool knows) {
  const auto files = SettingsFiles();
  const auto changed =
      WithKey(ReadFile(files.front()).value_or(""), "ReconoceRepetidas", knows ? "1" : "0");
  if (!changed || !WriteFile(files.front(), *changed)) {
    throw Stop(Exit::kBroken, "no se pudo escribir " + files.front());
  }
  diagnosis.Fact("anotado",
                 std::string("ReconoceRepetidas=") + (knows ? "1" : "0") + " en " + files.front());
}

void LookAtAnsweringPrinter(Diagnosis& diagnosis, const Way& way, const Request& request) {
  try {
    Probe probe(PortOf(way));
    LookAtPrinter(diagnosis, probe, way);
    LookAtTimes(diagnosis, probe);
    const auto knows = LookAtRepeats(
        diagnosis, probe, request.Has("--probar-repetidas") || request.Has("--anotar-repetidas"));
    if (knows && request.Has("--anotar-repetidas")) NoteRepeats(diagnosis, *knows);
  } catch (const Failure& failure) {
    diagnosis.Find(Trouble::kLostLine, Utf8FromAnsi(failure.Description()));
  }
}

}  // namespace

Exit RunDiagnosis(const Request& request, Console& console) {
  Diagnosis diagnosis(console);
  const bool reachable = CheckSettings(diagnosis);
  if (diagnosis.Found(Trouble::kNoFile) || diagnosis.Found(Trouble::kNoSection)) {
    return diagnosis.Conclude();
  }
  const Way way = ReadWay();
  if (reachable) {
    LookAtDevice(diagnosis, way);
    const LineLook look{.all_speeds = request.Has("--todas-las-velocidades"),
                        .other_ports = request.Has("--otros-puertos")};
    const auto answering = LookAtLine(diagnosis, way, look);
    if (answering) LookAtAnsweringPrinter(diagnosis, *answering, request);
  }
  LookAtFiles(diagnosis, way);
  return diagnosis.Conclude();
}

}  // namespace kestra::tool
