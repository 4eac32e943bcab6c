// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/FileNames.h"
#include <gtest/gtest.h>

namespace {

TEST(FileName, AddressTypesAndNames) {
    const std::pair<int, std::vector<const char*>> kinds[] = {
        {2, {"  http://h/x.xml ", "HTTP://h/x.xml", "https://h"}},
        {1, {"a:b", "c:\\x.xml", "/home/u/x.xml"}},
        {-1, {"ftp://h/x", "x.xml", "1:b", ""}},
    };
    for (const auto& [type, addresses] : kinds)
        for (const char* address : addresses)
            EXPECT_EQ(mXMLEdit::GetAddressType(QString::fromLatin1(address)), type) << address;
    EXPECT_TRUE(mXMLEdit::IsBinaryFile(QStringLiteral("c:\\dir\\x.EXE")));
    EXPECT_FALSE(mXMLEdit::IsBinaryFile(QStringLiteral("/exe/x.xml")));
    EXPECT_EQ(mXMLEdit::GetExtName(QStringLiteral("/a.b/file")), QString());
    EXPECT_EQ(mXMLEdit::GetFSFileName(QStringLiteral("/a/b/x.xml")), QStringLiteral("x.xml"));
}

} // namespace
