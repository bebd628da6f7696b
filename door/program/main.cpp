#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "base/clock.hpp"
#include "base/sha256.hpp"
#include "program/command_line.hpp"
#include "program/configuration.hpp"
#include "program/log_lines.hpp"
#include "program/serve.hpp"
#include "program/service_of_system.hpp"
#include "service/loop.hpp"
#include "service/process.hpp"
#include "worker/worker.hpp"

namespace puerta {
namespace {

int Work(const Options& options, Loop& loop) {
  const SystemClock clock;
  LogLines log(std::cerr, clock);
  const auto read = LoadConfiguration(std::filesystem::u8path(options.configuration));
  TellErrors(read.errors, log);
  if (!read.errors.empty()) return 2;
  return Serve(read.configuration, loop, log);
}

int Door(const Options& options) {
  Loop loop;
  loop.StopOnSignals();
  const std::function<int()> work = [&] { return Work(options, loop); };
  if (options.mode != Mode::kService) return work();
  return RunAsService(work, [&loop] { loop.Stop(); });
}

int Wrong(const Options& options) {
  std::cerr << options.error << "\n" << Usage();
  return 2;
}

int Show(std::string_view text) {
  std::cout << text;
  return 0;
}

// The key goes to the till, its hash into the configuration: who reads that file cannot sell.
int ShowNewKey() {
  const auto key = RandomDigits(24);
  std::cout << "clave: " << key << "\nclave_sha256: " << Sha256(key) << "\n";
  return 0;
}

int Main(const Options& options) {
  if (!options.error.empty()) return Wrong(options);
  if (options.mode == Mode::kHelp) return Show(Usage());
  if (options.mode == Mode::kVersion) return Show("kestra-puerta " KESTRA_VERSION "\n");
  if (options.mode == Mode::kNewKey) return ShowNewKey();
  return options.mode == Mode::kWorker ? RunWorker() : Door(options);
}

}  // namespace
}  // namespace puerta

int main(int count, char** arguments) {
  return puerta::Main(puerta::ReadOptions(puerta::Words(count, arguments)));
}
