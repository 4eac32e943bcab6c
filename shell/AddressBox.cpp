// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AddressBox.h"
#include "core/model/FileNames.h"
#include "platform/text/TextTools.h"
#include <Qt>

namespace shell {

AddressBox::AddressBox(Application& app, controls::ComboBox& box, FrameMenus& menus, Windows& windows,
                       RecentFiles& recentFiles)
    : app_(app), address_(box), menus_(menus), windows_(windows), recentFiles_(recentFiles) {
    address_.Change.connect([this] { cmbAddress_Change(); });
    address_.changed.connect([this] { cmbAddress_Change(); });
    address_.Click.connect([this] { cmbAddress_Click(); });
    address_.KeyUp.connect([this](int key, int) { cmbAddress_KeyUp(key); });
}

void AddressBox::cmbAddress_Change() {
    menus_.Button("tbNavigate", "go").SetEnabled(!text::Trim(address_.Text()).isEmpty());
}

void AddressBox::cmbAddress_Click() {
    if (!text::Trim(address_.Text()).isEmpty())
        windows_.OpenNamed(address_.Text());
}

void AddressBox::cmbAddress_KeyUp(int key) {
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || address_.Text().isEmpty())
        return;
    const QString entered = address_.Text();
    cmbAddress_Click();
    if (address_.Text().isEmpty()) // a document from the web: its address isn't shown
        recentFiles_.AddToList(mXMLEdit::NameMeant(app_, entered));
    else
        recentFiles_.AddToList(address_.Text());
}

} // namespace shell
