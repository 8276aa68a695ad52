/// @file
/// The durable store of the reference platform: one file that keeps a tree.
///
/// Reads are answered from memory. Writes go to the tree in memory and belong to a batch, which
/// begins with the first write and ends with commit or discard: it lands in the file whole or not
/// at all. A write that the store cannot take (it is locked, its disk fails) is refused and poisons
/// its batch: the writes after it fail at once, and the next commit discards all of it and says so.
/// Refusals of names, which libigd relies on, poison nothing.
///
/// When the disk fails in the last sync, what was to be written may or may not have landed
/// (kUncertain). The tree stays as it was until the next read, here or in another process, which
/// decides: what it shows is in effect, and stays so when the power goes. While the disk goes on
/// failing, nothing is decided and reads show what they showed.
///
/// Several processes can share a store. The next read of each shows what another one committed. One
/// batch at a time is open in all of them together: the first write of the next one waits.
///
/// getContext() keeps the process's own store; a program that only uses libigd needs nothing of
/// this. Not for several threads at a time.
#ifndef HOST_STORE_H
#define HOST_STORE_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host_changes.h"
#include "host_platform.h"

namespace host {

/// What came of a call to a store. Whatever failed has changed nothing, unless its line says so.
enum class StoreError {
  kNone,           ///< done
  kNotOpened,      ///< the file cannot be made or opened: no such folder, no permission
  kReadOnly,       ///< the file or its disk can be read but not written
  kFull,           ///< the disk, the size that the options allow, or a file size limit is full
  kTooLarge,       ///< a label is over 16 MiB, or one object, change or checkpoint over 256 MiB
  kIo,             ///< reading or writing failed for another reason
  kUncertain,      ///< the disk failed in the last sync: it may or may not have landed
  kCorrupt,        ///< the file is damaged, or no database at all; it is left as it is
  kForeign,        ///< the file is a database of something else; it is left as it is
  kUnknownFormat,  ///< the store has a format of a newer or unknown version; it is left as it is
  kLocked,         ///< another process kept the write lock for longer than the options allow
  kMovedOn,        ///< another process committed meanwhile; this batch is discarded
  kBatchOpen,      ///< there are writes that are neither committed nor discarded
  kTrialOpen,      ///< a trial is open already
  kNoTrial,        ///< no trial is open
  kPending,        ///< another change waits for its confirmation; the batch is discarded
  kNotPending,     ///< no change waits for its confirmation
  kBadDeadline,    ///< a time to confirm is 1 second to 1 day
  kBadName,        ///< a checkpoint's name is 1 to 64 letters, digits, ".", "_" and "-"
  kNameTaken,      ///< there is a checkpoint of that name
  kNoCheckpoint,   ///< there is no such checkpoint, or no more
};

/// Names an error, for logs and programs.
/// @param error  any value
/// @return "kLocked" and so on; "" for a number that is no error
HOST_EXPORT const char* name_of(StoreError error);

/// What a call to a store gives.
struct StoreResult {
  StoreError error = StoreError::kNone;  ///< for programs
  std::string text;                      ///< one sentence for people, "" when done

  bool ok() const { return error == StoreError::kNone; }  ///< @return whether it was done
};

/// The time since the machine was switched on, which nobody can set.
struct BootTime {
  std::string boot;               ///< identity of this boot, another one after each start
  std::int64_t milliseconds = 0;  ///< since its start, sleep included
};

/// A state that a store can go back to.
struct Checkpoint {
  std::string name;              ///< as given; of an automatic one "@" and its generation
  std::uint64_t generation = 0;  ///< of the state it keeps
  std::int64_t time = 0;         ///< when it was made, seconds since 1970
  std::string label;             ///< of an automatic one: of the change that followed the state
  bool automatic = false;        ///< made by a change; nobody names or deletes it
};

/// A change that is in effect, and will be reverted unless it is confirmed.
struct PendingChange {
  std::uint64_t generation = 0;        ///< of the state that has it
  std::int64_t milliseconds_left = 0;  ///< to confirm it, sleep of the machine included
  std::string label;                   ///< as accept_pending() was given it
};

/// How a store is opened and how it waits.
struct StoreOptions {
  static constexpr int kLockTimeoutMs = 10000;    ///< 10 s
  static constexpr int kLongestSilenceMs = 5000;  ///< 5 s

  /// A file that is kCorrupt is renamed to "<path>.corrupt-<n>", with its log, and a new store
  /// takes its place. Without it nothing is ever put over a file that is there.
  bool keep_corrupt_aside = false;
  /// How long a call waits for a lock of another process.
  int lock_timeout_ms = kLockTimeoutMs;
  /// How long another batch may write nothing while this one waits for it. Then it loses the write
  /// lock and is discarded as a whole, so that nobody who forgets to commit stops the others.
  int longest_silence_ms = kLongestSilenceMs;
  /// The largest the file may grow, counted in pages of 4096 bytes; 0 for as large as the disk
  /// allows.
  std::uint64_t size_limit_bytes = 0;
  /// Name of the SQLite VFS that reads and writes the file, "" for the usual one.
  std::string vfs;
  /// Tells the boot time; empty for the machine's own.
  std::function<BootTime()> clock;
  /// Called when a commit is on disk and the other processes are not told yet; for tests.
  std::function<void()> between_commit_and_counter;
};

/// A tree in a file. The path ":memory:" makes one that lasts as long as the object.
class HOST_EXPORT Store {
 public:
  /// Opens a store; makes it with mode 0600 and factory state when there is no file. A change whose
  /// time to confirm is over is reverted first.
  ///
  /// @param path     the folder must be there; symbolic links are followed. "-wal", "-shm" and
  ///                 "-shared" behind the name are the store's too
  /// @param options  hold for as long as the store lives
  /// @param result   set to kNone, kNotOpened, kReadOnly, kFull, kIo, kCorrupt, kForeign,
  ///                 kUnknownFormat, kLocked, or kUncertain of a revert; may be null
  /// @return null on failure: nothing was put over a file that was there
  static std::unique_ptr<Store> open(const std::string& path, const StoreOptions& options,
                                     StoreResult* result);
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;
  /// Undoes what was not committed, as abandon() does.
  ~Store();

  /// @return the file behind symbolic links, absolute; or ":memory:"
  const std::string& path() const;

  /// The tree, for reading and writing. Assignments to it and imports into it are writes of the
  /// batch like any other.
  ///
  /// @return a reference that lasts as long as the store. This call fetches what others committed,
  ///         reads through a kept reference do not. When the file cannot be read the tree stays as
  ///         it was, and the debug sink has a line about it
  Tree& tree();

  /// Makes the batch durable. In a trial it writes nothing, see begin_trial(). Without a batch, or
  /// with one that comes to nothing, it is done and no generation begins.
  ///
  /// @param label  what people see as the reason of the change, at most kLongestText
  /// @return kNone: it is on disk. kMovedOn, kPending, kLocked, kTooLarge, what poisoned the batch,
  ///         or what writing the file failed with (kFull, kIo, kReadOnly, kCorrupt): all of the
  ///         batch is discarded, the tree is as it was at the last commit, and the debug sink has a
  ///         line. kUncertain: the same, but all of it may have landed; the next read shows which
  StoreResult commit(const std::string& label = {});

  /// Undoes every write of the batch, poisoned or not, and ends the trial when one is open.
  void discard();

  /// Starts a batch that no commit ends, for operations that commit in their midst: until accept()
  /// or discard(), commit() is done at once and writes nothing. Takes the write lock, so that
  /// checks made in the trial still hold when it is accepted. A trial that was poisoned fails each
  /// commit() from then on.
  ///
  /// @return kTrialOpen, kBatchOpen, kLocked, kPending, or what reading the file failed with: then
  ///         no trial is open that was not before
  StoreResult begin_trial();
  bool in_trial() const;  ///< @return whether a trial is open, poisoned or not

  /// @return the writes of the batch, trial or not, in their order; refused ones are not among
  ///         them. The reference shows later writes too
  const std::vector<WriteStep>& plan() const;
  Difference difference() const;  ///< @return what the writes of plan() come to

  /// Ends the trial and makes all of it durable.
  ///
  /// @param label  as for commit()
  /// @return kNoTrial when none is open, else as commit(): a trial that fails is discarded, unless
  ///         it is kUncertain
  StoreResult accept(const std::string& label = {});

  /// Accepts a trial that is reverted unless confirm() is called, by any process, in time: also
  /// when this process ends or the machine restarts, which counts as too late. Whoever reads,
  /// writes or opens the store first after the deadline reverts it and reports that. Until then
  /// every other commit fails with kPending. A trial that comes to nothing is done, and nothing
  /// waits.
  ///
  /// @param seconds  time to confirm, 1 to 86,400 (a day)
  /// @param label    as for commit(); the revert shows as "reverted: " and this
  /// @return kBadDeadline (an open trial stays open), kNoTrial, or what commit() fails with
  StoreResult accept_pending(int seconds, const std::string& label = {});

  /// The pending change stays.
  /// @return kNotPending, also when it was too late and is reverted now; or what reading or writing
  ///         the file failed with: the change then waits on, and after kUncertain may or may not
  StoreResult confirm();

  /// The pending change goes at once, in a new generation, as if it were too late.
  /// @return kNotPending, or what writing the file failed with: the change then waits on, and after
  ///         kUncertain may or may not
  StoreResult revert();

  /// @return the change that waits for its confirmation; none also when the file cannot be read
  std::optional<PendingChange> pending();

  /// Keeps the last committed state under a name. It survives commits and restores.
  ///
  /// @param name  1 to 64 letters, digits, ".", "_" and "-"
  /// @return kBadName, kBatchOpen, kNameTaken, kLocked, kFull, kTooLarge, kUncertain, or what else
  ///         writing failed with
  StoreResult make_checkpoint(const std::string& name);

  /// @param name  of a named one; automatic ones go when 20 newer changes are there
  /// @return kBadName (of an automatic one too), kNoCheckpoint, kUncertain, or what else writing
  ///         failed with
  StoreResult delete_checkpoint(const std::string& name);

  /// Lists the states that restore() can bring back.
  ///
  /// @param result  set to kNone, or to what reading the file failed with; may be null
  /// @return the automatic ones, newest first: the states before the last 20 changes. Then the
  ///         named ones, by name. Empty when the file cannot be read
  std::vector<Checkpoint> checkpoints(StoreResult* result = nullptr);

  /// Compares two states.
  ///
  /// @param from        a checkpoint's name as listed, or "" for now, uncommitted writes included
  /// @param to          the same
  /// @param difference  what leads from the one to the other; set when done only; may be null
  /// @return kNoCheckpoint, or what reading the file failed with
  StoreResult difference(const std::string& from, const std::string& to, Difference* difference);

  /// Brings the state of a checkpoint back, in one commit; in a trial, as a write of the trial.
  /// Instance numbers that were handed out since are not handed out again.
  ///
  /// @param name  a checkpoint's, as listed
  /// @return kBatchOpen, kNoCheckpoint or what reading the file failed with: nothing is changed, a
  ///         trial stays open; or what commit() fails with
  StoreResult restore(const std::string& name);

  /// Undoes every write of the batch, and reports that to the debug sink when there was one. The
  /// process's own store does it when the process exits.
  void abandon();

  /// @return number of the last committed change that the tree contains; a new store has 1. Asks no
  ///         file: tree() fetches what others committed
  std::uint64_t generation() const;

 private:
  friend class ReadHold;
  struct Impl;
  explicit Store(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

/// While one lasts, reads of a store show one state: commits of other processes do not appear. The
/// first write of a batch ends that, because it must build on the newest state. An open walk of the
/// store's MibAccess holds the same way.
class HOST_EXPORT ReadHold {
 public:
  /// Fetches what others committed, then holds that. Holds of one store may overlap.
  /// @param store  must outlive the hold
  explicit ReadHold(Store& store);
  ReadHold(const ReadHold&) = delete;
  ReadHold& operator=(const ReadHold&) = delete;
  ~ReadHold();

 private:
  Store& store_;
};

/// Where the store of this process is. A variable that is empty counts as not set.
/// When the program runs with more rights than its caller, the environment counts as empty.
///
/// @return IGD_STORE; for root /var/lib/igd/gateway.db; else igd/gateway.db in XDG_STATE_HOME or,
///         when that is not set, in .local/state of HOME; "" when none of them is set
HOST_EXPORT std::string default_store_path();

/// The store behind getContext(), opened at first use with the options' defaults. Its folders are
/// made and synced, for the owner alone, unless IGD_STORE names it.
///
/// @param result  set to the reason of the last failure, or kNone; may be null
/// @return null when it cannot be opened, which is reported to the debug sink once and tried again
///         at most once a second; else one store for as long as the process lives
HOST_EXPORT Store* process_store(StoreResult* result = nullptr);

}  // namespace host

#endif  // HOST_STORE_H
