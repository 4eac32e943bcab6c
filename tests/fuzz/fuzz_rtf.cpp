// SPDX-License-Identifier: GPL-3.0-or-later
// Any string is read as RTF in linear time and without harm; any text and colours survive writing and
// reading; colouring changes a text by nothing but a blank behind a comment's opener.
#include "core/model/Application.h"
#include "platform/controls/Rtf.h"
#include "textview/ColourRtf.h"
#include <cstdlib>
#include <cstring>

namespace {

using controls::ColourRun;

struct Rich {
    QString text;
    std::vector<ColourRun> runs;
};

void Require(bool condition) {
    if (!condition)
        std::abort();
}

Rich Read(const QString& rtf) {
    Rich rich;
    Require(controls::ReadRtf(rtf, rich.text, rich.runs));
    std::uint32_t before = 0;
    qsizetype start = -1;
    for (const ColourRun& run : rich.runs) {
        Require(run.start > start && run.start < rich.text.size() && run.colour != before);
        before = run.colour;
        start = run.start;
    }
    return rich;
}

QString Write(const Rich& rich) {
    return controls::WriteRtf(rich.text, rich.runs, QStringLiteral("A \"font\" </;}="), 10);
}

std::vector<std::uint32_t> Colours(const Rich& rich) {
    std::vector<std::uint32_t> colours(static_cast<std::size_t>(rich.text.size()), 0);
    for (const ColourRun& run : rich.runs)
        std::fill(colours.begin() + std::min(run.start, rich.text.size()), colours.end(),
                  run.colour & 0xffffff);
    return colours;
}

bool TakesTheColourBefore(const QString& text, qsizetype at) {
    const QStringView before = QStringView(text).left(at);
    return (text[at] == u'\n' && before.endsWith(u'\r')) || (text[at] == u' ' && before.endsWith(u"<!--"));
}

void CheckRoundTrip(const Rich& rich) {
    const Rich again = Read(Write(rich));
    Require(again.text == rich.text);
    std::vector<std::uint32_t> wanted = Colours(rich);
    for (qsizetype i = 1; i < rich.text.size(); ++i) {
        if (TakesTheColourBefore(rich.text, i))
            wanted[static_cast<std::size_t>(i)] = wanted[static_cast<std::size_t>(i - 1)];
    }
    Require(Colours(again) == wanted);
}

bool OnlyBlanksAdded(const QString& text, const QString& coloured) {
    qsizetype at = 0;
    for (qsizetype i = 0; i < coloured.size(); ++i) {
        if (at < text.size() && text[at] == coloured[i])
            ++at;
        else if (coloured[i] != u' ' || !QStringView(coloured).left(i).endsWith(u"<!--"))
            return false;
    }
    return at == text.size();
}

void CheckColouring(const Rich& rich, int level) {
    Options options;
    options.GLRTF = QStringLiteral("\\red0\\green0\\blue255");
    options.EqualRTF = QStringLiteral("\\red255\\green50\\blue50");
    options.SlashRTF = QStringLiteral("\\red50\\green200\\blue50");
    options.CommentRTF = QStringLiteral("\\red180\\green180\\blue180");
    const Rich coloured = Read(textview::ColourRTF(Write(rich), options, level));
    Require(OnlyBlanksAdded(rich.text, coloured.text));
    Require(level < 2 || coloured.text == rich.text);
    const QString rtf = textview::ColourRTF(Write(coloured), options, level);
    Require(rtf.count(QStringLiteral("{\\colortbl ;")) ==
            (level < 3 || rtf.contains(u"{\\colortbl") ? 1 : 0));
    const Rich twice = Read(rtf);
    Require(OnlyBlanksAdded(coloured.text, twice.text));
    Require(!rich.runs.empty() || twice.text == coloured.text);
}

QString Units(const std::uint8_t* data, std::size_t size) {
    QString text(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    std::memcpy(text.data(), data, size / 2 * 2);
    return text;
}

std::vector<ColourRun> Runs(const std::uint8_t* data, std::size_t count) {
    static constexpr std::uint32_t kColours[] = {0,        0xff0000,   0x3232ff, 0x32c832,
                                                 0xb4b4b4, 0xff000001, 0xffffff, 0x010203};
    std::vector<ColourRun> runs;
    qsizetype start = 0;
    for (std::size_t i = 0; i < count; ++i) {
        start += data[i] >> 3;
        runs.push_back({start, kColours[data[i] & 7]});
    }
    return runs;
}

} // namespace

// The first byte tells what the rest is: RTF, or the number of colour runs and a text. Text is UTF-8, or
// 16-bit units as they are, so that halves of pairs get in too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::uint8_t kind = data[0];
    ++data;
    --size;
    const std::size_t runs = (kind & 2) ? 0 : std::min<std::size_t>(size, kind >> 4);
    const std::uint8_t* const body = data + runs;
    const std::size_t length = size - runs;
    const QString text =
        (kind & 1) ? Units(body, length)
                   : QString::fromUtf8(reinterpret_cast<const char*>(body), static_cast<qsizetype>(length));
    if ((kind & 2) && text.startsWith(u"{\\rtf")) {
        CheckRoundTrip(Read(text));
        return 0;
    }
    const Rich rich{text, Runs(data, runs)};
    CheckRoundTrip(rich);
    CheckColouring(rich, kind >> 2 & 3);
    return 0;
}
