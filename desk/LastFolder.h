#pragma once

#include <QString>

namespace desk {

// Where a file dialog begins: in the folder of the file that this user chose last, lists that come in apart
// from those that go out; at home before any.
class LastFolder {
  public:
    static LastFolder OfFilesIn() { return LastFolder("folders/in"); }
    static LastFolder OfFilesOut() { return LastFolder("folders/out"); }

    QString Path() const;
    void KeepOf(const QString& file) const;  // a chosen file
    void Keep(const QString& folder) const;  // a chosen folder

  private:
    explicit LastFolder(const char* key) : key_(key) {}

    const char* key_;
};

}  // namespace desk
