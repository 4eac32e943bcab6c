// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QString>
#include <QStringList>
#include <memory>
#include <utility>
#include <vector>

// The small controls: each holds its state, tells its widget through `changed`, and raises the user's acts as
// events. A setter that changes nothing announces nothing.
namespace controls {

/// Where a control that is laid over another one stands, in twips.
struct Bounds {
    double Left = 0, Top = 0, Width = 0, Height = 0;
    bool operator==(const Bounds&) const = default;
};

/// One line of text.
class TextBox {
public:
    const QString& Text() const { return text_; }
    void SetText(const QString& text);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const Bounds& Place() const { return place_; }
    void Move(const Bounds& place);
    /// The selection, 0-based: the user's as the widget told it last.
    qsizetype SelStart() const { return selStart_; }
    qsizetype SelLength() const { return selLength_; }
    void Select(qsizetype start, qsizetype length);
    void UserSelected(qsizetype start, qsizetype length);
    void SetSelText(const QString& text); ///< replaces the selection and stands behind it; raises Change
    QString Tag;
    void UserTyped(const QString& text); ///< sets the text and raises Change
    Event<> Change;
    /// Qt key code, Qt modifiers; a handler that uses a key up sets its code to 0.
    Event<int&, int> KeyDown;
    Event<int, int> KeyUp;
    Event<> GotFocus, LostFocus;
    Event<> changed, moved, selectionChanged, focusRequested;
    void SetFocus() { focusRequested(); }

private:
    QString text_;
    bool enabled_ = true, visible_ = true;
    Bounds place_;
    qsizetype selStart_ = 0, selLength_ = 0;
};

class CommandButton {
public:
    QString Caption;
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const Bounds& Place() const { return place_; }
    void Move(const Bounds& place);
    Event<> Click;
    Event<> changed, moved;

private:
    bool enabled_ = true, visible_ = true;
    Bounds place_;
};

/// A text beside another control.
class Label {
public:
    const QString& Caption() const { return caption_; }
    void SetCaption(const QString& caption) {
        if (std::exchange(caption_, caption) != caption)
            changed();
    }
    bool Visible() const { return visible_; }
    void SetVisible(bool visible) {
        if (std::exchange(visible_, visible) != visible)
            changed();
    }
    Event<> changed;

private:
    QString caption_;
    bool visible_ = true;
};

/// A box to tick.
class CheckBox {
public:
    int Value() const { return value_; } ///< 1: ticked
    void SetValue(int value);
    void UserSet(bool ticked); ///< sets the value and raises Click
    Event<> Click;
    Event<> changed;

private:
    int value_ = 0;
};

/// One of several choices; their owner sees to it that one alone is chosen.
class OptionButton {
public:
    bool Value() const { return value_; }
    void SetValue(bool value);
    void UserChose(); ///< sets the value and raises Click
    Event<> Click;
    Event<> changed;

private:
    bool value_ = false;
};

/// Raises its event again and again while it is enabled.
class Timer {
public:
    explicit Timer(int interval) : Interval(interval) {}
    const int Interval; ///< milliseconds
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    Event<> Tick;
    Event<> changed;

private:
    bool enabled_ = false;
};

/// A text with a list of offers.
class ComboBox {
public:
    const QString& Text() const { return text_; }
    void SetText(const QString& text);
    const QStringList& Items() const { return items_; }
    void AddItem(const QString& text, int position = -1); ///< 0-based position, -1: behind the last
    void Clear();
    int ListIndex() const;                        ///< 0-based, -1 when no item is chosen
    void SetListIndex(int index);                 ///< also sets the text; out of range: no effect
    void SetItem(int index, const QString& text); ///< 0-based; the chosen item's text is the box's, too
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const Bounds& Place() const { return place_; }
    void Move(const Bounds& place);
    void UserTyped(const QString& text); ///< sets the text and raises Change
    void UserChose(int index);           ///< sets text and index and raises Click
    Event<> Change, Click, LostFocus;
    Event<> DropDown; ///< its list is about to open
    /// Qt key code, Qt modifiers; a handler that uses a key up sets its code to 0.
    Event<int&, int> KeyDown;
    Event<int, int> KeyUp;
    Event<> changed; ///< text, items or whether it is visible
    Event<> moved, focusRequested;
    void SetFocus() { focusRequested(); }

private:
    QString text_;
    QStringList items_;
    int index_ = -1;
    bool visible_ = true;
    Bounds place_;
};

/// A bar that scrolls what stands beside it.
class ScrollBar {
public:
    int Min = 1, Max = 100, SmallChange = 1, LargeChange = 50;
    int Value() const { return value_; }
    void SetValue(int value); ///< held between Min and Max; raises Change when it is another one
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const Bounds& Place() const { return place_; }
    void Move(const Bounds& place);
    Event<> Change;
    Event<> changed, moved;

private:
    int value_ = 1;
    bool visible_ = true;
    Bounds place_;
};

/// Tabs with key and caption; one is selected.
class TabStrip {
public:
    struct Tab {
        QString Key, Caption;
    };
    void SetTabs(std::vector<Tab> tabs); ///< selects the first without raising Click
    const std::vector<Tab>& Tabs() const { return tabs_; }
    const QString& SelectedKey() const;             ///< empty without tabs
    int SelectedIndex() const { return selected_; } ///< 0-based
    /// Selects a tab; raises BeforeClick and Click when it is another one, whether program or user did it.
    /// The tab stays, which is announced, where BeforeClick cancels. Unknown key: Fault 35601.
    void Select(const QString& key);
    Event<bool&> BeforeClick; ///< cancel
    Event<> Click;
    Event<> changed;

private:
    std::vector<Tab> tabs_;
    int selected_ = 0;
};

/// A menu entry with its submenu. Built once from data; found by name.
class MenuItem {
public:
    QString Name;     ///< the control's name; empty for a separator
    QString Shortcut; ///< portable text such as "Ctrl+S"; empty for none
    QString Icon;     ///< name in the icon theme; may be empty
    int Index = 0;    ///< number in an array of entries with one name, else 0
    bool separator = false;
    bool HasCommand = false; ///< something answers when it is chosen
    std::vector<std::unique_ptr<MenuItem>> Items;

    const QString& Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    /// What the user sees: enabled, and something answers (or it opens a submenu).
    bool Usable() const { return enabled_ && (HasCommand || !Items.empty()); }
    Event<> Click;
    Event<> changed;

private:
    QString caption_;
    bool enabled_ = true, visible_ = true, checked_ = false;
};

/// A toolbar button, with drop-down entries where it has any.
class ToolButton {
public:
    QString Key, ToolTip, Icon;
    struct Entry {
        QString Key, Caption;
    };
    std::vector<Entry> ButtonMenus;
    bool HasCommand = false;
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Usable() const { return enabled_ && HasCommand; }
    Event<> Click;
    Event<QString> ButtonMenuClick; ///< key of the entry
    Event<> changed;

private:
    bool enabled_ = true;
};

class Toolbar {
public:
    QString Name;
    QString Caption; ///< shown where toolbars are listed
    std::vector<std::unique_ptr<ToolButton>> Buttons;
    ToolButton& Button(const QString& key) const; ///< throws Fault 35601
};

/// Panels with texts, counted from 1.
class StatusBar {
public:
    explicit StatusBar(int panels = 2) : texts_(panels) {}
    QString Panel(int panel) const;                ///< throws Fault 35600
    void SetPanel(int panel, const QString& text); ///< throws Fault 35600
    int Count() const { return static_cast<int>(texts_.size()); }
    Event<int> changed;

private:
    QStringList texts_;
};

/// A page view: told where to go, and shown once its tab is.
class WebBrowser {
public:
    const QString& LocationURL() const { return location_; }
    void Navigate(
        const QString& location); ///< a local path or an address; always announces, also for the same place
    void SetFocus() { focusRequested(); }
    Event<> navigated, focusRequested;

private:
    QString location_;
};

/// A part of a window that stands in front of its fellows or not.
class Pane {
public:
    QString Tag;
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    const Bounds& Place() const { return place_; }
    void Move(const Bounds& place);
    void ZOrder() { broughtToFront(); }
    void SetFocus() { focusRequested(); }
    Event<> changed, moved, broughtToFront, focusRequested;

private:
    bool visible_ = true;
    Bounds place_;
};

} // namespace controls
