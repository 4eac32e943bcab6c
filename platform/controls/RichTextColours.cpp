// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ColourRuns.h"
#include "platform/controls/RichTextBox.h"
#include <algorithm>

// The colours of a rich text.
namespace controls {

// The new piece takes the colour that stood at its place; of the runs that began inside the removed piece the
// last one goes on behind it.
void ShiftRuns(std::vector<ColourRun>& runs, qsizetype at, qsizetype removed, qsizetype added) {
    const auto first =
        std::lower_bound(runs.begin(), runs.end(), at,
                         [](const ColourRun& run, qsizetype place) { return run.start < place; });
    std::vector<ColourRun> shifted;
    shifted.reserve(static_cast<std::size_t>(runs.end() - first));
    for (auto it = first; it != runs.end(); ++it) {
        ColourRun run = *it;
        const bool inside = run.start >= at && run.start < at + removed;
        if (inside && (run.start > at || added == 0))
            run.start = at + added;
        else if (run.start >= at + removed && !(run.start == at && at == 0))
            run.start += added - removed;
        if (!shifted.empty() && shifted.back().start == run.start)
            shifted.back() = run;
        else
            shifted.push_back(run);
    }
    runs.erase(first, runs.end());
    runs.insert(runs.end(), shifted.begin(), shifted.end());
}

std::uint32_t RichTextBox::ColourAt(qsizetype position) const {
    const auto behind =
        std::upper_bound(runs_.begin(), runs_.end(), position,
                         [](qsizetype place, const ColourRun& run) { return place < run.start; });
    return behind == runs_.begin() ? 0 : (behind - 1)->colour;
}

void RichTextBox::Paint(qsizetype start, qsizetype length, std::uint32_t colour) {
    const qsizetype end = start + length;
    const std::uint32_t before = start > 0 ? ColourAt(start - 1) : 0;
    const std::uint32_t behind = ColourAt(end);
    const auto atOrBehind = [&](qsizetype place) {
        return std::lower_bound(runs_.begin(), runs_.end(), place,
                                [](const ColourRun& run, qsizetype wanted) { return run.start < wanted; });
    };
    auto at = runs_.erase(atOrBehind(start), atOrBehind(end));
    if (at != runs_.end() && at->start == end && at->colour == colour)
        at = runs_.erase(at);
    else if (end < text_.size() && behind != colour && (at == runs_.end() || at->start != end))
        at = runs_.insert(at, {end, behind});
    if (colour != before)
        runs_.insert(at, {start, colour});
}

std::uint32_t RichTextBox::SelColor() const {
    return selLength_ > 0 ? ColourAt(selStart_) : typeColour_;
}

void RichTextBox::SetSelColor(std::uint32_t colour) {
    if (selLength_ == 0) {
        typeColour_ = colour;
        return;
    }
    Paint(selStart_, selLength_, colour);
    coloursChanged(selStart_, selLength_);
}

void RichTextBox::TakeColourBeforeCaret() {
    typeColour_ = selStart_ > 0 ? ColourAt(selStart_ - 1) : 0;
}

} // namespace controls
