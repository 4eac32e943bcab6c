// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "exchange/RowsXml.h"
#include "platform/services/Databases.h"
#include <QString>

struct Application;

// Rows of a database to a document.
namespace exchange {

struct RowsQuery {
    QString connection, sql;
    QString encoding; ///< named in the document's declaration
    Filling filling = Filling::Elements;
    bool repair = false; ///< names of fields are made valid
    qsizetype most = 0;  ///< rows; 0: all
};

struct MadeRows {
    services::DatabaseResult result;
    bool answered = false;  ///< the statement gave columns; without them there is no text
    bool takenBack = false; ///< whatever it changed
    bool cut = false;       ///< there are more rows than were wanted
    text::LongText text;
    LeftOut leftOut;
    qsizetype noDates = 0; ///< values that should be dates and have no month or day; they are left empty
    QString nameComplaint; ///< on the first name that makes a document which doesn't parse
};

/// Runs the statement and writes its rows. It only reads: what the statement changes is taken back. One that
/// would end the transaction is refused before it runs, and any that may change data where the database has
/// no transactions or doesn't take all back with them. `step` is asked all the time.
MadeRows RowsOf(Application& app, const RowsQuery& query, const edit::WaitStep& step);

} // namespace exchange
