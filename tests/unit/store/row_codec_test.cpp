// Changes as bytes: what is written is read back, and damage is noticed.
#include "rows/row_codec.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using host::RowChanges;

const RowChanges kSamples = {
    {"A.B.1.", std::nullopt, host::Row{"0", "object"}},
    {"A.B.1.Name", host::Row{"", "rw string"}, host::Row{std::string("\0\xff", 2), "rw string"}},
    {"A.B.1.Names", host::Row{std::string(300, 'x'), ""}, std::nullopt},
    {"Z", std::nullopt, std::nullopt},
};

TEST(RowCodec, GivesBackWhatWasWritten) {
  const auto read = host::decoded(host::encoded(kSamples));
  ASSERT_TRUE(read);
  ASSERT_EQ(read->size(), kSamples.size());
  for (std::size_t i = 0; i < kSamples.size(); ++i) {
    EXPECT_EQ((*read)[i].name, kSamples[i].name);
    EXPECT_EQ((*read)[i].before, kSamples[i].before);
    EXPECT_EQ((*read)[i].after, kSamples[i].after);
  }
}

TEST(RowCodec, WritesRowsAsTheChangesThatBringThem) {
  const host::RowSet rows = {{"A.B.1.", {"0", "object"}}, {"A.B.1.Name", {"x", ""}}};
  RowChanges changes;
  for (const auto& [name, row] : rows) changes.push_back({name, std::nullopt, row});
  EXPECT_EQ(host::encoded(rows), host::encoded(changes));
}

// The bytes are the same on every machine: a store may be copied from one to another.
TEST(RowCodec, NamesShareTheirBeginnings) {
  const host::RowSet rows = {{"A.B.1.", {"0", "object"}}, {"A.B.1.Name", {"x", ""}}};
  const std::string expected(
      "\x00\x06"
      "A.B.1."
      "\x02\x01"
      "0"
      "\x06object"
      "\x06\x04Name"
      "\x02\x01x"
      "\x00",
      28);
  EXPECT_EQ(host::encoded(rows), expected);
}

TEST(RowCodec, NoticesACutAnywhereInAChange) {
  const std::string bytes = host::encoded({kSamples[1]});
  for (std::size_t size = 1; size < bytes.size(); ++size) {
    EXPECT_FALSE(host::decoded(bytes.substr(0, size))) << size;
  }
}

// One name that shares nothing, its text, the sides, and no row on either.
TEST(RowCodec, RefusesSidesThatThereAreNotAndAChangeWithoutAName) {
  EXPECT_TRUE(host::decoded(std::string("\0\1A\0", 4)));
  EXPECT_FALSE(host::decoded(std::string("\0\1A\4", 4)));
  EXPECT_FALSE(host::decoded(std::string("\0\0\0", 3)));
}

TEST(RowCodec, RefusesNumbersThatPointOutside) {
  for (const char* bytes : {"\x05", "\x01\x01x", "\xff\xff\xff\xff\xff\xff"}) {
    EXPECT_FALSE(host::decoded(bytes)) << bytes;
  }
}

}  // namespace
