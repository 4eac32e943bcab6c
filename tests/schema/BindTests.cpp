// SPDX-License-Identifier: GPL-3.0-or-later
// A plain document and its schema: binding, and the view that shows it.
#include "tests/nodes/ListDesk.h"
#include <QDir>

namespace {

using services::Answer;

constexpr char kXsi[] = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

struct Bind : test::ListDesk {
    /// The root element's attributes after a schema was chosen for it.
    std::string Applied(const QByteArray& attributes, const QString& schema) {
        Open("<a " + attributes + "/>", QStringLiteral("d%1.xml").arg(++count_));
        t.prompts.Choose(schema);
        t.ChooseMenu(QStringLiteral("mnuApplySchema"));
        return Element().Tag().toStdString();
    }

private:
    int count_ = 0;
};

TEST_F(Bind, TheLocationGoesWhereTheRootElementHasIt) {
    const std::string xsi = kXsi;
    const QByteArray bound = QByteArray(kXsi) + " ";
    EXPECT_EQ(Applied("", QStringLiteral("/s/a.xsd")), xsi + " xsi:noNamespaceSchemaLocation=\"/s/a.xsd\"");
    EXPECT_EQ(Applied("n='1'", QStringLiteral("/s/a & b.xsd")),
              "n=\"1\" " + xsi + " xsi:noNamespaceSchemaLocation=\"/s/a &amp; b.xsd\"");
    EXPECT_EQ(Applied(bound, QStringLiteral("/s/a.xsd")), xsi + " xsi:noNamespaceSchemaLocation=\"/s/a.xsd\"")
        << "a prefix isn't declared twice";
    EXPECT_TRUE(t.prompts.boxes.empty());

    t.prompts.Answer({Answer::Yes, Answer::Yes});
    EXPECT_EQ(Applied(bound + "xsi:noNamespaceSchemaLocation='old.xsd'", QStringLiteral("new.xsd")),
              xsi + " xsi:noNamespaceSchemaLocation=\"new.xsd\"");
    EXPECT_EQ(t.prompts.Texts().back(),
              QStringLiteral("This file already applied a schema. Do you want to proceed?"));
    // The letters of the old location stand in the namespace as well, and a second namespace has its own.
    EXPECT_EQ(Applied(bound + "xsi:schemaLocation='urn:o o urn:p p.xsd' o='o'", QStringLiteral("n w.xsd")),
              xsi + " xsi:schemaLocation=\"urn:o n%20w.xsd urn:p p.xsd\" o=\"o\"");
    t.prompts.Answer(Answer::Yes);
    EXPECT_EQ(Applied(bound + "xsi:schemaLocation='urn:o my old file.xsd v2'", QStringLiteral("n.xsd")),
              xsi + " xsi:schemaLocation=\"urn:o n.xsd\"")
        << "one location with blanks";
    t.prompts.Answer(Answer::Yes);
    EXPECT_EQ(Applied(bound + "xsi:schemaLocation='urn:o'", QStringLiteral("n.xsd")),
              xsi + " xsi:schemaLocation=\"urn:o\"");
    t.prompts.Answer(Answer::No);
    EXPECT_EQ(Applied(bound + "xsi:noNamespaceSchemaLocation='http://127.0.0.1:9/x.xsd'",
                      QStringLiteral("new.xsd")),
              xsi + " xsi:noNamespaceSchemaLocation=\"http://127.0.0.1:9/x.xsd\"")
        << "declined, and nothing is asked about the old one";
    EXPECT_EQ(Applied("n='1'", {}), "n=\"1\"") << "no file was chosen";
    EXPECT_FALSE(w->bond.bTextChanged());
}

// The letters "xsi" are a habit; what counts is the namespace.
TEST_F(Bind, TheLocationIsFoundUnderThePrefixOfItsNamespace) {
    const QByteArray instance = "http://www.w3.org/2001/XMLSchema-instance";
    t.prompts.Answer(Answer::Yes);
    EXPECT_EQ(
        Applied("xmlns:i='" + instance + "' i:noNamespaceSchemaLocation='o.xsd'", QStringLiteral("n.xsd")),
        "xmlns:i=\"" + instance.toStdString() + "\" i:noNamespaceSchemaLocation=\"n.xsd\"");
    EXPECT_EQ(Applied("xmlns:i='" + instance + "'", QStringLiteral("n.xsd")),
              "xmlns:i=\"" + instance.toStdString() + "\" i:noNamespaceSchemaLocation=\"n.xsd\"");
    const std::string other = "xmlns:xsi=\"urn:x\" xsi:noNamespaceSchemaLocation=\"mine\"";
    EXPECT_EQ(Applied("xmlns:xsi='urn:x' xsi:noNamespaceSchemaLocation='mine'", QStringLiteral("n.xsd")),
              other + " xmlns:xsi1=\"" + instance.toStdString() +
                  "\" xsi1:noNamespaceSchemaLocation=\"n.xsd\"")
        << "what is another namespace's stays";
}

TEST_F(Bind, WhatIsAppliedIsShownWhateverStandsInItsName) {
    const QString folder = t.folder.Path(QStringLiteral("R & D (50%20)"));
    QDir().mkpath(folder);
    int count = 0;
    for (const char* attributes : {"", "xmlns:i='http://www.w3.org/2001/XMLSchema-instance'",
                                   "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                                   "i:schemaLocation='urn:x&#10;old.xsd urn:y y.xsd'"}) {
        SCOPED_TRACE(attributes);
        const QString name = QStringLiteral("R & D (50%20)/a \"%1\" b.xsd").arg(++count);
        const QByteArray schema = "<schema n='" + QByteArray::number(count) + "'/>";
        t.folder.Write(name, schema);
        if (count == 3)
            t.prompts.Answer(Answer::Yes);
        Applied(attributes, t.folder.Path(name));
        t.ChooseMenu(QStringLiteral("mnuGotoSchema"));
        EXPECT_EQ(w->txtSchema.Text(), QString::fromUtf8(schema));
        w->tbsXML.Select(QStringLiteral("listview"));
    }
}

TEST_F(Bind, TheSchemaViewShowsTheSchemaFromTheDocumentsFolder) {
    const QByteArray schema = "<schema xmlns='http://www.w3.org/2001/XMLSchema'/>";
    t.folder.Write(QStringLiteral("a b.xsd"), schema);
    const QByteArray location = "<a " + QByteArray(kXsi) + " xsi:schemaLocation='urn:x a%20b.xsd'/>";
    Open(location);
    t.ChooseMenu(QStringLiteral("mnuGotoSchema"));
    EXPECT_EQ(w->tbsXML.SelectedKey(), QStringLiteral("schema"));
    EXPECT_EQ(w->txtSchema.Text(), QString::fromUtf8(schema));
    EXPECT_GT(w->txtSchema.Runs().size(), 1U) << "it has its colours";
    EXPECT_TRUE(w->txtSchema.Locked);
    t.folder.Write(QStringLiteral("new.xsd"), "<new/>");
    t.prompts.Answer(Answer::Yes);
    t.prompts.Choose(t.folder.Path(QStringLiteral("new.xsd")));
    t.ChooseMenu(QStringLiteral("mnuApplySchema"));
    EXPECT_EQ(w->txtSchema.Text(), QStringLiteral("<new/>"));

    Open("<a " + QByteArray(kXsi) + " xsi:noNamespaceSchemaLocation='missing.xsd'/>",
         QStringLiteral("b.xml"));
    w->tbsXML.Select(QStringLiteral("schema"));
    EXPECT_EQ(w->txtSchema.Text(), QString()) << "nothing, and no box";
    Open("<a " + QByteArray(kXsi) + " xsi:noNamespaceSchemaLocation='http://127.0.0.1:9/x.xsd'/>",
         QStringLiteral("c.xml"));
    t.prompts.Answer(Answer::No);
    w->tbsXML.Select(QStringLiteral("schema"));
    EXPECT_TRUE(t.prompts.Texts().back().contains(QStringLiteral("http://127.0.0.1:9/x.xsd")));
}

} // namespace
