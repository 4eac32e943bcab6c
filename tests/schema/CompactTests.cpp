// SPDX-License-Identifier: GPL-3.0-or-later
// A schema is edited through the instance that it describes.
#include "schema/CompactList.h"
#include "schema/CompactState.h"
#include "schema/SampleWalk.h"
#include "tests/schema/SchemaDesk.h"
#include <QRegularExpression>

namespace {

using controls::TreeNode;

constexpr char kShop[] =
    "<xs:element name='shop'><xs:complexType><xs:sequence>"
    "<xs:element name='a' type='T'/><xs:element ref='item'/><xs:element name='b' type='xs:int'/>"
    "</xs:sequence><xs:attribute name='id' type='xs:int'/><xs:attribute name='lang'/></xs:complexType>"
    "</xs:element><xs:complexType name='T'><xs:sequence><xs:element name='x'/><xs:element ref='item'/>"
    "</xs:sequence></xs:complexType>"
    "<xs:element name='item'><xs:simpleType><xs:restriction base='xs:string'><xs:pattern value='[0-9]{2}'/>"
    "</xs:restriction></xs:simpleType></xs:element>";

struct Compact : test::SchemaDesk {
    controls::TreeView& Tree() { return schema::CompactOf(*w).tvRes; }
    controls::ListView& List() { return schema::CompactOf(*w).lvRes; }
    controls::TextBox& Cell() { return schema::CompactOf(*w).txtResLv; }
    std::string Segment() {
        return schema::CompactOf(*w)
            .rtxtSeg.Text()
            .remove(QRegularExpression(QStringLiteral("\\s+(?=<)|\\s+$")))
            .toStdString();
    }

    void OpenCompact(const QByteArray& inside = kShop) {
        OpenSchema(inside);
        w->tbsXML.Select(QStringLiteral("compactview"));
        Tree().GotFocus();
    }
    /// By the names of the nodes from the root on.
    TreeNode At(const QString& path) {
        TreeNode node;
        for (const QString& name : path.split(u'/')) {
            node = node ? node.Child() : Tree().Nodes(1);
            while (node && node.Text() != name)
                node = node.Next();
            if (!node)
                throw std::runtime_error("no such node: " + path.toStdString());
        }
        return node;
    }
    void Choose(const QString& path) {
        Tree().GotFocus();
        Tree().SetSelectedItem(At(path));
        Tree().NodeClick(At(path));
        Tree().Click();
    }
    int Row(const QString& name) {
        for (int row = 1; row <= List().Count(); ++row) {
            if (List().Item(row).Text == name)
                return row;
        }
        throw std::runtime_error("no such row: " + name.toStdString());
    }
    void ChooseRow(const QString& name) {
        List().GotFocus();
        schema::SelectResultRow(*w, Row(name));
        List().Click();
    }
    void NameNode(const char* name) {
        ASSERT_TRUE(Tree().LabelEditNode());
        Tree().EndLabelEdit(QString::fromUtf8(name));
    }
    void NameRow(const char* name) {
        ASSERT_GT(List().LabelEditRow(), 0);
        List().EndLabelEdit(QString::fromUtf8(name));
    }
    void TypeInto(const QString& row, const char* text) {
        ChooseRow(row);
        List().CellClick(Row(row), 2);
        ASSERT_TRUE(Cell().Visible());
        Cell().GotFocus();
        Cell().UserTyped(QString::fromUtf8(text));
        int enter = Qt::Key_Return;
        Cell().KeyDown(enter, 0);
    }
    std::string Selected() { return Tree().SelectedItem() ? Tree().SelectedItem().Text().toStdString() : ""; }
    std::string Schema() { return Plain(w->rtxtXML.Text()); }
    bool SchemaHas(const char* part) { return Schema().find(part) != std::string::npos; }
    std::string Status() { return t.frame().StatusBar1().Panel(1).toStdString(); }
    /// What was done is one step: taken back all is as it was, done again it is as it is now.
    void ExpectOneStep(const std::string& before) {
        const std::string after = Schema(), instance = Instance();
        ASSERT_NE(after, before);
        t.ChooseMenu(QStringLiteral("mnuEditUndo"));
        EXPECT_EQ(Schema(), before);
        t.ChooseMenu(QStringLiteral("mnuRedo"));
        EXPECT_EQ(Schema(), after);
        EXPECT_EQ(Instance(), instance);
    }
};

TEST_F(Compact, ShowsTheInstanceAndTheDeclarationBehindWhatIsSelected) {
    OpenCompact();
    EXPECT_EQ(Selected(), "shop");
    EXPECT_TRUE(Tree().Nodes(1).Expanded());
    EXPECT_EQ(w->miPopupContext, kContextCompact);
    EXPECT_EQ(List().Count(), 3 + 2 + 2) << "children, attributes, and the location of the schema";
    Choose(QStringLiteral("shop/item"));
    EXPECT_NE(At(QStringLiteral("shop/item")).Key(), At(QStringLiteral("shop/a/item")).Key());
    EXPECT_TRUE(Segment().starts_with("<xs:element name=\"item\">")) << Segment();
    EXPECT_EQ(w->tvXML.SelectedItem().Tag(), QStringLiteral("name=\"item\""));
    Choose(QStringLiteral("shop/a/item/#text"));
    EXPECT_EQ(Segment(), "<xs:pattern value=\"[0-9]{2}\"></xs:pattern>");
    Choose(QStringLiteral("shop/b/#text"));
    EXPECT_EQ(Segment(), "<xs:element name=\"b\" type=\"xs:int\"></xs:element>") << "its element's";
    Choose(QStringLiteral("shop"));
    ChooseRow(QStringLiteral("id"));
    EXPECT_EQ(Segment(), "<xs:attribute name=\"id\" type=\"xs:int\"></xs:attribute>");
    List().DblClick();
    EXPECT_TRUE(Cell().Visible());

    const TreeNode type = Element().Child().Next();
    Select(type);
    EXPECT_EQ(Selected(), "a") << "the first element of the type";
    Select(type.Child().Child());
    EXPECT_EQ(Selected(), "x");
    Select(Element().Child().Child().LastChild());
    EXPECT_EQ(Selected(), "shop");
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("lang"));

    w->tbsXML.Select(QStringLiteral("listview"));
    Select(type.Child().Child());
    w->tbsXML.Select(QStringLiteral("compactview"));
    EXPECT_EQ(Selected(), "x") << "the instance goes to the current node";
    EXPECT_EQ(w->tvXML.SelectedItem(), type.Child().Child());

    OpenSchema("<xs:complexType name='T'/>");
    w->tbsXML.Select(QStringLiteral("compactview"));
    EXPECT_EQ(t.prompts.Texts(), QStringList{QStringLiteral("This schema does not have root element.")});
    EXPECT_EQ(Tree().Nodes.Count(), 0);
    Open("<other/>", QStringLiteral("other.xsd"));
    w->tbsXML.Select(QStringLiteral("compactview"));
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameNode("a");
    EXPECT_EQ(t.prompts.Texts().back(),
              QStringLiteral("Can not find \"schema\" node. Please add it and try again."));
    EXPECT_EQ(Tree().Nodes.Count(), 0);
}

TEST_F(Compact, ARenamedElementIsRenamedWhereverItStands) {
    OpenCompact();
    Tree().Nodes(1).Child().SetExpanded(true);
    Choose(QStringLiteral("shop/a/item"));
    const std::string before = Schema();
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    NameNode("piece");
    EXPECT_EQ(Instance(),
              "<shop id=\"2\" lang=\"\"><a><x></x><piece>11</piece></a><piece>11</piece><b>2</b></shop>");
    EXPECT_EQ(Selected(), "piece");
    EXPECT_EQ(Tree().SelectedItem().Parent().Text(), QStringLiteral("a"));
    EXPECT_TRUE(At(QStringLiteral("shop/a")).Expanded());
    EXPECT_EQ(w->miPopupContext, kContextCompact);
    EXPECT_TRUE(Segment().starts_with("<xs:element name=\"piece\">"));
    ExpectOneStep(before);
    EXPECT_TRUE(At(QStringLiteral("shop/a")).Expanded()) << "the schema was read anew";
    EXPECT_EQ(Selected(), "piece");

    t.ChooseMenu(QStringLiteral("mnuEditName"));
    NameNode("shop");
    EXPECT_EQ(Status(), "There is a global declaration of this name.");
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    t.prompts.Answer(services::Answer::Ok);
    NameNode("no name");
    EXPECT_TRUE(Tree().LabelKept());
    Tree().CancelLabelEdit();
    EXPECT_TRUE(SchemaHas("name=\"piece\""));

    Choose(QStringLiteral("shop"));
    ChooseRow(QStringLiteral("lang"));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    NameRow("speech");
    EXPECT_TRUE(SchemaHas("<xs:attribute name=\"speech\">"));
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("speech"));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    NameRow("id");
    EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("There already have a same name attribute!"));
    List().CancelLabelEdit();
    ChooseRow(QStringLiteral("b"));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    NameRow("c");
    EXPECT_TRUE(SchemaHas("<xs:element name=\"c\" type=\"xs:int\">"));
    ChooseRow(QStringLiteral("xmlns:xsi"));
    t.ChooseMenu(QStringLiteral("mnuEditName"));
    EXPECT_EQ(List().LabelEditRow(), 0) << "no schema declares it";
}

TEST_F(Compact, WhatIsAddedGetsItsTypeAndCompositor) {
    OpenCompact("<xs:element name='r'/>");
    const std::string first = Schema();
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    EXPECT_EQ(Schema(), first) << "it has no name yet";
    Tree().CancelLabelEdit();
    EXPECT_EQ(Tree().Nodes.Count(), 1);
    EXPECT_EQ(Selected(), "r");
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameNode("a");
    EXPECT_TRUE(SchemaHas("<xs:element name=\"r\"><xs:complexType><xs:sequence><xs:element name=\"a\">"));
    EXPECT_EQ(Selected(), "a");
    ExpectOneStep(first);
    Choose(QStringLiteral("r/a"));

    std::string before = Schema();
    t.ChooseMenu(QStringLiteral("mnuNewNodeText"));
    EXPECT_EQ(Instance(), "<r><a>Abc</a></r>");
    ExpectOneStep(before);
    before = Schema();
    t.ChooseMenu(QStringLiteral("mnuNewAttr"));
    EXPECT_EQ(List().Item(List().LabelEditRow()).Text, QStringLiteral("attr1"));
    NameRow("k");
    EXPECT_TRUE(SchemaHas("<xs:element name=\"a\"><xs:complexType><xs:simpleContent>"
                          "<xs:extension base=\"xs:string\"><xs:attribute name=\"k\">"));
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("k"));
    ExpectOneStep(before);
    t.ChooseMenu(QStringLiteral("mnuNewAttr"));
    NameRow("k");
    EXPECT_EQ(t.prompts.Texts().back(), QStringLiteral("There already have a same name attribute!"));
    List().CancelLabelEdit();
    EXPECT_EQ(List().Count(), 1);

    Choose(QStringLiteral("r"));
    t.ChooseMenu(QStringLiteral("mnuNewAttr"));
    List().EndLabelEdit(QStringLiteral("attr1")); // the name that it was given
    List().GotFocus();
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameRow("z");
    EXPECT_TRUE(SchemaHas("<xs:element name=\"z\"></xs:element></xs:sequence>"
                          "<xs:attribute name=\"attr1\"></xs:attribute></xs:complexType>"));
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("z")) << "the list has the keys";

    OpenCompact("");
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewCNode")).Usable());
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNewAttr")).Usable());
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameNode("root");
    EXPECT_EQ(Instance(), "<root></root>");
    EXPECT_TRUE(Element().Child().Image() == QStringLiteral("xmlrootelement"));

    OpenCompact(
        "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='s' type='xs:int'/>"
        "<xs:element name='o'><xs:simpleType><xs:restriction base='xs:int'/></xs:simpleType></xs:element>"
        "</xs:sequence></xs:complexType></xs:element>");
    Choose(QStringLiteral("r/s"));
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameNode("in");
    EXPECT_EQ(Status(), "The type xs:int has given way to the elements.");
    EXPECT_EQ(Instance(), "<r><s><in></in></s><o>2</o></r>");
    Choose(QStringLiteral("r/o"));
    before = Schema();
    t.ChooseMenu(QStringLiteral("mnuNewCNode"));
    NameNode("in");
    EXPECT_EQ(Status(), "The element has a simple type of its own, which holds nothing but text.");
    EXPECT_EQ(Schema(), before);
}

TEST_F(Compact, WhatIsDeletedLeavesOtherUsesAlone) {
    OpenCompact();
    Choose(QStringLiteral("shop/item"));
    std::string before = Schema();
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Instance(), "<shop id=\"2\" lang=\"\"><a><x></x><item>11</item></a><b>2</b></shop>");
    EXPECT_EQ(Selected(), "b") << "the next one";
    ExpectOneStep(before);
    before = Schema();
    Choose(QStringLiteral("shop"));
    ChooseRow(QStringLiteral("id"));
    List().KeyUp(Qt::Key_Delete, 0);
    EXPECT_FALSE(SchemaHas("name=\"id\""));
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("lang")) << "the next one";
    ExpectOneStep(before);
    ChooseRow(QStringLiteral("a"));
    t.ChooseMenu(QStringLiteral("mnuEditCut"));
    EXPECT_EQ(Plain(t.clipboard.text), "<a><x></x><item>11</item></a>");
    EXPECT_EQ(Instance(), "<shop lang=\"\"><b>2</b></shop>");
    schema::SelectResultRow(*w, 0);
    List().KeyUp(Qt::Key_Delete, 0);
    EXPECT_EQ(Instance(), "<shop lang=\"\"><b>2</b></shop>") << "no row is selected";
    Choose(QStringLiteral("shop/b/#text"));
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuDelete")).Usable()) << "it is a sample";
    Tree().KeyUp(Qt::Key_Delete, 0);
    EXPECT_EQ(Status(), "It is a sample: the schema has the type alone.");
    Choose(QStringLiteral("shop"));
    ChooseRow(QStringLiteral("xmlns:xsi"));
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Status(), "The schema doesn't declare this attribute.");
    EXPECT_EQ(Instance(), "<shop lang=\"\"><b>2</b></shop>");
}

TEST_F(Compact, AttributesEditedAsAListChangeTheirDeclarations) {
    OpenCompact("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='e'><xs:complexType>"
                "<xs:attribute name='a'/><xs:attribute ref='g'/><xs:attribute name='z'/></xs:complexType>"
                "</xs:element></xs:sequence></xs:complexType></xs:element>"
                "<xs:attribute name='g' type='xs:int'/>");
    const std::string before = Schema();
    TypeInto(QStringLiteral("e"), "a='' h='2' n='' m=''");
    EXPECT_EQ(Instance(), "<r><e a=\"\" h=\"2\" n=\"\" m=\"\"></e></r>");
    EXPECT_TRUE(SchemaHas("<xs:attribute ref=\"h\">")) << "the global one has the new name";
    EXPECT_EQ(schema::CurrentRow(*w).Text, QStringLiteral("e"));
    ExpectOneStep(before);
    t.prompts.Answer(services::Answer::No);
    TypeInto(QStringLiteral("e"), "a= b");
    EXPECT_TRUE(Cell().Visible());
    EXPECT_EQ(Cell().Text(), QStringLiteral("a= b"));
    int escape = Qt::Key_Escape;
    Cell().KeyDown(escape, 0);
    EXPECT_FALSE(Cell().Visible());
    Choose(QStringLiteral("r/e"));
    TypeInto(QStringLiteral("h"), "77");
    EXPECT_EQ(Status(), "It is a sample: the schema has the type alone.");
    EXPECT_FALSE(Cell().Visible());
    ChooseRow(QStringLiteral("a"));
    t.ChooseMenu(QStringLiteral("mnuEditValue"));
    w->tbsXML.Select(QStringLiteral("textview"));
    EXPECT_FALSE(Cell().Visible());
    w->tbsXML.Select(QStringLiteral("compactview"));
    EXPECT_EQ(Selected(), "e") << "as it was left";
    EXPECT_TRUE(w->bUnsaved);
    t.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_FALSE(w->bUnsaved);
}

TEST_F(Compact, WhatAnEditDoesNotMeanStays) {
    OpenCompact(
        "<xs:element name='r'><xs:complexType><xs:sequence><xs:group ref='g'/>"
        "<xs:element name='t' type='Elsewhere'/><xs:element name='f' type='xs:int' fixed='2'/>"
        "<xs:element name='c'/></xs:sequence></xs:complexType></xs:element>"
        "<xs:group name='g'><xs:sequence><xs:element name='one'/><xs:element name='two'/>"
        "</xs:sequence></xs:group><xs:attribute name='id'/>"
        "<xs:complexType name='T'><xs:attribute ref='xml:id'/><xs:attribute ref='id'/></xs:complexType>");
    Choose(QStringLiteral("r/one"));
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_EQ(Instance(), "<r><two></two><t></t><f>2</f><c></c></r>") << "the group stays";
    const std::string before = Schema();
    for (const auto& [node, why] : {std::pair{"r/t", "The type of the element isn't declared here."},
                                    {"r/f", "An element with a default or fixed value holds no elements."}}) {
        Choose(QLatin1String(node));
        t.ChooseMenu(QStringLiteral("mnuNewCNode"));
        NameNode("in");
        EXPECT_EQ(Status(), why);
        EXPECT_EQ(Schema(), before);
    }
    schema::CompactOf(*w).rtxtSeg.GotFocus();
    t.ChooseMenu(QStringLiteral("mnuEditCut"));
    EXPECT_EQ(Schema(), before) << "what is read only isn't cut";

    OpenCompact("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='e'><xs:complexType>"
                "<xs:attribute name='a'/><xs:attribute ref='id'/></xs:complexType></xs:element></xs:sequence>"
                "</xs:complexType></xs:element><xs:attribute name='id'/><xs:attribute name='key'/>"
                "<xs:complexType name='T'><xs:attribute ref='xml:id'/></xs:complexType>");
    const std::string whole = Schema();
    TypeInto(QStringLiteral("e"), "b='' key=''");
    EXPECT_EQ(Schema(), whole) << "a list is taken as a whole";
    EXPECT_EQ(Status(), "There is a global declaration of this name.");
    TypeInto(QStringLiteral("e"), "a='' other=''");
    EXPECT_TRUE(SchemaHas("<xs:attribute ref=\"other\">"));
    EXPECT_TRUE(SchemaHas("<xs:attribute ref=\"xml:id\">")) << "another namespace's";
}

TEST_F(Compact, ADeclinedDeletionIsTakenBackInTheInstanceToo) {
    OpenCompact("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a'><xs:annotation>"
                "<xs:documentation><![CDATA[b]]></xs:documentation></xs:annotation></xs:element>"
                "<xs:element name='c'/></xs:sequence></xs:complexType></xs:element>");
    Choose(QStringLiteral("r/c"));
    t.prompts.AnswerRewriting({services::Answer::Cancel});
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    EXPECT_NO_THROW(At(QStringLiteral("r/c")));
    EXPECT_EQ(Instance(), "<r><a></a><c></c></r>");
}

TEST_F(Compact, MenusAreThoseOfTheInstance) {
    OpenCompact();
    const auto usable = [&](const char* entry) { return t.frame().Menu(QLatin1String(entry)).Usable(); };
    for (const char* entry : {"mnuNewCNode", "mnuNewAttr", "mnuNewNodeText", "mnuEditName", "mnuEditValue",
                              "mnuEditAttrP", "mnuDelete", "mnuEditCopy", "mnuFileSave"})
        EXPECT_TRUE(usable(entry)) << entry;
    for (const char* entry : {"mnuEditPaste", "mnuPasteP", "mnuFindReplace", "mnuSplitEditor", "mnuWinSplit",
                              "mnuCopyAsHTML", "mnuNewComment", "mnuEditP"})
        EXPECT_FALSE(t.frame().Menu(QLatin1String(entry)).Enabled()) << entry;
    const std::string before = Schema();
    t.frame().RunMenuCommand(QStringLiteral("mnuNewSElement"));
    EXPECT_EQ(Schema(), before) << "what inserts elements of the language does nothing here";
    Select(Element().Child());
    EXPECT_TRUE(usable("mnuNewSComplexType")) << "the tree beside it is in use";
    t.ChooseMenu(QStringLiteral("mnuEditCopy"));
    EXPECT_TRUE(t.clipboard.text.contains(QStringLiteral("<xs:element")));
    Tree().GotFocus();
    t.ChooseMenu(QStringLiteral("mnuEditCopy"));
    EXPECT_TRUE(t.clipboard.text.startsWith(QStringLiteral("<shop")));
}

} // namespace
