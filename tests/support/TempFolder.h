// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace test {

/// A folder of the test's own, gone when the test ends.
class TempFolder {
public:
    TempFolder();
    /// Absolute path of a name in the folder.
    QString Path(const QString& name) const { return folder_.filePath(name); }
    /// Writes a file and returns its absolute path; folders in `name` are made.
    QString Write(const QString& name, const QByteArray& bytes) const;
    /// Bytes of a file; fails the test when it can't be read.
    QByteArray Read(const QString& name) const;
    bool Has(const QString& name) const;

private:
    QTemporaryDir folder_;
};

} // namespace test
