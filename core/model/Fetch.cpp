// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DocumentWindow.h"
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "platform/text/TextTools.h"

// What stands behind a name: a file's or an address's text.
namespace mXMLEdit {

namespace {

using services::Buttons;
using services::FileError;
using services::Icon;

// Shows a bar while something is fetched; the bar appears by itself once it takes long.
class Fetching {
public:
    Fetching(Application& app, const QString& what) : progress_(app.services.progress) {
        progress_.Begin(what);
    }
    ~Fetching() { progress_.End(); }
    Fetching(const Fetching&) = delete;
    Fetching& operator=(const Fetching&) = delete;
    std::function<bool(qint64, qint64)> step() {
        return [this](qint64 done, qint64 total) { return progress_.Step(done, total); };
    }

private:
    services::Progress& progress_;
};

// A text that wasn't in the code it claims is shown all the same, and the user learns how it was read.
void Take(Application& app, text::Decoded decoded, FetchedText& fetched) {
    fetched.text = std::move(decoded.text);
    fetched.form = std::move(decoded.form);
    if (!decoded.warning.isEmpty())
        app.services.prompts.MsgBox(decoded.warning, Buttons::Ok, Icon::Exclamation);
}

} // namespace

bool GetData(Application& app, const QString& address, FetchedText& fetched) {
    switch (GetAddressType(address)) {
    case 1:
        return GetFileData(app, text::Trim(address), fetched);
    case 2:
        return GetHttpData(app, text::Trim(address), fetched);
    default:
        return true;
    }
}

bool GetFileData(Application& app, const QString& path, FetchedText& fetched) try {
    fetched = {};
    QByteArray bytes;
    services::FileResult result;
    {
        Fetching fetching(app, path);
        result = app.services.files.Read(path, bytes, fetching.step());
    }
    switch (result.error) {
    case FileError::None:
        Take(app, text::Decode(bytes), fetched);
        return true;
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
        throw text::Fault(70, result.description);
    }
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit.GetFileData"));
    return false;
}

bool GetHttpData(Application& app, const QString& url, FetchedText& fetched) try {
    fetched = {};
    services::HttpAnswer answer;
    {
        Fetching fetching(app, url);
        answer = app.services.http.Get(url, fetching.step());
    }
    if (answer.cancelled) {
        fetched.cancelled = true;
        return false;
    }
    if (answer.cannotLocate) {
        if (app.frame)
            app.frame->StatusBar1().SetPanel(
                1, QStringLiteral("The system cannot locate the resource specified!"));
        return false;
    }
    // The status isn't looked at: what a server sends with an error is shown as it came. Without any status
    // there was no answer.
    if (!answer.ok && answer.status < 400)
        throw text::Fault(text::kFaultBadCall, answer.error);
    text::Decoded decoded = text::Decode(answer.body, answer.charset);
    if (text::Trim(decoded.text).isEmpty()) {
        app.services.prompts.MsgBox(QStringLiteral("It's not a valid request."));
        return false;
    }
    Take(app, std::move(decoded), fetched);
    return true;
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit.GetHttpData"));
    return false;
}

} // namespace mXMLEdit
