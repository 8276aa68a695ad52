// One text that holds platform calls, debug lines and printed lines in the order they happened.
#pragma once

#include <string>

namespace foreign {

/// printf-style text of any length.
std::string format_text(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Adds printed text as lines that begin with "| ". Where a trace names the function and the
/// line of the source that printed it, and that line may move, the number becomes "#".
void append_printed(std::string& transcript, const std::string& printed);

/// Adds a debug line as "debug <file>:<line> <text>"; the line is "#" where it may move.
void append_debug(std::string& transcript, const std::string& file, int line,
                  const std::string& text);

/// The lines that change the tree: set, add, delete, commit, apply.
std::string writes_of(const std::string& transcript);

/// The lines that read it: get, open, close.
std::string reads_of(const std::string& transcript);

/// The printed and the debug lines.
std::string lines_of(const std::string& transcript);

/// The transcript without the lines that begin with `prefix`.
std::string without(const std::string& transcript, const std::string& prefix);

}  // namespace foreign
