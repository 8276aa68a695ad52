// A platform that was compiled elsewhere is called by the position of its functions. Here each
// position is called through the table itself, as such a platform's caller does.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <type_traits>

#include "common_util.h"

// The caller knows the function's shape, not its class; Clang's check would call that a mismatch.
#ifdef __clang__
#define CALLS_BY_POSITION __attribute__((no_sanitize("function")))
#else
#define CALLS_BY_POSITION
#endif

namespace {

template <typename Result, typename... Arguments>
CALLS_BY_POSITION Result call_slot(void* object, std::size_t slot, Arguments... arguments) {
  using Function = Result (*)(void*, Arguments...);
  void** table = nullptr;
  std::memcpy(&table, object, sizeof table);
  Function function = nullptr;
  static_assert(sizeof function == sizeof *table);
  std::memcpy(&function, table + slot, sizeof function);
  return function(object, std::forward<Arguments>(arguments)...);
}

class Iterator final : public InstanceIterator {
 public:
  int next() override { return called = "next", 5; }
  void reserved1() override { called = "reserved1"; }
  void reserved2() override { called = "reserved2"; }
  std::string fullName() override { return called = "fullName", "A.1."; }
  std::string called;
};

class Mib final : public MibAccess {
 public:
  void reserved0() override { called = "reserved0"; }
  void reserved1() override { called = "reserved1"; }
  void reserved2() override { called = "reserved2"; }
  void reserved3() override { called = "reserved3"; }
  void reserved4() override { called = "reserved4"; }
  void reserved5() override { called = "reserved5"; }
  void reserved6() override { called = "reserved6"; }
  void reserved7() override { called = "reserved7"; }
  void reserved8() override { called = "reserved8"; }
  void reserved9() override { called = "reserved9"; }
  int addObject(const std::string& table_path, int* instance, int access_level) override {
    called = "addObject " + table_path + ' ' + std::to_string(access_level);
    *instance = 4;
    return 10;
  }
  int deleteObject(const std::string& path) override { return called = "deleteObject " + path, 11; }
  void reserved12() override { called = "reserved12"; }
  InstanceIterator* openInstanceIterator(int type) override {
    called = "open " + std::to_string(type);
    return &iterator;
  }
  void closeInstanceIterator(InstanceIterator* closed) override {
    called = closed == &iterator ? "close" : "close of another";
  }
  std::string getValue(const std::string& name) override { return called = "get " + name, "text"; }
  int setValue(const std::string& name, const std::string& value, int flags) override {
    called = "set " + name + ' ' + value + ' ' + std::to_string(flags);
    return 16;
  }
  void reserved17() override { called = "reserved17"; }
  int commit(int mode) override { return called = "commit " + std::to_string(mode), 18; }
  int applyChanges(const std::string& scope) override { return called = "apply " + scope, 19; }

  Iterator iterator;
  std::string called;
};

class Context final : public PlatformContext {
 public:
  void reserved0() override { called = "reserved0"; }
  void reserved1() override { called = "reserved1"; }
  void reserved2() override { called = "reserved2"; }
  void reserved3() override { called = "reserved3"; }
  void reserved4() override { called = "reserved4"; }
  void reserved5() override { called = "reserved5"; }
  MibAccess* mibAccess() override { return called = "mibAccess", &mib; }
  void* secondService() override { return called = "secondService", this; }

  Mib mib;
  std::string called;
};

TEST(MibAccessSlots, LeaveThePlatformItsOwnFunctionsInBetween) {
  Mib mib;
  for (const std::size_t slot : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 12u, 17u}) {
    call_slot<void>(static_cast<MibAccess*>(&mib), slot);
    EXPECT_EQ(mib.called, "reserved" + std::to_string(slot));
  }
}

TEST(MibAccessSlots, AddAndDeleteAreTenAndEleven) {
  Mib mib;
  int instance = 0;
  const std::string path = "A.";
  const auto added = call_slot<int, const std::string&, int*, int>(&mib, 10, path, &instance, 255);
  EXPECT_EQ(added, 10);
  EXPECT_EQ(instance, 4);
  EXPECT_EQ(mib.called, "addObject A. 255");
  EXPECT_EQ((call_slot<int, const std::string&>(&mib, 11, path)), 11);
  EXPECT_EQ(mib.called, "deleteObject A.");
}

TEST(MibAccessSlots, WalksAreOpenedByThirteenAndClosedByFourteen) {
  Mib mib;
  auto* const walk = call_slot<InstanceIterator*, int>(&mib, 13, 1273);
  EXPECT_EQ(walk, &mib.iterator);
  EXPECT_EQ(mib.called, "open 1273");
  call_slot<void, InstanceIterator*>(&mib, 14, walk);
  EXPECT_EQ(mib.called, "close");
}

TEST(MibAccessSlots, ValuesAreReadByFifteenAndWrittenBySixteen) {
  Mib mib;
  const std::string name = "A.B";
  const std::string value = "V";
  EXPECT_EQ((call_slot<std::string, const std::string&>(&mib, 15, name)), "text");
  EXPECT_EQ(mib.called, "get A.B");
  EXPECT_EQ((call_slot<int, const std::string&, const std::string&, int>(&mib, 16, name, value, 0)),
            16);
  EXPECT_EQ(mib.called, "set A.B V 0");
}

TEST(MibAccessSlots, CommitAndApplyAreTheLastTwo) {
  Mib mib;
  const std::string scope = "all";
  EXPECT_EQ((call_slot<int, int>(&mib, 18, 1)), 18);
  EXPECT_EQ(mib.called, "commit 1");
  EXPECT_EQ((call_slot<int, const std::string&>(&mib, 19, scope)), 19);
  EXPECT_EQ(mib.called, "apply all");
}

TEST(InstanceIteratorSlots, NextIsFirstAndFullNameThreeSlotsAfterIt) {
  Iterator iterator;
  EXPECT_EQ(call_slot<int>(&iterator, 0), 5);
  EXPECT_EQ(iterator.called, "next");
  call_slot<void>(&iterator, 1);
  EXPECT_EQ(iterator.called, "reserved1");
  call_slot<void>(&iterator, 2);
  EXPECT_EQ(iterator.called, "reserved2");
  EXPECT_EQ(call_slot<std::string>(&iterator, 3), "A.1.");
}

TEST(PlatformContextSlots, TreeAndSecondServiceFollowSixOthers) {
  Context context;
  for (const std::size_t slot : {0u, 1u, 2u, 3u, 4u, 5u}) {
    call_slot<void>(&context, slot);
    EXPECT_EQ(context.called, "reserved" + std::to_string(slot));
  }
  EXPECT_EQ(call_slot<MibAccess*>(&context, 6), &context.mib);
  EXPECT_EQ(call_slot<void*>(&context, 7), static_cast<void*>(&context));
}

// A virtual destructor would take two slots.
TEST(PlatformInterfaces, HaveNoVirtualDestructor) {
  EXPECT_FALSE(std::has_virtual_destructor_v<MibAccess>);
  EXPECT_FALSE(std::has_virtual_destructor_v<InstanceIterator>);
  EXPECT_FALSE(std::has_virtual_destructor_v<PlatformContext>);
}

TEST(PlatformInterfaces, HoldTheirTableAndNothingElse) {
  EXPECT_EQ(sizeof(MibAccess), sizeof(void*));
  EXPECT_EQ(sizeof(InstanceIterator), sizeof(void*));
  EXPECT_EQ(sizeof(PlatformContext), sizeof(void*));
}

}  // namespace
