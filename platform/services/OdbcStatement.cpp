// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Odbc.h"
#include <algorithm>

namespace services::odbc {

namespace {

constexpr SQLULEN kShortText = 4000; // units; drivers take longer ones as a type of their own

struct Parameter {
    SQLSMALLINT type = SQL_WVARCHAR; ///< of the column that it goes into, where the driver tells
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
};

bool IsText(SQLSMALLINT type) {
    constexpr SQLSMALLINT kTexts[] = {SQL_CHAR,  SQL_VARCHAR,  SQL_LONGVARCHAR,
                                      SQL_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR};
    return std::find(std::begin(kTexts), std::end(kTexts), type) != std::end(kTexts);
}

std::vector<Parameter> Describe(const Session& session, SQLHSTMT handle) {
    SQLSMALLINT count = 0;
    SQLNumParams(handle, &count);
    std::vector<Parameter> parameters(static_cast<std::size_t>(std::max<SQLSMALLINT>(count, 0)));
    if (session.sqlite) // takes any value anywhere
        return parameters;
    SQLUSMALLINT number = 0;
    for (Parameter& parameter : parameters) {
        Parameter told;
        SQLSMALLINT nullable = 0;
        if (Good(SQLDescribeParam(handle, ++number, &told.type, &told.size, &told.digits, &nullable)))
            parameter = told;
    }
    return parameters;
}

SQLRETURN Bind(SQLHSTMT handle, SQLUSMALLINT number, Parameter parameter, QString& value, SQLLEN& length) {
    const auto bytes = static_cast<SQLLEN>(value.size() * 2);
    length = value.isNull() ? SQL_NULL_DATA : bytes;
    if (IsText(parameter.type)) {
        parameter.size = static_cast<SQLULEN>(std::max<qsizetype>(value.size(), 1));
        parameter.type = parameter.size > kShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
    } else if (parameter.type == SQL_TYPE_TIMESTAMP) {
        value.replace(u'T', u' ');
    }
    return SQLBindParameter(handle, number, SQL_PARAM_INPUT, SQL_C_WCHAR, parameter.type, parameter.size,
                            parameter.digits, value.data(), bytes, &length);
}

class OdbcStatement : public DatabaseStatement {
public:
    OdbcStatement(std::shared_ptr<Statement> statement, std::vector<Parameter> parameters)
        : statement_(std::move(statement)), parameters_(std::move(parameters)) {}

    int Parameters() const override { return static_cast<int>(parameters_.size()); }

    DatabaseResult Run(const std::vector<QString>& values) override {
        return Blocking(statement_->session, statement_, statement_->session->times.statement,
                        [statement = statement_, parameters = parameters_,
                         bound = std::vector<QString>(values)]() mutable {
                            return Execute(statement->handle, parameters, bound);
                        });
    }

private:
    static DatabaseResult Execute(SQLHSTMT handle, const std::vector<Parameter>& parameters,
                                  std::vector<QString>& values) {
        std::vector<SQLLEN> lengths(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!Good(Bind(handle, static_cast<SQLUSMALLINT>(i + 1), parameters[i], values[i], lengths[i])))
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
    std::vector<Parameter> parameters_;
};

} // namespace

std::unique_ptr<DatabaseStatement> PrepareStatement(const std::shared_ptr<Session>& session,
                                                    const QString& sql, DatabaseResult& result) {
    const auto statement = std::make_shared<Statement>(session);
    const auto parameters = std::make_shared<std::vector<Parameter>>();
    result = Blocking(session, statement, session->times.statement, [statement, parameters, sql] {
        Wide text(sql);
        if (!Good(SQLPrepareW(statement->handle, text.data(), static_cast<SQLINTEGER>(sql.size()))))
            return Complaint(SQL_HANDLE_STMT, statement->handle);
        *parameters = Describe(*statement->session, statement->handle);
        return DatabaseResult();
    });
    return result ? std::make_unique<OdbcStatement>(statement, *parameters) : nullptr;
}

} // namespace services::odbc
