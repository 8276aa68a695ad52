// Lines that come again and again in a transcript, as one line each.
//
//   walk TYPE                   open TYPE, and close: the walk found something
//   trace TEXT                  the empty printed line and "|  ------------- TEXT" behind it
//   progress igd_wan_set_params:# connect_mode:M connection_class:C
//                               the two lines that writing prints after most of its steps
//   progress igd_wan_get_params:#
//                               the line that reading prints after most of its steps
//
// "xN" behind a progress line: it came N times on end. A line that begins like one of these, or
// with "#" or a backslash, gets a backslash in front; each text can therefore be had back.
#ifndef IGD_TESTS_FOLDED_LINES_H
#define IGD_TESTS_FOLDED_LINES_H

#include <string>

namespace transcripts {

/// @param text  lines, each with its end
std::string fold(const std::string& text);

/// The text that was folded.
std::string unfold(const std::string& folded);

}  // namespace transcripts

#endif  // IGD_TESTS_FOLDED_LINES_H
