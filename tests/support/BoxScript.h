#pragma once

#include <deque>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/MsgBox.h"

namespace test {

struct Box {
    std::string text;
    int flags = 0;
    std::string title;
    friend bool operator==(const Box&, const Box&) = default;
};

inline void PrintTo(const Box& box, std::ostream* out) {
    *out << testing::PrintToString(box.text) << " flags " << box.flags << " title \"" << box.title << '"';
}

// The one seam of the message boxes: a test says in advance, in order, which boxes come and what is answered.
// A box that was not expected, or that never came, fails the test.
class BoxScript {
  public:
    BoxScript();
    ~BoxScript();
    BoxScript(const BoxScript&) = delete;
    BoxScript& operator=(const BoxScript&) = delete;

    void Expect(std::string text, int flags = qm::vbInformation, int answer = qm::vbOK,
                std::string title = qm::AppTitle);
    // The box of the error log: its form name and description, whatever the source.
    void ExpectLog(std::string formName, std::string descriptionPart);

  private:
    struct Step {
        Box box;
        int answer = qm::vbOK;
        bool isLog = false;
    };
    int Answer(const Box& shown);

    std::deque<Step> steps_;
    qm::MsgBoxPort before_;
};

}  // namespace test
