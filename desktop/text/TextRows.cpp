// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextRows.h"
#include <utility>

namespace desktop {

namespace {
constexpr qsizetype kKeptUnits = 400'000; // of recent rows
} // namespace

void TextRows::SetFont(const QFont& font) {
    recent_.clear();
    older_.clear();
    recentUnits_ = 0;
    font_ = RowFont(font);
}

std::shared_ptr<const TextRow> TextRows::At(const RowText& row) {
    if (const auto found = recent_.find(row); found != recent_.end())
        return found->second;
    if (recentUnits_ > kKeptUnits) {
        older_ = std::exchange(recent_, {});
        recentUnits_ = 0;
    }
    const auto old = older_.find(row);
    auto set = old != older_.end() ? old->second : std::make_shared<const TextRow>(row, font_);
    recent_.emplace(row, set);
    recentUnits_ += row.text.size() + 16;
    return set;
}

} // namespace desktop
