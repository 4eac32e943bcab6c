// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ReplaceHits.h"
#include "core/model/Frame.h"
#include "platform/controls/ColourRuns.h"
#include "textview/FillText.h"
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

// `places` are in the order of the text.
QString WithReplacements(const text::LongText& text, const std::vector<qsizetype>& places, qsizetype length,
                         const QString& replacement) {
    QString fresh;
    fresh.reserve(text.size() + std::ssize(places) * (replacement.size() - length));
    qsizetype at = 0;
    for (const qsizetype place : places) {
        fresh += text.mid(at, place - at);
        fresh += replacement;
        at = place + length;
    }
    return fresh += text.mid(at);
}

// One step for each hit, in the order of the hits; a hit further down moves by the ones above it that were
// replaced before.
void RecordSteps(DocumentWindow& window, const RichContent& before, const std::vector<qsizetype>& hits,
                 qsizetype length, const QString& replacement) {
    TextState& state = StateOf(window);
    auto& stack = state.undoStack;
    stack.resize(static_cast<std::size_t>(state.UndoPos));
    stack.reserve(stack.size() + hits.size());
    const bool down = hits.front() < hits.back();
    QString same; // most hits are one text, which is then held once
    qsizetype shift = 0;
    for (const qsizetype hit : hits) {
        if (const QString found = before.text.mid(hit, length); found != same)
            same = found;
        UndoRecord& record = stack.emplace_back();
        record.DelPos = record.InsPos = hit + shift;
        record.DelText = same;
        record.InsText = replacement;
        record.DelFillers = controls::FillersOf(before.fillers, hit, length);
        shift += down ? replacement.size() - length : 0;
    }
    state.UndoPos = static_cast<int>(stack.size());
}

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

// The content is another one, but what was selected stays so.
void SetContentInPlace(RichTextBox& pane, const RichContent& content, const std::vector<qsizetype>& places,
                       qsizetype length, qsizetype added) {
    const qsizetype start = Moved(pane.SelStart(), places, length, added);
    const qsizetype end = Moved(pane.SelStart() + pane.SelLength(), places, length, added);
    pane.SetContent(content);
    pane.SetSelStart(start);
    pane.SetSelLength(end - start);
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

qsizetype ReplaceHits(DocumentWindow& window, RichTextBox& target, const std::vector<qsizetype>& hits,
                      qsizetype length, const QString& replacement) {
    RichTextBox& other = &target == &window.rtxtXML ? window.rtxtXML2 : window.rtxtXML;
    std::vector<qsizetype> places = hits;
    std::sort(places.begin(), places.end());
    const text::LongText before = target.Long();
    RichContent after{text::LongText::Like(WithReplacements(before, places, length, replacement), before),
                      {}};
    TextState& state = StateOf(window);
    state.miTextSizeLevel = GetTextSizeLevel(after.text.size());
    after.runs = Recolouring(window.app, target, replacement).Runs(places, length, hits == places);
    after.fillers = controls::MovedFillers(target.Fillers(), places, length, replacement.size());
    RecordSteps(window, target.Content(), hits, length, replacement);
    {
        const QScopedValueRollback ownWriting(state.bControlChange, true);
        target.SetContent(after);
        SetContentInPlace(other, after, places, length, replacement.size());
    }
    if (window.bLoaded)
        window.bond.move(BondMove::TextEdited);
    const qsizetype last = state.undoStack.back().InsPos;
    target.SetSelStart(last);
    target.SetSelLength(replacement.size());
    SetTextStatus(window, target);
    window.app.frame().RefreshMenu();
    return last;
}

} // namespace textview
