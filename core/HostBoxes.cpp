#include "core/HostBoxes.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

#include "core/MsgBox.h"
#include "core/qmcls.h"
#include "platform/basic/Text.h"

namespace qm {
namespace {

struct Handler {
    QmBoxHandler show = nullptr;
    void* context = nullptr;
};

Handler& OfHost() {
    static Handler handler;
    return handler;
}

std::string WithPlainLineEnds(const std::string& text) {
    return basic::Replace(basic::Replace(text, "\r\n", "\n"), "\r", "\n");
}

int AnswerOfNobody(int flags) {
    return (flags & vbYesNo) != 0 ? vbNo : vbOK;
}

std::filesystem::path LogFile() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state == '/') return std::filesystem::path(state) / "qmaccounts/boxes.log";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home == nullptr ? "" : home) / ".local/state/qmaccounts/boxes.log";
}

// One line for a box, written at once: other programs may write there, too.
bool WriteLog(const std::string& text, const std::string& title) {
    const std::filesystem::path file = LogFile();
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    const std::time_t now = std::time(nullptr);
    char moment[32];
    std::strftime(moment, sizeof moment, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    std::ofstream log(file, std::ios::app);
    log << std::string(moment) + " [" + title + "] " + basic::Replace(WithPlainLineEnds(text), "\n", " / ") +
               "\n"
        << std::flush;
    return log.good();
}

}  // namespace

int TellStandardError(const std::string& text, int flags, const std::string& title) {
    std::cerr << (title.empty() ? "" : "[" + title + "] ") << WithPlainLineEnds(text) << std::endl;
    return AnswerOfNobody(flags);
}

std::optional<int> AskHost(const std::string& text, int flags, const std::string& title) {
    const Handler handler = OfHost();
    if (handler.show == nullptr) return std::nullopt;
    const std::u16string wideText = basic::ToUtf16(text), wideTitle = basic::ToUtf16(title);
    const int answer = handler.show(handler.context, wideText.c_str(), flags, wideTitle.c_str());
    return answer == 0 ? AnswerOfNobody(flags) : answer;
}

std::optional<int> SendAside(const std::string& text, int flags, const std::string& title) {
    const char* named = std::getenv("QM_BOXES");
    if (named == nullptr || *named == '\0') return std::nullopt;
    const std::string_view where = named;
    if (where == "none" || (where == "log" && WriteLog(text, title))) return AnswerOfNobody(flags);
    return TellStandardError(text, flags, title);
}

}  // namespace qm

extern "C" void QmSetBoxHandler(QmBoxHandler handler, void* context) {
    qm::OfHost() = {handler, context};
}
