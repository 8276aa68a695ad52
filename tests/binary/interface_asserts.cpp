// The compiler holds the headers against abi/records.inc and abi/values.inc, for the target it
// builds for. Nothing else is included, so that it can be asked for any target without its
// libraries.
#include <cstddef>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "common_util.h"
#include "igd_types.h"

namespace {

using Text = std::string;
using Names = std::vector<std::string>;
using TextByName = std::map<std::string, std::string>;

// The reviewed numbers are those of the standard library that gateways have. With another one,
// or with its old texts, the sizes of the pieces differ; the order of the fields does not.
#if defined(_GLIBCXX_USE_CXX11_ABI) && _GLIBCXX_USE_CXX11_ABI
constexpr bool kKnownSizes = true;
#else
constexpr bool kKnownSizes = false;
#endif

constexpr std::size_t on_this_target(std::size_t with_64_bits, std::size_t with_32_bits) {
  return sizeof(void*) == 8 ? with_64_bits : with_32_bits;
}

static_assert(sizeof(void*) == 8 || sizeof(void*) == 4);
static_assert(sizeof(int) == 4);
static_assert(!kKnownSizes || sizeof(Text) == on_this_target(32, 24));
static_assert(!kKnownSizes || sizeof(Names) == on_this_target(24, 12));
static_assert(!kKnownSizes || sizeof(TextByName) == on_this_target(48, 24));

// offsetof is asked of classes that hold a map, which compilers answer rightly and warn about.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

#define IGD_FIELD(record, type, field, offset64, offset32)                                      \
  static_assert(std::is_same_v<decltype(record::field), type>, #record "::" #field " changed"); \
  static_assert(!kKnownSizes || offsetof(record, field) == on_this_target(offset64, offset32),  \
                #record "::" #field " moved");
#define IGD_RECORD(record, size64, size32)                                        \
  static_assert(!kKnownSizes || sizeof(record) == on_this_target(size64, size32), \
                #record " changed its size");
#include "records.inc"
#undef IGD_FIELD
#undef IGD_RECORD

#define IGD_VALUE(enumerator, number) \
  static_assert((enumerator) == (number), #enumerator " has another number");
#include "values.inc"
#undef IGD_VALUE

}  // namespace
