// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/FetchedText.h"
#include "platform/text/Fault.h"
#include <QString>

namespace controls {
class StatusBar;
class ComboBox;
} // namespace controls
struct DocumentWindow;

/// Each situation of the active window that has its own state of menus and toolbars.
enum class MenuSituation {
    NoForm,
    TreeRoot,
    TreeNode,
    ListSelected,
    ListUnselected,
    TextSelected,
    TextUnselected,
    TableSelected,
    TableUnselected,
    ViewWithoutEditing, ///< browser and schema views: the edit menus are disabled
    CompactView         ///< as those, but for the commands that say otherwise
};

/// The frame's pointer while something takes its time.
inline constexpr int vbHourglass = 11;

/// What document windows ask of the frame, which stands above them.
class Frame {
public:
    virtual ~Frame() = default;
    virtual DocumentWindow* ActiveForm() = 0; ///< null without a window
    /// Brings a window to the front, as it was left.
    virtual void ActivateForm(DocumentWindow* window) = 0;
    virtual controls::StatusBar& StatusBar1() = 0; ///< panel 1: messages, panel 2: line and position
    virtual controls::ComboBox& cmbAddress() = 0;
    virtual int MousePointer() const = 0; ///< 0: as what is under it asks for
    virtual void SetMousePointer(int pointer) = 0;

    virtual void ErrorReportBox(const text::Fault& fault, const QString& routineName) = 0;

    /// Makes a window with the text, or a new document for an empty one; a blank name gets "new", a number
    /// and the extension of the kind. An open document of the same name is brought to the front instead.
    virtual void NewXMLFile(const FetchedText& text, const QString& fileName) = 0;
    virtual void NewSXMLFile(const FetchedText& text, const QString& fileName) = 0;

    /// The window with the document of a name: one that bears it, else one whose file it means in another
    /// spelling; null without one.
    virtual DocumentWindow* FormNamed(const QString& name) = 0;
    /// Whether there is one; brings it to the front if asked.
    virtual bool HaveSameNameForm(const QString& name, bool bringToFront) = 0;

    /// Menus and toolbars of the active window as it stands. Costs next to nothing where nothing has changed
    /// that they depend on. Called at the end of every edit, and where the attention alone
    /// has moved.
    virtual void RefreshMenu() = 0;
    virtual void DisableMenu() = 0; ///< as without a window, until they are refreshed

    /// Runs the command of a menu entry, as a key of a view asks for it; whether the entry is enabled isn't
    /// looked at. Nothing happens for an entry without a command.
    virtual void RunMenuCommand(const QString& entry) = 0;

    /// Shows the find dialog, or brings it to the front; it works on the text of the document in front.
    virtual void ShowFind() = 0;
    /// Goes to the next hit of what was looked for last, or to the one before; shows the dialog where nothing
    /// was.
    virtual void FindNext(bool up) = 0;

    virtual void UpdateFileMenu(const QString& name) = 0; ///< puts a name in front of the recent files
    virtual void AddToList(const QString& name) = 0;      ///< adds a name to the address box
    virtual int FormCount() = 0;                          ///< open document windows
};
