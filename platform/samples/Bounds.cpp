// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/Bounds.h"
#include <algorithm>

namespace samples {

namespace {

using Text = std::u16string;

bool IsDigit(char16_t letter) {
    return letter >= u'0' && letter <= u'9';
}

// The last digit first; what is carried out in front makes the number longer.
Text CountedUp(Text digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != u'9') {
            ++digits[i];
            return digits;
        }
        digits[i] = u'0';
    }
    return u'1' + digits;
}

Text CountedDown(Text digits) {
    const bool zero = std::all_of(digits.begin(), digits.end(), [](char16_t one) { return one == u'0'; });
    if (zero)
        return {};
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != u'0') {
            --digits[i];
            return digits;
        }
        digits[i] = u'9';
    }
    return digits;
}

void AddNear(std::vector<Text>& all, const Text& before, const Text& digits, const Text& behind) {
    all.push_back(before + CountedUp(digits) + behind);
    if (const Text down = CountedDown(digits); !down.empty())
        all.push_back(before + down + behind);
}

bool IsPlainNumber(const Text& bound) {
    return std::all_of(bound.begin(), bound.end(), [](char16_t one) {
        return IsDigit(one) || one == u'-' || one == u'+' || one == u'.';
    });
}

// One digit more than the bound has, for a range with nothing else between its ends.
void AddFiner(std::vector<Text>& all, const Text& bound, std::size_t fraction) {
    const std::size_t point = bound.find(u'.');
    const std::size_t digits = point == Text::npos ? 0 : bound.size() - point - 1;
    if (digits >= fraction)
        return;
    const Text longer = bound + (point == Text::npos ? u".0" : u"0");
    const std::size_t start = longer.find_first_not_of(u"-+");
    all.push_back(bound + (point == Text::npos ? u".5" : u"5"));
    Text whole = longer.substr(start);
    const std::size_t at = whole.find(u'.');
    whole.erase(at, 1);
    for (Text one : {CountedUp(whole), CountedDown(whole)}) {
        if (!one.empty())
            all.push_back(longer.substr(0, start) + one.insert(one.size() - (whole.size() - at), u"."));
    }
}

} // namespace

std::vector<Text> ValuesNear(const Text& bound, std::size_t fraction) {
    std::vector<Text> all{bound};
    for (std::size_t end = bound.size(); end > 0;) {
        if (!IsDigit(bound[end - 1])) {
            --end;
            continue;
        }
        std::size_t start = end;
        while (start > 0 && IsDigit(bound[start - 1]))
            --start;
        AddNear(all, bound.substr(0, start), bound.substr(start, end - start), bound.substr(end));
        end = start;
    }
    if (IsPlainNumber(bound) && bound.find_last_of(u"-") == bound.find_first_of(u"-"))
        AddFiner(all, bound, fraction);
    if (bound == u"0" || bound == u"0.0")
        all.insert(all.end(), {u"-1", u"-0.1"});
    return all;
}

} // namespace samples
