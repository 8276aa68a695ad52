// A store's files with bytes changed, pages exchanged and ends cut off: opening fails with a named
// error and leaves what it does not understand, or gives a tree that can be read and written. Never
// is it factory state in the place of what was there.
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <vector>

#include "harness.h"
#include "host_store.h"
#include "input.h"
#include "temporary_folder.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::require_same;
using host::Store;
using host::StoreError;
using host::StoreResult;

constexpr std::size_t kPage = 4096;
constexpr int kMostDamages = 6;
constexpr std::int64_t kMinute = 60000;
const std::string kBridges = "InternetGatewayDevice.Layer2Bridging.Bridge.";
const std::string kUrl = "InternetGatewayDevice.ManagementServer.URL";

std::string content_of(const std::string& path) {
  std::ifstream input(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(input), {}};
}

void write_file(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

std::string values_of(const host::Tree& tree) {
  std::string text;
  for (const host::Parameter& parameter : tree.parameters()) {
    text += parameter.name + '=' + parameter.value + '\n';
  }
  return text;
}

/// The files of a store, and the states that were ever committed to it.
struct Files {
  std::string main;
  std::string log;
  std::set<std::string> states;
};

/// The place where stores are tried, with the files of three good ones to begin with.
class Bench {
 public:
  Bench() {
    (void)umask(S_IRWXG | S_IRWXO);  // what others can use is refused
    options_.lock_timeout_ms = 0;
    options_.clock = [this] { return host::BootTime{"boot", now_}; };
    make_stores();
  }

  const Files& good(std::size_t number) const { return good_[number % 3]; }
  const std::string& path() const { return path_; }
  void set_time(std::int64_t now) { now_ = now; }

  void put(const Files& files) const {
    write_file(path_, files.main);
    (void)std::remove(log().c_str());
    if (!files.log.empty()) write_file(log(), files.log);
    (void)std::remove((path_ + "-shm").c_str());
    (void)std::remove((path_ + "-journal").c_str());
  }

  std::unique_ptr<Store> open(StoreResult* result) const {
    return Store::open(path_, options_, result);
  }

 private:
  std::string log() const { return path_ + "-wal"; }

  void commit(Store& store, Files& files, const std::string& text) const {
    int bridge = 0;
    (void)store.tree().add_object(kBridges, &bridge);
    (void)store.tree().set_value(kBridges + std::to_string(bridge) + ".BridgeName", text);
    (void)store.tree().set_value(kUrl, std::string(300, text.front()));
    require(store.commit(text).ok(), "a sound store takes changes");
    files.states.insert(values_of(store.tree()));
  }

  void make_stores() {
    Files files;
    make_plain(files);
    good_[0] = files;
    make_with_log(files);
    good_[1] = files;
    files = good_[0];
    make_pending(files);
    good_[2] = files;
  }

  // Five changes and a checkpoint, all in the main file.
  void make_plain(Files& files) const {
    {
      const auto store = open(nullptr);
      for (const char* text : {"one", "two", "three", "four"}) commit(*store, files, text);
      require(store->make_checkpoint("kept").ok(), "a checkpoint can be made");
      commit(*store, files, "five");
    }
    files.main = content_of(path_);
  }

  // Two more changes, which stand in the log alone.
  void make_with_log(Files& files) const {
    put(files);
    files.states.clear();
    const auto store = open(nullptr);
    files.states.insert(values_of(store->tree()));
    for (const char* text : {"six", "seven"}) commit(*store, files, text);
    files.main = content_of(path_);
    files.log = content_of(log());
  }

  void make_pending(Files& files) const {
    put(files);
    {
      const auto store = open(nullptr);
      require(store->begin_trial().ok(), "a trial can begin");
      (void)store->tree().set_value(kUrl, "pending");
      require(store->accept_pending(60, "pending").ok(), "a change can wait");
      files.states.insert(values_of(store->tree()));
    }
    files.main = content_of(path_);
  }

  proof::TemporaryFolder folder_;
  std::string path_ = folder_.path() + "/gateway.db";
  host::StoreOptions options_;
  std::int64_t now_ = 0;
  Files good_[3];
};

std::size_t draw_offset(Input& input, std::size_t size) {
  const std::size_t page = input.byte() * kPage;
  const bool in_its_head = input.coin();
  const std::size_t inside = in_its_head ? input.byte() % 100 : input.byte() * 256 + input.byte();
  return size == 0 ? 0 : (page + inside % kPage) % size;
}

void exchange_pages(std::string& content, std::size_t one, std::size_t other, bool both) {
  if (std::max(one, other) + kPage > content.size()) return;
  const std::string first = content.substr(one, kPage);
  content.replace(one, kPage, content, other, kPage);
  if (both) content.replace(other, kPage, first);
}

void damage(std::string& content, Input& input) {
  const std::size_t at = draw_offset(input, content.size());
  if (content.empty()) return;
  switch (input.below(7)) {
    case 0:
      content[at] = static_cast<char>(input.byte());
      break;
    case 1:
      content[at] =
          static_cast<char>(static_cast<unsigned char>(content[at]) ^ (1U << input.byte() % 8));
      break;
    case 2:
      content.resize(at);
      break;
    case 3:
      content.replace(at, input.byte(), std::string(input.byte(), static_cast<char>(input.byte())));
      break;
    case 4:
      exchange_pages(content, at / kPage * kPage,
                     input.byte() * kPage % content.size() / kPage * kPage, input.coin());
      break;
    case 5:
      content.replace(at, kPage, std::string(std::min(kPage, content.size() - at), '\0'));
      break;
    default: {
      const std::string bytes = input.bytes(input.byte() % 16);
      content.replace(at, bytes.size(), bytes);
      break;
    }
  }
}

void check_refused(const Bench& bench, const Files& files, const StoreResult& result) {
  require(result.error != StoreError::kNone && *host::name_of(result.error) != '\0',
          "a refusal has a name");
  require(!result.text.empty(), "a refusal has a reason");
  const bool stays = result.error == StoreError::kCorrupt || result.error == StoreError::kForeign ||
                     result.error == StoreError::kUnknownFormat;
  if (stays && files.log.empty()) {
    require_same(content_of(bench.path()), files.main, "what is not understood stays as it is");
  }
}

void require_named(const StoreResult& result) {
  require(result.ok() == result.text.empty(), "what fails says why");
}

// Whatever is done with it, it ends well or with a reason.
void use(Store& store) {
  StoreResult result;
  for (const host::Checkpoint& checkpoint : store.checkpoints(&result)) {
    host::Difference difference;
    require_named(store.difference(checkpoint.name, "", &difference));
  }
  require_named(result);
  (void)store.pending();
  (void)store.tree().set_value(kUrl, "written after the damage");
  require_named(store.commit("after the damage"));
  require_named(store.restore("kept"));
  require_named(store.restore("@3"));
  require_named(store.make_checkpoint("another"));
  require_named(store.confirm());
  require_named(store.delete_checkpoint("kept"));
  (void)values_of(store.tree());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Bench bench;
  static const std::string factory = values_of(host::Tree::factory());
  Input input(data, size);
  const Files& good = bench.good(input.byte());
  Files files = good;
  bench.set_time(0);
  if (input.coin()) bench.set_time(2 * kMinute);
  for (int count = 1 + input.below(kMostDamages); count > 0 && !input.done(); --count) {
    const bool to_log = !files.log.empty() && input.coin();
    damage(to_log ? files.log : files.main, input);
  }
  bench.put(files);
  StoreResult result;
  const auto store = bench.open(&result);
  if (store == nullptr) {
    check_refused(bench, files, result);
    return 0;
  }
  const std::string values = values_of(store->tree());
  const bool is_new = files.main.empty() && files.log.empty();
  require((values == factory) == is_new, "factory state is not put over what was there");
  if (files.main == good.main && !good.log.empty()) {
    require(good.states.count(values) == 1, "a damaged log gives a state that was committed");
  }
  if (files.main == good.main && files.log == good.log) {
    require(good.states.count(values) == 1, "what is not damaged is found");
  }
  use(*store);
  return 0;
}
