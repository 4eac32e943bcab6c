// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TempFolder.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace test {

TempFolder::TempFolder() {
    EXPECT_TRUE(folder_.isValid()) << folder_.errorString().toStdString();
}

QString TempFolder::Write(const QString& name, const QByteArray& bytes) const {
    const QString path = Path(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path;
}

QByteArray TempFolder::Read(const QString& name) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << Path(name).toStdString();
    return file.readAll();
}

bool TempFolder::Has(const QString& name) const {
    return QFileInfo::exists(Path(name));
}

} // namespace test
