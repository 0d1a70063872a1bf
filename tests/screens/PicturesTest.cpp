#include <QImage>
#include <filesystem>

#include "platform/forms/window/Application.h"
#include "screens/Pictures.h"
#include "screens/ReportFiles.h"
#include "screens/ScreenTable.h"
#include "tests/screens/ScreenFixture.h"

using namespace testing;

namespace {

namespace fs = std::filesystem;

// The writers walk through the screens by a script of their own.
class PicturesTest : public Test {
  protected:
    PicturesTest() {
        qmAttachScreens();
        books.AddLedger("Cash", "Cash in Hand");
        books.AddLedger("Acme", "Suppliers");
        books.Run("Insert Into ItemMaster2001 (Item_ID, Item_Name) Values (5, 'Coal')");
    }
    ~PicturesTest() override { qm::SetMsgBoxPort({}); }

    fs::path out() { return folder.Path() / "out"; }
    std::string Content(const char* name) { return test::Bytes(out() / name); }

    test::FreshBooks books;
    test::TempFolder folder;
};

// On a copy: screens that rebuild the totals as they open leave those of the books.
TEST_F(PicturesTest, EachScreenIsDrawn) {
    books.Run("Update Ledger_Details Set LedDetDRTxnTot = 77");
    qm::WriteAllPictures(out());
    EXPECT_EQ(books.Rows("Select Distinct LedDetDRTxnTot From Ledger_Details"), test::Lines{"77"});
    std::vector<std::string> forms{"frmNewMenu",         "frmLedger",   "frmNewFinYear", "frmClosingBal",
                                   "frmSearchAndLookUp", "frmItemList", "frmPOReceipt"};
    for (const qm::ScreenEntry& screen : qm::ScreenTable()) forms.emplace_back(screen.Form);
    for (const std::string& form : forms) {
        const QImage picture(QString::fromStdString(out() / (form + "@100.png")));
        EXPECT_GT(picture.width(), 200) << form;
        EXPECT_FALSE(picture.allGray()) << form;
    }
    EXPECT_EQ(books.One("Select Max(PoNumber) As High From tblPO2001"), "Null") << "the order is the copy's";
    EXPECT_EQ(std::distance(fs::directory_iterator(out()), {}), static_cast<std::ptrdiff_t>(forms.size()));
}

// By the one name the desktop finds the entry, the icon and the windows of the program.
TEST_F(PicturesTest, TheWindowsBearTheNameOfTheDesktopsEntry) {
    forms::EnsureApplication();
    EXPECT_EQ(QGuiApplication::desktopFileName(), "qmhost");
    EXPECT_EQ(QCoreApplication::applicationName(), "qmhost");
    EXPECT_FALSE(QGuiApplication::windowIcon().isNull());
}

TEST_F(PicturesTest, EachReportIsWritten) {
    qm::WriteAllReports(out());
    for (const char* name : {"Ledger", "Trial Balance", "Stock Ledger", "Final Results"}) {
        EXPECT_THAT(Content((std::string(name) + ".pdf").c_str()), StartsWith("%PDF")) << name;
        EXPECT_TRUE(fs::exists(out() / (std::string(name) + ".txt"))) << name;
    }
    EXPECT_THAT(Content("Trial Balance.txt"), HasSubstr("\nCash\t"));
}

TEST_F(PicturesTest, AFolderThatCannotBeMadeIsTold) {
    EXPECT_THROW(qm::WriteAllReports("/proc/nowhere"), basic::Error);
}

}  // namespace
