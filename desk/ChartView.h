#pragma once

#include <QChartView>
#include <QCoreApplication>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace desk {

// What a chart draws: for each point along the bottom one figure of each series, in rupees.
struct ChartData {
    struct Series {
        QString Caption;
        std::vector<double> Figures;
    };

    enum class Shape { Bars, Lines };

    Shape Drawn = Shape::Bars;
    QStringList Points;      // "Apr", below the axis
    QStringList PointNames;  // "April 2001", as the figure is read out
    std::vector<Series> Lines;
};

// Bars or lines with one marked figure, which the arrows move and Enter or a click opens. Its accessible
// description tells the marked figure.
class ChartView : public QChartView {
    Q_DECLARE_TR_FUNCTIONS(desk::ChartView)

  public:
    // One figure: its place along the bottom, and its series.
    struct Place {
        std::size_t Point = 0, Line = 0;
        friend bool operator==(const Place&, const Place&) = default;
    };

    explicit ChartView(QWidget* parent);

    void Set(ChartData drawn);  // the mark stays in its place, where there is a figure
    const ChartData& Data() const { return data_; }
    // The marked figure; one is marked only where it is drawn.
    Place Marked() const { return marked_; }
    void Mark(Place place);
    QString MarkedText() const;               // "April 2001, Sales: 1,20,000.00"
    QColor ColourOf(std::size_t line) const;  // of a series, as the legend shows it

    std::function<void(Place)> Activated;  // Enter, a space or a click on a figure
    std::function<void()> Moved;           // another figure is marked

    // As a plain widget: what scrolls to the focus then shows the chart, not the place of a cursor in it.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override {
        return QWidget::inputMethodQuery(query);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

  private:
    void Draw();
    void AddAxes();
    bool IsFlat() const;  // nothing but noughts
    std::optional<Place> At(const QPointF& position) const;
    QRectF BoxOf(Place place) const;
    double Figure(Place place) const { return data_.Lines[place.Line].Figures[place.Point]; }

    ChartData data_;
    Place marked_;
    bool dark_ = false;
};

}  // namespace desk
