#include "protocol/patience.hpp"

#include <algorithm>
#include <array>

#include "protocol/safe_line.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kReopenMs = 200;

// What a plug that is put back or a printer that is switched on makes good.
constexpr std::array kPassing{
    Cause::kPortMissing,    Cause::kPortNoHardware, Cause::kPortLost,   Cause::kPortStalled,
    Cause::kPortTransfer,   Cause::kNetUnknownHost, Cause::kNetRefused, Cause::kNetNoAnswer,
    Cause::kNetUnreachable, Cause::kNetTurnedAway,
};
// What nothing but another Fiscal.ini makes good.
constexpr std::array kLasting{Cause::kNotStarted, Cause::kPortNumber, Cause::kPortSettings,
                              Cause::kNetAddress};

template <typename Causes>
bool Has(const Causes& causes, Cause cause) {
  return std::find(causes.begin(), causes.end(), cause) != causes.end();
}

}  // namespace

Patience::Patience(Library& library) : library_(library), until_(library.certainty.patience_ends) {}

void Patience::Begin() {
  if (!HasBegun()) Anew();
}

void Patience::Anew() {
  until_ = library_.platform.GetClock().Elapsed() + library_.certainty.settings.PacienciaSegura;
}

bool Patience::Over() const {
  return library_.platform.GetClock().Elapsed() >= until_;
}

bool OpenInTime(Library& library, SafeLine& line, Patience& patience, bool in_doubt) {
  // A port that opens and breaks down at once would have everything tried again without a pause.
  if (line.WasLost() && !line.IsOpen()) library.platform.GetClock().Sleep(kReopenMs);
  while (!line.Open()) {
    patience.Begin();
    const bool passing = in_doubt ? !Has(kLasting, line.Why()) : Has(kPassing, line.Why());
    if (!passing || patience.Over()) return false;
    library.platform.GetClock().Sleep(kReopenMs);
  }
  return true;
}

}  // namespace kestra
