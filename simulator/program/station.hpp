#pragma once

#include <asio.hpp>
#include <memory>
#include <optional>

#include "program/driver.hpp"
#include "program/options.hpp"
#include "program/parts.hpp"
#include "program/sinks.hpp"
#include "program/system_clock.hpp"
#include "trace/player.hpp"

namespace impresora {

// The printer at work: its line, its files and its panel around one loop.
class Station {
 public:
  // Throws std::exception when a line, file or memory cannot be had.
  explicit Station(const Options& options);

  // Returns when a signal arrives or the wanted number of documents is done.
  void Run();

 private:
  std::unique_ptr<Seat> MakeSeat(const Options& options);
  void CatchSignals();
  void SetUpPrinter(const Options& options);
  void OpenPanel(const Options& options);
  HostLine LineNow(const Options& options) const;
  void Announce() const;
  void EndIfFinished();

  unsigned wanted_documents_;
  asio::io_context loop_;
  asio::signal_set signals_;
  SystemClock clock_;
  std::unique_ptr<Store> memory_;
  Session session_;
  std::optional<Player> player_;
  std::unique_ptr<Seat> seat_;
  DocumentCount documents_;
  bool occupied_ = false;  // by another program, at the panel's wish
  Sinks sinks_;
  std::unique_ptr<Endpoint> endpoint_;
  LineSpeed speed_;
  Driver driver_;
  std::unique_ptr<PanelPart> panel_;
};

}  // namespace impresora
