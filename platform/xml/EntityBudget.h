// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>

namespace xml {

/// Bounds what the entities of a document may expand to, so that a short text cannot fill the memory.
class EntityBudget {
public:
    /// The budget for a text of so many units: room for honest documents that write every character of a kind
    /// as an entity, and little more than the text itself for all others.
    void start(std::size_t textLength) {
        left_ = kFree + kPerUnit * textLength;
        lastPlace_ = 0;
        parameters_ = 0;
        markup_ = 0;
    }

    /// Takes off one reference to a content of that length; `place` is where the outermost reference ends in
    /// the text. False when the budget is spent.
    bool charge(std::size_t contentLength, std::size_t place) {
        // Entities inside entities each need a parser of their own, and their number can explode.
        const std::size_t cost = contentLength + (place == lastPlace_ ? kNestedCost : kDirectCost);
        lastPlace_ = place;
        return take(cost);
    }

    /// Takes off one reference inside the document type declaration. These cost far more time than others:
    /// the parser library compares each name of a list with all before it.
    bool chargeParameter(std::size_t contentLength) {
        parameters_ += contentLength + kNestedCost;
        return parameters_ <= kMaxParameters;
    }

    /// Takes off the content of an entity that is declared with markup in it. The parser library takes such a
    /// content apart in one go, so nothing can stop it there.
    bool chargeMarkup(std::size_t contentLength) {
        markup_ += contentLength;
        return markup_ <= kMaxMarkup;
    }

    /// Takes off one attribute that an element gets by default.
    bool chargeDefault(std::size_t length) { return take(length + kDirectCost); }

private:
    bool take(std::size_t cost) {
        if (cost > left_) {
            left_ = 0;
            return false;
        }
        left_ -= cost;
        return true;
    }

    static constexpr std::size_t kFree = 20'000'000;
    static constexpr std::size_t kPerUnit = 4;
    static constexpr std::size_t kDirectCost = 8;
    static constexpr std::size_t kNestedCost = 64;
    static constexpr std::size_t kMaxParameters = 1'000'000;
    static constexpr std::size_t kMaxMarkup = 2'000'000;

    std::size_t left_ = 0;
    std::size_t lastPlace_ = 0;
    std::size_t parameters_ = 0;
    std::size_t markup_ = 0;
};

} // namespace xml
