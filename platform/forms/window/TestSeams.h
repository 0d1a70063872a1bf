#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace forms {

class Form;

// What a test says in advance, in order: the message boxes and the modally shown forms that are to come, what
// is answered to the one and done in the other. While a script lives, no box is shown and no modal loop is
// run: a form shown modally is shown, visited and, if it is still visible after the visit, unloaded. A box or
// a form that comes unexpected is reported and closed; one that never came is reported when the script ends.
// One script at a time.
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

    int AnswerBox(const std::string& text, int flags, const std::string& title);
    void VisitModal(Form& form);

  private:
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

// Ends a hung test: after the time it prints the stack of the thread that made it and aborts the process.
class Watchdog {
  public:
    explicit Watchdog(std::chrono::seconds patience);
    ~Watchdog();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

// The two places where the forms would wait for a user. Without a script they answer that they do.
namespace seams {
std::optional<int> TakeBox(const std::string& text, int flags, const std::string& title);
bool VisitModal(Form& form);
}  // namespace seams

}  // namespace forms
