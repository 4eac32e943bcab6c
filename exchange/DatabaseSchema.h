// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "platform/services/Databases.h"
#include <QString>

struct Application;

// The tables of a database as an XML Schema.
namespace exchange {

struct SchemaOptions {
    bool attributes = false; ///< columns become attributes, else elements
    /// Names are made valid and lengths written without a blank; keys are declared on a root element "data".
    bool repair = false;
};

/// A line or more for a column; empty for a type that has no form. A type that isn't known is reported.
QString GetADOXColSchemaString(Application& app, const services::DatabaseColumn& column,
                               const QString& indent, const SchemaOptions& options);

struct MadeSchema {
    services::DatabaseResult result; ///< the first failure; the text has what could be read all the same
    QString text;
    QString complaint; ///< what makes it no valid schema; empty where all is well
};
/// The schema of all tables, views and system tables left out. `step` is told of tables.
MadeSchema SchemaOf(Application& app, services::Database& database, const SchemaOptions& options,
                    const edit::WaitStep& step);

} // namespace exchange
