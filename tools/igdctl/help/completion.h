/// Completion of command lines: what may stand where the cursor is.
///
/// The scripts for shells are small. They hand the words before the cursor to `igdctl __complete
/// line -- WORD...` and show what it answers, so they never go stale.
#ifndef IGDCTL_COMPLETION_H
#define IGDCTL_COMPLETION_H

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "backend/backend.h"

namespace igdctl {

class Session;

/// What `__complete KIND` can be asked for, and kNothing.
enum class WordKind { kNothing, kConnection, kPort, kBridge, kCheckpoint, kParameter, kFile };

/// What fits at the end of a command line.
struct Completion {
  std::vector<Candidate> candidates;   ///< commands, options, fixed values
  WordKind kind = WordKind::kNothing;  ///< what the tree has that also fits
  std::string before;                  ///< stands before each of those: "--bind-lan=LAN1,"
  std::string prefix;                  ///< how they begin
  std::string store;                   ///< of --store in the line; "" without
};

/// @param words  those after "igdctl"; the last one may be unfinished or empty
Completion complete_line(const CLI::App& root, const std::vector<std::string>& words);

/// The words of a kind in the tree that begin with `prefix`. None when there is no store or it
/// cannot be read; a store is never created.
std::vector<Candidate> words_of_kind(Session& session, WordKind kind, const std::string& prefix);

/// The script for a shell, "bash", "zsh" or "fish"; "" for another one.
std::string completion_script(const std::string& shell);

}  // namespace igdctl

#endif  // IGDCTL_COMPLETION_H
