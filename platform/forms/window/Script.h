#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace forms {

class Form;

// Walks the screens where no user sits: says in advance, in order, which message boxes and modally shown
// forms are to come, what is answered to the one and done in the other. While a script lives, no box is shown
// and no modal loop is run: a form shown modally is shown, visited and, if it is still visible after the
// visit, unloaded. A box or a form that comes unexpected is reported and closed; one that never came is
// reported when the script ends. One script at a time.
class Script {
  public:
    using Report = std::function<void(const std::string&)>;
    struct ExpectedBox {
        std::string text;  // to the letter
        int answer = 1;
        std::optional<int> flags = {};
        std::string title = "Tovik Softwares";
    };

    explicit Script(Report report);
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    Script& Box(ExpectedBox box);
    Script& Box(std::string text, int answer = 1);
    Script& Modal(std::string formName, std::function<void(Form&)> visit = {});
    std::size_t LeftOver() const { return steps_.size(); }

    // The two places where the forms would wait for a user. Without a script they answer that they do.
    static std::optional<int> TakeBox(const std::string& text, int flags, const std::string& title);
    static bool TakeModal(Form& form, const std::string& name);

  private:
    int AnswerBox(const std::string& text, int flags, const std::string& title);
    void VisitModal(Form& form, const std::string& name);

    struct Step {
        std::optional<ExpectedBox> box;
        std::string formName;
        std::function<void(Form&)> visit;
        std::string Description() const;
    };
    std::string Next() const;

    Report report_;
    std::deque<Step> steps_;
};

}  // namespace forms
