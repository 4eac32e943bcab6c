// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Rtf.h"
#include <QStringView>
#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace controls {

namespace {

constexpr std::uint32_t kColourBits = 0xffffff;

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// What a stretch that is copied as it stands ends at. The hyphen is one of them because comment delimiters
// are looked for there.
constexpr std::array<bool, 128> kStops = [] {
    std::array<bool, 128> stops{};
    for (std::size_t c = 0; c < stops.size(); ++c)
        stops[c] = c < 0x20 || c > 0x7e || c == '\\' || c == '{' || c == '}' || c == '-';
    return stops;
}();

bool Stops(char16_t c) {
    return c >= kStops.size() || kStops[c];
}

/// The colours of a text by their numbers in the table, in the order in which they come up.
class ColourTable {
public:
    int Number(std::uint32_t colour) {
        if ((colour & kColourBits) == 0)
            return 0;
        const auto next = static_cast<int>(numbers_.size()) + 1;
        const auto [found, isNew] = numbers_.try_emplace(colour & kColourBits, next);
        if (isNew)
            entries_ += QStringLiteral("\\red%1\\green%2\\blue%3;")
                            .arg(colour & 0xff)
                            .arg(colour >> 8 & 0xff)
                            .arg(colour >> 16 & 0xff);
        return found->second;
    }
    QString Group() const {
        return entries_.isEmpty() ? QString() : QStringLiteral("{\\colortbl ;%1}\r\n").arg(entries_);
    }

private:
    std::unordered_map<std::uint32_t, int> numbers_;
    QString entries_;
};

class Body {
public:
    Body(const QString& text, qsizetype colourChanges) : text_(text) {
        out_.reserve(text.size() + text.size() / 8 + colourChanges * 6 + 64);
    }

    /// Writes what stands before `end`, in the colour set last.
    void WriteUpTo(qsizetype end) {
        while (at_ < end)
            at_ == escapeAt_ ? WriteEscaped() : WriteStretch(end);
    }
    void SetColour(int number) {
        out_ += QStringLiteral("\\cf");
        out_ += QString::number(number);
        out_ += u' ';
    }
    const QString& Text() const { return out_; }

private:
    char16_t Unit(qsizetype at) const { return at < text_.size() ? text_[at].unicode() : u'\0'; }

    void WriteEscaped() {
        out_ += QStringLiteral("\\'");
        out_ += QString::number(Unit(at_), 16);
        ++at_;
    }

    void WriteStretch(qsizetype end) {
        const qsizetype limit = escapeAt_ > at_ ? std::min(end, escapeAt_) : end;
        qsizetype stop = at_;
        while (stop < limit && !Stops(Unit(stop)))
            ++stop;
        out_ += QStringView(text_).mid(at_, stop - at_);
        at_ = stop;
        if (at_ < limit)
            WriteSpecial();
    }

    void WriteSpecial() {
        const char16_t unit = Unit(at_);
        if (unit == u'-') {
            LookForDelimiter();
            out_ += u'-';
        } else if (unit == u'\\' || unit == u'{' || unit == u'}') {
            out_ += u'\\';
            out_ += QChar(unit);
        } else if (unit == u'\r' && Unit(at_ + 1) == u'\n') {
            out_ += QStringLiteral("\\par\r\n");
            ++at_;
        } else if (unit == u'\t') {
            out_ += QStringLiteral("\\tab ");
        } else {
            out_ += QStringLiteral("\\u");
            out_ += QString::number(static_cast<std::int16_t>(unit));
            out_ += u'?';
        }
        ++at_;
    }

    // At the second hyphen of a comment's delimiter.
    void LookForDelimiter() {
        const QStringView before = QStringView(text_).left(at_);
        const QChar next = QChar(Unit(at_ + 1)), second = QChar(Unit(at_ + 2));
        if (IsDigit(next) && before.endsWith(u"<!-"))
            escapeAt_ = at_ + 1;
        else if (next == u'>' && (IsDigit(second) || second == u' ') && before.endsWith(u'-'))
            escapeAt_ = at_ + 2;
    }

    const QString& text_;
    QString out_;
    qsizetype at_ = 0;
    qsizetype escapeAt_ = -1;
};

// A name may hold anything; all but letters, digits and blanks is written so that nothing in it can be taken
// for RTF, the end of the name or a character to be coloured.
QString FontName(const QString& name) {
    QString out;
    for (const QChar c : name) {
        const char16_t unit = c.unicode();
        const bool plain = unit < 128 && (c.isLetterOrNumber() || unit == u' ');
        out += plain ? QString(c) : QStringLiteral("\\u%1?").arg(static_cast<std::int16_t>(unit));
    }
    return out;
}

int HalfPoints(double size) {
    return std::isfinite(size) ? static_cast<int>(std::lround(std::clamp(size * 2, 1.0, 3276.0))) : 20;
}

// Two things have no look of their own and stay with what is before them: the second half of a line end, and
// the blank behind a comment's opener, which colouring must find there (else it brings one along).
qsizetype ColourStart(const QString& text, qsizetype at) {
    if (at <= 0 || at >= text.size())
        return at;
    const QStringView before = QStringView(text).left(at);
    const bool inLineEnd = text[at] == u'\n' && before.endsWith(u'\r');
    return inLineEnd || (text[at] == u' ' && before.endsWith(u"<!--")) ? at + 1 : at;
}

} // namespace

QString WriteRtf(const QString& text, const std::vector<ColourRun>& runs, const QString& fontName,
                 double fontSize) {
    ColourTable table;
    Body body(text, static_cast<qsizetype>(runs.size()));
    int current = 0, wanted = 0;
    const auto writeUpTo = [&](qsizetype end) {
        if (wanted != current)
            body.SetColour(current = wanted);
        body.WriteUpTo(end);
    };
    qsizetype at = 0;
    for (const ColourRun& run : runs) {
        const qsizetype start = ColourStart(text, run.start);
        if (start >= text.size())
            break;
        if (start > at)
            writeUpTo(at = start);
        wanted = table.Number(run.colour);
    }
    if (at < text.size())
        writeUpTo(text.size());
    return QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil ") + FontName(fontName) +
           QStringLiteral(";}}\r\n") + table.Group() + QStringLiteral("\\viewkind4\\uc1\\pard\\f0\\fs") +
           QString::number(HalfPoints(fontSize)) + u' ' + body.Text() + u'}';
}

} // namespace controls
