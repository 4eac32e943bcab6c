// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextRow.h"
#include <unordered_map>

namespace desktop {

/// The rows that were set last. A row is found by what it shows: no edit has to tell which rows it changed,
/// and rows that move up or down aren't set again.
class TextRows {
public:
    void SetFont(const QFont& font); ///< forgets all rows
    const RowFont& Font() const { return font_; }
    std::shared_ptr<const TextRow> At(const RowText& row);

private:
    struct Hash {
        std::size_t operator()(const RowText& row) const { return qHash(row.text); }
    };
    using Store = std::unordered_map<RowText, std::shared_ptr<const TextRow>, Hash>;
    RowFont font_;
    Store recent_, older_; ///< when the recent ones are many, they become the older ones
    qsizetype recentUnits_ = 0;
};

} // namespace desktop
