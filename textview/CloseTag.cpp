// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/CloseTag.h"
#include "core/edit/Guard.h"
#include "core/edit/NodePath.h"
#include "core/edit/View.h"
#include "core/model/NodePlaces.h"
#include "textview/TextCommands.h"
#include "textview/TreeText.h"
#include "textview/Undo.h"

namespace textview {

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
    window.app.services.prompts.MsgBox(
        QStringLiteral("This line's position %1 should not be space, carriage returns, line feeds, or tabs.")
            .arg(window.TextInUse().CaretPlace().column - 1));
}

// The tree follows a text that has the end tag. One that the user keeps although it doesn't parse still waits
// to be read.
template <typename PutBack> void ReadWithTag(DocumentWindow& window, qsizetype caret, PutBack putBack) {
    const controls::RichTextBox& pane = window.TextInUse();
    const long number = m_tvXML::GetNodeNumByTextPosition(pane.Long(), caret);
    if (XMLToTree(window, pane.Plain(), number).good()) {
        window.bond.msLastParsedText = pane.Plain();
    } else {
        window.bond.move(BondMove::TextEdited);
        putBack(); // from the fault, which has been told
    }
}

template <typename PutBack> void TakeTagAway(DocumentWindow& window, PutBack putBack) {
    rUndo(window);
    putBack();
}

bool KeepsInvalidText(DocumentWindow& window) {
    return window.app.services.prompts.MsgBox(
               QStringLiteral("The XML is invalid. Please move cursor to end of start tag. "
                              "Do you want to ignor it?"),
               services::Buttons::YesNo, services::Icon::Question) != services::Answer::No;
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

void CloseTag(DocumentWindow& window) {
    edit::Guarded(window, "CloseTag", [&] {
        if (!edit::Shows(window, edit::kTextTab))
            return;
        controls::RichTextBox& pane = window.TextInUse();
        pane.EndMark();
        const qsizetype start = pane.SelStart(), length = pane.SelLength();
        const QString tag = GetCloseTag(window);
        if (tag.isEmpty()) {
            window.app.services.prompts.MsgBox(
                QStringLiteral("Please move cursor to end of current node's start tag."));
            return;
        }
        InsertString(window, tag);
        const auto putBack = [&] {
            pane.SetSelStart(start);
            pane.SetSelLength(length);
        };
        putBack(); // where the text is written anew it stays with its place
        if (Validate(window, true) || KeepsInvalidText(window))
            ReadWithTag(window, start, putBack);
        else
            TakeTagAway(window, putBack);
        edit::ShowCursorPosition(window);
    });
}

} // namespace textview
