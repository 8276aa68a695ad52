// Twelve creations that each lack one add, beside the creation that lacks none.
#ifndef IGD_TESTS_FAILING_ADD_TABLE_H
#define IGD_TESTS_FAILING_ADD_TABLE_H

#include <string>

#include "form/lines.h"

namespace transcripts {

/// The text of the table's file: a line for each failing add, then a table of calls with a column
/// for each creation, where its letter stands beside each call that it makes. So a column, read
/// from top to bottom, is the transcript of that creation.
std::string failing_add_table();

/// The table of calls for some transcripts: equal calls share a row where their order allows it.
/// The columns are named 0 to 9, then A to Z.
Lines table_of_calls(const std::vector<Lines>& transcripts);

}  // namespace transcripts

#endif  // IGD_TESTS_FAILING_ADD_TABLE_H
