// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/OdbcValues.h"
#include <deque>

namespace services::odbc {

namespace {

// A block of rows is what the thread reads ahead.
constexpr std::size_t kBlockRows = 1000;
constexpr qsizetype kBlockUnits = 1 << 19;

struct Cell {
    qsizetype begin = 0, length = 0;
    bool null = false;
};

struct Block {
    QString text;
    std::vector<Cell> cells;
    std::size_t rows = 0;
    bool last = false;
    DatabaseResult result;
};

/// What the thread works on.
struct Source {
    std::shared_ptr<Statement> statement;
    std::deque<ColumnReader> readers; ///< bound ones stay where they are
    Block block;

    void Fill() {
        block.text.resize(0);
        block.cells.clear();
        block.rows = 0;
        while (block.rows < kBlockRows && block.text.size() < kBlockUnits) {
            const SQLRETURN code = SQLFetch(statement->handle);
            if (code == SQL_NO_DATA || !Good(code) || !ReadRow()) {
                block.last = true;
                if (code != SQL_NO_DATA)
                    block.result = Complaint(SQL_HANDLE_STMT, statement->handle);
                return;
            }
            ++block.rows;
        }
    }
    bool ReadRow() {
        for (ColumnReader& reader : readers) {
            Cell cell{block.text.size()};
            if (!reader.Read(statement->handle, block.text, cell.null))
                return false;
            cell.length = block.text.size() - cell.begin;
            block.cells.push_back(cell);
        }
        return true;
    }
};

QString TypeName(SQLHSTMT handle, SQLUSMALLINT number) {
    SQLWCHAR text[128] = {};
    SQLSMALLINT bytes = 0;
    if (!Good(SQLColAttributeW(handle, number, SQL_DESC_TYPE_NAME, text, sizeof text, &bytes, nullptr)))
        return {};
    return FromWide(text);
}

std::vector<DatabaseColumn> Describe(SQLHSTMT handle) {
    constexpr SQLSMALLINT kLongestName = 1024;
    std::vector<DatabaseColumn> columns;
    SQLSMALLINT count = 0;
    SQLNumResultCols(handle, &count);
    for (SQLUSMALLINT number = 1; number <= static_cast<SQLUSMALLINT>(count); ++number) {
        SQLWCHAR name[kLongestName] = {};
        SQLSMALLINT units = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        SQLDescribeColW(handle, number, name, kLongestName, &units, &type, &size, &digits, &nullable);
        columns.push_back({FromWide(name), type, TypeName(handle, number), static_cast<qint64>(size)});
    }
    return columns;
}

class OdbcRows : public DatabaseRows {
public:
    OdbcRows(std::shared_ptr<Statement> statement, std::vector<DatabaseColumn> columns)
        : columns_(std::move(columns)), source_(std::make_shared<Source>()) {
        source_->statement = std::move(statement);
        SQLUSMALLINT number = 0;
        for (const DatabaseColumn& column : columns_)
            source_->readers.emplace_back(++number, ReadingOf(column, Session()));
        if (!Session().anyOrder)
            return;
        for (ColumnReader& reader : source_->readers)
            reader.Bind(source_->statement->handle);
    }
    ~OdbcRows() override {
        if (!reading_)
            return;
        const auto stop = [](qint64, qint64) { return false; };
        Session().work.Wait(stop, 0, Cancelling(source_->statement));
    }
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

    const std::vector<DatabaseColumn>& Columns() const override { return columns_; }

    bool Next(DatabaseResult& result) override {
        if (++row_ < block_.rows)
            return true;
        if (block_.last || columns_.empty()) {
            result = block_.result;
            return false;
        }
        if (!reading_)
            ReadAhead();
        result = Blockingly();
        if (!result)
            return false;
        std::swap(block_, source_->block);
        source_->block.last = false;
        row_ = 0;
        if (block_.rows == 0) {
            result = block_.result;
            return false;
        }
        if (!block_.last)
            ReadAhead();
        return true;
    }

    QStringView Value(std::size_t column) const override {
        const Cell& cell = CellAt(column);
        return QStringView(block_.text).sliced(cell.begin, cell.length);
    }
    bool IsNull(std::size_t column) const override { return CellAt(column).null; }

private:
    odbc::Session& Session() const { return *source_->statement->session; }
    const Cell& CellAt(std::size_t column) const { return block_.cells[row_ * columns_.size() + column]; }

    void ReadAhead() {
        reading_ = true;
        Session().work.Start([source = source_] { source->Fill(); });
    }
    DatabaseResult Blockingly() {
        const BlockingWork::End end = Session().work.Wait(
            Session().step, SecondsFor(Session(), Session().times.rows), Cancelling(source_->statement));
        reading_ = false;
        return end == BlockingWork::End::Done ? DatabaseResult() : Stopped(end);
    }

    std::vector<DatabaseColumn> columns_;
    std::shared_ptr<Source> source_;
    Block block_; ///< the one that is being read out
    std::size_t row_ = 0;
    bool reading_ = false; ///< the thread fills the next one
};

} // namespace

std::unique_ptr<DatabaseRows> ReadRows(std::shared_ptr<Statement> statement, DatabaseResult& result) {
    const std::shared_ptr<Session> session = statement->session;
    const auto columns = std::make_shared<std::vector<DatabaseColumn>>();
    result = Blocking(session, statement, session->times.lists, [statement, columns] {
        *columns = Describe(statement->handle);
        return DatabaseResult();
    });
    return result ? std::make_unique<OdbcRows>(std::move(statement), *columns) : nullptr;
}

} // namespace services::odbc
