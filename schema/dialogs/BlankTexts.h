// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <vector>

namespace schema {

/// Whether some element of the documents, as they are written, has blanks and nothing else between its tags.
/// Their trees don't tell: the parser drops them. It may be told of a document without one, where a comment
/// looks like a tag, but not the other way round.
bool HaveBlankTexts(const std::vector<text::LongText>& documents);

} // namespace schema
