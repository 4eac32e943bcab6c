// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableText.h"
#include "core/model/Serialise.h"
#include "platform/text/TextTools.h"
#include "table/GridCells.h"

namespace table {

namespace {

using controls::FlexGrid;

const QString kBreak = QStringLiteral("\r\n");

void Append(QString& out, text::CompactView piece) {
    const qsizetype at = out.size();
    out.resize(at + static_cast<qsizetype>(piece.length));
    piece.copyTo(reinterpret_cast<char16_t*>(out.data()) + at);
}

/// Writes the cells of one row as an element.
class RowWriter {
public:
    RowWriter(const ElementTable& table, const controls::GridRange& range, const QString& name)
        : table_(table), range_(range), open_(u'<' + name + u' '),
          close_(QStringLiteral("</") + name + u'>') {
        for (int column = range.left; column <= range.right; ++column)
            pairs_ << table.header(column) + QStringLiteral("=\"");
    }

    void write(QString& out, int row) const {
        const std::vector<text::CompactView> values = table_.values(row, range_.left, range_.right);
        const bool withText = range_.right == table_.textColumn();
        const std::size_t attributes = values.size() - (withText ? 1 : 0);
        out += open_;
        for (std::size_t i = 0; i < attributes; ++i) {
            out += pairs_[static_cast<qsizetype>(i)];
            Append(out, values[i]);
            out += QStringLiteral("\" ");
        }
        if (!withText || values.back().isEmpty()) {
            out += QStringLiteral("/>");
            return;
        }
        out += u'>';
        Append(out, values.back());
        out += close_;
    }

private:
    const ElementTable& table_;
    controls::GridRange range_;
    QString open_, close_;
    QStringList pairs_;
};

QString BlockText(DocumentWindow& window, const FlexGrid& grid, const controls::GridRange& range) {
    constexpr int kRowsMeasured = 1000;
    const auto table = TableIn(window, grid);
    const RowWriter writer(*table, range, GetTableViewNodeName(window, grid));
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
    const controls::GridRange range = SelectedData(window, grid);
    QString header = QStringLiteral("<thead><tr>"), lines;
    for (int column = range.left; column <= range.right; ++column)
        header += HtmlCell(grid.TextMatrix(0, column));
    for (int row = range.top; row <= range.bottom; ++row) {
        lines += QStringLiteral("<tr>");
        for (int column = range.left; column <= range.right; ++column)
            lines += HtmlCell(grid.TextMatrix(row, column));
        lines += QStringLiteral("</tr>");
    }
    return QStringLiteral("<table cellSpacing=\"0\" cellPadding=\"0\" border=\"1\">") + header +
           QStringLiteral("</tr></thead>") + lines + QStringLiteral("</table>");
}

} // namespace table
