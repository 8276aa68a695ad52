// The life of eight connections, with its memory and, in an emulator's trace, its instructions;
// scripts/size runs it and reads both.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "host_platform.h"
#include "igd_api.h"

/// A step lies between calls of these two: an emulator's trace tells by their names where it is.
extern "C" {
__attribute__((noinline)) void step_begins() { __asm__ volatile(""); }
__attribute__((noinline)) void step_ends() { __asm__ volatile(""); }
}

namespace {

constexpr int kConnections = 8;

/// Bytes that were asked for and not given back.
struct Heap {
  std::size_t live = 0;
  std::size_t peak = 0;

  void take(std::size_t size) { peak = std::max(peak, live += size); }
  void give_back(std::size_t size) { live -= size; }
};

Heap library_heap;
Heap platform_heap;
bool in_platform = true;  // until the first operation

struct alignas(std::max_align_t) BlockHead {
  std::size_t size;
  Heap* heap;
};

/// What is made while it lives is the platform's.
class PlatformsOwn {
 public:
  PlatformsOwn() { in_platform = true; }
  ~PlatformsOwn() { in_platform = false; }
  PlatformsOwn(const PlatformsOwn&) = delete;
  PlatformsOwn& operator=(const PlatformsOwn&) = delete;
};

/// Passes every call on to the tree of the reference platform.
class Access final : public MibAccess {
 public:
  int addObject(const std::string& table_path, int* instance, int access_level) override {
    const PlatformsOwn own;
    return host::mib_access().addObject(table_path, instance, access_level);
  }
  int deleteObject(const std::string& object_path) override {
    const PlatformsOwn own;
    return host::mib_access().deleteObject(object_path);
  }
  InstanceIterator* openInstanceIterator(int type) override {
    const PlatformsOwn own;
    return host::mib_access().openInstanceIterator(type);
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    const PlatformsOwn own;
    host::mib_access().closeInstanceIterator(iterator);
  }
  std::string getValue(const std::string& name) override {
    const PlatformsOwn own;
    return host::mib_access().getValue(name);
  }
  int setValue(const std::string& name, const std::string& value, int flags) override {
    const PlatformsOwn own;
    return host::mib_access().setValue(name, value, flags);
  }
  int commit(int /*mode*/) override { return 0; }
  int applyChanges(const std::string& /*scope*/) override { return 0; }
};

class Context final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &access_; }
  void* secondService() override { return nullptr; }

 private:
  Access access_;
};

api_wan_info connection(int number) {
  api_wan_info wan;
  wan.wan_info_name = "Connection" + std::to_string(number);
  wan.service_type = "INTERNET";
  wan.connection_class = kIgdRouted;
  wan.connect_mode = kIgdPppoe;
  wan.pppoe_user_name = "household@example.net";
  wan.pppoe_password = "correct-horse";
  wan.vlan_enable = 1;
  wan.vlan_id = 100 + number;
  wan.wan_enable = "true";
  if (number < 4) wan.bind_lan = {"LAN" + std::to_string(number + 1)};
  return wan;
}

/// Does a step with each connection and reports the heap behind it.
template <typename Step>
void each_connection(const char* name, Step step) {
  library_heap.peak = library_heap.live;
  const std::size_t before = library_heap.live;
  step_begins();
  for (int i = 0; i < kConnections; ++i) step(static_cast<std::size_t>(i));
  step_ends();
  std::fprintf(stderr, "%-8s %8zu %8zu %10zu\n", name, library_heap.peak - before,
               library_heap.live, platform_heap.live);
}

void run() {
  std::vector<api_wan_info> wans;
  for (int i = 0; i < kConnections; ++i) wans.push_back(connection(i));
  std::vector<std::string> paths(kConnections);

  in_platform = false;
  library_heap = {};
  each_connection("check", [&](std::size_t i) {
    if (igd_verify_new_wan_info_valid("", &wans[i], 0xff) != kIgdAcceptable) std::exit(1);
  });
  each_connection("create", [&](std::size_t i) {
    paths[i] = igd_wan_create("Ethernet", &wans[i]);
    if (paths[i].empty()) std::exit(1);
  });
  each_connection("read", [&](std::size_t i) {
    api_wan_info read;
    igd_wan_get_params(paths[i], &read);
    if (read.wan_info_name != wans[i].wan_info_name) std::exit(1);
  });
  each_connection("write", [&](std::size_t i) { igd_wan_set_params(paths[i], &wans[i]); });
  each_connection("status", [&](std::size_t i) {
    api_wan_status status;
    igd_wan_status(paths[i], &status);
  });
  each_connection("remove", [&](std::size_t i) {
    igd_wan_destory(paths[i]);
    std::string().swap(paths[i]);
    wans[i] = {};
  });
}

}  // namespace

void* operator new(std::size_t size) {
  auto* const head = static_cast<BlockHead*>(std::malloc(sizeof(BlockHead) + size));
  if (head == nullptr) throw std::bad_alloc();
  Heap* const heap = in_platform ? &platform_heap : &library_heap;
  heap->take(size);
  return new (head) BlockHead{size, heap} + 1;
}

void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  auto* const head = static_cast<BlockHead*>(block) - 1;
  head->heap->give_back(head->size);
  std::free(head);
}

void operator delete(void* block, std::size_t /*size*/) noexcept { operator delete(block); }

PlatformContext* getContext() {
  static Context context;
  return &context;
}

int main() {
  if (std::freopen("/dev/null", "w", stdout) == nullptr) return 1;  // the library's trace
  host::set_debug_sink({});
  host::Tree tree = host::Tree::factory();
  host::exchange_active_tree(&tree);
  std::fprintf(stderr, "step     transient     kept   platform\n");
  run();
  return 0;
}
