// The files that hold the expected transcripts.
#ifndef IGD_TESTS_EXPECTED_TEXT_H
#define IGD_TESTS_EXPECTED_TEXT_H

#include <string>

namespace transcripts {

/// Path of the file with this name.
std::string file_of(const std::string& name);

/// What a file holds; empty when it cannot be read.
std::string read_file(const std::string& path);

/// Shows where two texts part: the lines before, then what was expected ("-") and what came ("+").
/// Empty when they are equal.
std::string first_difference(const std::string& expected, const std::string& actual);

}  // namespace transcripts

#endif  // IGD_TESTS_EXPECTED_TEXT_H
