// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/samples/PatternNet.h"
#include <algorithm>
#include <utility>
#include <xercesc/util/regx/ParserForXMLSchema.hpp>

namespace samples {

namespace {

using xercesc::Token;

constexpr std::size_t kMostNodes = 60000;
constexpr std::size_t kMostSteps = 2000000;
constexpr int kSchemaSyntax = 512; // the library's number for the syntax of schemas

} // namespace

bool CharSet::Has(std::int32_t character) const {
    if (one_ >= 0)
        return character == one_;
    return range_ ? range_->match(character) : character != '\n' && character != '\r';
}

PatternNet::PatternNet(const std::u16string& expression) {
    xercesc::ParserForXMLSchema parser;
    parser.setTokenFactory(&tokens_);
    const std::uint32_t end = Build(parser.parse(expression.c_str(), kSchemaSyntax), Add());
    if (!tooLarge_)
        Close(end);
    nodes_.clear();
}

// All states that a value may lead to, side by side: no value takes longer than its length asks for.
bool PatternNet::Reads(const std::u16string& value) const {
    if (tooLarge_)
        return true;
    std::vector<bool> at(states_.size());
    at[kStart] = true;
    for (std::size_t i = 0; i < value.size(); ++i) {
        std::int32_t character = value[i];
        if (character >= 0xD800 && character < 0xDC00 && i + 1 < value.size())
            character = 0x10000 + ((character - 0xD800) << 10) + (value[++i] - 0xDC00);
        std::vector<bool> next(states_.size());
        for (std::size_t state = 0; state < states_.size(); ++state) {
            for (std::size_t step = 0; at[state] && step < states_[state].steps.size(); ++step) {
                if (states_[state].steps[step].set.Has(character))
                    next[states_[state].steps[step].to] = true;
            }
        }
        at = std::move(next);
    }
    for (std::size_t state = 0; state < states_.size(); ++state) {
        if (at[state] && states_[state].ends)
            return true;
    }
    return false;
}

std::uint32_t PatternNet::Add() {
    if (nodes_.size() >= kMostNodes) {
        tooLarge_ = true;
        return 0;
    }
    nodes_.emplace_back();
    return static_cast<std::uint32_t>(nodes_.size() - 1);
}

// Where a token that is read from `from` on ends.
std::uint32_t PatternNet::Build(Token* token, std::uint32_t from) {
    if (tooLarge_ || !token)
        return from;
    switch (token->getTokenType()) {
    case Token::T_CHAR:
    case Token::T_ANCHOR:
        return Chars(CharSet(token->getChar()), from);
    case Token::T_DOT:
        return Chars(CharSet(nullptr), from);
    case Token::T_RANGE:
    case Token::T_NRANGE:
        return Chars(CharSet(static_cast<xercesc::RangeToken*>(token)), from);
    case Token::T_STRING:
        for (const XMLCh* at = token->getString(); *at; ++at)
            from = Chars(CharSet(*at), from);
        return from;
    case Token::T_CONCAT:
        return Sequence(token, from);
    case Token::T_UNION:
        return Union(token, from);
    case Token::T_PAREN:
        return Build(token->getChild(0), from);
    case Token::T_CLOSURE:
    case Token::T_NONGREEDYCLOSURE:
        return Repeat(token->getChild(0), token->getMin(), token->getMax(), from);
    default:
        return from;
    }
}

std::uint32_t PatternNet::Chars(const CharSet& set, std::uint32_t from) {
    const std::uint32_t own = Add(), to = Add();
    nodes_[from].free.push_back(own);
    nodes_[own].step = Step{set, to};
    return to;
}

// "x+" comes as x and x*, which would double with each level of brackets.
std::uint32_t PatternNet::Sequence(Token* token, std::uint32_t from) {
    if (token->size() == 2) {
        Token* const rest = token->getChild(1);
        if (rest->getTokenType() == Token::T_CLOSURE && rest->getChild(0) == token->getChild(0) &&
            rest->getMin() < 0 && rest->getMax() < 0)
            return Loop(token->getChild(0), from);
    }
    for (XMLSize_t i = 0; i < token->size(); ++i)
        from = Build(token->getChild(i), from);
    return from;
}

std::uint32_t PatternNet::Union(Token* token, std::uint32_t from) {
    const std::uint32_t end = Add();
    for (XMLSize_t i = 0; i < token->size(); ++i) {
        const std::uint32_t begin = Add();
        nodes_[from].free.push_back(begin);
        const std::uint32_t last = Build(token->getChild(i), begin);
        nodes_[last].free.push_back(end);
    }
    return end;
}

std::uint32_t PatternNet::Repeat(Token* token, int least, int most, std::uint32_t from) {
    for (int i = 0; i < least && !tooLarge_; ++i)
        from = Build(token, from);
    if (most < 0) {
        const std::uint32_t end = Loop(token, from);
        nodes_[from].free.push_back(end);
        return end;
    }
    const std::uint32_t end = Add();
    for (int i = std::max(least, 0); i < most && !tooLarge_; ++i) {
        nodes_[from].free.push_back(end);
        from = Build(token, from);
    }
    nodes_[from].free.push_back(end);
    return end;
}

std::uint32_t PatternNet::Loop(Token* token, std::uint32_t from) {
    const std::uint32_t begin = Add();
    nodes_[from].free.push_back(begin);
    const std::uint32_t last = Build(token, begin), end = Add();
    nodes_[last].free.push_back(begin);
    nodes_[last].free.push_back(end);
    return end;
}

// States are the start and where characters lead; what needs no character is walked here once.
void PatternNet::Close(std::uint32_t end) {
    std::vector<std::uint32_t> number(nodes_.size(), 0), seen(nodes_.size(), 0), first{0};
    std::size_t steps = 0;
    for (std::size_t state = 0; state < first.size() && !tooLarge_; ++state) {
        State& made = states_.emplace_back();
        std::vector<std::uint32_t> open{first[state]};
        while (!open.empty()) {
            const std::uint32_t at = open.back();
            open.pop_back();
            if (std::exchange(seen[at], static_cast<std::uint32_t>(state + 1)) == state + 1)
                continue;
            made.ends = made.ends || at == end;
            open.insert(open.end(), nodes_[at].free.begin(), nodes_[at].free.end());
            if (!nodes_[at].step)
                continue;
            Step step = *nodes_[at].step;
            if (number[step.to] == 0) {
                first.push_back(step.to);
                number[step.to] = static_cast<std::uint32_t>(first.size() - 1);
            }
            step.to = number[step.to];
            made.steps.push_back(step);
            tooLarge_ = tooLarge_ || ++steps > kMostSteps;
        }
    }
}

} // namespace samples
