// Tables at given widths.
#include <gtest/gtest.h>

#include "term/output.h"

namespace {

using namespace igdctl;

Table connections() {
  return {{"NAME", "PATH"},
          {{"Internet", "InternetGatewayDevice.WANDevice.1."}, {"", {"on", Style::kGood}}}};
}

TEST(Tables, AlignColumnsAndShowEmptyCells) {
  EXPECT_EQ(rendered(connections(), {}),
            "NAME      PATH\n"
            "Internet  InternetGatewayDevice.WANDevice.1.\n"
            "-         on\n");
}

TEST(Tables, CutTheWidestColumnToFitThePage) {
  EXPECT_EQ(rendered(connections(), {30, false}),
            "NAME      PATH\n"
            "Internet  InternetGatewayDevi…\n"
            "-         on\n");
}

TEST(Tables, StandAsAListForEachRowOnAPageTooNarrowForTheirColumns) {
  EXPECT_EQ(rendered(connections(), {17, false}),
            "NAME  Internet\n"
            "PATH  InternetGa…\n"
            "\n"
            "NAME  -\n"
            "PATH  on\n");
  EXPECT_EQ(rendered(connections(), {18, false}),
            "NAME      PATH\n"
            "Internet  Interne…\n"
            "-         on\n");
}

TEST(Tables, KeepFourColumnsOfEachCellOnATinyPage) {
  EXPECT_EQ(rendered(connections(), {3, false}),
            "NAME  Int…\n"
            "PATH  Int…\n"
            "\n"
            "NAME  -\n"
            "PATH  on\n");
}

TEST(Tables, PaintOnlyWhereThereIsColour) {
  EXPECT_EQ(rendered({{}, {{{"on", Style::kGood}}}}, {80, true}), "\x1b[32mon\x1b[0m\n");
  EXPECT_EQ(rendered({{}, {{{"on", Style::kGood}}}}, {80, false}), "on\n");
}

TEST(Tables, KeepARowOnOneLineWhateverItsText) {
  EXPECT_EQ(rendered({{"A", "B"}, {{"x\ny", "\x1b[2J"}}}, {}),
            "A     B\n"
            "x\\ny  \\x1b[2J\n");
}

}  // namespace
