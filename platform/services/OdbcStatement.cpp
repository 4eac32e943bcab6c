// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Odbc.h"

namespace services::odbc {

namespace {

constexpr SQLULEN kShortText = 4000; // units; drivers take longer ones as a type of their own

class OdbcStatement : public DatabaseStatement {
public:
    OdbcStatement(std::shared_ptr<Statement> statement, int parameters)
        : statement_(std::move(statement)), parameters_(parameters) {}

    int Parameters() const override { return parameters_; }

    DatabaseResult Run(const std::vector<QString>& values) override {
        const auto bound = std::make_shared<std::vector<QString>>(values);
        return Blocking(statement_->session, statement_->handle, 0,
                        [statement = statement_, bound] { return Execute(statement->handle, *bound); });
    }

private:
    static DatabaseResult Execute(SQLHSTMT handle, std::vector<QString>& values) {
        std::vector<SQLLEN> lengths(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            QString& value = values[i];
            const auto bytes = static_cast<SQLLEN>(value.size() * 2);
            lengths[i] = value.isNull() ? SQL_NULL_DATA : bytes;
            const auto units = static_cast<SQLULEN>(std::max<qsizetype>(value.size(), 1));
            const SQLSMALLINT type = units > kShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
            if (!Good(SQLBindParameter(handle, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_WCHAR,
                                       type, units, 0, value.data(), bytes, &lengths[i])))
                return Complaint(SQL_HANDLE_STMT, handle);
        }
        const SQLRETURN code = SQLExecute(handle);
        const DatabaseResult result =
            Good(code) || code == SQL_NO_DATA ? DatabaseResult() : Complaint(SQL_HANDLE_STMT, handle);
        SQLFreeStmt(handle, SQL_CLOSE);
        SQLFreeStmt(handle, SQL_RESET_PARAMS);
        return result;
    }

    std::shared_ptr<Statement> statement_;
    int parameters_;
};

} // namespace

std::unique_ptr<DatabaseStatement> PrepareStatement(const std::shared_ptr<Session>& session,
                                                    const QString& sql, DatabaseResult& result) {
    const auto statement = std::make_shared<Statement>(session);
    const auto count = std::make_shared<SQLSMALLINT>(0);
    result = Blocking(session, statement->handle, kListSeconds, [statement, count, sql] {
        Wide text(sql);
        return Good(SQLPrepareW(statement->handle, text.data(), static_cast<SQLINTEGER>(sql.size()))) &&
                       Good(SQLNumParams(statement->handle, count.get()))
                   ? DatabaseResult()
                   : Complaint(SQL_HANDLE_STMT, statement->handle);
    });
    return result ? std::make_unique<OdbcStatement>(statement, *count) : nullptr;
}

} // namespace services::odbc
