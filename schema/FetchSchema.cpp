// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FetchSchema.h"
#include "core/edit/Report.h"
#include <algorithm>
#include <iterator>

namespace schema {

namespace {

bool Allows(Application& app, const QString& question) {
    return app.services.prompts.MsgBox(question, services::Buttons::YesNo, services::Icon::Question) ==
           services::Answer::Yes;
}

services::HttpAnswer GetFrom(Application& app, const QString& address) {
    app.services.progress.Begin(address);
    services::HttpAnswer answer = app.services.http.Get(
        address, [&app](qint64 done, qint64 total) { return app.services.progress.Step(done, total); },
        services::Redirects::WithinHost);
    app.services.progress.End();
    return answer;
}

} // namespace

std::optional<QByteArray> SchemaFetch::Fetch(const QString& address) {
    return MayFetch({address}) ? Get(address) : std::nullopt;
}

// Another host that it has moved to learns of the document, too: the user is asked about that as well.
std::optional<QByteArray> SchemaFetch::Get(const QString& address) {
    QString at = address;
    while (tried_.insert(at).second) {
        const services::HttpAnswer answer = GetFrom(app_, at);
        if (answer.ok)
            return Keep({address, at, answer.address}, {answer.address, answer.body, {}});
        stopped_ = answer.cancelled;
        if (answer.movedTo.isEmpty()) {
            const QString why =
                answer.cancelled ? QStringLiteral("%1 was not fetched.").arg(at) : answer.error;
            found_.insert_or_assign(address, services::FetchedSchema{{}, {}, why});
            edit::Message(app_, why);
            return {};
        }
        if (!tried_.contains(answer.movedTo) && !MayFollow(at, answer.movedTo))
            return {};
        at = answer.movedTo;
    }
    const auto known = found_.find(at); // where it has moved to an address that was fetched before
    return known == found_.end() || !known->second.complaint.isEmpty()
               ? std::nullopt
               : std::optional(Keep({address}, known->second));
}

bool SchemaFetch::MayFetch(const QStringList& addresses) {
    const QString question =
        addresses.size() == 1
            ? QStringLiteral(
                  "The document refers to a schema at\r\n%1\r\nDo you want to fetch it from the net?")
            : QStringLiteral(
                  "The document refers to schemas at\r\n%1\r\nDo you want to fetch them from the net?");
    stopped_ = !Allows(app_, question.arg(addresses.join(QStringLiteral("\r\n"))));
    return !stopped_;
}

bool SchemaFetch::MayFollow(const QString& from, const QString& to) {
    stopped_ = !Allows(app_, QStringLiteral("The schema at\r\n%1\r\nhas moved to\r\n%2\r\nDo you want to "
                                            "fetch it from there?")
                                 .arg(from, to));
    return !stopped_;
}

QByteArray SchemaFetch::Keep(const QStringList& addresses, const services::FetchedSchema& found) {
    for (const QString& address : addresses) {
        tried_.insert(address);
        found_.insert_or_assign(address, found);
    }
    return found.bytes;
}

bool SchemaFetch::FetchAll(const QStringList& addresses) {
    constexpr qsizetype kNamed = 20; // addresses in one question
    QStringList left;
    std::copy_if(addresses.begin(), addresses.end(), std::back_inserter(left),
                 [this](const QString& address) { return !tried_.contains(address); });
    bool any = false;
    while (!left.isEmpty() && !stopped_) {
        const QStringList some = left.mid(0, kNamed);
        left = left.mid(kNamed);
        if (!MayFetch(some))
            break;
        for (const QString& address : some) {
            if (!stopped_)
                Get(address);
            any = any || found_.contains(address);
        }
    }
    return any;
}

} // namespace schema
