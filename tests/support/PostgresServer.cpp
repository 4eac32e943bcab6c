// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PostgresServer.h"
#include "platform/services/Databases.h"
#include "tests/support/FreePort.h"
#include <QDir>
#include <QThread>
#include <csignal>
#include <unistd.h>

namespace test {

namespace {

constexpr uid_t kNobody = 65534; // the server refuses to run for root

QString NewestPrograms() {
    QDir versions(QStringLiteral("/usr/lib/postgresql"));
    const QStringList found =
        versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed);
    return found.isEmpty() ? QString() : versions.filePath(found.first()) + QStringLiteral("/bin/");
}

} // namespace

PostgresServer::PostgresServer() {
    const QString programs = NewestPrograms();
    if (programs.isEmpty())
        whyNot_ = QStringLiteral("PostgreSQL isn't installed");
    else if (!services::Databases().Drivers().contains(QStringLiteral("PostgreSQL Unicode")))
        whyNot_ = QStringLiteral("the driver odbc-postgresql isn't installed");
    else
        Start(programs);
}

PostgresServer::~PostgresServer() {
    if (server_.processId() > 0)
        kill(static_cast<pid_t>(server_.processId()), SIGINT); // doesn't wait for those that are connected
    if (!server_.waitForFinished(10000))
        server_.kill();
    server_.waitForFinished();
}

void PostgresServer::AsOrdinaryUser(QProcess& process) const {
    process.setWorkingDirectory(folder_.Path());
    if (geteuid() == 0)
        process.setChildProcessModifier([] {
            if (setgid(kNobody) != 0 || setuid(kNobody) != 0)
                _exit(1);
        });
}

void PostgresServer::Start(const QString& programs) {
    const QString password = folder_.Write(QStringLiteral("password"), "secret");
    const QString data = folder_.Path(QStringLiteral("data"));
    if (geteuid() == 0) {
        for (const QString& path : {folder_.Path(), password})
            EXPECT_EQ(chown(path.toUtf8().constData(), kNobody, kNobody), 0);
    }
    QProcess maker;
    AsOrdinaryUser(maker);
    maker.start(programs + QStringLiteral("initdb"),
                {QStringLiteral("-D"), data, QStringLiteral("-U"), QStringLiteral("owner"),
                 QStringLiteral("-A"), QStringLiteral("scram-sha-256"), QStringLiteral("--pwfile"), password,
                 QStringLiteral("-N"), QStringLiteral("-E"), QStringLiteral("UTF8"),
                 QStringLiteral("--locale=C.UTF-8")});
    if (!maker.waitForFinished(60000) || maker.exitCode() != 0) {
        whyNot_ = QStringLiteral("initdb: ") + QString::fromUtf8(maker.readAllStandardError());
        return;
    }
    port_ = FreePort();
    AsOrdinaryUser(server_);
    server_.setStandardErrorFile(folder_.Path(QStringLiteral("said.txt")));
    server_.start(programs + QStringLiteral("postgres"),
                  {QStringLiteral("-D"), data, QStringLiteral("-p"), QString::number(port_),
                   QStringLiteral("-h"), QStringLiteral("127.0.0.1"), QStringLiteral("-k"), QString(),
                   QStringLiteral("-F")});
    services::DatabaseResult result;
    for (int i = 0; i < 300 && !services::Databases().Open(Connection(), {}, result); ++i)
        QThread::msleep(100);
    if (!result)
        whyNot_ = result.text;
}

QString PostgresServer::Connection(const QString& password) const {
    return QStringLiteral(
               "Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=%1;Database=postgres;UID=owner;PWD=%2;")
        .arg(port_)
        .arg(password);
}

std::vector<std::pair<QString, QString>> PostgresServer::Settings() const {
    return {{QStringLiteral("Servername"), QStringLiteral("127.0.0.1")},
            {QStringLiteral("Port"), QString::number(port_)},
            {QStringLiteral("Database"), QStringLiteral("postgres")},
            {QStringLiteral("Username"), QStringLiteral("owner")},
            {QStringLiteral("Password"), QStringLiteral("secret")}};
}

} // namespace test
