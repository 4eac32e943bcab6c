// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"
#include "core/model/DocumentWindow.h"
#include "core/model/NodeKind.h"
#include <QString>
#include <cstddef>
#include <string_view>

// Commands as data. A command is one row of the table of the room that it belongs to: its menu entries and
// its button, when it is offered, what it runs. The frame collects the tables. Captions, shortcuts and the
// order of menus and toolbars are the frame's (shell/MenuData.cpp, shell/ToolbarData.cpp).
namespace edit {

// --- when it is offered -----------------------------------------------------------------------------------

/// What conditions ask about, told once for all rows: a window as it stands, and what commands would work on.
struct Target {
    int kind = m_tvXML::kTreeRoot; ///< of the current node, or of the one that the selected row is about
    bool atRootLevel = false;      ///< that node stands directly below the tree root
    bool keepsLabel = false;       ///< its name can't be edited where it stands
    bool hasLevelAbove = false;    ///< the tree's current node isn't the tree root
    bool hasRootElement = false;   ///< the document
    bool canPaste = false, canUndo = false, canRedo = false;
    int view = kViewTree;        ///< on show
    bool editsCell = false;      ///< the editor of a cell is open
    bool hasDiagnostics = false; ///< the last check has found something
    // In a window that designs schemas:
    QString elementName;                            ///< local name of that node, if it is an element
    bool offersMsSql = false, offersOracle = false; ///< the extensions that are enabled
    bool hasInstance = false;                       ///< something is selected in the tree of the compact view
    int instance = m_tvXML::kTreeRoot; ///< kind of what is selected in the compact view; kTreeRoot: nothing
    bool operator==(const Target&) const = default;
};
using Condition = bool (*)(const Target& target);

/// A letter for each menu situation, in the order of MenuSituation, blanks between them as one likes; one
/// more for the tree root of a schema where that isn't as in other documents:
///   E D   offered, or not
///   -     offered in every window of its kind
///   c     something can be pasted
///   u r   there is a step to undo, to redo
///   h     the document has no root element
///   k     as the entry's condition says, in the windows of its kind
using Offered = const char*;

/// The windows that have a command at all.
enum class In { AnyWindow, XMLWindow, SchemaWindow };

struct Entry {
    const char* name = nullptr;
    Condition allowed = nullptr;   ///< condition k
    Condition checked = nullptr;   ///< bears a check mark; null: never
    bool hides = false;            ///< it isn't there at all where it isn't offered
    Condition inCompact = nullptr; ///< condition in the compact view; null: as in a view without editing
};

/// A toolbar's button. Rows may share one: the first of them that is offered runs.
struct Button {
    const char* toolbar = nullptr;
    const char* key = nullptr;
    const char* choice = nullptr; ///< key of the entry of its drop-down that is meant; null: the button
    Condition allowed = nullptr;  ///< condition k; null: that of the first entry
};

/// A command as menus and toolbars show it.
struct Offer {
    Entry entries[3] = {};     ///< the context menu's among them; those without a name aren't there
    Button button = {};        ///< the same
    Offered offered = nullptr; ///< null: in every window of its kind; empty: its owner sees to that
    In in = In::AnyWindow;
};

/// Whether a row has a letter for each situation, each of them one that means something.
constexpr bool IsComplete(Offered offered) {
    constexpr auto kSituations = static_cast<std::size_t>(MenuSituation::ViewWithoutEditing) + 1;
    std::size_t letters = 0;
    for (const char letter : std::string_view(offered ? offered : "")) {
        if (letter != ' ' && std::string_view("ED-curhk").find(letter) == std::string_view::npos)
            return false;
        letters += letter != ' ' ? 1 : 0;
    }
    return letters == 0 || letters == kSituations || letters == kSituations + 1;
}
/// The same for each row of a table.
template <typename Rows> constexpr bool AreComplete(const Rows& rows) {
    for (const auto& row : rows) {
        if (!IsComplete(row.offer.offered))
            return false;
    }
    return true;
}

// --- what it runs ------------------------------------------------------------------------------------------

using Routine = void (*)(DocumentWindow& window);

/// A command's routine for the view that has the user's attention, as miPopupContext numbers it.
struct Form {
    int context = 0; ///< 0: any for which there is no other form
    Routine run = nullptr;
};

/// What comes before a command.
enum class Before {
    Nothing,
    EndsEdits, ///< what is being typed in a cell or a label goes in
    ReadsText  ///< and an edited text goes into the tree: the command works on nodes
};

/// A command on the document in front.
struct Command {
    Offer offer;
    Form forms[4] = {}; ///< nothing happens in a view without one
    /// The same on the text of a cell that is being edited; false where it has nothing to do there.
    bool (*inCell)(DocumentWindow& window, controls::TextBox& cell) = nullptr;
    Before before = Before::ReadsText;
};

/// What a command of another room does in a view of this room.
struct CommandForm {
    const char* entry; ///< the first entry of the command
    Form form;
};

} // namespace edit
