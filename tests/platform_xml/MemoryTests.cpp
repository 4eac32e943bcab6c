// SPDX-License-Identifier: GPL-3.0-or-later
// What a load leaves behind when memory runs out, or when it is stopped.
#include "platform/xml/ParsedDocument.h"
#include "tests/platform_xml/Dump.h"
#include "tests/support/ScarceMemory.h"
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using test::allocationsLeft;
using xml::ParsedDocument;

TEST(Memory, ALoadThatRunsOutOfItAnywhereSaysSoAndLeavesNothing) {
    const QString text = QStringLiteral(
        "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY e \"<i>x</i>\"><!ATTLIST b c CDATA \"d\" t NMTOKENS \" "
        "1  2 \">"
        "<!NOTATION n SYSTEM \"s\">]><a xmlns:p=\"u\" p:x=\"1\"><b t=\" u  v "
        "\"/>&e;text<!--c--><![CDATA[d]]><?p q?></a>");
    const std::string whole = Dump(text);
    ParsedDocument document;
    bool loaded = false;
    long failures = 0;
    for (; !loaded && failures < 1000; ++failures) {
        allocationsLeft = failures;
        loaded = document.loadXML(text, {}, {}, xml::Prefixes::Declared);
        allocationsLeft = -1;
        if (loaded)
            break;
        EXPECT_EQ(document.parseError().errorCode, 10000) << failures;
        EXPECT_FALSE(document.document()) << failures;
        EXPECT_EQ(Dump(text), whole) << failures; // the next load knows nothing of it
    }
    EXPECT_TRUE(loaded);
    EXPECT_GT(failures, 10);
}

TEST(Memory, APathThatRunsOutOfItSelectsNothing) {
    ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<a><b c=\"1\">t</b><b/></a>")));
    QString error = QStringLiteral("not asked yet");
    for (long left = 0; !error.isEmpty() && left < 1000; ++left) {
        allocationsLeft = left;
        std::size_t found = 0;
        found = document.selectNodes(QStringLiteral("//b[@c] | //text()"), &error).size();
        allocationsLeft = -1;
        EXPECT_EQ(found, error.isEmpty() ? 2U : 0U) << left;
    }
    EXPECT_TRUE(error.isEmpty());
}

QString Large() {
    return QStringLiteral("<l>%1</l>").arg(QStringLiteral("<r a=\"1\">text</r>").repeated(100'000));
}

TEST(Memory, TheStepHearsHowFarALoadIs) {
    const QString text = Large();
    qsizetype last = 0;
    int steps = 0;
    ParsedDocument document;
    const auto step = [&](qsizetype done, qsizetype total) {
        EXPECT_GT(done, last);
        EXPECT_LE(done, total);
        EXPECT_EQ(total, text.size());
        last = done;
        ++steps;
        return true;
    };
    EXPECT_TRUE(document.loadXML(text, {}, step));
    EXPECT_FALSE(document.wasStopped());
    EXPECT_GE(steps, 5);
    steps = 0;
    EXPECT_TRUE(document.loadXML(QStringLiteral("<a/>"), {}, step));
    EXPECT_EQ(steps, 0); // a short one takes no waiting
}

TEST(Memory, AStoppedLoadLeavesNothing) {
    ParsedDocument document;
    ASSERT_TRUE(document.loadXML(QStringLiteral("<a/>")));
    int steps = 0;
    EXPECT_FALSE(document.loadXML(Large(), {}, [&](qsizetype, qsizetype) { return ++steps < 3; }));
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(document.wasStopped());
    EXPECT_FALSE(document.document());
    EXPECT_TRUE(document.loadXML(QStringLiteral("<a/>")));
    EXPECT_FALSE(document.wasStopped());
}

TEST(Memory, WhatTheStepThrowsReachesTheCaller) {
    ParsedDocument document;
    const auto step = [](qsizetype, qsizetype) -> bool { throw std::runtime_error("no bar"); };
    EXPECT_THROW(document.loadXML(Large(), {}, step), std::runtime_error);
    EXPECT_FALSE(document.document());
    EXPECT_TRUE(document.loadXML(QStringLiteral("<a/>")));
}

} // namespace
