// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TempFolder.h"
#include <sys/stat.h>
#include <unistd.h>

namespace test {

/// A folder of the test's own with plain files in it.
class Folder : public TempFolder {
public:
    Folder() { chmod(Native({}).constData(), 0755); }
    QByteArray Native(const QString& name) const { return QFile::encodeName(Path(name)); }
    QString Write(const QString& name, const QByteArray& bytes, mode_t mode = 0644) const {
        const QString path = TempFolder::Write(name, bytes);
        EXPECT_EQ(chmod(Native(name).constData(), mode), 0);
        return path;
    }
    mode_t Mode(const QString& name) const {
        struct stat info {};
        EXPECT_EQ(stat(Native(name).constData(), &info), 0);
        return info.st_mode & 07777;
    }
    /// All names in the folder, hidden ones too.
    QStringList Names() const {
        return QDir(Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

/// Root may do anything: as long as this lives the test runs with an ordinary user's rights.
class OrdinaryUser {
public:
    OrdinaryUser() : wasRoot_(geteuid() == 0) {
        constexpr uid_t kOther = 65534;
        if (wasRoot_) {
            EXPECT_EQ(seteuid(kOther), 0);
        }
    }
    ~OrdinaryUser() {
        if (wasRoot_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool wasRoot_;
};

} // namespace test
