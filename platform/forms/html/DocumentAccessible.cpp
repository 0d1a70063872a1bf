#include "platform/forms/html/DocumentAccessible.h"

#include <QAccessibleWidget>
#include <QWidget>

#include "platform/forms/controls/Text.h"

namespace forms::html {
namespace {

// The whole text, line by line; it is read, not edited.
class DocumentAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    DocumentAccessible(QWidget& view, const ReadableDocument& document)
        : QAccessibleWidget(&view, QAccessible::Document), document_(document) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Content() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = state.multiLine = true;
        return state;
    }

    QString text(int from, int to) const override { return Content().mid(from, to - from); }
    int characterCount() const override { return static_cast<int>(Content().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    void selection(int, int* from, int* to) const override { *from = *to = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* from, int* to) const override {
        *from = 0;
        *to = characterCount();
        return {};
    }

  private:
    QString Content() const { return ToQt(WithLineEnds(document_.BodyInnerText())); }

    const ReadableDocument& document_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* const document = dynamic_cast<ReadableDocument*>(object);
    return document ? new DocumentAccessible(*qobject_cast<QWidget*>(object), *document) : nullptr;
}

}  // namespace

void InstallDocumentAccessible() {
    static const bool installed = (QAccessible::installFactory(Make), true);
    static_cast<void>(installed);
}

}  // namespace forms::html
