#include <gtest/gtest.h>

#include "core/GeneralUtils.h"
#include "platform/basic/Error.h"

namespace {

// A control that notes what is done to it.
struct FakeControl : basic::Control {
    FakeControl(std::string type_, std::string name_) : type(std::move(type_)), name(std::move(name_)) {}
    std::string TypeName() const override { return type; }
    std::string Name() const override { return name; }
    void SetText(const std::string& text) override { done += "text=" + text + ";"; }
    void SetValue(int value) override { done += "value=" + std::to_string(value) + ";"; }
    void SetListIndex(int index) override {
        done += "index=" + std::to_string(index) + ";";
        if (broken) basic::Raise(basic::error::InvalidCall);
    }
    void SetLocked(bool locked) override { done += locked ? "locked;" : "unlocked;"; }

    std::string type, name, done;
    bool broken = false;
};

struct FakeForm : basic::ControlHost {
    std::vector<basic::Control*> Controls() override {
        return {&text, &kept, &check, &combo, &rich, &button};
    }
    FakeControl text{"TextBox", "txtQty"}, kept{"TextBox", "txtItemID"}, check{"CheckBox", "chkA"},
        combo{"ComboBox", "cmbA"}, rich{"RichTextBox", "rtfA"}, button{"CommandButton", "cmdA"};
    std::vector<std::string> Done() {
        return {text.done, kept.done, check.done, combo.done, rich.done, button.done};
    }
};

using Lines = std::vector<std::string>;

TEST(FormRoutines, ClearKeepsThePrefixAndGoesOnAfterAnError) {
    FakeForm form;
    form.combo.broken = true;
    qm::ClearControls(form, "txtItem");
    EXPECT_EQ(form.Done(), (Lines{"text=;", "", "value=0;", "index=-1;text=;", "text=;", ""}));
    FakeForm all;
    qm::ClearControls(all, "");
    EXPECT_EQ(all.kept.done, "text=;");
}

TEST(FormRoutines, UnlockEmptiesTheCombos) {
    FakeForm form;
    form.combo.broken = true;
    qm::UnlockControls(form);
    EXPECT_EQ(form.Done(),
              (Lines{"unlocked;", "unlocked;", "unlocked;", "index=-1;unlocked;", "unlocked;", ""}));
    FakeForm locked;
    qm::LockControls(locked);
    EXPECT_EQ(locked.Done(), (Lines{"locked;", "locked;", "locked;", "locked;", "locked;", ""}));
}

TEST(FormRoutines, ComboFillsSkipEmptyTexts) {
    struct FakeList : basic::ListControl {
        void Clear() override { lines.clear(); }
        void AddItem(const std::string& text) override { lines.push_back(text); }
        Lines lines{"old"};
    } list;
    qm::FillComboFromArray(list, {"a", "", "b"});
    EXPECT_EQ(list.lines, (Lines{"old", "a", "b"}));
}

}  // namespace
