// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/ToolbarAdapter.h"
#include "desktop/base/Glyphs.h"
#include "desktop/base/Listen.h"
#include "desktop/base/ThemeIcons.h"
#include <QMenu>
#include <QTextDocument>

namespace desktop {

namespace {

const QHash<QString, QString>& Signs() {
    static const QHash<QString, QString> signs{
        {QStringLiteral("quote"), QStringLiteral("\"")}, {QStringLiteral("apostraphe"), QStringLiteral("'")},
        {QStringLiteral("lt"), QStringLiteral("<")},     {QStringLiteral("gt"), QStringLiteral(">")},
        {QStringLiteral("amp"), QStringLiteral("&")},    {QStringLiteral("closetag"), QStringLiteral("</>")},
    };
    return signs;
}

/// The node that a button makes, by its picture in the tree.
const QHash<QString, QString>& NewNodes() {
    static const QHash<QString, QString> nodes{
        {QStringLiteral("newelement"), QStringLiteral("element")},
        {QStringLiteral("newattribute"), QStringLiteral("attribute")},
        {QStringLiteral("newcomment"), QStringLiteral("comment")},
        {QStringLiteral("newtext"), QStringLiteral("text")},
    };
    return nodes;
}

// What no icon theme has a picture for is drawn: what a button writes, or the node that it makes.
QIcon ButtonIcon(const controls::ToolButton& button) {
    if (const auto sign = Signs().constFind(button.Key); sign != Signs().constEnd())
        return SignIcon(*sign);
    if (const auto node = NewNodes().constFind(button.Key); node != NewNodes().constEnd())
        return NewNodeIcon(*node);
    const QIcon icon = ThemeIcon(button.Icon);
    return icon.isNull() ? SignIcon(button.ToolTip.left(1)) : icon;
}

} // namespace

ToolbarAdapter::ToolbarAdapter(controls::Toolbar& model, QToolBar& widget, QObject* parent)
    : QObject(parent), widget_(widget) {
    widget.setObjectName(model.Name);
    widget.setWindowTitle(model.Caption);
    for (const auto& button : model.Buttons)
        Add(*button);
}

void ToolbarAdapter::Add(controls::ToolButton& button) {
    auto* action = new QAction(&widget_);
    action->setObjectName(button.Key);
    action->setIcon(ButtonIcon(button));
    QString text = button.ToolTip;
    action->setText(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
    // A tip such as "&lt;" is to be read as it stands.
    const bool marked = Qt::mightBeRichText(button.ToolTip);
    action->setToolTip(marked ? QStringLiteral("<span>%1</span>").arg(button.ToolTip.toHtmlEscaped())
                              : button.ToolTip);
    const auto show = [&button, action] { action->setEnabled(button.Usable()); };
    show();
    Listen(button.changed, action, show);
    connect(action, &QAction::triggered, this, [&button] { button.Click(); });
    widget_.addAction(action);

    auto& widget = static_cast<QToolButton&>(*widget_.widgetForAction(action)); // a plain action gets one
    widget.setAccessibleName(button.ToolTip);
    widget.setFocusPolicy(Qt::TabFocus);
    if (!button.ButtonMenus.empty())
        AddMenu(button, widget);
}

void ToolbarAdapter::AddMenu(controls::ToolButton& button, QToolButton& widget) {
    auto* menu = new QMenu(&widget);
    for (const auto& entry : button.ButtonMenus)
        connect(menu->addAction(entry.Caption), &QAction::triggered, this,
                [&button, key = entry.Key] { button.ButtonMenuClick(key); });
    widget.setMenu(menu);
    widget.setPopupMode(QToolButton::InstantPopup);
}

} // namespace desktop
