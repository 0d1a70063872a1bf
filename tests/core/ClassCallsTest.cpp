#include <gtest/gtest.h>

#include "core/DBCode.h"
#include "core/MsgBox.h"
#include "core/clQmObject.h"
#include "core/modGeneral.h"
#include "tests/core/LateBound.h"
#include "tests/support/Cases.h"
#include "tests/support/FreshBooks.h"

namespace {

using test::Cells;

// "one, two" as cells; quotes keep a cell's blanks.
Cells Arguments(const std::string& text) {
    Cells arguments;
    for (std::size_t from = 0, to = 0; to != std::string::npos && !text.empty(); from = to + 2) {
        to = text.find(", ", from);
        arguments.push_back(test::Cell(text.substr(from, to == std::string::npos ? to : to - from)));
    }
    return arguments;
}

basic::Value ValueOf(const std::string& argument) {
    if (argument.find_first_not_of("0123456789.") != std::string::npos || argument.empty()) return argument;
    if (argument.find('.') != std::string::npos) return std::stod(argument);
    return static_cast<std::int32_t>(std::stoi(argument));
}

// A host by names alone, as the sessions of calls.txt tell it.
class ClassCalls : public testing::TestWithParam<test::Session> {
  protected:
    ClassCalls() {
        books.CloseHost();
        host.Let("dataPath", books.DataPath());
        host.Get("StartDataConn");
        before = qm::SetMsgBoxPort([this](const std::string& text, int, const std::string&) {
            const std::string middle = "\r\r Description : ", name = "Formname: ";
            const auto at = text.find(middle), described = at + middle.size();
            const std::string what = text.substr(described, text.find("\r Source : ") - described);
            said.push_back("log " + text.substr(name.size(), at - name.size()) + ":" +
                           (what.empty() ? "" : " " + what));
            return qm::vbOK;
        });
    }
    ~ClassCalls() override { qm::SetMsgBoxPort(before); }

    void Do(const std::string& line) {
        const std::string word = line.substr(0, line.find(' '));
        const std::string rest = word.size() < line.size() ? line.substr(word.size() + 1) : "";
        if (word == "Select")
            for (const std::string& row : test::FreshBooks::Rows(line)) said.push_back(row);
        else if (word == "Insert" || word == "Update" || word == "Delete")
            test::FreshBooks::Run(line);
        else if (word == "Begin")
            qm::Conn().BeginTrans();
        else if (word == "Commit")
            qm::Conn().CommitTrans();
        else if (word == "depth")
            said.push_back(std::to_string(qm::Conn().TransDepth()));
        else if (word == "year" && rest.empty())
            said.push_back(qm::shared().FinYear);
        else if (word == "year")
            qm::shared().FinYear = test::Cell(rest);
        else if (word == "ledger")
            MakeLedger(Arguments(rest));
        else if (word == "names")
            ListNames(rest);
        else if (word == "rows")
            rows = List(rest);
        else if (word == "set")
            OfRows(rest);
        else
            Call(word, rest);
    }

    void MakeLedger(const Cells& of) {
        books.AddLedger(of.at(0), of.at(1), of.size() > 2 ? std::stod(of[2]) : 0,
                        of.size() > 3 ? of[3] : "D");
    }
    test::LateBound List(const std::string& call) {
        const std::string list = call.substr(0, call.find(' '));
        std::vector<basic::Value> arguments;
        if (list != call) arguments.emplace_back(test::Cell(call.substr(list.size() + 1)));
        return host.Object(list.c_str(), arguments);
    }
    void ListNames(const std::string& call) {
        const test::LateBound list = List(call);
        std::string names;
        for (; !basic::ToBoolean(list.Get("EOF")); list.Get("MoveNext"))
            names += (names.empty() ? "" : ", ") + basic::ToText(list.Get("Fields", {"Name"}));
        said.push_back(names);
    }
    void Call(const std::string& member, const std::string& rest) {
        const basic::Value answer = host.Get(member.c_str(), Values(rest));
        if (member != "StartDataConn") Say(answer);
    }
    // "Member arguments", or "Member = value"; a step of the walk says on which name it then stands.
    void OfRows(const std::string& call) {
        const std::string member = call.substr(0, call.find(' '));
        const std::string rest = member.size() < call.size() ? call.substr(member.size() + 1) : "";
        try {
            if (rest.starts_with("= "))
                rows.Let(member.c_str(), ValueOf(test::Cell(rest.substr(2))));
            else if (const basic::Value answer = rows.Get(member.c_str(), Values(rest)); !answer.IsNull())
                return Say(basic::Replace(basic::Replace(basic::ToText(answer), "\t", "/"), "\r", ";"));
            const bool atEnd = basic::ToBoolean(rows.Get("EOF"));
            Say(basic::ToBoolean(rows.Get("BOF")) ? atEnd ? "none" : "BOF"
                : atEnd                           ? "EOF"
                                                  : rows.Get("Fields", {"Name"}));
        } catch (const basic::Error& failure) {
            const std::int32_t classic = failure.Number ^ FACILITY_CONTROL_ERROR;
            Say("error " + std::to_string(classic >= 0 && classic <= 65535 ? classic : failure.Number));
        }
    }
    static std::vector<basic::Value> Values(const std::string& rest) {
        std::vector<basic::Value> values;
        for (const std::string& argument : Arguments(rest)) values.push_back(ValueOf(argument));
        return values;
    }
    void Say(const basic::Value& answer) {
        const std::string text = answer.IsNull() ? "Null" : basic::ToText(answer);
        said.push_back(text.empty() ? "\"\"" : text);
    }

    test::FreshBooks books;
    test::LateBound host{new qm::clQmObject};
    test::LateBound rows{nullptr};
    qm::MsgBoxPort before;
    Cells said;
};

TEST_P(ClassCalls, ComeToWhatIsTold) {
    for (const test::Block& step : GetParam().steps) {
        said.clear();
        for (const std::string& line : step.given) {
            const std::string failure = test::TextOfError([&] { Do(line); });
            if (!failure.empty()) said.push_back("error " + failure);
        }
        test::ExpectSaid(said, step);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ClassCalls, testing::ValuesIn(test::Sessions("core/calls.txt")),
                         [](const auto& session) {
                             std::string name = session.param.name;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

}  // namespace
