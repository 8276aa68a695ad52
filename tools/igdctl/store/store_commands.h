/// The group "store".
#ifndef IGDCTL_STORE_COMMANDS_H
#define IGDCTL_STORE_COMMANDS_H

#include <CLI/App.hpp>
#include <functional>
#include <string>

#include "host_store.h"
#include "term/failure.h"

namespace igdctl {

class Change;
class Output;
class Session;

void add_store_commands(CLI::App& root, Session& session);

// Its parts.
void add_store_import(CLI::App& group, Session& session);
void add_store_export(CLI::App& group, Session& session);
void add_store_checkpoint(CLI::App& group, Session& session);
void add_store_restore(CLI::App& group, Session& session);
void add_store_diff(CLI::App& group, Session& session);
void add_store_history(CLI::App& group, Session& session);
void add_store_confirm(CLI::App& group, Session& session);
void add_store_revert(CLI::App& group, Session& session);

/// The opened store of this run, in its newest state. Throws Failure (kStore).
host::Store& store_of(Session& session);

/// The work of a change that replaces the tree: asks for consent when the difference touches the
/// connection that carries the management service.
void replace_tree(Session& session, Change& change,
                  const std::function<void(host::Store&)>& replace);

/// Reports something that did not change the tree: as a sentence, or as {"result": "done",
/// "what": ..., "overridden": []}.
void report_done(Output& output, const std::string& what);

/// The failure for the result kNoCheckpoint of a call, with similar names.
Failure unknown_checkpoint(host::Store& store, const std::string& name);

}  // namespace igdctl

#endif  // IGDCTL_STORE_COMMANDS_H
