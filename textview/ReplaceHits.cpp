// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ReplaceHits.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include "textview/TextState.h"
#include <QScopedValueRollback>
#include <algorithm>
#include <map>

namespace textview {

namespace {

using controls::ColourRun;
using controls::RichContent;
using controls::RichTextBox;
using controls::SearchHit;

/// Gives replacements the colours that each would take if it were put in alone.
class Recolouring {
public:
    Recolouring(Application& app, const RichTextBox& before, QString replacement)
        : app_(app), before_(before), replacement_(std::move(replacement)) {}

    /// The runs of the new text. `places` are in the order of the text; when they are replaced in that order,
    /// a place right behind another one has the new colours before it.
    std::vector<ColourRun> Runs(const std::vector<qsizetype>& places, qsizetype length, bool inOrder) {
        qsizetype shift = 0, behind = -1;
        auto run = before_.Runs().begin();
        const auto end = before_.Runs().end();
        for (const qsizetype place : places) {
            if (behind >= 0 && place > behind)
                Add(behind + shift, before_.ColourAt(behind));
            for (; run != end && run->start < place; ++run)
                Add(run->start + shift, run->colour);
            PutIn(place + shift,
                  inOrder && place == behind ? last_ : ColourAround(before_, place, place + length));
            behind = place + length;
            shift += replacement_.size() - length;
            run = std::find_if(run, end, [&](const ColourRun& one) { return one.start >= behind; });
        }
        if (behind < before_.Long().size())
            Add(behind + shift, before_.ColourAt(behind));
        for (; run != end; ++run)
            Add(run->start + shift, run->colour);
        return std::move(runs_);
    }

private:
    void Add(qsizetype start, std::uint32_t colour) {
        if (colour != std::exchange(last_, colour))
            runs_.push_back({start, colour});
    }
    void PutIn(qsizetype at, std::uint32_t around) {
        if (replacement_.isEmpty())
            return;
        auto known = known_.find(around);
        if (known == known_.end())
            known = known_.emplace(around, InsertedColours(app_, replacement_, around)).first;
        const std::vector<ColourRun>& colours = known->second;
        if (colours.empty() || colours.front().start > 0)
            Add(at, 0);
        for (const ColourRun& one : colours)
            Add(at + one.start, one.colour);
    }

    Application& app_;
    const RichTextBox& before_;
    const QString replacement_;
    std::map<std::uint32_t, std::vector<ColourRun>> known_; ///< of the replacement, by the colour around it
    std::vector<ColourRun> runs_;
    std::uint32_t last_ = 0; ///< what runs_ ends in
};

// Where a place comes to stand, in the text or behind the replacement of what it was in.
qsizetype Moved(qsizetype place, const std::vector<qsizetype>& places, qsizetype length, qsizetype added) {
    const auto next = std::lower_bound(places.begin(), places.end(), place);
    if (next == places.begin())
        return place;
    return std::max(place, *(next - 1) + length) + (next - places.begin()) * (added - length);
}

Qt::CaseSensitivity SensitivityOf(const FindOptions& options) {
    return options.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

} // namespace

std::vector<qsizetype> HitsDown(const RichTextBox& target, const QString& text, qsizetype from,
                                const QString& replacement, const FindOptions& options) {
    std::vector<qsizetype> hits;
    controls::VisitHits(target.Long(), text, from, SensitivityOf(options), [&](const SearchHit& hit) {
        const bool taken = !options.wholeWord || RichTextBox::IsWholeWord(hit);
        if (taken && hit.found != replacement)
            hits.push_back(hit.at);
        return hit.at + (taken ? text.size() : 1);
    });
    return hits;
}

std::vector<qsizetype> HitsUp(const RichTextBox& target, const QString& text, qsizetype from,
                              const QString& replacement, const FindOptions& options) {
    std::vector<qsizetype> hits;
    controls::VisitHitsUp(target.Long(), text, from, SensitivityOf(options), [&](const SearchHit& hit) {
        const bool taken = !options.wholeWord || IsWholeWord(hit);
        if (taken && hit.found != replacement)
            hits.push_back(hit.at);
        return hit.at + (taken ? 0 : text.size() - 1);
    });
    return hits;
}

qsizetype ReplaceHits(DocumentWindow& window, controls::RichTextBox& target,
                      const std::vector<qsizetype>& hits, qsizetype length, const QString& replacement) {
    RichTextBox& other = &target == &window.rtxtXML ? window.rtxtXML2 : window.rtxtXML;
    std::vector<qsizetype> places = hits;
    std::sort(places.begin(), places.end());
    const RichContent before = target.Content();
    RichContent after{
        text::LongText::Like(text::WithReplacements(before.text.toString(), places, length, replacement),
                             before.text),
        {}};
    StateOf(window).miTextSizeLevel = GetTextSizeLevel(after.text.size());
    after.runs = Recolouring(window.app, target, replacement).Runs(places, length, hits == places);
    after.fillers = controls::MovedFillers(before.fillers, places, length, replacement.size());
    AddWholeStep(window, before, after);
    const qsizetype added = replacement.size();
    const auto where = [&](qsizetype place) { return Moved(place, places, length, added); };
    {
        const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
        target.SetContent(after, where);
        other.SetContent(after, where);
    }
    if (window.bLoaded)
        window.bond.move(BondMove::TextEdited);
    const qsizetype last = where(hits.back()); // what stands above it has moved it
    target.SetSelStart(last);
    target.SetSelLength(added);
    SetTextStatus(window, target);
    return last;
}

void JoinSteps(DocumentWindow& window, int first) {
    TextState& state = StateOf(window);
    if (first < 0 || first >= state.UndoPos - 1)
        return;
    const auto at = static_cast<std::size_t>(first);
    state.undoStack[at].NewRTF = state.undoStack.back().NewRTF;
    state.undoStack.resize(at + 1);
    state.UndoPos = first + 1;
}

} // namespace textview
