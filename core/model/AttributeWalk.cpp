// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/AttributeWalk.h"
#include <algorithm>
#include <cstring>
#include <string_view>

namespace m_tvXML {

text::CompactView AttributeWalk::Part(std::uint32_t from, std::uint32_t to) const {
    return {tag_.data + (tag_.wide ? 2 : 1) * static_cast<std::size_t>(from), to - from, tag_.wide};
}

std::uint32_t AttributeWalk::FindQuote(std::uint32_t from) const {
    if (from >= tag_.length)
        return tag_.length;
    if (!tag_.wide) {
        const void* found = std::memchr(tag_.data + from, '"', tag_.length - from);
        return found ? static_cast<std::uint32_t>(static_cast<const unsigned char*>(found) - tag_.data)
                     : tag_.length;
    }
    const std::u16string_view units(reinterpret_cast<const char16_t*>(tag_.data), tag_.length);
    return static_cast<std::uint32_t>(std::min<std::size_t>(units.find(u'"', from), tag_.length));
}

bool AttributeWalk::next() {
    while (at_ < tag_.length) {
        std::uint32_t start = at_, end = FindQuote(at_);
        valueStart_ = std::min(end + 1, tag_.length);
        valueEnd_ = FindQuote(valueStart_);
        at_ = std::min(valueEnd_ + 1, tag_.length);
        while (start < end && tag_.at(start) == u' ')
            ++start;
        while (end > start && tag_.at(end - 1) == u' ')
            --end;
        if (end - start < 2) // the last character is the "="
            continue;
        nameStart_ = start;
        nameEnd_ = end - 1;
        return true;
    }
    return false;
}

} // namespace m_tvXML
