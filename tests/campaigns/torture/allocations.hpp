#pragma once

namespace kestra::torture {

// The heap of this program: operator new and delete are its own.
class Allocations {
 public:
  // The nth allocation from now on fails, among those that count; once or from then on.
  static void Arm(int nth, bool forever) noexcept;
  static void Disarm() noexcept;

  // Allocations that counted since the heap was last armed or disarmed, and those of them that failed.
  static int Reached() noexcept;
  static int Failures() noexcept;

  // Blocks that nobody has freed yet, whoever asked for them.
  static long Alive() noexcept;

  // For as long as it lives allocations count: a call of the library is under way.
  class Counted {
   public:
    Counted() noexcept;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted();
  };

  // For as long as it lives they do not: a fake keeps its own books in the middle of the call.
  class Spared {
   public:
    Spared() noexcept;
    Spared(const Spared&) = delete;
    Spared& operator=(const Spared&) = delete;
    ~Spared();
  };
};

}  // namespace kestra::torture
