// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/Frame.h"

// The views of a document. Each is one record in the room that owns it; a window's kind lists its records,
// and everything that concerns whichever view shows goes through the list. Which one shows is told by the
// selected tab alone.
namespace edit {

// Keys of the tabs.
inline constexpr char kListTab[] = "listview";
inline constexpr char kCompactTab[] = "compactview";
inline constexpr char kTextTab[] = "textview";
inline constexpr char kTableTab[] = "tableview";
inline constexpr char kBrowserTab[] = "browserview";
inline constexpr char kSchemaTab[] = "schema";

// Numbers of the views, as miCurrentView tells them.
inline constexpr int kViewTree = 1;
inline constexpr int kViewList = 2;
inline constexpr int kViewTable = 3;
inline constexpr int kViewText = 4;
inline constexpr int kViewSchema = 5;
inline constexpr int kViewBrowser = 6;
inline constexpr int kViewCompact = 7;

struct View {
    const char* key; ///< of its tab
    int number;
    const char* caption; ///< on its tab
    const char* entry;   ///< the menu entry that chooses it
    // Each of these may be null: nothing to do.
    /// The window is made: controls and events of the view are joined.
    void (*load)(DocumentWindow& window) = nullptr;
    /// Its tab has been chosen. The view takes the focus and shows what it shows now.
    void (*show)(DocumentWindow& window) = nullptr;
    /// It is on show, and a change has come to its end; with `treeChanged` nodes are no longer as they were,
    /// else another node may be current. Costs next to nothing when nothing of it concerns the view.
    void (*refresh)(DocumentWindow& window, bool treeChanged) = nullptr;
    /// Another tab is about to be chosen. False keeps it on show; the user has been told why.
    bool (*leave)(DocumentWindow& window) = nullptr;
    /// Another view is on show, or none is yet: what it puts up beside its own pane goes.
    void (*hide)(DocumentWindow& window) = nullptr;
    /// What is being typed in a cell goes in. False where it was refused: it is there still.
    bool (*finish)(DocumentWindow& window) = nullptr;
    /// The text box in which a cell is being edited; null while none is open.
    controls::TextBox* (*openCell)(DocumentWindow& window) = nullptr;
    /// A name is being typed over a label of the view.
    bool (*naming)(DocumentWindow& window) = nullptr;
    /// What the menus offer while the view has the user's attention.
    MenuSituation (*situation)(DocumentWindow& window) = nullptr;
    /// The window is closing for good.
    void (*unload)(DocumentWindow& window) = nullptr;
};

/// The record of the view on show; null in a window without tabs.
const View* ViewOnShow(const DocumentWindow& window);
int miCurrentView(const DocumentWindow& window); ///< its number; kViewTree without one
bool Shows(const DocumentWindow& window, const char* key);
/// Whether the window has such a tab.
bool HasView(const DocumentWindow& window, const char* key);
/// Chooses a tab, where the window has it.
void ShowView(DocumentWindow& window, const char* key);

/// What is being typed in a cell of any view goes in. False where it was refused: it is there still, and the
/// user has been told why.
bool FinishCells(DocumentWindow& window);
/// The text box in which a cell of any view is being edited; null while none is open.
controls::TextBox* OpenCell(DocumentWindow& window);

/// A name is being typed over a label of any view.
bool IsNamingInView(DocumentWindow& window);

/// The situation of the menus for a window as it stands.
MenuSituation SituationOf(DocumentWindow& window);

} // namespace edit
