// What was written is read again.
#ifndef IGD_TESTS_FUZZ_WRITTEN_H
#define IGD_TESTS_FUZZ_WRITTEN_H

#include "igd_types.h"

namespace fuzz {

/// All but the ports, which have rules of their own.
void require_written(const api_wan_info& is, const api_wan_info& written);

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_WRITTEN_H
