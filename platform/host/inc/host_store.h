/// @file
/// The durable store of the reference platform: one file that keeps a tree.
///
/// Reads are answered from memory. Writes go to the tree in memory and belong to a batch, which
/// begins with the first write and ends with commit or discard: it is stored completely or not at
/// all. A write that the store cannot take (it is locked, its disk fails) is refused and poisons
/// its batch: later writes fail at once, and the next commit discards the batch and reports that.
/// Refusals of names, which libigd relies on, poison nothing.
///
/// If the disk fails in the last sync of a commit, the change may or may not have landed
/// (kUncertain). The tree stays as it was until the next read, here or in another process, decides:
/// what that read shows is in effect, and survives a power cut. As long as the disk keeps failing,
/// nothing is decided and reads show the old state.
///
/// Several processes can share a store. Each sees the others' commits at its next read. Only one
/// batch at a time is open among all of them: the first write of the next one waits.
///
/// No update is lost silently: a batch builds on what its process last read. If another process
/// committed between that read and the batch's first write, the write is refused and poisons the
/// batch, and its commit returns kMovedOn: read again, then write again. Only reads since the last
/// batch ended count: values, enumerations, exports and copies of the tree. A read counts from the
/// moment tree(), or the call of MibAccess, fetched the tree, and expires after
/// StoreOptions::reads_count_ms, so that a process which reads now and then can write much later.
/// For checks and changes that belong together over several operations use begin() or
/// begin_trial(): nothing can change between the reads that follow them and the commit.
///
/// A store contains passwords, so it is private to one user: if its file or one of those beside it
/// belongs to another user, or its group or others can read or write it, it is refused with
/// kNotPrivate. Root can open any user's store and leaves its owner and modes unchanged.
///
/// A process that cannot write the store's files, or cannot create those beside it, can still read
/// it, also on a read-only disk, and follows other processes' commits. Each of its writes is
/// refused with kReadOnly, and it changes nothing in the store. A pending change whose deadline has
/// passed stays until a process that can write reverts it; the debug sink gets one line about that.
///
/// getContext() keeps the process's own store; a program that only uses libigd does not need this
/// header. Use a store from one thread at a time.
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

/// The result of a call to a store. A call that failed has changed nothing, unless the error's line
/// says otherwise.
enum class StoreError {
  kNone,           ///< done
  kNotOpened,      ///< the file cannot be created or opened: no such folder, no permission
  kNotPrivate,     ///< the file or one beside it belongs to another user, or others can use it; it
                   ///< is left unchanged, and the text contains the command that repairs it
  kReadOnly,       ///< the file, its folder or its disk can be read but not written
  kFull,           ///< the disk, the size that the options allow, or a file size limit is full
  kTooLarge,       ///< a label is over 16 MiB, or one object, change or checkpoint over 256 MiB
  kIo,             ///< reading or writing failed for another reason
  kUncertain,      ///< the disk failed in the last sync: the change may or may not have landed
  kCorrupt,        ///< the file is damaged, or not a database at all; it is left unchanged
  kForeign,        ///< the file is another program's database; it is left unchanged
  kUnknownFormat,  ///< the store's format is newer or unknown; it is left unchanged
  kLocked,         ///< another process held the write lock for longer than the options allow
  kMovedOn,        ///< another process committed since this one last read or while it wrote; this
                   ///< batch is discarded
  kReplaced,       ///< the file was moved, deleted or replaced since it was opened; this batch is
                   ///< discarded
  kBatchOpen,      ///< there are writes that are neither committed nor discarded
  kTrialOpen,      ///< a trial is already open
  kNoTrial,        ///< no trial is open
  kPending,        ///< another change is waiting for confirmation; the batch is discarded
  kNotPending,     ///< no change is waiting for confirmation
  kBadDeadline,    ///< the time to confirm must be 1 second to 1 day
  kBadName,        ///< a checkpoint's name must be 1 to 64 letters, digits, ".", "_" and "-"
  kNameTaken,      ///< there is already a checkpoint of that name
  kNoCheckpoint,   ///< there is no such checkpoint, or no longer
};

/// Names an error, for logs and programs.
/// @param error  any value
/// @return "kLocked" and so on; "" for a number that is not an error
HOST_EXPORT const char* name_of(StoreError error);

/// The result of a call to a store, for programs and people.
struct StoreResult {
  StoreError error = StoreError::kNone;  ///< for programs
  std::string text;                      ///< one sentence for people, "" on success

  bool ok() const { return error == StoreError::kNone; }  ///< @return whether it succeeded
};

/// The time since the machine booted, which cannot be set.
struct BootTime {
  std::string boot;               ///< identity of this boot, different after each start
  std::int64_t milliseconds = 0;  ///< since its start, sleep included
};

/// A state to which a store can be restored.
struct Checkpoint {
  std::string name;              ///< as given; for an automatic one "@" and its generation
  std::uint64_t generation = 0;  ///< of the state it keeps
  std::int64_t time = 0;         ///< when it was made, seconds since 1970
  std::string label;             ///< for an automatic one: of the change that followed the state
  bool automatic = false;        ///< made by a change; cannot be named or deleted
};

/// A change that is in effect, and will be reverted unless it is confirmed.
struct PendingChange {
  std::uint64_t generation = 0;        ///< of the state that contains it
  std::int64_t milliseconds_left = 0;  ///< to confirm it, sleep of the machine included
  std::string label;                   ///< as passed to accept_pending()
};

/// How a store is opened and how it waits.
struct StoreOptions {
  static constexpr int kLockTimeoutMs = 10000;    ///< 10 s
  static constexpr int kLongestSilenceMs = 5000;  ///< 5 s
  static constexpr int kReadsCountMs = 5000;      ///< 5 s

  /// Rename a file that is kCorrupt to "<path>.corrupt-<n>", with its log, and create a new store
  /// in its place. Without this option an existing file is never replaced.
  bool keep_corrupt_aside = false;
  /// How long a call waits for a lock of another process.
  int lock_timeout_ms = kLockTimeoutMs;
  /// How long another batch may write nothing while this one waits for it. After that it loses the
  /// write lock and is discarded as a whole, so that a forgotten commit does not block others.
  int longest_silence_ms = kLongestSilenceMs;
  /// How long a read counts: a batch is not refused because of an older one.
  int reads_count_ms = kReadsCountMs;
  /// Maximum size of the file, in whole pages of 4096 bytes; 0 for no limit but the disk's.
  std::uint64_t size_limit_bytes = 0;
  /// Name of the SQLite VFS that reads and writes the file, "" for the default.
  std::string vfs;
  /// Returns the boot time; empty for the machine's own.
  std::function<BootTime()> clock;
  /// Called when a commit is on disk but not yet announced to other processes; for tests.
  std::function<void()> between_commit_and_counter;
};

/// A tree in a file. The path ":memory:" gives one that lasts as long as the object.
class HOST_EXPORT Store {
 public:
  /// Opens a store; if there is no file, or an empty one, creates it in factory state with mode
  /// 0600, whatever the umask. A change whose time to confirm is over is reverted first.
  ///
  /// @param path     its folder must exist; symbolic links are followed, also to a file that does
  ///                 not exist yet. Files with "-wal", "-shm" and "-shared" after the name belong
  ///                 to the store too, and have its owner and mode
  /// @param options  apply for the life of the store
  /// @param result   set to kNone, kNotOpened, kNotPrivate, kFull, kIo, kCorrupt, kForeign,
  ///                 kUnknownFormat, kLocked, kReplaced, kUncertain of a revert, or to kReadOnly:
  ///                 the file is empty, or its log has content that cannot be read because no
  ///                 index of it can be created; may be null
  /// @return null on failure; an existing file was not replaced
  static std::unique_ptr<Store> open(const std::string& path, const StoreOptions& options,
                                     StoreResult* result);
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;
  /// Undoes uncommitted writes, as abandon() does.
  ~Store();

  /// @return the absolute path of the file, with symbolic links resolved; or ":memory:"
  const std::string& path() const;

  /// Returns the tree, for reading and writing. Assignments to it and imports into it are writes of
  /// the batch like any other.
  ///
  /// @return a reference that lasts as long as the store. This call fetches other processes'
  ///         commits, reads through a kept reference do not. If the file cannot be read the tree
  ///         stays unchanged, and the debug sink gets a line about it
  Tree& tree();

  /// Makes the batch durable. In a trial it writes nothing, see begin_trial(). Without a batch, or
  /// with one that has no net effect, it succeeds and no generation begins.
  ///
  /// @param label  the reason for the change, for people; at most kLongestText
  /// @return kNone: it is on disk. kMovedOn, kPending, kLocked, kReplaced, kTooLarge, the error
  ///         that poisoned the batch, or an error of writing the file (kFull, kIo, kReadOnly,
  ///         kCorrupt): the whole batch is discarded, the tree is as it was at the last commit, and
  ///         the debug sink gets a line. kUncertain: the same, but the whole batch may have landed;
  ///         the next read shows which
  StoreResult commit(const std::string& label = {});

  /// Undoes every write of the batch, poisoned or not, and ends an open trial.
  void discard();

  /// Starts a batch before its first write, for checks and changes that belong together: takes the
  /// write lock, then fetches what others committed, so that whatever is read from now on still
  /// holds at the commit. Earlier reads do not count. Ends like any batch, with commit() or
  /// discard(), and like any batch loses the lock if it is silent for too long while others wait.
  ///
  /// @return kTrialOpen, kBatchOpen, kLocked, kPending, kReadOnly, or an error of reading the file:
  ///         no new batch is open then
  StoreResult begin();

  /// Starts a batch as begin() does, but one that no commit ends, for operations that commit
  /// halfway: until accept() or discard(), commit() succeeds at once and writes nothing. Once a
  /// trial is poisoned, each commit() fails.
  ///
  /// @return kTrialOpen, kBatchOpen, kLocked, kPending, kReadOnly, or an error of reading the file:
  ///         then no new trial is open
  StoreResult begin_trial();
  bool in_trial() const;  ///< @return whether a trial is open, poisoned or not

  /// @return the writes of the batch, in a trial or not, in order, without refused ones. The
  ///         reference shows later writes too
  const std::vector<WriteStep>& plan() const;
  Difference difference() const;  ///< @return the net effect of the writes of plan()

  /// Ends the trial and makes it durable.
  ///
  /// @param label  as for commit()
  /// @return kNoTrial if none is open, otherwise as commit(): a trial that fails is discarded,
  ///         unless it is kUncertain
  StoreResult accept(const std::string& label = {});

  /// Accepts a trial, to be reverted unless some process calls confirm() in time. The deadline
  /// survives the end of this process; a restart of the machine counts as too late. The first
  /// process that reads, writes or opens the store after the deadline reverts the change and
  /// reports that. Until then every other commit fails with kPending. A trial without a net effect
  /// succeeds, and nothing is pending.
  ///
  /// @param seconds  time to confirm, 1 to 86,400 (a day)
  /// @param label    as for commit(); the revert is labelled "reverted: " followed by this
  /// @return kBadDeadline (an open trial stays open), kNoTrial, or an error of commit()
  StoreResult accept_pending(int seconds, const std::string& label = {});

  /// Keeps the pending change.
  /// @return kNotPending, also if it is too late and the change is now reverted; or an error of
  ///         reading or writing the file: the change is then still pending, and after kUncertain
  ///         may or may not be
  StoreResult confirm();

  /// Reverts the pending change at once, in a new generation, as if the deadline had passed.
  /// @return kNotPending, or an error of writing the file: the change is then still pending, and
  ///         after kUncertain may or may not be
  StoreResult revert();

  /// @return the change that is waiting for confirmation; none also if the file cannot be read
  std::optional<PendingChange> pending();

  /// Saves the last committed state under a name. It survives commits and restores.
  ///
  /// @param name  1 to 64 letters, digits, ".", "_" and "-"
  /// @return kBadName, kBatchOpen, kNameTaken, kLocked, kFull, kTooLarge, kUncertain, or another
  ///         error of writing
  StoreResult make_checkpoint(const std::string& name);

  /// Deletes a named checkpoint.
  ///
  /// @param name  its name; automatic checkpoints are dropped after 20 newer changes
  /// @return kBadName (also for an automatic one), kNoCheckpoint, kUncertain, or another error of
  ///         writing
  StoreResult delete_checkpoint(const std::string& name);

  /// Lists the states that restore() can restore.
  ///
  /// @param result  set to kNone, or to an error of reading the file; may be null
  /// @return the automatic ones, newest first: the states before the last 20 changes. Then the
  ///         named ones, by name. Empty if the file cannot be read
  std::vector<Checkpoint> checkpoints(StoreResult* result = nullptr);

  /// Compares two states.
  ///
  /// @param from        a checkpoint's name as listed, or "" for now, uncommitted writes included
  /// @param to          the same
  /// @param difference  set to the changes from one to the other, only on success; may be null
  /// @return kNoCheckpoint, or an error of reading the file
  StoreResult difference(const std::string& from, const std::string& to, Difference* difference);

  /// Restores the state of a checkpoint, in one commit; in a trial, as a write of the trial.
  /// Instance numbers assigned since then are not reused.
  ///
  /// @param name  a checkpoint's name, as listed
  /// @return kBatchOpen, kNoCheckpoint or an error of reading the file: nothing is changed, a
  ///         trial stays open; or an error of commit()
  StoreResult restore(const std::string& name);

  /// Undoes every write of the batch, and reports that to the debug sink if there was one. The
  /// process's own store does this when the process exits.
  void abandon();

  /// @return number of the last committed change that the tree contains; a new store has 1. Does
  ///         not read the file: tree() fetches other processes' commits
  std::uint64_t generation() const;

 private:
  friend class ReadHold;
  struct Impl;
  explicit Store(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

/// While it exists, reads of a store show one state: commits of other processes do not appear. The
/// first write of a batch ends this, because it must build on the newest state. An open walk of the
/// store's MibAccess has the same effect.
class HOST_EXPORT ReadHold {
 public:
  /// Fetches other processes' commits, then holds that state. Holds of one store may overlap.
  /// @param store  must outlive the hold
  explicit ReadHold(Store& store);
  ReadHold(const ReadHold&) = delete;
  ReadHold& operator=(const ReadHold&) = delete;
  ~ReadHold();

 private:
  Store& store_;
};

/// Returns where the store of this process is. An empty variable counts as not set. If the program
/// runs with more rights than its caller, the environment counts as empty.
///
/// @return IGD_STORE; for root /var/lib/igd/gateway.db; otherwise igd/gateway.db in XDG_STATE_HOME
///         or, if that is not set, in .local/state of HOME; "" if none of them is set
HOST_EXPORT std::string default_store_path();

/// Returns the store behind getContext(), opened at first use with the default options. Its folders
/// are created and synced, accessible to their owner only, unless IGD_STORE names it.
///
/// @param result  set to the reason of the last failure, or kNone; may be null
/// @return null if it cannot be opened, which is reported to the debug sink once and retried
///         at most once a second; otherwise one store for the life of the process
HOST_EXPORT Store* process_store(StoreResult* result = nullptr);

}  // namespace host

#endif  // HOST_STORE_H
