// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Odbc.h"
#include <QStringList>

namespace services::odbc {

namespace {

constexpr SQLULEN kVersion = SQL_OV_ODBC3;

SQLPOINTER Number(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

DatabaseResult Lost() {
    return {DatabaseFailure::Failed, QStringLiteral("The connection is lost.")};
}

} // namespace

DatabaseResult Stopped(BlockingWork::End end) {
    return end == BlockingWork::End::TimedOut
               ? DatabaseResult{DatabaseFailure::TimedOut,
                                QStringLiteral("The database did not answer in time.")}
               : DatabaseResult{DatabaseFailure::Cancelled, {}};
}

// Some drivers tell the length in bytes, or that of another encoding.
QString FromWide(const SQLWCHAR* text) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text));
}

DatabaseResult Complaint(SQLSMALLINT kind, SQLHANDLE handle) {
    constexpr SQLSMALLINT kLongest = 2048, kMost = 8;
    DatabaseResult result{DatabaseFailure::Failed, {}};
    QStringList lines;
    for (SQLSMALLINT record = 1; record <= kMost; ++record) {
        SQLWCHAR state[6] = {}, message[kLongest] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!Good(SQLGetDiagRecW(kind, handle, record, state, &native, message, kLongest, &length)))
            break;
        const QString code = FromWide(state);
        const QString line = FromWide(message).trimmed();
        if (code == QStringLiteral("IM002") || code == QStringLiteral("IM003") ||
            line.contains(QStringLiteral("Can't open lib")))
            result.failure = DatabaseFailure::NoDriver;
        else if (code == QStringLiteral("IM001") || code == QStringLiteral("HYC00"))
            result.failure = DatabaseFailure::Unsupported;
        if (!lines.contains(line))
            lines << line;
    }
    result.text =
        lines.isEmpty() ? QStringLiteral("The driver gives no reason.") : lines.join(QStringLiteral("\r\n"));
    return result;
}

Session::Session() {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, Number(kVersion), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
}

Session::~Session() {
    InThread(work, [environment = environment, connection = connection, connected = connected] {
        if (connected) {
            SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK);
            SQLDisconnect(connection);
        }
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
    });
}

void InThread(BlockingWork& work, std::function<void()> act) {
    if (work.IsOwnThread())
        return act();
    if (!work.IsIdle())
        return;
    work.Start(std::move(act));
    work.Wait({}, kCleaningSeconds, {});
}

SQLRETURN ExecuteDirect(const Session& session, SQLHSTMT handle, const QString& sql) {
    if (session.narrow) {
        QByteArray bytes = sql.toUtf8();
        return SQLExecDirect(handle, reinterpret_cast<SQLCHAR*>(bytes.data()),
                             static_cast<SQLINTEGER>(bytes.size()));
    }
    Wide text(sql);
    return SQLExecDirectW(handle, text.data(), static_cast<SQLINTEGER>(sql.size()));
}

Statement::Statement(std::shared_ptr<Session> given) : session(std::move(given)) {
    if (!session->work.IsLost())
        SQLAllocHandle(SQL_HANDLE_STMT, session->connection, &handle);
}

Statement::~Statement() {
    if (handle && !session->work.IsLost())
        InThread(session->work, [handle = handle] { SQLFreeHandle(SQL_HANDLE_STMT, handle); });
}

std::function<void()> Cancelling(std::shared_ptr<Statement> statement) {
    return [statement = std::move(statement)] { SQLCancel(statement->handle); };
}

DatabaseResult Blocking(const std::shared_ptr<Session>& session, const std::shared_ptr<Statement>& statement,
                        int seconds, std::function<DatabaseResult()> call) {
    if (session->work.IsLost())
        return Lost();
    auto result = std::make_shared<DatabaseResult>();
    session->work.Start([result, session, call = std::move(call)] { *result = call(); });
    std::function<void()> cancel;
    if (statement)
        cancel = Cancelling(statement);
    const BlockingWork::End end = session->work.Wait(session->step, SecondsFor(*session, seconds), cancel);
    return end == BlockingWork::End::Done ? *result : Stopped(end);
}

} // namespace services::odbc
