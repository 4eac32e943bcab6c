// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/PatternWords.h"
#include <algorithm>

namespace samples {

namespace {

constexpr std::size_t kMostStates = 40000;
constexpr std::size_t kMostEdges = 200000;
constexpr std::size_t kMostCells = 40000000; // of the table of lengths
constexpr std::size_t kMostSets = 1000;      // that are looked through for characters in common
constexpr std::size_t kSpare = 12;           // lengths beyond the shortest that are tried
constexpr std::size_t kCharacters = 6;       // of a place that are kept
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool IsInXml(std::int32_t character) {
    return character == '\t' || character == '\n' || (character >= 0x20 && character < 0xD800) ||
           (character >= 0xE000 && character < 0xFFFE) || (character >= 0x10000 && character < 0x110000);
}

bool AllHave(const std::vector<CharSet>& sets, std::int32_t character) {
    return IsInXml(character) &&
           std::all_of(sets.begin(), sets.end(), [&](const CharSet& set) { return set.Has(character); });
}

// Letters first, then digits, then the rest of ASCII: what a person would type.
std::vector<std::int32_t> Pick(const std::vector<CharSet>& sets) {
    std::vector<std::int32_t> found;
    for (const CharSet& set : sets) {
        if (set.One() >= 0)
            return AllHave(sets, set.One()) ? std::vector{set.One()} : found;
    }
    const auto look = [&](std::int32_t from, std::int32_t to) {
        for (std::int32_t one = from; one <= to && found.size() < kCharacters; ++one) {
            if (AllHave(sets, one))
                found.push_back(one);
        }
    };
    look('a', 'z');
    look('A', 'Z');
    look('0', '9');
    if (found.empty())
        look('!', '~');
    if (found.empty())
        look(0xC0, 0x24F);
    if (found.empty())
        look(0x9, sets.size() == 1 ? 0x10FFFF : 0x2FFF); // nearly all that have nothing in common are here
    return found;
}

void Append(std::u16string& word, std::int32_t character) {
    if (character < 0x10000) {
        word += static_cast<char16_t>(character);
        return;
    }
    word += static_cast<char16_t>(0xD7C0 + (character >> 10));
    word += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

} // namespace

PatternWords::PatternWords(const std::vector<std::u16string>& patterns, const std::u16string& look)
    : patterns_(patterns.size()) {
    for (const std::u16string& one : patterns)
        nets_.push_back(std::make_unique<PatternNet>(one));
    if (!look.empty())
        nets_.push_back(std::make_unique<PatternNet>(look));
    good_ = std::all_of(nets_.begin(), nets_.end(), [](const auto& net) { return net->States(); });
    if (good_)
        Explore();
}

bool PatternWords::Match(const std::u16string& value) const {
    return std::all_of(nets_.begin(), nets_.begin() + static_cast<std::ptrdiff_t>(patterns_),
                       [&](const auto& net) { return net->Reads(value); });
}

void PatternWords::Explore() {
    std::size_t edges = 0;
    NumberOf(Place(nets_.size(), PatternNet::kStart));
    for (std::size_t at = 0; at < places_.size() && good_; ++at) {
        const Place place = places_[at];
        State state{{}, true};
        for (std::size_t net = 0; net < nets_.size(); ++net)
            state.ends = state.ends && (*nets_[net]->States())[place[net]].ends;
        std::vector<CharSet> sets;
        Place to;
        Follow(place, 0, sets, to, state.edges);
        edges += state.edges.size();
        good_ = good_ && places_.size() <= kMostStates && edges <= kMostEdges;
        states_.push_back(std::move(state));
    }
}

// All that the nets can do together from a place.
void PatternWords::Follow(const Place& place, std::size_t net, std::vector<CharSet>& sets, Place& to,
                          std::vector<Edge>& edges) {
    if (!good_)
        return;
    if (net == nets_.size()) {
        const std::vector<std::int32_t>& characters = Common(sets);
        if (!characters.empty())
            edges.push_back({characters, NumberOf(to)});
        return;
    }
    for (const PatternNet::Step& step : (*nets_[net]->States())[place[net]].steps) {
        sets.push_back(step.set);
        to.push_back(step.to);
        Follow(place, net + 1, sets, to, edges);
        sets.pop_back();
        to.pop_back();
    }
}

std::uint32_t PatternWords::NumberOf(const Place& place) {
    const auto [at, added] = numbers_.try_emplace(place, static_cast<std::uint32_t>(places_.size()));
    if (added)
        places_.push_back(place);
    return at->second;
}

const std::vector<std::int32_t>& PatternWords::Common(const std::vector<CharSet>& sets) {
    static const std::vector<std::int32_t> none;
    const auto found =
        std::find_if(common_.begin(), common_.end(), [&](const auto& one) { return one.first == sets; });
    if (found != common_.end())
        return found->second;
    good_ = good_ && common_.size() < kMostSets;
    return good_ ? common_.emplace_back(sets, Pick(sets)).second : none;
}

// Of all words; kNone where there are none.
std::size_t PatternWords::Shortest() const {
    std::vector<std::size_t> length(states_.size(), kNone);
    std::vector<std::uint32_t> open{0};
    length[0] = 0;
    for (std::size_t at = 0; at < open.size(); ++at) {
        const State& state = states_[open[at]];
        if (state.ends)
            return length[open[at]];
        for (const Edge& edge : state.edges) {
            if (length[edge.to] != kNone)
                continue;
            length[edge.to] = length[open[at]] + 1;
            open.push_back(edge.to);
        }
    }
    return kNone;
}

bool PatternWords::CountBack(std::size_t least, std::size_t most) {
    const std::size_t shortest = Shortest();
    if (shortest == kNone || shortest > most)
        return false;
    const std::size_t longest = std::min(most, std::max(least, shortest) + kSpare);
    if (longest * states_.size() > kMostCells)
        return false;
    for (std::size_t length = endsIn_.size(); length <= longest; ++length) {
        std::vector<bool>& row = endsIn_.emplace_back(states_.size());
        for (std::size_t i = 0; i < states_.size(); ++i)
            row[i] = length == 0
                         ? states_[i].ends
                         : std::any_of(states_[i].edges.begin(), states_[i].edges.end(),
                                       [&](const Edge& edge) { return endsIn_[length - 1][edge.to]; });
    }
    return true;
}

std::optional<std::u16string> PatternWords::Word(std::size_t least, std::size_t most, Random& random) {
    if (!good_ || !CountBack(least, most))
        return {};
    std::vector<std::size_t> lengths;
    for (std::size_t length = least; length < endsIn_.size() && length <= most; ++length) {
        if (endsIn_[length][0])
            lengths.push_back(length);
    }
    if (lengths.empty())
        return {};
    std::u16string word;
    std::uint32_t at = 0;
    for (std::size_t left = lengths[random.Below(random.Below(lengths.size()) + 1)]; left > 0; --left) {
        std::vector<const Edge*> ways;
        for (const Edge& edge : states_[at].edges) {
            if (endsIn_[left - 1][edge.to])
                ways.push_back(&edge);
        }
        const Edge& way = *ways[random.Below(ways.size())];
        Append(word, way.characters[random.Below(way.characters.size())]);
        at = way.to;
    }
    return word;
}

} // namespace samples
