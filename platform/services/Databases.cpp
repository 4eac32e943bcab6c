// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Databases.h"
#include "platform/services/Odbc.h"
#include <QDir>
#include <QFile>
#include <odbcinst.h>

namespace services {

namespace {

using odbc::Good;

/// An environment for the lists of the driver manager, which opens nothing.
class Environment {
public:
    Environment() {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle_);
        SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    }
    ~Environment() { SQLFreeHandle(SQL_HANDLE_ENV, handle_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    using List = SQLRETURN (*)(SQLHENV, SQLUSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*, SQLWCHAR*,
                               SQLSMALLINT, SQLSMALLINT*);
    /// Names and descriptions of a list, blank names left out.
    std::vector<DataSource> All(List list) const {
        constexpr SQLSMALLINT kBuffer = 1024;
        std::vector<DataSource> all;
        SQLWCHAR name[kBuffer] = {}, description[kBuffer] = {};
        SQLSMALLINT nameUnits = 0, units = 0;
        while (Good(list(handle_, SQL_FETCH_NEXT, name, kBuffer, &nameUnits, description, kBuffer, &units))) {
            const QString found = odbc::FromWide(name);
            if (!found.trimmed().isEmpty())
                all.push_back({found, odbc::FromWide(description)});
        }
        return all;
    }

private:
    SQLHENV handle_ = nullptr;
};

constexpr char kDataSource[] = "Data Source=";

/// How drivers are to work. SQLite: rows are read one by one and not kept, no file is made, and a lock is
/// waited for no longer than a person would. PostgreSQL: rows come in blocks, and not all before the first.
constexpr struct {
    const char *driver, *manners;
} kManners[] = {{"sqlite", "StepAPI=1;NoCreat=1;Timeout=3000;"},
                {"postgres", "UseDeclareFetch=1;Fetch=1000;"},
                {"psqlodbc", "UseDeclareFetch=1;Fetch=1000;"}};

QString MannersOf(const QString& driver) {
    for (const auto& known : kManners) {
        if (driver.contains(QLatin1String(known.driver), Qt::CaseInsensitive))
            return QLatin1String(known.manners);
    }
    return {};
}

/// A connection string as the driver manager takes it.
QString CarriedOver(const QString& connection, const std::vector<DataSource>& sources) {
    if (connection.startsWith(QStringLiteral("Provider="), Qt::CaseInsensitive)) {
        const qsizetype at = connection.indexOf(QLatin1String(kDataSource), 0, Qt::CaseInsensitive);
        const QString path = at < 0 ? QString() : connection.mid(at + qsizetype(sizeof(kDataSource)) - 1);
        return QStringLiteral("Driver=MDBTools;DBQ=") + path;
    }
    QString driver = connection;
    for (const DataSource& source : sources) {
        if (connection.startsWith(QStringLiteral("DSN=") + source.name + u';', Qt::CaseInsensitive))
            driver = source.driver;
    }
    return connection + MannersOf(driver);
}

// The driver manager would hand bytes of characters on to a driver that takes bytes, and half of them.
SQLRETURN DriverConnect(const odbc::Session& session, const QString& connection) {
    if (session.narrow) {
        QByteArray bytes = connection.toUtf8();
        return SQLDriverConnect(session.connection, nullptr, reinterpret_cast<SQLCHAR*>(bytes.data()),
                                static_cast<SQLSMALLINT>(bytes.size()), nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT);
    }
    odbc::Wide text(connection);
    return SQLDriverConnectW(session.connection, nullptr, text.data(), text.length(), nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT);
}

DatabaseResult Connect(odbc::Session& session, const QString& connection, int seconds) {
    SQLSetConnectAttr(session.connection, SQL_ATTR_LOGIN_TIMEOUT,
                      reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(seconds)), 0);
    session.narrow = connection.contains(QStringLiteral("MDBTools"), Qt::CaseInsensitive);
    if (!Good(DriverConnect(session, connection)))
        return odbc::Complaint(SQL_HANDLE_DBC, session.connection);
    session.connected = true;
    SQLUINTEGER more = 0;
    SQLGetInfoW(session.connection, SQL_GETDATA_EXTENSIONS, &more, sizeof more, nullptr);
    constexpr SQLUINTEGER kAll = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BOUND;
    session.anyOrder = (more & kAll) == kAll;
    return {};
}

DatabaseResult ListFailure() {
    char text[512] = {};
    DWORD code = 0;
    WORD length = 0;
    SQLInstallerError(1, &code, text, sizeof text, &length);
    return {DatabaseFailure::Failed, QString::fromUtf8(text)};
}

} // namespace

std::vector<DataSource> Databases::Sources() const {
    return Environment().All(SQLDataSourcesW);
}

QStringList Databases::Drivers() const {
    QStringList names;
    for (const DataSource& driver : Environment().All(SQLDriversW))
        names << driver.name;
    return names;
}

DatabaseResult Databases::AddSource(const QString& name, const QString& driver,
                                    const std::vector<std::pair<QString, QString>>& settings) const {
    const QByteArray source = name.toUtf8();
    SQLSetConfigMode(ODBC_USER_DSN);
    bool good = SQLWriteDSNToIni(source.constData(), driver.toUtf8().constData()) != 0;
    for (const auto& [key, value] : settings)
        good = good && SQLWritePrivateProfileString(source.constData(), key.toUtf8().constData(),
                                                    value.toUtf8().constData(), "odbc.ini") != 0;
    const DatabaseResult result = good ? DatabaseResult() : ListFailure();
    SQLSetConfigMode(ODBC_BOTH_DSN);
    // A password may stand in it.
    const QString list = qEnvironmentVariable("ODBCINI", QDir::homePath() + QStringLiteral("/.odbc.ini"));
    QFile::setPermissions(list, QFile::ReadOwner | QFile::WriteOwner);
    return result;
}

std::unique_ptr<Database> Databases::Open(const QString& connection, DatabaseStep step,
                                          DatabaseResult& result, int connectSeconds) const {
    auto session = std::make_shared<odbc::Session>();
    session->step = std::move(step);
    const QString carried = CarriedOver(connection, Sources());
    result = odbc::Blocking(session, nullptr, connectSeconds, [session, carried, connectSeconds] {
        return Connect(*session, carried, connectSeconds);
    });
    return result ? odbc::MakeDatabase(session) : nullptr;
}

} // namespace services
