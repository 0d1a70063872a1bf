#include "tests/support/BoxScript.h"

#include <utility>

namespace test {

BoxScript::BoxScript() {
    before_ = qm::SetMsgBoxPort([this](const std::string& text, int flags, const std::string& title) {
        return Answer({text, flags, title});
    });
}

BoxScript::~BoxScript() {
    for (const Step& step : steps_)
        ADD_FAILURE() << "This box never came: " << testing::PrintToString(step.box);
    qm::SetMsgBoxPort(std::move(before_));
}

void BoxScript::Expect(std::string text, int flags, int answer, std::string title) {
    steps_.push_back({{std::move(text), flags, std::move(title)}, answer, false});
}

void BoxScript::ExpectLog(std::string formName, std::string descriptionPart) {
    steps_.push_back(
        {{"Formname: " + formName + "\r\r Description : " + descriptionPart, 0, ""}, qm::vbOK, true});
}

int BoxScript::Answer(const Box& shown) {
    if (steps_.empty()) {
        ADD_FAILURE() << "Nobody expected this box: " << testing::PrintToString(shown);
        return qm::vbOK;
    }
    const Step step = steps_.front();
    steps_.pop_front();
    if (step.isLog) {
        EXPECT_TRUE(shown.text.starts_with(step.box.text)) << testing::PrintToString(shown);
        EXPECT_NE(shown.text.find("\r Source : "), std::string::npos);
        EXPECT_EQ(shown.flags, 0);
        EXPECT_EQ(shown.title, "");
    } else {
        EXPECT_EQ(shown, step.box);
    }
    return step.answer;
}

}  // namespace test
