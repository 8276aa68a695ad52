#include "csv_dump.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace host_tests {
namespace {

std::vector<std::vector<std::string>> records_of(const std::string& text) {
  std::vector<std::vector<std::string>> records;
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
      fields.back() += text[++i];
    } else if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && c == ',') {
      fields.emplace_back();
    } else if (!quoted && c == '\n') {
      records.push_back(fields);
      fields.assign(1, "");
    } else if (quoted || c != '\r') {
      fields.back() += c;
    }
  }
  return records;
}

}  // namespace

std::vector<DumpRow> read_dump(const std::string& file) {
  std::ifstream input(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(input), {}};
  const auto records = records_of(text);
  std::map<std::string, std::size_t> column;
  for (std::size_t i = 0; i < records.front().size(); ++i) column[records.front()[i]] = i;
  std::vector<DumpRow> rows;
  for (std::size_t i = 1; i < records.size(); ++i) {
    const auto& fields = records[i];
    const std::string& name = fields[column.at("Parameter")];
    if (name.compare(0, name.find('.'), "InternetGatewayDevice") != 0) continue;
    rows.push_back({name, fields[column.at("Object")] == "true", fields[column.at("Value")],
                    fields[column.at("Value type")]});
  }
  return rows;
}

std::string dump_file(const std::string& name) {
  const char* folder = std::getenv("IGD_DUMP_DIR");
  const std::string beside_repository = std::string(TEST_DATA_DIR) + "/../../../shared/data";
  std::string file = (folder != nullptr ? std::string(folder) : beside_repository) + "/" + name;
  return std::ifstream(file) ? file : std::string();
}

}  // namespace host_tests
