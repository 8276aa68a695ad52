/// Changes of the tree: whole or not at all.
///
/// With a store, writes are kept back until they are known to be right. On a gateway they go to the
/// tree at once, and one commit ends them; --dry-run and --confirm are refused there
/// (kUnsupported).
#ifndef IGDCTL_CHANGE_H
#define IGDCTL_CHANGE_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "backend/backend.h"
#include "term/failure.h"
#include "term/output.h"

namespace CLI {
class App;
}

namespace igdctl {

class Session;

/// What the user wants of a change, from the command line.
struct ChangeOptions {
  bool dry_run = false;
  int confirm = 0;  ///< seconds; 0: without confirmation
  bool yes = false;
  bool force = false;
};

/// Adds --dry-run, --confirm SECONDS and --yes to a command that changes the tree; on a gateway the
/// first two stay accepted, so that they are refused by name and not as unknown.
void add_change_options(CLI::App& command, const Session& session, ChangeOptions& options);

/// Adds --force, for commands with checks that it can override.
void add_force_option(CLI::App& command, ChangeOptions& options);

enum class ChangeOutcome {
  kNothing,  ///< the writes made no difference: discarded, no commit
  kDone,     ///< it is in effect
  kPending,  ///< it is in effect until its time is over, unless it is confirmed
  kShown     ///< --dry-run: it was shown and discarded
};

/// "no-change", "done", "pending", "dry-run": as JSON names the outcomes.
const char* name_of(ChangeOutcome outcome);

/// One change of one run of igdctl.
class Change {
 public:
  Change(Session& session, const ChangeOptions& options);

  /// To be called when a check fails that --force can override. With --force the user is told what
  /// was overridden; without it Failure (kRefused) is thrown with `message` and `hint`.
  void override_or_fail(const std::string& message, const std::string& hint);

  /// The same for several, which are thrown together.
  void override_or_fail(const std::vector<Problem>& reasons);

  /// To be called inside the work, before its first write: the change may cut off who manages the
  /// gateway. If it makes a difference, it lands only with --confirm or --yes, else run() throws
  /// Failure (kNeedsConsent). On a gateway, where no difference can be seen, this asks for --yes.
  ///
  /// @param why  one line: "connection \"Management\" carries the management service"
  void needs_consent(const std::string& why);

  /// To be called inside the work, instead of any write, when everything is already as requested:
  /// on a gateway, where no difference can be seen, run() then commits nothing.
  void makes_no_difference() { no_difference_ = true; }

  /// Runs `work`, which checks, calls the library and throws Failure to give up: nothing is then
  /// left of it (on a gateway: checks come before writes). Writes that the tree refused end the
  /// change with Failure (kPlatform), except bare names, which the library writes for connection
  /// objects that are not there.
  ///
  /// @param label  reason of the change in the store's history: "wan set Internet"
  /// @param work   is run once
  /// Throws Failure: kUnsupported, kPending, kStore, kNeedsConsent, kPlatform, or that of the work.
  ChangeOutcome run(const std::string& label, const std::function<void()>& work);

  /// Adds a key to the document that report() writes, for commands with more to tell.
  void add_detail(const std::string& key, const Json& value);

  /// Tells what came of it: the sentence for people, or the document {"kind": "change", "data":
  /// {"result", "what", "overridden", and with --dry-run "plan" and "difference"}}. Call it once,
  /// after run(), with what was done: "Changed connection \"Internet\"". `path` is that of the
  /// object that was made or changed, "" when there is none.
  void report(ChangeOutcome outcome, const std::string& what, const std::string& path = {});

 private:
  bool has_store() const;
  void refuse_what_needs_a_store() const;
  void require_consent() const;
  void keep_for_report(const ChangeEffect& effect);

  Session& session_;
  const ChangeOptions& options_;
  std::vector<std::string> overridden_;
  std::string consent_;  // why it is needed; "" when not
  bool no_difference_ = false;
  std::string shown_text_;            // plan and difference of a dry run, for people
  std::shared_ptr<Json> shown_json_;  // and for programs, with what add_detail() added
};

}  // namespace igdctl

#endif  // IGDCTL_CHANGE_H
