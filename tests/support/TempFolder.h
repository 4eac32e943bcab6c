// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace test {

/// A folder of the test's own, gone when the test ends.
class TempFolder {
public:
    TempFolder() { EXPECT_TRUE(folder_.isValid()) << folder_.errorString().toStdString(); }
    /// Absolute path of a name in the folder.
    QString Path(const QString& name = {}) const { return folder_.filePath(name); }
    /// Writes a file and returns its absolute path; folders in `name` are made.
    QString Write(const QString& name, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << Path(name).toStdString();
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
    /// Bytes of a file; fails the test when it can't be read.
    QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << Path(name).toStdString();
        return file.readAll();
    }
    bool Has(const QString& name) const { return QFileInfo::exists(Path(name)); }

private:
    QTemporaryDir folder_;
};

} // namespace test
