// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree, and which entries and buttons can be chosen when.
#include "core/edit/View.h"
#include "tests/support/TestApp.h"
#include <QSet>
#include <gtest/gtest.h>

namespace {

using test::TestApp;

// Users find an entry by its place and its letter as well as by its name.
TEST(Menu, HasItsEntriesInOrder) {
    TestApp t;
    std::vector<std::size_t> sizes;
    QString letters;
    for (const auto& menu : t.frame().Menus) {
        sizes.push_back(menu->Items.size());
        letters += menu->Caption().section(u'&', 1).left(1);
        for (const auto& item : menu->Items)
            letters += item->separator ? QStringLiteral("-") : item->Caption().section(u'&', 1).left(1);
        letters += u' ';
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{19, 18, 18, 5, 43, 7, 12, 6, 4, 13}));
    EXPECT_EQ(letters.toStdString(), "FNOC-SA-sP--X EUR-uCP--AF X-- c- S V T-O- W-CHVA H-A -uCP- ");
}

TEST(Menu, NoNameAndNoShortcutIsUsedTwice) {
    TestApp t;
    QSet<QString> names, shortcuts;
    for (const controls::MenuItem* item : t.frame().MenuEntries()) {
        const QString name = QStringLiteral("%1 %2").arg(item->Name).arg(item->Index);
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names << name;
        EXPECT_TRUE(item->Shortcut.isEmpty() || !shortcuts.contains(item->Shortcut))
            << item->Shortcut.toStdString();
        shortcuts << item->Shortcut;
    }
    EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuViewChart"), 11).Caption(), QStringLiteral("二维XY"));
    EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuXSD")).Items.size(), 43u); // 42 elements and "(none)"
    EXPECT_THROW(t.frame().Menu(QStringLiteral("mnuViewChart"), 12), text::Fault);
}

TEST(Menu, WithoutAWindowOnlyWhatNeedsNoneIsEnabled) {
    TestApp t;
    const auto enabled = [&t] {
        QSet<QString> names;
        for (const controls::MenuItem* item : t.frame().MenuEntries())
            if (item->Enabled())
                names << item->Name;
        return names;
    };
    const QSet<QString> atStart = enabled();
    EXPECT_EQ(atStart.size(), 20) << "nine menus, what opens or makes a document, tools, help and the end";
    for (const char* name : {"mnuFileNew", "mnuNewschema", "mnuFileOpen", "mnuFileExit", "mnuToolOptions"})
        EXPECT_TRUE(atStart.contains(QLatin1String(name))) << name;
    for (const char* name : {"mnuFileSave", "mnuFileClose", "mnuEditCopy", "mnuViewText", "mnuTExpToText"})
        EXPECT_FALSE(atStart.contains(QLatin1String(name))) << name;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    EXPECT_NE(enabled(), atStart);
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(enabled(), atStart);
    controls::Toolbar& bar = t.frame().ToolbarByName(QStringLiteral("tbFileEdit"));
    EXPECT_FALSE(bar.Button(QStringLiteral("savefile")).Enabled());
    EXPECT_TRUE(bar.Button(QStringLiteral("openfile")).Usable());
}

TEST(Menu, FollowsTheKindOfTheWindowInFront) {
    TestApp t;
    DocumentWindow& xml = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.ChooseMenu(QStringLiteral("mnuNewschema"));
    const auto isOffered = [&t](bool schema) {
        for (const char* name : {"mnuSchema", "mnuXSD", "mnuViewCompact"})
            EXPECT_EQ(t.frame().Menu(QLatin1String(name)).Enabled(), schema) << name;
        for (const char* name :
             {"mnuGotoSchema", "mnuGenSchema", "mnuApplySchema", "mnuViewSchema", "mnuTExpToText"})
            EXPECT_NE(t.frame().Menu(QLatin1String(name)).Enabled(), schema) << name;
    };
    isOffered(true);
    t.frame().ActivateForm(&xml);
    isOffered(false);
}

TEST(Menu, AViewIsShownOnlyWhereTheWindowHasIt) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.ChooseMenu(QStringLiteral("mnuViewText"));
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNewCNode")).Enabled());
    t.frame().Menu(QStringLiteral("mnuViewCompact")).Click(); // an XML window has no compact view
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
    t.ChooseMenu(QStringLiteral("mnuViewList"));
    EXPECT_EQ(edit::miCurrentView(t.window()), edit::kViewList);
}

} // namespace
