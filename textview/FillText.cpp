// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/FillText.h"
#include "platform/text/TextTools.h"
#include "textview/Colour.h"
#include "textview/ColourRtf.h"
#include "textview/KeptPlaces.h"
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
    : first_{window.rtxtXML, SelectionOf(window.rtxtXML)}, second_{window.rtxtXML2,
                                                                   SelectionOf(window.rtxtXML2)} {}

void PaneSelections::restore() const {
    for (const auto& [pane, selection] : {first_, second_})
        Select(pane, selection);
}

PaneContents::PaneContents(DocumentWindow& window)
    : window_(window), selections_(window), first_(window.rtxtXML.Content()),
      second_(window.rtxtXML2.Content()) {}

void PaneContents::restore() const {
    const QScopedValueRollback ownWriting(StateOf(window_).bControlChange, true);
    const auto put = [](controls::RichTextBox& pane, const controls::RichContent& content) {
        try {
            pane.SetContent(content);
        } catch (...) { // thrown by one who was told of it: the pane has its text
        }
    };
    put(window_.rtxtXML, first_);
    put(window_.rtxtXML2, second_);
    selections_.restore();
}

Selection SelectionOf(const controls::RichTextBox& pane) {
    return {pane.SelStart(), pane.SelLength(), pane.IsMark()};
}

void Select(controls::RichTextBox& pane, const Selection& selection) {
    if (selection.mark)
        return pane.Mark(selection.start, selection.length);
    pane.SetSelStart(selection.start);
    pane.SetSelLength(selection.length);
}

void SetContentInPlace(DocumentWindow& window, const controls::RichContent& content) {
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    controls::RichTextBox &pane = window.TextInUse(), &other = OtherPane(window);
    const controls::PlaceMap where = KeptPlaces(pane.Long(), content.text);
    const bool same = other.Long() == pane.Long();
    const PaneContents before(window);
    try {
        other.SetContent(content, same ? where : KeptPlaces(other.Long(), content.text));
        pane.SetContent(content, where);
    } catch (...) { // not one text in one pane and another in the other
        before.restore();
        throw;
    }
}

void BringPanesTogether(DocumentWindow& window) {
    if (OtherPane(window).Long() == window.TextInUse().Long())
        return;
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    OtherPane(window).SetContent(window.TextInUse().Content(),
                                 KeptPlaces(OtherPane(window).Long(), window.TextInUse().Long()));
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

void ColourWhole(Application& app, controls::RichTextBox& pane, int level) {
    const text::LongText plain = pane.Plain();
    if (level >= kNoColours)
        return;
    setRichTextXMLColor(app, pane, level);
    const bool same = pane.Long().size() == plain.size();
    pane.SetFillers(same ? std::vector<qsizetype>() : BlanksPutIn(plain.toString(), pane.Text()));
}

void SetTreeXMLColor(DocumentWindow& window) {
    ColourWhole(window.app, window.TextInUse(), StateOf(window).miTextSizeLevel);
    OtherPane(window).SetContent(window.TextInUse().Content());
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
