// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

// Databases behind ODBC drivers. Whatever may block runs in a thread of its own, while the caller's `step` is
// asked: a server that never answers keeps nobody waiting longer than they like.
namespace services {

enum class DatabaseFailure {
    None,
    Failed,      ///< the driver says why
    Unsupported, ///< the driver can't do this at all
    NoDriver,    ///< the source, or the driver that it names, isn't installed
    Cancelled,   ///< by `step`
    TimedOut
};

struct DatabaseResult {
    DatabaseFailure failure = DatabaseFailure::None;
    QString text; ///< the driver's own message; its lines joined by CR LF
    explicit operator bool() const { return failure == DatabaseFailure::None; }
};

struct DataSource {
    QString name;
    QString driver; ///< as the list of sources describes it
};

struct DatabaseTable {
    QString catalog, schema, name;
    QString type; ///< "TABLE", "VIEW", "SYSTEM TABLE" or another word of the driver's
};

struct DatabaseColumn {
    QString name;
    int type = 0;     ///< the number of its SQL type, as ODBC counts them
    QString typeName; ///< the database's own word for it; may be empty
    qint64 size = 0;  ///< characters, bytes or digits; 0: not told
};

/// A foreign key: columns of its table and those of the table that it leads to, in the same order.
struct DatabaseForeignKey {
    QString table;
    QStringList columns, targets;
};

/// Seconds after which a database that doesn't answer is left alone; 0: never.
struct DatabaseTimes {
    int connect = 20;
    int lists = 60;      ///< of tables, columns and keys
    int statement = 900; ///< until a statement's answer begins
    int rows = 120;      ///< until the next rows of it have come
    int commit = 300;
};

/// False cancels. Called at least ten times a second while something blocks; both numbers are 0.
using DatabaseStep = std::function<bool(qint64, qint64)>;

/// A database's answer to a statement: rows of values, read from the first to the last.
class DatabaseRows {
public:
    virtual ~DatabaseRows() = default;
    virtual const std::vector<DatabaseColumn>&
    Columns() const = 0; ///< none for a statement without an answer
    /// Goes to the next row, at first to the first. False at the end, and where `result` tells of a failure.
    virtual bool Next(DatabaseResult& result) = 0;
    /// A value of the row as XML Schema writes it: dates with "T", booleans in words, binaries in hexadecimal
    /// digits; what isn't of the form that its type promises stays as the driver gives it. Empty for null.
    /// Good until Next.
    virtual QStringView Value(std::size_t column) const = 0;
    virtual bool IsNull(std::size_t column) const = 0;
};

/// A statement that runs with other values each time.
class DatabaseStatement {
public:
    virtual ~DatabaseStatement() = default;
    virtual int Parameters() const = 0;
    /// One value for each parameter; a null QString is null.
    virtual DatabaseResult Run(const std::vector<QString>& values) = 0;
};

/// A connection. After TimedOut or Cancelled it may be lost: every further call fails then.
class Database {
public:
    virtual ~Database() = default; ///< what wasn't committed is taken back
    virtual DatabaseResult Tables(std::vector<DatabaseTable>& tables) = 0;
    virtual DatabaseResult Columns(const DatabaseTable& table, std::vector<DatabaseColumn>& columns) = 0;
    virtual DatabaseResult PrimaryKey(const DatabaseTable& table, QStringList& columns) = 0;
    virtual DatabaseResult ForeignKeys(const DatabaseTable& table, std::vector<DatabaseForeignKey>& keys) = 0;
    /// Runs a statement; null where that failed. The rows must be gone before another call.
    virtual std::unique_ptr<DatabaseRows> Execute(const QString& sql, DatabaseResult& result) = 0;
    virtual std::unique_ptr<DatabaseStatement> Prepare(const QString& sql, DatabaseResult& result) = 0;
    virtual bool HasTransactions() const = 0;
    /// From now on nothing lasts before Commit. A driver without transactions fails.
    virtual DatabaseResult BeginTransaction() = 0;
    /// Whether tables that were made in a transaction go with it.
    virtual bool TakesTablesBack() const = 0;
    /// `step` is asked, but doesn't stop it: what was cancelled then might last all the same.
    virtual DatabaseResult Commit() = 0;
    /// From here on `step` isn't asked any more: who cancels wants this, and what cleans up behind it, done.
    virtual DatabaseResult Rollback() = 0;
    virtual QString Quote() const = 0;  ///< what stands around names that aren't plain words; may be a blank
    virtual QString System() const = 0; ///< the database's own name, as "SQLite" or "PostgreSQL"
};

/// The databases of this machine and of its user.
class Databases {
public:
    std::vector<DataSource> Sources() const; ///< the user's and the system's
    QStringList Drivers() const;             ///< names of those that are installed
    /// Whether a source may have this name: the driver manager takes no long ones, and no brackets, commas
    /// and the like.
    bool MayBeSource(const QString& name) const;
    /// Puts a source into the user's own list, in the place of one of that name. All else in the file stays
    /// as it is, and who may read it; a new file, and one that gets a "Password", is the user's alone.
    DatabaseResult AddSource(const QString& name, const QString& driver,
                             const std::vector<std::pair<QString, QString>>& settings) const;
    /// Connects by "DSN=name;", by any other string that the driver manager takes, or by "Provider=...;Data
    /// Source=path" to an Access file, which is read by the driver MDBTools; a file of another kind is
    /// refused with a word on what it is. `step` is asked in this and in all calls of the connection. A file
    /// that a source names is not made where it isn't there.
    std::unique_ptr<Database> Open(const QString& connection, DatabaseStep step, DatabaseResult& result,
                                   const DatabaseTimes& times = {}) const;
};

} // namespace services
