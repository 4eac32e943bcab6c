// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableText.h"
#include "core/model/Serialise.h"
#include "platform/text/TextTools.h"
#include "table/GridCells.h"
#include <string>
#include <vector>

namespace table {

namespace {

using controls::FlexGrid;

const QString kBreak = QStringLiteral("\r\n");

void Append(std::u16string& out, text::CompactView piece) {
    const std::size_t at = out.size();
    out.resize(at + piece.length);
    piece.copyTo(out.data() + at);
}

/// Writes the cells of rows as elements. Each is put together in a short text: one of a million rows is slow
/// to extend.
class RowWriter {
public:
    RowWriter(const ElementTable& table, const controls::GridRange& range, const QString& name)
        : table_(table), range_(range), open_((u'<' + name + u' ').toStdU16String()),
          close_((QStringLiteral("</") + name + u'>').toStdU16String()) {
        for (int column = range.left; column <= range.right; ++column)
            pairs_.push_back((table.header(column) + QStringLiteral("=\"")).toStdU16String());
    }

    void write(QString& out, int row) {
        const std::vector<text::CompactView> values = table_.values(row, range_.left, range_.right);
        const bool withText = range_.right == table_.textColumn();
        const std::size_t attributes = values.size() - (withText ? 1 : 0);
        line_ = open_;
        for (std::size_t i = 0; i < attributes; ++i) {
            line_ += pairs_[i];
            Append(line_, values[i]);
            line_ += u"\" ";
        }
        if (!withText || values.back().isEmpty()) {
            line_ += u"/>";
        } else {
            line_ += u'>';
            Append(line_, values.back());
            line_ += close_;
        }
        out += QStringView(line_);
    }

private:
    const ElementTable& table_;
    controls::GridRange range_;
    std::u16string open_, close_, line_;
    std::vector<std::u16string> pairs_;
};

// The names stand in each row: a wide table may need more than there is memory.
bool IsTooLong(const ElementTable& table, const controls::GridRange& range) {
    constexpr qint64 kMostUnits = 1'000'000'000; // of a text on the clipboard
    qint64 names = 0;
    for (int column = range.left; column <= range.right && names < kMostUnits; ++column)
        names += table.header(column).size() + 4;
    return names * range.height() > kMostUnits;
}

QString BlockText(DocumentWindow& window, const FlexGrid& grid, const controls::GridRange& range) {
    constexpr int kRowsMeasured = 1000;
    const auto table = TableIn(window, grid);
    if (IsTooLong(*table, range))
        return {};
    RowWriter writer(*table, range, GetTableViewNodeName(window, grid));
    QString out;
    for (int row = range.top; row <= range.bottom; ++row) {
        if (row > range.top)
            out += kBreak;
        writer.write(out, grid.SourceRow(row));
        if (row == range.top + kRowsMeasured) // a million rows are about as long as the first ones
            out.reserve(out.size() / kRowsMeasured * range.height());
    }
    return out;
}

QString HtmlCell(const QString& cell) {
    return QStringLiteral("<td>") + (text::IsBlank(cell) ? QStringLiteral("&nbsp;") : cell) +
           QStringLiteral("</td>");
}

} // namespace

QString GetTableViewLinesText(DocumentWindow& window, const FlexGrid& grid) {
    const controls::GridRange selected = grid.Selection();
    QString out;
    for (int row = selected.top; row <= selected.bottom; ++row) {
        const controls::TreeNode element = ElementAt(window, grid, row);
        if (!element)
            continue;
        if (!out.isEmpty() && !out.endsWith(kBreak)) // a node that others follow ends with one
            out += kBreak;
        out += m_tvXML::GetTreeNodesXML(element, QStringLiteral("\t"));
    }
    return out;
}

QString GetTableViewText(DocumentWindow& window, const FlexGrid& grid) {
    if (HaveLinesSelected(grid))
        return GetTableViewLinesText(window, grid);
    const controls::GridRange range = SelectedData(window, grid);
    return range.height() > 0 && range.width() > 0 ? BlockText(window, grid, range) : QString();
}

QString CopyTableAsHTML(DocumentWindow& window, const FlexGrid& grid) {
    constexpr qint64 kMostCells = 20'000'000;
    const controls::GridRange range = SelectedData(window, grid);
    const auto table = TableIn(window, grid);
    if (!table || qint64(range.height()) * range.width() > kMostCells)
        return {};
    QString header = QStringLiteral("<thead><tr>"), lines;
    for (int column = range.left; column <= range.right; ++column)
        header += HtmlCell(grid.TextMatrix(0, column));
    for (int row = range.top; row <= range.bottom; ++row) {
        lines += QStringLiteral("<tr>");
        const int at = grid.SourceRow(row);
        int column = range.left;
        for (const text::CompactView shown : table->values(at, range.left, range.right, true)) {
            lines += HtmlCell(table->shownText(at, column, shown));
            ++column;
        }
        lines += QStringLiteral("</tr>");
    }
    return QStringLiteral("<table cellSpacing=\"0\" cellPadding=\"0\" border=\"1\">") + header +
           QStringLiteral("</tr></thead>") + lines + QStringLiteral("</table>");
}

} // namespace table
