// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Controls.h"
#include "platform/controls/Faults.h"
#include <algorithm>
#include <utility>

namespace controls {

namespace {

// Sets a property and announces it when it is another one.
template <typename Value> void Set(Value& property, const Value& value, const Event<>& changed) {
    if (property == value)
        return;
    property = value;
    changed();
}

} // namespace

// --- TextBox -------------------------------------------------------------------------------------------

void TextBox::SetText(const QString& text) {
    selStart_ = std::min<qsizetype>(selStart_, text.size());
    selLength_ = std::min<qsizetype>(selLength_, text.size() - selStart_);
    Set(text_, text, changed);
}
void TextBox::SetEnabled(bool enabled) {
    Set(enabled_, enabled, changed);
}
void TextBox::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}

void TextBox::UserTyped(const QString& text) {
    SetText(text);
    Change();
}

void TextBox::Move(const Bounds& place) {
    Set(place_, place, moved);
}

void TextBox::UserSelected(qsizetype start, qsizetype length) {
    selStart_ = std::clamp<qsizetype>(start, 0, text_.size());
    selLength_ = std::clamp<qsizetype>(length, 0, text_.size() - selStart_);
}

void TextBox::Select(qsizetype start, qsizetype length) {
    UserSelected(start, length);
    selectionChanged();
}

void TextBox::SetSelText(const QString& text) {
    QString fresh = text_;
    fresh.replace(selStart_, selLength_, text);
    const qsizetype behind = selStart_ + text.size();
    SetText(fresh);
    Select(behind, 0);
    Change();
}

// --- CommandButton, Timer --------------------------------------------------------------------------------

void CommandButton::SetEnabled(bool enabled) {
    Set(enabled_, enabled, changed);
}
void CommandButton::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}
void CommandButton::Move(const Bounds& place) {
    Set(place_, place, moved);
}

void Timer::SetEnabled(bool enabled) {
    Set(enabled_, enabled, changed);
}

// --- CheckBox, OptionButton --------------------------------------------------------------------------------

void CheckBox::SetValue(int value) {
    Set(value_, value, changed);
}
void CheckBox::UserSet(bool ticked) {
    SetValue(ticked ? 1 : 0);
    Click();
}

void OptionButton::SetValue(bool value) {
    Set(value_, value, changed);
}
void OptionButton::UserChose() {
    SetValue(true);
    Click();
}

// --- ComboBox ------------------------------------------------------------------------------------------

int ComboBox::ListIndex() const {
    return index_;
}

void ComboBox::SetText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    index_ = -1;
    changed();
}

void ComboBox::AddItem(const QString& text, int position) {
    if (position < -1 || position > items_.size())
        Throw(text::kFaultBadCall);
    items_.insert(position < 0 ? items_.size() : position, text);
    if (position >= 0 && position <= index_)
        ++index_;
    changed();
}

void ComboBox::Clear() {
    if (items_.isEmpty() && text_.isEmpty())
        return;
    items_.clear();
    text_.clear();
    index_ = -1;
    changed();
}

void ComboBox::SetListIndex(int index) {
    if (index < 0 || index >= items_.size() || (index == index_ && text_ == items_[index]))
        return;
    index_ = index;
    text_ = items_[index];
    changed();
}

void ComboBox::SetItem(int index, const QString& text) {
    if (index < 0 || index >= items_.size())
        Throw(text::kFaultBadCall);
    if (items_[index] == text)
        return;
    items_[index] = text;
    if (index == index_)
        text_ = text;
    changed();
}

void ComboBox::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}
void ComboBox::Move(const Bounds& place) {
    Set(place_, place, moved);
}

void ComboBox::UserTyped(const QString& text) {
    SetText(text);
    Change();
}

void ComboBox::UserChose(int index) {
    SetListIndex(index);
    Click();
}

// --- ScrollBar -----------------------------------------------------------------------------------------

void ScrollBar::SetValue(int value) {
    value = std::clamp(value, Min, Max);
    if (std::exchange(value_, value) == value)
        return;
    changed();
    Change();
}

void ScrollBar::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}
void ScrollBar::Move(const Bounds& place) {
    Set(place_, place, moved);
}

// --- TabStrip ------------------------------------------------------------------------------------------

void TabStrip::SetTabs(std::vector<Tab> tabs) {
    tabs_ = std::move(tabs);
    selected_ = 0;
    changed();
}

const QString& TabStrip::SelectedKey() const {
    static const QString none;
    return tabs_.empty() ? none : tabs_[static_cast<std::size_t>(selected_)].Key;
}

void TabStrip::Select(const QString& key) {
    const auto found =
        std::find_if(tabs_.begin(), tabs_.end(), [&](const Tab& tab) { return tab.Key == key; });
    if (found == tabs_.end())
        Throw(text::kFaultNotFound);
    const auto index = static_cast<int>(found - tabs_.begin());
    if (index == selected_)
        return;
    bool cancel = false;
    BeforeClick(cancel);
    if (!cancel)
        selected_ = index;
    changed();
    if (!cancel)
        Click();
}

// --- menus, toolbars, status bar -----------------------------------------------------------------------

void MenuItem::SetCaption(const QString& caption) {
    Set(caption_, caption, changed);
}
void MenuItem::SetEnabled(bool enabled) {
    Set(enabled_, enabled, changed);
}
void MenuItem::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}

void MenuItem::SetChecked(bool checked) {
    Set(checked_, checked, changed);
}

void ToolButton::SetEnabled(bool enabled) {
    Set(enabled_, enabled, changed);
}

ToolButton& Toolbar::Button(const QString& key) const {
    for (const auto& button : Buttons) {
        if (button->Key == key)
            return *button;
    }
    Throw(text::kFaultNotFound);
}

QString StatusBar::Panel(int panel) const {
    if (panel < 1 || panel > Count())
        Throw(text::kFaultOutOfBounds);
    return texts_[panel - 1];
}

void StatusBar::SetPanel(int panel, const QString& text) {
    if (Panel(panel) == text)
        return;
    texts_[panel - 1] = text;
    changed(panel);
}

// --- WebBrowser, Pane ----------------------------------------------------------------------------------

void WebBrowser::Navigate(const QString& location) {
    location_ = location;
    navigated();
}

void Pane::SetVisible(bool visible) {
    Set(visible_, visible, changed);
}
void Pane::Move(const Bounds& place) {
    Set(place_, place, moved);
}

} // namespace controls
