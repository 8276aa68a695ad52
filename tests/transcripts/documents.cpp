#include "documents.h"

#include "failing_add_table.h"
#include "form/folded_lines.h"
#include "form/short_names.h"

namespace transcripts {
namespace {

std::vector<Document> collect() {
  std::vector<Document> documents = {{"create_failing_adds", failing_add_table}};
  for (const Area& area : kAreas) {
    if (area.scenarios == failing_add_scenarios) continue;
    for (const Scenario& scenario : area.scenarios()) {
      documents.push_back({scenario.name, [scenario] { return document_of(play(scenario)); }});
    }
  }
  return documents;
}

}  // namespace

const std::vector<Document>& all_documents() {
  static const std::vector<Document> documents = collect();
  return documents;
}

std::string written(const std::string& transcript) { return shorten(fold(transcript)); }

std::string as_recorded(const std::string& written) { return unfold(expand(written)); }

std::string document_of(const Recording& recording) {
  return recording.head.text() + '\n' + written(recording.text);
}

}  // namespace transcripts
