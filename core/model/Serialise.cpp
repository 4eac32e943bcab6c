// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/TreeWriter.h"
#include "core/model/m_tvXML.h"

namespace m_tvXML {

namespace {

using controls::TreeCursor;
using text::CompactView;

// The text is written twice: once to learn its length, then into a text of exactly that length. So a document
// of any size costs one allocation and no growing.
class LengthSink {
public:
    void put(CompactView piece) { length_ += piece.length; }
    void put(QStringView piece) { length_ += piece.size(); }
    void repeat(QStringView piece, int times) { length_ += piece.size() * times; }
    void element(TreeCursor, int) {}
    qsizetype length() const { return length_; }

private:
    qsizetype length_ = 0;
};

class TextSink {
public:
    explicit TextSink(qsizetype length) : text_(length, Qt::Uninitialized), at_(begin()) {}
    void put(CompactView piece) { at_ = piece.copyTo(at_); }
    void put(QStringView piece) { at_ = std::copy_n(piece.utf16(), piece.size(), at_); }
    void repeat(QStringView piece, int times) {
        for (int i = 0; i < times && !piece.isEmpty(); ++i)
            put(piece);
    }
    void element(TreeCursor, int) {}
    QString take() { return std::move(text_); }

private:
    char16_t* begin() { return reinterpret_cast<char16_t*>(text_.data()); }
    QString text_;
    char16_t* at_;
};

// Calls `visit` with the 0-based place of each "<" in the first `length` units that begins no end tag there,
// until it returns false.
template <typename Visit> void VisitNodeStarts(const text::LongText& text, qsizetype length, Visit visit) {
    qsizetype start = 0; // of the piece
    qsizetype last = -1; // a "<" that ended the piece before
    bool more = true;
    text.visit(0, length, [&](QStringView piece) {
        if (last >= 0 && piece.front() != u'/')
            more = visit(last);
        last = -1;
        for (qsizetype at = piece.indexOf(u'<'); at >= 0 && more; at = piece.indexOf(u'<', at + 1)) {
            if (at + 1 == piece.size())
                last = start + at;
            else if (piece[at + 1] != u'/')
                more = visit(start + at);
        }
        start += piece.size();
        return more;
    });
    if (last >= 0 && more)
        visit(last);
}

} // namespace

QString GetTreeNodesXML(controls::TreeNode node, const QString& indentUnit) {
    if (!node)
        return {};
    const TreeCursor top(node);
    const int level = GetNodeLevel(node);
    LengthSink length;
    TreeWriter<LengthSink>(length, indentUnit).write(top, level);
    TextSink sink(length.length());
    TreeWriter<TextSink>(sink, indentUnit).write(top, level);
    return sink.take();
}

qsizetype GetTextPositionByNodeNum(const text::LongText& text, long number) {
    if (number <= 0)
        return 0;
    long count = 0;
    qsizetype found = 0;
    VisitNodeStarts(text, text.size(), [&](qsizetype place) {
        if (++count == number)
            found = place + 1;
        return found == 0;
    });
    return found;
}

long GetNodeNumByTextPosition(const text::LongText& text, qsizetype position) {
    long number = 0;
    bool open = false; // the piece before ended in a "<"
    text.visit(0, position, [&](QStringView piece) {
        number += open && piece.front() != u'/' ? 1 : 0;
        const char16_t* const units = piece.utf16();
        for (qsizetype i = 0; i + 1 < piece.size(); ++i) // without branches: many at once
            number += static_cast<long>(units[i] == u'<') & static_cast<long>(units[i + 1] != u'/');
        open = piece.back() == u'<';
        return true;
    });
    return number + (open ? 1 : 0);
}

} // namespace m_tvXML
