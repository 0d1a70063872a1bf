#pragma once

#include <QString>
#include <QWidget>
#include <vector>

class QHeaderView;

namespace desk {

// The line below a table: how many rows it has, and the totals, each below its column.
class TotalsStrip : public QWidget {
  public:
    TotalsStrip(QHeaderView& header, QWidget* parent);

    // `totals` has a text for each column, "" where nothing is summed.
    void Set(const QString& words, std::vector<QString> totals);
    QString Text() const;  // as it is read out

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QHeaderView& header_;
    QString words_;
    std::vector<QString> totals_;
};

}  // namespace desk
