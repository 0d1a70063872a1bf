#pragma once

#include <QCoreApplication>
#include <QString>
#include <optional>
#include <string>

#include "platform/basic/Error.h"

namespace desk {

// What the list of errors says about one.
struct Cure {
    Q_DECLARE_TR_FUNCTIONS(desk::Cure)

  public:
    QString Cause, Remedy;
    QString Text() const;  // "Why: a damaged page. What to do: restore a backup."
};

// By its number and its text, from docs/errors.md, which the library bears; none for an error not listed.
std::optional<Cure> CureOf(const basic::Error& error);
// The same of a finding of the check.
std::optional<Cure> CureOfFinding(const std::string& text);

}  // namespace desk
