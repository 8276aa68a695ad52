/// Manual pages, made from the commands themselves.
#ifndef IGDCTL_MAN_PAGE_H
#define IGDCTL_MAN_PAGE_H

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace igdctl {

/// Names of the pages: "igdctl" and one for each group, "igdctl-wan".
std::vector<std::string> man_page_names(const CLI::App& root);

/// The page of that name in roff's man macros; "" when there is none.
/// @param has_store  whether the commands work on a store; the page explains which
std::string man_page(const CLI::App& root, const std::string& name, bool has_store);

/// The text as roff shows it letter by letter.
std::string roff_text(const std::string& text);

}  // namespace igdctl

#endif  // IGDCTL_MAN_PAGE_H
