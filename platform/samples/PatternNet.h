// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <xercesc/util/regx/RangeToken.hpp>
#include <xercesc/util/regx/Token.hpp>
#include <xercesc/util/regx/TokenFactory.hpp>

namespace samples {

/// The characters that one place of an expression takes.
class CharSet {
public:
    explicit CharSet(std::int32_t one) : one_(one) {}
    explicit CharSet(xercesc::RangeToken* range) : range_(range) {} ///< null: all but line ends
    bool Has(std::int32_t character) const;
    std::int32_t One() const { return one_; } ///< -1 where it isn't a single one
    bool operator==(const CharSet&) const = default;

private:
    std::int32_t one_ = -1;
    xercesc::RangeToken* range_ = nullptr;
};

/// An expression of the schema language as a net of states. The
/// syntax is the schema library's, so what is written by a net is read by the check.
class PatternNet {
public:
    /// Throws xercesc::XMLException for what is no expression.
    explicit PatternNet(const std::u16string& expression);
    PatternNet(const PatternNet&) = delete;
    PatternNet& operator=(const PatternNet&) = delete;

    struct Step {
        CharSet set;
        std::uint32_t to;
    };
    struct State {
        std::vector<Step> steps;
        bool ends = false; ///< what was read so far matches
    };
    static constexpr std::uint32_t kStart = 0;
    /// Whether it reads a whole value; true where there are no states.
    bool Reads(const std::u16string& value) const;
    /// Nothing where counts inside counts make more of them than can be kept.
    const std::vector<State>* States() const { return tooLarge_ ? nullptr : &states_; }

private:
    struct Node {
        std::vector<std::uint32_t> free; ///< where it leads without a character
        std::optional<Step> step;
    };
    std::uint32_t Add();
    std::uint32_t Build(xercesc::Token* token, std::uint32_t from);
    std::uint32_t Chars(const CharSet& set, std::uint32_t from);
    std::uint32_t Sequence(xercesc::Token* token, std::uint32_t from);
    std::uint32_t Union(xercesc::Token* token, std::uint32_t from);
    std::uint32_t Repeat(xercesc::Token* token, int least, int most, std::uint32_t from);
    std::uint32_t Loop(xercesc::Token* token, std::uint32_t from);
    void Close(std::uint32_t end);

    xercesc::TokenFactory tokens_;
    std::vector<Node> nodes_;
    std::vector<State> states_;
    bool tooLarge_ = false;
};

} // namespace samples
