// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/GridSource.h"
#include "platform/controls/TreeCursor.h"
#include "table/Columns.h"
#include <QString>
#include <string>
#include <vector>

namespace table {

/// The header of the last column.
inline const QString kNodeText = QStringLiteral("Node Text");

/// The elements of one name on a level of the tree, as a grid shows them: a row each, a column for each
/// attribute, then the first text. It holds no texts but the columns' names; cells are read from the tree
/// when they are looked at. Rows and columns count as in the grid: row 0 is the header, column 0 the key.
class ElementTable : public controls::GridSource {
public:
    /// With `calculates` there is a row for calculations behind the others.
    ElementTable(const QString& name, bool calculates) : name_(name), calculates_(calculates) {}
    void add(controls::TreeCursor element); ///< as the last row

    int rowCount() const override;
    int columnCount() const override { return Columns::kFirst + columns_.count() + 1; }
    QString text(int row, int column) const override;
    QString textToSort(int row, int column) const override;
    controls::GridStyle style(int row, int column) const override;

    const QString& name() const { return name_; }                      ///< of the elements
    int lastRow() const { return static_cast<int>(elements_.size()); } ///< of those with an element
    int textColumn() const { return columnCount() - 1; }               ///< "Node Text"
    bool calculates() const { return calculates_; }
    /// The element of a row; nothing for the other rows, and for one that was removed since.
    controls::TreeNode element(int row) const;
    int rowOf(controls::TreeNode element) const; ///< 0 without one
    int columnOf(const QString& header) const;   ///< of a column behind the key; -1 without one
    QString header(int column) const;
    /// What the tree holds of a cell, whether the cell shows it or not.
    text::CompactView value(int row, int column) const;
    /// What the cell shows of it, before numbers are rewritten.
    text::CompactView shownValue(int row, int column) const;
    /// The values of a row in the columns from left to right, both included, in one go; with `shown`, of what
    /// its cells show of them.
    std::vector<text::CompactView> values(int row, int left, int right, bool shown = false) const;
    /// What a cell makes of a value that it shows.
    QString shownText(int row, int column, text::CompactView shown) const;
    /// The same at the end of a text.
    void appendShownText(std::u16string& out, int row, int column, text::CompactView shown) const;
    /// The columns from `left` to `right`, both included, for which the row's element holds something, in the
    /// order of its Tag; with `shown`, those whose cell shows it. One walk along the Tag: there may be more
    /// columns than anything else.
    std::vector<int> filledColumns(int row, int left, int right, bool shown) const;
    bool hasLateColumns() const { return columns_.grewLater(); } ///< that the first row lacks
    /// Whether the columns would be the same if the table were made anew, after an edit of a row's element.
    bool columnsStandAfter(int row) const;

private:
    template <typename Take> bool eachAttribute(int row, int left, int right, bool shown, Take take) const;
    QString label(int row) const;
    bool mayBeRewritten(int row, int column, text::CompactView shown) const;

    QString name_;
    bool calculates_;
    std::vector<controls::TreeNode> elements_; ///< of row 1 on
    Columns columns_;
};

} // namespace table
