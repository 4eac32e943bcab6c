// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Fetch.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/edit/Waiting.h"
#include "core/model/Application.h"
#include "core/model/FileNames.h"
#include "platform/text/TextTools.h"

namespace edit {

namespace {

using services::Buttons;
using services::FileError;
using services::Icon;

// Parts of the work of opening in which the bar goes on, in thousandths. Filling the tree is the rest.
constexpr int kFetched = 250;
constexpr int kDecoded = 350;
constexpr int kParsed = 750;

// Takes what was decoded. False when the user cancelled. A text that wasn't in the encoding it claims is
// shown all the same, and the user learns how it was read.
bool Take(Application& app, std::shared_ptr<Waiting> fetching, text::Decoded decoded, FetchedText& fetched) {
    fetched.text = std::move(decoded.text);
    fetched.form = std::move(decoded.form);
    const auto step = fetching->Step(kDecoded, kParsed);
    if (!step(0, 1) || !ParseAhead(app, fetched, step)) {
        fetched = {};
        fetched.cancelled = true;
        return false;
    }
    const bool good = fetched.parsed && fetched.parsed->parseError().errorCode == 0;
    if (good && decoded.warning.isEmpty()) {
        fetching->LastStretch();
        fetched.bar = std::move(fetching);
        return true;
    }
    fetching.reset(); // boxes follow
    if (!decoded.warning.isEmpty())
        app.services.prompts.MsgBox(decoded.warning, Buttons::Ok, Icon::Exclamation);
    return true;
}

} // namespace

QString ReadFailureText(const QString& path, const services::FileResult& result) {
    switch (result.error) {
    case FileError::BadName:
        return path + QStringLiteral("is a bad file name.");
    case FileError::NotFound:
        return QStringLiteral("Can not find ") + path;
    default:
        return result.description.contains(path) ? result.description
                                                 : path + QStringLiteral(": ") + result.description;
    }
}

bool GetData(Application& app, const QString& address, FetchedText& fetched) {
    const QString name = mXMLEdit::NameMeant(app, address);
    switch (mXMLEdit::GetAddressType(name)) {
    case 1:
        return GetFileData(app, name, fetched);
    case 2:
        return GetHttpData(app, name, fetched);
    default:
        return true;
    }
}

bool GetFileData(Application& app, const QString& path, FetchedText& fetched) {
    return Guarded(app, QStringLiteral("mXMLEdit.GetFileData"), [&] {
        fetched = {};
        QByteArray bytes;
        auto fetching = std::make_shared<Waiting>(app, path);
        const std::optional<services::FileStamp> stamp = app.services.files.Stamp(path);
        const services::FileResult result = app.services.files.Read(path, bytes, fetching->Step(0, kFetched));
        if (result) {
            if (stamp)
                fetched.mark = {*stamp, services::ContentMark(bytes)};
            text::Decoded decoded = text::Decode(bytes);
            bytes.clear(); // of a large file these are many
            return Take(app, std::move(fetching), std::move(decoded), fetched);
        }
        fetching.reset(); // boxes follow
        switch (result.error) {
        case FileError::BadName:
        case FileError::NotFound:
            app.services.prompts.MsgBox(ReadFailureText(path, result));
            return false;
        case FileError::Cancelled:
            fetched.cancelled = true;
            return false;
        default:
            Message(app, result.description);
            throw text::Fault(70, result.description);
        }
    });
}

bool GetHttpData(Application& app, const QString& url, FetchedText& fetched) {
    return Guarded(app, QStringLiteral("mXMLEdit.GetHttpData"), [&] {
        fetched = {};
        auto fetching = std::make_shared<Waiting>(app, url);
        services::HttpAnswer answer = app.services.http.Get(url, fetching->Step(0, kFetched));
        if (answer.cancelled) {
            fetched.cancelled = true;
            return false;
        }
        if (answer.cannotLocate) {
            Message(app, QStringLiteral("The system cannot locate the resource specified!"));
            return false;
        }
        // The status isn't looked at: what a server sends with an error is shown as it came. Without any
        // status there was no answer.
        if (!answer.ok && answer.status < 400) {
            Message(app, answer.error);
            throw text::Fault(text::kFaultBadCall, answer.error);
        }
        text::Decoded decoded = text::Decode(answer.body, answer.charset);
        answer.body.clear();
        if (decoded.text.holdsOnly(u" ")) {
            fetching.reset();
            app.services.prompts.MsgBox(QStringLiteral("It's not a valid request."));
            return false;
        }
        return Take(app, std::move(fetching), std::move(decoded), fetched);
    });
}

} // namespace edit
