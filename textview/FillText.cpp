// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/FillText.h"
#include "platform/text/TextTools.h"
#include "textview/Colour.h"
#include "textview/ColourRtf.h"
#include "textview/TextState.h"
#include <QScopedValueRollback>
#include <algorithm>
#include <tuple>

namespace textview {

namespace {

controls::RichTextBox& OtherPane(DocumentWindow& window) {
    return window.brtxtXML2Focus ? window.rtxtXML : window.rtxtXML2;
}

// Where blanks stand in `shown` that aren't in `plain`.
std::vector<qsizetype> BlanksPutIn(const QString& plain, const QString& shown) {
    std::vector<qsizetype> blanks;
    const QChar* rest = plain.cbegin();
    for (const QChar* at = shown.cbegin(); at != shown.cend(); ++at) {
        std::tie(rest, at) = std::mismatch(rest, plain.cend(), at, shown.cend());
        if (at == shown.cend())
            break;
        blanks.push_back(at - shown.cbegin());
    }
    return blanks;
}

} // namespace

PaneSelections::PaneSelections(DocumentWindow& window)
    : first_{window.rtxtXML, window.rtxtXML.SelStart(), window.rtxtXML.SelLength()},
      second_{window.rtxtXML2, window.rtxtXML2.SelStart(), window.rtxtXML2.SelLength()} {}

void PaneSelections::restore() const {
    for (const Selection& one : {first_, second_}) {
        one.pane.SetSelStart(one.start);
        one.pane.SetSelLength(one.length);
    }
}

void BringPanesTogether(DocumentWindow& window) {
    if (OtherPane(window).Long() == window.TextInUse().Long())
        return;
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    OtherPane(window).SetContent(window.TextInUse().Content());
}

void SetRichText(DocumentWindow& window, const QString& text) {
    SetRichText(window, text::LongText(text::ToCrLf(text)));
}

void SetRichText(DocumentWindow& window, const text::LongText& text) {
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    window.TextInUse().SetText(text);
    StateOf(window).miTextSizeLevel = GetTextSizeLevel(text.size());
    SetTreeXMLColor(window);
}

// The blanks that colouring shows behind the openers of comments are no part of the document.
void SetTreeXMLColor(DocumentWindow& window) {
    controls::RichTextBox& pane = window.TextInUse();
    const text::LongText plain = pane.Plain();
    std::vector<qsizetype> fillers = pane.Fillers();
    setRichTextXMLColor(window.app, pane, StateOf(window).miTextSizeLevel);
    if (StateOf(window).miTextSizeLevel < kNoColours)
        fillers = pane.Long().size() == plain.size() ? std::vector<qsizetype>()
                                                     : BlanksPutIn(plain.toString(), pane.Text());
    pane.SetFillers(std::move(fillers));
    OtherPane(window).SetContent(pane.Content());
}

void TakeColours(controls::RichTextBox& pane, const controls::RichTextBox& from) {
    if (pane.Runs() != from.Runs())
        pane.SetColours(0, pane.Long().size(), from.Runs());
    pane.SetFillers(from.Fillers());
}

// Coloured aside: in the pane each character would be selected for a moment, and be shown.
std::vector<controls::ColourRun> InsertedColours(Application& app, const QString& text,
                                                 std::uint32_t around) {
    // The colour of what stands before it says nothing about very many characters.
    if (text.size() > kLongestColoured)
        return {};
    controls::RichTextBox aside;
    aside.SetContent({text::LongText(text), {{0, around}}});
    aside.SetSelLength(text.size());
    SetSeltextColor(app, aside);
    return aside.Runs();
}

std::uint32_t ColourAround(const controls::RichTextBox& pane, qsizetype place, qsizetype behind) {
    return pane.ColourAt(place > 0 ? place - 1 : behind);
}

void ColourInserted(DocumentWindow& window, controls::RichTextBox& pane, qsizetype start, qsizetype length) {
    // No more of a long one than tells that it is too long.
    const QString text = pane.Long().mid(start, std::min(length, kLongestColoured + 1));
    const std::uint32_t around = ColourAround(pane, start, start + length);
    pane.SetColours(start, length, InsertedColours(window.app, text, around));
    controls::RichTextBox& other = &pane == &window.rtxtXML ? window.rtxtXML2 : window.rtxtXML;
    if (other.Long() == pane.Long())
        TakeColours(other, pane);
}

int GetTextSizeLevel(qsizetype length) {
    if (length > 81920 && length < 163840)
        return 1;
    if (length > 163840 && length < 409600)
        return 2;
    if (length > 409600)
        return 3;
    return 0;
}

} // namespace textview
