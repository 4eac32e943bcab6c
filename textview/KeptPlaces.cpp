// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/KeptPlaces.h"
#include "core/model/NodePlaces.h"
#include "platform/text/TextDifference.h"
#include <QHash>
#include <algorithm>

namespace textview {

namespace {

using text::LongText;

constexpr qsizetype kLongestRead = 4'000'000; // units of one node that are compared letter by letter

/// A character that a text keeps when it is written anew.
struct Letter {
    char32_t unit;
    qsizetype start, end; ///< where it stands; a reference is one letter
};

bool IsLayout(char32_t unit) {
    return unit == U' ' || unit == U'\t' || unit == U'\r' || unit == U'\n';
}

// What a reference stands for; the "&" itself where it is none. `end` is behind it.
char32_t Dereferenced(QStringView text, qsizetype& end) {
    constexpr qsizetype kLongest = 10;
    static const QHash<QStringView, char32_t> kNamed = {
        {u"lt", U'<'}, {u"gt", U'>'}, {u"amp", U'&'}, {u"quot", U'"'}, {u"apos", U'"'}};
    const QStringView head = text.sliced(end).first(std::min(kLongest, text.size() - end));
    const qsizetype stop = head.indexOf(u';');
    if (stop < 0)
        return U'&';
    const QStringView name = head.first(stop);
    bool number = false;
    const char32_t unit = name.startsWith(u"#x")  ? name.sliced(2).toUInt(&number, 16)
                          : name.startsWith(u'#') ? name.sliced(1).toUInt(&number)
                                                  : kNamed.value(name);
    if (!number && unit == 0)
        return U'&';
    end += stop + 1;
    return unit;
}

// Either quote counts as the other one: values are written in one kind.
std::vector<Letter> LettersOf(QStringView text) {
    std::vector<Letter> letters;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype start = at;
        char32_t unit = text[at++].unicode();
        if (unit == U'\'')
            unit = U'"';
        else if (unit == U'&')
            unit = Dereferenced(text, at);
        if (!IsLayout(unit))
            letters.push_back({unit, start, at});
    }
    return letters;
}

/// What lies between two letters.
struct Gap {
    qsizetype start, end;
};
Gap GapBefore(const std::vector<Letter>& letters, std::size_t next, qsizetype size) {
    return {next > 0 ? letters[next - 1].end : 0, next < letters.size() ? letters[next].start : size};
}

// Layout that is as it was keeps its places; else the place stays in the line of the letter that it stands
// beside.
qsizetype InGap(QStringView before, Gap old, qsizetype place, QStringView after, Gap now) {
    const QStringView oldBlanks = before.sliced(old.start, old.end - old.start);
    const QStringView blanks = after.sliced(now.start, now.end - now.start);
    if (oldBlanks == blanks)
        return now.start + place - old.start;
    const bool atNext = place > old.start && !before.sliced(place, old.end - place).contains(u'\n') &&
                        before.sliced(old.start, place - old.start).contains(u'\n');
    return atNext || (place == old.end && place > old.start) ? now.end : now.start;
}

// Letters are counted from the front, and where they differ before the place, from the end.
qsizetype PlaceIn(QStringView before, qsizetype place, QStringView after) {
    const std::vector<Letter> old = LettersOf(before), now = LettersOf(after);
    const auto same = [](const Letter& a, const Letter& b) { return a.unit == b.unit; };
    const auto next = static_cast<std::size_t>(
        std::find_if(old.begin(), old.end(), [place](const Letter& one) { return one.end > place; }) -
        old.begin());
    const auto front = static_cast<std::size_t>(
        std::mismatch(old.begin(), old.end(), now.begin(), now.end(), same).first - old.begin());
    const auto back = static_cast<std::size_t>(
        std::mismatch(old.rbegin(), old.rend(), now.rbegin(), now.rend(), same).first - old.rbegin());
    std::size_t found = next;
    if (next > front && old.size() - next <= back && now.size() + next >= old.size())
        found = now.size() - (old.size() - next);
    else if (next > front)
        return GapBefore(now, std::min(front, now.size()), after.size()).start;
    if (next < old.size() && place > old[next].start) // in a reference
        return found < now.size() ? now[found].start : after.size();
    return InGap(before, GapBefore(old, next, before.size()), place, after,
                 GapBefore(now, found, after.size()));
}

} // namespace

controls::PlaceMap KeptPlaces(const LongText& before, const LongText& after) {
    const text::TextChange change = text::Difference(before, after);
    return [before, after, change](qsizetype place) {
        const qsizetype longer = change.added - change.removed;
        if (place <= change.start)
            return place;
        if (place >= change.start + change.removed)
            return place + longer;
        const bool inEndTag = before.at(place - 1) == u'<' && before.at(place) == u'/';
        const long number = m_tvXML::GetNodeNumByTextPosition(before, place) - (inEndTag ? 1 : 0);
        m_tvXML::NodeStretch old = m_tvXML::GetNodeStretch(before, number),
                             now = m_tvXML::GetNodeStretch(after, number);
        // What is the same in front of the change and behind it isn't looked at.
        old.start = std::max(old.start, change.start);
        now.start = std::clamp(now.start, change.start, change.start + change.added);
        old.end = std::min(old.end, change.start + change.removed);
        now.end = std::clamp(now.end, now.start, change.start + change.added);
        if (old.end < place || old.end - old.start > kLongestRead || now.end - now.start > kLongestRead)
            return now.start;
        const QString oldText = before.mid(old.start, old.end - old.start),
                      text = after.mid(now.start, now.end - now.start);
        return now.start + PlaceIn(oldText, place - old.start, text);
    };
}

} // namespace textview
