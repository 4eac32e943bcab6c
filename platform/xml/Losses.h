// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <limits>

namespace xml {

/// How much of a text its nodes don't keep, or not as it was written: what is lost when the document is
/// written anew from them.
struct Losses {
    int documentTypes = 0; ///< document type declarations
    int sections = 0;      ///< CDATA sections
    int references = 0; ///< references to entities but the five that XML has itself; those that stand in an
                        ///< entity's own content don't count
    int blanks = 0;     ///< texts of blanks between two siblings that were dropped though they are no layout:
                        ///< they have no line end, or stand beside other text, and aren't
                        ///< those that come back when the document is written
    int preserved = 0;  ///< elements under xml:space="preserve" with a text that is blank, or starts or ends
                        ///< with a line end: indenting changes their spacing

    bool any() const {
        return documentTypes != 0 || sections != 0 || references != 0 || blanks != 0 || preserved != 0;
    }

    /// Adds to one of the counts, which stays at the largest number once it is reached.
    static void add(int& count, unsigned more = 1) {
        const auto room = static_cast<unsigned>(std::numeric_limits<int>::max() - count);
        count += static_cast<int>(more < room ? more : room);
    }
};

} // namespace xml
