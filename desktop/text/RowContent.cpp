// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/RowContent.h"
#include "desktop/base/Colours.h"
#include <algorithm>

namespace desktop {

RowText ContentOf(const controls::RichTextBox& model, const text::LongText::Row& row,
                  const QColor& background) {
    const text::LongText& text = model.Long();
    RowText content{text.mid(row.start, row.length), {}};
    const std::vector<controls::ColourRun>& runs = model.Runs();
    auto run = std::upper_bound(runs.begin(), runs.end(), row.start,
                                [](qsizetype at, const controls::ColourRun& r) { return at < r.start; });
    run -= run == runs.begin() ? 0 : 1;
    for (; run != runs.end() && run->start < row.start + row.length; ++run) {
        const qsizetype start = std::max(run->start, row.start) - row.start;
        const qsizetype next = std::next(run) == runs.end() ? text.size() : std::next(run)->start;
        const qsizetype end = std::min(next - row.start, row.length);
        const QColor colour = TextColour(run->colour, background);
        if (start < end && colour.isValid())
            content.colours.push_back({static_cast<int>(start), static_cast<int>(end - start), colour.rgb()});
    }
    return content;
}

void InsertInto(RowText& row, int at, const QString& text) {
    const auto added = static_cast<int>(text.size());
    row.text.insert(at, text);
    for (RowColour& colour : row.colours) {
        if (colour.start >= at)
            colour.start += added;
        else if (colour.start + colour.length > at)
            colour.length += added;
    }
}

} // namespace desktop
