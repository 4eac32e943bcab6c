// SPDX-License-Identifier: GPL-3.0-or-later
// The tree of a schema, its attributes in the list, and the two extensions.
#include "schema/RootDeclarations.h"
#include "schema/SchemaState.h"
#include "schema/SchemaTree.h"
#include "tests/nodes/ListDesk.h"
#include <QRandomGenerator>

namespace {

constexpr char kOpen[] = "<xsd:schema xmlns:xsd='http://www.w3.org/2001/XMLSchema' xmlns:p='urn:p'>";

struct Schema : test::ListDesk {
    void Open(const QByteArray& inside, const QString& name = QStringLiteral("a.xsd")) {
        t.prompts.AllowAnyBox(); // not all of these are good schemas
        ListDesk::Open(kOpen + inside + "</xsd:schema>", name);
        w->tbsXML.Select(QStringLiteral("listview")); // a fault brings up the text
        Select(Element());
    }
    /// Names of the declarations that bear the mark.
    std::string Roots() {
        QStringList names;
        for (controls::TreeNode node = Element().Child(); node; node = node.Next()) {
            if (schema::IsMarkedAsRoot(node))
                names << m_tvXML::ContentOf(node, QStringLiteral("name")).value;
        }
        return names.join(u' ').toStdString();
    }
    std::string Names() {
        QStringList names;
        for (int row = 1; row <= Rows().Count(); ++row) {
            const controls::ListItem& item = Rows().Item(row);
            names << (item.Sub[0].isEmpty() ? item.Text : item.Text + u'=' + item.Sub[0]);
        }
        return names.join(u' ').toStdString();
    }
    int RowOf(const char* name) {
        for (int row = 1; row <= Rows().Count(); ++row) {
            if (Rows().Item(row).Text == QLatin1String(name))
                return row;
        }
        return 0;
    }
};

TEST_F(Schema, ANewOneStartsWithASchemaElementWithoutAPrefix) {
    t.ChooseMenu(QStringLiteral("mnuNewschema"));
    w = &t.window();
    EXPECT_EQ(w->Caption, QStringLiteral("new1.xsd"));
    EXPECT_EQ(Root().Image(), QStringLiteral("xmlroot"));
    EXPECT_EQ(w->rtxtXML.Text().toStdString(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
              "<!-- edited with Vantrel v2.0 by Orvane (https://vantrel.example/) -->\r\n"
              "<schema xmlns=\"http://www.w3.org/2001/XMLSchema\"></schema>");
    EXPECT_EQ(schema::SchemaOf(*w).msPrefix, QString());
    EXPECT_EQ(schema::GetSchemaNode(w->tvXML), Element());
    t.prompts.Choose({});
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_TRUE(t.prompts.dialogs.back().filter.startsWith(QStringLiteral("Schema File (*.xsd)")));
}

// Without a schema element, and where the prefix is another namespace's, the entry goes on and off as well.
TEST_F(Schema, AnExtensionIsSwitchedWhereNothingCanBeDeclared) {
    const auto checked = [this] { return t.frame().Menu(QStringLiteral("mnuSEnaMsSQL")).Checked(); };
    t.prompts.AllowAnyBox();
    ListDesk::Open("<a/>", QStringLiteral("none.xsd"));
    w->tbsXML.Select(QStringLiteral("listview"));
    for (const bool on : {true, false, true}) {
        t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
        EXPECT_EQ(checked(), on);
    }
    ListDesk::Open("<schema xmlns='http://www.w3.org/2001/XMLSchema' xmlns:sql='urn:mine'>"
                   "<element name='a'/></schema>",
                   QStringLiteral("other.xsd"));
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_FALSE(checked()) << "those names would be in another namespace";
    Select(Element().Child());
    EXPECT_EQ(RowOf("sql:field"), 0);
}

TEST_F(Schema, DeclarationsThatNothingRefersToAreMarked) {
    struct Case {
        const char* inside;
        const char* roots;
    };
    const Case cases[] = {
        {"<xsd:element name='a'/><xsd:element name='b'/>", "a b"},
        {"<xsd:element name='a'/><xsd:element/><xsd:element name=''/>", "a"},
        {"<xsd:element name='a' substitutionGroup='b'/><xsd:element name='b' substitutionGroup=''/>", "b"},
        {"<xsd:element name='a'/><xsd:group name='g'><xsd:sequence><xsd:element ref='a'/>"
         "<xsd:element name='local'/></xsd:sequence></xsd:group>",
         ""},
        // The first reference of a document doesn't count where it has a prefix.
        {"<xsd:element name='a'/><xsd:element name='b'/><xsd:group ref='p:a'/><xsd:group ref='p:b'/>", "a"},
        {"<xsd:element name='a'/><x ref='a'/><x ref='p:z'/>", ""},
        {"<p:ELEMENT name='a'/><xsd:attribute name='b'/>", "a"},
        {"<xsd:element name='say &quot;a&quot;'/>", ""},
    };
    int number = 0;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.inside);
        Open(one.inside, QStringLiteral("r%1.xsd").arg(++number));
        EXPECT_EQ(Roots(), one.roots);
    }
    EXPECT_EQ(Element().Child().SelectedImage(), QStringLiteral("openelement"));
    Open("<xsd:element name='a'/>", QStringLiteral("last.xsd"));
    EXPECT_EQ(Element().Child().SelectedImage(), QStringLiteral("openxmlrootelement"));
}

// One walk gives the answers that a search of the whole document for each declaration gives.
TEST(SchemaOutline, FindsTheRootsThatSearchesWouldFind) {
    const QStringList words{"a", "b", "c", "p:a", "p:b", "q:c", "", ":a", "p:b:c"};
    QRandomGenerator random(20);
    const auto word = [&] { return words[random.bounded(static_cast<int>(words.size()))]; };
    for (int round = 0; round < 300; ++round) {
        QString text = QStringLiteral("<s:schema>");
        for (int i = random.bounded(8); i >= 0; --i) {
            const QString element = random.bounded(4) ? QStringLiteral("s:element") : QStringLiteral("x");
            const QString group =
                random.bounded(4) ? QString() : QStringLiteral(" substitutionGroup='%1'").arg(word());
            const QString inside =
                random.bounded(2) ? QStringLiteral("<y ref='%1'/>").arg(word()) : QString();
            text += QStringLiteral("<%1 name='%2'%3>%4</%1>").arg(element, word(), group, inside);
        }
        xml::ParsedDocument document;
        ASSERT_TRUE(document.loadXML(text + QStringLiteral("</s:schema>")));
        std::vector<xml::Node> expected;
        const auto references = document.selectNodes(QStringLiteral("//*[@ref]"));
        for (xml::Node node = document.documentElement().firstChild(); node; node = node.nextSibling()) {
            const QString name = schema::AttributeOf(node, QStringLiteral("name"));
            bool root = node.nodeName() == QStringLiteral("s:element") && !name.isEmpty() &&
                        schema::AttributeOf(node, QStringLiteral("substitutionGroup")).isEmpty() &&
                        document.selectNodes(QStringLiteral("//*[@ref=\"%1\"]").arg(name)).empty();
            for (std::size_t i = 1; i < references.size(); ++i)
                root = root &&
                       schema::LocalName(schema::AttributeOf(references[i], QStringLiteral("ref"))) != name;
            if (root)
                expected.push_back(node);
        }
        EXPECT_EQ(schema::OutlineOf(document).rootDeclarations == expected, true) << text.toStdString();
    }
}

TEST_F(Schema, ThePrefixIsThatOfTheLastElementThatComesFirstAmongItsSiblings) {
    Open("<xsd:element name='a'/><p:x/>");
    EXPECT_EQ(schema::SchemaOf(*w).msPrefix, QStringLiteral("xsd"));
    EXPECT_EQ(Element().Text(), QStringLiteral("xsd:schema"));
    Open("<xsd:element name='a'/><xsd:annotation><!--c--><p:x><plain/></p:x></xsd:annotation>",
         QStringLiteral("b.xsd"));
    EXPECT_EQ(schema::SchemaOf(*w).msPrefix, QString());
    t.EditText(QStringLiteral("<p:schema xmlns:p='http://www.w3.org/2001/XMLSchema'/>"));
    EXPECT_EQ(schema::SchemaOf(*w).msPrefix, QStringLiteral("p"));
}

TEST_F(Schema, TheListOffersTheAttributesOfTheLanguageInItsOrder) {
    Open("<xsd:attribute use='required' name='a' p:more='1'/><xsd:pattern id='i' value='x'/>");
    EXPECT_EQ(Names().substr(Names().find(" id")),
              " id targetNameSpace version attributeFormDefault blockDefault elementFormDefault finalDefault "
              "xmlns xmlns:xsd=http://www.w3.org/2001/XMLSchema xml:lang xmlns:p=urn:p");
    Select(Element().Child());
    EXPECT_EQ(Names(), "name=a id ref type default fixed form use=required p:more=1");
    Select(Element().Child().Next());
    EXPECT_EQ(Names(), "id=i value=x") << "the language offers a facet nothing";
}

TEST_F(Schema, AnOfferedAttributeIsThereWhileItHasAValue) {
    Open("<xsd:attribute name='a'/>");
    Select(Element().Child());
    const auto tag = [this] { return Element().Child().Tag().toStdString(); };
    Edit(RowOf("default"), 2, "7");
    EXPECT_EQ(tag(), "name=\"a\" default=\"7\"");
    Edit(RowOf("default"), 2, "8");
    Edit(RowOf("default"), 2, "");
    EXPECT_EQ(tag(), "name=\"a\"");
    ClickRow(RowOf("fixed"));
    EXPECT_FALSE(Rows().StartLabelEdit()) << "there is nothing yet to have another name";
    EXPECT_NE(t.frame().StatusBar1().Panel(1), QString());
    ClickRows({RowOf("fixed"), RowOf("name")});
    Menu("mnuEditCopy");
    EXPECT_EQ(t.clipboard.text, QStringLiteral("name=\"a\"")) << "what isn't there isn't copied";
}

TEST_F(Schema, AnExtensionIsDeclaredOnceAndItsAttributesAreOffered) {
    constexpr char kSql[] = "xmlns:sql=\"urn:schemas-microsoft-com:mapping-schema\"";
    Open("<xsd:element name='a'/>");
    Select(Element().Child());
    const std::string plain = Element().Tag().toStdString();
    EXPECT_FALSE(Names().find("sql:relation") != std::string::npos);
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_EQ(Element().Tag().toStdString(), plain + ' ' + kSql);
    EXPECT_NE(Names().find("maxOccurs sql:relation sql:field"), std::string::npos);
    const auto checked = [this](const char* entry) { return t.frame().Menu(QLatin1String(entry)).Checked(); };
    EXPECT_TRUE(checked("mnuSEnaMsSQL"));
    EXPECT_FALSE(checked("mnuSEnaOra"));
    t.ChooseMenu(QStringLiteral("mnuSEnaOra"));
    EXPECT_NE(Names().find("sql:max-depth xdb:SQLName"), std::string::npos);
    DocumentWindow* first = w;
    Open("", QStringLiteral("b.xsd"));
    EXPECT_FALSE(checked("mnuSEnaMsSQL")) << "another window has its own switch";
    t.frame().ActivateForm(first);
    w = first;
    EXPECT_TRUE(checked("mnuSEnaMsSQL"));
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    t.ChooseMenu(QStringLiteral("mnuSEnaOra"));
    EXPECT_EQ(Element().Tag().trimmed().toStdString(), plain);
    EXPECT_FALSE(checked("mnuSEnaOra"));
}

TEST_F(Schema, ADeclarationThatNamesDependOnStays) {
    Open("<xsd:element name='a' xmlns:sql='urn:schemas-microsoft-com:mapping-schema' sql:field='f'/>");
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    Select(Element().Child());
    const std::string before = Names();
    EXPECT_NE(before.find("sql:field=f"), std::string::npos);
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_TRUE(Element().Tag().contains(QStringLiteral("xmlns:sql")));
    EXPECT_NE(t.frame().StatusBar1().Panel(1), QString());
    EXPECT_NE(Names().find("sql:field=f"), std::string::npos) << "what is there is shown";
    EXPECT_EQ(Names().find("sql:hide"), std::string::npos);
}

TEST_F(Schema, ADeclarationStaysWhereAValueNamesSomethingWithItsPrefix) {
    int count = 0;
    for (const char* use : {"type='sql:t'", "substitutionGroup='sql:e'", "memberTypes='xsd:int sql:t'",
                            "xpath='a/sql:b'", "xpath='.//sql:*'"}) {
        Open("<xsd:element name='a'><xsd:annotation/></xsd:element>", QStringLiteral("u%1.xsd").arg(++count));
        t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
        t.EditText(w->rtxtXML.Text().replace(QStringLiteral("name=\"a\""), QLatin1String(use)));
        t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
        EXPECT_TRUE(Element().Tag().contains(QStringLiteral("xmlns:sql"))) << use;
    }
    Open("<xsd:element name='mysql:a' id='nosql'/>", QStringLiteral("other.xsd"));
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_FALSE(Element().Tag().contains(QStringLiteral("xmlns:sql"))) << "other words end in these letters";
}

TEST_F(Schema, UndoAndCancelTakeBackWhatAnExtensionOffersToo) {
    const auto checked = [this] { return t.frame().Menu(QStringLiteral("mnuSEnaMsSQL")).Checked(); };
    Open("<xsd:element name='a'/>");
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    w->tbsXML.Select(QStringLiteral("textview"));
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_FALSE(Element().Tag().contains(QStringLiteral("xmlns:sql")));
    EXPECT_FALSE(checked());
    t.ChooseMenu(QStringLiteral("mnuRedo"));
    EXPECT_TRUE(checked());
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_FALSE(checked());
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    EXPECT_TRUE(checked());

    Open("<xsd:annotation><xsd:documentation><![CDATA[x]]></xsd:documentation></xsd:annotation>",
         QStringLiteral("cdata.xsd"));
    t.prompts.AnswerRewriting({services::Answer::Cancel});
    t.ChooseMenu(QStringLiteral("mnuSEnaMsSQL"));
    EXPECT_EQ(t.prompts.rewritings.size(), 1U);
    EXPECT_FALSE(checked());
    EXPECT_FALSE(Element().Tag().contains(QStringLiteral("xmlns:sql")));
}

} // namespace
