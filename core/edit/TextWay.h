// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"
#include <QString>
#include <functional>

namespace edit {

/// How a document's text is read and written: the one record by which the rest reaches the room that keeps
/// the text. Where it builds
/// the tree anew it opens an edit, with that routine's error exit.
struct TextWay {
    /// The text as it would be saved.
    const text::LongText& (*text)(const DocumentWindow& window);
    /// A new document's text, and the tree from it; the history begins with it.
    void (*begin)(DocumentWindow& window, const FetchedText& fetched);
    /// Another text of the same document, and the tree from it, as one step of the history.
    void (*renew)(DocumentWindow& window, const FetchedText& fetched);
    /// A new document without a text: the tree is there, and the text is made from it. The history begins.
    void (*beginFromTree)(DocumentWindow& window);
    /// An edited text into the tree. False when it doesn't parse and the user has just been told; true also
    /// when there was nothing to do.
    bool (*read)(DocumentWindow& window);
    /// The text from the changed tree, as one step of the history.
    void (*write)(DocumentWindow& window);
    /// Text and history as they stand, for what may fail half done: what is returned brings them back.
    std::function<void()> (*keep)(DocumentWindow& window);
    /// Another text in the place of the whole, with its tree, as one step: saving may have changed the
    /// declaration.
    void (*replace)(DocumentWindow& window, const QString& text);
};

} // namespace edit
