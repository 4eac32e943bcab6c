// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeKind.h"
#include "platform/controls/TreeCursor.h"
#include <QStringView>
#include <algorithm>

namespace m_tvXML {

inline text::CompactView WithoutTrailingBlanks(text::CompactView view) {
    while (view.length > 0 && view.at(view.length - 1) == u' ')
        --view.length;
    return view;
}

inline bool IsText(controls::TreeCursor node) {
    return node.kind() == kText;
}

/// Writes the nodes of a tree as XML. A sink takes pieces (`put`, `repeat`) and is told of each element
/// before anything of it, its indentation among it, is written (`element`).
template <typename Sink> class TreeWriter {
public:
    TreeWriter(Sink& sink, QStringView unit) : sink_(sink), unit_(unit) {}

    /// Writes all of `top`.
    void write(controls::TreeCursor top, int level) { write(top, top, level, {}); }

    /// Writes what stands in `top` from where `node` (at `level`) opens to where `until` opens, or to the end
    /// of top. Walks without recursion: a document may be deeper than the stack.
    void write(controls::TreeCursor top, controls::TreeCursor node, int level, controls::TreeCursor until) {
        bool opening = true;
        while (true) {
            if (opening) {
                if (until && node == until)
                    return;
                const int kind = GetKeyType(node);
                open(node, kind, level);
                if ((kind == kElement || kind == kTreeRoot) && node.firstChild()) {
                    node = node.firstChild();
                    level += kind == kTreeRoot ? 0 : 1;
                    continue;
                }
            }
            lineBreakBehind(node);
            if (node == top)
                return;
            if (const controls::TreeCursor next = node.next()) {
                node = next;
                opening = true;
                continue;
            }
            node = node.parent();
            const bool root = GetKeyType(node) == kTreeRoot;
            level -= root ? 0 : 1;
            if (!root)
                close(node, level);
            opening = false;
        }
    }

private:
    void open(controls::TreeCursor node, int kind, int level) {
        switch (kind) {
        case kComment:
            sink_.put(u"<!--");
            sink_.put(node.tag());
            sink_.put(u"-->");
            break;
        case kInstruction:
            sink_.put(u"<?");
            sink_.put(node.text());
            sink_.put(u" ");
            sink_.put(node.tag());
            sink_.put(u"?>");
            break;
        case kText:
            sink_.put(node.tag());
            break;
        case kElement:
            openElement(node, level);
            break;
        default:
            break; // CDATA sections, document types and the like are left out
        }
    }

    void openElement(controls::TreeCursor node, int level) {
        sink_.element(node, level);
        const controls::TreeCursor before = node.previous();
        if (!before || !IsText(before))
            indent(level);
        sink_.put(u"<");
        const text::CompactView tag = WithoutTrailingBlanks(node.tag());
        if (tag.isEmpty()) {
            sink_.put(WithoutTrailingBlanks(node.text()));
        } else {
            sink_.put(node.text());
            sink_.put(u" ");
            sink_.put(tag);
        }
        sink_.put(u">");
        const controls::TreeCursor child = node.firstChild();
        if (!child) {
            sink_.put(u"</");
            sink_.put(node.text());
            sink_.put(u">");
        } else if (!IsText(child)) {
            sink_.put(u"\r\n");
        }
    }

    void close(controls::TreeCursor node, int level) {
        if (!IsText(node.lastChild())) {
            sink_.put(u"\r\n");
            indent(level);
        }
        sink_.put(u"</");
        sink_.put(node.text());
        sink_.put(u">");
    }

    void lineBreakBehind(controls::TreeCursor node) {
        if (IsText(node))
            return;
        const controls::TreeCursor next = node.next();
        if (next && !IsText(next))
            sink_.put(u"\r\n");
    }

    void indent(int level) { sink_.repeat(unit_, level - 1); }

    Sink& sink_;
    QStringView unit_;
};

} // namespace m_tvXML
