#include "panel/kept_recording.hpp"

namespace impresora {

void KeptRecording::Begin(const Settings& settings) {
  text_.clear();
  exchanges_ = 0;
  full_ = false;
  recorder_.emplace(settings, [this](std::string_view line) { text_.append(line) += '\n'; });
}

void KeptRecording::Exchanged(const Exchange& exchange) {
  if (!recorder_) return;
  recorder_->Exchanged(exchange);
  ++exchanges_;
  if (text_.size() < most_) return;
  full_ = true;
  End();
}

Json KeptRecording::Status() const {
  return {{"activa", recorder_.has_value()},
          {"intercambios", exchanges_},
          {"bytes", text_.size()},
          {"llena", full_}};
}

}  // namespace impresora
