// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/OpenDatabase.h"
#include "core/model/Application.h"

namespace exchange {

namespace {

using services::DatabaseFailure;

const QString kPackages =
    QStringLiteral("Drivers come with these packages: libsqliteodbc (SQLite), odbc-mdbtools (Access), "
                   "odbc-postgresql (PostgreSQL), odbc-mariadb (MariaDB, MySQL), tdsodbc (SQL "
                   "Server, Sybase).");

services::DatabaseTimes Times(const Application& app) {
    services::DatabaseTimes times;
    const int seconds =
        app.services.settings.Get(QStringLiteral("AppInternal"), QStringLiteral("DatabaseTimeOut")).toInt();
    if (seconds > 0)
        times = {seconds, seconds, seconds, seconds, seconds};
    return times;
}

} // namespace

std::unique_ptr<services::Database> OpenDatabase(Application& app, const QString& connection,
                                                 const edit::WaitStep& step,
                                                 services::DatabaseResult& result) {
    return services::Databases().Open(connection, step, result, Times(app));
}

QString FailureText(const services::DatabaseResult& result) {
    switch (result.failure) {
    case DatabaseFailure::None:
        return {};
    case DatabaseFailure::Cancelled:
        return QStringLiteral("Cancelled.");
    case DatabaseFailure::NoDriver:
        return result.text + QStringLiteral("\r\n") + kPackages;
    default:
        return result.text;
    }
}

} // namespace exchange
