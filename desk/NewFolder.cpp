#include "desk/NewFolder.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace desk {
namespace {

// The toolkit's refuses the name of a folder that is not there.
class Dialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;
    void accept() override {
        for (const QString& folder : selectedFiles())
            if (!QFileInfo::exists(folder)) QDir().mkdir(folder);
        QFileDialog::accept();
    }
};

}  // namespace

QString AskForNewFolder(QWidget* parent, const QString& title) {
    Dialog dialog(parent, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace desk
