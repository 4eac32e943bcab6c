// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/samples/Builder.h"
#include "platform/samples/Instance.h"
#include <functional>
#include <string>
#include <vector>
#include <xercesc/framework/XMLGrammarPool.hpp>

namespace samples {

struct Wish {
    Amount amount = Amount::Typical;
    std::uint64_t seed = 0;
    std::u16string rootSpace, root; ///< without a name the schema's own choice
    Binding binding;
};

struct Outcome {
    std::u16string text;                 ///< empty where there is none that is good
    std::vector<std::u16string> remarks; ///< why there is none, or why it is another one than was wished for
};

/// Makes a document by the schemas of a locked pool. `faultOf` checks one and tells its first fault, empty
/// for a good one: what doesn't pass is never told as a sample.
Outcome MakeSample(xercesc::XMLGrammarPool& pool, const Wish& wish,
                   const std::function<std::u16string(const std::u16string&)>& faultOf);

} // namespace samples
