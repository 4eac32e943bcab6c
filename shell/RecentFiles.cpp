// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RecentFiles.h"

namespace shell {

namespace {

const QString kSection = QStringLiteral("Recent Files");
constexpr int kMenuEntries = 4;

QString KeyOf(int number) {
    return QStringLiteral("RecentFile%1").arg(number);
}

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
    for (int i = 0; i < list.size() && i < kMenuEntries; ++i) {
        if (list[i] != name && !list[i].isEmpty())
            store.Save(kSection, KeyOf(next++), list[i]);
    }
}

void FillComboOrList(controls::ComboBox& control, const QStringList& list) {
    control.Clear();
    for (const QString& item : list)
        control.AddItem(item);
}

} // namespace

void RecentFiles::GetRecentFiles() {
    const auto pairs = store_.GetAll(kSection);
    int entry = 1;
    for (std::size_t i = 0; i < pairs.size() && i < kMenuEntries; ++i) {
        const QString& name = pairs[i].second;
        if (name.isEmpty() || (i > 0 && name == pairs[i - 1].second))
            continue;
        controls::MenuItem& item = menus_.Menu(QStringLiteral("mnuFileMRU"), entry++);
        item.SetCaption(name);
        item.SetVisible(true);
    }
}

QStringList RecentFiles::GetRecentFilesArray() const {
    QStringList list;
    for (const auto& pair : store_.GetAll(kSection))
        list << pair.second;
    return list.isEmpty() ? QStringList{QString()} : list;
}

int RecentFiles::FindRecentFile(const QString& name) const {
    for (int i = 1; i <= kMenuEntries; ++i) {
        if (menus_.Menu(QStringLiteral("mnuFileMRU"), i).Caption() == name)
            return i;
    }
    return -1;
}

void RecentFiles::WriteRecentFiles(const QString& name) {
    GetRecentFiles(); // another program may have written names since the menu was filled
    if (FindRecentFile(name) < 0)
        MoveDown(store_);
    else
        CloseUp(store_, GetRecentFilesArray(), name);
    store_.Save(kSection, KeyOf(1), name);
}

void RecentFiles::UpdateFileMenu(const QString& name) {
    WriteRecentFiles(name);
    GetRecentFiles();
}

void RecentFiles::FillCombo() {
    QStringList list = GetRecentFilesArray();
    list.removeAll(QString()); // an empty row would offer nothing
    FillComboOrList(address_, list);
}

void RecentFiles::AddToList(const QString& name) {
    if (!address_.Items().contains(name))
        address_.AddItem(name);
}

} // namespace shell
