// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <optional>

namespace nodes {

/// What the check of a value changes beside the document: the last parse error, and the caret of the text
/// view.
class BeforeCheck {
public:
    explicit BeforeCheck(DocumentWindow& window);
    /// The value was refused: the document is none the worse for it (quirk 24).
    void Restore();

private:
    DocumentWindow& window_;
    controls::RichTextBox& pane_;
    std::optional<xml::ParseError> error_;
    qsizetype start_, length_;
};

} // namespace nodes
