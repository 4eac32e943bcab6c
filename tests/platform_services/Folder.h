// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test {

/// A folder of the test's own with plain files in it.
class Folder {
public:
    Folder() { chmod(QFile::encodeName(folder_.path()).constData(), 0755); }
    QString Path(const QString& name = {}) const { return folder_.filePath(name); }
    QByteArray Native(const QString& name) const { return QFile::encodeName(Path(name)); }
    QString Write(const QString& name, const QByteArray& bytes, mode_t mode = 0644) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        file.close();
        EXPECT_EQ(chmod(Native(name).constData(), mode), 0);
        return file.fileName();
    }
    QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        return file.readAll();
    }
    mode_t Mode(const QString& name) const {
        struct stat info {};
        EXPECT_EQ(stat(Native(name).constData(), &info), 0);
        return info.st_mode & 07777;
    }
    /// All names in the folder, hidden ones too.
    QStringList Names() const {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir folder_;
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
