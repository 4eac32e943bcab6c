// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/CompactText.h"

namespace m_tvXML {

/// Steps through an element's Tag as GetAllAttributesNameAndValue takes it apart, without a copy of anything:
/// for tables of a million rows. Pairs without a name are passed over.
class AttributeWalk {
public:
    explicit AttributeWalk(text::CompactView tag) : tag_(tag) {}

    /// Goes to the next pair; false behind the last one.
    bool next();
    text::CompactView name() const { return Part(nameStart_, nameEnd_); }
    text::CompactView value() const { return Part(valueStart_, valueEnd_); }
    // Places in the Tag: of the name, and of the value between its quotes.
    std::uint32_t nameStart() const { return nameStart_; }
    std::uint32_t nameEnd() const { return nameEnd_; }
    std::uint32_t valueStart() const { return valueStart_; }
    std::uint32_t valueEnd() const { return valueEnd_; }

private:
    text::CompactView Part(std::uint32_t from, std::uint32_t to) const;
    std::uint32_t FindQuote(std::uint32_t from) const; ///< the length where there is none

    text::CompactView tag_;
    std::uint32_t at_ = 0; ///< behind the pair
    std::uint32_t nameStart_ = 0, nameEnd_ = 0, valueStart_ = 0, valueEnd_ = 0;
};

} // namespace m_tvXML
