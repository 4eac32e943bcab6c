// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/mXMLEdit.h"
#include "platform/text/TextFile.h"

// Text to file, and what else is done to files.
namespace mXMLEdit {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

// Where the code can't hold a character, the user decides: UTF-8 with a declaration that says so, or no
// writing.
bool EncodeOrAsk(Application& app, QString& text, text::FileForm& form, text::Encoded& encoded) {
    encoded = text::Encode(text, form);
    if (encoded.badPosition < 0)
        return true;
    const QString question =
        QStringLiteral(
            "The encoding %1 can not hold the character at position %2. Do you want to save as UTF-8?")
            .arg(encoded.encoding)
            .arg(encoded.badPosition + 1);
    if (app.services.prompts.MsgBox(question, Buttons::YesNo, Icon::Question) != Answer::Yes)
        return false;
    text = text::WithDeclaredEncoding(text, QStringLiteral("UTF-8"));
    form.encoding = QStringLiteral("UTF-8");
    form.mark = false;
    form.declared = text::DeclaredEncoding(text);
    encoded = text::Encode(text, form);
    if (encoded.badPosition < 0)
        return true;
    app.services.prompts.MsgBox(
        QStringLiteral("The character at position %1 is half of a pair and can not be saved.")
            .arg(encoded.badPosition + 1),
        Buttons::Ok, Icon::Exclamation);
    return false;
}

// After writing, the window's knowledge of its file is that of the bytes now on disk.
void Remember(const QString& text, const text::Encoded& encoded, text::FileForm& form) {
    if (!form.lineEnds.each.empty() || form.originalBytes) {
        form = text::Decode(encoded.bytes).form;
        return;
    }
    form.encoding = encoded.encoding;
    form.mark = encoded.mark;
    form.declared = text::DeclaredEncoding(text);
}

} // namespace

bool FileExist(Application& app, const QString& path) {
    return app.services.files.Exists(path);
}

bool DeleteFileIfExists(Application& app, const QString& path) {
    return !path.isEmpty() && app.services.files.Delete(path);
}

SaveOutcome WriteText(Application& app, QString& text, const QString& fileName, text::FileForm* form) try {
    text::FileForm plain;
    plain.declared = QString(); // a text without a file goes by its own declaration
    text::FileForm attempt = form ? *form : plain;
    text::Encoded encoded;
    QString changed = text;
    if (!EncodeOrAsk(app, changed, attempt, encoded))
        return SaveOutcome::Declined;
    const QString target = fileName.isEmpty() ? QStringLiteral("tmp.$$$") : fileName;
    const services::FileResult result = app.services.files.Replace(target, encoded.bytes);
    if (!result) {
        app.services.prompts.MsgBox(result.description +
                                        QStringLiteral("\r\nPlease check file attributes (Read-only, etc)."),
                                    Buttons::Ok, Icon::Exclamation);
        return SaveOutcome::Refused;
    }
    text = changed;
    Remember(text, encoded, attempt);
    if (form)
        *form = attempt;
    return SaveOutcome::Written;
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit@SaveStringToFile"));
    return SaveOutcome::Refused;
}

bool SaveStringToFile(Application& app, QString& text, const QString& fileName, text::FileForm* form) {
    return WriteText(app, text, fileName, form) == SaveOutcome::Written;
}

bool CopyFileTo(Application& app, const QString& source, const QString& target,
                services::FileResult* failure) try {
    QString name = target;
    if (name.endsWith(u'\\') || name.endsWith(u'/'))
        name += GetFSFileName(source);
    if (name == source)
        return true; // a file copied on itself is there already
    if (FileExist(app, name)) {
        const QString question = name + QStringLiteral(" already exists. Do you want to replace it?");
        if (app.services.prompts.MsgBox(question, Buttons::YesNo, Icon::None,
                                        QStringLiteral("Copy file ...")) != Answer::Yes)
            return false;
    }
    const services::FileResult result = app.services.files.Copy(source, name);
    if (!result && !failure)
        throw text::Fault(75, result.description);
    if (failure)
        *failure = result;
    return static_cast<bool>(result);
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit@CopyFileTo"));
    return false;
}

} // namespace mXMLEdit
