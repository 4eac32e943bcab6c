// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/Serialise.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "textview/Indent.h"
#include "textview/TextCommands.h"
#include "textview/Undo.h"

namespace {

bool EndsName(QChar c) {
    return c == u' ' || c == u'>' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool IsSpace(QChar c) {
    return EndsName(c) && c != u'>';
}

// Behind the ">" of a tag that begins at `tag`, passing over quoted values; the text's end for a tag that
// isn't closed.
qsizetype BehindTag(QStringView text, qsizetype tag) {
    QChar quote;
    for (qsizetype at = tag; at < text.size(); ++at) {
        const QChar c = text[at];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else if (c == u'>')
            return at + 1;
    }
    return text.size();
}

qsizetype Behind(QStringView text, qsizetype from, QStringView what) {
    const qsizetype found = text.indexOf(what, from);
    return found < 0 ? text.size() : found + what.size();
}

// Behind a comment, a CDATA section or an instruction that begins at `at`; -1 for anything else.
qsizetype BehindOtherMarkup(QStringView text, qsizetype at) {
    const QStringView rest = text.sliced(at);
    if (rest.startsWith(u"<!--"))
        return Behind(text, at + 4, u"-->");
    if (rest.startsWith(u"<![CDATA["))
        return Behind(text, at, u"]]>");
    if (rest.startsWith(u"<?"))
        return Behind(text, at, u"?>");
    if (rest.startsWith(u"<!"))
        return BehindTag(text, at);
    return -1;
}

QStringView NameAt(QStringView text, qsizetype at) {
    qsizetype end = at;
    while (end < text.size() && !EndsName(text[end]))
        ++end;
    return text.sliced(at, end - at);
}

// Names of the elements that are open at the end of a text, the innermost last. False when there is an end
// tag without a start tag.
bool OpenElements(QStringView text, std::vector<QStringView>& open) {
    qsizetype at = text.indexOf(u'<');
    while (at >= 0) {
        qsizetype behind = BehindOtherMarkup(text, at);
        if (behind < 0) {
            behind = BehindTag(text, at);
            const bool endTag = at + 1 < text.size() && text[at + 1] == u'/';
            const bool empty = !endTag && text.sliced(at, behind - at).endsWith(u"/>");
            if (endTag && open.empty())
                return false;
            if (endTag)
                open.pop_back();
            else if (!empty)
                open.push_back(NameAt(text, at + 1));
        }
        at = text.indexOf(u'<', behind);
    }
    return true;
}

// The place of the character before the caret.
void TellPlace(DocumentWindow& window) {
    qsizetype line = 0, column = 0;
    GetLineColumn(window.TextInUse(), line, column);
    window.app.services.prompts.MsgBox(
        QStringLiteral("This line's position %1 should not be space, carriage returns, line feeds, or tabs.")
            .arg(column - 1));
}

} // namespace

QString GetCloseTag(DocumentWindow& window) {
    const controls::RichTextBox& pane = window.TextInUse();
    const QString before = pane.Long().mid(0, pane.SelStart());
    if (!before.isEmpty() && IsSpace(before.back())) {
        TellPlace(window);
        return {};
    }
    std::vector<QStringView> open;
    if (!OpenElements(before, open)) {
        window.app.services.prompts.MsgBox(QStringLiteral("This is too complex."));
        return {};
    }
    if (open.empty())
        return {};
    if (open.back().isEmpty()) {
        TellPlace(window);
        return {};
    }
    return QStringLiteral("</%1>").arg(open.back());
}

void CloseTag(DocumentWindow& window) try {
    using services::Answer;
    if (window.tbsXML.SelectedKey() != QStringLiteral("textview"))
        return;
    services::Prompts& prompts = window.app.services.prompts;
    controls::RichTextBox& pane = window.TextInUse();
    const qsizetype start = pane.SelStart(), length = pane.SelLength();
    const QString tag = GetCloseTag(window);
    if (tag.isEmpty()) {
        prompts.MsgBox(QStringLiteral("Please move cursor to end of current node's start tag."));
        return;
    }
    InsertString(window, tag);
    bool valid = false;
    Validate(window, true, valid);
    const QString question = QStringLiteral("The XML is invalid. Please move cursor to end of start tag. "
                                            "Do you want to ignor it?");
    if (!valid &&
        prompts.MsgBox(question, services::Buttons::YesNo, services::Icon::Question) == Answer::No) {
        rUndo(window);
    } else {
        const long number = m_tvXML::GetNodeNumByTextPosition(pane.Long(), start);
        if (XMLToTree(window, pane.Long(), number).document) {
            window.bTextChanged = false;
            window.msLastParsedText = pane.Long();
        }
    }
    pane.SetSelStart(start);
    pane.SetSelLength(length);
    if (window.app.frame) // the tree may have another current node now
        ShowNodePath(window, window.app.frame->StatusBar1());
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".CloseTag"));
}
