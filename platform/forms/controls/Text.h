#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace forms {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

// "\r\n", "\r" and "\n" each become one "\n".
std::string WithLineEnds(std::string_view text);

// A caption without its "&" marks, "&&" read as "&".
QString WithoutMnemonic(QString caption);

}  // namespace forms
