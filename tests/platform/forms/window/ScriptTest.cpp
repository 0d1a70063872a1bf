#include "platform/forms/window/MessageBox.h"
#include "platform/forms/window/Script.h"
#include "tests/platform/forms/window/Fixture.h"

namespace {

class ScriptTest : public testing::Test {
  protected:
    EventLog faults, log;
    frmTest form{log};
};

TEST_F(ScriptTest, ReportsWhatItDidNotExpect) {
    {
        Script script([this](const std::string& fault) { faults.push_back(fault); });
        EXPECT_EQ(ShowMessage("Sure ?", 68, "Tovik Softwares"), 7)
            << "a question nobody expected is answered No";
        form.Show(vbModal);
        EXPECT_FALSE(form.Loaded()) << "and a window is closed";
        script.Box("first")
            .Box(Script::ExpectedBox{.text = "second", .flags = 64})
            .Modal("frmOther")
            .Box("never");
        ShowMessage("first", 0, "Other title");
        ShowMessage("second", 0, "Tovik Softwares");
        ShowMessage("never", 0, "Tovik Softwares");
    }
    EXPECT_THAT(faults,
                ElementsAre("unexpected box \"Sure ?\"; expected: nothing",
                            "unexpected form frmTest; expected: nothing",
                            "box \"first\" has the title \"Other title\"", "box \"second\" has the flags 0",
                            "unexpected box \"never\"; expected: form frmOther", "never came: form frmOther",
                            "never came: box \"never\""));
}

TEST_F(ScriptTest, AnswersInOrderAndVisitsForms) {
    Script script([this](const std::string& fault) { faults.push_back(fault); });
    script.Box("Sure ?", 6).Modal("frmTest", [](Form& shown) {
        EXPECT_TRUE(shown.Visible());
        EXPECT_EQ(ShowMessage("Inside", 0, "Tovik Softwares"), 1);
    });
    script.Box("Inside");
    EXPECT_EQ(ShowMessage("Sure ?", 68, "Tovik Softwares"), 6);
    form.Show(vbModal);
    EXPECT_FALSE(form.Loaded()) << "closed after the visit";
    EXPECT_EQ(script.LeftOver(), 0U);
    EXPECT_THAT(faults, IsEmpty());
}

}  // namespace
