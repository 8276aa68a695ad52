#include "allocations.h"

#include <cstdlib>
#include <new>

namespace allocations {
namespace {

bool g_counting = false;
long g_live = 0;
long g_counted = 0;
long g_fails_at = 0;
Border g_border = nullptr;

bool set_counting(bool counting) {
  const bool before = g_counting;
  g_counting = counting;
  if (g_border != nullptr && before != counting) g_border();
  return before;
}

}  // namespace

long live() { return g_live; }
long counted() { return g_counted; }

void fail_at(long nth) {
  g_counted = 0;
  g_fails_at = nth;
}

void call_at_border(Border border) { g_border = border; }

Counted::Counted() : before_(set_counting(true)) {}
Counted::~Counted() { (void)set_counting(before_); }
NotCounted::NotCounted() : before_(set_counting(false)) {}
NotCounted::~NotCounted() { (void)set_counting(before_); }

namespace {

void* allocate(std::size_t size) {
  if (g_counting && ++g_counted == g_fails_at) throw std::bad_alloc();
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++g_live;
  return block;
}

void release(void* block) noexcept {
  if (block == nullptr) return;
  --g_live;
  std::free(block);
}

}  // namespace
}  // namespace allocations

// The forms for arrays and those that do not throw call these.
void* operator new(std::size_t size) { return allocations::allocate(size); }
void operator delete(void* block) noexcept { allocations::release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { allocations::release(block); }
