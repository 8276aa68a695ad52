// What igdctl's sources include of others, compiled once for all mutants. A template that is
// instantiated here is compiled in no source.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <numeric>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

template class std::basic_string<char>;
template class std::vector<std::string>;
template class std::map<std::string, std::string>;
template class nlohmann::basic_json<nlohmann::ordered_map>;
