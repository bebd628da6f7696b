#include "campaigns/torture/allocations.hpp"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace kestra::torture {
namespace {

struct Heap {
  int counted = 0;  // calls under way
  int spared = 0;   // fakes in them
  int reached = 0;
  int failures = 0;
  int doomed = 0;  // 0: none
  bool forever = false;
  long alive = 0;
};
Heap heap;

bool Fails() noexcept {
  if (heap.counted == 0 || heap.spared > 0) return false;
  const int now = ++heap.reached;
  if (heap.doomed == 0) return false;
  const bool fails = heap.forever ? now >= heap.doomed : now == heap.doomed;
  if (fails) ++heap.failures;
  return fails;
}

void Start(int doomed, bool forever) noexcept {
  heap.reached = 0;
  heap.failures = 0;
  heap.doomed = doomed;
  heap.forever = forever;
}

void* Take(std::size_t size) noexcept {
  if (Fails()) return nullptr;
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block != nullptr) ++heap.alive;
  return block;
}

void* TakeAligned(std::size_t size, std::align_val_t alignment) noexcept {
  if (Fails()) return nullptr;
  const auto step = static_cast<std::size_t>(alignment);
  void* const block = std::aligned_alloc(step, (size + step - 1) / step * step);
  if (block != nullptr) ++heap.alive;
  return block;
}

void* OrThrow(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Give(void* block) noexcept {
  if (block != nullptr) --heap.alive;
  std::free(block);
}

}  // namespace

void Allocations::Arm(int nth, bool forever) noexcept {
  Start(nth, forever);
}
void Allocations::Disarm() noexcept {
  Start(0, false);
}
int Allocations::Reached() noexcept {
  return heap.reached;
}
int Allocations::Failures() noexcept {
  return heap.failures;
}
long Allocations::Alive() noexcept {
  return heap.alive;
}

Allocations::Counted::Counted() noexcept {
  ++heap.counted;
}
Allocations::Counted::~Counted() {
  --heap.counted;
}
Allocations::Spared::Spared() noexcept {
  ++heap.spared;
}
Allocations::Spared::~Spared() {
  --heap.spared;
}

}  // namespace kestra::torture

using kestra::torture::Give;
using kestra::torture::OrThrow;
using kestra::torture::Take;
using kestra::torture::TakeAligned;

void* operator new(std::size_t size) {
  return OrThrow(Take(size));
}
void* operator new[](std::size_t size) {
  return OrThrow(Take(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(TakeAligned(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return OrThrow(TakeAligned(size, alignment));
}
void operator delete(void* block) noexcept {
  Give(block);
}
void operator delete[](void* block) noexcept {
  Give(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  Give(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  Give(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  Give(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  Give(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
  Give(block);
}
void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
  Give(block);
}
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Give(block);
}
void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Give(block);
}
