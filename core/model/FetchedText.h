// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include "platform/text/TextFile.h"
#include "platform/text/TextTools.h"
#include <memory>
#include <optional>

namespace xml {
class ParsedDocument;
}

/// A document's text as it was fetched, and how its file writes it.
struct FetchedText {
    text::LongText text; ///< with CR LF line ends
    text::FileForm form;
    std::optional<services::FileMark> mark; ///< of the file that it was read from
    bool cancelled = false;                 ///< the user stopped the fetching: nothing is to follow
    bool made = false; ///< by the program: it stands in no file yet, and counts as changed (quirk 99)
    /// The text taken apart, also where that failed; nothing before that. What parses the text
    /// first takes it along, so that a large one isn't kept longer than it is needed.
    mutable std::shared_ptr<xml::ParsedDocument> parsed;
    /// Keeps the bar of a long fetching open until the document stands.
    std::shared_ptr<void> bar;
    FetchedText() = default;
    // NOLINTBEGIN: a plain text is a fetched one without a file
    FetchedText(const QString& plain) : text(text::ToCrLf(plain)) {}
    FetchedText(const text::LongText& plain) : text(plain) {}
    // NOLINTEND
};
