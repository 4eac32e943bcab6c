// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FaultPlaces.h"
#include "core/edit/TextWay.h"
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "platform/controls/TreeCursor.h"
#include "textview/KeptPlaces.h"
#include <algorithm>

namespace schema {

namespace {

using controls::TreeCursor;
using controls::TreeNode;
using text::LongText;

/// The element that a place is about: so many levels above the last node that starts before the place.
struct Place {
    long number = 0;
    int levelsUp = 0;
};

// Whether a start tag ends in "/>", or stands for no element at all.
bool ClosesItself(const QString& tag) {
    QChar quote;
    for (qsizetype i = 1; i < tag.size(); ++i) {
        if (!quote.isNull())
            quote = tag[i] == quote ? QChar() : quote;
        else if (tag[i] == u'"' || tag[i] == u'\'')
            quote = tag[i];
        else if (tag[i] == u'>')
            return tag[i - 1] == u'/';
    }
    return false;
}

// `between` goes from the start of a node to a place behind it, ahead of the next node: only end tags can
// stand there.
int LevelsUp(const QString& between) {
    const qsizetype last = between.lastIndexOf(u'<');
    if (last <= 0 || between.mid(last, 2) != QStringLiteral("</"))
        return 0;
    const auto ended = static_cast<int>(between.count(QStringLiteral("</")));
    const bool leaf = between.startsWith(QStringLiteral("<!")) || between.startsWith(QStringLiteral("<?"));
    return leaf || ClosesItself(between) ? ended : ended - 1;
}

// Behind a tag a part of the text can be looked at by itself.
std::vector<Place> PlacesIn(const LongText& text, const std::vector<qsizetype>& positions) {
    std::vector<Place> places;
    qsizetype done = 0, start = 0; // of the last node
    long number = 0;
    for (const qsizetype position : positions) {
        const LongText part(text.mid(done, position - done));
        const long begun = m_tvXML::GetNodeNumByTextPosition(part, part.size());
        if (begun > 0)
            start = done + m_tvXML::GetTextPositionByNodeNum(part, begun) - 1;
        number += begun;
        done = position;
        places.push_back({number, number > 0 ? LevelsUp(text.mid(start, position - start)) : 0});
    }
    return places;
}

QString KeyAt(TreeNode node, int levelsUp) {
    for (int up = levelsUp; node && up > 0; --up)
        node = node.Parent();
    return node && !m_tvXML::IsTreeRoot(node) ? node.Key() : QString();
}

} // namespace

qsizetype PositionOf(const LongText& text, int line, int column) {
    return std::min(text.lineStart(line - 1) + std::max(column - 1, 0), text.size());
}

QStringList ElementsAt(const DocumentWindow& window, const std::vector<qsizetype>& positions) {
    QStringList keys(static_cast<qsizetype>(positions.size()));
    if (window.tvXML.Nodes.Count() == 0 || window.bond.bTextChanged() || window.bond.refused())
        return keys;
    const std::vector<Place> places = PlacesIn(window.way->text(window), positions);
    const TreeCursor top(window.tvXML.Nodes(1));
    long number = 0;
    std::size_t next = 0;
    for (TreeCursor below = top.firstChild(); below && next < places.size(); below = below.nextBelow(top)) {
        const TreeNode node = below.node();
        number += m_tvXML::IsNumbered(node) ? 1 : 0;
        for (; next < places.size() && places[next].number <= number; ++next) {
            if (places[next].number == number)
                keys[static_cast<qsizetype>(next)] = KeyAt(node, places[next].levelsUp);
        }
    }
    return keys;
}

qsizetype PositionOf(DocumentWindow& window, TreeNode element) {
    const LongText& text = window.way->text(window);
    const LongText& ofTree = window.bond.treeText;
    const long number = m_tvXML::GetBeforeNodeNumber(window.app, element);
    const qsizetype position = std::max<qsizetype>(m_tvXML::GetTextPositionByNodeNum(ofTree, number) - 1, 0);
    return text == ofTree ? position : textview::KeptPlaces(ofTree, text)(position);
}

} // namespace schema
