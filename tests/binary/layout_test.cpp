// Callers that were compiled before read the records by position. interface_asserts.cpp holds them
// against the reviewed positions; this holds that the reviewed text leaves nothing out.
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "igd_types.h"

namespace {

using Text = std::string;
using Names = std::vector<std::string>;
using TextByName = std::map<std::string, std::string>;

// offsetof is asked of classes that hold a map, which compilers answer rightly and warn about.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

struct Field {
  const char* record;
  const char* name;
  std::size_t offset, size, alignment;
};

struct Record {
  const char* name;
  std::size_t size, alignment;
};

#define IGD_FIELD(record, type, field, offset64, offset32) \
  {#record, #field, offsetof(record, field), sizeof(type), alignof(type)},
#define IGD_RECORD(record, size64, size32)
const Field kFields[] = {
#include "records.inc"
};
#undef IGD_FIELD
#undef IGD_RECORD

#define IGD_FIELD(record, type, field, offset64, offset32)
#define IGD_RECORD(record, size64, size32) {#record, sizeof(record), alignof(record)},
const Record kRecords[] = {
#include "records.inc"
};
#undef IGD_FIELD
#undef IGD_RECORD

std::size_t aligned(std::size_t offset, std::size_t alignment) {
  return (offset + alignment - 1) / alignment * alignment;
}

// A field that the reviewed text does not have would leave a gap.
TEST(RecordLayout, HasTheReviewedFieldsAndNothingBetweenOrAfterThem) {
  for (const Record& record : kRecords) {
    std::size_t end = 0;
    for (const Field& field : kFields) {
      if (std::string(field.record) != record.name) continue;
      EXPECT_EQ(field.offset, aligned(end, field.alignment)) << field.record << "::" << field.name;
      end = field.offset + field.size;
    }
    EXPECT_GT(end, 0u) << record.name;
    EXPECT_EQ(record.size, aligned(end, record.alignment)) << record.name;
  }
}

TEST(RecordLayout, IsReviewedForAllFiveRecords) { EXPECT_EQ(std::size(kRecords), 5u); }

}  // namespace
