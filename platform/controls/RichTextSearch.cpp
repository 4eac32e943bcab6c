// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/RichTextSearch.h"
#include "platform/text/AnyCaseSearch.h"
#include <algorithm>

namespace controls {

namespace {

constexpr qsizetype kBlock = 65'536; // places a block is searched at

/// A stretch of the text with a character more on both sides, where there is one.
struct Block {
    Block(const text::LongText& text, qsizetype from, qsizetype end)
        : start(std::max<qsizetype>(from - 1, 0)), units(text.mid(start, end + 1 - start)) {}
    qsizetype start;
    QString units;

    SearchHit Hit(qsizetype at, qsizetype length) const {
        const qsizetype behind = at + length;
        return {start + at, QStringView(units).sliced(at, length), at > 0 ? units[at - 1] : QChar(),
                behind < units.size() ? units[behind] : QChar()};
    }
};

} // namespace

void VisitHits(const text::LongText& text, const QString& what, qsizetype from,
               Qt::CaseSensitivity sensitivity, const std::function<qsizetype(const SearchHit&)>& visit) {
    const qsizetype length = what.size();
    from = std::max<qsizetype>(from, 0);
    while (length > 0 && from + length <= text.size()) {
        const qsizetype next = from + kBlock;
        const Block block(text, from, next + length - 1);
        while (from < next) {
            const qsizetype at = sensitivity == Qt::CaseSensitive
                                     ? block.units.indexOf(what, from - block.start)
                                     : text::IndexOfAnyCase(block.units, what, from - block.start);
            if (at < 0 || block.start + at >= next) {
                from = next;
                break;
            }
            from = visit(block.Hit(at, length));
            if (from < 0)
                return;
        }
    }
}

void VisitHitsUp(const text::LongText& text, const QString& what, qsizetype end,
                 Qt::CaseSensitivity sensitivity, const std::function<qsizetype(const SearchHit&)>& visit) {
    const qsizetype length = what.size();
    end = std::min(end, text.size());
    while (length > 0 && end >= length) {
        const qsizetype first = std::max<qsizetype>(end - length + 1 - kBlock, 0);
        const Block block(text, first, end);
        while (end - length >= first) {
            const qsizetype at = block.units.lastIndexOf(what, end - length - block.start, sensitivity);
            if (at < 0 || block.start + at < first) {
                end = first + length - 1;
                break;
            }
            end = visit(block.Hit(at, length));
            if (end < 0)
                return;
        }
    }
}

} // namespace controls
