// SPDX-License-Identifier: GPL-3.0-or-later
// The last documents: in the settings store, in the file menu and in the address box.
#include "shell/frmMDIMain.h"

namespace {

const QString kSection = QStringLiteral("Recent Files");
constexpr int kMenuEntries = 4;

QString KeyOf(int number) {
    return QStringLiteral("RecentFile%1").arg(number);
}

} // namespace

void frmMDIMain::GetRecentFiles() {
    const auto pairs = app_.services.settings.GetAll(kSection);
    int entry = 1;
    for (std::size_t i = 0; i < pairs.size() && i < kMenuEntries; ++i) {
        const QString& name = pairs[i].second;
        if (name.isEmpty() || (i > 0 && name == pairs[i - 1].second))
            continue;
        controls::MenuItem& item = Menu(QStringLiteral("mnuFileMRU"), entry++);
        item.SetCaption(name);
        item.SetVisible(true);
    }
}

void frmMDIMain::GetRecentFilesArray(QStringList& list) {
    list.clear();
    for (const auto& pair : app_.services.settings.GetAll(kSection))
        list << pair.second;
    if (list.isEmpty())
        list << QString();
}

int frmMDIMain::FindRecentFile(const QString& name) {
    for (int i = 1; i <= kMenuEntries; ++i)
        if (Menu(QStringLiteral("mnuFileMRU"), i).Caption() == name)
            return i;
    return -1;
}

int frmMDIMain::HasSameFile(const QString& name, const QStringList& list) {
    if (list.size() == 1 && list.front().isEmpty())
        return -1;
    return static_cast<int>(list.indexOf(name));
}

namespace {

/// Makes room in front: the list moves down by one. The fifth name is kept and never shown.
void MoveDown(services::SettingsStore& store) {
    for (int i = kMenuEntries; i >= 1; --i) {
        const QString value = store.Get(kSection, KeyOf(i));
        if (!value.isEmpty())
            store.Save(kSection, KeyOf(i + 1), value);
    }
}

/// Makes room in front by closing up the place where the name stood.
void CloseUp(services::SettingsStore& store, const QStringList& list, const QString& name) {
    int next = 2;
    for (int i = 0; i < list.size() && i < kMenuEntries; ++i)
        if (list[i] != name && !list[i].isEmpty())
            store.Save(kSection, KeyOf(next++), list[i]);
}

} // namespace

void frmMDIMain::WriteRecentFiles(const QString& name) {
    services::SettingsStore& store = app_.services.settings;
    GetRecentFiles(); // another program may have written names since the menu was filled
    if (FindRecentFile(name) < 0) {
        MoveDown(store);
    } else {
        QStringList list;
        GetRecentFilesArray(list);
        CloseUp(store, list, name);
    }
    store.Save(kSection, KeyOf(1), name);
}

void frmMDIMain::UpdateFileMenu(const QString& name) {
    WriteRecentFiles(name);
    GetRecentFiles();
}

void frmMDIMain::FillCombo() {
    QStringList list;
    GetRecentFilesArray(list);
    list.removeAll(QString()); // an empty row would offer nothing
    FillComboOrList(address_, list);
}

void frmMDIMain::FillComboOrList(controls::ComboBox& control, const QStringList& list) {
    control.Clear();
    for (const QString& item : list)
        control.AddItem(item);
}

void frmMDIMain::ProcessList(controls::ComboBox& combo) {
    if (!combo.Items().contains(combo.Text()))
        combo.AddItem(combo.Text());
}

void frmMDIMain::AddToList(const QString& name) {
    if (!address_.Items().contains(name))
        address_.AddItem(name);
}
