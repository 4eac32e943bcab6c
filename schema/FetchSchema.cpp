// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FetchSchema.h"
#include "core/edit/Report.h"

namespace schema {

namespace {

bool Allows(Application& app, const QString& address) {
    const QString question =
        QStringLiteral("The document refers to a schema at\r\n%1\r\nDo you want to fetch it from the net?");
    return app.services.prompts.MsgBox(question.arg(address), services::Buttons::YesNo,
                                       services::Icon::Question) == services::Answer::Yes;
}

services::HttpAnswer Get(Application& app, const QString& address) {
    app.services.progress.Begin(address);
    services::HttpAnswer answer = app.services.http.Get(
        address, [&app](qint64 done, qint64 total) { return app.services.progress.Step(done, total); });
    app.services.progress.End();
    return answer;
}

} // namespace

std::optional<QByteArray> SchemaFetch::Fetch(const QString& address) {
    if (!tried_.insert(address).second || !Allows(app_, address))
        return {};
    const services::HttpAnswer answer = Get(app_, address);
    if (answer.ok)
        return bytes_[address] = answer.body;
    edit::Message(app_, answer.cancelled ? QStringLiteral("%1 was not fetched.").arg(address) : answer.error);
    return {};
}

bool SchemaFetch::FetchAll(const QStringList& addresses) {
    bool any = false;
    for (const QString& address : addresses)
        any = Fetch(address).has_value() || any;
    return any;
}

} // namespace schema
