// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/LineWalk.h"
#include <algorithm>

namespace exchange {

namespace {

// The kinds are numbered in the order in which they are looked for (quirk 111).
text::LineEnd SeparatorOf(const text::LineEnds& ends) {
    return ends.each.empty() ? ends.common : *std::min_element(ends.each.begin(), ends.each.end());
}

} // namespace

LineWalk::LineWalk(const text::LongText& text, const text::LineEnds& ends, bool everyEnd)
    : reader_(text), ends_(ends), everyEnd_(everyEnd), separator_(SeparatorOf(ends)) {}

bool LineWalk::Next() {
    carry_.resize(0); // its room is kept
    for (;;) {
        if (rest_.isEmpty() && !reader_.next()) {
            if (atEnd_)
                return false;
            atEnd_ = true;
            line_ = carry_;
            ++number_;
            return true;
        }
        if (rest_.isEmpty())
            rest_ = reader_.piece();
        const qsizetype feed = rest_.indexOf(u'\n');
        if (feed < 0) {
            carry_ += rest_;
            position_ += rest_.size();
            rest_ = {};
            continue;
        }
        const QStringView part = rest_.first(feed);
        rest_ = rest_.sliced(feed + 1);
        position_ += feed + 1;
        if (TakeEnd(part))
            return true;
    }
}

// A line end has come, with `part` before it. False when it belongs to the line.
bool LineWalk::TakeEnd(QStringView part) {
    const text::LineEnd kind = ends_.each.empty() ? ends_.common : ends_.each[end_];
    ++end_;
    const bool ends = everyEnd_ || kind == separator_;
    if (ends && carry_.isEmpty()) {
        line_ = part;
    } else {
        carry_ += part;
        line_ = carry_;
    }
    if (line_.endsWith(u'\r'))
        line_.chop(1);
    if (ends) {
        ++number_;
        return true;
    }
    carry_.resize(line_.size());
    carry_ += kind == text::LineEnd::Cr ? u'\r' : u'\n';
    return false;
}

bool MixesLineEnds(const text::LineEnds& ends) {
    return !ends.each.empty();
}

} // namespace exchange
