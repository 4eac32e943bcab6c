// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/PatternSample.h"
#include "core/edit/Guard.h"
#include "platform/text/Numbers.h"
#include <algorithm>
#include <cmath>
#include <span>

namespace schema {

namespace {

// Longer than any that a person wants to see. Counts multiply, so a short pattern may ask for a gigabyte.
constexpr qsizetype kLongestSample = 1 << 20;
constexpr int kFaultOverflow = 6, kFaultOutOfMemory = 7;

struct Replacement {
    const char* token;
    const char* yields;
};

// In this order. The negated classes are spelled with "^" inside the braces, which is this table's own form,
// and a connector yields "-" and a dash "_": samples have always come out so.
constexpr Replacement kTokens[] = {
    {"\\b", ""},
    {"\\B", ""},
    {"\\d", "1"},
    {"\\D", "a"},
    {"\\n", "\r\n"},
    {"\\r", "\r"},
    {"\\f", "\f"},
    {"\\S", "a"},
    {"\\s", " "},
    {"\\t", "\t"},
    {"\\v", "\v"},
    {"\\w", "a_"},
    {"\\W", " "},
    {"[A-Z]", "A"},
    {"[^A-Z]", "a"},
    {"[a-z]", "a"},
    {"[^a-z]", "A"},
    {"[0-9]", "1"},
    {"[^0-9]", "a"},
    {"[A-Za-z]", "A"},
    {"[a-zA-Z]", "a"},
    {"[^A-Za-z]", "1"},
    {"[^a-zA-Z]", "1"},
    {"[a-z0-9A-Z]", "a"},
    {"[a-zA-Z0-9]", "a"},
    {"[A-Za-z0-9]", "a"},
    {"[A-Z0-9a-z]", "a"},
    {"[0-9a-zA-Z]", "a"},
    {"[0-9A-Za-z]", "a"},
    {"[^a-z0-9A-Z]", " "},
    {"[^a-zA-Z0-9]", " "},
    {"[^A-Za-z0-9]", " "},
    {"[^A-Z0-9a-z]", " "},
    {"[^0-9a-zA-Z]", " "},
    {"[^0-9A-Za-z]", " "},
    {"[a-z A-Z 0-9]", "a"},
    {"[a-z 0-9 A-Z]", "a"},
    {"[A-Z a-z 0-9]", "a"},
    {"[A-Z 0-9 a-z]", "a"},
    {"[0-9 A-Z a-z]", "a"},
    {"[0-9 a-z A-Z]", "a"},
    {"[^a-z A-Z 0-9]", " "},
    {"[^a-z 0-9 A-Z]", " "},
    {"[^A-Z a-z 0-9]", " "},
    {"[^A-Z 0-9 a-z]", " "},
    {"[^0-9 A-Z a-z]", " "},
    {"[^0-9 a-z A-Z]", " "},
    {"[a-z | A-Z | 0-9]", "a"},
    {"[a-z | 0-9 | A-Z]", "a"},
    {"[A-Z | a-z | 0-9]", "a"},
    {"[A-Z | 0-9 | a-z]", "a"},
    {"[0-9 | A-Z | a-z]", "a"},
    {"[0-9 | a-z | A-Z]", "a"},
    {"\\p{L}", "a"},
    {"\\p{^L}", "1"},
    {"\\p{Lu}", "A"},
    {"\\p{^Lu}", "a"},
    {"\\p{Ll}", "a"},
    {"\\p{^Ll}", "A"},
    {"\\p{Lt}", "a"},
    {"\\p{Lm}", "a"},
    {"\\p{Lo}", "a"},
    {"\\p{N}", "1"},
    {"\\p{^N}", "a"},
    {"\\p{Nd}", "1"},
    {"\\p{^Nd}", "a"},
    {"\\p{Nl}", "1"},
    {"\\p{^Nl}", " "},
    {"\\p{No}", "1"},
    {"\\p{P}", ","},
    {"\\p{Pc}", "-"},
    {"\\p{Pd}", "_"},
    {"\\p{Any}", "a"},
    {"\\p{Letter}", "a"},
    {"\\p{^Letter}", "1"},
    {"\\p{Uppercase Letter}", "A"},
    {"\\p{^Uppercase Letter}", "a"},
    {"\\p{Lowercase Letter}", "a"},
    {"\\p{^Lowercase Letter}", "A"},
    {"\\p{Titlecase Letter}", "a"},
    {"\\p{Modifier Letter}", "a"},
    {"\\p{Other Letter}", "a"},
    {"\\p{Number}", "1"},
    {"\\p{^Number}", "a"},
    {"\\p{Decimal Digit Number}", "1"},
    {"\\p{^Decimal Digit Number}", "a"},
    {"\\p{Letter Number}", "1"},
    {"\\p{^Letter Number}", " "},
    {"\\p{Other Number}", "1"},
    {"\\p{Punctuation}", ","},
    {"\\p{Connector Punctuation}", "-"},
    {"\\p{Dash Punctuation}", "_"},
};

// What is left of an expression goes, last of all. An escaped dot has become "\a" by then, and comes back.
constexpr Replacement kCleanUp[] = {{"[", ""}, {"]", ""}, {"+", ""},    {".", "a"}, {"*", ""}, {"?", ""},
                                    {"(", ""}, {")", ""}, {"\\a", "."}, {"\\", ""}, {"^", ""}};

QString Replaced(QString text, std::span<const Replacement> table) {
    for (const Replacement& one : table)
        text.replace(QLatin1String(one.token), QLatin1String(one.yields));
    return text;
}

void HoldLength(qsizetype length) {
    if (length > kLongestSample)
        throw text::Fault(kFaultOutOfMemory, QStringLiteral("Out of memory"));
}

int CountIn(QStringView braces) {
    constexpr double kHighest = 32767, kLowest = -32768;
    const double count = std::nearbyint(text::NumericPrefix(braces));
    if (!(count >= kLowest && count <= kHighest))
        throw text::Fault(kFaultOverflow, QStringLiteral("Overflow"));
    return static_cast<int>(count);
}

QString LastCharacter(const QString& text) {
    const bool pair =
        text.size() > 1 && text.back().isLowSurrogate() && text[text.size() - 2].isHighSurrogate();
    return text.right(pair ? 2 : 1);
}

// Only the one character in front of a count is repeated. A brace without one ends it: it stays, and so do
// all behind it.
QString WithRepetitions(const QString& text) {
    QString made;
    qsizetype at = 0;
    while (true) {
        const qsizetype open = text.indexOf(u'{', at);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u'}', open);
        if (close < 0 || made.size() + (open - at) == 0)
            return made += QStringView(text).mid(at);
        made += QStringView(text).mid(at, open - at);
        const QString repeated = LastCharacter(made);
        made.chop(repeated.size());
        made += RepeatString(CountIn(QStringView(text).mid(open + 1, close - open - 1)), repeated);
        HoldLength(made.size());
        at = close + 1;
    }
}

// The first alternative wins, and what closes the group goes with the others. A bar in front of everything
// stays.
QString WithFirstAlternatives(const QString& text) {
    QString made;
    qsizetype at = 0;
    bool anyRound = true; // no quadratic look for what isn't there
    while (true) {
        const qsizetype bar = text.indexOf(u'|', at);
        if (bar < 0 || made.size() + (bar - at) == 0)
            return made += QStringView(text).mid(at);
        made += QStringView(text).mid(at, bar - at);
        qsizetype close = anyRound ? text.indexOf(u')', bar) : -1;
        anyRound = close >= 0;
        if (close < 0)
            close = text.indexOf(u']', bar);
        if (close < 0)
            return made;
        at = close + 1;
    }
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

QChar TakeLast(QString& text) {
    const QChar last = text.back();
    text.chop(1);
    return last;
}

bool IsWrongReference(QChar digit, const QStringList& captures) {
    return IsDigit(digit) && (digit == u'0' || digit.digitValue() > captures.size());
}

// A reference in front of everything, or to no group, ends it. What is still to be looked at stands in `rest`
// from back to front. Behind a reference the look goes on at the last character that came in, or at the one
// before it, so a backslash there counts once more.
QString WithCaptures(const QString& text) {
    const QStringList captures = GetCapturedMatch(text);
    QString made, rest = text;
    std::reverse(rest.begin(), rest.end());
    while (!rest.isEmpty() && !captures.isEmpty()) {
        const QChar next = TakeLast(rest);
        if (next != u'\\') {
            made += next;
            continue;
        }
        if (made.isEmpty() || rest.isEmpty() || IsWrongReference(rest.back(), captures)) {
            rest += next;
            break;
        }
        if (!IsDigit(rest.back())) {
            made += next;
            made += TakeLast(rest);
            continue;
        }
        made += captures[TakeLast(rest).digitValue() - 1];
        HoldLength(made.size());
        rest += TakeLast(made);
    }
    std::reverse(rest.begin(), rest.end());
    return made + rest;
}

} // namespace

QString RepeatString(int count, const QString& text) {
    return text.repeated(std::max(count, 0));
}

QStringList GetCapturedMatch(const QString& text) {
    QStringList captures;
    qsizetype at = 0;
    while (true) {
        const qsizetype open = text.indexOf(u'(', at);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u')', open);
        if (close < 0)
            return captures;
        captures += text.mid(open + 1, close - open - 1);
        at = close + 1;
    }
}

std::optional<QString> PatternSampleIfAny(Application& app, const QString& pattern) {
    std::optional<QString> sample;
    edit::Guarded(app, QStringLiteral("mXMLEdit@GenerateSampleByPattern"), [&] {
        const QString plain = WithFirstAlternatives(WithRepetitions(Replaced(pattern, kTokens)));
        sample = Replaced(WithCaptures(plain), kCleanUp);
    });
    return sample;
}

QString GenerateSampleByPattern(Application& app, const QString& pattern) {
    return PatternSampleIfAny(app, pattern).value_or(QString());
}

} // namespace schema
