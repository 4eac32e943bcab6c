// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/CompactText.h"
#include "schema/infer/ElementFacts.h"
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace schema {

/// Takes what documents consist of, in their order, and keeps what a schema needs to know of it. Names are
/// told as they are written; prefixes are followed here.
class Collector {
public:
    explicit Collector(DocumentFacts& facts) : facts_(facts) {}

    /// An element begins. `attributes`: as its start tag has them, name="value" with blanks between, in
    /// double quotes. False once there is more than can be taken.
    bool Open(text::CompactView name, text::CompactView attributes);
    /// Text of the element, as it is written; `plain`: characters stand for themselves, as in a section.
    void Text(text::CompactView text, bool plain);
    void Close();

private:
    struct Frame {
        std::uint32_t element = 0;
        std::uint32_t last = 0; ///< child before, plus 1; 0 at the beginning
        bool hasText = false, isNil = false;
        text::CompactView text;
        std::u16string joined;              ///< where it comes in pieces
        std::vector<std::uint32_t> touched; ///< children, each once
        std::vector<std::uint32_t> counts;  ///< by child
        std::size_t spaces = 0;             ///< declarations of prefixes around it
    };
    struct Prefix {
        QString prefix, space;
    };
    void Declare(text::CompactView attributes);
    void AddAttributes(ElementFacts& element, text::CompactView attributes, Frame& frame);
    void AddChild(Frame& parent, std::uint32_t element);
    void EndContent(Frame& frame);
    void EndText(ElementFacts& element, Frame& frame);
    void AddProfile(OrderFacts& order, Frame& frame);
    ExpandedName Expanded(const QString& name, bool attribute) const;
    std::uint32_t ElementOf(text::CompactView name);
    std::uint32_t ValuesOf(const ExpandedName& name, const ElementFacts::AttributeFacts& facts);

    DocumentFacts& facts_;
    std::deque<Frame> frames_; ///< kept for the next elements; `depth_` of them are open
    std::size_t depth_ = 0;
    std::vector<Prefix> prefixes_;
    std::unordered_map<std::string, std::uint32_t> known_; ///< elements by name, as prefixes stand now
    std::string scratch_;
    std::vector<std::uint32_t> profile_;
    /// Attributes by name as it is written, for the element that came last of each name.
    struct KnownAttribute {
        ElementFacts::AttributeFacts* facts = nullptr;
        ValueFacts* values = nullptr;
        enum { Counted, Passed, Nil, Type } kind = Counted;
    };
    std::vector<std::unordered_map<std::string, KnownAttribute>> attributes_; ///< by element
};

} // namespace schema
