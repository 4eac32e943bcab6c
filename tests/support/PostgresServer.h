// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TempFolder.h"
#include <QProcess>
#include <utility>
#include <vector>

namespace test {

/// A PostgreSQL server with a database of its own in a folder of its own; it ends with the object.
class PostgresServer {
public:
    PostgresServer();
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    bool IsRunning() const { return whyNot_.isEmpty(); }
    const QString& WhyNot() const { return whyNot_; }
    QString Connection(const QString& password = QStringLiteral("secret")) const;

    qint64 ProcessId() const { return server_.processId(); }
    /// The same as a source's settings.
    std::vector<std::pair<QString, QString>> Settings() const;

private:
    void Start(const QString& programs);
    void AsOrdinaryUser(QProcess& process) const;
    TempFolder folder_;
    QProcess server_;
    int port_ = 0;
    QString whyNot_;
};

} // namespace test
