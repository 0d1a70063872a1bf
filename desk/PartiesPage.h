#pragma once

#include <QCoreApplication>

#include "desk/TabPage.h"
#include "queries/Parties.h"

namespace desk {

class ChoiceChip;
class DayChip;

// Who owes and to whom is owed as of a day, by age. Enter opens a party's statement up to that day.
class PartiesPage : public TabPage {
    Q_DECLARE_TR_FUNCTIONS(desk::PartiesPage)

  public:
    explicit PartiesPage(Desk& desk);
    QString Chapter() const override { return "Parties"; }
    void Narrow(const queries::PartyFilter& filter);  // from elsewhere: a bar of a chart

  protected:
    void Turned() override;

  private:
    void AddSide(const QString& caption, const QString& name, queries::Owing owing);
    void Activate(std::size_t row);
    queries::PartyFilter Filter(queries::Owing owing) const;

    DayChip* day_;
    ChoiceChip* age_;
};

}  // namespace desk
