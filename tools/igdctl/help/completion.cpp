#include "help/completion.h"

#include <algorithm>

#include "cli/command_line.h"
#include "term/text.h"

namespace igdctl {

namespace {

struct KindOfName {
  const char* name;
  WordKind kind;
};

// By the names that commands give their arguments, and options their values.
constexpr KindOfName kKinds[] = {
    {"CONNECTION", WordKind::kConnection},
    {"PORT", WordKind::kPort},
    {"PORTS", WordKind::kPort},
    {"INTERFACE", WordKind::kPort},
    {"BRIDGE", WordKind::kBridge},
    {"CHECKPOINT", WordKind::kCheckpoint},
    {"PARAMETER", WordKind::kParameter},
    {"OBJECT", WordKind::kParameter},
    {"FILE", WordKind::kFile},
};

WordKind kind_of_name(const std::string& name) {
  const std::string word = name.substr(0, name.find_first_of(",.: "));
  for (const KindOfName& row : kKinds) {
    if (word == row.name) return row.kind;
  }
  return WordKind::kNothing;
}

WordKind kind_of(const CLI::Option& option) {
  const WordKind kind = kind_of_name(option.get_type_name());
  const bool by_own_name = kind == WordKind::kNothing && option.get_positional();
  return by_own_name ? kind_of_name(option.get_name()) : kind;
}

// "{csv,json}" of a check, or "on|off" as the name of a value that the command checks itself.
std::vector<std::string> fixed_values(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t open = type.find('{');
  const std::size_t close = type.find('}');
  if (open != std::string::npos && close > open) {
    return split_list(type.substr(open + 1, close - open - 1));
  }
  return type.find('|') != std::string::npos ? split_list(type, '|') : std::vector<std::string>();
}

/// Walks a command line as far as it goes.
class LineWalk {
 public:
  explicit LineWalk(const CLI::App& root) : command_(&root) {}

  void pass(const std::string& word) {
    if (awaiting_ != nullptr) return take_value(word);
    if (!only_arguments_ && word == "--") {
      only_arguments_ = true;
    } else if (!only_arguments_ && word.size() > 1 && word[0] == '-') {
      pass_option(word);
    } else if (const CLI::App* const sub = subcommand(word); sub != nullptr) {
      command_ = sub;
      arguments_ = 0;
    } else {
      ++arguments_;
    }
  }

  Completion finish(const std::string& prefix) {
    const std::size_t equals = prefix.find('=');
    if (awaiting_ != nullptr) {
      offer_values(*awaiting_, "", prefix);
    } else if (only_arguments_ || prefix.empty() || prefix[0] != '-') {
      offer_commands(prefix);
      offer_argument(prefix);
    } else if (equals == std::string::npos) {
      offer_options(prefix);
    } else if (const CLI::Option* const option = option_named(prefix.substr(0, equals))) {
      offer_values(*option, prefix.substr(0, equals + 1), prefix.substr(equals + 1));
    }
    return std::move(result_);
  }

 private:
  void take_value(const std::string& word) {
    if (awaiting_->check_name("--store")) result_.store = word;
    awaiting_ = nullptr;
  }

  void pass_option(const std::string& word) {
    const std::size_t equals = word.find('=');
    const CLI::Option* const option = option_named(word.substr(0, equals));
    if (option == nullptr || option->get_expected_max() == 0) return;
    awaiting_ = option;
    if (equals != std::string::npos) take_value(word.substr(equals + 1));
    if (awaiting_ != nullptr && option->get_type_name()[0] == '[') awaiting_ = nullptr;
  }

  const CLI::App* subcommand(const std::string& word) const {
    if (only_arguments_ || arguments_ > 0) return nullptr;
    for (const CLI::App* sub : shown_commands(*command_)) {
      if (sub->get_name() == word) return sub;
    }
    return nullptr;
  }

  const CLI::Option* option_named(const std::string& name) const {
    for (const CLI::App* app = command_; app != nullptr; app = app->get_parent()) {
      for (const CLI::Option* option : app->get_options()) {
        if (!option->get_positional() && option->check_name(name)) return option;
      }
    }
    return nullptr;
  }

  void offer(const std::string& word, const std::string& description, const std::string& prefix) {
    const bool there = std::any_of(result_.candidates.begin(), result_.candidates.end(),
                                   [&](const Candidate& one) { return one.word == word; });
    if (begins_with(word, prefix) && !there) result_.candidates.push_back({word, description});
  }

  void offer_commands(const std::string& prefix) {
    if (only_arguments_ || arguments_ > 0) return;
    for (const CLI::App* sub : shown_commands(*command_)) {
      offer(sub->get_name(), sub->get_description(), prefix);
    }
  }

  void offer_options(const std::string& prefix) {
    for (const CLI::App* app = command_; app != nullptr; app = app->get_parent()) {
      for (const CLI::Option* option : app->get_options()) {
        if (option->get_positional() || option->get_group().empty()) continue;
        for (const std::string& name : split_list(option->get_name(false, true))) {
          if (name.size() > 2) offer(name, option->get_description(), prefix);
        }
      }
    }
  }

  void offer_argument(const std::string& prefix) {
    std::size_t place = 0;
    for (const CLI::Option* option : command_->get_options()) {
      if (!option->get_positional()) continue;
      if (place++ == arguments_ || option->get_expected_max() > 1) {
        return offer_values(*option, "", prefix);
      }
    }
  }

  void offer_values(const CLI::Option& option, std::string before, std::string prefix) {
    const std::size_t comma = prefix.rfind(',');
    result_.kind = kind_of(option);
    if (result_.kind == WordKind::kPort && comma != std::string::npos) {  // lists of ports
      before += prefix.substr(0, comma + 1);
      prefix.erase(0, comma + 1);
    }
    for (const std::string& value : fixed_values(option)) {
      offer(before + value, "", before + prefix);
    }
    result_.before = std::move(before);
    result_.prefix = std::move(prefix);
  }

  const CLI::App* command_;
  const CLI::Option* awaiting_ = nullptr;
  bool only_arguments_ = false;
  std::size_t arguments_ = 0;
  Completion result_;
};

}  // namespace

Completion complete_line(const CLI::App& root, const std::vector<std::string>& words) {
  LineWalk walk(root);
  if (words.empty()) return walk.finish({});
  for (std::size_t i = 0; i + 1 < words.size(); ++i) walk.pass(words[i]);
  return walk.finish(words.back());
}

}  // namespace igdctl
