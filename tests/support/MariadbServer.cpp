// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MariadbServer.h"
#include "platform/services/Databases.h"
#include "tests/support/FreePort.h"
#include <QFile>
#include <QThread>
#include <csignal>

namespace test {

namespace {

const QString kServer = QStringLiteral("/usr/sbin/mariadbd");

/// What the server's own script for new databases would run, without the client's programs that it needs.
QByteArray SystemTables() {
    QByteArray sql = "create database mysql;\nuse mysql;\nset @auth_root_socket=NULL;\n"
                     "set @skip_auth_anonymous=1;\n";
    for (const char* name : {"mysql_system_tables.sql", "mysql_system_tables_data.sql"}) {
        QFile file(QStringLiteral("/usr/share/mysql/") + QLatin1String(name));
        if (file.open(QIODevice::ReadOnly))
            sql += file.readAll();
    }
    return sql + "create database stock;\nflush privileges;\n"
                 "create user 'owner'@'127.0.0.1' identified by 'secret';\n"
                 "grant all on *.* to 'owner'@'127.0.0.1';\n";
}

} // namespace

MariadbServer::MariadbServer() {
    if (!QFile::exists(kServer))
        whyNot_ = QStringLiteral("MariaDB isn't installed");
    else if (!services::Databases().Drivers().contains(QStringLiteral("MariaDB Unicode")))
        whyNot_ = QStringLiteral("the driver odbc-mariadb isn't installed");
    else
        MakeDatabase();
    if (IsRunning())
        Start();
}

MariadbServer::~MariadbServer() {
    if (server_.processId() > 0)
        server_.terminate();
    if (!server_.waitForFinished(10000))
        server_.kill();
    server_.waitForFinished();
}

QStringList MariadbServer::Options() const {
    QStringList options{QStringLiteral("--no-defaults"), QStringLiteral("--skip-log-bin"),
                        QStringLiteral("--datadir=") + folder_.Path(QStringLiteral("data"))};
    if (geteuid() == 0)
        options << QStringLiteral("--user=root");
    return options;
}

void MariadbServer::MakeDatabase() {
    QDir().mkpath(folder_.Path(QStringLiteral("data")));
    QProcess maker;
    maker.start(kServer, Options() << QStringLiteral("--bootstrap"));
    maker.write(SystemTables());
    maker.closeWriteChannel();
    if (!maker.waitForFinished(60000) || maker.exitCode() != 0)
        whyNot_ = QString::fromUtf8(maker.readAllStandardError());
}

void MariadbServer::Start() {
    port_ = FreePort();
    server_.setStandardErrorFile(folder_.Path(QStringLiteral("said.txt")));
    server_.start(kServer, Options() << QStringLiteral("--port=") + Port()
                                     << QStringLiteral("--bind-address=127.0.0.1")
                                     << QStringLiteral("--socket=") + folder_.Path(QStringLiteral("socket")));
    services::DatabaseResult result;
    for (int i = 0; i < 300 && !services::Databases().Open(Connection(), {}, result); ++i)
        QThread::msleep(100);
    if (!result)
        whyNot_ = result.text;
}

QString MariadbServer::Connection() const {
    return QStringLiteral(
               "Driver=MariaDB Unicode;Server=127.0.0.1;Port=%1;Database=stock;User=owner;Password=secret;")
        .arg(port_);
}

} // namespace test
