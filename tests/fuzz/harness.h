// What the harnesses share. A harness is one function, LLVMFuzzerTestOneInput: libFuzzer calls it
// with inputs that it makes, and replay_main.cpp with files.
#ifndef IGD_TESTS_FUZZ_HARNESS_H
#define IGD_TESTS_FUZZ_HARNESS_H

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the program with the rule on standard error unless it holds.
void require(bool holds, const char* rule);

/// The same of two texts that must be equal; says where they part.
void require_same(const std::string& is, const std::string& expected, const char* rule);

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_HARNESS_H
