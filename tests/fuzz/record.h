// Descriptions of connections as callers give them, right or wrong.
#ifndef IGD_TESTS_FUZZ_RECORD_H
#define IGD_TESTS_FUZZ_RECORD_H

#include "igd_types.h"
#include "input.h"

namespace fuzz {

api_wan_info draw_record(Input& input);

/// One that takes the same few names, VLANs and ports as others.
api_wan_info draw_usual_record(Input& input);

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_RECORD_H
