// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/ColourRuns.h"
#include "platform/controls/RichTextBox.h"
#include <algorithm>
#include <utility>

// What is shown and belongs to no document.
namespace controls {

namespace {

const QString& Opener() {
    static const QString opener = QStringLiteral("<!--");
    return opener;
}

} // namespace

std::vector<qsizetype> FillersOf(const std::vector<qsizetype>& fillers, qsizetype start, qsizetype length) {
    std::vector<qsizetype> part;
    auto filler = std::lower_bound(fillers.begin(), fillers.end(), start);
    for (; filler != fillers.end() && *filler < start + length; ++filler)
        part.push_back(*filler - start);
    return part;
}

std::vector<qsizetype> MovedFillers(const std::vector<qsizetype>& fillers,
                                    const std::vector<qsizetype>& places, qsizetype removed,
                                    qsizetype added) {
    std::vector<qsizetype> moved;
    auto next = places.begin(); // the first place that doesn't end in front of the filler
    for (const qsizetype filler : fillers) {
        while (next != places.end() && *next + removed <= filler)
            ++next;
        if (next == places.end() || filler < *next)
            moved.push_back(filler + (next - places.begin()) * (added - removed));
    }
    return moved;
}

bool RichTextBox::IsFiller(qsizetype place) const {
    return text_.at(place) == u' ' && place >= Opener().size() &&
           text_.mid(place - Opener().size(), Opener().size()) == Opener();
}

void RichTextBox::SetFillers(std::vector<qsizetype> fillers) {
    fillers_ = std::move(fillers);
    plainKnown_ = false;
}

void RichTextBox::AddFillers(qsizetype start, const std::vector<qsizetype>& fillers) {
    if (fillers.empty())
        return;
    const auto at = fillers_.insert(std::lower_bound(fillers_.begin(), fillers_.end(), start),
                                    fillers.begin(), fillers.end());
    std::for_each_n(at, fillers.size(), [start](qsizetype& filler) { filler += start; });
    plainKnown_ = false;
}

void RichTextBox::ShiftFillers(qsizetype at, qsizetype removed, qsizetype added) {
    plainKnown_ = false;
    const auto first = std::lower_bound(fillers_.begin(), fillers_.end(), at);
    const auto behind = fillers_.erase(first, std::lower_bound(first, fillers_.end(), at + removed));
    for (auto filler = behind; filler != fillers_.end(); ++filler)
        *filler += added - removed;
}

const text::LongText& RichTextBox::Plain() const {
    if (fillers_.empty())
        return text_;
    if (!std::exchange(plainKnown_, true)) {
        QString plain;
        plain.reserve(text_.size());
        qsizetype from = 0;
        for (const qsizetype place : fillers_) {
            if (!IsFiller(place))
                continue;
            plain += text_.mid(from, place - from);
            from = place + 1;
        }
        plain_ = text::LongText::Like(plain += text_.mid(from), text_);
    }
    return plain_;
}

qsizetype RichTextBox::ShownPlace(qsizetype plain) const {
    for (const qsizetype place : fillers_) {
        if (place > plain)
            break;
        plain += IsFiller(place) ? 1 : 0;
    }
    return plain;
}

} // namespace controls
