// The head of a transcript: what the gateway has before the call, and what is called.
//
//   # builder: how the gateway came to be
//   # tree:    the connections, bridges and routes that it has
//   # call:    the operation with its arguments
#ifndef IGD_TESTS_HEAD_H
#define IGD_TESTS_HEAD_H

#include <string>

#include "lines.h"

namespace transcripts {

struct Head {
  Lines builder;
  Lines tree;
  Lines call;

  /// Each line begins with "#"; paths are short.
  std::string text() const;
};

}  // namespace transcripts

#endif  // IGD_TESTS_HEAD_H
