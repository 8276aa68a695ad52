// The files of expected transcripts: one for each scenario, and one table of the failing adds.
//
// A file is the head of its transcript (form/head.h), an empty line, and the transcript with its
// lines folded (form/folded_lines.h) and its paths shortened (form/short_names.h).
#ifndef IGD_TESTS_DOCUMENTS_H
#define IGD_TESTS_DOCUMENTS_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "scenarios/scenario.h"

namespace transcripts {

struct Document {
  std::string name;  ///< of its file, without ".txt"
  std::function<std::string()> text;
};

const std::vector<Document>& all_documents();

/// A transcript as its file has it, without the head; and back.
std::string written(const std::string& transcript);
std::string as_recorded(const std::string& written);

/// The text of a scenario's file.
std::string document_of(const Recording& recording);

/// Shows a document as its name where a test prints it.
inline void PrintTo(const Document& document, std::ostream* out) { *out << document.name; }

}  // namespace transcripts

#endif  // IGD_TESTS_DOCUMENTS_H
