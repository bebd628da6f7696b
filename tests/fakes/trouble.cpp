#include "fakes/trouble.hpp"

#include <new>
#include <stdexcept>

#include "base/failure.hpp"

namespace kestra {

void Trouble::Arm(Point point, int nth, bool forever, Ailment ailment) {
  armed_ = Armed{point, Calls(point) + nth, forever, ailment};
}

void Trouble::Reach(Point point) {
  const int call = ++calls_[Index(point)];
  if (!armed_ || armed_->point != point) return;
  if (armed_->forever ? call < armed_->call : call != armed_->call) return;
  switch (armed_->ailment) {
    case Ailment::kFalla:
      throw Failure(57, "Falla de prueba");
    case Ailment::kMemory:
      throw std::bad_alloc();
    case Ailment::kOther:
      throw std::runtime_error("a fake was told to fail");
  }
}

}  // namespace kestra
