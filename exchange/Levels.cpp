// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/Levels.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "platform/controls/TreeCursor.h"
#include "table/LoadTables.h"
#include <algorithm>

namespace exchange {

namespace {

using controls::TreeCursor;

constexpr qsizetype kNames = 4;

controls::TreeNode TopOf(DocumentWindow& window) {
    return window.tvXML.Nodes.Count() > 0 ? window.tvXML.Nodes(1).Child() : controls::TreeNode();
}

void Add(QStringList& names, TreeCursor element) {
    if (names.size() > kNames) // the last one stands for all others
        return;
    const QString name = element.text().toString();
    if (!names.contains(name))
        names << (names.size() == kNames ? QStringLiteral("...") : name);
}

} // namespace

std::vector<QStringList> LevelsOf(DocumentWindow& window) {
    std::vector<QStringList> levels;
    const TreeCursor top = TopOf(window) ? TreeCursor(TopOf(window)).parent() : TreeCursor();
    std::size_t depth = 0;
    for (TreeCursor node = top.firstChild(); node;) {
        const bool element = node.kind() == m_tvXML::kElement;
        if (element) {
            levels.resize(std::max(levels.size(), depth + 1));
            Add(levels[depth], node);
        }
        if (element && node.firstChild()) {
            node = node.firstChild();
            ++depth;
            continue;
        }
        while (!node.next() && node.parent() != top) {
            node = node.parent();
            --depth;
        }
        node = node.next();
    }
    return levels;
}

table::Tables TablesOfLevel(DocumentWindow& window, int level) {
    return table::TablesOfDepth(TopOf(window), level);
}

int UsualLevel(DocumentWindow& window, int levels) {
    const int level = m_tvXML::GetNodeLevel(window.tvXML.SelectedItem()) - 1;
    return std::min(std::max(level, 1), levels - 1);
}

} // namespace exchange
