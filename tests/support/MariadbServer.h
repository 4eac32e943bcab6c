// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TempFolder.h"
#include <QProcess>
#include <utility>
#include <vector>

namespace test {

/// A MariaDB server with a database of its own in a folder of its own; it ends with the object.
class MariadbServer {
public:
    MariadbServer();
    ~MariadbServer();
    MariadbServer(const MariadbServer&) = delete;
    MariadbServer& operator=(const MariadbServer&) = delete;

    bool IsRunning() const { return whyNot_.isEmpty(); }
    const QString& WhyNot() const { return whyNot_; }
    QString Connection() const;
    QString Port() const { return QString::number(port_); }

private:
    void MakeDatabase();
    void Start();
    QStringList Options() const;
    TempFolder folder_;
    QProcess server_;
    int port_ = 0;
    QString whyNot_;
};

} // namespace test
