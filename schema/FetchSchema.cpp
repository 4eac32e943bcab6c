// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FetchSchema.h"
#include "core/edit/Report.h"

namespace schema {

namespace {

struct FetchedSchemas {
    std::map<QString, QByteArray> bytes; ///< by address
};

FetchedSchemas& Slot(Application& app) {
    return app.rooms.of<FetchedSchemas>();
}

services::HttpAnswer Get(Application& app, const QString& address) {
    app.services.progress.Begin(address);
    services::HttpAnswer answer = app.services.http.Get(
        address, [&app](qint64 done, qint64 total) { return app.services.progress.Step(done, total); });
    app.services.progress.End();
    return answer;
}

} // namespace

const std::map<QString, QByteArray>& FetchedBefore(Application& app) {
    return Slot(app).bytes;
}

std::optional<QByteArray> FetchIfAllowed(Application& app, const QString& address) {
    std::map<QString, QByteArray>& bytes = Slot(app).bytes;
    if (const auto found = bytes.find(address); found != bytes.end())
        return found->second;
    const QString question =
        QStringLiteral("The document refers to a schema at\r\n%1\r\nDo you want to fetch it from the net?");
    if (app.services.prompts.MsgBox(question.arg(address), services::Buttons::YesNo,
                                    services::Icon::Question) != services::Answer::Yes)
        return {};
    const services::HttpAnswer answer = Get(app, address);
    if (answer.ok)
        return bytes[address] = answer.body;
    edit::Message(app, answer.cancelled ? QStringLiteral("%1 was not fetched.").arg(address) : answer.error);
    return {};
}

bool FetchWanted(Application& app, const QStringList& addresses) {
    bool any = false;
    for (const QString& address : addresses)
        any = FetchIfAllowed(app, address).has_value() || any;
    return any;
}

} // namespace schema
