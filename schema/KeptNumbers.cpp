// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/KeptNumbers.h"
#include "core/model/NodePlaces.h"
#include "platform/text/TextDifference.h"
#include "schema/FaultPlaces.h"

namespace schema {

namespace {

using text::LongText;

// Where the tag of a node ends, or the comment or instruction that it is.
qsizetype TagEnd(const LongText& text, long number) {
    const m_tvXML::NodeStretch stretch = m_tvXML::GetNodeStretch(text, number);
    return stretch.start + MarkupEnd(text.mid(stretch.start, stretch.end - stretch.start));
}

} // namespace

// Two tags that begin alike are told apart by where they end.
NumberMap KeptNumbers(const LongText& before, const LongText& after) {
    const text::TextChange change = text::Difference(before, after);
    const qsizetype end = change.start + change.removed;
    long inFront = m_tvXML::GetNodeNumByTextPosition(before, change.start);
    if (inFront > 0 && TagEnd(before, inFront) > change.start)
        --inFront;
    long behind = m_tvXML::GetNodeNumByTextPosition(before, end);
    if (behind == 0 || TagEnd(before, behind) <= end)
        ++behind;
    const long more = m_tvXML::GetNodeNumByTextPosition(after, after.size()) -
                      m_tvXML::GetNodeNumByTextPosition(before, before.size());
    return [inFront, behind, more](long number) {
        if (number <= inFront)
            return number;
        return number >= behind ? number + more : more == 0 ? number : 0L;
    };
}

} // namespace schema
