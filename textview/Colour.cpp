// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Colour.h"
#include "core/edit/Guard.h"
#include "core/model/Frame.h"
#include "platform/controls/ColourRuns.h"
#include "textview/ColourRtf.h"
#include "textview/TextState.h"
#include <QScopedValueRollback>
#include <optional>

namespace textview {

namespace {

using controls::RichTextBox;

constexpr std::uint32_t kBlack = 0;
constexpr std::uint32_t kAngleBracket = 0xff0000; // blue
constexpr std::uint32_t kEqualSign = 0x3232ff;    // red 255, green 50, blue 50
constexpr std::uint32_t kSlash = 0x32c832;        // red 50, green 200, blue 50
constexpr std::uint32_t kCommentGrey = 0xb4b4b4;  // red, green and blue 180

class Hourglass {
public:
    explicit Hourglass(Application& app) : frame_(app.frame()), before_(frame_.MousePointer()) {
        frame_.SetMousePointer(vbHourglass);
    }
    ~Hourglass() { frame_.SetMousePointer(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    Frame& frame_;
    int before_;
};

std::optional<std::uint32_t> ColourBelow(int levels, int level, std::uint32_t colour) {
    return level < levels ? std::optional(colour) : std::nullopt;
}

/// The colour of a character, by how many levels show it; nothing where it keeps the one it has.
std::optional<std::uint32_t> OneCharColour(QChar character, int level, const RichTextBox& richText) {
    switch (character.unicode()) {
    case u'<':
    case u'>':
        return ColourBelow(2, level, kAngleBracket);
    case u'=':
        return ColourBelow(1, level, kEqualSign);
    case u'/':
        return ColourBelow(3, level, kSlash);
    case u'"':
        return ColourBelow(1, level, kSlash);
    default:
        // What is asked is the colour of whatever is selected now, not that of the character.
        return richText.SelColor() != kCommentGrey ? std::optional(kBlack) : std::nullopt;
    }
}

} // namespace

void setRichTextXMLColor(Application& app, RichTextBox& richText, int level) {
    edit::Guarded(app, QStringLiteral("mXMLEdit@setRichTextXMLColor"), [&] {
        if (level >= kNoColours)
            return;
        const Hourglass hourglass(app);
        richText.SetTextRTF(ColourRTF(richText.TextRTF(), app.options, level));
    });
}

namespace {

// Each character is selected for a moment: that is no selection of the user's.
void ColourEach(Application& app, RichTextBox& richText, TextState& state) {
    const QScopedValueRollback ownWriting(state.bControlChange, true);
    const qsizetype start = richText.SelStart(), length = richText.SelLength();
    if (length <= kLongestColoured) {
        const Hourglass hourglass(app);
        for (qsizetype i = 0; i < length; ++i)
            SetOneXMLCharColor(app, richText, start + i + 1, state.miTextSizeLevel);
    }
    richText.SetSelStart(start);
    richText.SetSelLength(length);
}

} // namespace

void SetSeltextColor(Application& app, RichTextBox& richText) {
    edit::Guarded(app, QStringLiteral("mXMLEdit@SetSeltextColor"), [&] {
        DocumentWindow* const active = app.frame().ActiveForm();
        if (active && richText.SelLength() > 0 && StateOf(*active).miTextSizeLevel < kNoColours)
            ColourEach(app, richText, StateOf(*active));
    });
}

void SetOneXMLCharColor(Application& app, RichTextBox& richText, qsizetype position, int level) {
    edit::Guarded(app, QStringLiteral("mXMLEdit@SetOneXMLCharColor"), [&] {
        if (level >= kNoColours)
            return;
        if (const auto colour = OneCharColour(richText.Long().at(position - 1), level, richText))
            SetCharRangeColor(richText, position - 1, 1, *colour);
    });
}

void SetOneXMLCharColorByKeyAscii(Application& app, RichTextBox& richText, qsizetype /*position*/,
                                  int keyAscii, int level) {
    edit::Guarded(app, QStringLiteral("mXMLEdit@SetOneXMLCharColorByKeyAscii"), [&] {
        if (level >= kNoColours)
            return;
        if (const auto colour = OneCharColour(QChar(static_cast<char16_t>(keyAscii)), level, richText))
            richText.SetSelColor(*colour);
    });
}

void SetCharRangeColor(RichTextBox& richText, qsizetype start, qsizetype length, std::uint32_t color) {
    richText.SetSelStart(start);
    richText.SetSelLength(length);
    richText.SetSelColor(color);
}

void ColourTypedKey(DocumentWindow& window, bool second, int keyAscii) {
    RichTextBox& pane = second ? window.rtxtXML2 : window.rtxtXML;
    RichTextBox& other = second ? window.rtxtXML : window.rtxtXML2;
    TextState& state = StateOf(window);
    if (pane.SelStart() <= 0 || state.miTextSizeLevel >= kNoColours)
        return;
    const auto setColour = [&](RichTextBox& one) {
        const QScopedValueRollback ownWriting(state.bControlChange, true);
        // What is selected takes the key's colour, too; it goes, and is to come back as it was.
        const qsizetype start = one.SelStart(), length = one.SelLength();
        const std::vector<controls::ColourRun> kept = controls::RunsOf(one.Runs(), start, length);
        SetOneXMLCharColorByKeyAscii(window.app, one, start, keyAscii, state.miTextSizeLevel);
        if (length > 0)
            one.SetColours(start, length, kept);
    };
    setColour(pane);
    other.SetSelStart(pane.SelStart());
    other.SetSelLength(pane.SelLength());
    setColour(other);
}

} // namespace textview
