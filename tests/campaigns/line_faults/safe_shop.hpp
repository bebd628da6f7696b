#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "campaigns/line_faults/line_world.hpp"
#include "commands/commands.hpp"
#include "frame/instance.hpp"
#include "golden/exports.hpp"
#include "golden/words.hpp"
#include "kestra/kestra.h"
#include "state/library.hpp"

namespace kestra::line_faults {

inline constexpr std::string_view kOpen =
    R"(EP_AbrirComprobanteFiscal "FC" "B" "" "" "" "" "F" "" "" "" "" "" 1)";
inline constexpr std::string_view kCoffee = R"(EP_ImprimirItem "Cafe" 2 1500 21 0 "" "" "")";
inline constexpr std::string_view kBread =
    R"(EP_ImprimirItem "Pan" 1 800.5 10.5 0 "Negro" "De molde" "")";
inline constexpr std::string_view kPay = R"(EP_ImprimirPago "Efectivo" 5000)";
inline constexpr std::string_view kClose = R"(EP_CerrarComprobanteFiscal "FC" "B" out)";
inline constexpr std::string_view kNumbers = "EP_Numeracion out";
inline constexpr std::string_view kDiscount = R"(EP_DescuentoGeneral "Descuento" 100)";
inline constexpr std::string_view kOpenA =
    R"(EP_AbrirComprobanteFiscal "FC" "A" "Sur" "" "CUIT" "30000000007" "I" "Sol 1" "" "" "" "" 1)";
inline constexpr std::string_view kPerception =
    R"(EP_EspecificarPercepcionGlobal "IIBB" 150 0 "O")";
inline constexpr std::string_view kCloseA = R"(EP_CerrarComprobanteFiscal "FC" "A" out)";
inline constexpr std::string_view kOpenNote =
    R"(EP_AbrirComprobanteNoFiscalHomologado "RT" "R" "Sur" "" "CUIT" "30000000007" "I" "Sol 1" "" "" "" "" 1)";
inline constexpr std::string_view kCloseNote = R"(EP_CerrarComprobanteNoFiscalHomologado "RT" "R")";
inline constexpr std::string_view kOpenPage = "EP_AbrirComprobanteNoFiscal";

inline constexpr Micros kMoment = std::chrono::seconds(8);
// Longer than PacienciaSegura.
inline constexpr Micros kLong = std::chrono::seconds(60);

// A till with the virtual printer at the end of its cable, on a clock of its own.
class Shop : public testing::Test {
 public:
  ~Shop() override { EP_Kill(); }

 protected:
  explicit Shop(Mode mode = Mode::kSafe) : Shop({}, mode) {}
  Shop(std::vector<std::pair<std::string, std::string>> settings, Mode mode,
       impresora::Family family = impresora::Family::kTicket) {
    settings.insert(settings.begin(), {"TipoComprobante", "TQ"});
    document_ = {"a day", family, std::move(settings), {}};
    auto owned = std::make_unique<LineWorld>(document_, std::span<const ByteFault>{}, mode);
    world_ = owned.get();
    ReplaceInstance(std::move(owned));
    EP_Init();
  }

  std::int32_t Call(std::string_view words) {
    const auto operation = golden::TakeWord(words);
    auto outcome = golden::CallExport(operation, golden::Words(words));
    number_ = outcome.buffers.empty() ? "" : outcome.buffers.front();
    return outcome.result;
  }
  void Sell(std::initializer_list<std::string_view> calls) {
    for (const auto call : calls) ASSERT_EQ(Call(call), 0) << call;
  }

  // The commands that the printer has carried out, but for questions, by their bytes.
  std::string Done() {
    world_->Settle();
    std::string done;
    for (const auto& exchange : world_->Exchanges()) {
      const bool carried_out = exchange.kind == impresora::ExchangeKind::kExecuted &&
                               (exchange.answer.fiscal & 0x0078) == 0 &&
                               (exchange.answer.printer & 0x0004) == 0;
      if (carried_out && !impresora::OnlyAsks(exchange.packet)) {
        done += static_cast<char>(exchange.packet.command);
      }
    }
    return done;
  }

  // The cable is out from so many bytes on for longer than anybody waits.
  void CallInDoubt(std::string_view call, std::size_t bytes = LineWorld::kWholeFrame) {
    World().Unplug(bytes);
    EXPECT_EQ(Call(call), 1) << call;
    World().PlugIn();
  }

  void UnplugForAMoment(std::size_t bytes = 0) {
    World().Unplug(bytes);
    World().In(kMoment, [this] { World().PlugIn(); });
  }
  void TakePaperOutFor(Micros time) {
    World().Printer().faults.paper_out = true;
    World().In(time, [this] { World().Printer().faults.paper_out = false; });
  }

  static void ExpectReport(Outcome outcome, Cause cause) {
    EXPECT_EQ(Report().outcome, outcome);
    EXPECT_EQ(Report().cause, cause);
  }
  static const kestra::CallReport& Report() { return Instance().certainty.report; }
  static bool IsPending() { return Instance().certainty.pending.has_value(); }

  std::size_t Reports() { return Count(Happening::kReport); }
  std::size_t Boxes() { return Count(Happening::kBox); }

  LineWorld& World() { return *world_; }

  std::string number_;

 private:
  std::size_t Count(Happening kind) {
    const auto& events = world_->GetJournal().Events();
    return static_cast<std::size_t>(std::count_if(
        events.begin(), events.end(), [kind](const Event& event) { return event.kind == kind; }));
  }

  CanonicalDocument document_;
  LineWorld* world_ = nullptr;
};

}  // namespace kestra::line_faults
