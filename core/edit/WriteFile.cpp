// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/WriteFile.h"
#include "core/edit/JournalRecords.h"
#include "core/model/DocumentWindow.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "platform/text/TextFile.h"
#include "platform/text/TextTools.h"

namespace edit {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

// The label of a declaration that names no encoding, as long as the user doesn't know of it: a file that came
// with such a label was told of on opening, and keeps it. Empty for all others.
QString NewUnknownLabel(const QString& text, const text::FileForm& form) {
    const QString label = text::DeclaredEncoding(text);
    return label == form.declared || text::KnowsEncoding(label) ? QString() : label;
}

// A half of a pair can't be saved in any encoding, so that another one is no way out.
bool RefuseLoneHalf(Application& app, const QString& text, qsizetype position) {
    const QStringView before = QStringView(text).first(position);
    const qsizetype lineStart = before.lastIndexOf(u'\n') + 1;
    TellLoneHalf(app, before.count(u'\n') + 1, position - lineStart + 1);
    return false;
}

// Where the declared encoding is unknown or can't hold a character, the user decides: UTF-8 with a
// declaration that says so, or no writing.
bool EncodeOrAsk(Application& app, QString& text, text::FileForm& form, text::Encoded& encoded) {
    const QString unknown = NewUnknownLabel(text, form);
    encoded = text::Encode(text, form);
    if (encoded.badPosition >= 0 && text::IsLoneHalf(text, encoded.badPosition))
        return RefuseLoneHalf(app, text, encoded.badPosition);
    if (unknown.isEmpty() && encoded.badPosition < 0)
        return true;
    const QString reason = unknown.isEmpty()
                               ? QStringLiteral("The encoding %1 can not hold the character at position %2.")
                                     .arg(encoded.encoding)
                                     .arg(encoded.badPosition + 1)
                               : QStringLiteral("The encoding %1 is not known.").arg(unknown);
    if (app.services.prompts.MsgBox(reason + QStringLiteral(" Do you want to save as UTF-8?"), Buttons::YesNo,
                                    Icon::Question) != Answer::Yes)
        return false;
    text = text::WithDeclaredEncoding(text, QStringLiteral("UTF-8"));
    form.encoding = QStringLiteral("UTF-8");
    form.mark = false;
    form.declared = text::DeclaredEncoding(text);
    encoded = text::Encode(text, form);
    return encoded.badPosition < 0 || RefuseLoneHalf(app, text, encoded.badPosition);
}

// A text that is again the one that the file was opened with is written as it was.
text::FileForm FormFor(const QString& text, const text::FileForm& now) {
    if (!now.opened || !(now.openedText == text))
        return now;
    text::FileForm form = *now.opened;
    form.opened = now.opened;
    return form;
}

// After writing, the window's knowledge of its file is that of the bytes now on disk.
void Remember(const QString& text, const text::Encoded& encoded, text::FileForm& form) {
    form.encoding = encoded.encoding;
    form.mark = encoded.mark;
    form.declared = text::DeclaredEncoding(text);
    if (!form.lineEnds.each.empty())
        form.lineEnds = LineEndsFor(text::LongText::Like(text, form.lineEnds.loadedText), form.lineEnds);
}

} // namespace

bool DeleteFileIfExists(Application& app, const QString& path) {
    return !path.isEmpty() && app.services.files.Delete(path);
}

bool IsOpenElsewhere(const DocumentWindow& window, const QString& name) {
    const DocumentWindow* owner = window.app.frame().FormNamed(name);
    if (!owner || owner == &window)
        return false;
    window.app.services.prompts.MsgBox(name + QStringLiteral("\r\nis open in another window."), Buttons::Ok,
                                       Icon::Exclamation);
    return true;
}

bool MayReplace(Application& app, const QString& name) {
    return app.services.prompts.MsgBox(name + QStringLiteral(" already exists. Do you want to replace it?"),
                                       Buttons::YesNo, Icon::None,
                                       QStringLiteral("Save file ...")) == Answer::Yes;
}

void TellLoneHalf(Application& app, qsizetype line, qsizetype position) {
    app.services.prompts.MsgBox(
        QStringLiteral(
            "The character at line %1, position %2 is half of a pair and can not be saved. Nothing "
            "was written.")
            .arg(line)
            .arg(position),
        Buttons::Ok, Icon::Exclamation);
}

// Where it isn't a matter of rights, the attributes would be the wrong place to look.
void TellRefused(Application& app, const services::FileResult& result) {
    const bool rights =
        result.error == services::FileError::Permission || result.error == services::FileError::ReadOnly;
    app.services.prompts.MsgBox(
        rights ? result.description + QStringLiteral("\r\nPlease check file attributes (Read-only, etc).")
               : result.description,
        Buttons::Ok, Icon::Exclamation);
}

SaveOutcome WriteText(Application& app, QString& text, const QString& fileName, text::FileForm* form,
                      services::FileMark* mark) try {
    text::FileForm plain;
    plain.declared = QString(); // a text without a file goes by its own declaration
    text::FileForm attempt = form ? FormFor(text, *form) : plain;
    text::Encoded encoded;
    QString changed = text;
    if (!EncodeOrAsk(app, changed, attempt, encoded))
        return SaveOutcome::Declined;
    const QString target = fileName.isEmpty() ? QStringLiteral("tmp.$$$") : fileName;
    services::FileStamp made;
    const services::FileResult result = app.services.files.Replace(target, encoded.bytes, &made);
    if (!result) {
        TellRefused(app, result); // silence never is an answer: the window counts as saved from here on
        return SaveOutcome::Refused;
    }
    text = changed;
    if (form && !attempt.opened)
        attempt.opened = std::make_shared<const text::FileForm>(*form);
    Remember(text, encoded, attempt);
    if (form)
        *form = attempt;
    if (mark)
        *mark = {made, services::ContentMark(encoded.bytes)};
    return SaveOutcome::Written;
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit@SaveStringToFile"));
    return SaveOutcome::Refused;
}

bool SaveStringToFile(Application& app, QString& text, const QString& fileName, text::FileForm* form) {
    return WriteText(app, text, fileName, form) == SaveOutcome::Written;
}

QString CopyFileTitle() {
    return QStringLiteral("Copy file ...");
}

bool MayReplaceByCopy(Application& app, const QString& name) {
    return app.services.prompts.MsgBox(name + QStringLiteral(" already exists. Do you want to replace it?"),
                                       Buttons::YesNo, Icon::Question, CopyFileTitle()) == Answer::Yes;
}

bool CopyFileTo(Application& app, const QString& source, const QString& target,
                services::FileResult* failure) try {
    QString name = target;
    if (name.endsWith(u'\\') || name.endsWith(u'/'))
        name += mXMLEdit::GetFSFileName(source);
    if (mXMLEdit::IsSameFile(app, name, source))
        return true; // a file copied on itself is there already
    if (mXMLEdit::FileExist(app, name) && !MayReplaceByCopy(app, name))
        return false;
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

} // namespace edit
