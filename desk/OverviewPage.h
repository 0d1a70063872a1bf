#pragma once

#include <QCoreApplication>
#include <memory>

#include "desk/ChartCard.h"
#include "desk/OverviewFigures.h"
#include "desk/Page.h"
#include "queries/Vouchers.h"

class QGridLayout;
class QScrollArea;

namespace desk {

class ListCard;
class CheckCard;
class StatusCard;

// The first page: the year at a glance. Each figure opens the list behind it.
class OverviewPage : public Page {
    Q_DECLARE_TR_FUNCTIONS(desk::OverviewPage)

  public:
    explicit OverviewPage(Desk& desk);
    QString Chapter() const override { return "Overview"; }
    void Refresh() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    bool TabsAsRead() const override { return false; }  // Tab goes from chart to chart
    void MakeCards();
    void LayCards(bool narrow);
    void Ask();
    void Take(std::shared_ptr<const OverviewFigures> figures);
    void TellBackup();
    void OpenVouchers(const queries::VoucherFilter& filter);
    void OpenParties(const queries::PartyFilter& filter);
    void OpenAge(ChartView::Place place);
    void OpenParty(const queries::Sheet& sheet, std::size_t row);
    void OpenShort();
    void OpenItem(const queries::Sheet& sheet, std::size_t row);

    std::shared_ptr<const OverviewFigures> figures_;
    QScrollArea* scroll_;
    QGridLayout* grid_;
    ChartCard *money_, *trade_, *paid_, *ages_;
    ListCard *parties_, *short_;
    CheckCard* check_;
    StatusCard* backup_;
    JobBar* jobs_;
    int columns_ = 0;
};

}  // namespace desk
