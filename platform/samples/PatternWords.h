// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/PatternNet.h"
#include "platform/samples/Random.h"
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace samples {

/// Words that every one of several nets reads. All work is bounded, whatever the expressions are.
class PatternWords {
public:
    /// All of the patterns are to match; words look like `look`, too, unless that is empty. Throws
    /// xercesc::XMLException.
    PatternWords(const std::vector<std::u16string>& patterns, const std::u16string& look);

    /// A word with so many characters at least and at most; short ones come first, others with other states
    /// of `random`. Nothing where there is none, or none could be found within the bounds.
    std::optional<std::u16string> Word(std::size_t least, std::size_t most, Random& random);

    /// Whether each of the patterns matches a value.
    bool Match(const std::u16string& value) const;

private:
    using Place = std::vector<std::uint32_t>; ///< a state of each net
    struct Edge {
        std::vector<std::int32_t> characters; ///< some of those that lead there
        std::uint32_t to;
    };
    struct State {
        std::vector<Edge> edges;
        bool ends = false;
    };
    void Explore();
    void Follow(const Place& place, std::size_t net, std::vector<CharSet>& sets, Place& to,
                std::vector<Edge>& edges);
    std::uint32_t NumberOf(const Place& place);
    const std::vector<std::int32_t>& Common(const std::vector<CharSet>& sets);
    std::size_t Shortest() const;
    bool CountBack(std::size_t least, std::size_t most);

    std::vector<std::unique_ptr<PatternNet>> nets_;
    std::map<Place, std::uint32_t> numbers_;
    std::vector<Place> places_;
    std::vector<State> states_;
    std::vector<std::pair<std::vector<CharSet>, std::vector<std::int32_t>>> common_;
    std::vector<std::vector<bool>> endsIn_; ///< by length and state: it can end in just so many characters
    std::size_t patterns_ = 0;              ///< the first ones of the nets
    bool good_ = true;
};

} // namespace samples
