#include "platform/basic/Error.h"
#include "platform/forms/grid/ListView.h"
#include "tests/platform/forms/grid/GridFixture.h"

namespace {

class ListViewTest : public ControlTest<ListView> {
  protected:
    void SetUp() override {
        control().AddColumn("Date", 1500);
        control().AddColumn("Amount", 1500, Alignment::Right);
        Fill();
        Show();
        control().SetFocus();
    }
    void Fill() {
        control().Clear();
        control().AddItem("1vD5S1", "01-Apr-2001", {"100.00"});
        control().AddItem("2vC5S2", "02-Apr-2001", {"20.00"});
        control().AddItem("1vD5S1", "03-Apr-2001", {"3.00"});  // equal keys are allowed
        control().AddItem("x", "04-apr-2001", {"20.00"});
    }
    std::string Dates() {
        std::string days;
        for (int i = 1; i <= control().Count(); ++i) days += control().Item(i).Text[1];
        return days;
    }
};

TEST_F(ListViewTest, TheFirstLineIsSelectedAfterAFill) {
    EXPECT_EQ(control().SelectedItem()->Text, "01-Apr-2001");
    control().SetSelectedIndex(3);
    Fill();
    EXPECT_EQ(control().SelectedIndex(), 1);
    control().Clear();
    EXPECT_FALSE(control().SelectedItem());
    EXPECT_EQ(control().SelectedIndex(), 0);
    EXPECT_THROW(control().Item(1), basic::Error);
}

TEST_F(ListViewTest, AnEmptyListShowsItsNoteAndItsFocus) {
    const auto picture = [this] { return control().grab().toImage(); };
    control().SetEmptyNote("Nothing here");
    const QImage full = picture();
    control().SetEmptyNote("");
    EXPECT_EQ(picture(), full) << "lines hide it";
    control().Clear();
    const QImage bare = picture();
    control().SetEmptyNote("Nothing here");
    EXPECT_NE(picture(), bare);
    EXPECT_EQ(control().Count(), 0);
    control().SetEmptyNote("");
    form.ui().txtBefore->SetFocus();
    EXPECT_NE(picture(), bare) << "its frame tells that it has the focus";
}

TEST_F(ListViewTest, SortsTextsStablyAndKeepsTheSelectedLine) {
    ListView& list = control();
    list.SetSelectedIndex(2);
    list.SetSortKey(1);
    EXPECT_EQ(Dates(), "1234");  // not sorted yet
    list.SetSorted(true);
    EXPECT_EQ(Dates(), "1243");  // as texts: "100.00" < "20.00" < "3.00"
    EXPECT_EQ(list.SelectedItem()->Text, "02-Apr-2001");
    list.SetSortOrder(1);
    EXPECT_EQ(Dates(), "3241");
    EXPECT_EQ(list.SelectedItem()->Text, "02-Apr-2001");
    list.SetSorted(false);
    EXPECT_EQ(Dates(), "3241");
    Fill();
    EXPECT_EQ(Dates(), "1234");
    list.SetSortKey(0);
    list.SetSorted(true);
    EXPECT_EQ(Dates(), "4321");
    list.AddItem("y", "05-APR-2001");  // case does not count
    EXPECT_EQ(Dates(), "54321");
    EXPECT_EQ(list.SelectedIndex(), 1);
}

TEST_F(ListViewTest, EventsOfTheMouse) {
    ListView& list = control();
    list.ColumnClick = [this](int column) { log.push_back("column " + std::to_string(column)); };
    list.ItemClick = [this](const ListLine& line) {
        control().Clear();  // what the handler got stays whole
        log.push_back(line.Key + ' ' + line.SubItem(1) + line.SubItem(2));
    };
    list.Click = [this] { log.push_back("click"); };
    list.DblClick = [this] { log.push_back("double"); };
    ClickCell(0, 1);
    EXPECT_THAT(Logged(), ElementsAre("column 2"));
    ClickCell(2, 0);
    EXPECT_THAT(Logged(), ElementsAre("2vC5S2 20.00", "click"));
    Fill();
    list.ItemClick = {};
    DoubleClickCell(3, 1);
    EXPECT_THAT(Logged(), ElementsAre("click", "double"));
    EXPECT_EQ(list.SelectedIndex(), 3);
}

TEST_F(ListViewTest, WorksByKeys) {
    ListView& list = control();
    list.ItemClick = [this](const ListLine& line) { log.push_back(line.Text); };
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    Key(Qt::Key_End);
    Key(Qt::Key_Down);
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    Key(Qt::Key_Home);
    Key(Qt::Key_Up);
    EXPECT_THAT(Logged(), ElementsAre("02-Apr-2001", "03-Apr-2001"));
    EXPECT_EQ(list.SelectedIndex(), 1);
}

// Counts how many lines are asked for.
class CountingSource : public RowSource {
  public:
    explicit CountingSource(int count) : count_(count) {}
    int Count() const override { return count_; }
    std::string Text(int row, int column) const override {
        ++Asked;
        return column == 0 ? std::to_string((row * 7919LL) % count_ + count_) : "row " + std::to_string(row);
    }
    std::string Key(int row) const override { return "k" + std::to_string(row); }
    mutable int Asked = 0;

  private:
    int count_;
};

TEST_F(ListViewTest, AMillionLinesAreDrawnOnlyWhereTheyAreSeen) {
    ListView& list = control();
    const auto source = std::make_shared<CountingSource>(1'000'000);
    list.SetRowSource(source);
    list.grab();
    EXPECT_LT(source->Asked, 100);
    Key(Qt::Key_End);
    EXPECT_EQ(list.SelectedItem()->Key, "k999999");
    list.grab();
    EXPECT_LT(source->Asked, 200);
    EXPECT_GE(list.CellRect(1'000'000, 0).top(), 0);
    list.SetSorted(true);
    EXPECT_EQ(list.Item(1).Text, "1000000");
    EXPECT_EQ(list.Item(1'000'000).Text, "1999999");
    EXPECT_EQ(list.SelectedItem()->Key, "k999999");
}

}  // namespace
