/// The words of a connection's description, and the codes the library has for them.
#ifndef IGDCTL_WAN_WORDS_H
#define IGDCTL_WAN_WORDS_H

#include <string>
#include <string_view>

namespace igdctl {

/// "routed", "bridged", "routed-bridged"; "" for another code.
std::string word_of_class(int connection_class);
/// "dhcp", "static", "pppoe"; "" for another code.
std::string word_of_mode(int connect_mode);

/// The code of a word, 0 for another word. Upper and lower case are the same.
int class_of_word(std::string_view word);
int mode_of_word(std::string_view word);

/// "on", "true", "yes", "1" and their opposites; false for another word.
bool parse_switch(std::string_view word, bool* on);

}  // namespace igdctl

#endif  // IGDCTL_WAN_WORDS_H
