// SPDX-License-Identifier: GPL-3.0-or-later
// Values and names that are chosen from a list.
#include "nodes/ListState.h"
#include "tests/nodes/ListDesk.h"

namespace {

struct ValueList : test::ListDesk {
    void Open(const QByteArray& prefix, const QByteArray& inside) {
        const QByteArray in = prefix.isEmpty() ? QByteArray() : prefix + ":";
        const QByteArray declared = prefix.isEmpty() ? QByteArray() : ":" + prefix;
        t.prompts.AllowAnyBox();
        ListDesk::Open("<" + in + "schema xmlns" + declared + "='http://www.w3.org/2001/XMLSchema'>" +
                           inside + "</" + in + "schema>",
                       QStringLiteral("v%1.xsd").arg(++count_));
        w->tbsXML.Select(QStringLiteral("listview")); // a fault brings up the text
        Select(Element().Child());
    }
    int RowOf(const char* name) {
        for (int row = 1; row <= Rows().Count(); ++row) {
            if (Rows().Item(row).Text == QLatin1String(name))
                return row;
        }
        return 0;
    }
    /// Opens a value; what there is to choose from.
    QStringList OfferedFor(const char* attribute) {
        ClickRow(RowOf(attribute));
        Rows().CellClick(RowOf(attribute), 2);
        EXPECT_TRUE(w->txtListView.Visible());
        w->txtListView.GotFocus();
        return nodes::ListOf(*w).cmbValue.Items();
    }

private:
    int count_ = 0;
};

TEST_F(ValueList, AFixedListIsOfferedBehindThePrefixAndAnythingCanBeTyped) {
    Open("xsd", "<xsd:element name='a' maxOccurs='7'/>");
    EXPECT_EQ(OfferedFor("form"),
              (QStringList{QStringLiteral("xsd:qualified"), QStringLiteral("xsd:unqualified")}));
    EXPECT_EQ(OfferedFor("type").mid(0, 2),
              (QStringList{QStringLiteral("xsd:string"), QStringLiteral("xsd:boolean")}));
    EXPECT_EQ(OfferedFor("type").size(), 44);
    for (const char* plain : {"minOccurs", "name", "substitutionGroup"})
        EXPECT_EQ(OfferedFor(plain), QStringList()) << plain;
    EXPECT_EQ(OfferedFor("maxOccurs").last(), QStringLiteral("xsd:unbound"));
    EXPECT_EQ(t.frame().StatusBar1().Panel(1), QStringLiteral("7")) << "the old value";
    w->txtListView.UserTyped(QStringLiteral("unbounded"));
    w->txtListView.LostFocus();
    EXPECT_EQ(Element().Child().Tag(), QStringLiteral("name=\"a\" maxOccurs=\"unbounded\""));

    Open("", "<element name='a'/>");
    EXPECT_EQ(OfferedFor("block"),
              (QStringList{QStringLiteral("#all"), QStringLiteral("extension"), QStringLiteral("restriction"),
                           QStringLiteral("substitution")}));
    EXPECT_EQ(OfferedFor("final").last(), QStringLiteral("restriction"));
    OfferedFor("type");
    nodes::ListOf(*w).cmbValue.UserChose(9);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("decimal"));
    w->txtListView.LostFocus();
    EXPECT_EQ(Element().Child().Tag(), QStringLiteral("name=\"a\" type=\"decimal\""));
    EXPECT_TRUE(w->rtxtXML.Text().contains(QStringLiteral("type=\"decimal\"")));
    OfferedFor("type");
    nodes::ListOf(*w).cmbValue.UserChose(0);
    int escape = Qt::Key_Escape;
    w->txtListView.KeyDown(escape, 0);
    EXPECT_EQ(Element().Child().Tag(), QStringLiteral("name=\"a\" type=\"decimal\""))
        << "left without a choice";

    ListDesk::Open("<a form='x'/>", QStringLiteral("plain.xml"));
    EXPECT_EQ(OfferedFor("form"), QStringList()) << "a plain document has plain values";
}

// What users choose from is data of the program, its slips included.
TEST_F(ValueList, EachAttributeHasItsValues) {
    constexpr struct {
        const char* attributes;
        const char* values;
    } kLists[] = {
        {"mixed,abstract,nillable,xdb:SQLInline,xdb:maintDOM,xdb:isFolder,sql:is-constant,sql:mapped,"
         "sql:use-cdata,sql:hide",
         "false,true"},
        {"block", "#all,extension,restriction,substitution"},
        {"final", "#all,extension,restriction"},
        {"maxOccurs", "1,2,3,unbound"},
        {"form", "qualified,unqualified"},
        {"type",
         "string,boolean,byte,date,dateTime,time,short,integer,long,decimal,double,float,anyURI,base64Binary,"
         "duration,ENTITIES,ENTITY,gDay,gMonth,gMonthDay,gYear,gYearMonth,hexBinary,ID,IDREF,IDREFS,int,"
         "language,Name,NCName,negativeInteger,NMTOKEN,NMTOKENS,nonNegativeInteger,nonPositiveInteger,"
         "normalizedString,NOTATION,positiveInteger,QName,token,unsignedByte,unsignedInt,unsignedLong,"
         "unsignedShort"},
        {"sql:datatype",
         "bigint,binary,bit,char,datetime,decimal,float,image,int,money,nchar,ntext,nvarchar,numeric,real,"
         "smalldatetime,smallint,smallmoney,sql_variant,sysname,text,timestamp,tinyint,varbinary,varchar,"
         "uniqueidentifier"},
        {"sql:encode", "default,url"},
        {"sql:identity", "ignore,useValue"},
        {"sql:guid", "generate,useValue"},
        {"xdb:SQLType", "BFILE,BLOB,CHAR,CLOB,DATE,DECIMAL,FLOAT,INTEGER,INTERVAL DAY TO SECOND,INTERVAL "
                        "YEAR TO MONTH,NCHAR,"
                        "NCLOB,NUMBER,NVARCHAR,NVARCHAR2,RAW,REF,TIMESTAMP,VARCHAR,VARCHAR2,XMLTYPE"},
        {"xdb:JavaType", "BigDecimal,boolean,byte,byteArray,CharStream,double,Enum,float,int,long,QName,"
                         "Reference,short,Stream,String,TimeStamp,XMLType"},
        {"substitutionGroup,model,use,minOccurs,xdb:maintainDOM", ""}};
    QByteArray all;
    for (const auto& list : kLists) {
        for (const QByteArray& name : QByteArray(list.attributes).split(','))
            all += name + "='' ";
    }
    Open("", "<element xmlns:sql='urn:schemas-microsoft-com:mapping-schema' "
             "xmlns:xdb='http://xmlns.oracle.com/xdb' " +
                 all + "/>");
    for (const auto& list : kLists) {
        for (const QByteArray& name : QByteArray(list.attributes).split(',')) {
            EXPECT_EQ(OfferedFor(name.constData()).join(u','), QLatin1String(list.values))
                << name.constData();
        }
    }
}

TEST_F(ValueList, ACompositorIsSwitchedAndNotRenamed) {
    Open("p", "<p:group name='g'><p:sequence><p:element name='a'/></p:sequence></p:group>");
    ClickRow(1);
    Menu("mnuEditName");
    EXPECT_EQ(Rows().LabelEditRow(), 0);
    ASSERT_TRUE(w->txtListView.Visible());
    EXPECT_EQ(
        nodes::ListOf(*w).cmbLVSAC.Items(),
        (QStringList{QStringLiteral("p:sequence"), QStringLiteral("p:all"), QStringLiteral("p:choice")}));
    nodes::ListOf(*w).cmbLVSAC.UserChose(2);
    w->txtListView.LostFocus();
    EXPECT_EQ(Rows().Item(1).Text, QStringLiteral("p:choice"));
    EXPECT_TRUE(w->rtxtXML.Text().contains(QStringLiteral("<p:choice>")));
    EXPECT_EQ(Xml(Element().Child().Child()), "<p:choice><p:element name=\"a\"></p:element></p:choice>");

    Menu("mnuEditName");
    w->txtListView.UserTyped(QStringLiteral("p:element"));
    w->txtListView.LostFocus();
    EXPECT_EQ(Element().Child().Child().Text(), QStringLiteral("p:choice"))
        << "nothing else can stand for it";
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());
    Select(Element());
    ClickRow(1);
    Menu("mnuEditName");
    EXPECT_EQ(Rows().LabelEditRow(), 1) << "any other element has a name of its own";
}

} // namespace
