// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "tests/support/TestApp.h"
#include <functional>
#include <gtest/gtest.h>

namespace test {

/// Chooses a menu entry and does something in the dialog that it brings. How often the dialog was closed by
/// itself comes back.
template <typename Form>
int InDialog(TestApp& t, controls::Event<Form&>& shown, const char* entry,
             const std::function<void(Form&)>& act) {
    int closed = 0, opened = 0;
    shown.disconnectAll();
    shown.connect([&](Form& form) {
        ++opened;
        form.unloaded.connect([&] { ++closed; });
        act(form);
    });
    t.ChooseMenu(QLatin1String(entry));
    shown.disconnectAll();
    EXPECT_EQ(opened, 1);
    return closed;
}

/// The active document's text with LF line ends; empty without a window.
inline std::string TextOf(TestApp& t) {
    if (t.frame().FormCount() == 0)
        return {};
    return t.window().rtxtXML.Text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString();
}

} // namespace test
