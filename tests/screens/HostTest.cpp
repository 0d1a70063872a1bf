// What a host meets besides the screens themselves: a real modal loop, one state, names of screens.
#include <QMessageBox>
#include <QTimer>

#include <dlfcn.h>
#include <gmock/gmock.h>

#include "core/MsgBox.h"
#include "core/Screens.h"
#include "platform/basic/Error.h"
#include "platform/forms/window/Application.h"
#include "platform/forms/window/Form.h"
#include "screens/ScreenTable.h"
#include "shell/frmNewMenu.h"
#include "tests/support/FreshBooks.h"

using namespace testing;

namespace {

// Runs when the loop that is begun next, of a menu or a box, is running.
template <class Act>
void InLoop(Act act) {
    forms::EnsureApplication();
    QTimer::singleShot(0, act);
}

std::string CloseBox() {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return "no box";
    const std::string text = box->text().toStdString();
    box->accept();
    return text;
}

TEST(Host, MessageBoxesOfTheClassAreShownOnceTheScreensAreLoaded) {
    ASSERT_TRUE(qm::LoadScreens());
    std::string box;
    InLoop([&] { box = CloseBox(); });
    EXPECT_EQ(qm::MsgBox("One\r\nTwo", qm::vbInformation, qm::AppTitle), qm::vbOK);
    EXPECT_EQ(box, "One\nTwo");
    qm::SetMsgBoxPort({});
}

// A second copy of what both libraries use would have a clock and books of its own.
TEST(Host, TheScreensShareTheStateOfTheClassServer) {
    void* const screens = dlopen("libqmscreens.so", RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(screens, nullptr) << dlerror();
    for (const char* routine : {"_ZN5basic5Clock5TodayEv", "_ZN2qm6sharedEv"}) {
        Dl_info found{};
        ASSERT_NE(dladdr(dlsym(screens, routine), &found), 0) << routine;
        EXPECT_THAT(found.dli_fname, HasSubstr("libqmcls.so")) << routine;
    }
    dlclose(screens);
}

TEST(Host, ScreensAreOpenedByTheirNames) {
    std::vector<std::string> names;
    for (const qm::ScreenEntry& screen : qm::ScreenTable()) names.emplace_back(screen.Form);
    EXPECT_EQ(qm::ScreenNames(), names);
    EXPECT_THROW(qm::OpenScreen("frmNobody"), basic::Error);
}

}  // namespace
