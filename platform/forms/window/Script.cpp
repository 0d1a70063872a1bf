#include "platform/forms/window/Script.h"

namespace forms {
namespace {

Script* current = nullptr;

// Yes and No are flag 4; where a box was not expected, it is answered with the button that does nothing.
int SafeAnswer(int flags) {
    return flags & 4 ? 7 : 1;
}

}  // namespace

Script::Script(Report report) : report_(std::move(report)) {
    current = this;
}

Script::~Script() {
    current = nullptr;
    for (const Step& step : steps_) report_("never came: " + step.Description());
}

Script& Script::Box(ExpectedBox box) {
    steps_.push_back({std::move(box), {}, {}});
    return *this;
}

Script& Script::Box(std::string text, int answer) {
    return Box(ExpectedBox{std::move(text), answer});
}

Script& Script::Modal(std::string formName, std::function<void(Form&)> visit) {
    steps_.push_back({std::nullopt, std::move(formName), std::move(visit)});
    return *this;
}

std::string Script::Step::Description() const {
    return box ? "box \"" + box->text + '"' : "form " + formName;
}

std::string Script::Next() const {
    return steps_.empty() ? "nothing" : steps_.front().Description();
}

int Script::AnswerBox(const std::string& text, int flags, const std::string& title) {
    if (steps_.empty() || !steps_.front().box || steps_.front().box->text != text) {
        report_("unexpected box \"" + text + "\"; expected: " + Next());
        return SafeAnswer(flags);
    }
    const ExpectedBox box = *steps_.front().box;
    steps_.pop_front();
    if (box.title != title) report_("box \"" + text + "\" has the title \"" + title + '"');
    if (box.flags && *box.flags != flags)
        report_("box \"" + text + "\" has the flags " + std::to_string(flags));
    return box.answer;
}

void Script::VisitModal(Form& form, const std::string& name) {
    if (steps_.empty() || steps_.front().box || steps_.front().formName != name) {
        report_("unexpected form " + name + "; expected: " + Next());
    } else {
        const Step step = steps_.front();
        steps_.pop_front();
        if (step.visit) step.visit(form);
    }
}

std::optional<int> Script::TakeBox(const std::string& text, int flags, const std::string& title) {
    if (!current) return std::nullopt;
    return current->AnswerBox(text, flags, title);
}

bool Script::TakeModal(Form& form, const std::string& name) {
    if (!current) return false;
    current->VisitModal(form, name);
    return true;
}

}  // namespace forms
