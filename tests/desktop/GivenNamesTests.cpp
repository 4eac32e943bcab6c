// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/GivenNames.h"
#include "tests/support/TempFolder.h"
#include <QDir>
#include <gtest/gtest.h>

namespace {

TEST(GivenNames, RelativeNamesBecomeAbsoluteAndAddressesStay) {
    const test::TempFolder folder;
    folder.Write(QStringLiteral("a b.xml"), "<a/>");
    folder.Write(QStringLiteral("c.xml"), "<c/>");
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.Path({}));
    const QString here = QDir::currentPath() + QLatin1Char('/');
    const auto names = [](std::initializer_list<const char*> arguments) {
        QStringList list;
        for (const char* argument : arguments)
            list << QString::fromUtf8(argument);
        return desktop::CommandLineNames(list);
    };
    EXPECT_EQ(names({"./c.xml"}), QStringList(here + QStringLiteral("c.xml")));
    EXPECT_EQ(names({"\"a b.xml\""}), QStringList(here + QStringLiteral("a b.xml")));
    EXPECT_EQ(names({"a", "b.xml"}), QStringList(here + QStringLiteral("a b.xml")));
    EXPECT_EQ(names({"c.xml", "missing.xml"}),
              QStringList({here + QStringLiteral("c.xml"), here + QStringLiteral("missing.xml")}));
    EXPECT_EQ(names({"HTTP://example.org/a.xml", "c:\\a.xml"}),
              QStringList({QStringLiteral("HTTP://example.org/a.xml"), QStringLiteral("c:\\a.xml")}));
    EXPECT_TRUE(names({}).isEmpty());
    EXPECT_TRUE(names({""}).isEmpty());
    QDir::setCurrent(before);
}

} // namespace
