#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>

#include "platform/forms/window/Progress.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class ProgressTest : public FormsTest {
  protected:
    void SetUp() override { Show(); }
    // Works until the box is up, or the user has cancelled.
    static bool WorkUntilVisible(Progress& progress) {
        for (int done = 0; !progress.Visible(); ++done) {
            if (!progress.Step(done % 100)) return false;
            QTest::qSleep(20);
        }
        return true;
    }
    static QProgressDialog* Box() {
        return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    }
};

TEST_F(ProgressTest, AppearsOnlyWhenTheWaitIsLong) {
    Progress progress("Rebuilding", 100);
    for (int done = 0; done < 5; ++done) EXPECT_TRUE(progress.Step(done));
    EXPECT_FALSE(progress.Visible());
    EXPECT_TRUE(WorkUntilVisible(progress));
}

TEST_F(ProgressTest, InputToOtherWindowsIsDropped) {
    {
        Progress progress("Rebuilding", 100);
        for (const bool visible : {false, true}) {
            if (visible) WorkUntilVisible(progress);
            Click(form.ui().cmdSave);
            Key(Qt::Key_S, Qt::ControlModifier);
            QTest::keyClicks(form.ui().txtFirst, "typed");
            form.Window()->close();
        }
    }
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_EQ(form.ui().txtFirst->Text(), "");
    EXPECT_TRUE(form.Visible());
    Click(form.ui().cmdSave);
    EXPECT_THAT(Logged(), testing::Contains("cmdSave_Click")) << "afterwards it is taken again";
}

TEST_F(ProgressTest, CancelIsThereOnlyWhereItIsOffered) {
    {
        Progress progress("Posting", 100);
        WorkUntilVisible(progress);
        EXPECT_EQ(Box()->findChild<QPushButton*>(), nullptr);
        Box()->close();
        QTest::keyClick(Box(), Qt::Key_Escape);
        EXPECT_TRUE(progress.Step(50));
        EXPECT_TRUE(progress.Visible());
    }
    Progress progress("Reading", 100, Progress::Cancel::Offered);
    WorkUntilVisible(progress);
    Click(Box()->findChild<QPushButton*>());
    EXPECT_FALSE(progress.Step(50));
}

}  // namespace
