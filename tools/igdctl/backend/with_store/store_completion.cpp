// Words that the store knows, for completion.
#include "backend/with_store/store_backend.h"
#include "gateway/names.h"
#include "term/text.h"
#include "term/times.h"

namespace igdctl {

namespace {

// The path level by level, so that a list stays short: up to and with the next dot.
std::string next_level(const std::string& name, std::size_t prefix) {
  const std::size_t dot = name.find('.', prefix);
  return dot == std::string::npos ? name : name.substr(0, dot + 1);
}

}  // namespace

std::vector<Candidate> StoreBackend::checkpoint_words() const {
  std::vector<Candidate> words;
  for (const host::Checkpoint& checkpoint : host::process_store()->checkpoints()) {
    std::string description = local_time_text(checkpoint.time);
    if (!checkpoint.label.empty()) description = "before " + checkpoint.label;
    words.push_back({checkpoint.name, description});
  }
  return words;
}

std::vector<Candidate> StoreBackend::parameter_words(const std::string& prefix) const {
  const bool from_root = begins_with(prefix, "InternetG") || prefix.empty();
  const std::string root = from_root ? "" : full_name_of("");
  std::vector<Candidate> words;
  for (const host::Parameter& parameter : host::active_tree().parameters(root + prefix)) {
    std::string word = next_level(parameter.name.substr(root.size()), prefix.size());
    if (words.empty() || words.back().word != word) words.push_back({std::move(word), ""});
  }
  return words;
}

}  // namespace igdctl
