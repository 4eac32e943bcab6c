// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/BlockingWork.h"
#include "platform/services/Databases.h"
#include <QTemporaryDir>
#include <memory>
#include <sql.h>
#include <sqlext.h>

// What the files on databases share: handles that free themselves, texts in 16-bit characters, and calls that
// may block.
namespace services::odbc {

inline bool Good(SQLRETURN code) {
    return SQL_SUCCEEDED(code);
}

/// A text as the driver manager takes it. It is kept by the object.
class Wide {
public:
    explicit Wide(const QString& text) : text_(text) {}
    SQLWCHAR* data() { return text_.isNull() ? nullptr : reinterpret_cast<SQLWCHAR*>(text_.data()); }
    SQLSMALLINT length() const { return static_cast<SQLSMALLINT>(text_.size()); }

private:
    QString text_;
};
QString FromWide(const SQLWCHAR* text); ///< up to the null at its end

/// The messages that a handle has after a call; NoDriver where they say so.
DatabaseResult Complaint(SQLSMALLINT kind, SQLHANDLE handle);

/// Environment and connection. Held by whatever still uses them, a thread that was left alone among them.
struct Session {
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    SQLHENV environment = nullptr;
    SQLHDBC connection = nullptr;
    bool connected = false;
    bool narrow = false;   ///< the driver takes bytes, in UTF-8
    bool sqlite = false;   ///< its values needn't be of their column's type
    qint64 untold = -1;    ///< what its driver tells where the length of a text isn't told
    bool anyOrder = false; ///< SQLGetData takes columns in any order, bound ones too
    bool cleaning =
        false; ///< since a rollback: all that follows tidies up, can't be cancelled, has little time
    BlockingWork work;
    DatabaseStep step;
    DatabaseTimes times;
    std::unique_ptr<QTemporaryDir> folder; ///< with what leads to a file that a driver can't be told of
};

/// Runs a statement's text as the driver takes it.
SQLRETURN ExecuteDirect(const Session& session, SQLHSTMT handle, const QString& sql);

/// A statement on a session. Where a call doesn't come back its driver lets no other one in: there are no new
/// statements then, and old ones go with the connection.
struct Statement {
    explicit Statement(std::shared_ptr<Session> given);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    std::shared_ptr<Session> session;
    SQLHSTMT handle = nullptr;
};

inline constexpr int kCleaningSeconds = 10; ///< for what can't be cancelled
/// How long something may take that usually gets `seconds`.
inline int SecondsFor(const Session& session, int seconds) {
    return session.cleaning ? kCleaningSeconds : seconds;
}

/// Does what may block and can't be cancelled in the session's thread, and waits a little. Where that thread
/// is stuck it isn't done. `act` must hold what it uses.
void InThread(BlockingWork& work, std::function<void()> act);

/// Asks a statement to end; it is held until that has been done.
std::function<void()> Cancelling(std::shared_ptr<Statement> statement);

/// Runs a call in the session's thread and waits for it. `call` gives a result; it must hold what it uses.
/// `statement` is the one that cancelling concerns, or null.
/// `seconds` is how long it may take.
DatabaseResult Blocking(const std::shared_ptr<Session>& session, const std::shared_ptr<Statement>& statement,
                        int seconds, std::function<DatabaseResult()> call);

/// The result of work that was stopped.
DatabaseResult Stopped(BlockingWork::End end);

std::unique_ptr<Database> MakeDatabase(std::shared_ptr<Session> session);
/// The rows of an executed statement; `result` as for Database::Execute.
std::unique_ptr<DatabaseRows> ReadRows(std::shared_ptr<Statement> statement, DatabaseResult& result);
std::unique_ptr<DatabaseStatement> PrepareStatement(const std::shared_ptr<Session>& session,
                                                    const QString& sql, DatabaseResult& result);

} // namespace services::odbc
