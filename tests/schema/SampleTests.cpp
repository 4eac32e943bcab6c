// SPDX-License-Identifier: GPL-3.0-or-later
// The instance that a schema describes.
#include "schema/SampleWalk.h"
#include "tests/schema/SchemaDesk.h"

namespace {

struct SampleInstance : test::SchemaDesk {
    std::string Status() { return t.frame().StatusBar1().Panel(1).toStdString(); }
    std::string TypedAs(const char* type) {
        return InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='xs:" +
                          QByteArray(type) + "'/></xs:sequence></xs:complexType></xs:element>");
    }
    std::string Restricted(const char* facets, const char* base = "xs:string") {
        return InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a'>"
                          "<xs:simpleType><xs:restriction base='" +
                          QByteArray(base) + "'>" + facets +
                          "</xs:restriction></xs:simpleType></xs:element></xs:sequence></xs:complexType>"
                          "</xs:element><xs:simpleType name='T'><xs:restriction base='xs:int'>"
                          "<xs:minExclusive value='9'/></xs:restriction></xs:simpleType>");
    }
};

constexpr char kOrder[] =
    "<xs:element name='order' type='OrderT'/>"
    "<xs:complexType name='OrderT'><xs:sequence><xs:element ref='item' maxOccurs='3'/>"
    "<xs:choice><xs:element name='a' type='xs:string'/><xs:element name='b' type='xs:int'/></xs:choice>"
    "<xs:element name='code' type='CodeT' minOccurs='0'/></xs:sequence>"
    "<xs:attribute name='id' type='xs:int'/></xs:complexType>"
    "<xs:element name='item' type='xs:date'/>"
    "<xs:simpleType name='CodeT'><xs:restriction base='xs:string'><xs:pattern value='[0-9]{3}'/>"
    "</xs:restriction></xs:simpleType>";

TEST_F(SampleInstance, OfAnOrderBecomesADocument) {
    OpenSchema(kOrder);
    const QString schema = w->Caption;
    t.ChooseMenu(QStringLiteral("mnuSGenXML"));
    ASSERT_NE(t.window().Caption, schema);
    EXPECT_TRUE(t.window().bUnsaved) << "it stands in no file";
    const controls::TreeNode order = m_tvXML::FirstElement(t.window().tvXML.Nodes(1).Child());
    EXPECT_EQ(order.Tag(), QStringLiteral("id=\"2\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                          "xsi:noNamespaceSchemaLocation=\"%1\"")
                               .arg(schema));
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("\r\n\t<item>1999-05-31</item>\r\n")));
    EXPECT_EQ(Instance(), "<order id=\"2\"><item>1999-05-31</item><a>Abc</a><code>111</code></order>");

    controls::TreeView tree;
    tree.ImageList = w->tvXML.ImageList;
    schema::TreeToCompactTree(*w, tree);
    const controls::TreeNode root = tree.Nodes(1), declared = Element().Child();
    EXPECT_EQ(root.Tag(), QStringLiteral("id=\"2\"  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                         "xsi:noNamespaceSchemaLocation=\"%1\"")
                              .arg(schema));
    EXPECT_EQ(root.Key(), declared.Key());
    EXPECT_EQ(root.Image(), QStringLiteral("xmlrootelement"));
    const controls::TreeNode text = root.LastChild().Child();
    EXPECT_EQ(text.Text(), QStringLiteral("#text"));
    EXPECT_EQ(w->tvXML.Nodes(schema::GetRealKey(text.Key())).Text(), QStringLiteral("xs:pattern"))
        << "where the sample comes from";

    OpenSchema("<xs:element name='r'/>", " targetNamespace='urn:a'");
    schema::TreeToCompactTree(*w, tree);
    EXPECT_EQ(tree.Nodes(1).Tag(), QStringLiteral("  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                                  "xsi:schemaLocation=\"urn:a %1\"")
                                       .arg(w->Caption));
}

TEST_F(SampleInstance, HasValuesFromTheTableAndFromFacets) {
    EXPECT_EQ(TypedAs("date"), "<r><a>1999-05-31</a></r>");
    EXPECT_EQ(TypedAs("dateTime"), "<r><a></a></r>");
    EXPECT_EQ(TypedAs("nonPositiveInteger"), "<r><a>-2</a></r>");
    EXPECT_EQ(TypedAs("ID"), "<r><a></a></r>");
    const struct {
        const char *facets, *sample;
    } cases[] = {
        {"<xs:enumeration value='x'/><xs:enumeration value='y'/>", "x"},
        {"<xs:enumeration value='x'/><xs:pattern value='a&lt;{2}'/>", "a&lt;&lt;"},
        {"<xs:pattern value='a\\fb'/>", "ab"},
        {"<xs:minInclusive value='07'/>", "07"},
        {"<xs:minInclusive value=''/>", "Abc"},
        {"<xs:maxExclusive value='5'/><xs:minExclusive value='1.5x'/>", "2.5"},
        {"<xs:maxInclusive value='8'/><xs:maxExclusive value='5'/>", "4"},
        {"<xs:maxInclusive value='8'/>", "8"},
        {"<xs:maxLength value='2'/><xs:minLength value='4'/>", "1111"},
        {"<xs:length value='x'/>", "Abc"},
        {"<xs:totalDigits value='5'/><xs:fractionDigits value='2'/>", "111.11"},
        {"<xs:totalDigits value='2'/><xs:fractionDigits value='2'/>", "1.11"},
        {"<xs:fractionDigits value='2'/>", "1.11"},
        {"<xs:totalDigits value='3'/>", "111"},
        {"<xs:totalDigits value='3'/><xs:fractionDigits value='0'/>", "111."},
        {"<xs:minExclusive value='999999999999999'/>", "1000000000000000"},
        {"<xs:maxExclusive value='1000000000000000'/>", "999999999999999"},
        {"<xs:maxExclusive value='-9007199254740993'/>", "-9007199254740994"},
        {"<xs:pattern value='\xF0\x9F\x98\x80{2}'/>", "\xF0\x9F\x98\x80\xF0\x9F\x98\x80"},
        {"<xs:whiteSpace value='collapse'/>", "Abc"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Restricted(one.facets), "<r><a>" + std::string(one.sample) + "</a></r>") << one.facets;
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Restricted("<xs:length value='99999'/>"), "<r><a>Abc</a></r>");
    EXPECT_EQ(Status(), "The sample leaves out what is too long for it.");
    EXPECT_EQ(Restricted("", "T"), "<r><a>10</a></r>") << "the base type's facets";
    EXPECT_EQ(Restricted("<xs:minLength value='2'/>", ""), "<r><a></a></r>")
        << "without a base nothing bounds";
}

TEST_F(SampleInstance, EntersANamedTypeOnceAndEachReference) {
    EXPECT_EQ(InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='T'/>"
                         "<xs:element name='b' type='T'/></xs:sequence></xs:complexType></xs:element>"
                         "<xs:complexType name='T'><xs:all><xs:element name='c'/></xs:all>"
                         "<xs:attribute name='k'/></xs:complexType>"),
              "<r><a k=\"\"><c></c></a><b k=\"\"></b></r>");
    EXPECT_EQ(InstanceOf("<xs:element name='r' type='T'/><xs:complexType name='T'><xs:sequence>"
                         "<xs:element name='s' type='T'/></xs:sequence></xs:complexType>"),
              "<r><s><s></s></s></r>");
    EXPECT_EQ(
        InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element ref='e'/>"
                   "<xs:group ref='g'/><xs:element ref='e'/><xs:element ref='none'/></xs:sequence>"
                   "</xs:complexType></xs:element><xs:element name='e' type='xs:int'/>"
                   "<xs:group name='g'><xs:choice><xs:sequence/><xs:group ref='h'/></xs:choice></xs:group>"
                   "<xs:group name='h'><xs:sequence><xs:element ref='e'/></xs:sequence></xs:group>"),
        "<r><e>2</e><e>2</e><e>2</e></r>");
    EXPECT_EQ(
        InstanceOf("<xs:element name='r'><xs:complexType><xs:complexContent><xs:extension base='B'>"
                   "<xs:sequence><xs:element name='own'/></xs:sequence>"
                   "<xs:attribute name='o' type='xs:boolean'/></xs:extension></xs:complexContent>"
                   "</xs:complexType></xs:element><xs:complexType name='B'><xs:choice>"
                   "<xs:sequence><xs:element name='s'/></xs:sequence><xs:element name='base'/></xs:choice>"
                   "<xs:attributeGroup ref='G'/></xs:complexType><xs:attributeGroup name='G'>"
                   "<xs:attribute ref='x'/><xs:attribute name='y' default='7'/></xs:attributeGroup>"
                   "<xs:attribute name='x' type='xs:language'/>"),
        "<r x=\"en-US\" y=\"\" o=\"1\"><base></base><own></own></r>");
    EXPECT_TRUE(schema::HaveTwoAppears(QStringLiteral("<1>4;<1>42;"), QStringLiteral("<1>4")))
        << "the second time the beginning of a key is enough";
    EXPECT_FALSE(schema::HaveTwoAppears(QStringLiteral("<1>42;<1>4;"), QStringLiteral("<1>4")));
}

TEST_F(SampleInstance, OfACircleOrOfTooMuchIsCutOff) {
    space = "urn:as-a-schema";
    OpenSchema("<xs:element name='r'><xs:complexType><xs:complexContent><xs:extension base='A'>"
               "<xs:attribute name='g' type='xs:int'/></xs:extension></xs:complexContent></xs:complexType>"
               "</xs:element><xs:complexType name='A'><xs:complexContent><xs:extension base='B'>"
               "<xs:attribute name='a' type='S'/></xs:extension></xs:complexContent></xs:complexType>"
               "<xs:complexType name='B'><xs:complexContent><xs:extension base='A'>"
               "<xs:attribute name='a'/><xs:attributeGroup ref='G'/></xs:extension>"
               "</xs:complexContent></xs:complexType><xs:attributeGroup name='G'>"
               "<xs:attributeGroup ref='G'/><xs:attribute name='g'/></xs:attributeGroup>"
               "<xs:simpleType name='S'><xs:restriction base='S'/></xs:simpleType>");
    EXPECT_EQ(Instance(), "<r a=\"\" g=\"2\"></r>") << "each attribute once, as it is narrowed last";
    EXPECT_EQ(
        InstanceOf("<xs:element name='r'><xs:complexType><xs:group ref='g'/></xs:complexType></xs:element>"
                   "<xs:group name='g'><xs:sequence><xs:element name='n'/><xs:group ref='g'/>"
                   "</xs:sequence></xs:group>"),
        "<r><n></n></r>");

    QByteArray many, deep = "<xs:element name='r'>", end = "</xs:element>";
    for (int i = 0; i < 30000; ++i)
        many += "<xs:element name='e'/>";
    InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence>" + many +
               "</xs:sequence></xs:complexType></xs:element>");
    controls::TreeView tree;
    tree.ImageList = w->tvXML.ImageList;
    schema::TreeToCompactTree(*w, tree);
    EXPECT_EQ(tree.Nodes.Count(), 1023) << "the type and its sequence are visits, too";
    t.app().options.Debug = true;
    schema::TreeToCompactTree(*w, tree);
    EXPECT_TRUE(t.prompts.Texts().join(u' ').contains(QStringLiteral("miLoopCount > 1024!")));
    t.app().options.Debug = false;
    for (int i = 0; i < 1600; ++i) {
        deep += "<xs:complexType><xs:sequence><xs:element name='d'>";
        end = "</xs:element></xs:sequence></xs:complexType>" + end;
    }
    OpenSchema(deep + end);
    schema::TreeToCompactTree(*w, tree);
    EXPECT_EQ(tree.Nodes.Count(), 342);

    QByteArray types;
    for (int i = 0; i < 8000; ++i) {
        const QByteArray next = QByteArray::number(i + 1);
        types += "<xs:simpleType name='S" + QByteArray::number(i) + "'><xs:restriction base='S" + next +
                 "'/></xs:simpleType><xs:complexType name='C" + QByteArray::number(i) +
                 "'><xs:complexContent><xs:extension base='C" + next + "'><xs:attribute name='a" +
                 QByteArray::number(i) + "' type='S0'/></xs:extension></xs:complexContent></xs:complexType>";
    }
    OpenSchema("<xs:element name='r' type='C0'/><xs:simpleType name='S8000'><xs:restriction base='xs:string'>"
               "<xs:pattern value='x{30000}'/></xs:restriction></xs:simpleType>" +
               types);
    schema::TreeToCompactTree(*w, tree);
    EXPECT_LT(tree.Nodes(1).Tag().size(), 17000000);
    EXPECT_GT(tree.Nodes(1).Tag().size(), 15000000);
    EXPECT_EQ(Status(), "The sample leaves out what is too long for it.");
}

TEST_F(SampleInstance, NeedsARootDeclaration) {
    OpenSchema("<xs:annotation><xs:appinfo><xs:schema><xs:element name='inner'/></xs:schema></xs:appinfo>"
               "</xs:annotation><xs:complexType name='T'/>");
    t.ChooseMenu(QStringLiteral("mnuSGenXML"));
    EXPECT_EQ(t.prompts.Texts(), (QStringList{QStringLiteral("This schema does not have root element."),
                                              QStringLiteral("XML is empty!")}));
    Select(Element());
    Menu("mnuNewSElement");
    Element().LastChild().SetTag(QStringLiteral("name=\"late\""));
    EXPECT_EQ(Instance(), "<late></late>") << "a declaration that was added since it was read";
    EXPECT_EQ(InstanceOf("<xs:element name='r'><xs:complexType><xs:sequence><xs:element/></xs:sequence>"
                         "</xs:complexType></xs:element>"),
              "<r><xs:element></xs:element></r>");
}

} // namespace
