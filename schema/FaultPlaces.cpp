// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/FaultPlaces.h"
#include "core/edit/TextWay.h"
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include "platform/controls/TreeCursor.h"
#include "textview/KeptPlaces.h"
#include <algorithm>
#include <map>
#include <utility>

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

bool IsEmptyElement(const QString& tag) {
    return tag.endsWith(QStringLiteral("/>")) && !tag.startsWith(QStringLiteral("<!"));
}

// End tags in a text without start tags; what looks like one in a section is none.
int EndTags(const QString& text) {
    int count = 0;
    for (qsizetype at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<', at)) {
        const QString markup = text.mid(at);
        count += markup.startsWith(QStringLiteral("</")) ? 1 : 0;
        at += MarkupEnd(markup);
    }
    return count;
}

// `between` goes from the start of a node to a place behind it, ahead of the next node: only end tags and
// sections can stand there. Behind a text or a section the place is about what it stands in.
int LevelsUp(const QString& between) {
    const qsizetype end = MarkupEnd(between);
    const int ended = EndTags(between.mid(end));
    if (ended == 0)
        return 0;
    const QString node = between.left(end);
    const bool leaf = node.startsWith(QStringLiteral("<!")) || node.startsWith(QStringLiteral("<?")) ||
                      IsEmptyElement(node);
    return leaf ? ended : ended - 1;
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
    if (window.tvXML.Nodes.Count() == 0 || !IsTreeOfText(window))
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

bool IsTreeOfText(const DocumentWindow& window) {
    const bool ahead = window.bond.bTextChanged() || window.bond.refused();
    return !ahead || window.way->text(window) == window.bond.treeText;
}

std::vector<long> NumbersOf(const DocumentWindow& window, const QStringList& keys) {
    std::vector<long> numbers(static_cast<std::size_t>(keys.size()));
    std::multimap<std::uint32_t, std::size_t> wanted;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (const TreeNode node = window.tvXML.Nodes.Find(keys[static_cast<qsizetype>(i)]))
            wanted.emplace(TreeCursor(node).id(), i);
    }
    if (wanted.empty())
        return numbers;
    const TreeCursor top(window.tvXML.Nodes(1));
    long number = 0;
    for (TreeCursor below = top.firstChild(); below; below = below.nextBelow(top)) {
        number += m_tvXML::IsNumbered(below.node()) ? 1 : 0;
        const auto [first, last] = wanted.equal_range(below.id());
        std::for_each(first, last, [&](const auto& one) { numbers[one.second] = number; });
    }
    return numbers;
}

QStringList KeysOf(const DocumentWindow& window, const std::vector<long>& numbers) {
    QStringList keys(static_cast<qsizetype>(numbers.size()));
    std::multimap<long, qsizetype> wanted;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        wanted.emplace(numbers[i], static_cast<qsizetype>(i));
    if (window.tvXML.Nodes.Count() == 0 || wanted.empty())
        return keys;
    const TreeCursor top(window.tvXML.Nodes(1));
    long number = 0;
    for (TreeCursor below = top.firstChild(); below && number <= wanted.rbegin()->first;
         below = below.nextBelow(top)) {
        const TreeNode node = below.node();
        number += m_tvXML::IsNumbered(node) ? 1 : 0;
        const auto [first, last] = wanted.equal_range(number);
        if (first != last && m_tvXML::IsElement(node))
            std::for_each(first, last, [&](const auto& one) { keys[one.second] = node.Key(); });
    }
    return keys;
}

qsizetype MarkupEnd(const QString& text) {
    static const std::pair<QString, QString> kKinds[] = {{QStringLiteral("<!--"), QStringLiteral("-->")},
                                                         {QStringLiteral("<![CDATA["), QStringLiteral("]]>")},
                                                         {QStringLiteral("<?"), QStringLiteral("?>")}};
    for (const auto& [opener, end] : kKinds) {
        const qsizetype at = text.startsWith(opener) ? text.indexOf(end, opener.size()) : -1;
        if (text.startsWith(opener))
            return at < 0 ? text.size() : at + end.size();
    }
    QChar quote;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!quote.isNull())
            quote = text[i] == quote ? QChar() : quote;
        else if (text[i] == u'"' || text[i] == u'\'')
            quote = text[i];
        else if (text[i] == u'>')
            return i + 1;
    }
    return text.size();
}

qsizetype PositionOf(DocumentWindow& window, TreeNode element) {
    const LongText& text = window.way->text(window);
    const LongText& ofTree = window.bond.treeText;
    const long number = m_tvXML::GetBeforeNodeNumber(window.app, element);
    const qsizetype position = std::max<qsizetype>(m_tvXML::GetTextPositionByNodeNum(ofTree, number) - 1, 0);
    return text == ofTree ? position : textview::KeptPlaces(ofTree, text)(position);
}

} // namespace schema
