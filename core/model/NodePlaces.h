// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"

// Where the numbered nodes stand in a text: the n-th numbered node begins at the n-th start tag, comment or
// instruction. What stands in a comment, a CDATA section, an instruction or a document type is no markup.
namespace m_tvXML {

/// 1-based place of the start of the `number`-th node in a text; 0 for none.
qsizetype GetTextPositionByNodeNum(const text::LongText& text, long number);
/// What a text has of a node up to where the next one starts: 0-based places, the end not counted. Number 0
/// is what stands ahead of the first node; one that isn't there has the text's end.
struct NodeStretch {
    qsizetype start = 0, end = 0;
};
NodeStretch GetNodeStretch(const text::LongText& text, long number);
/// Number of the last node that starts in the first `position` characters; 0 for none.
long GetNodeNumByTextPosition(const text::LongText& text, qsizetype position);

} // namespace m_tvXML
