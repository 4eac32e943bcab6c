// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Serialise.h"
#include "core/model/NodeNumbers.h"
#include "core/model/TreeWriter.h"

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

} // namespace m_tvXML
