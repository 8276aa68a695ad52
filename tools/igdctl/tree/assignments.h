/// Parameters and values as lines of text: what `tree dump` writes and `tree set` reads.
///
/// A line is NAME=VALUE. In the value a backslash starts an escape: \\, \n, \r, \t, \x and two
/// hexadecimal digits. Empty lines and those that begin with "#" are skipped.
#ifndef IGDCTL_ASSIGNMENTS_H
#define IGDCTL_ASSIGNMENTS_H

#include <string>
#include <string_view>
#include <vector>

#include "term/failure.h"

namespace igdctl {

struct Assignment {
  std::string name;  ///< full name
  std::string value;
};

/// The line without its end. Nothing in it acts on a terminal.
std::string line_of(const Assignment& assignment);

/// Reads such lines. Problems name the source and the line; a line with one is left out.
///
/// @param source  the name that problems give the text: "settings.txt"
std::vector<Assignment> read_assignments(std::string_view text, const std::string& source,
                                         std::vector<Problem>& problems);

}  // namespace igdctl

#endif  // IGDCTL_ASSIGNMENTS_H
