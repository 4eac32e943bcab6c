// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Bond.h"
#include <array>
#include <utility>

namespace {

using enum Standing;

// A row for each standing, a column for each move, in the order of the two enumerations.
constexpr Standing kMoves[][6] = {
    // TreeChanged, TextEdited, TextWritten, TextRead, TextRefused, TextTakenBack
    {TreeAhead, TextEdited, Agree, Agree, TextRefused, Agree},
    {TreeAheadTextEdited, TextEdited, Agree, Agree, TextRefused, Agree},
    {TreeAheadTextRefused, RefusedEdited, Agree, Agree, TextRefused, TextRefused},
    {TreeAheadRefusedEdited, RefusedEdited, Agree, Agree, TextRefused, TextRefused},
    {TreeAhead, TreeAheadTextEdited, Agree, Agree, TreeAheadTextRefused, TreeAhead},
    {TreeAheadTextEdited, TreeAheadTextEdited, Agree, Agree, TreeAheadTextRefused, TreeAhead},
    {TreeAheadTextRefused, TreeAheadRefusedEdited, Agree, Agree, TreeAheadTextRefused, TreeAheadTextRefused},
    {TreeAheadRefusedEdited, TreeAheadRefusedEdited, Agree, Agree, TreeAheadTextRefused,
     TreeAheadTextRefused},
};

} // namespace

Standing After(Standing standing, BondMove move) {
    return kMoves[static_cast<std::size_t>(standing)][static_cast<std::size_t>(move)];
}

void Bond::countTree(std::uint64_t now) {
    if (std::exchange(treeRevision_, now) != now)
        move(BondMove::TreeChanged);
}

void Bond::textRead(std::uint64_t treeRevision, const xml::Losses& losses) {
    move(BondMove::TextRead);
    treeRevision_ = treeRevision;
    losses_ = losses;
}

void Bond::textWritten() {
    move(BondMove::TextWritten);
    losses_ = {};
}

void Bond::takeTreeBack(const Bond& before) {
    treeRevision_ = before.treeRevision_;
    if (bTreeChanged() && !before.bTreeChanged())
        standing_ = static_cast<Standing>(static_cast<int>(standing_) - static_cast<int>(TreeAhead));
}

bool Bond::bTreeChanged() const {
    return standing_ >= TreeAhead;
}

bool Bond::bTextChanged() const {
    return standing_ == Standing::TextEdited || standing_ == RefusedEdited ||
           standing_ == TreeAheadTextEdited || standing_ == TreeAheadRefusedEdited;
}

bool Bond::refused() const {
    return standing_ == Standing::TextRefused || standing_ == RefusedEdited ||
           standing_ == TreeAheadTextRefused || standing_ == TreeAheadRefusedEdited;
}
