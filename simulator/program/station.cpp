#include "program/station.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "program/endpoints.hpp"
#include "program/system.hpp"
#include "text/path.hpp"
#include "wire/speed.hpp"

namespace impresora {
namespace {

SessionSettings LineOf(const Options& options) {
  SessionSettings settings;
  settings.baud = HasOwnSpeed(options) ? 0 : options.baud;
  settings.seed = options.seed;
  return settings;
}

// The speed that the line garbles at other ones, or 0 when it does not mind.
int MindedBaud(const Options& options) {
  return options.settings.strict && !HasOwnSpeed(options) ? options.baud : 0;
}

Cable CableOf(const Options& options, std::string_view port) {
  if (!options.device.empty()) return Cable::kSerial;
  if (!options.pipe.empty()) return Cable::kPipe;
  return port.starts_with("tcp:") ? Cable::kTcp : Cable::kPseudoTerminal;
}

// Every mistake of the file, not only the first.
void AddFaults(const std::string& path, FaultPlan& plan) {
  if (path.empty()) return;
  const std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) throw std::runtime_error("no se puede leer " + path);
  std::ostringstream text;
  text << file.rdbuf();
  std::string wrong;
  for (const FaultMistake& mistake : plan.Add(text.str())) wrong += "\n  " + mistake.Words();
  if (!wrong.empty()) throw std::runtime_error(path + wrong);
}

}  // namespace

Station::Station(const Options& options)
    : wanted_documents_(static_cast<unsigned>(options.documents)),
      signals_(loop_),
      memory_(OpenMemoryPart(options)),
      session_(options.settings, clock_, LineOf(options)),
      seat_(MakeSeat(options)),
      sinks_(MakeSinks(options, session_.GetPrinter())),
      endpoint_(MakeEndpoint(loop_, options)),
      speed_(*endpoint_, MindedBaud(options), TellPerson),
      driver_(loop_, *seat_, *endpoint_, speed_, [this] { EndIfFinished(); }) {
  CatchSignals();
  SetUpPrinter(options);
  OpenPanel(options);
  driver_.Start();  // first: whoever reads the line's name may be there at once
  Announce();
}

std::unique_ptr<Seat> Station::MakeSeat(const Options& options) {
  if (options.replay.empty()) return std::make_unique<SeatOf<Session>>(session_);
  player_.emplace(ReadRecordingFile(PathOf(options.replay)), TellPerson);
  return std::make_unique<SeatOf<Player>>(*player_);
}

void Station::SetUpPrinter(const Options& options) {
  Printer& printer = session_.GetPrinter();
  printer.SetTime(clock_.LocalSeconds());
  if (memory_) printer.UseMemory(*memory_);
  for (const auto& [control, value] : options.controls) printer.Set(*control, value);
  AddFaults(options.fault_file, session_.Faults());
  session_.Attach(documents_);
  for (const auto& sink : sinks_) session_.Attach(*sink);
}

void Station::CatchSignals() {
  for (const int number : EndingSignals()) signals_.add(number);
  signals_.async_wait([this](asio::error_code error, int) {
    if (!error) loop_.stop();
  });
}

void Station::OpenPanel(const Options& options) {
  const auto post = [this](std::function<void()> work) {
    asio::post(loop_, [this, work = std::move(work)] {
      work();
      driver_.Turn();
    });
  };
  const auto occupy = [this](bool by_another) {
    if (!endpoint_->Occupy(by_another)) return false;
    occupied_ = by_another;
    return true;
  };
  panel_ = OpenPanelPart(options, session_, post,
                         {.line = [this, options] { return LineNow(options); }, .occupy = occupy});
}

HostLine Station::LineNow(const Options& options) const {
  const int host = endpoint_->HostBaud();
  const int minded = MindedBaud(options);
  return {
      .cable = CableOf(options, endpoint_->Port()),
      .port = endpoint_->Port(),
      .link = options.link.empty() ? "" : NameOf(std::filesystem::absolute(PathOf(options.link))),
      .baud = options.baud,
      .host_baud = host,
      .garbles = minded != 0 && host != 0 && !SoundAlike(minded, host),
      .occupied = occupied_};
}

// The line's name comes first: programs that start this one read it.
void Station::Announce() const {
  std::printf("Puerto: %s\n", endpoint_->Port().c_str());
  if (panel_) std::printf("Panel: %s\n", panel_->Url().c_str());
  std::fflush(stdout);
  if (!panel_ || panel_->Warning().empty()) return;
  TellPerson(panel_->Warning());
}

void Station::Run() {
  loop_.run();
  panel_.reset();
  session_.Tell();
  for (const auto& sink : sinks_) sink->Finish();
  const std::string report = session_.Faults().Report();
  if (!report.empty()) std::fprintf(stderr, "%s", report.c_str());
}

void Station::EndIfFinished() {
  if (wanted_documents_ == 0 || !session_.Acknowledged()) return;
  if (documents_.Count() >= wanted_documents_) loop_.stop();
}

}  // namespace impresora
