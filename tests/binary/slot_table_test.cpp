// The reviewed positions in abi/slots.inc against the tables that the compiler makes from
// common_util.h: each function is called by its name on an object whose table only tells positions.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "common_util.h"

// The functions in the table have the right shape, but not the class; Clang's check would object.
#ifdef __clang__
#define CALLS_BY_POSITION __attribute__((no_sanitize("function")))
#else
#define CALLS_BY_POSITION
#endif

namespace {

constexpr std::size_t kTableSize = 32;
std::size_t called_slot = kTableSize;

template <std::size_t Slot, typename Result, typename Class, typename... Arguments>
Result tell_slot(Class*, Arguments...) {
  called_slot = Slot;
  return Result();
}

/// An object that consists of nothing but a table of such functions.
template <typename Result, typename Class, typename... Arguments>
class Probe {
 public:
  explicit Probe(Result (Class::*)(Arguments...)) : Probe(std::make_index_sequence<kTableSize>()) {}

  Class* object() { return reinterpret_cast<Class*>(&table_start_); }

 private:
  using Entry = Result (*)(Class*, Arguments...);
  template <std::size_t... Slots>
  explicit Probe(std::index_sequence<Slots...>)
      : table_{&tell_slot<Slots, Result, Class, Arguments...>...} {
    const Entry* const start = table_;
    std::memcpy(&table_start_, &start, sizeof start);
  }

  void* table_start_ = nullptr;
  Entry table_[kTableSize];
};

/// The position by which a virtual function is called.
template <typename Result, typename Class, typename... Arguments>
CALLS_BY_POSITION std::size_t slot_of(Result (Class::*function)(Arguments...)) {
  Probe<Result, Class, Arguments...> probe(function);
  std::tuple<std::decay_t<Arguments>...> arguments;
  called_slot = kTableSize;
  std::apply([&](auto&... each) { (void)(probe.object()->*function)(each...); }, arguments);
  return called_slot;
}

#define IGD_SLOT(type, slot, function) \
  EXPECT_EQ(slot_of(&type::function), std::size_t{slot}) << #type "::" #function;
#define IGD_SLOTS(type, number)
TEST(Slots, AreWhereTheyWereReviewed) {
#include "slots.inc"
}
#undef IGD_SLOT
#undef IGD_SLOTS

struct Row {
  const char* type;
  std::size_t slot;
};

#define IGD_SLOT(type, slot, function) {#type, slot},
#define IGD_SLOTS(type, number)
const Row kRows[] = {
#include "slots.inc"
};
#undef IGD_SLOT
#undef IGD_SLOTS

void expect_all_slots(const std::string& type, std::size_t number) {
  std::size_t next = 0;
  for (const Row& row : kRows) {
    if (row.type != type) continue;
    EXPECT_EQ(row.slot, next) << type;
    ++next;
  }
  EXPECT_EQ(next, number) << type;
}

#define IGD_SLOT(type, slot, function)
#define IGD_SLOTS(type, number) expect_all_slots(#type, number);
TEST(Slots, AreReviewedWithoutAGap) {
#include "slots.inc"
}
#undef IGD_SLOT
#undef IGD_SLOTS

}  // namespace
