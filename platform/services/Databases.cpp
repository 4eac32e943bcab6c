// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Databases.h"
#include "platform/services/FileReplace.h"
#include "platform/services/Odbc.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
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
/// waited for no longer than a person would. PostgreSQL: rows come in blocks, and not all before the first;
/// the longest length that a type can have stands for none, and not the usual 255.
constexpr struct {
    const char *driver, *manners;
} kManners[] = {{"sqlite", "StepAPI=1;NoCreat=1;Timeout=3000;"},
                {"postgres", "UseDeclareFetch=1;Fetch=1000;MaxVarcharSize=10485760;"},
                {"psqlodbc", "UseDeclareFetch=1;Fetch=1000;MaxVarcharSize=10485760;"}};

QString MannersOf(const QString& driver) {
    for (const auto& known : kManners) {
        if (driver.contains(QLatin1String(known.driver), Qt::CaseInsensitive))
            return QLatin1String(known.manners);
    }
    return {};
}

/// The Access file that a connection string names; null without one.
QString AccessFile(const QString& connection) {
    if (!connection.startsWith(QStringLiteral("Provider="), Qt::CaseInsensitive))
        return {};
    const qsizetype at = connection.indexOf(QLatin1String(kDataSource), 0, Qt::CaseInsensitive);
    return at < 0 ? QStringLiteral("") : connection.mid(at + qsizetype(sizeof(kDataSource)) - 1);
}

/// Why a file can't be an Access database: the driver has one sentence for all that is wrong.
DatabaseResult AccessFailure(const QString& path) {
    constexpr qint64 kHead = 32;
    QFile file(path);
    if (!QFileInfo(path).isFile())
        return {DatabaseFailure::Failed, QStringLiteral("Can not find ") + path};
    if (!file.open(QIODevice::ReadOnly))
        return {DatabaseFailure::Failed, path + QStringLiteral(": ") + file.errorString()};
    const QByteArray head = file.read(kHead);
    if (head.mid(4).startsWith("Standard Jet DB") || head.mid(4).startsWith("Standard ACE DB"))
        return {};
    return {DatabaseFailure::Failed,
            head.startsWith("SQLite format 3")
                ? QStringLiteral("This file is a SQLite database and not one of Access. \"New DSN\" makes a "
                                 "source of it, which is then chosen under \"ODBC\".")
                : QStringLiteral("This file is no Access database.")};
}

/// The string for an Access file. The driver takes a path up to the first ";", in braces, too: such a file is
/// reached by a link of another name.
QString AccessString(const QString& path, odbc::Session& session) {
    QString plain = path;
    if (path.contains(u';')) {
        session.folder = std::make_unique<QTemporaryDir>();
        plain = session.folder->filePath(QStringLiteral("access.mdb"));
        QFile::link(QFileInfo(path).absoluteFilePath(), plain);
    }
    return QStringLiteral("Driver=MDBTools;DBQ=") + plain;
}

/// User and password of a source, for a driver that doesn't look for them in the list.
QString Credentials(const QString& source) {
    QString credentials;
    for (const char* key : {"UID", "PWD"}) {
        char value[512] = {};
        SQLGetPrivateProfileString(source.toUtf8().constData(), key, "", value, sizeof value, "odbc.ini");
        const QString text = QString::fromUtf8(value);
        if (!text.isEmpty())
            credentials +=
                QLatin1String(key) + u'=' + (text.contains(u';') ? u'{' + text + u'}' : text) + u';';
    }
    return credentials;
}

/// Another connection string as the driver manager takes it.
QString CarriedOver(const QString& connection, const std::vector<DataSource>& sources) {
    for (const DataSource& source : sources) {
        if (!connection.startsWith(QStringLiteral("DSN=") + source.name + u';', Qt::CaseInsensitive))
            continue;
        const bool freetds = source.driver.contains(QStringLiteral("freetds"), Qt::CaseInsensitive);
        return connection + MannersOf(source.driver) + (freetds ? Credentials(source.name) : QString());
    }
    return connection + MannersOf(connection);
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

DatabaseResult Connect(odbc::Session& session, const QString& connection) {
    SQLSetConnectAttr(session.connection, SQL_ATTR_LOGIN_TIMEOUT,
                      reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(session.times.connect)), 0);
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

DatabaseResult Failed(const QString& why) {
    return {DatabaseFailure::Failed, why};
}

/// The text of a list with a section that has these lines. Comments in a section of that name stay, and so
/// does all else.
QByteArray WithSection(const QByteArray& list, const QByteArray& name, QByteArray keys) {
    if (list.contains("\r\n"))
        keys.replace("\n", "\r\n");
    QByteArray text;
    bool inside = false, found = false;
    for (qsizetype at = 0; at < list.size();) {
        const qsizetype end = list.indexOf('\n', at);
        const QByteArray line = list.mid(at, end < 0 ? -1 : end + 1 - at);
        const QByteArray plain = line.trimmed();
        at += line.size();
        if (plain.startsWith('['))
            inside = plain.mid(1, plain.indexOf(']') - 1).trimmed().compare(name, Qt::CaseInsensitive) == 0;
        const bool header = inside && plain.startsWith('[');
        if (!inside || header || plain.isEmpty() || plain.startsWith(';') || plain.startsWith('#'))
            text += line;
        if (header && !found)
            text += keys;
        found = found || header;
    }
    if (found)
        return text;
    if (!text.isEmpty() && !text.endsWith('\n'))
        text += '\n';
    return text + (text.isEmpty() ? "[" : "\n[") + name + "]\n" + keys;
}

// The driver manager keeps what it has read for a while. It forgets that when it writes a list itself.
void ForgetLists() {
    const QTemporaryDir folder;
    SQLWritePrivateProfileString("none", "none", "none",
                                 folder.filePath(QStringLiteral("none.ini")).toUtf8().constData());
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

bool Databases::MayBeSource(const QString& name) const {
    const bool reserved = name.compare(QStringLiteral("ODBC"), Qt::CaseInsensitive) == 0 ||
                          name.compare(QStringLiteral("ODBC Data Sources"), Qt::CaseInsensitive) == 0;
    return !reserved && !name.contains(u'\n') && SQLValidDSN(name.toUtf8().constData()) != 0;
}

DatabaseResult Databases::AddSource(const QString& name, const QString& driver,
                                    const std::vector<std::pair<QString, QString>>& settings) const {
    if (!MayBeSource(name))
        return Failed(QStringLiteral("A source can't have this name: ") + name);
    const QString path = qEnvironmentVariable("ODBCINI", QDir::homePath() + QStringLiteral("/.odbc.ini"));
    QFile list(path);
    if (list.exists() && !list.open(QIODevice::ReadOnly))
        return Failed(path + QStringLiteral(": ") + list.errorString());
    QByteArray keys = "Driver = " + driver.toUtf8() + '\n';
    bool secret = !list.isOpen();
    for (const auto& [key, value] : settings) {
        if (value.contains(u'\n') || value.contains(u'\r'))
            return Failed(QStringLiteral("This takes one line alone: ") + key);
        keys += key.toUtf8() + " = " + value.toUtf8() + '\n';
        secret = secret || key == QStringLiteral("Password") || key == QStringLiteral("PWD");
    }
    if (secret && list.isOpen())
        list.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    constexpr mode_t kUserAlone = 0600;
    const QByteArray old = list.isOpen() ? list.readAll() : QByteArray();
    const FileResult result = ReplaceFile(path, WithSection(old, name.toUtf8(), keys), kUserAlone);
    if (!result)
        return Failed(result.description);
    ForgetLists();
    return {};
}

std::unique_ptr<Database> Databases::Open(const QString& connection, DatabaseStep step,
                                          DatabaseResult& result, const DatabaseTimes& times) const {
    auto session = std::make_shared<odbc::Session>();
    session->step = std::move(step);
    session->times = times;
    const QString file = AccessFile(connection);
    result = file.isNull() ? DatabaseResult() : AccessFailure(file);
    if (!result)
        return nullptr;
    const QString carried = file.isNull() ? CarriedOver(connection, Sources()) : AccessString(file, *session);
    result = odbc::Blocking(session, nullptr, times.connect,
                            [session, carried] { return Connect(*session, carried); });
    return result ? odbc::MakeDatabase(session) : nullptr;
}

} // namespace services
