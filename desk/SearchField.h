#pragma once

#include <QCoreApplication>
#include <QLineEdit>
#include <QString>
#include <functional>
#include <vector>

class QListWidget;

namespace desk {

// One thing that a search has found, and where it leads.
struct Found {
    QString Kind, Text, Detail;  // "Ledger", "Cash in Hand", "Current Asset"
    std::function<void()> Open;
};

// The field of the head that finds everything: results appear below it as one types. Down and Up choose,
// Enter opens, Esc leaves it.
class SearchField : public QLineEdit {
    Q_DECLARE_TR_FUNCTIONS(desk::SearchField)

  public:
    // Hands over what is found for the words, at once or later, in one go or in several; what comes for words
    // that have changed meanwhile is dropped.
    using Take = std::function<void(std::vector<Found>, bool isLast)>;
    using Source = std::function<void(const QString& words, Take take)>;

    // The results are shown over `window`.
    SearchField(QWidget& window, Source source, std::function<void()> leave);

    void Begin();  // Ctrl+K
    // Enter was pressed before anything was found: it opens the first that is.
    bool IsAwaited() const { return wantsFirst_; }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void Look();
    void Add(std::vector<Found> found, bool isLast);
    void Place();
    void Choose(int step);
    void OpenChosen();
    void Leave();

    Source source_;
    std::function<void()> leave_;
    std::vector<Found> found_;
    QListWidget* list_;
    int asked_ = 0;         // how often: the number of the question that counts
    bool answered_ = true;  // all of it
    bool wantsFirst_ = false;
};

}  // namespace desk
