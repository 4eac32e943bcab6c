// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FetchSchema.h"
#include "core/edit/Report.h"

namespace schema {

namespace {

bool Allows(Application& app, const QString& question) {
    return app.services.prompts.MsgBox(question, services::Buttons::YesNo, services::Icon::Question) ==
           services::Answer::Yes;
}

services::HttpAnswer Get(Application& app, const QString& address) {
    app.services.progress.Begin(address);
    services::HttpAnswer answer = app.services.http.Get(
        address, [&app](qint64 done, qint64 total) { return app.services.progress.Step(done, total); },
        services::Redirects::WithinHost);
    app.services.progress.End();
    return answer;
}

} // namespace

// Another host that it has moved to learns of the document, too: the user is asked about that as well.
std::optional<QByteArray> SchemaFetch::Fetch(const QString& address) {
    QString at = address;
    QString question =
        QStringLiteral("The document refers to a schema at\r\n%1\r\nDo you want to fetch it from the net?")
            .arg(address);
    while (tried_.insert(at).second && Allows(app_, question)) {
        const services::HttpAnswer answer = Get(app_, at);
        if (answer.ok)
            return Keep({address, at, answer.address}, {answer.address, answer.body});
        if (answer.movedTo.isEmpty()) {
            edit::Message(app_,
                          answer.cancelled ? QStringLiteral("%1 was not fetched.").arg(at) : answer.error);
            return {};
        }
        question = QStringLiteral("The schema at\r\n%1\r\nhas moved to\r\n%2\r\nDo you want to fetch it from "
                                  "there?")
                       .arg(at, answer.movedTo);
        at = answer.movedTo;
    }
    const auto known = found_.find(at); // where it has moved to an address that was fetched before
    return known == found_.end() ? std::nullopt : std::optional(Keep({address}, known->second));
}

QByteArray SchemaFetch::Keep(const QStringList& addresses, const services::FetchedSchema& found) {
    for (const QString& address : addresses) {
        tried_.insert(address);
        found_.insert_or_assign(address, found);
    }
    return found.bytes;
}

bool SchemaFetch::FetchAll(const QStringList& addresses) {
    bool any = false;
    for (const QString& address : addresses)
        any = (!tried_.contains(address) && Fetch(address)) || any;
    return any;
}

} // namespace schema
