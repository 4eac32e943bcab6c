// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ColourRuns.h"
#include "platform/controls/RichTextBox.h"
#include <algorithm>
#include <utility>

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

// What replaces a place takes the colour of the first character there.
std::vector<ColourRun> MovedRuns(const std::vector<ColourRun>& runs, const std::vector<qsizetype>& places,
                                 qsizetype removed, qsizetype added) {
    std::vector<ColourRun> moved;
    moved.reserve(runs.size());
    std::size_t next = 0; // the first place that doesn't end in front of the run
    qsizetype shift = 0;
    for (const ColourRun& run : runs) {
        for (; next < places.size() && places[next] + removed <= run.start; ++next)
            shift += added - removed;
        qsizetype start = run.start + shift;
        if (next < places.size() && places[next] < run.start)
            start = places[next] + shift + added; // begins inside: goes on behind
        if (!moved.empty() && moved.back().start == start)
            moved.back() = {start, run.colour};
        else
            moved.push_back({start, run.colour});
    }
    return moved;
}

std::vector<ColourRun> RunsOf(const std::vector<ColourRun>& runs, qsizetype start, qsizetype length) {
    std::vector<ColourRun> part;
    auto run = std::upper_bound(runs.begin(), runs.end(), start,
                                [](qsizetype place, const ColourRun& one) { return place < one.start; });
    run -= run == runs.begin() ? 0 : 1; // the one that the stretch begins in
    for (; run != runs.end() && run->start < start + length; ++run)
        part.push_back({std::max<qsizetype>(run->start - start, 0), run->colour});
    return part;
}

std::uint32_t RichTextBox::ColourAt(qsizetype position) const {
    const auto behind =
        std::upper_bound(runs_.begin(), runs_.end(), position,
                         [](qsizetype place, const ColourRun& run) { return place < run.start; });
    return behind == runs_.begin() ? 0 : (behind - 1)->colour;
}

// What stands before the first colour given is black; what stands behind the stretch stays as it is.
void RichTextBox::Paint(qsizetype start, qsizetype length, const std::vector<ColourRun>& colours) {
    if (length <= 0)
        return;
    const qsizetype end = start + length;
    std::uint32_t last = start > 0 ? ColourAt(start - 1) : 0;
    std::vector<ColourRun> fresh;
    const auto add = [&](qsizetype place, std::uint32_t colour) {
        if (colour != std::exchange(last, colour))
            fresh.push_back({place, colour});
    };
    if (colours.empty() || colours.front().start > 0)
        add(start, 0);
    for (const ColourRun& one : colours)
        if (one.start < length)
            add(start + one.start, one.colour);
    if (end < text_.size())
        add(end, ColourAt(end));
    const auto from = std::partition_point(runs_.begin(), runs_.end(),
                                           [&](const ColourRun& run) { return run.start < start; });
    const auto to =
        std::partition_point(from, runs_.end(), [&](const ColourRun& run) { return run.start <= end; });
    const auto at = runs_.erase(from, to);
    runs_.insert(at, fresh.begin(), fresh.end());
}

std::uint32_t RichTextBox::SelColor() const {
    return selLength_ > 0 ? ColourAt(selStart_) : typeColour_;
}

void RichTextBox::SetSelColor(std::uint32_t colour) {
    typeColour_ = colour;
    if (selLength_ == 0)
        return;
    Paint(selStart_, selLength_, {{0, colour}});
    coloursChanged(selStart_, selLength_);
}

void RichTextBox::SetColours(qsizetype start, qsizetype length, const std::vector<ColourRun>& runs) {
    start = std::clamp<qsizetype>(start, 0, text_.size());
    length = std::clamp<qsizetype>(length, 0, text_.size() - start);
    Paint(start, length, runs);
    if (selLength_ == 0 && start < selStart_ && selStart_ <= start + length)
        TakeTypeColour();
    coloursChanged(start, length);
}

// Text that is typed goes on in the colour before it, or takes that of what it replaces. At the text's start
// it has none.
void RichTextBox::TakeTypeColour() {
    if (selStart_ == 0)
        typeColour_ = 0;
    else
        typeColour_ = ColourAt(selLength_ > 0 ? selStart_ : selStart_ - 1);
}

} // namespace controls
