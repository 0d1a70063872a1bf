#include <csignal>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/basic/Dates.h"
#include "platform/basic/Format.h"
#include "platform/basic/NewFile.h"
#include "queries/sheets/Csv.h"
#include "queries/sheets/Json.h"
#include "queries/sheets/Page.h"
#include "queries/sheets/Table.h"
#include "queries/sheets/Workbook.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InChild.h"
#include "tests/support/Shell.h"
#include "tests/support/TempFolder.h"

using namespace testing;
using queries::Kind;

namespace {

struct Line {
    std::vector<basic::Value> cells;
    int level = 0;
};

template <std::size_t I>
basic::Value Cell(const Line& line) {
    return line.cells[I];
}

// One column of each kind.
queries::SheetOf<Line> Sheet(std::vector<Line> lines) {
    return {"Trial & error: a/b, 2001-2002",
            {{{"name", "Name, in full", Kind::Text}, Cell<0>},
             {{"number", "No.", Kind::Number}, Cell<1>},
             {{"amount", "Amount", Kind::Amount, true}, Cell<2>},
             {{"quantity", "Qty.", Kind::Quantity}, Cell<3>},
             {{"date", "Date", Kind::Date}, Cell<4>},
             {{"flag", "Flag", Kind::Flag}, Cell<5>}},
            std::move(lines),
            [](const Line& line) { return line.level; }};
}

const basic::Date AprilFirst = basic::MakeDate(2001, 4, 1);

// Letters of no place and of two, what is no UTF-8, what would break a line or a table, and figures on the
// edges.
queries::SheetOf<Line> Nasty() {
    return Sheet({{{"Ré\xCC\x81sumé 中", 1, 1234567.005, 2.5, AprilFirst, true}},
                  {{"=1+\"1\"", -2, -0.1, 1e15, basic::Date{60}, false}},
                  {{"a\xFF\nb\x1B,<i>", {}, {}, {}, {}, {}}},
                  {{"-5", 7, -5.0, -5.0, basic::Date{1e9}, {}}},
                  {{" @x ", 0, std::numeric_limits<double>::infinity(), 0.0, AprilFirst, true}}});
}

queries::SheetOf<Line> Tree() {
    return Sheet({{{"Assets", {}, 30.0, {}, {}, {}}, 0},
                  {{"Bank", 1, 10.1, {}, {}, {}}, 1},
                  {{"Cash", 2, 19.9, {}, {}, {}}, 1},
                  {{"Dues", {}, 5.0, {}, {}, {}}, 0},
                  {{"Ends", {}, 0.5, {}, {}, {}}, 0},
                  {{"Fees", {}, -0.001, {}, {}, {}}, 1}});
}

template <class Write>
std::string Written(const queries::Sheet& sheet, Write write) {
    std::ostringstream out;
    write(sheet, out);
    return out.str();
}

TEST(Sheets, ATableStandsInColumnsThatATerminalKeeps) {
    basic::SetNumberLocale("en_IN");
    EXPECT_EQ(Written(Nasty(), queries::WriteTable),
              "Trial & error: a/b, 2001-2002\n\n"
              "Name, in full  No.        Amount   Qty.  Date         Flag\n"
              "-------------  ---  ------------  -----  -----------  ----\n"
              "Ré\xCC\x81sumé 中        1  12,34,567.01    2.5  01-Apr-2001  yes\n"
              "=1+\"1\"          -2         -0.10  1E+15  28-Feb-1900  no\n"
              "a\xEF\xBF\xBD b ,<i>\n"
              "-5               7         -5.00     -5\n"
              " @x              0                    0  01-Apr-2001  yes\n"
              "-------------  ---  ------------  -----  -----------  ----\n"
              "Total               12,34,561.91\n");
    basic::SetNumberLocale("C");
    EXPECT_THAT(Written(Tree(), queries::WriteTable), HasSubstr("\nAssets               30.00\n"
                                                                "  Bank           1   10.10\n"));
    EXPECT_THAT(Written(Tree(), queries::WriteTable),
                EndsWith("\n  Fees                0.00\n"
                         "-------------  ---  ------  ----  ----  ----\n"
                         "Total                35.50\n"));
}

TEST(Sheets, FilesForProgramsKeepFiguresAndRunNothing) {
    EXPECT_EQ(Written(Nasty(), queries::WriteCsv),
              "name,number,amount,quantity,date,flag\r\n"
              "Ré\xCC\x81sumé 中,1,1234567.01,2.5,2001-04-01,yes\r\n"
              "\"'=1+\"\"1\"\"\",-2,-0.10,1E+15,1900-02-28,no\r\n"
              "\"a\xEF\xBF\xBD\nb\x1B,<i>\",,,,,\r\n"
              "'-5,7,-5.00,-5,,\r\n"
              "\" @x \",0,,0,2001-04-01,yes\r\n");
    EXPECT_THAT(Written(Tree(), queries::WriteCsv),
                HasSubstr(",flag,level\r\nAssets,,30.00,,,,0\r\nBank,1,10.10,,,,1\r\n"));
    EXPECT_EQ(
        Written(Nasty(), queries::WriteJson),
        "[\n {\"name\": \"Ré\xCC\x81sumé 中\", \"number\": 1, \"amount\": 1234567.01, \"quantity\": 2.5, "
        "\"date\": \"2001-04-01\", \"flag\": true},\n"
        " {\"name\": \"=1+\\\"1\\\"\", \"number\": -2, \"amount\": -0.10, \"quantity\": 1E+15, "
        "\"date\": \"1900-02-28\", \"flag\": false},\n"
        " {\"name\": \"a\xEF\xBF\xBD\\u000ab\\u001b,<i>\", \"number\": null, \"amount\": null, "
        "\"quantity\": null, \"date\": null, \"flag\": null},\n"
        " {\"name\": \"-5\", \"number\": 7, \"amount\": -5.00, \"quantity\": -5, \"date\": null, "
        "\"flag\": null},\n"
        " {\"name\": \" @x \", \"number\": 0, \"amount\": null, \"quantity\": 0, "
        "\"date\": \"2001-04-01\", \"flag\": true}\n]\n");
    EXPECT_EQ(Written(Sheet({}), queries::WriteJson), "[]\n");
    EXPECT_THAT(queries::PageOf(Nasty()),
                AllOf(HasSubstr("a\xEF\xBF\xBD b ,&lt;i&gt;"), HasSubstr("<b>Name, in full</b>"),
                      HasSubstr("width='100%'")));
    const queries::SheetOf<double> figures(
        "Sums", {{{"sum", "Sum", Kind::Amount}, [](const double& sum) { return basic::Value(sum); }}}, {1.0});
    EXPECT_THAT(queries::PageOf(figures), Not(HasSubstr("width='100%'"))) << "they stay side by side";
}

// What stands in one part of the file, as another program unpacks it.
TEST(Sheets, AWorkbookHoldsDatesAndFiguresAndSumsByFormula) {
    const test::TempFolder folder;
    const auto file = folder / "a b.xlsx", plain = folder / "list.xlsx";
    queries::WriteWorkbook(Nasty(), plain);
    queries::WriteWorkbook(Nasty(), plain);  // over what stands
    const std::string rows = test::PartOf(plain, "xl/worksheets/sheet1.xml");
    for (const char* cell :
         {"<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>",
          "<c r=\"A3\" t=\"inlineStr\"><is><t>=1+\"1\"</t></is></c>", "<v>1234567.01</v>", "<v>36982</v>",
          "<t>28-Feb-1900</t>", "<t>yes</t>",
          "<c r=\"A4\" t=\"inlineStr\"><is><t>a\xEF\xBF\xBD\nb_x001B_,&lt;i&gt;</t>",
          "<f>SUBTOTAL(9,C2:C6)</f><v>1234561.91</v>", "<autoFilter ref=\"A1:F6\"/>"})
        EXPECT_THAT(rows, HasSubstr(cell));
    EXPECT_THAT(test::PartOf(plain, "xl/workbook.xml"), HasSubstr("<sheet name=\"Trial &amp; error  a b\""));
    queries::WriteWorkbook(Tree(), plain);
    EXPECT_THAT(test::PartOf(plain, "xl/worksheets/sheet1.xml"),
                AllOf(HasSubstr("<f>SUM(C2)+SUM(C5:C6)</f><v>35.5</v>"), HasSubstr("outlineLevel=\"1\"")));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path())) ++files;
    EXPECT_EQ(files, 1u);
}

// A sheet of so many rows, none of which is kept.
class Long : public queries::Sheet {
  public:
    explicit Long(std::size_t rows) : rows_(rows) {}
    const std::string& Title() const override { return title_; }
    const std::vector<queries::Column>& Columns() const override { return columns_; }
    std::size_t Rows() const override { return rows_; }
    basic::Value At(std::size_t row, std::size_t) const override {
        return "row " + std::to_string(row * 7919);
    }

  private:
    std::size_t rows_;
    std::string title_ = "Long";
    std::vector<queries::Column> columns_{{"row", "Row", Kind::Text}};
};

TEST(Sheets, AFileIsWholeOrAsItWas) {
    const test::TempFolder folder;
    const auto file = folder / "list";
    const auto csv = [&file](const queries::Sheet& sheet) {
        basic::WriteNewFile(file, [&](std::ostream& out) { queries::WriteCsv(sheet, out); });
    };
    csv(Long(1));
    const std::string before = test::Bytes(file);
    enum Form { Text, Spreadsheet };
    // What is told where no file may grow beyond `most` bytes, or else the folder cannot be written.
    const auto expect = [&](Form form, std::size_t rows, rlim_t most, const std::string& reason) {
        EXPECT_EQ(test::AsNobody([&] {
                      std::signal(SIGXFSZ, SIG_IGN);
                      const auto handles = [] {
                          return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
                      };
                      const auto held = handles();
                      const rlimit limit{most, most};
                      if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
                      const std::string told = test::TextOfError(
                          [&] { form == Text ? csv(Long(rows)) : queries::WriteWorkbook(Long(rows), file); });
                      if (handles() != held) return 3;  // what is left open keeps its room
                      if (told == "cannot write " + file.string() + ": " + reason) return 0;
                      std::fprintf(stderr, "told: '%s'\n", told.c_str());
                      return 1;
                  }),
                  0);
    };
    chmod(folder.Path().c_str(), 0777);
    expect(Text, 20000, 100'000, "File too large");
    expect(Spreadsheet, 20000, 100'000, "No space left on device");  // among the rows
    expect(Spreadsheet, 12000, 1'000'000, "File too large");         // as they are put into the file
    chmod(folder.Path().c_str(), 0555);
    expect(Text, 1, RLIM_INFINITY, "Permission denied");
    expect(Spreadsheet, 1, RLIM_INFINITY, "Permission denied");
    chmod(folder.Path().c_str(), 0755);
    EXPECT_EQ(test::TextOfError([&] { queries::WriteWorkbook(Long(1), folder / "none" / "x"); }),
              "cannot write " + (folder / "none" / "x").string() + ": No such file or directory");
    EXPECT_THAT(test::TextOfError([&] { queries::WriteWorkbook(Long(1'048'575), file); }),
                HasSubstr("the list has 1048575 rows, and a spreadsheet holds 1048574"));
    std::ofstream full("/dev/full");
    EXPECT_EQ(test::TextOfError([&] {
                  basic::WriteWhole(full, "the list",
                                    [](std::ostream& out) { queries::WriteCsv(Long(20000), out); });
              }),
              "cannot write the list: No space left on device");
    EXPECT_EQ(test::Bytes(file), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
