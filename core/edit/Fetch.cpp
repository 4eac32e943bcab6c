// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Fetch.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/model/Application.h"
#include "core/model/FileNames.h"
#include "platform/text/TextTools.h"

namespace edit {

namespace {

using services::Buttons;
using services::FileError;
using services::Icon;

// Parts of the work of opening in which the bar goes on, in thousandths. Filling the tree is the rest.
constexpr qint64 kFetched = 250;
constexpr qint64 kDecoded = 350;
constexpr qint64 kParsed = 750;
constexpr qint64 kWhole = 1000;

// A bar that appears by itself once fetching takes long.
class Fetching {
public:
    Fetching(Application& app, const QString& what) : progress_(app.services.progress) {
        progress_.Begin(what);
    }
    ~Fetching() { progress_.End(); }
    Fetching(const Fetching&) = delete;
    Fetching& operator=(const Fetching&) = delete;
    // Steps of a part of the work; false when the user cancelled.
    std::function<bool(qint64, qint64)> step(qint64 from, qint64 to) {
        return [this, from, to](qint64 done, qint64 total) {
            return total > 0 ? progress_.Step(from + (to - from) * done / total, kWhole)
                             : progress_.Step(done, 0);
        };
    }
    void lastStretch() { progress_.LastStretch(); }

private:
    services::Progress& progress_;
};

// Parses while there is still a document to go back to: from here on the window takes the text and can't be
// stopped half-way. False when the user cancelled.
bool ParseAhead(Application& app, Fetching& fetching, FetchedText& fetched) {
    if (fetched.text.holdsOnly(u" "))
        return true;
    ++app.work.parses;
    auto parsed = std::make_shared<xml::ParsedDocument>();
    parsed->loadXML(fetched.text, {}, fetching.step(kDecoded, kParsed), xml::Prefixes::Declared);
    if (parsed->wasStopped())
        return false;
    fetched.parsed = std::move(parsed);
    return true;
}

// Takes what was decoded. False when the user cancelled. A text that wasn't in the encoding it claims is
// shown all the same, and the user learns how it was read.
bool Take(Application& app, std::shared_ptr<Fetching> fetching, text::Decoded decoded, FetchedText& fetched) {
    fetched.text = std::move(decoded.text);
    fetched.form = std::move(decoded.form);
    const auto step = fetching->step(kDecoded, kParsed);
    if (!step(0, 1) || !ParseAhead(app, *fetching, fetched)) {
        fetched = {};
        fetched.cancelled = true;
        return false;
    }
    const bool good = fetched.parsed && fetched.parsed->parseError().errorCode == 0;
    if (good && decoded.warning.isEmpty()) {
        fetching->lastStretch();
        fetched.bar = std::move(fetching);
        return true;
    }
    fetching.reset(); // boxes follow
    if (!decoded.warning.isEmpty())
        app.services.prompts.MsgBox(decoded.warning, Buttons::Ok, Icon::Exclamation);
    return true;
}

} // namespace

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
        auto fetching = std::make_shared<Fetching>(app, path);
        const std::optional<services::FileStamp> stamp = app.services.files.Stamp(path);
        const services::FileResult result = app.services.files.Read(path, bytes, fetching->step(0, kFetched));
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
            app.services.prompts.MsgBox(path + QStringLiteral("is a bad file name."));
            return false;
        case FileError::NotFound:
            app.services.prompts.MsgBox(QStringLiteral("Can not find ") + path);
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
        auto fetching = std::make_shared<Fetching>(app, url);
        services::HttpAnswer answer = app.services.http.Get(url, fetching->step(0, kFetched));
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
