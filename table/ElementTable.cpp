// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/ElementTable.h"
#include "core/model/AttributeWalk.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "platform/text/Numbers.h"
#include <algorithm>

namespace table {

namespace {

using controls::GridStyle;
using controls::TreeNode;
using m_tvXML::AttributeWalk;
using text::CompactView;

constexpr std::uint32_t kLabelColour = 0x400000, kCalcColour = 0x000040; // 0x00BBGGRR
constexpr int kKeyColumn = 0, kLabelColumn = 1;

// Most texts are no numbers, which their first character tells.
bool MayBeNumber(CompactView value) {
    if (value.isEmpty())
        return false;
    const QChar first(value.at(0));
    return first.unicode() > 0x7F || first.isDigit() || QStringView(u"+-. $").contains(first);
}

CompactView ValueOf(CompactView tag, QStringView name) {
    for (AttributeWalk pairs(tag); pairs.next();) {
        if (pairs.name() == name)
            return pairs.value();
    }
    return {};
}

} // namespace

void ElementTable::add(controls::TreeCursor element) {
    elements_.push_back(element.node());
    columns_.addRow(lastRow(), element.tag());
}

int ElementTable::rowCount() const {
    return 1 + lastRow() + (calculates_ ? 1 : 0);
}

TreeNode ElementTable::element(int row) const {
    return row >= 1 && row <= lastRow() ? elements_[static_cast<std::size_t>(row - 1)] : TreeNode();
}

int ElementTable::rowOf(TreeNode element) const {
    const auto found = std::find(elements_.begin(), elements_.end(), element);
    return found == elements_.end() ? 0 : static_cast<int>(found - elements_.begin()) + 1;
}

QString ElementTable::header(int column) const {
    if (column == kLabelColumn)
        return u'<' + name_ + u'>';
    if (column == textColumn())
        return kNodeText;
    return column == kKeyColumn ? QString() : columns_.name(column - Columns::kFirst);
}

int ElementTable::columnOf(const QString& header) const {
    if (header == kNodeText)
        return textColumn();
    if (header == this->header(kLabelColumn))
        return kLabelColumn;
    text::CompactBuilder name;
    name.append(QStringView(header));
    const int column = columns_.find(name.view());
    return column < 0 ? -1 : column + Columns::kFirst;
}

CompactView ElementTable::value(int row, int column) const {
    const TreeNode node = element(row);
    if (!node || column < Columns::kFirst)
        return {};
    if (column == textColumn()) {
        const TreeNode child = m_tvXML::FirstTextChild(node);
        return child ? child.TagView() : CompactView();
    }
    return ValueOf(node.TagView(), columns_.name(column - Columns::kFirst));
}

// The attributes of a row that stand in a range of columns. False where one of them brings its column:
// neither that one is shown nor anything behind it.
template <typename Take>
bool ElementTable::eachAttribute(int row, int left, int right, bool shown, Take take) const {
    const int brought = shown ? columns_.broughtBy(row) : -1;
    int likely = 0;
    for (AttributeWalk pairs(element(row).TagView()); pairs.next(); ++likely) {
        const int place = columns_.find(pairs.name(), likely);
        if (brought >= 0 && place == brought)
            return false;
        const int column = place + Columns::kFirst;
        if (place >= 0 && column >= left && column <= right)
            take(column, pairs.value());
        likely = place >= 0 ? place : likely;
    }
    return true;
}

std::vector<CompactView> ElementTable::values(int row, int left, int right, bool shown) const {
    std::vector<CompactView> found(static_cast<std::size_t>(std::max(right - left + 1, 0)));
    if (!element(row) || found.empty())
        return found;
    const auto take = [&](int column, CompactView value) {
        found[static_cast<std::size_t>(column - left)] = value;
    };
    if (eachAttribute(row, left, right, shown, take) && right == textColumn())
        found.back() = value(row, right);
    return found;
}

std::vector<int> ElementTable::filledColumns(int row, int left, int right, bool shown) const {
    std::vector<int> found;
    const TreeNode node = element(row);
    const auto take = [&](int column, CompactView value) {
        if (!shown || !value.isEmpty())
            found.push_back(column);
    };
    if (!node || !eachAttribute(row, left, right, shown, take) || right != textColumn())
        return found;
    const TreeNode text = m_tvXML::FirstTextChild(node);
    if (text && !(shown && text.TagView().isEmpty()))
        found.push_back(right);
    return found;
}

// A row that brings a column is read up to that attribute.
CompactView ElementTable::shownValue(int row, int column) const {
    const int brought = columns_.broughtBy(row);
    if (brought < 0)
        return value(row, column);
    const TreeNode node = element(row);
    if (!node || column == textColumn())
        return {};
    const QStringView wanted = columns_.name(column - Columns::kFirst), stop = columns_.name(brought);
    for (AttributeWalk pairs(node.TagView()); pairs.next() && !(pairs.name() == stop);) {
        if (pairs.name() == wanted)
            return pairs.value();
    }
    return {};
}

QString ElementTable::label(int row) const {
    const TreeNode node = element(row);
    if (!node)
        return {};
    const bool more = static_cast<bool>(m_tvXML::FirstElement(node.Child()));
    return u'[' + QString::number(row) + (more ? QStringLiteral("]+") : QStringLiteral("]-"));
}

QString ElementTable::text(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return {};
    if (row == 0)
        return header(column);
    if (row > lastRow())
        return column == kLabelColumn ? QStringLiteral("(Calc)") : QString();
    if (column == kKeyColumn)
        return element(row) ? element(row).Key() : QString();
    if (column == kLabelColumn)
        return label(row);
    return shownText(row, column, shownValue(row, column));
}

// Numbers stand in their shortest form from the second row on (quirk 70).
bool ElementTable::mayBeRewritten(int row, int column, CompactView shown) const {
    return row != 1 && column != textColumn() && MayBeNumber(shown);
}

QString ElementTable::shownText(int row, int column, CompactView shown) const {
    const QString text = shown.toString();
    return mayBeRewritten(row, column, shown) ? text::PlainNumber(text).value_or(text) : text;
}

void ElementTable::appendShownText(std::u16string& out, int row, int column, CompactView shown) const {
    const std::size_t at = out.size();
    out.resize(at + shown.length);
    shown.copyTo(out.data() + at);
    const QStringView text(out.data() + at, static_cast<qsizetype>(shown.length));
    if (!mayBeRewritten(row, column, shown) || text::IsPlainAlready(text))
        return;
    if (const std::optional<QString> number = text::PlainNumber(text)) {
        out.resize(at);
        out.append(QStringView(*number).utf16(), static_cast<std::size_t>(number->size()));
    }
}

QString ElementTable::textToSort(int row, int column) const {
    return column < Columns::kFirst ? text(row, column) : shownValue(row, column).toString();
}

GridStyle ElementTable::style(int row, int column) const {
    if (column != kLabelColumn || row < 1)
        return {};
    if (row > lastRow())
        return {.ForeColor = kCalcColour, .Bold = true, .Italic = true};
    return {.ForeColor = kLabelColour, .Underline = true};
}

bool ElementTable::columnsStandAfter(int row) const {
    const TreeNode node = element(row);
    return node && columns_.bringsTheSame(row, node.TagView());
}

} // namespace table
