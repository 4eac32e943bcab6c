// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Databases.h"
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

/// What encodings are called in documents, and a text that each can hold.
inline constexpr std::pair<const char*, const char*> kEncodings[] = {
    {"UTF-7", "酒é😀"}, {"UTF-8", "酒é😀"},   {"UTF-16", "酒é😀"}, {"GB2312", "酒"}, {"8859-1", "é"},
    {"8859-2", "ł"},   {"ASCII", "a"},      {"ISO-646", "a"},   {"850", "é"},     {"1252", "€"},
    {"1255", "א"},     {"SHIFT-JIS", "ワ"}, {"MS-KANJI", "ワ"}, {"BIG5", "酒"},   {"ISO-8859-15", "€"},
    {"KOI8-R", "ж"},   {"EUC-KR", "한"}};

/// Puts a source into the list of the test's user, and chooses it in a dialog.
inline void AddSource(const char* name, const char* driver,
                      const std::vector<std::pair<QString, QString>>& settings) {
    EXPECT_TRUE(services::Databases().AddSource(QLatin1String(name), QLatin1String(driver), settings));
}
template <typename Source> void ChooseSource(Source& source, const char* name) {
    ASSERT_TRUE(source.cmbDSN.Items().contains(QLatin1String(name)));
    source.cmbDSN.UserChose(static_cast<int>(source.cmbDSN.Items().indexOf(QLatin1String(name))));
}

/// The active document's text with LF line ends; empty without a window.
inline std::string TextOf(TestApp& t) {
    if (t.frame().FormCount() == 0)
        return {};
    return t.window().rtxtXML.Text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString();
}

} // namespace test
