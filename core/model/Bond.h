// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include "platform/xml/Losses.h"
#include <cstdint>

/// How a window's tree and its text stand to each other. One of the two may be ahead of the other; a text
/// that the parser refused stays beside the tree of an earlier document.
enum class Standing : std::uint8_t {
    Agree,
    TextEdited,    ///< typed in; the tree doesn't show it yet
    TextRefused,   ///< the text didn't parse
    RefusedEdited, ///< and was edited since
    // The same four, with changes of the tree that the text doesn't show yet.
    TreeAhead,
    TreeAheadTextEdited,
    TreeAheadTextRefused,
    TreeAheadRefusedEdited
};

/// What moves them.
enum class BondMove : std::uint8_t {
    TreeChanged,
    TextEdited,
    TextWritten,  ///< the text was written anew from the tree
    TextRead,     ///< the tree was built anew from the text
    TextRefused,  ///< the text didn't parse, and the tree stays
    TextTakenBack ///< an edited text is what was read last again, or was saved as it is
};

/// What the user has said to a document's text being written anew although something is lost then.
enum class Rewriting : std::uint8_t {
    Unasked,
    TextStays, ///< not for an edit of the text
    Agreed     ///< whatever comes
};

/// The standing after a move.
Standing After(Standing standing, BondMove move);

/// A window's tree and text: their standing, and the texts that it is told by.
class Bond {
public:
    Standing standing() const { return standing_; }
    void move(BondMove move) { standing_ = After(standing_, move); }
    /// Counts the tree's changes up to its revision `now`: where there are any since they were last counted,
    /// the tree is ahead.
    void countTree(std::uint64_t now);
    /// What the tree has become by now is no change of the user's: it agrees with the text, or stays behind
    /// it.
    void passTree(std::uint64_t now) { treeRevision_ = now; }
    bool isTreeCounted(std::uint64_t now) const { return treeRevision_ == now; }
    /// The tree was built from the text, which lost something in it.
    void textRead(std::uint64_t treeRevision, const xml::Losses& losses);
    /// The text was written from the tree: it has no more than that.
    void textWritten();
    /// The tree's changes since a moment have been taken back; what happened to the text stays.
    void takeTreeBack(const Bond& before);

    bool bTreeChanged() const; ///< the tree changed and the text doesn't show it yet
    bool bTextChanged() const; ///< the text was edited and the tree doesn't show it yet
    bool refused() const;      ///< the tree is that of an earlier document

    /// What the text has and the tree lacks: lost once it is written anew.
    const xml::Losses& losses() const { return losses_; }
    Rewriting rewriting = Rewriting::Unasked;

    text::LongText msOpenText;       ///< the text at the last open or save
    text::LongText msLastParsedText; ///< the text that the tree was last built from, or that was refused
    bool untried = false;            ///< the text came from the tree and was too long to be parsed at once

private:
    Standing standing_ = Standing::Agree;
    xml::Losses losses_;
    std::uint64_t treeRevision_ = 0; ///< of the tree when its changes were last counted
};
