#include "acs/acs_commands.h"

#include <CLI/App.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/passwords.h"
#include "cli/session.h"
#include "gateway/secrets.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

// How a password comes in: from a file, or from a prompt.
struct PasswordOptions {
  std::string file;
  bool prompt = false;
  CLI::Option* file_option = nullptr;

  bool named() const { return file_option->count() > 0 || prompt; }
};

// A setting that is text: what the user gave, and where it goes.
struct TextSetting {
  const char* option;
  const char* help;
  std::string api_mng_server_info::*field;
  bool is_url;
};

constexpr TextSetting kTexts[] = {
    {"--url", "URL of the management server; '' for none", &api_mng_server_info::url, true},
    {"--username", "The gateway's user name at the server", &api_mng_server_info::username, false},
    {"--request-url", "URL at which the server reaches the gateway",
     &api_mng_server_info::connection_request_url, true},
    {"--request-username", "The server's user name at the gateway",
     &api_mng_server_info::connection_request_username, false},
};
constexpr std::size_t kTextCount = sizeof kTexts / sizeof kTexts[0];

struct SetOptions {
  std::string texts[kTextCount];
  CLI::Option* named[kTextCount] = {};
  PasswordOptions password;
  PasswordOptions request_password;
  ChangeOptions change;
};

api_mng_server_info read_settings() {
  api_mng_server_info info;
  (void)igd_mng_server_get_params(&info);
  return info;
}

Json json_of(const api_mng_server_info& info, bool show_secrets) {
  Json data = {{"url", info.url},
               {"username", info.username},
               {"password_set", !info.password.empty()},
               {"request_url", info.connection_request_url},
               {"request_username", info.connection_request_username},
               {"request_password_set", !info.connection_request_password.empty()}};
  if (show_secrets) {
    data["password"] = info.password;
    data["request_password"] = info.connection_request_password;
  }
  return data;
}

void show(Session& session) {
  (void)session.tree();
  const api_mng_server_info info = read_settings();
  const bool show_secrets = session.options.show_secrets;
  Output& output = session.output();
  if (output.json()) {
    output.document("acs.show", json_of(info, show_secrets));
    return;
  }
  output.table(
      {{},
       {{"URL", info.url},
        {"username", info.username},
        {"password", shown_secret(info.password, show_secrets)},
        {"request URL", info.connection_request_url},
        {"request username", info.connection_request_username},
        {"request password", shown_secret(info.connection_request_password, show_secrets)}}});
}

bool is_url(const std::string& text) {
  for (const char* const scheme : {"http://", "https://"}) {
    if (!begins_with(lower_case(text), scheme)) continue;
    const std::string rest = text.substr(std::string(scheme).size());
    return !rest.empty() && rest.front() != '/' && rest.find_first_of(" \"<>") == std::string::npos;
  }
  return false;
}

void check_text(const TextSetting& setting, const std::string& text,
                std::vector<Problem>* problems) {
  const std::string what = std::string(setting.option) + " is " + in_quotes(text);
  if (text.size() > igd::kLongestText || printable(text) != text) {
    problems->push_back({what, "give at most 255 bytes of printable text"});
  } else if (setting.is_url && !text.empty() && !is_url(text)) {
    problems->push_back({what, "give a URL such as https://acs.example.net/cpe, or '' for none"});
  }
}

void check_passwords(const SetOptions& options, std::vector<Problem>* problems) {
  for (const PasswordOptions* const one : {&options.password, &options.request_password}) {
    if (one->prompt && one->file_option->count() > 0) {
      problems->push_back(
          {"a password would come from both a file and a prompt", "leave out one of them"});
    }
  }
  if (options.password.file == "-" && options.request_password.file == "-") {
    problems->push_back({"both passwords would come from standard input",
                         "put one of them into a file that only you can read"});
  }
}

void check(const SetOptions& options) {
  std::vector<Problem> problems;
  bool any = options.password.named() || options.request_password.named();
  for (std::size_t i = 0; i < kTextCount; ++i) {
    if (options.named[i]->count() == 0) continue;
    any = true;
    check_text(kTexts[i], options.texts[i], &problems);
  }
  check_passwords(options, &problems);
  if (!any) problems.push_back({"no setting is given", "igdctl acs set --help lists the options"});
  fail_on(problems);
}

void read_password(const PasswordOptions& options, const std::string& question,
                   std::string* password) {
  if (!options.named()) return;
  *password = options.prompt ? password_from_prompt(question) : password_from_file(options.file);
}

void set(Session& session, const SetOptions& options) {
  check(options);
  std::string password;
  std::string request_password;
  read_password(options.password, "Password of the gateway at the server", &password);
  read_password(options.request_password, "Password of the server at the gateway",
                &request_password);
  Change change(session, options.change);
  const ChangeOutcome outcome = change.run("acs set", [&] {
    (void)session.tree();
    const api_mng_server_info before = read_settings();
    api_mng_server_info info = before;
    for (std::size_t i = 0; i < kTextCount; ++i) {
      if (options.named[i]->count() > 0) info.*kTexts[i].field = options.texts[i];
    }
    if (options.password.named()) info.password = password;
    if (options.request_password.named()) info.connection_request_password = request_password;
    if (json_of(info, true) == json_of(before, true)) {
      change.makes_no_difference();
      return;
    }
    (void)igd_mng_server_set_params(&info);
  });
  change.report(outcome, "Changed the settings of the management server");
}

void add_password_options(CLI::App& command, const std::string& prefix, const std::string& whose,
                          PasswordOptions& options) {
  options.file_option =
      command
          .add_option("--" + prefix + "password-file", options.file,
                      "Read " + whose + " password from a file, - for standard input")
          ->type_name("FILE");
  command.add_flag("--" + prefix + "password-prompt", options.prompt,
                   "Ask for " + whose + " password on the terminal, without echo");
}

void add_acs_show(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "show", "Show the six settings", "acs show");
  command.callback([&session] { session.on_run([&session] { show(session); }); });
}

void add_acs_set(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "set", "Change the given settings and leave the others alone",
                  "acs set --url https://acs.example.net/cpe --password-prompt");
  const auto options = std::make_shared<SetOptions>();
  for (std::size_t i = 0; i < kTextCount; ++i) {
    options->named[i] =
        command.add_option(kTexts[i].option, options->texts[i], kTexts[i].help)->type_name("TEXT");
  }
  add_password_options(command, "", "the gateway's", options->password);
  add_password_options(command, "request-", "the server's", options->request_password);
  add_change_options(command, session, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { set(session, *options); }); });
}

}  // namespace

void add_acs_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "acs", "Show and change the settings of the management server");
  add_acs_show(group, session);
  add_acs_set(group, session);
}

}  // namespace igdctl
