// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TempFolder.h"
#include <QProcess>
#include <gtest/gtest.h>

namespace test {

/// A SQLite database in a file of its own, and a list of sources that the test's user has for itself.
class SqliteFile {
public:
    SqliteFile() {
        qputenv("ODBCINI", folder_.Path(QStringLiteral("odbc.ini")).toUtf8());
        folder_.Write(QStringLiteral("stock.db"), {});
    }
    ~SqliteFile() { qunsetenv("ODBCINI"); }
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    QString Path() const { return folder_.Path(QStringLiteral("stock.db")); }
    QString Connection() const { return QStringLiteral("Driver=SQLite3;Database=%1;").arg(Path()); }
    /// Runs statements, ";" between them.
    void Run(const char* statements) const { Python("d.executescript(sys.argv[2])", statements); }
    /// The rows of a query as another program reads them: one a line, "|" between the values.
    std::string Query(const char* query) const {
        return Python("[print('|'.join(map(str, row))) for row in d.execute(sys.argv[2])]", query)
            .trimmed()
            .toStdString();
    }

private:
    QByteArray Python(const char* act, const char* argument) const {
        QProcess python;
        const QString program = QStringLiteral("import sys, sqlite3\nd = sqlite3.connect(sys.argv[1])\n") +
                                QLatin1String(act) + QStringLiteral("\nd.commit()");
        python.start(QStringLiteral("python3"),
                     {QStringLiteral("-c"), program, Path(), QString::fromUtf8(argument)});
        EXPECT_TRUE(python.waitForFinished());
        EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
        return python.readAllStandardOutput();
    }
    TempFolder folder_;
};

} // namespace test
